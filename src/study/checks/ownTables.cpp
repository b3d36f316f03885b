#include "study/checks/ownTables.h"

#include "platform/jet/rows.h"

#include <algorithm>

namespace study::checks {

namespace {

bool hasColumns(const jet::Connection& bdp, const OwnTable& table)
{
    QStringList columns;
    for (jet::Rows rows(bdp, jet::NativeSql("select lower(name) from pragma_table_info(?)", {table.name}));
         rows.next();)
        columns << rows.text(0);
    return std::ranges::all_of(table.columns, [&](const QString& each) { return columns.contains(each); });
}

} // namespace

bool exists(const jet::Connection& bdp, const OwnTable& table)
{
    QString type;
    {
        jet::Rows entry(bdp, jet::NativeSql("select type from sqlite_master where lower(name) = ? and type <> 'index'",
                                            {table.name}));
        if (!entry.next()) return false;
        type = entry.text(0);
    }
    if (type == "table" && hasColumns(bdp, table)) return true;
    throw jet::Error{jet::number::invalidStatement,
                     QString("A tabela \"%1\" desta BDP não é a das verificações: foi feita por outro programa. Nada "
                             "foi alterado.")
                         .arg(table.name)};
}

void make(jet::Connection& bdp, const OwnTable& table)
{
    if (!exists(bdp, table)) bdp.execute(jet::NativeSql(table.statement));
}

} // namespace study::checks
