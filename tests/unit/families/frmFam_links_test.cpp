// The ways out of the card of a family to forms that another room holds.
#include "families/frmFam.h"

#include "common/globals.h"
#include "common/modGeral.h"
#include "common/SplashForm.h"
#include "individuals/frmInd.h"
#include "store/parish.h"
#include "views/frmRP.h"

namespace {

class FamilyLinks : public Parish
{
protected:
    FamilyLinks()
    {
        cnBDP.execute("insert into familia (nfamilia) values (1)");
        cnBDP.execute("insert into familia (nfamilia, datacasam, rpCas) values (2, #03/09/1750#, '/rp/2.png')");
        Forms::add(FrmInd::Name, [] { return new FrmInd; });
        Forms::add(FrmFam::Name, [] { return new FrmFam; });
        Forms::show(FrmFam::Name);
        frmFam().cmdUlt->click();
    }
};

} // namespace

TEST_F(FamilyLinks, TheRegisterIsThatOfTheFamilyShownAndNotOfTheFirstRow)
{
    Forms::add(FrmRP::Name, [] { return new FrmRP; });
    frmFam().adoFam.refresh();
    frmFam().cmdRP->click();
    EXPECT_TRUE(frmRP().isShown());
    EXPECT_FALSE(frmFam().isShown());
    EXPECT_EQ(frmRP().lblTipo->text(), "c");
    EXPECT_EQ(frmRP().txtLoc->text(), "/rp/2.png");
    EXPECT_EQ(frmFam().adoFam.recordset().absolutePosition(), 2);
}

TEST_F(FamilyLinks, WithoutTheFormOfResidencesTheCardStaysAsItIs)
{
    frmFam().cmdResid->click();
    EXPECT_TRUE(frmFam().isShown());
    EXPECT_TRUE(frmFam().isEnabled());
}

TEST_F(FamilyLinks, ClosingGoesBackToAPersonWhoWaitsToBeHandedOver)
{
    Forms::show(FrmInd::Name)->conceal();
    for (const int origin : {1, 2}) {
        OrigemFam = origin;
        OrigemInd = 3;
        frmInd().conceal();
        frmInd().setEnabled(false);
        frmFam().cmdFechar->click();
        EXPECT_TRUE(frmInd().isShown());
        EXPECT_TRUE(frmInd().isEnabled());
        EXPECT_TRUE(frmFam().isShown());
        EXPECT_EQ(OrigemFam, 0);
        EXPECT_EQ(OrigemInd, 3);
    }
    frmFam().cmdFechar->click(); // by the menu
    EXPECT_FALSE(frmFam().isShown());
    Forms::show(FrmFam::Name);
    OrigemFam = 1;
    OrigemInd = 8;
    frmFam().cmdFechar->click();
    EXPECT_FALSE(frmFam().isShown());
}

TEST_F(FamilyLinks, OnlyItsCloseBoxIsRefused)
{
    EXPECT_FALSE(frmFam().unload(Form::UnloadMode::ControlMenu));
    EXPECT_TRUE(frmFam().isShown());
    EXPECT_TRUE(frmFam().unload());
    EXPECT_FALSE(Forms::isLoaded(FrmFam::Name));
}

TEST_F(FamilyLinks, ASearchInProgressBarsTheChangesOfTheChildren)
{
    cnBDP.execute("insert into individuo (nind, nome, famorig) values (7, 'Ana', 2)");
    frmFam().ActualizaCampos(frmFam().adoFam.recordset(), 2);
    EXPECT_EQ(frmFam().dtgFilho->rows(), 2);
    EmPesquisa = true;
    frmFam().cmdElimF->click();
    frmFam().cmdInsF->click();
    EXPECT_FALSE(Forms::isLoaded(FrmInd::Name));
    EXPECT_EQ(frmFam().dtgFilho->rows(), 2);
    EXPECT_EQ(IndChamado, 0);
}

TEST_F(FamilyLinks, TheSplashStandsBeforeTheCardUntilEscape)
{
    frmFam().unload();
    Forms::add(SplashForm::Name, [] { return new SplashForm; });
    QString step;
    Forms::add(FrmFam::Name, [&] {
        step = splashForm().findChild<QLabel*>("lblEst")->text();
        return new FrmFam;
    });
    QTimer::singleShot(20, &window, [] {
        EXPECT_TRUE(Forms::isLoaded(FrmFam::Name));
        EXPECT_FALSE(frmFam().isShown());
        QTest::keyClick(&splashForm(), Qt::Key_Escape);
    });
    CarregaFichaFam();
    EXPECT_EQ(step, "A carregar fichas de família. Aguarde por favor ...");
    EXPECT_TRUE(frmFam().isShown());
    EXPECT_FALSE(Forms::isLoaded(SplashForm::Name));
}
