// The card where no command leads yet: the mode of the search, and the way back to the cards that call it up.
#include "individuals/frmInd.h"

#include "common/captions.h"
#include "common/globals.h"
#include "common/SplashForm.h"
#include "forms/house.h"
#include "store/modBD.h"

#include <QTemporaryDir>

namespace {

class IndividualCard : public House
{
protected:
    IndividualCard()
    {
        jet::createDatabase(folder.filePath("a.orv"));
        cnBDP.open(folder.filePath("a.orv"));
        CriaTabelas(cnBDP, ORV_DATA_DIR "/CriarTab.dat");
        cnBDP.execute("insert into infocomplementar (categoria, codigo, descricao) values ('TipIn', 'T', 'Sem datas')");
        cnBDP.execute("insert into individuo (nind, nome, tipo, sexo) values (7, 'Ana', 'T', 'f')");
        Forms::add(FrmInd::Name, [] { return new FrmInd; });
        Forms::show(FrmInd::Name);
    }
    ~IndividualCard() override
    {
        Forms::clear();
        cnBDP.close();
        limpaGlobais();
    }

    // A card that has called this one up, and waits.
    TestForm* caller(const QString& name)
    {
        TestForm* form = make(name, [](TestForm& card) {
            for (const char* field : {"txtPnind", "txtPnome", "txtSnind", "txtSnome"})
                card.put<TextBox>(field);
        });
        form->display();
        form->setEnabled(false);
        frmInd().display();
        return form;
    }

    static void close(int origin)
    {
        OrigemInd = origin;
        frmInd().cmdFechar->click();
        EXPECT_EQ(OrigemInd, 8) << origin;
    }

    static void rename(const QString& name)
    {
        frmInd().cmdAlt->click();
        frmInd().txtNome->setText(name);
        frmInd().cmdAlt->click();
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(IndividualCard, SearchingOpensAndPaintsTheFieldsOfTheSearchAlone)
{
    FrmInd& card = frmInd();
    card.AplicarModo("Loc");
    EXPECT_EQ(card.Modo, "Loc");
    const QColor white(255, 255, 255), orange(255, 192, 128), deepOrange(255, 128, 0);
    const QList<QWidget*> sought{card.txtNind,     card.txtNome,     card.cmbTipoInd, card.cmbLoc,
                                 card.cmbLocObito, card.cmbFiliacao, card.txtObs};
    const QList<QWidget*> kept{card.txtFamOrig, card.txtTit,    card.txtAlcunha, card.txtIdPai,
                               card.txtIdMae,   card.cmbECPai,  card.cmbECMae,   card.cmbEC,
                               card.txtIdade,   card.cmbSacram, card.txtCausa,   card.cmbclass};
    for (const QWidget* field : sought) {
        EXPECT_EQ(backColor(field), orange) << qPrintable(field->objectName());
        EXPECT_FALSE(field->property("locked").toBool()) << qPrintable(field->objectName());
    }
    for (const QWidget* field : kept) {
        EXPECT_EQ(backColor(field), white) << qPrintable(field->objectName());
        EXPECT_TRUE(field->property("locked").toBool()) << qPrintable(field->objectName());
    }
    for (const QWidget* date : {card.mskini, card.mskFim, card.mskDtNasc, card.mskDtObito}) {
        EXPECT_EQ(backColor(date), white) << qPrintable(date->objectName());
        EXPECT_FALSE(date->isEnabled()) << qPrintable(date->objectName());
    }
    for (const QWidget* radio : {card.optSexo_0, card.optSexo_1, card.optSexo_2})
        EXPECT_EQ(backColor(radio), deepOrange);
    EXPECT_TRUE(card.optSexo_0->isEnabled());
    EXPECT_TRUE(card.optSexo_1->isEnabled());
    EXPECT_FALSE(card.optSexo_2->isEnabled());
}

TEST_F(IndividualCard, SearchingShutsWhatLeavesTheCardAndLeavesTheRest)
{
    FrmInd& card = frmInd();
    card.cmdAtribuir->setEnabled(true);
    card.AplicarModo("Loc");
    EXPECT_FALSE(card.cmdLocDat->isHidden());
    for (const QWidget* open : QList<QWidget*>{card.cmdEncLoc, card.cmdLocOb, card.cmdLoc, card.cmdIns, card.dtgProf,
                                               card.cmdApadrinha, card.cmdRP_0, card.cmdRP_1})
        EXPECT_TRUE(open->isEnabled()) << qPrintable(open->objectName());
    for (const QWidget* shut :
         QList<QWidget*>{card.optTest_0,  card.optTest_1,  card.cmdTest,     card.chkDtNasc,   card.chkDFixa,
                         card.chkMenor,   card.cmdInterv,  card.cmdProf,     card.cmdResid,    card.cmdAssin,
                         card.cmdConsRel, card.Command1,   card.cmdDirFam_0, card.cmdDirFam_1, card.cmdCerFun,
                         card.cmdRMorte,  card.cmdLegProf, card.cmdPrim,     card.cmdAnt,      card.cmdSeg,
                         card.cmdUlt,     card.cmdFechar,  card.cmdAlt,      card.cmdElim,     card.cmdAtribuir})
        EXPECT_FALSE(shut->isEnabled()) << qPrintable(shut->objectName());

    card.AplicarModo("Cons");
    EXPECT_TRUE(card.cmdLocDat->isHidden());
    EXPECT_FALSE(card.cmdAtribuir->isEnabled());
}

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
        const TestForm* form = caller(closing.caller);
        close(closing.origin);
        EXPECT_TRUE(form->isEnabled()) << closing.origin;
        EXPECT_EQ(frmInd().isShown(), closing.staysOpen) << closing.origin;
        EXPECT_TRUE(form->isActive()) << closing.origin;
    }
}

TEST_F(IndividualCard, ClosingHidesItBesideTheParticipantsOfAFamilysAct)
{
    OrigemInterv = 1;
    const TestForm* form = caller("frmIntervenientes");
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
    TestForm* family = caller("frmFam");
    const auto field = [&](const char* name) { return family->findChild<TextBox*>(name); };
    field("txtPnind")->setText("7");
    field("txtSnind")->setText("7");
    rename("Eva");
    EXPECT_EQ(field("txtPnome")->text(), "");
    OrigemInd = 1;
    rename("Ida");
    EXPECT_EQ(field("txtPnome")->text(), "Ida");
    EXPECT_EQ(field("txtSnome")->text(), "");
    OrigemInd = 2;
    rename("Isa");
    EXPECT_EQ(field("txtPnome")->text(), "Ida");
    EXPECT_EQ(field("txtSnome")->text(), "Isa");
    field("txtSnind")->setText("8");
    rename("Iva");
    EXPECT_EQ(field("txtSnome")->text(), "Isa");
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

TEST_F(IndividualCard, ASearchInProgressBarsEveryFirstStep)
{
    EmPesquisa = true;
    for (CommandButton* command : {frmInd().cmdIns, frmInd().cmdAlt, frmInd().cmdElim, frmInd().cmdLoc})
        command->click();
    EXPECT_EQ(frmInd().Modo, "Cons");
    EXPECT_EQ(frmInd().cmdIns->text(), legenda::inserir);
    EXPECT_EQ(frmInd().cmdAlt->text(), legenda::alterar);
    EXPECT_EQ(frmInd().cmdElim->text(), legenda::eliminar);
    EXPECT_EQ(frmInd().txtNome->text(), "Ana");
}

TEST_F(IndividualCard, TheSexStandsInTheHighlightColourOutsideASearch)
{
    const QColor highlight = QApplication::palette().color(QPalette::Highlight);
    for (const char* mode : {"Cons", "Edi"}) {
        frmInd().AplicarModo("Loc");
        frmInd().AplicarModo(mode);
        for (const QWidget* radio : {frmInd().optSexo_0, frmInd().optSexo_1, frmInd().optSexo_2})
            EXPECT_EQ(backColor(radio), highlight) << mode;
    }
}

TEST_F(IndividualCard, OnlyItsCloseBoxIsRefused)
{
    const TestForm* family = caller("frmFam");
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
