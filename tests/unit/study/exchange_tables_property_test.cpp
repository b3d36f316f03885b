// Whatever a parish holds: out as tables, and back row by row.
#include "study/exchange_tables.h"

#include "platform/jet/rows.h"
#include "platform/jet/transaction.h"
#include "study/exchange/tableList.h"
#include "truth/truth.h"

#include <limits>

using namespace study::exchange;

namespace {

class TablesOfAnyParish : public ExchangedTables, public testing::WithParamInterface<unsigned>
{
protected:
    // Fills each column that holds any text or any number, of all rows of the cards.
    void writeOver(std::mt19937& random)
    {
        std::vector<TableInfo> tables = tablesOfRecords();
        for (TableInfo& list : tablesOfLists())
            tables.push_back(std::move(list));
        for (const TableInfo& table : tables)
            for (const TableColumn& column : table.columns)
                if (isFree(table, column)) writeOver(table.name, column, random);
    }

private:
    static bool isFree(const TableInfo& table, const TableColumn& column)
    {
        const bool isAny = column.kind == Kind::Text || column.kind == Kind::Number;
        return isAny && !column.hasLabel() && column.table.isEmpty() && column.words.isEmpty() &&
               !table.key.contains(column.name);
    }

    void writeOver(const QString& table, const TableColumn& column, std::mt19937& random)
    {
        const QByteArray statement =
            QString("update \"%1\" set \"%2\" = ? where rowid = ?").arg(table, column.name).toUtf8();
        for (const qint64 place : placesOf(table))
            run(statement.constData(), {anyValue(column.kind, random), place});
    }

    QList<qint64> placesOf(const QString& table) const
    {
        QList<qint64> places;
        jet::Rows row(bdp, jet::NativeSql(QString("select rowid from \"%1\"").arg(table)));
        while (row.next())
            places << row.number(0);
        return places;
    }

    static QVariant anyValue(Kind kind, std::mt19937& random)
    {
        static constexpr double extremes[]{0, 0.1, -2.5, 1e300, 5e-324, 1e15, std::numeric_limits<double>::max()};
        if (random() % 5 == 0) return {};
        if (kind == Kind::Text) return exchanged::anyText(random);
        if (random() % 2 == 0) return extremes[random() % std::size(extremes)];
        return std::uniform_real_distribution(-1e6, 1e6)(random);
    }
};

} // namespace

TEST_P(TablesOfAnyParish, ComeBackRowByRowInBothDialects)
{
    const truth::Parish parish = truth::parish(120, GetParam(), ORV_DATA_DIR);
    truth::write(parish.bdp, parish.world, bdp);
    std::mt19937 random(GetParam());
    {
        jet::Transaction transaction(bdp);
        writeOver(random);
        transaction.commit();
    }
    expectTheSameBdp();
    EXPECT_EQ(exchanged::faultsOf(tables()), QStringList());
    expectTheSameBdp({.dialect = Dialect::Spreadsheet});
}

INSTANTIATE_TEST_SUITE_P(Seeds, TablesOfAnyParish, testing::Range(100U, 106U));

using TablesOfLetters = ExchangedTables;

TEST_F(TablesOfLetters, KeepEachLetterAloneFirstAndLast)
{
    int nind = 0;
    for (const uint each : exchanged::letters().toUcs4()) {
        const char32_t character = each;
        const QString letter = QString::fromUcs4(&character, 1);
        run("insert into individuo (nind, nome, alcunha, obs, causa) values (?, ?, ?, ?, ?)",
            {++nind, letter, letter + "na", "An" + letter, "a\n" + letter + '"' + letter});
    }
    EXPECT_GT(nind, 218) << "as many as code page 1252 has, and others";
    expectTheSameBdp();
    EXPECT_EQ(exchanged::faultsOf(tables()), QStringList());
    expectTheSameBdp({.dialect = Dialect::Spreadsheet});
}
