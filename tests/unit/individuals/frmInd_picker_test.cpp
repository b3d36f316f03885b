// The card as a picker, for an asker of whom it knows the request alone.
#include "individuals/individual_card.h"

#include "views/frmRP.h"

TEST_F(IndividualCard, TheAskerGetsThePersonAndTheRequestEnds)
{
    ask(request(DepoisDePedido::Esconde));
    EXPECT_FALSE(asker->isEnabled());
    EXPECT_TRUE(frmInd().isShown());
    click("cmdAtribuir");
    EXPECT_EQ(given, "7");
    EXPECT_TRUE(asker->isEnabled() && asker->isActive());
    EXPECT_FALSE(frmInd().isShown());
    EXPECT_FALSE(chamada().existe());
}

TEST_F(IndividualCard, AnActMayAskAgainUntilTheCardIsClosed)
{
    for (const auto then : {DepoisDePedido::FicaAberta, DepoisDePedido::FicaEscondida}) {
        const bool open = then == DepoisDePedido::FicaAberta;
        ask(request(then));
        click("cmdAtribuir");
        EXPECT_TRUE(asker->isEnabled() && asker->isActive());
        EXPECT_FALSE(frmInd().isEnabled());
        EXPECT_EQ(frmInd().isShown(), open);
        EXPECT_TRUE(chamada().existe());
        frmInd().setEnabled(true);
        ask(request(then));
        click("cmdFechar");
        EXPECT_TRUE(asker->isEnabled() && asker->isActive());
        EXPECT_EQ(frmInd().isShown(), open);
        EXPECT_FALSE(chamada().existe());
    }
    EXPECT_EQ(given, "77");
}

TEST_F(IndividualCard, ClosingWithoutAChoiceGivesNobody)
{
    ask(request(DepoisDePedido::Esconde));
    click("cmdFechar");
    EXPECT_EQ(given, "");
    EXPECT_TRUE(asker->isEnabled());
    EXPECT_FALSE(frmInd().isShown());
    EXPECT_FALSE(chamada().existe());
}

TEST_F(IndividualCard, ClosingItWhereNobodyAsksEnablesTheCardOfFamilies)
{
    Form* family = Forms::show(FrmFam::Name);
    family->setEnabled(false);
    frmInd().display();
    click("cmdFechar");
    EXPECT_TRUE(family->isEnabled());
    EXPECT_FALSE(frmInd().isShown());
}

TEST_F(IndividualCard, ClosingAPickerOfItselfShowsTheCurrentPersonAgain)
{
    name().setText("x");
    PedidoDeIndividuo itself = request(DepoisDePedido::ReabreEdicao);
    itself.espera = false;
    chamada().comeca(itself);
    click("cmdFechar");
    EXPECT_TRUE(frmInd().isShown());
    EXPECT_EQ(name().text(), "Ana");
    EXPECT_FALSE(chamada().existe());
}

TEST_F(IndividualCard, ARefusalIsToldWithItsIconAndThePersonStays)
{
    for (const auto icon : {Icon::None, Icon::Information}) {
        PedidoDeIndividuo refusing = request(DepoisDePedido::Esconde);
        refusing.recusa = [=](const PedidoDeIndividuo& pedido, const FrmInd& card) -> std::optional<RecusaDeIndividuo> {
            EXPECT_EQ(pedido.origem, OrigemInd::Assistente);
            return RecusaDeIndividuo{"Não o nº " + card.numero(), icon};
        };
        ask(refusing);
        const Answer ok("OK");
        click("cmdAtribuir");
        EXPECT_EQ(ok.text, "Não o nº 7");
        EXPECT_EQ(ok.icon, icon == Icon::None ? QMessageBox::NoIcon : QMessageBox::Information);
        EXPECT_EQ(ok.title, boxTitle);
        EXPECT_FALSE(asker->isEnabled());
        EXPECT_TRUE(frmInd().isShown() && frmInd().isEnabled());
    }
    EXPECT_EQ(given, "");
}

TEST_F(IndividualCard, NobodyIsHandedOverWhereNobodyAsksOrNobodyIsShown)
{
    command("cmdAtribuir").setEnabled(true);
    click("cmdAtribuir");
    EXPECT_TRUE(frmInd().isShown());
    ask(request(DepoisDePedido::Esconde));
    control<TextBox>(frmInd(), "txtNind").clear();
    click("cmdAtribuir");
    EXPECT_EQ(given, "");
    EXPECT_FALSE(asker->isEnabled());
    EXPECT_TRUE(chamada().existe());
}

TEST_F(IndividualCard, AnAskerThatIsGoneGetsNobodyAndTheCardStays)
{
    ask(request(DepoisDePedido::FicaAberta));
    asker->unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    click("cmdAtribuir");
    EXPECT_EQ(given, "");
    EXPECT_FALSE(chamada().existe());
    EXPECT_TRUE(frmInd().isShown() && frmInd().isEnabled());
}

TEST_F(IndividualCard, WhoAsksFollowsAnAlterationOnlyWhileTheRequestStands)
{
    const auto rename = [](const QString& to) {
        click("cmdAlt");
        name().setText(to);
        click("cmdAlt");
    };
    QStringList followed;
    rename("Eva");
    PedidoDeIndividuo following = request(DepoisDePedido::FicaAberta);
    following.segueAlteracao = [&](const FrmInd& card) { followed << card.nome(); };
    ask(following);
    rename("Ida");
    click("cmdFechar");
    rename("Isa");
    EXPECT_EQ(followed, QStringList{"Ida"});
}

TEST_F(IndividualCard, TheRequestOfAnActLeavesACardThatIsBeingEditedAsItIs)
{
    cnBDP.execute("insert into individuo (nind, nome, tipo, sexo) values (8, 'Rui', 'T', 'm')");
    FrmInd::abrePeloMenu();
    PedidoDeIndividuo act = request(DepoisDePedido::FicaAberta);
    act.deActo = true;
    click("cmdAlt");
    FrmInd::pede(act, QString("8"));
    EXPECT_EQ(frmInd().numero(), "7");
    EXPECT_EQ(frmInd().modo(), Modo::Edi);
    EXPECT_FALSE(command("cmdAtribuir").isEnabled());
    click("cmdElim");
    EXPECT_TRUE(command("cmdAtribuir").isEnabled());
    FrmInd::pede(act, QString("8"));
    EXPECT_EQ(frmInd().numero(), "8");
    FrmInd::pede(act, std::nullopt);
    EXPECT_EQ(frmInd().numero(), "8");
}

TEST_F(IndividualCard, TheFormThatAskedGoesAndTheCardStaysInUseAndOnItsPerson)
{
    cnBDP.execute("insert into individuo (nind, nome, tipo, sexo) values (8, 'Rui', 'T', 'm')");
    FrmInd::abrePeloMenu();
    PedidoDeIndividuo act = request(DepoisDePedido::FicaAberta);
    act.deActo = true;
    FrmInd::pede(act, QString("8"));
    frmInd().setEnabled(false);
    frmInd().desiste(frmFam()); // another form's request stands
    EXPECT_TRUE(frmInd().isEnabled());
    EXPECT_TRUE(chamada().existe());
    EXPECT_TRUE(command("cmdAtribuir").isEnabled());
    frmInd().desiste(*asker);
    EXPECT_FALSE(chamada().existe());
    EXPECT_EQ(frmInd().numero(), "8");
    EXPECT_FALSE(command("cmdAtribuir").isEnabled());
}

TEST_F(IndividualCard, TheParishRecordTakesTheCardsPlace)
{
    cnBDP.execute("update individuo set rpObi = 'c:\\obitos.jpg' where nind = 7");
    frmInd().mostra("7");
    Forms::add(FrmRP::Name, [] { return new FrmRP; });
    click("cmdRP_1");
    EXPECT_TRUE(frmRP().isShown());
    EXPECT_FALSE(frmInd().isShown());
    EXPECT_EQ(control<QLabel>(frmRP(), "lblTipo").text(), "o");
    EXPECT_EQ(control<TextBox>(frmRP(), "txtLoc").text(), "c:\\obitos.jpg");
    click("cmdRP_0");
    EXPECT_EQ(control<QLabel>(frmRP(), "lblTipo").text(), "b");
    EXPECT_EQ(control<TextBox>(frmRP(), "txtLoc").text(), "");
}

TEST_F(IndividualCard, AfterAnEditAPersonCanBeHandedOverWhereOneWasAskedFor)
{
    const auto offered = [] {
        click("cmdAlt");
        EXPECT_FALSE(command("cmdAtribuir").isEnabled());
        click("cmdElim");
        return command("cmdAtribuir").isEnabled();
    };
    EXPECT_FALSE(offered());
    PedidoDeIndividuo quiet = request(DepoisDePedido::FicaAberta);
    quiet.IndChamado = false;
    ask(quiet);
    EXPECT_FALSE(offered());
    ask(request(DepoisDePedido::FicaAberta));
    EXPECT_TRUE(offered());
    chamada().desiste();
    EXPECT_FALSE(offered());
}

TEST_F(IndividualCard, OnlyItsCloseBoxIsRefused)
{
    EXPECT_FALSE(frmInd().unload(Form::UnloadMode::ControlMenu));
    EXPECT_TRUE(frmInd().isShown());
    ask(request(DepoisDePedido::Esconde));
    EXPECT_TRUE(frmInd().unload());
    EXPECT_FALSE(Forms::isLoaded(FrmInd::Name));
    EXPECT_TRUE(asker->isEnabled());
    EXPECT_FALSE(chamada().existe());
}

TEST_F(IndividualCard, ItComesUpReadyToHandAPersonOverWhereOneWasAskedFor)
{
    frmInd().unload();
    for (const bool called : {true, false, true}) { // the first one loads the card, behind the splash
        chamada().recomeca();
        if (called) chamada().chama();
        FrmInd::FrmIndLoaded();
        EXPECT_TRUE(frmInd().isShown());
        EXPECT_EQ(command("cmdAtribuir").isEnabled(), called);
        EXPECT_FALSE(Forms::isLoaded(SplashForm::Name));
    }
}

TEST_F(IndividualCard, TheSplashTellsThatThePeopleAreBeingLoaded)
{
    frmInd().unload();
    QString step;
    Forms::add(FrmInd::Name, [&] {
        step = splashForm().findChild<QLabel*>("lblEst")->text();
        return new FrmInd;
    });
    FrmInd::FrmIndLoaded();
    EXPECT_EQ(step, "A carregar fichas de indivíduo. Aguarde por favor ...");
}

TEST_F(IndividualCard, TheToolTipOfTheHandOverTellsForWhom)
{
    PedidoDeIndividuo godmother = request(DepoisDePedido::Esconde);
    godmother.comoQue = [](const FrmInd& card) {
        return (card.sexo() == "f" ? "madrinha" : "padrinho") + QStringLiteral(" do baptismo nº 12");
    };
    ask(godmother);
    EXPECT_TRUE(command("cmdAtribuir").isEnabled());
    EXPECT_EQ(command("cmdAtribuir").toolTip(), "Atribuir como madrinha do baptismo nº 12");
    click("cmdFechar");
    frmInd().display();
    command("cmdAtribuir").setEnabled(false);
    EXPECT_EQ(command("cmdAtribuir").toolTip(), "");
}
