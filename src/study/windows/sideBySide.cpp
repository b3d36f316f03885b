#include "study/windows/sideBySide.h"

#include <QStyledItemDelegate>

namespace study {

namespace {

constexpr int signColumn = 2;

// Not by a colour alone, nor by a colour at all: it is told in any theme.
class MarkedRows : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const QString mark = index.siblingAtColumn(signColumn).data().toString();
        option->font.setBold(mark == parish::sign(parish::ComparedLine::Mark::Differs));
    }
};

} // namespace

void showSideBySide(Grid& grid, const parish::ComparedLines& lines, const QString& one, const QString& other)
{
    static constexpr int titleWidth = 110, valueWidth = 230, signWidth = 24;
    const int count = int(lines.size());
    if (!dynamic_cast<MarkedRows*>(grid.itemDelegate())) grid.setItemDelegate(new MarkedRows(&grid));
    grid.setRows(count == 0 ? 0 : count + 1);
    if (count == 0) return;
    grid.setColumns({{"Campo", titleWidth}, {one, valueWidth}, {"", signWidth}, {other}});
    grid.fill(count + 1, [lines](int row) -> QStringList {
        if (row < 1 || row > int(lines.size())) return {};
        const parish::ComparedLine& line = lines[size_t(row - 1)];
        return {line.title, line.one, parish::sign(line.mark), line.other};
    });
}

} // namespace study
