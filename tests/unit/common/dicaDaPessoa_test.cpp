#include "common/dicaDaPessoa.h"

#include "forms/house.h"
#include "platform/jet/database.h"
#include "store/session.h"

#include <QHelpEvent>
#include <QTemporaryDir>

namespace {

class PersonTip : public House
{
protected:
    PersonTip()
    {
        jet::createDatabase(folder.filePath("a.orv"));
        cnBDP.open(folder.filePath("a.orv"));
        cnBDP.execute("create table individuo (nind double, nome varchar(255), datanasc date, inicioobs date, "
                      "dataobito date, fimobs date)");
        cnBDP.execute("insert into individuo values (7, 'Ana', #03/09/1750#, null, null, #12/24/1801#)");
        make("frmA", [this](TestForm& form) {
            number = form.put<TextBox>("txtNind");
            grid = form.put<Grid>("dtgLeg");
        })->display();
    }
    ~PersonTip() override { cnBDP.close(); }

    static QString tip(QWidget* where, const QPoint& point)
    {
        QHelpEvent event(QEvent::ToolTip, point, where->mapToGlobal(point));
        QCoreApplication::sendEvent(where, &event);
        return where->toolTip();
    }
    QString tip() const { return tip(number, {2, 2}); }

    QTemporaryDir folder;
    TextBox* number = nullptr;
    Grid* grid = nullptr;
};

} // namespace

TEST_F(PersonTip, TellsNameAndDatesOfTheNumberInAField)
{
    mostraPessoaNaDica(number);
    EXPECT_EQ(tip(), "");
    number->setText("7");
    EXPECT_EQ(tip(), "Ana  DN: 09/03/1750  FO: 24/12/1801");
    cnBDP.execute("update individuo set nome = 'Ana Maria'");
    EXPECT_EQ(tip(), "Ana Maria  DN: 09/03/1750  FO: 24/12/1801") << "as it is stored by now";
    number->setText("8");
    EXPECT_EQ(tip(), "") << "nobody has it";
    number->setText("7 or 1 = 1");
    EXPECT_EQ(tip(), "");
}

TEST_F(PersonTip, TellsNothingWithoutABdp)
{
    mostraPessoaNaDica(number);
    number->setText("7");
    cnBDP.close();
    EXPECT_EQ(tip(), "") << "and no box comes up";
}

TEST_F(PersonTip, TellsThoseOfOneColumnOfAGrid)
{
    grid->setRows(2);
    grid->setColumns({{"idleg"}, {"Herdeiro"}});
    grid->setTextMatrix(1, 0, "7");
    grid->setTextMatrix(1, 1, "7");
    mostraPessoaNaDica(grid, 1);
    QCoreApplication::processEvents();
    const auto at = [&](int column) {
        return tip(grid->viewport(), grid->visualRect(grid->model()->index(0, column)).center());
    };
    EXPECT_EQ(at(1), "Ana  DN: 09/03/1750  FO: 24/12/1801");
    EXPECT_EQ(at(0), "");
}
