// The card where no command shows it all: the mode of the search, and a search in progress.
#include "individuals/individual_card.h"

TEST_F(IndividualCard, SearchingOpensAndPaintsTheFieldsOfTheSearchAlone)
{
    FrmInd& card = frmInd();
    card.AplicarModo(Modo::Loc);
    EXPECT_EQ(card.modo(), Modo::Loc);
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
    card.AplicarModo(Modo::Loc);
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

    card.AplicarModo(Modo::Cons);
    EXPECT_TRUE(card.cmdLocDat->isHidden());
    EXPECT_FALSE(card.cmdAtribuir->isEnabled());
}

TEST_F(IndividualCard, ASearchInProgressBarsEveryFirstStep)
{
    EmPesquisa = true;
    for (CommandButton* command : {frmInd().cmdIns, frmInd().cmdAlt, frmInd().cmdElim, frmInd().cmdLoc})
        command->click();
    EXPECT_EQ(frmInd().modo(), Modo::Cons);
    EXPECT_EQ(frmInd().cmdIns->text(), legenda::inserir);
    EXPECT_EQ(frmInd().cmdAlt->text(), legenda::alterar);
    EXPECT_EQ(frmInd().cmdElim->text(), legenda::eliminar);
    EXPECT_EQ(frmInd().txtNome->text(), "Ana");
}

TEST_F(IndividualCard, TheSexStandsInTheHighlightColourOutsideASearch)
{
    const QColor highlight = QApplication::palette().color(QPalette::Highlight);
    for (const Modo mode : {Modo::Cons, Modo::Edi}) {
        frmInd().AplicarModo(Modo::Loc);
        frmInd().AplicarModo(mode);
        for (const QWidget* radio : {frmInd().optSexo_0, frmInd().optSexo_1, frmInd().optSexo_2})
            EXPECT_EQ(backColor(radio), highlight) << static_cast<int>(mode);
    }
}
