// The window of indicators and that of its settings: what is counted when, who stands behind it, what is refused.
#include "study/windows/frmIndicadores.h"

#include "control.h"
#include "store/parish.h"
#include "study/indicators/settingsJson.h"
#include "study/people.h"
#include "study/report/sheet.h"
#include "study/windows/frmDefinicoes.h"
#include "study/windows/studySettingsText.h"
#include "study/windows/subjectCount.h"
#include "study/windows/subjectRecords.h"

#include <QChartView>
#include <QClipboard>
#include <QTest>

using namespace study;
using indicators::Settings;
using indicators::YearSpan;

namespace {

constexpr auto ageAtMarriage = "idade-ao-casamento", ageGap = "diferenca-de-idade";

class TheWindowOfIndicators : public Parish
{
protected:
    // Six couples: he was born in 1700, she in 1702, and they married in 1720. Of the seventh nobody knows when.
    TheWindowOfIndicators()
    {
        Forms::add(FrmIndicadores::Name, [] { return new FrmIndicadores; });
        Forms::add(FrmDefinicoes::Name, [] { return new FrmDefinicoes; });
        cnBDP.beginTrans();
        for (int family = 1; family <= 7; ++family) {
            person(2 * family - 1, "Rui", "m", "1700-02-14");
            person(2 * family, "Ana", "f", "1702-02-14");
            couple(family, family == 7 ? QVariant() : QVariant("1720-02-14"));
        }
        cnBDP.commitTrans();
    }

    static void execute(const char* statement, const QVariantList& values)
    {
        cnBDP.execute(jet::NativeSql(QString::fromUtf8(statement), values));
    }
    static void person(int number, const char* name, const char* sex, const char* birth)
    {
        execute("insert into individuo (nind, nome, sexo, tipo, datanasc, DnascFixa) values (?, ?, ?, 'T', ?, 1)",
                {number, QString(name), QString(sex), QString(birth)});
    }
    static void couple(int family, const QVariant& marriage)
    {
        execute("insert into familia (nfamilia, sfamilia, tipocasal, datacasam, dcasamfixa) values (?, '1', 7, ?, 1)",
                {family, marriage});
        for (const int member : {2 * family - 1, 2 * family})
            execute("insert into familias (nfamilia, nind, estadocivil, numcasam) values (?, ?, 1, 1)",
                    {family, member});
    }

    static FrmIndicadores& form() { return theForm<FrmIndicadores>(); }
    static CommandButton& button(const char* name) { return control<CommandButton>(form(), name); }
    static Grid& grid() { return control<Grid>(form(), "dtgQuadro"); }
    static Grid& leftOut() { return control<Grid>(form(), "dtgNaoContados"); }
    static Grid& behind() { return control<Grid>(form(), "dtgQuem"); }
    static QString label(const char* name) { return control<QLabel>(form(), name).text(); }
    static QString memo(const char* name) { return control<MemoBox>(form(), name).text(); }
    static bool finishes()
    {
        return QTest::qWaitFor([] { return !form().isAtWork(); }, 60000);
    }
    static void begin(const QString& id)
    {
        form().display();
        auto& tree = control<QTreeWidget>(form(), "tvwTemas");
        for (QTreeWidgetItemIterator item(&tree); *item; ++item)
            if ((*item)->data(0, Qt::UserRole).toString() == id) return tree.setCurrentItem(*item);
        FAIL() << qPrintable(id);
    }
    static void choose(const QString& id)
    {
        begin(id);
        ASSERT_TRUE(finishes());
    }
    static void turnTo(const char* page)
    {
        control<QTabWidget>(form(), "tabPaginas").setCurrentWidget(&control<QWidget>(form(), page));
    }
    static void clickCell(Grid& in, int row, int column)
    {
        const QModelIndex index = in.model()->index(row - 1, column);
        in.scrollTo(index);
        QTest::mouseClick(in.viewport(), Qt::LeftButton, {}, in.visualRect(index).center());
        ASSERT_TRUE(finishes());
    }
    static int rowOf(const Grid& in, const QString& name)
    {
        for (int row = 1; row < in.rows(); ++row)
            if (in.textMatrix(row, 0) == name) return row;
        return 0;
    }
};

TEST_F(TheWindowOfIndicators, CountsNothingBeforeASubjectIsChosen)
{
    form().display();
    EXPECT_FALSE(form().isAtWork());
    EXPECT_EQ(label("lblEstado"), "Escolha um tema.");
    EXPECT_FALSE(button("cmdContar").isEnabled());
    EXPECT_EQ(grid().rows(), 0);
    int subjects = 0;
    for (QTreeWidgetItemIterator item(&control<QTreeWidget>(form(), "tvwTemas")); *item; ++item)
        subjects += (*item)->data(0, Qt::UserRole).isValid() ? 1 : 0;
    EXPECT_EQ(subjects, static_cast<int>(indicators::subjects().size()));
}

TEST_F(TheWindowOfIndicators, ShowsTheFiguresOfTheSubjectAndHowItWasCounted)
{
    begin(ageAtMarriage);
    EXPECT_TRUE(form().isAtWork());
    EXPECT_TRUE(button("cmdCancelar").isEnabled());
    ASSERT_TRUE(finishes());
    EXPECT_EQ(label("lblTema"), "Idade ao primeiro casamento");
    EXPECT_TRUE(label("lblEstado").startsWith("Contado na BDP de ")) << qPrintable(label("lblEstado"));
    ASSERT_EQ(grid().rows(), 3);
    EXPECT_EQ(grid().textMatrix(1, 0), QString::fromUtf8("1700–1749"));
    EXPECT_EQ(grid().textMatrix(1, 1), "6");
    EXPECT_EQ(grid().textMatrix(0, 2), "Média (anos)");
    EXPECT_EQ(grid().textMatrix(1, 2), "20,0");
    EXPECT_TRUE(memo("txtMetodo").startsWith("Contam-se as pessoas"));
    EXPECT_TRUE(memo("txtNotas").contains("Em itálico: poucos casos.")) << "a mean of six is grey";
    EXPECT_TRUE(memo("txtGrafico").startsWith("Homens, 1700–1749: 20,0 anos")) << qPrintable(memo("txtGrafico"));
    EXPECT_FALSE(control<QChartView>(form(), "grafico").chart()->series().isEmpty());
    EXPECT_EQ(leftOut().textMatrix(rowOf(leftOut(), "sem data do casamento"), 1), "2");
    control<ComboBox>(form(), "cmbQuadro").setListIndex(1);
    EXPECT_EQ(grid().textMatrix(1, 2), "18,0") << "the table of the women";
}

TEST_F(TheWindowOfIndicators, ListsWhoStandsBehindANumberAndBehindWhatWasLeftOut)
{
    choose(ageAtMarriage);
    EXPECT_EQ(behind().rows(), 0);
    EXPECT_FALSE(button("cmdFicha").isEnabled());
    clickCell(grid(), 1, 1);
    ASSERT_EQ(behind().rows(), 7);
    EXPECT_EQ(behind().textMatrix(1, 0), "Indivíduo 1 – Rui");
    EXPECT_EQ(behind().textMatrix(1, 1), "Família 1 – Rui e Ana");
    EXPECT_EQ(label("lblQuem"), "1700–1749, Nº: 6 – 6 registos.");
    EXPECT_TRUE(button("cmdFicha").isEnabled() && button("cmdFamilia").isEnabled());
    turnTo("pagNaoContados");
    clickCell(leftOut(), rowOf(leftOut(), "sem data do casamento"), 1);
    ASSERT_EQ(behind().rows(), 3);
    EXPECT_EQ(behind().textMatrix(2, 0), "Indivíduo 14 – Ana");
    turnTo("pagQuadros");
    clickCell(grid(), 1, 0);
    EXPECT_EQ(behind().rows(), 0) << "a text is no number";
    EXPECT_FALSE(button("cmdFicha").isEnabled());
}

TEST_F(TheWindowOfIndicators, OpensANumberByReturnAndTellsItsIntervalInWords)
{
    choose(ageAtMarriage);
    grid().setFocus();
    grid().setCurrentIndex(grid().model()->index(0, 2));
    EXPECT_TRUE(label("lblCelula").startsWith("1700–1749, Média (anos): 20,0 (95 %: "))
        << qPrintable(label("lblCelula"));
    EXPECT_TRUE(label("lblCelula").endsWith("; poucos casos"));
    QTest::keyClick(&grid(), Qt::Key_Return);
    ASSERT_TRUE(finishes());
    EXPECT_EQ(behind().rows(), 7);
}

TEST_F(TheWindowOfIndicators, TellsTheCellOfTheTableAndNotOfWhatWasLeftOut)
{
    choose(ageAtMarriage);
    EXPECT_EQ(label("lblCelula"), "1700–1749, Nº: 6");
    leftOut().setCurrentIndex(leftOut().model()->index(2, 1));
    EXPECT_EQ(label("lblCelula"), "1700–1749, Nº: 6");
}

// A broken chain leaves letters and the Tab key without their controls.
TEST_F(TheWindowOfIndicators, HasAllItsControlsInOneOrder)
{
    for (const char* name : {FrmIndicadores::Name, FrmDefinicoes::Name}) {
        const Form& shown = *Forms::show(name);
        QSet<const QWidget*> met{&shown};
        for (const QWidget* next = shown.nextInFocusChain(); !met.contains(next); next = next->nextInFocusChain())
            met.insert(next);
        for (const QWidget* each : shown.findChildren<QWidget*>())
            EXPECT_TRUE(met.contains(each)) << name << ' ' << qPrintable(each->objectName());
    }
}

TEST_F(TheWindowOfIndicators, TellsWhyAFamilyDoesNotCount)
{
    choose(ageAtMarriage);
    turnTo("pagNaoContados");
    auto& number = control<TextBox>(form(), "txtNumero");
    number.setText("7");
    button("cmdPorque").click();
    ASSERT_TRUE(finishes());
    EXPECT_EQ(memo("txtResposta"), "Família 7 – Rui e Ana\r\nFica de fora: sem data do casamento.");
    number.setText("1");
    button("cmdPorque").click();
    ASSERT_TRUE(finishes());
    EXPECT_TRUE(memo("txtResposta").contains("Conta em: idade pelo registo")) << qPrintable(memo("txtResposta"));
    control<ComboBox>(form(), "cmbRegisto").setListIndex(1);
    number.setText("99");
    button("cmdPorque").click();
    EXPECT_EQ(memo("txtResposta"), "Não há indivíduo com o número 99.");
    number.setText("sete");
    const Answer ok("OK");
    button("cmdPorque").click();
    EXPECT_EQ(ok.text, "Deve inserir o número de um indivíduo ou de uma família!");
    EXPECT_EQ(number.text(), "sete");
}

TEST_F(TheWindowOfIndicators, CountsASubjectOnceUntilTheBdpChanges)
{
    choose(ageAtMarriage);
    choose(ageGap);
    begin(ageAtMarriage);
    EXPECT_FALSE(form().isAtWork()) << "it is counted already";
    EXPECT_EQ(grid().textMatrix(1, 1), "6");
    person(15, "Gil", "m", "1700-02-14");
    EXPECT_TRUE(QTest::qWaitFor([] { return label("lblEstado").endsWith(" A BDP mudou desde a contagem."); }, 60000));
    EXPECT_EQ(grid().textMatrix(1, 1), "6") << "what is shown is of one state";
    execute("update familia set datacasam = '1720-02-14' where nfamilia = 7", {});
    choose(ageGap);
    EXPECT_FALSE(label("lblEstado").contains("mudou"));
    choose(ageAtMarriage);
    EXPECT_EQ(grid().textMatrix(1, 1), "7") << "all are counted anew with the one that was chosen";
}

TEST_F(TheWindowOfIndicators, CountsAnewWhereTheUserWantsIt)
{
    choose(ageAtMarriage);
    clickCell(grid(), 1, 1);
    execute("update familia set datacasam = '1720-02-14' where nfamilia = 7", {});
    button("cmdContar").click();
    ASSERT_TRUE(finishes());
    EXPECT_EQ(grid().textMatrix(1, 1), "7");
    EXPECT_EQ(behind().rows(), 0) << "they were of the state before";
}

TEST_F(TheWindowOfIndicators, TakesOneMoreSubjectWhileItCounts)
{
    begin(ageGap);
    begin(ageAtMarriage);
    ASSERT_TRUE(finishes());
    EXPECT_EQ(label("lblTema"), "Idade ao primeiro casamento");
    EXPECT_EQ(grid().textMatrix(1, 1), "6");
}

TEST_F(TheWindowOfIndicators, LeavesNothingOfACountThatWasCancelled)
{
    begin(ageAtMarriage);
    button("cmdCancelar").click();
    ASSERT_TRUE(finishes());
    EXPECT_EQ(label("lblEstado"), "A contagem foi cancelada.");
    EXPECT_EQ(grid().rows(), 0);
    EXPECT_TRUE(button("cmdContar").isEnabled());
    EXPECT_FALSE(button("cmdCopiar").isEnabled());
    button("cmdContar").click();
    ASSERT_TRUE(finishes());
    EXPECT_EQ(grid().textMatrix(1, 1), "6");
}

TEST_F(TheWindowOfIndicators, EndsItsWorkWhenItIsClosed)
{
    begin(ageAtMarriage);
    EXPECT_TRUE(form().unload());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Forms::find(FrmIndicadores::Name), nullptr);
    QTest::qWait(50);
}

TEST_F(TheWindowOfIndicators, CopiesTheTableInFront)
{
    choose(ageAtMarriage);
    button("cmdCopiar").click();
    QStringList lines = QGuiApplication::clipboard()->text().split('\n');
    EXPECT_TRUE(lines.value(0).startsWith("Casados em\tNº\tMédia (anos)")) << qPrintable(lines.value(0));
    EXPECT_TRUE(lines.value(1).startsWith("1700–1749\t6\t20,0"));
    turnTo("pagNaoContados");
    button("cmdCopiar").click();
    EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith("Razão\tCasos\n"));
}

TEST_F(TheWindowOfIndicators, GivesAChartTheRoomOfThePeople)
{
    choose(ageAtMarriage);
    clickCell(grid(), 1, 1);
    turnTo("pagGraficos");
    EXPECT_FALSE(behind().isVisible());
    turnTo("pagNaoContados");
    EXPECT_TRUE(behind().isVisible());
    EXPECT_EQ(behind().rows(), 7);
}

TEST_F(TheWindowOfIndicators, FollowsTheColoursOfTheDesktop)
{
    choose(ageAtMarriage);
    QPalette dark = form().palette();
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Text, QColor(230, 230, 230));
    form().setPalette(dark);
    QCoreApplication::processEvents();
    const auto& view = control<QChartView>(form(), "grafico");
    EXPECT_EQ(view.chart()->backgroundBrush().color(), QColor(30, 30, 30));
    EXPECT_EQ(view.backgroundBrush().color(), QColor(30, 30, 30));
}

TEST_F(TheWindowOfIndicators, SaysThatThereIsNothingWhereThereIsNothing)
{
    for (const char* statement : {"delete from familias", "delete from familia", "delete from individuo"})
        execute(statement, {});
    for (const indicators::Subject* subject : indicators::subjects()) {
        choose(subject->id);
        EXPECT_TRUE(label("lblEstado").startsWith("Contado na BDP")) << subject->id << qPrintable(label("lblEstado"));
        const auto& list = control<ComboBox>(form(), "cmbQuadro");
        for (int entry = 0; entry < list.count(); ++entry) {
            control<ComboBox>(form(), "cmbQuadro").setListIndex(entry);
            EXPECT_TRUE(grid().rows() > 1 || memo("txtNotas") == "sem dados") << subject->id << ' ' << entry;
        }
        EXPECT_EQ(label("lblNaoContados"), "Nada ficou de fora.") << subject->id;
    }
}

// The settings

class TheWindowOfSettings : public TheWindowOfIndicators
{
protected:
    static FrmDefinicoes& form() { return theForm<FrmDefinicoes>(); }
    static TextBox& field(const char* name) { return control<TextBox>(form(), name); }
    static void click(const char* name) { control<CommandButton>(form(), name).click(); }
    static Settings kept() { return indicators::keptSettings(cnBDP); }
};

TEST_F(TheWindowOfSettings, KeepsWhatIsSetAndShowsItAgain)
{
    form().display();
    EXPECT_TRUE(field("txtPeriodo_0").hasFocus());
    EXPECT_EQ(field("txtFalta").text(), "0");
    field("txtPeriodo_0").setText("1700");
    field("txtPeriodo_1").setText("1799");
    field("txtLivroDe_0").setText("1590");
    field("txtLivroAte_2").setText("1850");
    field("txtLacunas_2").setText("1810–1811; 1834");
    field("txtFalta").setText("12,5");
    field("txtAssina").setText("3");
    control<ComboBox>(form(), "cmbCoorte").setListIndex(1);
    control<ComboBox>(form(), "cmbSexo").setListIndex(2);
    control<ComboBox>(form(), "cmbCompleta").setListIndex(0);
    control<QCheckBox>(form(), "chkFreguesia").setChecked(false);
    click("cmdGravar");
    const Settings now = kept();
    EXPECT_EQ(now.period, (YearSpan{1700, 1799}));
    EXPECT_EQ(now.books[0], (YearSpan{1590, 0}));
    EXPECT_EQ(now.books[2], (YearSpan{0, 1850}));
    EXPECT_EQ(now.gaps[2], (std::vector<YearSpan>{{1810, 1811}, {1834, 1834}}));
    EXPECT_EQ(now.missingBirths, 0.125);
    EXPECT_EQ(now.signsFrom, 3);
    EXPECT_EQ(now.cohortYears, 25);
    EXPECT_EQ(now.gender, parish::Gender::Female);
    EXPECT_EQ(now.completeAge, 45);
    EXPECT_FALSE(now.localOnly);
    EXPECT_TRUE(form().unload()) << "nothing is left to ask about";
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    form().display();
    EXPECT_EQ(field("txtLacunas_2").text(), "1810-1811; 1834");
    EXPECT_EQ(field("txtFalta").text(), "12,5");
    EXPECT_EQ(control<ComboBox>(form(), "cmbCoorte").text(), "25 anos");
}

TEST_F(TheWindowOfSettings, RefusesWhatCantBeMeantAndLosesNothing)
{
    form().display();
    const auto refused = [](const char* name, const char* text) {
        const QString before = field(name).text();
        field("txtPeriodo_1").setText("1799");
        field(name).setText(text);
        const Answer ok("OK");
        click("cmdGravar");
        EXPECT_EQ(field(name).text(), text);
        EXPECT_EQ(field("txtPeriodo_1").text(), "1799");
        EXPECT_EQ(kept(), Settings());
        field(name).setText(before);
        return ok.text;
    };
    EXPECT_TRUE(refused("txtPeriodo_0", "1800").startsWith("O período tem de ser de um ano a outro"));
    EXPECT_TRUE(refused("txtPeriodo_0", "mil").startsWith("O período"));
    EXPECT_TRUE(refused("txtLivroDe_1", "0").startsWith("Os livros de casamentos"));
    EXPECT_TRUE(refused("txtLacunas_3", "1810 a 1811").startsWith("As lacunas dos livros de óbitos de menores"));
    EXPECT_TRUE(refused("txtFalta", "20,1").startsWith("A parte dos nascimentos"));
    EXPECT_TRUE(refused("txtAssina", "").startsWith("O nível"));
    {
        const Answer yes("&Sim"), ok("OK");
        field("txtAssina").setText("x");
        EXPECT_FALSE(form().unload()) << "what can't be stored stays";
    }
    EXPECT_EQ(field("txtAssina").text(), "x");
    const Answer no("&Não");
    EXPECT_TRUE(form().unload());
    EXPECT_EQ(kept(), Settings());
}

TEST_F(TheWindowOfSettings, HasTheSubjectShownCountedAnew)
{
    choose(ageAtMarriage);
    EXPECT_EQ(grid().rows(), 3);
    form().display();
    field("txtPeriodo_0").setText("1750");
    click("cmdGravar");
    EXPECT_TRUE(TheWindowOfIndicators::form().isAtWork());
    ASSERT_TRUE(finishes());
    EXPECT_EQ(grid().rows(), 0);
    EXPECT_EQ(memo("txtNotas"), "sem dados");
    EXPECT_EQ(leftOut().textMatrix(rowOf(leftOut(), "fora do período"), 1), "12");
    EXPECT_FALSE(label("lblEstado").contains("mudou")) << "what is kept of the settings is no record";
    EXPECT_TRUE(memo("txtMetodo").endsWith("Contado com definições alteradas: período dos acontecimentos."));
}

TEST_F(TheWindowOfSettings, TakesNeighboursThatThereAreAndWhatFiliationsCountAs)
{
    execute("insert into paroquia (codparoquia, nomeparoquia) values ('030805', 'Briteiros')", {});
    execute("insert into infocomplementar (categoria, codigo, descricao) values ('Filia', '1', 'Legítima'), ('Filia', "
            "'17', 'Enjeitado')",
            {});
    form().display();
    field("txtCodigo").setText("999");
    {
        const Answer ok("OK");
        click("cmdAcrescentar");
        EXPECT_EQ(ok.text, "Não há freguesia com o código \"999\"!");
    }
    field("txtCodigo").setText("030805");
    click("cmdAcrescentar");
    EXPECT_EQ(control<ListBox>(form(), "lstVizinhas").list(0), "030805 – Briteiros");
    auto& codes = control<Grid>(form(), "dtgFiliacoes");
    ASSERT_EQ(codes.rows(), 3);
    EXPECT_EQ(codes.textMatrix(1, 2), "legítima");
    codes.setRow(2);
    EXPECT_EQ(codes.textMatrix(2, 2), "desconhecida");
    control<ComboBox>(form(), "cmbConta").setText("exposto");
    EXPECT_EQ(codes.textMatrix(2, 2), "exposto (alterado)");
    EXPECT_EQ(codes.row(), 2);
    click("cmdGravar");
    EXPECT_EQ(kept().neighbours, QStringList("030805"));
    EXPECT_EQ(kept().filiations, (QHash<int, indicators::Legitimacy>{{17, indicators::Legitimacy::Foundling}}));
    {
        const Answer yes("&Sim");
        click("cmdPadrao");
    }
    EXPECT_EQ(kept().neighbours.size(), 1) << "it isn't stored yet";
    click("cmdGravar");
    EXPECT_EQ(kept(), Settings());
}

// Without a window

TEST(TheTextsOfASetting, AreReadAsTheyAreShown)
{
    EXPECT_EQ(yearFrom(" "), 0);
    EXPECT_EQ(yearFrom(" 1750 "), 1750);
    for (const char* wrong : {"0", "-5", "17500", "17a", "1.750"})
        EXPECT_FALSE(yearFrom(wrong)) << wrong;
    EXPECT_EQ(spanFrom("", "1750"), (YearSpan{0, 1750}));
    EXPECT_EQ(spanFrom("1750", ""), (YearSpan{1750, 0}));
    EXPECT_FALSE(spanFrom("1751", "1750"));
    const std::vector<YearSpan> gaps{{1810, 1811}, {1834, 1834}, {1850, 0}};
    EXPECT_EQ(shownGaps(gaps), "1810-1811; 1834; 1850-");
    EXPECT_EQ(gapsFrom("1810-1811; 1834; 1850-"), gaps);
    EXPECT_EQ(gapsFrom(" ; "), std::vector<YearSpan>());
    for (const char* wrong : {"-", "1811-1810", "1810-1811-1812", "1810, 1811"})
        EXPECT_FALSE(gapsFrom(wrong)) << wrong;
    EXPECT_EQ(shareFrom("12,5"), 0.125);
    EXPECT_EQ(shareFrom(""), 0.0);
    EXPECT_EQ(shownShare(0.125), "12,5");
    for (const char* wrong : {"20,1", "-1", "dez", "1e1"})
        EXPECT_FALSE(shareFrom(wrong)) << wrong;
}

class ASubjectInPieces : public People
{
};

TEST_F(ASubjectInPieces, GivesTheTallyOfTheWhole)
{
    bdp.beginTrans();
    for (int i = 0; i < 6000; ++i) {
        const qint64 husband = person({"Rui", 'm', "1700-02-14"});
        couple(husband, person({"Ana", 'f', "1702-02-14"}), "1720-02-14");
    }
    bdp.commitTrans();
    const auto parish = parish::Snapshot::read(bdp);
    const indicators::Study study = indicators::studyOf(parish, {});
    const indicators::Subject* subject = indicators::subjectOf(ageGap);
    ASSERT_TRUE(subject);
    std::vector<double> asked;
    const auto all = [&asked](double done) {
        asked.push_back(done);
        return true;
    };
    EXPECT_EQ(counted(*subject, study, all), indicators::tallyOf(*subject, study));
    EXPECT_GT(asked.size(), 3U);
    EXPECT_TRUE(std::ranges::is_sorted(asked));
    EXPECT_LT(asked.back(), 1);
    int looks = 0;
    const auto endsSoon = [&looks](double) { return ++looks < 3; };
    EXPECT_THROW(counted(*subject, study, endsSoon), parish::Snapshot::Interrupted);
    EXPECT_EQ(looks, 3);
}

TEST_F(ASubjectInPieces, TellsOfARecordWhatItIsAndIsNotCountedFor)
{
    const qint64 husband = person({"Rui", 'm', "1700-02-14"}), wife = person({"Ana", 'f'});
    couple(husband, wife, "1720-02-14");
    run("update familia set dcasamfixa = 1");
    const auto parish = parish::Snapshot::read(bdp);
    const indicators::Study study = indicators::studyOf(parish, {});
    const indicators::Subject& subject = *indicators::subjectOf(ageAtMarriage);
    const Verdict his = verdictOn(subject, study, *parish.person(parish::PersonNumber(husband)));
    EXPECT_EQ(his, (Verdict{{"idade pelo registo", "idade por coorte de nascimento"}, {}}));
    EXPECT_EQ(verdictOn(subject, study, *parish.person(parish::PersonNumber(wife))),
              (Verdict{{}, {"sem nascimento no registo"}}));
    const Verdict both = verdictOn(subject, study, *parish.family(parish::FamilyNumber(1)));
    EXPECT_EQ(told(both, "Família 1"), "Família 1\r\nFica de fora: sem nascimento no registo.\r\nConta em: idade pelo "
                                       "registo; idade por coorte de nascimento.");
    EXPECT_EQ(told({}, "X"), "X\r\nEste tema não trata deste registo: nada nele entra nos números.");
}

} // namespace
