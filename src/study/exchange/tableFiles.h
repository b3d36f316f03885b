// Which files of a folder hold which tables. For this room alone.
#pragma once

#include "study/exchange/tableList.h"
#include "study/exchange/tables.h"

namespace study::exchange {

struct TableFile
{
    const TableInfo* table = nullptr; // null: the cells that stand in no table
    QString name = {};                // in the folder
    QString path = {};
    qint64 bytes = 0;
};

struct TableFiles
{
    std::vector<TableFile> files = {};       // in the order of allTables(), that of the problems first
    std::vector<TableProblem> warnings = {}; // of files that are left out, or aren't as they were written
};

// Throws jet::Error where there is no folder, no table in it, or where its datapackage.json is none, names a file that
// isn't there or that lies elsewhere, or one table twice, or belongs to an export that was interrupted.
TableFiles filesIn(const QString& folder);

} // namespace study::exchange
