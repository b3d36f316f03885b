#include "study/exchange/gedcomInRows.h"

#include "study/exchange/tableList.h"

namespace study::exchange {

namespace {

QStringList columnsOf(const QString& table)
{
    QStringList names;
    for (const TableColumn& column : tableOf(table)->columns)
        names << column.name;
    return names;
}

jet::NativeSql insertion(const QString& table, const QStringList& columns)
{
    const QStringList places(columns.size(), "?");
    return jet::NativeSql(
        QString("insert into \"%1\" (\"%2\") values (%3)").arg(table, columns.join("\", \""), places.join(", ")));
}

} // namespace

struct GedcomRows::Prepared
{
    Prepared(jet::Connection& bdp, const QString& table)
        : columns(columnsOf(table)), insert(bdp, insertion(table, columns))
    {
    }

    QStringList columns;
    jet::Repeated insert;
};

GedcomRows::GedcomRows(jet::Connection& bdp) : bdp_(bdp) {}
GedcomRows::~GedcomRows() = default;

void GedcomRows::add(const QString& table, const RowValues& values)
{
    std::unique_ptr<Prepared>& prepared = prepared_[table];
    if (!prepared) prepared = std::make_unique<Prepared>(bdp_, table);
    QVariantList all;
    all.reserve(prepared->columns.size());
    for (const QString& column : prepared->columns)
        all << values.value(column);
    prepared->insert.run(all);
    ++counts_[table];
}

} // namespace study::exchange
