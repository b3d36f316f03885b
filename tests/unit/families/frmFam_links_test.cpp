// The ways out of the card of a family to forms that another room holds.
#include "families/frmFam.h"

#include "common/modGeral.h"
#include "common/pesquisa.h"
#include "common/splashForm.h"
#include "control.h"
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
        click("cmdUlt");
    }

    static void click(const char* name) { control<CommandButton>(frmFam(), name).click(); }
};

} // namespace

TEST_F(FamilyLinks, TheRegisterIsThatOfTheFamilyShownAndNotOfTheFirstRow)
{
    Forms::add(FrmRP::Name, [] { return new FrmRP; });
    frmFam().abrePeloMenu();
    click("cmdRP");
    EXPECT_TRUE(frmRP().isShown());
    EXPECT_FALSE(frmFam().isShown());
    EXPECT_EQ(control<QLabel>(frmRP(), "lblTipo").text(), "c");
    EXPECT_EQ(control<TextBox>(frmRP(), "txtLoc").text(), "/rp/2.png");
}

TEST_F(FamilyLinks, ClosingGoesBackToAPersonWhoWaitsToBeHandedOver)
{
    Forms::show(FrmInd::Name)->conceal();
    for (const OrigemFam origin : {OrigemFam::FamiliaOrigem, OrigemFam::FamiliaConstituida}) {
        chamada().comeca({.origem = OrigemInd::Assistente, .quem = &frmFam(), .espera = false});
        frmFam().mostraPara(origin, "2");
        frmInd().conceal();
        frmInd().setEnabled(false);
        click("cmdFechar");
        EXPECT_TRUE(frmInd().isShown());
        EXPECT_TRUE(frmInd().isEnabled());
        EXPECT_TRUE(frmFam().isShown());
        EXPECT_EQ(chamada().origem(), OrigemInd::Assistente);
    }
    click("cmdFechar"); // the way back is gone
    EXPECT_FALSE(frmFam().isShown());
    frmFam().mostraPara(OrigemFam::FamiliaOrigem, "2");
    frmFam().abrePeloMenu();
    click("cmdFechar");
    EXPECT_FALSE(frmFam().isShown());
    frmFam().mostraPara(OrigemFam::FamiliaOrigem, "2");
    chamada().desiste();
    click("cmdFechar");
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
    frmFam().mostraPara(OrigemFam::FamiliaConstituida, "2");
    EXPECT_EQ(control<Grid>(frmFam(), "dtgFilho").rows(), 2);
    click("cmdLoc");
    click("cmdLoc"); // without a criterion: the card consults, and the search goes on
    ASSERT_TRUE(EmPesquisa);
    frmFam().mostraPara(OrigemFam::FamiliaConstituida, "2");
    for (const char* name : {"cmdElimF", "cmdInsF"})
        control<CommandButton>(frmFam(), name).setEnabled(true);
    click("cmdElimF");
    click("cmdInsF");
    EXPECT_FALSE(Forms::isLoaded(FrmInd::Name));
    EXPECT_EQ(control<Grid>(frmFam(), "dtgFilho").rows(), 2);
    EXPECT_FALSE(chamada().IndChamado());
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
    bool loadedBehindIt = false;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &window, [&] {
        if (!Forms::isLoaded(FrmFam::Name)) return; // on a busy machine it takes longer
        look.stop();
        loadedBehindIt = !frmFam().isShown();
        QTest::keyClick(&splashForm(), Qt::Key_Escape);
    });
    look.start(20);
    CarregaFichaFam();
    EXPECT_TRUE(loadedBehindIt);
    EXPECT_EQ(step, "A carregar fichas de família. Aguarde por favor ...");
    EXPECT_TRUE(frmFam().isShown());
    EXPECT_FALSE(Forms::isLoaded(SplashForm::Name));
}
