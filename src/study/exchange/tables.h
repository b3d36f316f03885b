// The tables of a BDP as CSV with their description in datapackage.json, and a BDP made of such tables.
#pragma once

#include "platform/jet/connection.h"
#include "study/exchange/progress.h"
#include "study/parish/source.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <vector>

namespace study::exchange {

// For whom the files are written. Where the programs differ: of the spreadsheets of Portugal.
enum class Dialect : quint8
{
    Standard,   // commas, point for decimals, dates as 1702-02-14, UTF-8
    Spreadsheet // semicolons, decimal commas, dates as 14/02/1702, UTF-8 with its mark, no text that runs as a formula
};

// What becomes of a number that leads to no record.
enum class Orphans : quint8
{
    Apart,  // its cell is empty, and it stands in problemas.csv, from where an import takes it back
    Emptied // its cell is empty, and the description of the table tells how many there are
};

struct TablesOptions
{
    Dialect dialect = Dialect::Standard;
    Orphans orphans = Orphans::Apart;
    QString program = {};
    QDateTime made = {}; // told in the description where it is valid; without it the same BDP gives the same bytes
    parish::Source source = {};
    GoesOn goesOn = {};
};

struct TableCount
{
    QString name;
    qint64 rows = 0;

    bool operator==(const TableCount&) const = default;
};

struct TablesWritten
{
    std::vector<TableCount> tables = {};
    qint64 apart = 0;         // cells that stand in problemas.csv
    qint64 emptied = 0;       // orphan keys that stand nowhere
    QStringList leftOut = {}; // tables and columns that no BDP has: of other programs

    bool operator==(const TablesWritten&) const = default;
};

// All tables of the BDP but the index of the names, which is made anew, and datapackage.json: one state of the file, in
// the order of the rows. What the type of its column doesn't have (a text that is none, half a number), and orphan
// keys, stand in problemas.csv with the place of their row; a row whose own key is such a cell stands there as a whole.
// Reads row by row, and writes as report::PackageFiles does. Throws jet::Error, and Interrupted; the folder is then as
// it was.
TablesWritten exportTables(const jet::Connection& bdp, const QString& folder, const TablesOptions& options);

// Something in the files that can't be taken, or that a user should know.
struct TableProblem
{
    QString file;
    int line = 0; // from 1; 0: the whole file
    QString text; // in Portuguese

    bool operator==(const TableProblem&) const = default;
};

struct TablesRead
{
    std::vector<TableCount> tables = {};
    std::vector<TableProblem> errors = {}; // the first hundred; with one of them nothing was written
    // Taken all the same: orphan keys, files that no table is made of, or that aren't as their description tells.
    std::vector<TableProblem> warnings = {};
    bool referenceData = false; // places, codes and professions are the program's own

    bool operator==(const TablesRead&) const = default;
};

// Makes the BDP `path`, where no file may stand, of the tables of the folder: those of its datapackage.json, or where
// it has none, each file whose name is that of a table. Both dialects are read, in UTF-8, or in code page 1252 where
// the whole file is. A column that isn't there is empty; columns of descriptions ("…_texto") are passed over. Without a
// table of places, codes or professions these are the program's own. One transaction in a file beside its place, which
// it takes when it is whole; with `rehearse` it doesn't take it, and nothing is left. Throws jet::Error (no folder, no
// table, a file that stands there, the disk), and Interrupted; nothing is left then. Precondition:
// Desktop::programFolder() has the program's data files.
TablesRead importTables(const QString& folder, const QString& path, bool rehearse, const GoesOn& goesOn = {});

} // namespace study::exchange
