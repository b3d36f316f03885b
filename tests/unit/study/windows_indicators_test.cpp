// The window of indicators: what is counted when, who stands behind it, what it shows.
#include "study/indicatorsWindow.h"

#include "study/people.h"
#include "study/report/origin.h"
#include "study/windows/subjectCount.h"
#include "study/windows/subjectRecords.h"

#include <QChartView>
#include <QClipboard>
#include <QFileInfo>

using namespace study;

namespace {

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
    EXPECT_EQ(memo("txtResposta"), "Família 7 – Rui e Ana\r\nFica de fora: sem data do casamento.\r\n"
                                   "Classe EO I.\r\nCasamento: sem data que conte.\r\n"
                                   "Fim da união: desconhecido (sem óbito dos cônjuges).\r\n"
                                   "Nascimento da mulher: 14/02/1702 (registo).");
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

TEST_F(TheWindowOfIndicators, TellsThatASearchWasCancelledAndKeepsItsFigures)
{
    choose(ageAtMarriage);
    turnTo("pagNaoContados");
    control<TextBox>(form(), "txtNumero").setText("7");
    button("cmdPorque").click();
    ASSERT_TRUE(form().isAtWork());
    EXPECT_EQ(label("lblEstado"), "A procurar…");
    button("cmdCancelar").click();
    ASSERT_TRUE(finishes());
    EXPECT_EQ(memo("txtResposta"), "");
    EXPECT_TRUE(label("lblEstado").startsWith("Contado na BDP de ")) << "nothing of the count was cancelled";
    EXPECT_EQ(grid().textMatrix(1, 1), "6");
    button("cmdPorque").click();
    ASSERT_TRUE(finishes());
    EXPECT_TRUE(memo("txtResposta").startsWith("Família 7"));
}

TEST_F(TheWindowOfIndicators, TellsThatTheBdpHasChangedWhileItCounted)
{
    begin(ageAtMarriage);
    execute("update familia set datacasam = '1720-02-14' where nfamilia = 7", {});
    ASSERT_TRUE(finishes());
    EXPECT_TRUE(label("lblEstado").endsWith(" A BDP mudou desde a contagem.")) << qPrintable(label("lblEstado"));
    begin(ageGap);
    ASSERT_TRUE(finishes());
    choose(ageAtMarriage);
    EXPECT_EQ(grid().textMatrix(1, 1), "7");
}

TEST_F(TheWindowOfIndicators, EndsASearchWhenItIsClosed)
{
    choose(ageAtMarriage);
    turnTo("pagNaoContados");
    control<TextBox>(form(), "txtNumero").setText("7");
    button("cmdPorque").click();
    ASSERT_TRUE(form().isAtWork());
    EXPECT_TRUE(form().unload());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Forms::find(FrmIndicadores::Name), nullptr);
    QTest::qWait(50);
}

// Somebody may be gone by then.
TEST_F(TheWindowOfIndicators, TellsOfSomebodyWhoIsNoMoreInTheBdp)
{
    choose(ageAtMarriage);
    clickCell(grid(), 1, 1);
    execute("delete from individuo where nind = 1", {});
    button("cmdFicha").click();
    EXPECT_EQ(Forms::find("frmInd"), nullptr);
    EXPECT_EQ(behind().rows(), 7);
}

// Names of the acts stand in them.
TEST_F(TheWindowOfIndicators, TakesNoTextOfTheActsForMarkup)
{
    form().display();
    for (const char* name : {"lblQuem", "lblCelula", "lblEstado", "lblNaoContados", "lblTema"})
        EXPECT_EQ(control<QLabel>(form(), name).textFormat(), Qt::PlainText) << name;
}

TEST_F(TheWindowOfIndicators, LeadsToItsListsByALetter)
{
    choose(ageAtMarriage);
    for (const auto& [page, list] : {std::pair{"pagQuadros", "cmbQuadro"}, std::pair{"pagGraficos", "cmbGrafico"}}) {
        turnTo(page);
        control<QTreeWidget>(form(), "tvwTemas").setFocus();
        QTest::keyClick(&form(), Qt::Key_L, Qt::AltModifier);
        EXPECT_TRUE(control<ComboBox>(form(), list).hasFocus()) << list;
    }
}

// A reason is a sentence at times.
TEST_F(TheWindowOfIndicators, CutsNoReasonShort)
{
    for (const indicators::Subject* subject : indicators::subjects()) {
        choose(subject->id);
        turnTo("pagNaoContados");
        for (int row = 1; row < leftOut().rows(); ++row)
            EXPECT_LE(leftOut().fontMetrics().horizontalAdvance(leftOut().textMatrix(row, 0)), leftOut().columnWidth(0))
                << subject->id << ' ' << qPrintable(leftOut().textMatrix(row, 0));
    }
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

TEST_F(TheWindowOfIndicators, CopiesTheNumbersOfTheChartInFrontAndNothingOfAMethod)
{
    choose(ageAtMarriage);
    turnTo("pagGraficos");
    button("cmdCopiar").click();
    const QStringList lines = QGuiApplication::clipboard()->text().split('\n');
    EXPECT_TRUE(lines.value(0).contains("Homens")) << qPrintable(lines.value(0));
    EXPECT_TRUE(lines.value(1).startsWith("1700–1749\t20,0")) << qPrintable(lines.value(1));
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains("\n\nFonte: "));
    turnTo("pagMetodo");
    EXPECT_FALSE(button("cmdCopiar").isEnabled());
    turnTo("pagQuadros");
    EXPECT_TRUE(button("cmdCopiar").isEnabled());
}

// What is taken along tells which state of the BDP it is of.
TEST_F(TheWindowOfIndicators, TellsWhichStateOfTheBdpItsFiguresAreOf)
{
    choose(ageAtMarriage);
    const parish::Source source = parish::sourceOf(QFileInfo(cnBDP.dataSource()).absoluteFilePath());
    ASSERT_TRUE(source.isKnown());
    const QString mark = source.path + ", " + report::sizeText(source.bytes) + ", SHA-256 " + source.sha256;
    EXPECT_TRUE(memo("txtMetodo").contains("Fonte: " + mark + ", lido em ")) << qPrintable(memo("txtMetodo"));
    button("cmdCopiar").click();
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains("\n\nFonte: " + mark));
}

TEST_F(TheWindowOfIndicators, GivesNoMarkOfAFileThatWasWrittenToMeanwhile)
{
    QTest::qSleep(50); // the time of a file is not exact
    begin(ageAtMarriage);
    execute("update individuo set nome = 'Gil' where nind = 1", {});
    ASSERT_TRUE(finishes());
    EXPECT_TRUE(memo("txtMetodo").contains("Fonte: ")) << qPrintable(memo("txtMetodo"));
    EXPECT_FALSE(memo("txtMetodo").contains("SHA-256"));
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

// Without a window

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
    EXPECT_EQ(countedInPieces(*subject, study, all), indicators::tallyOf(*subject, study));
    EXPECT_GT(asked.size(), 3U);
    EXPECT_TRUE(std::ranges::is_sorted(asked));
    EXPECT_LT(asked.back(), 1);
    int looks = 0;
    const auto endsSoon = [&looks](double) { return ++looks < 3; };
    EXPECT_THROW(countedInPieces(*subject, study, endsSoon), parish::Snapshot::Interrupted);
    EXPECT_EQ(looks, 3);
}

TEST_F(ASubjectInPieces, SearchesPieceByPieceAndEndsWhereItIsToldTo)
{
    bdp.beginTrans();
    for (int i = 0; i < 6000; ++i) {
        const qint64 husband = person({"Rui", 'm', "1700-02-14"});
        couple(husband, person({"Ana", 'f', "1702-02-14"}), "1720-02-14");
    }
    bdp.commitTrans();
    const auto parish = parish::Snapshot::read(bdp);
    const indicators::Study study = indicators::studyOf(parish, {});
    const indicators::Subject& subject = *indicators::subjectOf(ageGap);
    const parish::Person& first = parish.people().front();
    std::vector<double> asked;
    const Verdict whole = verdictOn(subject, study, first, [&asked](double done) {
        asked.push_back(done);
        return true;
    });
    EXPECT_EQ(whole, verdictOn(subject, study, first));
    EXPECT_EQ(asked.front(), 0);
    EXPECT_GT(asked.back(), 0.5);
    EXPECT_TRUE(std::ranges::is_sorted(asked));
    int looks = 0;
    const auto endsSoon = [&looks](double) { return ++looks < 2; };
    EXPECT_THROW(verdictOn(subject, study, first, endsSoon), parish::Snapshot::Interrupted);
    EXPECT_EQ(looks, 2);
    const auto endsAtOnce = [](double) { return false; };
    EXPECT_THROW(indicators::behind(subject, study, {}, endsAtOnce), parish::Snapshot::Interrupted);
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
