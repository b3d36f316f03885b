#include "platform/forms/controls.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QKeyEvent>

// The cells, row by row. The view sees the rows behind the heading.
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
        return role == Qt::DisplayRole ? text(index.row() + 1, index.column()) : QVariant();
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
        return text(0, section);
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
        cells_.resize(static_cast<size_t>(rows_) * static_cast<size_t>(cols_));
        if (after > before)
            endInsertRows();
        else if (after < before)
            endRemoveRows();
        if (cols_ > 0) emit headerDataChanged(Qt::Horizontal, 0, cols_ - 1);
    }

    void setCols(int cols)
    {
        beginResetModel();
        std::vector<QString> cells(static_cast<size_t>(rows_) * static_cast<size_t>(cols));
        for (int row = 0; row < rows_; ++row)
            for (int col = 0; col < std::min(cols_, cols); ++col)
                cells[static_cast<size_t>(row) * static_cast<size_t>(cols) + static_cast<size_t>(col)] = text(row, col);
        cells_ = std::move(cells);
        cols_ = cols;
        endResetModel();
    }

    QString text(int row, int col) const { return holds(row, col) ? cells_[at(row, col)] : QString(); }

    void setText(int row, int col, const QString& text)
    {
        if (!holds(row, col)) return;
        cells_[at(row, col)] = text;
        if (row == 0)
            emit headerDataChanged(Qt::Horizontal, col, col);
        else
            emit dataChanged(index(row - 1, col), index(row - 1, col), {Qt::DisplayRole});
    }

private:
    bool holds(int row, int col) const { return row >= 0 && row < rows_ && col >= 0 && col < cols_; }
    size_t at(int row, int col) const
    {
        return static_cast<size_t>(row) * static_cast<size_t>(cols_) + static_cast<size_t>(col);
    }

    int rows_ = 0;
    int cols_ = 0;
    std::vector<QString> cells_;
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
}

int Grid::cols() const
{
    return model_->columnCount();
}

void Grid::setCols(int cols)
{
    model_->setCols(std::max(cols, 0));
}

QString Grid::textMatrix(int row, int col) const
{
    return model_->text(row, col);
}

void Grid::setTextMatrix(int row, int col, const QString& text)
{
    model_->setText(row, col, text);
}

int Grid::row() const
{
    return currentIndex().row() + 1;
}

void Grid::setRow(int row)
{
    if (row >= 1 && row < rows())
        setCurrentIndex(model_->index(row - 1, 0));
    else {
        clearSelection();
        setCurrentIndex({});
    }
}

void Grid::setColWidth(int col, int width)
{
    setColumnWidth(col, width);
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
    if (event->button() == Qt::LeftButton && indexAt(event->position().toPoint()).isValid() && row() > 0) emit picked();
}
