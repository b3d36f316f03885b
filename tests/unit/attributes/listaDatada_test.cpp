// What a click does to the grid of a list, where no scenario sees it.
#include "attributes/frmLegados.h"

#include "control.h"
#include "store/parish.h"

#include <QScrollBar>

class ListOfMany : public Parish
{
protected:
    ListOfMany()
    {
        cnBDP.execute("insert into individuo (nind, nome, sexo) values (1, 'José', 'm')");
        for (int i = 1; i <= 60; ++i)
            cnBDP.execute(QStringLiteral("insert into legadosprofanos (nind, idlegprof, bensmoveis) values (1, %1, "
                                         "'Arca %1')")
                              .arg(i));
        Forms::add(FrmLegados::Name, [] { return new FrmLegados; });
        JanelaDoDono::abre(FrmLegados::Name, {TipoDeDono::Individuo, "1", "José", {}, {}});
    }
};

TEST_F(ListOfMany, StaysUnderTheMouseWhenARowIsClicked)
{
    Form* legacies = Forms::find(FrmLegados::Name);
    ASSERT_TRUE(legacies);
    auto& grid = control<Grid>(*legacies, "dtgLeg");
    grid.scrollTo(grid.model()->index(29, 1), QAbstractItemView::PositionAtTop);
    const int scrolled = grid.verticalScrollBar()->value();
    ASSERT_GT(scrolled, 0);
    const QPoint where = grid.visualRect(grid.model()->index(30, 1)).center();
    for (int click = 0; click < 2; ++click) {
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, where);
        EXPECT_EQ(grid.row(), 31);
        EXPECT_EQ(control<MemoBox>(*legacies, "txtMov").text(), "Arca 31");
        EXPECT_EQ(grid.verticalScrollBar()->value(), scrolled);
    }
}

TEST_F(ListOfMany, KeepsTheWidthsThatTheUserGaveItsColumns)
{
    Form* legacies = Forms::find(FrmLegados::Name);
    auto& grid = control<Grid>(*legacies, "dtgLeg");
    grid.setColumnWidth(1, 222);
    grid.setRow(3);
    emit grid.picked();
    EXPECT_EQ(grid.columnWidth(1), 222);
}
