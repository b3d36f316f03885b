#include "study/windows/subjectSheet.h"

#include "platform/forms/controls.h"
#include "platform/forms/dressing.h"

#include <QHeaderView>
#include <QStyledItemDelegate>

#include <algorithm>
#include <utility>

namespace study {

using report::Cell;
using report::Column;
using report::Standing;
using report::Table;

namespace {

constexpr auto leftOutId = "nao-contados"; // of the last table of every subject
constexpr auto few = "poucos casos", tooFew = "casos a menos para se mostrar";
constexpr int margin = 16;            // beside a text, in pixels
constexpr int least = 48, most = 340; // of a column, in pixels of the usual font
constexpr int mostOfReasons = 640;    // of a text that one number alone follows
constexpr int measuredRows = 200;

// How a cell stands there: the grid knows texts alone.
class CellLook : public QStyledItemDelegate
{
public:
    CellLook(const Table& table, QObject* parent) : QStyledItemDelegate(parent), table_(table) {}

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const Cell* cell = cellAt(table_, index);
        if (!cell) return;
        const bool isText = table_.columns[static_cast<std::size_t>(index.column())].isText;
        option->displayAlignment = (isText ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter;
        option->font.setItalic(cell->standing == Standing::Grey);
    }

private:
    const Table& table_;
};

template <class Told>
bool hasAny(const Table& table, Told isSo)
{
    return std::ranges::any_of(table.rows, [&](const auto& row) { return std::ranges::any_of(row, isSo); });
}

int widthOf(const Grid& grid, const Table& table, std::size_t column)
{
    const auto metrics = grid.fontMetrics();
    int width = grid.horizontalHeader()->fontMetrics().horizontalAdvance(titleOf(table.columns[column]));
    const std::size_t rows = std::min<std::size_t>(table.rows.size(), measuredRows);
    for (std::size_t row = 0; row < rows; ++row)
        width = std::max(width, metrics.horizontalAdvance(shown(table.rows[row][column], table.columns[column])));
    const double scale = fontScale(&grid);
    return std::clamp(width + margin, qRound(least * scale),
                      qRound((column == 0 && table.columns.size() == 2 ? mostOfReasons : most) * scale));
}

QModelIndex firstNumber(const Grid& grid, const Table& table)
{
    for (std::size_t row = 0; row < table.rows.size(); ++row)
        for (std::size_t column = 0; column < table.rows[row].size(); ++column)
            if (!table.rows[row][column].from.empty())
                return grid.model()->index(static_cast<int>(row), static_cast<int>(column));
    return {};
}

} // namespace

SubjectSheet sheetOf(const std::vector<report::Figure>& figures)
{
    SubjectSheet sheet;
    for (const report::Figure& figure : figures) {
        if (const auto* chart = std::get_if<report::Chart>(&figure)) {
            sheet.charts.push_back(*chart);
            continue;
        }
        const auto& table = std::get<Table>(figure);
        (table.id == leftOutId ? sheet.leftOut : sheet.tables).push_back(table);
    }
    return sheet;
}

QString titleOf(const Column& column)
{
    return column.unit.isEmpty() ? column.title : column.title + " (" + column.unit + ')';
}

void fillGrid(Grid& grid, const Table& table)
{
    grid.setSelectionBehavior(QAbstractItemView::SelectItems);
    grid.horizontalHeader()->setStretchLastSection(false);
    QAbstractItemDelegate* before = grid.itemDelegate();
    grid.setRows(0);
    grid.setItemDelegate(new CellLook(table, &grid));
    delete before;
    if (table.isEmpty()) return;
    const int rows = static_cast<int>(table.rows.size());
    grid.setRows(rows + 1);
    QList<GridColumn> columns;
    for (const Column& column : table.columns)
        columns << GridColumn{titleOf(column)};
    grid.setColumns(columns);
    grid.fill(rows + 1, [&table](int row) {
        QStringList cells;
        const auto& shownRow = table.rows.at(static_cast<std::size_t>(row) - 1);
        for (std::size_t column = 0; column < shownRow.size(); ++column)
            cells << shown(shownRow[column], table.columns[column]);
        return cells;
    });
    for (std::size_t column = 0; column < table.columns.size(); ++column)
        grid.setColWidth(static_cast<int>(column), widthOf(grid, table, column));
    if (const QModelIndex first = firstNumber(grid, table); first.isValid()) grid.setCurrentIndex(first);
    grid.scrollToTop();
}

bool hasAnybody(const Table& table)
{
    return hasAny(table, [](const Cell& cell) { return !cell.from.empty(); });
}

const Cell* cellAt(const Table& table, const QModelIndex& index)
{
    if (!index.isValid()) return nullptr;
    const auto row = static_cast<std::size_t>(index.row()), column = static_cast<std::size_t>(index.column());
    if (row >= table.rows.size() || column >= table.rows[row].size()) return nullptr;
    return &table.rows[row][column];
}

QString toldOf(const Table& table, const QModelIndex& index)
{
    const Cell* cell = cellAt(table, index);
    if (!cell) return {};
    const Column& column = table.columns[static_cast<std::size_t>(index.column())];
    const auto& row = table.rows[static_cast<std::size_t>(index.row())];
    QString text = shown(row.front(), table.columns.front());
    if (index.column() == 0) return text;
    text += ", " + titleOf(column) + ": ";
    if (cell->standing == Standing::Suppressed) return text + tooFew;
    text += shown(*cell, column);
    if (cell->interval) {
        Column limits = column;
        limits.decimals = std::max(column.decimals, 1);
        text += " (95 %: " + shown(report::number(cell->interval->low), limits) + " a " +
                shown(report::number(cell->interval->high), limits) + ')';
    }
    return cell->standing == Standing::Grey ? text + "; " + few : text;
}

QString notesOf(const Table& table)
{
    if (table.isEmpty()) return "sem dados";
    QStringList notes = table.notes;
    if (hasAny(table, [](const Cell& cell) { return cell.standing == Standing::Suppressed; }))
        notes << QString("* ") + tooFew + '.';
    if (hasAny(table, [](const Cell& cell) { return cell.standing == Standing::Grey; }))
        notes << QString("Em itálico: ") + few + '.';
    return notes.join("\r\n");
}

} // namespace study
