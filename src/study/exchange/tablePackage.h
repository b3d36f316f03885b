// A table in datapackage.json.
#pragma once

#include "study/exchange/tables_p.h"
#include "study/report/dataPackage.h"

#include <QSet>

namespace study::exchange {

// What is found only when all rows are read.
struct TableSeen
{
    qint64 rows = 0;
    qint64 apart = 0;              // cells of it that stand in problemas.csv
    qint64 emptied = 0;            // orphan keys that stand nowhere
    QSet<QString> otherWords = {}; // columns that hold a word which isn't among theirs
};

report::CsvForm formOf(Dialect dialect);

// The columns that the file has, in their order, are `columns`; `tables` are those of the package, in whose keys the
// foreign ones end.
report::PackageJson schemaOf(const TableInfo& table, const std::vector<const TableColumn*>& columns,
                             const TableSeen& seen, const QStringList& tables, Dialect dialect);
report::PackageJson schemaOfProblems();

QString descriptionOf(const TableInfo& table, const TableSeen& seen);
QString englishOf(const TableInfo& table, const TableSeen& seen); // the same

} // namespace study::exchange
