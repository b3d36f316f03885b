#include "platform/jet/wordings.h"

#include "jet/testbdp.h"

#include <sqlite3.h>

#include <QRegularExpression>

using namespace jet;

namespace {

// A word that the engine's messages are made of, and that no Portuguese text or name of a test holds.
const QRegularExpression& english()
{
    static const QRegularExpression words(
        QStringLiteral("\\b(the|no such|not|cannot|too many|already|error|near|syntax|failed|table|column|function|"
                       "malformed|database|disk|unable|wrong|number of|must|may|with|without|constraint|misuse|"
                       "unknown|unsupported|statement|value|values|terms|large|string|big|index|of|result|set|"
                       "subqueries|parameters|expressions|functions)\\b"));
    return words;
}

// What the engine itself says of a statement on an empty database, and the description made of it.
QPair<QString, QString> refusalOf(sqlite3* engine, const QString& sql)
{
    char* message = nullptr;
    const int code = sqlite3_exec(engine, sql.toUtf8().constData(), nullptr, nullptr, &message);
    const QString said = QString::fromUtf8(message);
    sqlite3_free(message);
    EXPECT_NE(code, SQLITE_OK) << sql.toStdString();
    return {said, statementDescription(said, code, "x.orv")};
}

} // namespace

TEST(AMessageOfTheEngine, IsToldInPortugueseForEveryRefusalOfAStatement)
{
    sqlite3* engine = nullptr;
    ASSERT_EQ(sqlite3_open(":memory:", &engine), SQLITE_OK);
    sqlite3_exec(engine,
                 "create table aa (a integer primary key, b text, c text generated always as (b || 'x'));"
                 "insert into aa (b) values ('1');"
                 "create table bb (a, b); create view vv as select * from aa; create index ii on bb (b);"
                 "create trigger gg after insert on bb begin select 1; end",
                 nullptr, nullptr, nullptr);
    QStringList statements{"select * from zz",
                           "select z from aa",
                           "select a from aa, bb",
                           "insert into aa (z) values (1)",
                           "create table aa (a)",
                           "create view vv as select 1",
                           "create index ii on bb (a)",
                           "create trigger gg after insert on bb begin select 1; end",
                           "drop index zz",
                           "drop view zz",
                           "drop trigger zz",
                           "selec 1",
                           "select 'x",
                           "select",
                           "select *",
                           "select * from",
                           "select zz(1)",
                           "select abs(1, 2)",
                           "select sum(sum(a)) from aa",
                           "select 1 where sum(1) > 1",
                           "select (1, 2)",
                           "insert into bb values (1, 2, 3)",
                           "insert into bb (a, b) values (1)",
                           "select 1 in (select 1, 2)",
                           "select (select 1, 2)",
                           "select 1 union select 1, 2",
                           "values (1), (1, 2)",
                           "select 1 order by 3",
                           "select 1 group by 3",
                           "select 1 union select 2 order by a",
                           "select * from aa natural join bb on 1",
                           "select * from aa join bb using (z)",
                           "select * from aa left natural outer inner join bb",
                           "update aa set c = 1",
                           "insert into aa (c) values (1)",
                           "update vv set a = 1",
                           "insert into vv values (1)",
                           "delete from vv",
                           "drop table vv",
                           "drop view aa",
                           "drop table sqlite_master",
                           "alter table sqlite_master add column a",
                           "create table sqlite_x (a)",
                           "alter table vv add column a",
                           "alter table aa add column d unique",
                           "alter table aa add column d primary key",
                           "alter table aa add column d not null",
                           "alter table aa add column d default (random())",
                           "alter table aa add column b",
                           "alter table bb drop column b",
                           "alter table aa drop column a",
                           "alter table zz add column a",
                           "alter table aa rename to bb",
                           "create table t (a primary key, b primary key)",
                           "create table t (a text primary key autoincrement)",
                           "create table t (a) without rowid",
                           "create table t (a, a)",
                           "create table t (a as (1))",
                           "create table t (a check (zz > 1))",
                           "create table t (a check (a > (select 1)))",
                           "create table t (a check (a > ?1))",
                           "create table t (a default (b))",
                           "create index jj on zz (a)",
                           "create index jj on vv (a)",
                           "create index jj on bb (random())",
                           "create index jj on bb ((select 1))",
                           "create index jj on bb (a) where b = ?1",
                           "create virtual table t using zz",
                           "create table t (a collate zz primary key)",
                           "select 'a' = 'b' collate zz",
                           "select * from zz.aa",
                           "attach 'x' as main",
                           "detach zz",
                           "begin; begin",
                           "rollback",
                           "commit; commit",
                           "release zz",
                           "vacuum into 3",
                           "pragma zz.table_info(aa)",
                           "select load_extension('x')",
                           "select * from aa, (select * from zz)",
                           "with t as (select * from t) select * from t",
                           "with t as (select 1), t as (select 2) select 1",
                           "select ?99999999",
                           "select 0x11111111111111111",
                           "select abs(-9223372036854775807 - 1)",
                           "select 'a' like 'b' escape 'cc'",
                           "select zeroblob(2000000000)",
                           "create trigger hh instead of insert on aa begin select 1; end",
                           "select row_number()",
                           "select sum(1) over zz",
                           "select max(1) filter (where 1) from aa where max(1)",
                           "reindex zz",
                           "select raise(abort, 'x')",
                           "update aa set (a, b) = (1, 2, 3)",
                           "select a from aa limit (select a, b from aa)",
                           "select json('x')"};
    QString deep = "1", many = "select 1", wide = "1", joined = "aa", parts = "select 1";
    for (int i = 0; i < 3000; ++i) {
        deep = "(" + deep + "+1)";
        if (i < 600) parts += " union all select 1";
        wide += ", 1";
        if (i < 70) joined += ", aa as t" + QString::number(i);
    }
    const QString columns = QString("a, ").repeated(3000) + "a", changes = QString("a = 1, ").repeated(3000) + "a = 1";
    statements << "create index jj on bb (" + columns + ")"
               << "update bb set " + changes;
    statements << "select " + deep << "select " + wide << "select 1 from " + joined << parts;
    for (const QString& sql : statements) {
        sqlite3_exec(engine, "rollback", nullptr, nullptr, nullptr);
        const auto [said, told] = refusalOf(engine, sql);
        EXPECT_FALSE(told.contains("(erro ")) << sql.left(80).toStdString() << "\n  " << said.toStdString();
        EXPECT_FALSE(told.contains(english())) << sql.left(80).toStdString() << "\n  " << told.toStdString();
        EXPECT_TRUE(told.endsWith(u'.')) << told.toStdString();
    }
    sqlite3_close(engine);
}

TEST(AMessageOfTheEngine, ThatIsNotKnownIsToldByItsCode)
{
    EXPECT_EQ(statementDescription("something went terribly wrong", 1, "x.orv"),
              "O motor da base de dados recusou a instrução (erro 1).");
    EXPECT_EQ(constraintDescription("vtab failed", SQLITE_CONSTRAINT_VTAB),
              "O valor não é aceite pela base de dados (erro 2323).");
}

TEST(AMessageOfTheEngine, HasItsNamesAsTheyStand)
{
    EXPECT_EQ(statementDescription("no such table: %2 %1", 1, "x.orv"),
              "A tabela \"%2 %1\" não existe na BDP \"x.orv\".");
    EXPECT_EQ(statementDescription("malformed database schema (aa) - invalid rootpage", 1, "x.orv"),
              "A estrutura da BDP \"x.orv\" está danificada, em \"aa\".");
    EXPECT_EQ(statementDescription("error in view vv after rename: no such table: main.zz", 1, "x.orv"),
              "A alteração não é possível por causa de \"vv\": A tabela \"main.zz\" não existe na BDP \"x.orv\".");
}

TEST(AMessageOfTheEngine, HasAPatternThatCanBeRead)
{
    for (int i = 0; i < knownMessages(); ++i)
        EXPECT_TRUE(QRegularExpression(QString::fromUtf8(knownMessage(i))).isValid()) << knownMessage(i);
}
