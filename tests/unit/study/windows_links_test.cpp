// The window of candidates, while it searches and while others work on the BDP; and that of the weights.
#include "study/windows/frmLigacoes.h"

#include "control.h"
#include "platform/desktop/desktop.h"
#include "store/parish.h"
#include "study/linkage/merge.h"
#include "study/linkage/verdicts.h"
#include "study/windows/decisionNews.h"
#include "study/windows/frmDecisoes.h"
#include "study/windows/frmJuntar.h"
#include "study/windows/frmPesos.h"

#include <QTest>

#include <sqlite3.h>

namespace study::linkage {

namespace {

class TheWindowOfCandidates : public Parish
{
protected:
    TheWindowOfCandidates()
    {
        Desktop::setProgramFolder(ORV_DATA_DIR);
        Forms::add(FrmLigacoes::Name, [] { return new FrmLigacoes; });
        Forms::add(FrmJuntar::Name, [] { return new FrmJuntar; });
        Forms::add(FrmDecisoes::Name, [] { return new FrmDecisoes; });
        Forms::add(FrmPesos::Name, [] { return new FrmPesos; });
        cnBDP.beginTrans();
        for (int i = 100; i < 300; ++i)
            person(i, i % 2 ? "Ana Luís" : "Manuel Lopes", i % 2 ? "f" : "m",
                   QString("16%1-05-%2").arg(i % 100, 2, 10, QChar('0')).arg(10 + i % 17));
        for (const int first : {1, 3}) {
            person(first, "Gualter Barbosa Taveira", "m");
            person(first + 1, "Umbelina Rosa Pimentel", "f");
        }
        for (const int family : {1, 2}) {
            execute("insert into familia (nfamilia, sfamilia, tipocasal) values (?, '1', 7)", {family});
            for (const int nind : {2 * family - 1, 2 * family})
                execute("insert into familias (nfamilia, nind) values (?, ?)", {family, nind});
        }
        cnBDP.commitTrans();
    }
    ~TheWindowOfCandidates() override { Desktop::setProgramFolder({}); }

    static void execute(const char* statement, const QVariantList& values)
    {
        cnBDP.execute(jet::NativeSql(QString::fromUtf8(statement), values));
    }
    static void person(int number, const char* name, const char* sex, const QString& birth = {})
    {
        execute("insert into individuo (nind, nome, sexo, tipo, datanasc, DnascFixa) values (?, ?, ?, 'T', ?, 1)",
                {number, QString::fromUtf8(name), QString(sex), birth.isEmpty() ? QVariant() : QVariant(birth)});
    }

    static FrmLigacoes& form() { return theForm<FrmLigacoes>(); }
    static CommandButton& button(const char* name) { return control<CommandButton>(form(), name); }
    static Grid& cases() { return control<Grid>(form(), "dtgCasos"); }
    static QString state() { return control<QLabel>(form(), "lblEstado").text(); }
    static QString done() { return control<QLabel>(form(), "lblFeito").text(); }
    static bool finishes()
    {
        return QTest::qWaitFor([] { return !form().isAtWork(); }, 60000);
    }
    static void search()
    {
        form().display();
        control<ComboBox>(form(), "cmbFiltro").setListIndex(1);
        button("cmdProcurar").click();
        ASSERT_TRUE(finishes());
    }
    static int rowOf(const QString& kind, const QString& one)
    {
        for (int row = 1; row < cases().rows(); ++row)
            if (cases().textMatrix(row, 2) == kind && cases().textMatrix(row, 3).startsWith(one)) return row;
        return 0;
    }
};

TEST_F(TheWindowOfCandidates, CountsAMergeOfAnotherWindowAndComparesItsNeighboursAnew)
{
    search();
    ASSERT_EQ(rowOf("Mesma pessoa", "nº 1"), 1);
    DecisionNews::all().during([] { return mergePeople(cnBDP, 1, 3); });
    EXPECT_EQ(rowOf("Mesma pessoa", "nº 1"), 0);
    ASSERT_TRUE(finishes());
    EXPECT_EQ(done(), "Decididos: 1");
    EXPECT_FALSE(state().contains("A BDP mudou")) << qPrintable(state());
    ASSERT_GT(rowOf("Mesma pessoa", "nº 2"), 0);
    cases().setRow(rowOf("Mesma pessoa", "nº 2"));
    button("cmdMesmo").click();
    EXPECT_FALSE(Forms::isLoaded("frmJuntar")) << "nothing differs, and nobody has touched the BDP";
    ASSERT_TRUE(finishes());
    EXPECT_EQ(done(), "Decididos: 2");
    EXPECT_EQ(cases().rows(), 0);
    for (const char* const left : {"Decididos: 1", "Decididos: 0"}) {
        button("cmdVoltar").click();
        ASSERT_TRUE(finishes());
        EXPECT_EQ(done(), left);
    }
    EXPECT_EQ(cases().rows(), 4);
}

TEST_F(TheWindowOfCandidates, DecidesNothingWhileItSearchesAndFollowsWhatIsDecidedElsewhere)
{
    search();
    cases().setRow(1);
    button("cmdProcurar").click();
    EXPECT_TRUE(form().isAtWork());
    for (const char* name : {"cmdMesmo", "cmdDistinto", "cmdDepois", "cmdJuntar", "cmdVoltar"})
        EXPECT_FALSE(button(name).isEnabled()) << name;
    EXPECT_TRUE(button("cmdSeguinte").isEnabled());
    EXPECT_EQ(cases().rows(), 4) << "the list stays until there is another one";
    DecisionNews::all().during([] { return decideNotTheSame(cnBDP, 1, 3); });
    ASSERT_TRUE(finishes());
    EXPECT_EQ(rowOf("Mesma família", "família 1"), 0);
    EXPECT_EQ(rowOf("Mesma pessoa", "nº 1"), 0);
    EXPECT_EQ(done(), "Decididos: 1");
    EXPECT_FALSE(state().contains("A BDP mudou")) << qPrintable(state());
}

TEST_F(TheWindowOfCandidates, KnowsWhatWasDecidedWhileItSearchedForTheFirstTime)
{
    form().display();
    control<ComboBox>(form(), "cmbFiltro").setListIndex(1);
    button("cmdProcurar").click();
    DecisionNews::all().during([] { return mergePeople(cnBDP, 1, 3); });
    ASSERT_TRUE(finishes());
    EXPECT_EQ(rowOf("Mesma pessoa", "nº 1"), 0) << "who has gone";
    ASSERT_GT(rowOf("Mesma pessoa", "nº 2"), 0);
    cases().setRow(rowOf("Mesma pessoa", "nº 2"));
    button("cmdMesmo").click();
    EXPECT_FALSE(Forms::isLoaded("frmJuntar"));
    ASSERT_TRUE(finishes());
    EXPECT_EQ(cases().rows(), 0);
}

TEST_F(TheWindowOfCandidates, ComparesWhomADecisionConcernedAlsoWhereTheSearchIsCancelled)
{
    search();
    button("cmdProcurar").click();
    DecisionNews::all().during([] { return decideNotTheSame(cnBDP, 1, 3); });
    button("cmdCancelar").click();
    ASSERT_TRUE(finishes());
    EXPECT_EQ(rowOf("Mesma família", "família 1"), 0);
    EXPECT_FALSE(state().contains("A BDP mudou")) << qPrintable(state());
}

TEST_F(TheWindowOfCandidates, KeepsItsListWhereASearchIsCancelled)
{
    search();
    button("cmdProcurar").click();
    button("cmdCancelar").click();
    ASSERT_TRUE(finishes());
    EXPECT_EQ(state(), "A procura foi cancelada. A lista é a de antes.");
    EXPECT_EQ(cases().rows(), 4);
    EXPECT_TRUE(button("cmdMesmo").isEnabled());
}

TEST_F(TheWindowOfCandidates, SaysThatNotAllIsComparedWhereAPartIsCancelled)
{
    search();
    cases().setRow(rowOf("Mesma pessoa", "nº 1"));
    button("cmdDistinto").click();
    EXPECT_TRUE(form().isAtWork());
    button("cmdCancelar").click();
    ASSERT_TRUE(finishes());
    EXPECT_TRUE(state().endsWith("A BDP mudou desde a procura.")) << qPrintable(state());
}

TEST_F(TheWindowOfCandidates, GoesOnAfterATableThatItCannotRead)
{
    cnBDP.execute(jet::NativeSql("create table estudo_peso (x varchar)"));
    form().display();
    button("cmdProcurar").click();
    ASSERT_TRUE(finishes());
    EXPECT_TRUE(state().startsWith("As ligações não foram procuradas: ")) << qPrintable(state());
    EXPECT_TRUE(button("cmdProcurar").isEnabled());
    sqlite3* other = nullptr; // another program mends it
    ASSERT_EQ(sqlite3_open(cnBDP.dataSource().toUtf8(), &other), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(other, "drop table estudo_peso", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(other);
    search();
    EXPECT_EQ(cases().rows(), 4);
}

TEST_F(TheWindowOfCandidates, CountsAndTakesBackWhatWasDecidedBeforeItWasOpened)
{
    decideNotTheSame(cnBDP, 1, 3);
    form().display();
    EXPECT_EQ(done(), "Decididos: 1");
    {
        const Answer no("&Não");
        button("cmdVoltar").click();
        EXPECT_EQ(no.given, 1) << "nobody may remember it";
    }
    EXPECT_EQ(done(), "Decididos: 1");
    const Answer yes("&Sim");
    button("cmdVoltar").click();
    EXPECT_EQ(done(), "Decididos: 0");
    EXPECT_FALSE(button("cmdVoltar").isEnabled());
    EXPECT_TRUE(verdicts(cnBDP).apart.pairs().empty());
}

TEST_F(TheWindowOfCandidates, PutsOffUntilTheNextSearchOrUntilItIsTakenOut)
{
    search();
    cases().setRow(rowOf("Mesma pessoa", "nº 1"));
    button("cmdDepois").click();
    EXPECT_EQ(cases().rows(), 3);
    cases().setRow(rowOf("Mesma pessoa", "nº 2"));
    button("cmdDistinto").click();
    ASSERT_TRUE(finishes());
    EXPECT_EQ(rowOf("Mesma pessoa", "nº 1"), 0) << "also where it was compared anew";
    auto& filter = control<ComboBox>(form(), "cmbFiltro");
    filter.setListIndex(2);
    ASSERT_EQ(cases().rows(), 2);
    cases().setRow(1);
    button("cmdDepois").click();
    EXPECT_EQ(cases().rows(), 0);
    filter.setListIndex(1);
    EXPECT_GT(rowOf("Mesma pessoa", "nº 1"), 0);
}

TEST_F(TheWindowOfCandidates, TellsWhatOthersHaveWrittenWithoutBeingTouched)
{
    search();
    jet::Connection other;
    other.open(cnBDP.dataSource());
    other.execute(jet::NativeSql("delete from individuo where nind = 3"));
    other.close();
    EXPECT_TRUE(QTest::qWaitFor([] { return state().contains("A BDP mudou desde a procura."); }, 60000));
    EXPECT_EQ(rowOf("Mesma pessoa", "nº 1"), 0);
    EXPECT_GT(rowOf("Mesma pessoa", "nº 2"), 0);
}

TEST_F(TheWindowOfCandidates, ShowsTheProposedOnesAloneUnlessAsked)
{
    Model model = startModel();
    model.suggestCouplesFrom = 900;
    store(cnBDP, model);
    search();
    const int all = cases().rows();
    control<ComboBox>(form(), "cmbFiltro").setListIndex(0);
    EXPECT_EQ(rowOf("Mesma família", "família 1"), 0);
    EXPECT_EQ(cases().rows(), all - 1);
    EXPECT_EQ(cases().textMatrix(1, 5), "proposto");
}

TEST_F(TheWindowOfCandidates, GoesToTheNextOneByACommand)
{
    search();
    cases().setRow(1);
    for (const int row : {2, 3, 3}) {
        button("cmdSeguinte").click();
        EXPECT_EQ(cases().row(), row);
    }
}

TEST_F(TheWindowOfCandidates, EndsASearchWhenItIsClosedAndHoldsNoLockMeanwhile)
{
    form().display();
    button("cmdProcurar").click();
    EXPECT_TRUE(form().isAtWork());
    jet::Connection other;
    other.open(cnBDP.dataSource());
    EXPECT_EQ(other.execute(jet::NativeSql("delete from individuo where nind = 107")), 1);
    other.close();
    form().unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Forms::find(FrmLigacoes::Name), nullptr);
}

class TheWindowOfWeights : public TheWindowOfCandidates
{
protected:
    static FrmPesos& weights() { return theForm<FrmPesos>(); }
    static CommandButton& command(const char* name) { return control<CommandButton>(weights(), name); }
    static Grid& grid() { return control<Grid>(weights(), "dtgPesos"); }
    static QString told() { return control<QLabel>(weights(), "lblEstado").text(); }
    static int rowFor(const QString& field, const QString& level)
    {
        for (int row = 1; row < grid().rows(); ++row)
            if (grid().textMatrix(row, 0) == field && grid().textMatrix(row, 1) == level) return row;
        return 0;
    }
    static void type(const char* box, const QString& text)
    {
        auto& field = control<TextBox>(weights(), box);
        field.setText(text);
        emit field.textEdited(text);
    }
};

TEST_F(TheWindowOfWeights, ShowsThoseOfTheSearchAndKeepsThem)
{
    search();
    button("cmdPesos").click();
    EXPECT_TRUE(told().startsWith("São os que a última procura estimou.")) << qPrintable(told());
    command("cmdGravar").click();
    ASSERT_TRUE(storedModel(cnBDP));
    EXPECT_NE(*storedModel(cnBDP), startModel());
    EXPECT_TRUE(state().contains("Os pesos mudaram desde a procura.")) << qPrintable(state());
    EXPECT_FALSE(state().contains("A BDP mudou")) << qPrintable(state());
    const Model kept = *storedModel(cnBDP);
    execute("delete from individuo where nind > ?", {150});
    search();
    button("cmdPesos").click();
    EXPECT_EQ(*storedModel(cnBDP), kept);
    EXPECT_FALSE(state().contains("Os pesos mudaram"));
}

TEST_F(TheWindowOfWeights, TakesOverWhatIsTypedAndRefusesWhatIsNoValue)
{
    weights().display();
    grid().setRow(rowFor("nome próprio", "igual"));
    type("txtM", "0,75");
    grid().setRow(rowFor("nascimento", "no mesmo dia"));
    EXPECT_EQ(grid().textMatrix(rowFor("nome próprio", "igual"), 2), "0,75");
    EXPECT_EQ(storedModel(cnBDP), std::nullopt) << "a draft";
    type("txtU", "2");
    {
        const Answer ok("OK");
        grid().setRow(1);
        EXPECT_EQ(ok.text, "Deve inserir uma probabilidade: um número maior que 0, até 1!");
    }
    EXPECT_EQ(grid().row(), rowFor("nascimento", "no mesmo dia")) << "it stays where the error is";
    type("txtU", "0,00002");
    {
        const Answer yes("&Sim");
        EXPECT_TRUE(weights().unload());
        EXPECT_EQ(yes.given, 1);
    }
    ASSERT_TRUE(storedModel(cnBDP));
    EXPECT_EQ(storedModel(cnBDP)->weight(Field::FirstName, Level::Equal).m, 0.75);
    EXPECT_EQ(storedModel(cnBDP)->weight(Field::Birth, Level::SameDay).u, 0.00002);
    EXPECT_EQ(storedModel(cnBDP)->weight(Field::Birth, Level::SameDay).m, 0.9);
}

TEST_F(TheWindowOfWeights, EstimatesAnewAndGivesTheStartValuesBack)
{
    store(cnBDP, startModel());
    weights().display();
    grid().setRow(1);
    type("txtM", "13,5");
    command("cmdEstimar").click();
    EXPECT_FALSE(command("cmdGravar").isEnabled());
    ASSERT_TRUE(QTest::qWaitFor([] { return command("cmdEstimar").isEnabled(); }, 60000));
    EXPECT_TRUE(told().startsWith("Foram estimados agora.")) << qPrintable(told());
    EXPECT_EQ(grid().textMatrix(1, 2), "13,5") << "limits aren't estimated";
    EXPECT_EQ(*storedModel(cnBDP), startModel());
    command("cmdAnular").click();
    EXPECT_EQ(grid().textMatrix(1, 2), "12");
    EXPECT_FALSE(command("cmdAnular").isEnabled());
    type("txtM", "15");
    command("cmdMudar").click();
    command("cmdIniciais").click();
    EXPECT_EQ(grid().textMatrix(1, 2), "12");
    EXPECT_TRUE(weights().unload()) << "they are those that are kept";
}

} // namespace

} // namespace study::linkage
