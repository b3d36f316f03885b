// The figures of a subject, as frmIndicadores shows them.
#pragma once

#include "study/report/figure.h"

#include <QAbstractItemModel>
#include <QString>
#include <QStringList>

#include <vector>

class Grid;

namespace study {

// The figures of a subject, by where they are shown.
struct SubjectSheet
{
    std::vector<report::Table> tables = {}; // but what was left out
    std::vector<report::Chart> charts = {};
    std::vector<report::Table> leftOut = {}; // one, or none

    bool operator==(const SubjectSheet&) const = default;
};
SubjectSheet sheetOf(const std::vector<report::Figure>& figures);

// Fills a grid: titles with their units above, texts to the left and numbers to the right, what rests on few cases in
// italics. A table without rows empties it. The cell chosen is the first one behind which somebody stands.
// Precondition: the table outlives what the grid shows.
void fillGrid(Grid& grid, const report::Table& table);

// Whether somebody stands behind a number of the table.
bool hasAnybody(const report::Table& table);

// The cell that is chosen in a grid of that table, or clicked; null for none.
const report::Cell* cellAt(const report::Table& table, const QModelIndex& index);

// The cell in words, with its row and column: "1750–1799, Média (anos): 24,3 (95 %: 23,8 a 24,8); poucos casos".
QString toldOf(const report::Table& table, const QModelIndex& index);

// What stands below a table: its notes, and what its signs mean; "sem dados" for an empty one.
QString notesOf(const report::Table& table);

QString titleOf(const report::Column& column); // "Média (anos)"

} // namespace study
