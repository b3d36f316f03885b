#include "forms/house.h"

#include <QAccessible>
#include <QHeaderView>
#include <QSignalSpy>

namespace {

class GridTest : public House
{
protected:
    GridTest()
    {
        make("frmA", [this](TestForm& form) {
            grid = form.put<Grid>("dtgProf");
            form.put<TextBox>("txtNome");
        })->display();
        QObject::connect(grid, &Grid::picked, [this] { ++picks; });
    }

    void fill(int rows)
    {
        grid->setCols(2);
        grid->setRows(rows);
        for (int row = 0; row < rows; ++row)
            for (int col = 0; col < 2; ++col)
                grid->setTextMatrix(row, col, QStringLiteral("%1,%2").arg(row).arg(col));
        QCoreApplication::processEvents();
    }

    QPoint at(int row) const { return grid->visualRect(grid->model()->index(row - 1, 0)).center(); }

    Grid* grid = nullptr;
    int picks = 0;
};

} // namespace

TEST_F(GridTest, RowZeroIsTheHeading)
{
    fill(3);
    EXPECT_EQ(grid->rows(), 3);
    EXPECT_EQ(grid->cols(), 2);
    EXPECT_EQ(grid->textMatrix(0, 1), "0,1");
    EXPECT_EQ(grid->textMatrix(2, 0), "2,0");
    EXPECT_EQ(grid->model()->rowCount(), 2);
    EXPECT_EQ(grid->model()->headerData(1, Qt::Horizontal), "0,1");
    EXPECT_EQ(grid->model()->index(1, 0).data(), "2,0");
    EXPECT_TRUE(grid->horizontalHeader()->isVisible());
}

TEST_F(GridTest, ColumnsBringTheirTitlesAndTheWidthsThatAreGiven)
{
    fill(2);
    grid->setColWidth(0, 80);
    grid->setColumns({{"Nind"}, {"Nome", 70}, {"", 0}, {"Fim"}});
    EXPECT_EQ(grid->cols(), 4);
    EXPECT_EQ(grid->textMatrix(0, 0), "Nind");
    EXPECT_EQ(grid->textMatrix(0, 3), "Fim");
    EXPECT_EQ(grid->columnWidth(0), 80);
    EXPECT_EQ(grid->columnWidth(1), 70);
    EXPECT_TRUE(grid->isColumnHidden(2));
    EXPECT_EQ(grid->textMatrix(1, 1), "1,1"); // the rows stay
}

TEST_F(GridTest, NoRowsIsAnEmptyGrid)
{
    fill(3);
    grid->setRows(0);
    EXPECT_EQ(grid->rows(), 0);
    EXPECT_EQ(grid->row(), 0);
    EXPECT_FALSE(grid->horizontalHeader()->isVisible());
    grid->setRows(2);
    EXPECT_EQ(grid->textMatrix(0, 0), "");
    EXPECT_EQ(grid->textMatrix(1, 0), "");
}

TEST_F(GridTest, CellsThatDoNotExistAreEmpty)
{
    fill(2);
    EXPECT_EQ(grid->textMatrix(2, 0), "");
    EXPECT_EQ(grid->textMatrix(0, -1), "");
    grid->setTextMatrix(9, 9, "x");
    EXPECT_EQ(grid->rows(), 2);
}

TEST_F(GridTest, MoreRowsKeepTheTextsOfTheFirst)
{
    fill(2);
    grid->setRows(4);
    EXPECT_EQ(grid->textMatrix(1, 1), "1,1");
    EXPECT_EQ(grid->textMatrix(3, 1), "");
    grid->setCols(3);
    EXPECT_EQ(grid->textMatrix(1, 1), "1,1");
    EXPECT_EQ(grid->textMatrix(1, 2), "");
}

TEST_F(GridTest, OnlyTheUserPicks)
{
    fill(5);
    grid->setRow(2);
    EXPECT_EQ(grid->row(), 2);
    EXPECT_EQ(picks, 0);
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, at(3));
    EXPECT_EQ(grid->row(), 3);
    EXPECT_EQ(picks, 1);
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, at(3));
    EXPECT_EQ(picks, 2);
    QTest::keyClick(grid, Qt::Key_Down);
    EXPECT_EQ(grid->row(), 4);
    EXPECT_EQ(picks, 3);
    QTest::keyClick(grid, Qt::Key_Down);
    EXPECT_EQ(picks, 3);
    grid->setRow(0);
    EXPECT_EQ(grid->row(), 0);
    EXPECT_EQ(picks, 3);
}

TEST_F(GridTest, ARowThatChangedUnderTheMouseIsPicked)
{
    fill(5);
    QTest::mouseClick(grid->viewport(), Qt::RightButton, {}, at(3));
    EXPECT_EQ(grid->row(), 3);
    EXPECT_EQ(picks, 1);
    QTest::mousePress(grid->viewport(), Qt::LeftButton, {}, at(2));
    QTest::mouseRelease(grid->viewport(), Qt::LeftButton, {}, {-20, 5});
    EXPECT_EQ(grid->row(), 2);
    EXPECT_EQ(picks, 2);
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, at(4) + QPoint(0, 60)); // below the last row
    EXPECT_EQ(grid->row(), 2);
    EXPECT_EQ(picks, 2);
}

TEST_F(GridTest, TheFirstRowIsChosenOnceThereIsOne)
{
    EXPECT_EQ(grid->row(), 0);
    fill(1);
    EXPECT_EQ(grid->row(), 0);
    fill(4);
    EXPECT_EQ(grid->row(), 1);
    grid->setRow(3);
    grid->setCols(3);
    EXPECT_EQ(grid->row(), 1);
    EXPECT_EQ(picks, 0);
}

TEST_F(GridTest, AHiddenColumnHoldsItsTexts)
{
    fill(40);
    grid->setRow(2);
    grid->setColWidth(0, 0);
    EXPECT_TRUE(grid->isColumnHidden(0));
    EXPECT_EQ(grid->row(), 2);
    EXPECT_EQ(grid->textMatrix(2, 0), "2,0");
    Focus::setTo(grid);
    QTest::keyClick(grid, Qt::Key_Down);
    EXPECT_EQ(grid->row(), 3);
    grid->setRow(39);
    EXPECT_TRUE(grid->viewport()->rect().contains(grid->visualRect(grid->currentIndex()).center()));
    grid->setColWidth(0, 50);
    EXPECT_FALSE(grid->isColumnHidden(0));
}

TEST_F(GridTest, ASourceIsAskedForTheRowsThatAreSeen)
{
    grid->setCols(2);
    QList<int> asked;
    grid->fill(1000001, [&](int row) {
        asked << row;
        return QStringList{QString::number(row), "x"};
    });
    grid->setTextMatrix(0, 0, "Nº");
    QCoreApplication::processEvents();
    EXPECT_EQ(grid->rows(), 1000001);
    EXPECT_EQ(grid->row(), 1);
    EXPECT_EQ(picks, 0);
    EXPECT_LT(asked.size(), 200);
    EXPECT_FALSE(asked.contains(0));

    EXPECT_EQ(grid->textMatrix(1000000, 0), "1000000");
    EXPECT_EQ(grid->textMatrix(1000000, 1), "x");
    EXPECT_EQ(asked.count(1000000), 1);
    EXPECT_EQ(grid->textMatrix(0, 0), "Nº");

    grid->fill(2, [](int) { return QStringList{"y"}; });
    EXPECT_EQ(grid->textMatrix(1, 0), "y");
    EXPECT_EQ(grid->textMatrix(1, 1), "");
    EXPECT_EQ(grid->textMatrix(0, 0), "Nº");
}

TEST_F(GridTest, TabGoesOnToTheNextField)
{
    fill(3);
    Focus::setTo(grid);
    QTest::keyClick(grid, Qt::Key_Tab);
    EXPECT_FALSE(grid->hasFocus());
}

TEST_F(GridTest, AHundredThousandRowsAreLaidOutOnce)
{
    const QSignalSpy inserted(grid->model(), &QAbstractItemModel::rowsInserted);
    const QSignalSpy changed(grid->model(), &QAbstractItemModel::dataChanged);
    const QSignalSpy begun(grid->model(), &QAbstractItemModel::modelReset);
    fill(100001);
    EXPECT_EQ(grid->textMatrix(100000, 1), "100000,1");
    EXPECT_EQ(inserted.count(), 1);
    EXPECT_EQ(changed.count(), 200000) << "each cell is told by itself, and once";
    EXPECT_EQ(begun.count(), 1) << "of the columns, before there were rows";
}

TEST_F(GridTest, TellsInAToolTipATextThatItsColumnCuts)
{
    grid->setRows(2);
    grid->setColumns({{"Nome", 60}, {"D. Nasc.", 60}, {"Obs."}});
    const auto tip = [this](int col) { return grid->model()->index(0, col).data(Qt::ToolTipRole).toString(); };
    const QString name = "Maria Josefa da Conceição de Sousa e Vasconcelos";
    grid->setTextMatrix(1, 0, name);
    grid->setTextMatrix(1, 1, "Ana");
    EXPECT_EQ(tip(0), name);
    EXPECT_EQ(tip(1), "");
    EXPECT_EQ(tip(2), "");
    grid->setColWidth(0, grid->fontMetrics().horizontalAdvance(name) + 20);
    EXPECT_EQ(tip(0), "");
    grid->setTextMatrix(1, 1, "31/12/1751 ou 1752");
    EXPECT_EQ(tip(1), "31/12/1751 ou 1752");
}

TEST_F(GridTest, TellsInAToolTipATitleThatItsColumnCuts)
{
    grid->setRows(2);
    grid->setColumns({{"Manuel de Abreu e Lima (nº 85)", 90}, {"Vale"}});
    QCoreApplication::processEvents();
    const auto tip = [&](int column) {
        return grid->model()->headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString();
    };
    EXPECT_EQ(tip(0), "Manuel de Abreu e Lima (nº 85)");
    EXPECT_EQ(tip(1), "");
}

TEST_F(GridTest, StandsNumbersToTheRightAndCodesToTheLeft)
{
    grid->setRows(4);
    grid->setColumns({{"Nº"}, {"Nome"}, {"Código"}, {"Idade"}});
    const QList<QStringList> rows{{"12", "Ana", "0303", ""}, {"7", "1750", "1301", "30"}, {"", "Rui", "", "4,5"}};
    for (int row = 1; row < 4; ++row)
        for (int col = 0; col < 4; ++col)
            grid->setTextMatrix(row, col, rows[row - 1][col]);
    const auto right = [&](int col) {
        const auto at = [&](const QVariant& alignment) { return bool(alignment.toInt() & Qt::AlignRight); };
        const bool heading = at(grid->model()->headerData(col, Qt::Horizontal, Qt::TextAlignmentRole));
        for (int row = 0; row < 3; ++row)
            EXPECT_EQ(at(grid->model()->index(row, col).data(Qt::TextAlignmentRole)), heading);
        return heading;
    };
    EXPECT_TRUE(right(0));
    EXPECT_FALSE(right(1));
    EXPECT_FALSE(right(2));
    EXPECT_TRUE(right(3)) << "the first cell is empty";
}

TEST_F(GridTest, TellsAScreenReaderTheTitleOfEachColumnAndTheTextOfEachCell)
{
    grid->setRows(2);
    grid->setColumns({{"Nome"}, {"Data"}});
    grid->setTextMatrix(1, 1, "12/4/1732");
    auto* table = QAccessible::queryAccessibleInterface(grid)->tableInterface();
    ASSERT_TRUE(table);
    EXPECT_EQ(table->columnDescription(1), "Data");
    auto* cell = table->cellAt(0, 1);
    EXPECT_EQ(cell->text(QAccessible::Name), "12/4/1732");
    const auto headings = cell->tableCellInterface()->columnHeaderCells();
    ASSERT_EQ(headings.size(), 1);
    EXPECT_EQ(headings.first()->text(QAccessible::Name), "Data");
    // The toolkit makes a heading anew at each call and leaves it to the caller.
    QAccessible::deleteAccessibleInterface(QAccessible::registerAccessibleInterface(headings.first()));
}
