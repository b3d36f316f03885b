// What the window of imports says of files and of what came of them.
#include "study/windows/transcription.h"

#include "platform/jet/error.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using namespace study;

namespace {

Problem error(int line, const QString& text)
{
    return {.line = line, .text = text, .severity = Problem::Severity::Error};
}

FileOutcome stored(const QString& path, int acts, int left)
{
    ImportReport report;
    report.acts = acts + left;
    if (acts > 0) report.stored[ActKind::Baptism] = acts;
    for (int i = 0; i < left; ++i)
        report.left << LeftAct{.line = i + 1, .act = "acto", .reasons = {"sem data"}};
    return {.path = path, .report = report};
}

TEST(AFileOfTranscriptions, IsATableByTheEndingOfItsName)
{
    EXPECT_TRUE(isTable("/a/livro.csv"));
    EXPECT_TRUE(isTable("LIVRO.CSV"));
    EXPECT_TRUE(isTable("x.tsv"));
    EXPECT_FALSE(isTable("b1702.cli"));
    EXPECT_FALSE(isTable("b1702.txt"));
    EXPECT_FALSE(isTable("csv"));
}

TEST(AFileOfTranscriptions, IsReadWholeOrItIsSaidWhyNot)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("a.cli"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("kleio$\0x", 8));
    file.close();
    EXPECT_EQ(bytesOf(file.fileName()), QByteArray("kleio$\0x", 8));
    for (const QString& path : {folder.filePath("b.cli"), folder.path()}) {
        try {
            bytesOf(path);
            FAIL() << qPrintable(path);
        } catch (const jet::Error& problem) {
            EXPECT_TRUE(problem.description.contains(path)) << qPrintable(problem.description);
        }
    }
}

TEST(APreviewOfAColumn, HasItsFirstValuesEachOnce)
{
    CellTable sheet;
    sheet.headers = {"N.º", "Nome"};
    sheet.rows = {{"1", ""}, {"1", " "}, {"2", "Maria\n da  Cruz"}, {"3", ""}, {"4", "Ana"}};
    EXPECT_EQ(previewOf(sheet, 0), "1, 2, 3");
    EXPECT_EQ(previewOf(sheet, 1), "Maria da Cruz, Ana");
    EXPECT_EQ(previewOf(sheet, 7), "");
    EXPECT_EQ(previewOf({}, 0), "");
}

TEST(WhatIsWrongWithAFile, IsToldByLineTheErrorsFirstAndNotWithoutEnd)
{
    const QList<Problem> problems{
        {.line = 3, .text = "31 de Setembro"}, error(9, "aspas por fechar"), error(0, "sem actos")};
    EXPECT_EQ(problemLines(problems, 5),
              QStringList({"linha 9: aspas por fechar", "sem actos", "linha 3: 31 de Setembro"}));
    EXPECT_EQ(problemLines(problems, 2), QStringList({"linha 9: aspas por fechar", "sem actos", "e mais 1"}));
    EXPECT_EQ(problemLines({}, 2), QStringList());
    EXPECT_EQ(problemLines({{.line = 1, .text = "100% de %1"}}, 2), QStringList("linha 1: 100% de %1"));
}

TEST(TheReportOnFiles, BeginsWithWhatWasStoredAndWhatWasNot)
{
    using enum Occasion;
    EXPECT_EQ(summaryOf({stored("a.cli", 1, 0)}, Import), "1 acto gravado.");
    EXPECT_EQ(summaryOf({stored("a.cli", 2, 3), stored("b.cli", 10, 0)}, Rehearsal),
              "Ensaio: 12 actos seriam gravados, 3 não.");
    EXPECT_EQ(summaryOf({stored("a.cli", 2, 0), {.path = "b.cli", .failure = "Disco cheio."}}, Import),
              "2 actos gravados; 1 ficheiro posto de lado.");
    EXPECT_EQ(summaryOf({}, Import), "0 actos gravados.");
    FileOutcome again = stored("a.cli", 0, 3);
    again.report->left[0].there = true;
    EXPECT_EQ(summaryOf({again}, Import), "0 actos gravados, 2 não; 1 já lá estava.");
    again.report->left[1].there = true;
    EXPECT_EQ(summaryOf({again}, Import), "0 actos gravados, 1 não; 2 já lá estavam.");
}

TEST(TheReportOnFiles, TellsTheLineAndTheReasonOfEachActThatIsNotStoredButOfThoseThatAreThere)
{
    FileOutcome outcome = stored("a.cli", 1, 0);
    outcome.report->left = {{.line = 4, .act = "Baptismos 3, n.º 7: Maria", .reasons = {"Sem data.", "Sem nome."}},
                            {.line = 9, .act = "Baptismos 3, n.º 8: Rui", .reasons = {"Já lá está."}, .there = true}};
    const QString report = reportOn({outcome}, Occasion::Import);
    EXPECT_TRUE(report.contains("linha 4, Baptismos 3, n.º 7: Maria: Sem data. Sem nome.")) << qPrintable(report);
    EXPECT_FALSE(report.contains("Rui"));
    outcome.report->left = QList<LeftAct>(250, {.line = 4, .act = "x", .reasons = {"y"}});
    EXPECT_TRUE(reportOn({outcome}, Occasion::Import).contains("e mais 50"));
}

TEST(TheReportOnFiles, ListsTheActsThatWereStoredWithoutCards)
{
    ImportReport report;
    report.alone << LeftAct{7, "Baptismos 1: Ana", {"A data 31/09/1700 não existe."}};
    report.stored[ActKind::Baptism] = 1;
    const QString text = reportOn({{.path = "a.cli", .report = report}}, Occasion::Import);
    EXPECT_TRUE(text.startsWith("1 acto gravado (1 sem fichas).")) << qPrintable(text);
    EXPECT_TRUE(text.contains("Gravados sem fichas:\r\nlinha 7, Baptismos 1: Ana: A data 31/09/1700 não existe."))
        << qPrintable(text);
}

TEST(TheReportOnFiles, CountsNothingOfAFileThatWasGivenUp)
{
    FileOutcome given = stored("a.cli", 7, 1);
    given.report->cancelled = true;
    EXPECT_EQ(summaryOf({given}, Occasion::Import), "0 actos gravados; 1 ficheiro posto de lado.");
    EXPECT_TRUE(reportOn({given}, Occasion::Import).contains("Cancelado: nada foi escrito deste ficheiro."));
}

TEST(TheReportOnFiles, SaysWhereTheCopyOfTheBdpIsAndThatARehearsalChangesNothing)
{
    const QString imported = reportOn({stored("a.cli", 1, 0)}, Occasion::Import, "/b/copia.orv");
    EXPECT_TRUE(imported.contains("A BDP tal como estava antes: /b/copia.orv")) << qPrintable(imported);
    EXPECT_FALSE(imported.contains("não foi alterada"));
    const QString rehearsal = reportOn({stored("a.cli", 1, 0)}, Occasion::Rehearsal);
    EXPECT_TRUE(rehearsal.contains("A BDP não foi alterada."));
    EXPECT_FALSE(rehearsal.contains("tal como estava antes"));
}

TEST(TheReportOnFiles, SaysOfADamagedFileThatNothingOfItIsWrittenAndWhere)
{
    const QString report =
        reportOn({{.path = "a.cli", .problems = {error(12, "três aspas por fechar")}}}, Occasion::Import);
    EXPECT_TRUE(report.contains("a.cli\r\nO ficheiro tem erros: nada dele é escrito.\r\nA ver no ficheiro:\r\n"
                                "linha 12: três aspas por fechar"))
        << qPrintable(report);
}

} // namespace
