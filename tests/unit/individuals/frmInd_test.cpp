// The card where no command shows it all: the mode of the search, and a search in progress.
#include "individuals/individual_card.h"

#include "common/pesquisa.h"

#include <malloc.h>

namespace {

QWidget* field(const char* name)
{
    return &control<QWidget>(frmInd(), name);
}

} // namespace

TEST_F(IndividualCard, SearchingOpensAndPaintsTheFieldsOfTheSearchAlone)
{
    FrmInd& card = frmInd();
    card.AplicarModo(Modo::Loc);
    EXPECT_EQ(card.modo(), Modo::Loc);
    const QColor white(255, 255, 255), orange(255, 192, 128), deepOrange(255, 128, 0);
    const QList<const char*> sought{"txtNind",     "txtNome",     "cmbTipoInd", "cmbLoc",
                                    "cmbLocObito", "cmbFiliacao", "txtObs"};
    const QList<const char*> kept{"txtFamOrig", "txtTit", "txtAlcunha", "txtIdPai",  "txtIdMae", "cmbECPai",
                                  "cmbECMae",   "cmbEC",  "txtIdade",   "cmbSacram", "txtCausa", "cmbclass"};
    for (const char* name : sought) {
        EXPECT_EQ(backColor(field(name)), orange) << name;
        EXPECT_FALSE(field(name)->property("locked").toBool()) << name;
    }
    for (const char* name : kept) {
        EXPECT_EQ(backColor(field(name)), white) << name;
        EXPECT_TRUE(field(name)->property("locked").toBool()) << name;
    }
    for (const char* date : {"mskini", "mskFim", "mskDtNasc", "mskDtObito"}) {
        EXPECT_EQ(backColor(field(date)), white) << date;
        EXPECT_FALSE(field(date)->isEnabled()) << date;
    }
    for (const char* radio : {"optSexo_0", "optSexo_1", "optSexo_2"})
        EXPECT_EQ(backColor(field(radio)), deepOrange);
    EXPECT_TRUE(field("optSexo_0")->isEnabled());
    EXPECT_TRUE(field("optSexo_1")->isEnabled());
    EXPECT_FALSE(field("optSexo_2")->isEnabled());
}

// Neither by what the controls hold nor by what the style keeps to draw them.
TEST_F(IndividualCard, ChangingTheModeAllDayTakesNoMemory)
{
    const auto pairs = [](int count) {
        for (int i = 0; i < count; ++i)
            for (const Modo mode : {Modo::Edi, Modo::Cons}) {
                frmInd().AplicarModo(mode);
                QCoreApplication::processEvents();
            }
        return mallinfo2().uordblks;
    };
    const size_t before = pairs(20);
    EXPECT_LT(pairs(300), before + 30'000);
}

TEST_F(IndividualCard, SearchingShutsWhatLeavesTheCardAndLeavesTheRest)
{
    FrmInd& card = frmInd();
    field("cmdAtribuir")->setEnabled(true);
    card.AplicarModo(Modo::Loc);
    EXPECT_FALSE(field("cmdLocDat")->isHidden());
    for (const char* open : QList<const char*>{"cmdEncLoc", "cmdLocOb", "cmdLoc", "cmdIns", "dtgProf", "cmdApadrinha",
                                               "cmdRP_0", "cmdRP_1"})
        EXPECT_TRUE(field(open)->isEnabled()) << open;
    for (const char* shut : QList<const char*>{"optTest_0",  "optTest_1",  "cmdTest",     "chkDtNasc",   "chkDFixa",
                                               "chkMenor",   "cmdInterv",  "cmdProf",     "cmdResid",    "cmdAssin",
                                               "cmdConsRel", "Command1",   "cmdDirFam_0", "cmdDirFam_1", "cmdCerFun",
                                               "cmdRMorte",  "cmdLegProf", "cmdPrim",     "cmdAnt",      "cmdSeg",
                                               "cmdUlt",     "cmdFechar",  "cmdAlt",      "cmdElim",     "cmdAtribuir"})
        EXPECT_FALSE(field(shut)->isEnabled()) << shut;

    card.AplicarModo(Modo::Cons);
    EXPECT_TRUE(field("cmdLocDat")->isHidden());
    EXPECT_FALSE(field("cmdAtribuir")->isEnabled());
}

TEST_F(IndividualCard, ASearchInProgressBarsEveryFirstStep)
{
    Forms::load(FrmFam::Name);
    control<CommandButton>(frmFam(), "cmdLoc").setEnabled(true); // there is no family yet
    control<CommandButton>(frmFam(), "cmdLoc").click();
    ASSERT_TRUE(EmPesquisa);
    for (const char* name : {"cmdIns", "cmdAlt", "cmdElim", "cmdLoc"})
        click(name);
    EXPECT_EQ(frmInd().modo(), Modo::Cons);
    EXPECT_EQ(command("cmdIns").text(), legenda::inserir);
    EXPECT_EQ(command("cmdAlt").text(), legenda::alterar);
    EXPECT_EQ(command("cmdElim").text(), legenda::eliminar);
    EXPECT_EQ(name().text(), "Ana");
}

TEST_F(IndividualCard, TheSexStandsInTheHighlightColourOutsideASearch)
{
    const QColor highlight = QApplication::palette().color(QPalette::Highlight);
    for (const Modo mode : {Modo::Cons, Modo::Edi}) {
        frmInd().AplicarModo(Modo::Loc);
        frmInd().AplicarModo(mode);
        for (const char* radio : {"optSexo_0", "optSexo_1", "optSexo_2"})
            EXPECT_EQ(backColor(field(radio)), highlight) << static_cast<int>(mode);
    }
}

TEST_F(IndividualCard, EachNewPersonBeginsOnThePageOfTheBirth)
{
    auto& pages = control<QTabWidget>(frmInd(), "SST");
    pages.setCurrentIndex(2);
    click("cmdIns");
    EXPECT_EQ(pages.currentIndex(), 0);
    name().setText("Eva");
    control<OptionButton>(frmInd(), "optSexo_1").setValue(true);
    pages.setCurrentIndex(2);
    click("cmdIns");
    EXPECT_EQ(command("cmdIns").text(), legenda::confirmar);
    EXPECT_EQ(name().text(), "");
    EXPECT_EQ(pages.currentIndex(), 0);
}
