// The search for couples in a file whose families are crowds.
#include "families/frmFam.h"

#include "common/splashForm.h"
#include "control.h"
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
