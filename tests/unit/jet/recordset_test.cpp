#include "jet/testbdp.h"

#include <QDate>

namespace jet::test {

namespace {

class ARecordset : public TestBdp
{
protected:
    ARecordset()
    {
        run("create table pessoa (nind double not null, nome varchar(60), datanasc date, viva bit, obs memo, "
            "constraint PKp primary key (nind))");
        run("insert into pessoa (nind, nome, datanasc, viva) values (3, 'Zulmira', #03/12/1750#, true)");
        run("insert into pessoa (nind, nome) values (1, 'Ana')");
        run("insert into pessoa (nind, nome, viva) values (2, 'Álvaro', 0)");
    }
};

} // namespace

TEST_F(ARecordset, GivesRowsInTheOrderOfEntry)
{
    EXPECT_EQ(rows("select nind, nome, datanasc, viva from pessoa"),
              u"3|Zulmira|12/03/1750|sim 1|Ana|-|- 2|Álvaro|-|não");
}

TEST_F(ARecordset, GivesRowsInTheOrderAskedFor)
{
    EXPECT_EQ(rows("select nind from pessoa order by nind"), u"1 2 3");
    EXPECT_EQ(rows("select nind from pessoa order by nome"), u"2 1 3");
}

TEST_F(ARecordset, AddsARowAndMakesItTheCurrentOne)
{
    Recordset set = select("select * from pessoa");
    set.addNew();
    set.set("nind", 4);
    set.set("nome", "D'Ávila");
    set.set("datanasc", "31/12/1699");
    set.update();
    EXPECT_EQ(set.recordCount(), 4);
    EXPECT_EQ(set.absolutePosition(), 4);
    EXPECT_EQ(set["nome"].toString(), "D'Ávila");
    EXPECT_EQ(set["DATANASC"].toDate(), QDate(1699, 12, 31));
}

} // namespace jet::test
