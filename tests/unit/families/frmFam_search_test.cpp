// The search for couples, also in a file whose families are crowds.
#include "families/frmFam.h"

#include "common/splashForm.h"
#include "control.h"
#include "inputs/dice.h"
#include "store/parish.h"
#include "views/frmResult.h"

#include <sqlite3.h>

TEST_F(Parish, IsSearchedForCouplesWithWildcardsWithoutTryingEveryPair)
{
    const auto fill = [](const char* sql) {
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open(cnBDP.dataSource().toUtf8(), &database), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(database);
        sqlite3_close(database);
    };
    fill("insert into familia (nfamilia) values (1), (2);"
         "with recursive n (x) as (select 1 union all select x + 1 from n limit 20000) "
         "insert into individuo (nind, nome, sexo) select x, 'Ana', iif(x % 2, 'm', 'f') from n;"
         "insert into familias (nfamilia, nind) select 1, nind from individuo;"
         "insert into familias (nfamilia, nind) values (2, 1)");
    Forms::add(FrmFam::Name, [] { return new FrmFam; });
    Forms::add("frmResult", [] { return new FrmResult; });
    Forms::show(FrmFam::Name);
    bool ended = false;
    cnBDP.onLongStatement(
        [&](std::chrono::milliseconds elapsed) {
            ended = elapsed > std::chrono::seconds(5);
            return !ended;
        },
        {});
    control<CommandButton>(frmFam(), "cmdLoc").click();
    control<TextBox>(frmFam(), "txtPnome").setText("%");
    control<TextBox>(frmFam(), "txtSnome").setText("%a%");
    control<CommandButton>(frmFam(), "cmdLoc").click();
    cnBDP.onLongStatement({}, {});
    EXPECT_FALSE(ended);
    EXPECT_EQ(frmFam().numero(), "1");
}

// The families of the statement that looks at a man and a woman of a family at once, in any file.
TEST_F(Parish, IsSearchedForCouplesAsPairByPair)
{
    Dice dice(1);
    const QStringList names{"Ana", "ana", "Ávila", "ávila", "José", "josé da Silva", "Sousa", "%", "A_a"};
    const QList<QVariant> people{1, 2, 2.5, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}, families{1, 2, 3, 4.5, 5, 6, 7, 8};
    const auto execute = [](const char* sql, const QVariantList& values) {
        cnBDP.execute(jet::NativeSql(sql, values));
    };
    for (qsizetype i = people.size() - 1; i > 0; --i)
        execute("insert into individuo (nind, nome, sexo) values (?, ?, ?)",
                {people[i], dice.among(names), dice.among(QStringList{"m", "f", "d"})});
    for (qsizetype i = families.size() - 1; i > 0; --i)
        execute("insert into familia (nfamilia, datacasam) values (?, ?)",
                {families[i], dice.oneIn(2) ? QVariant() : QDate(1700, 1, 1 + dice.below(2))});
    for (int i = 0; i < 30; ++i)
        execute("insert or ignore into familias (nfamilia, nind) values (?, ?)",
                {dice.among(families), dice.among(people)});

    Forms::add(FrmFam::Name, [] { return new FrmFam; });
    Forms::add("frmResult", [] { return new FrmResult; });
    Forms::show(FrmFam::Name);
    int found = 0;
    for (const QString& man : names + QStringList{"", "Jos%", "%silva%", "s%"})
        for (const QString& woman : names + QStringList{"", "á%", "%a", "x"}) {
            const char* half =
                "select familias.nfamilia from individuo, familias where individuo.nind = familias.nind ";
            const QString ofMan = QString(half) + "and sexo = 'm' and nome like '" + man + "'",
                          ofWoman = QString(half) + "and sexo = 'f' and nome like '" + woman + "'",
                          ofBoth = "select famPai.nfamilia from individuo as mae inner join familias as famPai on "
                                   "mae.nind = famPai.nind, individuo as pai inner join familias as famMae on pai.nind "
                                   "= famMae.nind where famPai.nfamilia = famMae.nfamilia and pai.nind <> mae.nind and "
                                   "pai.sexo = 'm' and mae.sexo = 'f' and pai.nome like '" +
                                   man + "' and mae.nome like '" + woman + "'";
            if (man.isEmpty() && woman.isEmpty()) continue;
            jet::Recordset plain(cnBDP, jet::NativeSql("select nfamilia, datacasam from familia where nfamilia in (" +
                                                       (woman.isEmpty() ? ofMan : (man.isEmpty() ? ofWoman : ofBoth)) +
                                                       ") order by datacasam"));
            QStringList expected, shown;
            for (; !plain.eof(); plain.moveNext())
                expected << plain["nfamilia"].toString();
            if (expected.isEmpty()) continue;
            control<CommandButton>(frmFam(), "cmdLoc").click();
            control<TextBox>(frmFam(), "txtPnome").setText(man);
            control<TextBox>(frmFam(), "txtSnome").setText(woman);
            control<CommandButton>(frmFam(), "cmdLoc").click();
            const auto& list = control<Grid>(frmResult(), "dtgProf");
            for (int row = 1; row < list.rows(); ++row)
                shown << list.textMatrix(row, 0);
            EXPECT_EQ(shown.join(' '), expected.join(' ')) << qPrintable(man + " and " + woman);
            found += int(shown.size());
            control<CommandButton>(frmResult(), "cmdFechar").click();
            control<CommandButton>(frmFam(), "cmdIns").click();
        }
    EXPECT_GT(found, 50);
}
