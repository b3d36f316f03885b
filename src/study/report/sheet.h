// A table as a sheet of texts, for programs of tables.
#pragma once

#include "study/report/figure.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace study::report {

// A column of a sheet. Beside each column of the table stand, where one of its cells has any: the limits of 95 %, and
// what its small numbers come to ("poucos casos", "suprimido").
struct SheetColumn
{
    enum class Kind : quint8
    {
        Text,
        Whole,
        Number
    };

    QString name = {};  // a safe identifier, unique in the sheet
    QString title = {}; // as the table has it, with what it tells of its neighbour
    QString unit = {};
    QString described = {}; // in a sentence, where the title doesn't tell all
    Kind kind = Kind::Text; // as the texts of all its rows are

    bool operator==(const SheetColumn&) const = default;
};

struct Sheet
{
    std::vector<SheetColumn> columns = {};
    std::vector<QStringList> rows = {}; // each as long as columns; point for decimals, "" for nothing and suppressed

    bool operator==(const Sheet&) const = default;
};
Sheet sheetOf(const Table& table);

// a to z, 0 to 9 and _, beginning with a letter: "Idade média (anos)" is idade_media_anos. "" for a text without any.
QString identifier(const QString& given);

// With a comma between cells, a heading of the names, point for decimals, \n behind each row, and quotes where needed.
QByteArray csvOf(const Sheet& sheet);

// For the clipboard: tabs between the cells, a heading of titles with units, decimal comma. No text runs as a formula.
QString tabSeparated(const Table& table);

} // namespace study::report
