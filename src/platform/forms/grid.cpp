#include "platform/forms/controls.h"
#include "platform/forms/dressing.h"
#include "platform/forms/showntext.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QHeaderView>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QStyle>

// The cells, row by row. The view sees the rows below the heading.
class Grid::Model : public QAbstractTableModel
{
public:
    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : std::max(rows_ - 1, 0);
    }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : cols_; }

    QVariant data(const QModelIndex& index, int role) const override
    {
        const QString shown = shownText(text(index.row() + 1, index.column()));
        switch (role) {
        case Qt::DisplayRole:
            return shown;
        case Qt::TextAlignmentRole:
            return alignment(index.column());
        case Qt::ToolTipRole:
            return isCut(shown, index.column()) ? shownTip(shown) : QVariant();
        default:
            return {};
        }
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation != Qt::Horizontal) return {};
        if (role == Qt::TextAlignmentRole) return alignment(section);
        const QString shown = shownText(text(0, section));
        if (role == Qt::ToolTipRole && isCut(shown, section)) return shownTip(shown);
        return role == Qt::DisplayRole ? shown : QVariant();
    }

    int rows() const { return rows_; }

    void setRows(int rows)
    {
        const int before = rowCount();
        const int after = std::max(rows - 1, 0);
        if (after > before)
            beginInsertRows({}, before, after - 1);
        else if (after < before)
            beginRemoveRows({}, after, before - 1);
        rows_ = rows;
        source_ = {};
        texts_.removeIf([=](auto row) { return row.key() >= rows; });
        if (after > before)
            endInsertRows();
        else if (after < before)
            endRemoveRows();
        if (cols_ > 0) emit headerDataChanged(Qt::Horizontal, 0, cols_ - 1);
    }

    void setCols(int cols)
    {
        beginResetModel();
        cols_ = cols;
        for (QStringList& row : texts_)
            row.resize(std::min(row.size(), qsizetype(cols)));
        endResetModel();
    }

    void fill(int rows, std::function<QStringList(int)> source)
    {
        beginResetModel();
        rows_ = rows;
        source_ = std::move(source);
        texts_.removeIf([](auto row) { return row.key() > 0; });
        endResetModel();
    }

    QString text(int row, int col) const { return holds(row, col) ? texts(row).value(col) : QString(); }

    void setText(int row, int col, const QString& text)
    {
        if (!holds(row, col)) return;
        QStringList& cells = texts(row);
        cells.resize(std::max(cells.size(), qsizetype(col) + 1));
        cells[col] = text;
        if (row == 0)
            emit headerDataChanged(Qt::Horizontal, col, col);
        else
            emit dataChanged(index(row - 1, col), index(row - 1, col), {Qt::DisplayRole});
    }

private:
    // Whether the column is too narrow for the text.
    bool isCut(const QString& text, int col) const
    {
        const auto* view = static_cast<const QTableView*>(QObject::parent());
        const int margin = view->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, view) + 1;
        return view->fontMetrics().horizontalAdvance(text) + 2 * margin > view->columnWidth(col);
    }

    // Numbers stand to the right. The first cell that isn't empty tells what a column holds; a code with a leading zero
    // is a text. Only the first rows are asked: the cells of the others may not have been read yet.
    QVariant alignment(int col) const
    {
        static const QRegularExpression number("^-?(0|[1-9][0-9]*)([.,][0-9]+)?$");
        constexpr int asked = 20;
        for (int row = 1; row < std::min(rows_, asked); ++row) {
            const QString cell = shownText(text(row, col));
            if (cell.isEmpty()) continue;
            const bool right = number.match(cell).hasMatch();
            return int((right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
        }
        return int(Qt::AlignLeft | Qt::AlignVCenter);
    }

    bool holds(int row, int col) const { return row >= 0 && row < rows_ && col >= 0 && col < cols_; }

    QStringList& texts(int row) const
    {
        const auto known = texts_.find(row);
        if (known != texts_.end()) return *known;
        return *texts_.insert(row, row > 0 && source_ ? source_(row) : QStringList());
    }

    int rows_ = 0;
    int cols_ = 0;
    std::function<QStringList(int)> source_;
    mutable QHash<int, QStringList> texts_; // of the rows that were written or read; a short row ends in empty cells
};

Grid::Grid(QWidget* parent) : QTableView(parent), model_(new Model(this))
{
    setModel(model_);
    setFocusPolicy(Qt::StrongFocus);
    setTabKeyNavigation(false);
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setWordWrap(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->hide();
}

int Grid::rows() const
{
    return model_->rows();
}

void Grid::setRows(int rows)
{
    model_->setRows(std::max(rows, 0));
    horizontalHeader()->setVisible(rows > 0);
    chooseFirstRow();
}

int Grid::cols() const
{
    return model_->columnCount();
}

void Grid::setCols(int cols)
{
    model_->setCols(std::max(cols, 0));
    chooseFirstRow();
}

void Grid::setColumns(const QList<GridColumn>& columns)
{
    setCols(static_cast<int>(columns.size()));
    for (int column = 0; column < cols(); ++column) {
        setTextMatrix(0, column, columns[column].title);
        if (columns[column].width >= 0) setColWidth(column, qRound(columns[column].width * fontScale(this)));
    }
}

QString Grid::textMatrix(int row, int col) const
{
    return model_->text(row, col);
}

void Grid::setTextMatrix(int row, int col, const QString& text)
{
    model_->setText(row, col, text);
}

void Grid::fill(int rows, std::function<QStringList(int)> source)
{
    model_->fill(std::max(rows, 0), std::move(source));
    horizontalHeader()->setVisible(rows > 0);
    chooseFirstRow();
}

int Grid::row() const
{
    return currentIndex().row() + 1;
}

void Grid::setRow(int row)
{
    if (row >= 1 && row < rows()) {
        int col = 0;
        while (isColumnHidden(col) && col < cols() - 1) // the view doesn't scroll to a hidden cell
            ++col;
        setCurrentIndex(model_->index(row - 1, col));
    } else {
        clearSelection();
        setCurrentIndex({});
    }
}

void Grid::chooseFirstRow()
{
    if (row() == 0) setRow(1);
}

void Grid::setColWidth(int col, int width)
{
    const int chosen = row();
    setColumnHidden(col, width == 0);
    if (width > 0) setColumnWidth(col, width);
    setRow(chosen);
}

void Grid::keyPressEvent(QKeyEvent* event)
{
    const int before = row();
    QTableView::keyPressEvent(event);
    if (row() != before && row() > 0) emit picked();
}

void Grid::mouseReleaseEvent(QMouseEvent* event)
{
    QTableView::mouseReleaseEvent(event);
    // Any mouse button chooses a row when it is pressed, and may be released outside the grid.
    const QPoint where = event->position().toPoint();
    if (row() > 0 && (indexAt(where).isValid() || !viewport()->rect().contains(where))) emit picked();
}
