// What the engine goes through for a search.
#include "platform/jet/dialect.h"

#include "jet/searches.h"
#include "jet/testbdp.h"

#include <sqlite3.h>

namespace jet::test {

// How many steps the engine takes among four thousand people. To go through them takes several for each.
class TheCostOfASearch : public ParishBdp
{
protected:
    TheCostOfASearch()
    {
        bdp.beginTrans();
        for (int i = 1; i <= inhabitants; ++i)
            bdp.execute(NativeSql(
                "insert into individuo (nind, nome, sexo, famorig, datanasc) values (?, ?, ?, ?, ?)",
                {100 + i, QString("Ana %1").arg(i), i % 2 ? "m" : "f", 100 + i / 4, QDate(1600, 1, 1).addDays(i)}));
        for (int i = 1; i <= inhabitants / 4; ++i) {
            bdp.execute(NativeSql("insert into familia (nfamilia, datacasam) values (?, ?)",
                                  {100 + i, QDate(1600, 1, 1).addDays(i)}));
            for (int spouse : {2 * i - 1, 2 * i})
                bdp.execute(NativeSql("insert into familias (nfamilia, nind) values (?, ?)", {100 + i, 100 + spouse}));
        }
        bdp.commitTrans();
    }

    int steps(const QString& statement)
    {
        const QByteArray sql = translate(statement, bdp.handle()).toUtf8();
        sqlite3_stmt* prepared = nullptr;
        EXPECT_EQ(sqlite3_prepare_v2(bdp.handle(), sql.constData(), -1, &prepared, nullptr), SQLITE_OK);
        int found = 0;
        while (sqlite3_step(prepared) == SQLITE_ROW)
            ++found;
        EXPECT_GT(found, 0) << sql.toStdString();
        const int steps = sqlite3_stmt_status(prepared, SQLITE_STMTSTATUS_VM_STEP, 0);
        sqlite3_finalize(prepared);
        return steps;
    }

    static constexpr int inhabitants = 4000;
};

TEST_F(TheCostOfASearch, IsThatOfTheRowsItFinds)
{
    const auto march = [](const QString& search, const QString& having, const QString& order) {
        return search + " group by " + having + " between #03/01/1600# and #03/31/1600# order by " + order;
    };
    const QString family = "select nfamilia , tipocasal, datacasam  from familia where  nfamilia in (select nfamilia "
                           "from familias where nind in (select nind from individuo where sexo = 'm' and nome like ";
    const QStringList searches{
        people + "individuo.nome like 'Ana 123%' order by nome",
        people + "individuo.nome like 'Ana 1235' order by nome",
        people + "individuo.nome like 'Ana 12%' and individuo.sexo = 'm' order by nome",
        family + "'Ana 123%')) order by datacasam",
        march(marriages, "individuo.nind, nome, datanasc, dataobito,  famorig having first(datacasam)", "nome"),
        march(marriages + "and individuo.sexo = 'f'", "individuo.nind, nome having first(datacasam)", "nome"),
        march(parents, "individuo.nind, individuo.nome having min(filho.datanasc)", "individuo.nome"),
        march(couples, "familia.nfamilia , tipocasal, datacasam  having min(filho.datanasc)", "familia.nfamilia")};
    for (const QString& search : searches)
        EXPECT_LT(steps(search), 2 * inhabitants) << search.toStdString();
}

// Of parents with an elder child, the first one that is met tells; the others aren't read.
TEST_F(TheCostOfASearch, ByTheFirstChildLeavesTheOtherChildrenUnread)
{
    const auto born = [&](int child, int family, const QDate& date) {
        bdp.execute(NativeSql("insert into individuo (nind, nome, famorig, datanasc) values (?, 'Zita', ?, ?)",
                              {child, family, date}));
    };
    bdp.beginTrans();
    bdp.execute(NativeSql("insert into familias (nfamilia, nind) values (1, 101), (2, 101), (3, 103)"));
    for (int i = 0; i < inhabitants; ++i)
        born(10000 + i, 2, QDate(1700, 1, 1).addDays(i));
    born(9000, 3, QDate(1710, 1, 1));
    bdp.commitTrans();
    EXPECT_LT(steps(parents + " and individuo.nind = familias.nind group by individuo.nind, individuo.nome having "
                              "min(filho.datanasc) = #01/01/1710# order by individuo.nome"),
              inhabitants);
}

// A spouse is looked for among the people, once, and not among the spouses of all families.
TEST_F(TheCostOfASearch, ForFamiliesByAnyPartOfANameIsThatOfTheSearchForPeople)
{
    const int ofPeople = steps("select nind from individuo where sexo = 'm' and nome like '%123%'");
    EXPECT_LT(steps("select nfamilia , tipocasal, datacasam  from familia where  nfamilia in (select nfamilia from "
                    "familias where nind in (select nind from individuo where sexo = 'm' and nome like '%123%')) "
                    "order by datacasam"),
              ofPeople * 3 / 2);
}

} // namespace jet::test
