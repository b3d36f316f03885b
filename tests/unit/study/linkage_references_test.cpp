// No column that names somebody is forgotten when two records become one.
#include "study/people.h"

#include "study/acts/register_tables.h"
#include "study/linkage/columns.h"
#include "study/linkage/references.h"

#include <algorithm>

using namespace study::linkage;

namespace {

bool isReference(const QString& table, const QString& column)
{
    return std::ranges::any_of(references(), [&](const Reference& one) {
        return table == QLatin1String(one.table) && column == QLatin1String(one.column);
    });
}

bool isUnfollowed(const QString& table, const QString& column)
{
    return std::ranges::any_of(unfollowed(), [&](const Unfollowed& one) {
        return table == QLatin1String(one.table) && column == QLatin1String(one.column);
    });
}

bool isPlaceLevel(const QString& table, const QString& column)
{
    return std::ranges::any_of(references(), [&](const Reference& one) {
        return one.target == Target::Place && table == QLatin1String(one.table) && column == QLatin1String(one.with);
    });
}

// Numbers that count the rows of somebody, or amounts.
const QStringList counts{"profissoes.idprofissao", "assinatura.idassinatura", "legadosprofanos.idlegprof",
                         "rituaismorte.idlegpio",  "passaporte.npass",        "rituaismorte.quantidade",
                         "rituaismorte.valorunit", "rituaismorte.valortotal"};

} // namespace

using TheReferences = People;

TEST_F(TheReferences, HaveEveryColumnOfNumbersOfPeopleAndFamilies)
{
    study::tables::make(bdp, study::tables::ofActs());
    int seen = 0;
    for (const jet::Connection::Column& one : bdp.columns()) {
        const QString table = one.table.toLower(), column = one.name.toLower();
        const QString type = jet::Recordset(bdp, jet::NativeSql("select lower(type) from pragma_table_info(?) where "
                                                                "lower(name) = ?",
                                                                {table, column}))[0]
                                 .toString();
        const bool isNumber = type == "double" || type == "real" || type == "numeric" || type == "float";
        if (!isNumber || counts.contains(table + "." + column)) continue;
        ++seen;
        EXPECT_TRUE(isReference(table, column) || isUnfollowed(table, column)) << qUtf8Printable(table + "." + column);
    }
    EXPECT_GT(seen, 25);
}

TEST_F(TheReferences, HaveEveryColumnOfPlaces)
{
    int seen = 0;
    for (const jet::Connection::Column& one : bdp.columns()) {
        const QString table = one.table.toLower(), column = one.name.toLower();
        if (!column.startsWith("tipoloc") && column != "nivel") continue;
        ++seen;
        EXPECT_TRUE(isPlaceLevel(table, column)) << qUtf8Printable(table + "." + column);
    }
    EXPECT_GE(seen, 5);
}

TEST_F(TheReferences, NameColumnsThatAreThere)
{
    study::tables::make(bdp, study::tables::ofActs());
    QStringList all;
    for (const jet::Connection::Column& one : bdp.columns())
        all << one.table.toLower() + "." + one.name.toLower();
    for (const Reference& one : references()) {
        EXPECT_TRUE(all.contains(QString(one.table) + "." + one.column)) << one.table << "." << one.column;
        for (const char* more : {one.with, one.number})
            EXPECT_TRUE(*more == 0 || all.contains(QString(one.table) + "." + more)) << one.table << "." << more;
    }
}

TEST_F(TheReferences, LeaveNoColumnOfARecordOutOfTheComparison)
{
    for (const jet::Connection::Column& one : bdp.columns()) {
        const QString table = one.table.toLower(), column = one.name.toLower();
        const auto groups = groupsOf(table);
        if (groups.empty() || uncompared().contains(column)) continue;
        EXPECT_TRUE(std::ranges::any_of(groups, [&](const ColumnGroup& group) {
            return column == QLatin1String(group.column) || column == QLatin1String(group.with);
        })) << qUtf8Printable(table + "." + column);
    }
}
