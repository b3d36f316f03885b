// The card beside forms that no command leads to yet: who calls it up, what it hands over, and the way back.
#include "individuals/individual_card.h"

#include "views/frmRP.h"

TEST_F(IndividualCard, ClosingGoesBackToWhoCalledIt)
{
    struct Closing
    {
        int origin;
        const char* caller;
        bool staysOpen;
    };
    OrigemInterv = 2;
    for (const Closing& closing :
         {Closing{0, "frmFam", false}, Closing{1, "frmFam", false}, Closing{2, "frmFam", false},
          Closing{3, "frmIntervenientes", true}, Closing{4, "frmIntervenientes", true},
          Closing{5, "frmIntervenientes", true}, Closing{6, "frmFuneral", true}, Closing{7, "frmLegados", true},
          Closing{8, "frmFam", false}})
    {
        const Form* form = caller(closing.caller);
        close(closing.origin);
        EXPECT_TRUE(form->isEnabled()) << closing.origin;
        EXPECT_EQ(frmInd().isShown(), closing.staysOpen) << closing.origin;
        EXPECT_TRUE(form->isActive()) << closing.origin;
    }
}

TEST_F(IndividualCard, ClosingHidesItBesideTheParticipantsOfAFamilysAct)
{
    OrigemInterv = 1;
    const Form* form = caller("frmIntervenientes");
    close(4);
    EXPECT_TRUE(form->isEnabled());
    EXPECT_FALSE(frmInd().isShown());
}

TEST_F(IndividualCard, ClosingAPickerOfItselfShowsTheCurrentPersonAgain)
{
    frmInd().txtNome->setText("x");
    close(9);
    EXPECT_TRUE(frmInd().isShown());
    EXPECT_EQ(frmInd().txtNome->text(), "Ana");
    close(42);
    EXPECT_TRUE(frmInd().isShown());
}

TEST_F(IndividualCard, AChangedNameGoesToTheSpouseOnTheOpenFamilyCard)
{
    caller("frmFam");
    const FrmFam& family = frmFam();
    family.txtPnind->setText("7");
    family.txtSnind->setText("7");
    family.txtPnome->setText("father");
    family.txtSnome->setText("mother");
    rename("Eva");
    EXPECT_EQ(family.txtPnome->text(), "father");
    OrigemInd = 1;
    rename("Ida");
    EXPECT_EQ(family.txtPnome->text(), "Ida");
    EXPECT_EQ(family.txtSnome->text(), "mother");
    OrigemInd = 2;
    rename("Isa");
    EXPECT_EQ(family.txtPnome->text(), "Ida");
    EXPECT_EQ(family.txtSnome->text(), "Isa");
    OrigemInd = 1;
    family.txtPnind->setText("8");
    family.txtPnome->setText("father");
    rename("Iva");
    EXPECT_EQ(family.txtPnome->text(), "father");
}

TEST_F(IndividualCard, AnActGetsTheNumberOfThePersonChosen)
{
    struct Choice
    {
        int origin, interv;
        const char *caller, *field;
    };
    for (const Choice& choice :
         {Choice{3, 2, "frmIntervenientes", "txtIndP1"}, Choice{4, 1, "frmIntervenientes", "txtIndP2"},
          Choice{5, 2, "frmIntervenientes", "txtIndAss"}, Choice{6, 1, "frmFuneral", "txtNindP"},
          Choice{7, 1, "frmLegados", "txtNindH"}})
    {
        const Form* act = caller(choice.caller);
        OrigemInterv = choice.interv;
        choose(choice.origin);
        EXPECT_EQ(act->findChild<TextBox*>(choice.field)->text(), "7") << choice.origin;
        EXPECT_TRUE(act->isEnabled() && act->isActive()) << choice.origin;
        EXPECT_FALSE(frmInd().isEnabled()) << choice.origin;
        EXPECT_EQ(frmInd().isShown(), choice.origin != 4) << choice.origin;
        EXPECT_EQ(OrigemInd, choice.origin);
        frmInd().setEnabled(true);
    }
}

TEST_F(IndividualCard, WhoCouldNotHaveBeenAtTheActIsRefused)
{
    cnBDP.execute("update individuo set datanasc = '10/03/1750' where nind = 7");
    const QString first = "O indivíduo que tenta atribuir não se encontra no espaço temporal permitido!";
    const QString second = "\nAtribua outro indivíduo.";
    const Form* act = caller("frmIntervenientes");
    for (const int origin : {3, 4, 5}) {
        const Answer ok("OK");
        choose(origin);
        EXPECT_EQ(ok.text, first + second) << origin;
        EXPECT_EQ(ok.icon, QMessageBox::NoIcon);
        EXPECT_EQ(ok.title, boxTitle);
        EXPECT_FALSE(act->isEnabled());
        EXPECT_TRUE(frmInd().isShown() && frmInd().isEnabled());
    }
    for (const char* field : {"txtIndP1", "txtIndP2", "txtIndAss"})
        EXPECT_EQ(act->findChild<TextBox*>(field)->text(), "");
    EXPECT_EQ(DataActo, "09/03/1750");
}

TEST_F(IndividualCard, AFuneralIsHeldAgainstItsDateWhereItHasOne)
{
    cnBDP.execute("update individuo set datanasc = '10/03/1750' where nind = 7");
    const Form* funeral = caller("frmFuneral");
    const auto* priest = funeral->findChild<TextBox*>("txtNindP");
    DataActo = "09/03/1750";
    const Answer ok("OK");
    choose(6);
    EXPECT_EQ(ok.text, "O indivíduo que tenta atribuir não se  encontra no espaço temporal permitido!\nAtribua outro "
                       "indivíduo.");
    EXPECT_EQ(priest->text(), "");
    DataActo.clear();
    choose(6);
    EXPECT_EQ(priest->text(), "7");
    EXPECT_EQ(ok.given, 1);
}

TEST_F(IndividualCard, NobodyIsHandedOverWhereNobodyAsksOrNobodyIsShown)
{
    const Form* act = caller("frmLegados");
    const auto* heir = act->findChild<TextBox*>("txtNindH");
    choose(8);
    choose(42);
    frmInd().txtNind->clear();
    choose(7);
    EXPECT_EQ(heir->text(), "");
    EXPECT_FALSE(act->isEnabled());
    EXPECT_TRUE(frmInd().isShown() && frmInd().isEnabled());
    frmInd().txtNind->setText("7");
    choose(6); // its form is gone
    EXPECT_EQ(OrigemInd, 8);
    EXPECT_FALSE(Forms::isLoaded("frmFuneral"));
    EXPECT_TRUE(frmInd().isEnabled());
}

TEST_F(IndividualCard, CommandsOfFormsThatDontExistDoNothing)
{
    for (CommandButton* command : {frmInd().cmdProf, frmInd().cmdResid, frmInd().cmdAssin, frmInd().cmdApadrinha,
                                   frmInd().cmdCerFun, frmInd().cmdRMorte, frmInd().cmdLegProf})
    {
        command->click();
        EXPECT_TRUE(frmInd().isEnabled() && frmInd().isShown()) << qPrintable(command->objectName());
    }
}

TEST_F(IndividualCard, TheParishRecordTakesTheCardsPlace)
{
    cnBDP.execute("update individuo set rpObi = 'c:\\obitos.jpg' where nind = 7");
    frmInd().ActualizaCampos(frmInd().adoInd.recordset());
    Forms::add(FrmRP::Name, [] { return new FrmRP; });
    frmInd().cmdRP_1->click();
    EXPECT_TRUE(frmRP().isShown());
    EXPECT_FALSE(frmInd().isShown());
    EXPECT_EQ(frmRP().lblTipo->text(), "o");
    EXPECT_EQ(frmRP().txtLoc->text(), "c:\\obitos.jpg");
    frmInd().cmdRP_0->click();
    EXPECT_EQ(frmRP().lblTipo->text(), "b");
    EXPECT_EQ(frmRP().txtLoc->text(), "");
}

TEST_F(IndividualCard, AfterAnEditAPersonCanBeHandedOverWhereOneWasAskedFor)
{
    const auto offered = [](int origin, int called) {
        OrigemInd = origin;
        IndChamado = called;
        frmInd().cmdAlt->click();
        EXPECT_FALSE(frmInd().cmdAtribuir->isEnabled());
        frmInd().cmdElim->click();
        return frmInd().cmdAtribuir->isEnabled();
    };
    EXPECT_FALSE(offered(8, 1));
    EXPECT_TRUE(offered(3, 1));
    EXPECT_FALSE(offered(3, 0));
}

TEST_F(IndividualCard, OnlyItsCloseBoxIsRefused)
{
    const Form* family = caller("frmFam");
    EXPECT_FALSE(frmInd().unload(Form::UnloadMode::ControlMenu));
    EXPECT_TRUE(frmInd().isShown());
    OrigemInd = 1;
    EXPECT_TRUE(frmInd().unload());
    EXPECT_FALSE(Forms::isLoaded(FrmInd::Name));
    EXPECT_TRUE(family->isEnabled());
    EXPECT_EQ(OrigemInd, 8);
}

TEST_F(IndividualCard, ItComesUpReadyToHandAPersonOverWhereOneWasAskedFor)
{
    Forms::add(SplashForm::Name, [] { return new SplashForm; });
    frmInd().unload();
    for (const int called : {1, 0, 1}) { // the first one loads the card, behind the splash
        IndChamado = called;
        FrmIndLoaded();
        EXPECT_TRUE(frmInd().isShown());
        EXPECT_EQ(frmInd().cmdAtribuir->isEnabled(), called == 1);
        EXPECT_FALSE(Forms::isLoaded(SplashForm::Name));
    }
}

TEST_F(IndividualCard, TheSplashTellsThatThePeopleAreBeingLoaded)
{
    Forms::add(SplashForm::Name, [] { return new SplashForm; });
    frmInd().unload();
    QString step;
    Forms::add(FrmInd::Name, [&] {
        step = splashForm().findChild<QLabel*>("lblEst")->text();
        return new FrmInd;
    });
    FrmIndLoaded();
    EXPECT_EQ(step, "A carregar fichas de indivíduo. Aguarde por favor ...");
}
