// What docs/bdp.md tells those who read a BDP with tools of their own.
#include "study/exchange_tables.h"

#include "demo.h"
#include "study/exchange/tableList.h"

#include <QFile>
#include <QRegularExpression>

#include <sqlite3.h>

using namespace study::exchange;

namespace {

QString document()
{
    QFile file(ORV_DATA_DIR "/../docs/bdp.md");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QString::fromUtf8(file.readAll());
}

// The part below a heading, up to the next one of its rank.
QString section(const QString& heading)
{
    const QString all = document();
    const qsizetype begin = all.indexOf("\n## " + heading + '\n');
    EXPECT_GE(begin, 0) << qPrintable(heading);
    const qsizetype end = all.indexOf("\n## ", begin + 1);
    return all.mid(begin, end < 0 ? -1 : end - begin);
}

QStringList questions()
{
    static const QRegularExpression block("```sql\n(.*?)```", QRegularExpression::DotMatchesEverythingOption);
    QStringList all;
    for (const auto& match : block.globalMatch(section("Ten questions")))
        all << match.captured(1);
    return all;
}

QString kindOf(Kind kind)
{
    return QStringList{"text", "whole", "number", "date", "flag"}[static_cast<int>(kind)];
}

class DocumentOfTheBdp : public ExchangedTables
{
protected:
    // How many rows another program gets from the file, which it can't write; -1 where it gets an error.
    int rowsOf(const QString& question) const
    {
        sqlite3* database = nullptr;
        sqlite3_open_v2(folder.filePath("a.orv").toUtf8().constData(), &database, SQLITE_OPEN_READONLY, nullptr);
        sqlite3_stmt* statement = nullptr;
        const QByteArray text = question.toUtf8();
        const char* rest = nullptr;
        int rows = -1;
        if (sqlite3_prepare_v2(database, text.constData(), -1, &statement, &rest) == SQLITE_OK &&
            QByteArray(rest).trimmed().isEmpty())
        {
            rows = 0;
            int step = 0;
            while ((step = sqlite3_step(statement)) == SQLITE_ROW)
                ++rows;
            if (step != SQLITE_DONE) rows = -1;
        }
        EXPECT_GE(rows, 0) << sqlite3_errmsg(database) << '\n' << text.constData();
        sqlite3_finalize(statement);
        sqlite3_close(database);
        return rows;
    }
};

} // namespace

TEST_F(DocumentOfTheBdp, NamesEachTableAndColumnAndNoOther)
{
    static const QRegularExpression heading("^### (\\S+)$"),
        row("^\\| `([^`]+)` \\| (\\w+) \\| (.+) \\|$", QRegularExpression::UseUnicodePropertiesOption);
    QStringList told, known;
    QString table;
    for (const QString& line : section("Every table and column").split('\n')) {
        if (const auto match = heading.match(line); match.hasMatch()) told << (table = match.captured(1));
        if (const auto match = row.match(line); match.hasMatch())
            told << QString("%1.%2 (%3): %4").arg(table, match.captured(1), match.captured(2), match.captured(3));
    }
    for (const TableInfo& each : allTables()) {
        known << each.name;
        for (const TableColumn& column : each.columns)
            known << QString("%1.%2 (%3): %4").arg(each.name, column.name, kindOf(column.kind), column.english);
    }
    ASSERT_EQ(told.size(), known.size());
    for (qsizetype i = 0; i < known.size(); ++i)
        EXPECT_TRUE(told[i].startsWith(known[i])) << qPrintable(told[i]) << '\n' << qPrintable(known[i]);
}

TEST_F(DocumentOfTheBdp, TellsWhatColumnsAreCodesAndWhereTheyLead)
{
    const QString told = section("Every table and column");
    for (const TableInfo& table : allTables()) {
        const QString part = told.section("\n### " + table.name + '\n', 1).section("\n### ", 0, 0);
        const QString key = table.key.isEmpty() ? QString("No key.") : "Primary key `" + table.key.join("`, `") + "`.";
        EXPECT_TRUE(part.contains(key)) << qPrintable(table.name);
        for (const TableColumn& column : table.columns) {
            const QString row = part.section("\n| `" + column.name + "` |", 1).section('\n', 0, 0);
            const QString link = column.isProfession      ? "profissao.codprof"
                                 : column.table.isEmpty() ? column.category + column.placeLetter + column.categoryBy
                                                          : column.table + '.' + column.key;
            EXPECT_TRUE(link.isEmpty() || row.contains('`' + link + '`'))
                << qPrintable(table.name + '.' + column.name) << ": " << qPrintable(row);
        }
    }
}

TEST_F(DocumentOfTheBdp, HasTenQuestionsThatAnEmptyBdpAnswersToo)
{
    const QStringList all = questions();
    EXPECT_EQ(all.size(), 10);
    for (const QString& question : all)
        EXPECT_EQ(rowsOf(question), 0) << "nobody is there: " << qPrintable(question);
}

TEST_F(DocumentOfTheBdp, HasQuestionsThatTheDemonstrationHasRowsFor)
{
    demo::write(demo::demonstration(), bdp);
    for (const QString& question : questions())
        EXPECT_GT(rowsOf(question), 0) << qPrintable(question);
}
