// The window of contradictions, while a check works and while others work on the BDP.
#include "study/windows/frmContradicoes.h"

#include "control.h"
#include "platform/time/clock.h"
#include "store/parish.h"
#include "study/acts/register_tables.h"
#include "study/checks/settings.h"
#include "study/windows/frmLimites.h"

#include <QTest>

using namespace study;

namespace {

class TheWindowOfContradictions : public Parish
{
protected:
    TheWindowOfContradictions()
    {
        Forms::add(FrmContradicoes::Name, [] { return new FrmContradicoes; });
        Forms::add(FrmLimites::Name, [] { return new FrmLimites; });
        checks::Settings settings; // two rules alone
        for (const checks::Rule& rule : checks::rules())
            settings.asked.insert(rule.id, QString(rule.id) == "P-01" || QString(rule.id) == "P-02");
        checks::keepSettings(cnBDP, settings);
    }
    ~TheWindowOfContradictions() override { Clock::passAtEachLook({}); }

    static void person(int number, const char* name, const char* birth, const char* death)
    {
        cnBDP.execute(jet::NativeSql("insert into individuo (nind, nome, sexo, tipo, datanasc, DnascFixa, dataobito, "
                                     "dobitofixa) values (?, ?, 'm', '4', ?, 1, ?, 1)",
                                     {number, QString::fromUtf8(name), QString(birth), QString(death)}));
    }
    static void people(int count) // at one go, or the disk takes its time
    {
        cnBDP.beginTrans();
        for (int i = 1; i <= count; ++i)
            person(i, "Rui", "1702-02-14", "1702-02-13");
        cnBDP.commitTrans();
    }
    static FrmContradicoes& form() { return theForm<FrmContradicoes>(); }
    static void click(const char* name) { control<CommandButton>(form(), name).click(); }
    static Grid& cases() { return control<Grid>(form(), "dtgCasos"); }
    static QString state() { return control<QLabel>(form(), "lblEstado").text(); }
    static bool finishes()
    {
        return QTest::qWaitFor([] { return !form().isAtWork(); }, 60000);
    }
    void cancelWhileItReads() const
    {
        Clock::passAtEachLook(std::chrono::milliseconds(50)); // each question is a look
        auto& bar = control<QProgressBar>(form(), "barra");
        QObject::connect(&bar, &QProgressBar::valueChanged, &form(), [this](int value) {
            if (value > 0)
                for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
                    QCoreApplication::postEvent(window.windowHandle(),
                                                new QKeyEvent(type, Qt::Key_Escape, Qt::NoModifier));
        });
        click("cmdVerificar");
    }
    static void goOn()
    {
        Clock::passAtEachLook({});
        control<QProgressBar>(form(), "barra").disconnect(&form());
    }
    static void check()
    {
        form().display();
        click("cmdVerificar");
        ASSERT_TRUE(finishes());
    }
};

TEST_F(TheWindowOfContradictions, ShowsTheCasesOfTheMomentWithTheirRecords)
{
    person(1, "Rui", "1702-02-14", "1702-02-13");
    person(2, "Gil", "1602-02-14", "1709-02-13");
    check();
    EXPECT_TRUE(state().contains("1 impossível, 1 aviso")) << qPrintable(state());
    EXPECT_EQ(cases().rows(), 3);
    EXPECT_EQ(control<Grid>(form(), "dtgRegras").textMatrix(1, 1), "2");
    EXPECT_EQ(control<Grid>(form(), "dtgDecadas").rows(), 2) << "both are of 1700 to 1709";
    EXPECT_TRUE(control<MemoBox>(form(), "txtCaso").text().startsWith("Rui (nº 1) morreu em 13/02/1702"));
    EXPECT_TRUE(control<MemoBox>(form(), "txtFicha_0")
                    .text()
                    .startsWith("Indivíduo 1 – Rui, homem\r\nNascimento: "
                                "14/02/1702"));
    EXPECT_FALSE(control<CommandButton>(form(), "cmdFicha_1").isEnabled()) << "the case is of one record";
    control<Grid>(form(), "dtgRegras").setRow(3);
    EXPECT_EQ(cases().rows(), 2);
    EXPECT_EQ(cases().textMatrix(1, 0), "P-02");
    control<ComboBox>(form(), "cmbGravidade").setListIndex(1);
    EXPECT_EQ(cases().textMatrix(1, 0), "P-01");
    control<TextBox>(form(), "txtTexto").setText("gil");
    EXPECT_EQ(cases().rows(), 0);
    EXPECT_EQ(control<MemoBox>(form(), "txtCaso").text(), "");
}

TEST_F(TheWindowOfContradictions, SaysThatTheBdpHasChangedSince)
{
    person(1, "Rui", "1702-02-14", "1702-02-13");
    check();
    EXPECT_FALSE(state().contains("A BDP mudou"));
    control<TextBox>(form(), "txtRazao").setText("no livro");
    click("cmdVisto");
    EXPECT_EQ(cases().rows(), 0);
    EXPECT_FALSE(state().contains("A BDP mudou")) << "what the window itself keeps is no record";
    person(2, "Gil", "1702-02-14", "1702-02-13");
    EXPECT_TRUE(QTest::qWaitFor([] { return state().contains("A BDP mudou desde a verificação."); }, 60000))
        << qPrintable(state());
    check();
    EXPECT_FALSE(state().contains("A BDP mudou"));
    EXPECT_EQ(cases().rows(), 2);
}

TEST_F(TheWindowOfContradictions, KeepsWhatWasSeenUntilItIsTakenBack)
{
    person(1, "Rui", "1702-02-14", "1702-02-13");
    check();
    {
        const Answer ok("OK");
        click("cmdVisto");
        EXPECT_EQ(ok.text, "Escreva primeiro a razão por que o caso é dado por visto!");
    }
    EXPECT_EQ(cases().rows(), 2) << "a reason is asked for";
    control<TextBox>(form(), "txtRazao").setText("d'Ávila; 🐟");
    click("cmdVisto");
    check();
    EXPECT_EQ(cases().rows(), 0);
    control<ComboBox>(form(), "cmbMostrar").setListIndex(1);
    EXPECT_EQ(cases().rows(), 2);
    EXPECT_TRUE(control<MemoBox>(form(), "txtCaso").text().endsWith(": d'Ávila; 🐟"));
    EXPECT_TRUE(control<CommandButton>(form(), "cmdFicha_0").isEnabled());
    click("cmdRepor");
    EXPECT_EQ(cases().rows(), 0);
    control<ComboBox>(form(), "cmbMostrar").setListIndex(0);
    EXPECT_EQ(cases().rows(), 2);
}

TEST_F(TheWindowOfContradictions, EndsACheckThatIsCancelledOnEitherWay)
{
    people(5000);
    form().display();
    cancelWhileItReads();
    ASSERT_TRUE(finishes());
    EXPECT_EQ(state(), "A verificação foi cancelada.");
    goOn();
    click("cmdVerificar");
    EXPECT_TRUE(form().isAtWork());
    click("cmdCancelar"); // on its thread
    ASSERT_TRUE(finishes());
    EXPECT_EQ(state(), "A verificação foi cancelada.");
    EXPECT_EQ(cases().rows(), 0);
    EXPECT_TRUE(control<CommandButton>(form(), "cmdVerificar").isEnabled());
}

TEST_F(TheWindowOfContradictions, KeepsTheCasesOfTheCheckBeforeWhereOneIsCancelled)
{
    person(1, "Rui", "1702-02-14", "1702-02-13");
    check();
    person(2, "Gil", "1702-02-14", "1702-02-13");
    click("cmdVerificar");
    EXPECT_EQ(cases().rows(), 2) << "they stay until there are others";
    click("cmdCancelar");
    ASSERT_TRUE(finishes());
    EXPECT_EQ(cases().rows(), 2);
    EXPECT_TRUE(state().startsWith("A verificação foi cancelada. A lista é a de ")) << qPrintable(state());
    EXPECT_TRUE(state().endsWith("A BDP mudou desde a verificação.")) << qPrintable(state());
    EXPECT_TRUE(control<MemoBox>(form(), "txtFicha_0").text().startsWith("Indivíduo 1 – Rui"));
    check();
    EXPECT_EQ(cases().rows(), 3);
}

TEST_F(TheWindowOfContradictions, FollowsWhatTheActsTellToo)
{
    person(1, "Rui", "1702-02-14", "1702-02-13");
    tables::make(cnBDP, tables::ofActs());
    check();
    EXPECT_FALSE(state().contains("A BDP mudou")) << qPrintable(state());
    cnBDP.execute(jet::NativeSql("insert into estudo_pessoa (acto, ordem, papel, ordinal, nome_duvida, identidade) "
                                 "values (1, 1, 'pai', 1, 0, 'so no acto')"));
    EXPECT_TRUE(QTest::qWaitFor([] { return state().contains("A BDP mudou desde a verificação."); }, 60000));
}

TEST_F(TheWindowOfContradictions, KeepsWhatWasFoundWhereAnotherCheckIsGivenUp)
{
    people(5000);
    check();
    const QString found = state();
    EXPECT_EQ(cases().rows(), 5001);
    person(5001, "Gil", "1702-02-14", "1702-02-13");
    cancelWhileItReads();
    ASSERT_TRUE(finishes());
    goOn();
    EXPECT_EQ(cases().rows(), 5001);
    EXPECT_EQ(state(), "A verificação foi cancelada. A lista é a de " + found.mid(14, 16) +
                           ". A BDP mudou desde a verificação.");
    EXPECT_TRUE(control<CommandButton>(form(), "cmdFicha_0").isEnabled());
    check();
    EXPECT_EQ(cases().rows(), 5002);
    EXPECT_FALSE(state().contains("A BDP mudou")) << qPrintable(state());
}

TEST_F(TheWindowOfContradictions, EndsACheckWhenItIsClosedAndHoldsNoLockMeanwhile)
{
    people(3000);
    form().display();
    click("cmdVerificar");
    EXPECT_TRUE(form().isAtWork());
    jet::Connection other;
    other.open(cnBDP.dataSource());
    EXPECT_EQ(other.execute(jet::NativeSql("delete from individuo where nind = 7")), 1);
    other.close();
    form().unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Forms::find(FrmContradicoes::Name), nullptr);
    QTest::qWait(50);
}

TEST_F(TheWindowOfContradictions, SaysThatTheLimitsHaveChangedSince)
{
    person(1, "Gil", "1602-02-14", "1709-02-13");
    check();
    EXPECT_EQ(cases().rows(), 2);
    FrmContradicoes::settingsChanged();
    EXPECT_TRUE(state().endsWith("As regras ou os limites mudaram desde a verificação.")) << qPrintable(state());
}

class TheWindowOfLimits : public TheWindowOfContradictions
{
protected:
    TheWindowOfLimits() { checks::keepSettings(cnBDP, {}); }
    static FrmLimites& form() { return theForm<FrmLimites>(); }
    static Grid& grid() { return control<Grid>(form(), "dtgRegras"); }
    static int rowOf(const QString& title)
    {
        for (int row = 1; row < grid().rows(); ++row)
            if (grid().textMatrix(row, 1).trimmed() == title) return row;
        return 0;
    }
};

TEST_F(TheWindowOfLimits, KeepsALimitAndARule)
{
    form().display();
    grid().setRow(rowOf("Idade máxima ao óbito (anos)"));
    control<TextBox>(form(), "txtValor").setText("110,5");
    control<CommandButton>(form(), "cmdGravar").setEnabled(true);
    control<CommandButton>(form(), "cmdGravar").click();
    grid().setRow(rowOf("Óbito antes do nascimento"));
    control<QCheckBox>(form(), "chkPerguntar").click();
    const checks::Settings kept = checks::keptSettings(cnBDP);
    EXPECT_EQ(kept.limits.value("P-02.idade"), 110.5);
    EXPECT_EQ(kept.asked.value("P-01", true), false);
    EXPECT_EQ(control<QLabel>(form(), "lblTotal").text(), "2 valores alterados.");
    control<CommandButton>(form(), "cmdPadrao").click();
    EXPECT_EQ(control<QLabel>(form(), "lblTotal").text(), "1 valor alterado.");
    const Answer yes("&Sim");
    control<CommandButton>(form(), "cmdTodos").click();
    EXPECT_EQ(checks::keptSettings(cnBDP), checks::Settings{});
}

TEST_F(TheWindowOfLimits, AsksAboutWhatIsTypedBeforeAnotherLineIsShown)
{
    form().display();
    grid().setRow(1);
    control<TextBox>(form(), "txtValor").setText("3");
    {
        const Answer yes("&Sim");
        grid().setRow(2);
        EXPECT_EQ(yes.given, 1);
    }
    EXPECT_EQ(checks::keptSettings(cnBDP).tolerance, 3);
    EXPECT_EQ(grid().row(), 2);
    control<TextBox>(form(), "txtValor").setText("dez");
    {
        const Answer yes("&Sim"), ok("OK");
        EXPECT_FALSE(form().unload());
        EXPECT_EQ(ok.text, "Deve inserir um número maior ou igual a 0!");
    }
    EXPECT_EQ(checks::keptSettings(cnBDP).yearTolerance, 10);
    EXPECT_EQ(control<TextBox>(form(), "txtValor").text(), "dez");
    const Answer no("&Não");
    EXPECT_TRUE(form().unload());
}

} // namespace
