#include "study/report/csv.h"

#include <gtest/gtest.h>

#include <limits>

using study::report::CsvRows;

namespace {

QByteArray written(const QString& cell)
{
    CsvRows rows;
    rows.add(QString("a"));
    rows.add(cell);
    rows.endRow();
    return rows.take();
}

} // namespace

// Letters of one, two, three and four bytes, and half of a pair, which has none.
TEST(ReportCsv, TextIsWrittenAsQtWritesUtf8)
{
    for (const QString& text :
         {QString("Maria"), QString::fromUtf8("São João"), QString::fromUtf8("ſ‑€ﬁ"), QString::fromUtf8("a𝔄b"),
          QString::fromUtf8("\uFFFD\u0800\u07FF\u0080"), QString("a") + QChar(0xD835) + "b"})
        EXPECT_EQ(written(text), "a," + text.toUtf8() + "\n") << text.toStdString();
}

TEST(ReportCsv, ATextOfTheUsersIsQuotedWhereItNeedsQuotes)
{
    EXPECT_EQ(written("a,b"), "a,\"a,b\"\n");
    EXPECT_EQ(written(QString::fromUtf8("é \"x\"")), QByteArray("a,\"é \"\"x\"\"\"\n"));
    EXPECT_EQ(written("x\ry"), "a,\"x\ry\"\n");
    EXPECT_EQ(written(" x"), "a,\" x\"\n");
    EXPECT_EQ(written("x "), "a,\"x \"\n");
    EXPECT_EQ(written("x;y z"), "a,x;y z\n");
    EXPECT_EQ(written({}), "a,\n");
}

TEST(ReportCsv, NumbersHaveAllTheirDigits)
{
    CsvRows rows;
    for (const qint64 number :
         {qint64(0), qint64(-5), std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max()})
        rows.addNumber(number);
    rows.endRow();
    EXPECT_EQ(rows.take(), "0,-5,-9223372036854775808,9223372036854775807\n");
}

// What is taken has nothing in common with what is written behind it.
TEST(ReportCsv, RowsGoOnBehindThoseThatWereTaken)
{
    CsvRows rows;
    QByteArray all;
    for (int i = 0; i < 5000; ++i) {
        rows.addNumber(i);
        rows.addQuoted("x\"y");
        rows.endRow();
        if (i % 1000 == 0) all += rows.take();
    }
    all += rows.take();
    QByteArray expected;
    for (int i = 0; i < 5000; ++i)
        expected += QByteArray::number(i) + ",\"x\"\"y\"\n";
    EXPECT_EQ(all, expected);
}
