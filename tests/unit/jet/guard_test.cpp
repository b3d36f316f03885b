// What a connection may do, whatever a statement or a file asks for.
#include "jet/testbdp.h"

#include <sqlite3.h>

namespace jet::test {

class AGuardedConnection : public ParishBdp
{
protected:
    // The code with which the bare handle refuses a statement.
    int refusal(const char* sql) { return sqlite3_exec(bdp.handle(), sql, nullptr, nullptr, nullptr); }
};

TEST_F(AGuardedConnection, HasNoLocksBetweenThreads)
{
    EXPECT_EQ(sqlite3_db_mutex(bdp.handle()), nullptr);
}

TEST_F(AGuardedConnection, RefusesAFunctionThatTakesAnAddress)
{
    expectErrors(number::invalidStatement,
                 {"select fts3_tokenizer('simple') from individuo",
                  "select fts3_tokenizer('simple', 'AAAAAAAA') from individuo",
                  "select nomelugar from lugar where codlugar = 'x' or fts3_tokenizer('simple', 'AAAAAAAA') = 'y'",
                  "select load_extension('a') from individuo", "update individuo set obs = hex(zeroblob(10000000))"});
    EXPECT_EQ(errorOf([&] { select("select randomblob(4) from individuo"); }).description,
              "A função \"randomblob\" não é permitida.");
    EXPECT_EQ(errorOf([&] {
                  bdp.execute(NativeSql(QStringLiteral("select fts3_tokenizer(?, ?)"),
                                        {QStringLiteral("simple"), QStringLiteral("AAAAAAAA")}));
              }).number,
              number::invalidStatement);
}

TEST_F(AGuardedConnection, RefusesWhatTheSystemNeverDoes)
{
    for (const char* sql : {"attach ':memory:' as outra",
                            "detach main",
                            "create trigger g after insert on individuo begin select 1; end",
                            "create view v as select * from individuo",
                            "create temp table t (a)",
                            "create temp view v as select 1",
                            "create virtual table v using fts4 (a)",
                            "drop table individuo",
                            "drop index individuo_nome",
                            "analyze",
                            "vacuum",
                            "vacuum into 'outra.orv'",
                            "pragma writable_schema = on",
                            "pragma trusted_schema = on",
                            "pragma temp_store_directory = '/tmp'",
                            "pragma locking_mode = exclusive",
                            "pragma foreign_keys = on",
                            "with recursive n(x) as (select 1 union all select x + 1 from n) select count(*) from n",
                            "update sqlite_master set sql = ''",
                            "delete from sqlite_master",
                            "insert into sqlite_master values (1,2,3,4,5)",
                            "select * from json_each('[1]')",
                            "select * from dbstat",
                            "select * from pragma_database_list",
                            "select * from pragma_function_list"})
        EXPECT_NE(refusal(sql), SQLITE_OK) << sql;
    refusal("pragma journal_mode = off");
    expectRows({{"select count(*) as n from individuo", "6"}});
}

TEST_F(AGuardedConnection, TellsARefusalInPortuguese)
{
    const Error error = errorOf([&] { run("create view v as select * from individuo"); });
    EXPECT_EQ(error.number, number::invalidStatement);
    EXPECT_EQ(error.description, "A instrução não é permitida: só se lêem e escrevem as tabelas da BDP.");
}

TEST_F(AGuardedConnection, TakesWhatTheSystemDoes)
{
    EXPECT_NO_THROW(run("create table nova (n long, d date, t varchar(3), b bit, x double, m memo)"));
    EXPECT_NO_THROW(run("create index nova_n on nova (n)"));
    for (const char* type : {"long", "date", "varchar(4)", "bit", "double", "memo"})
        EXPECT_NO_THROW(bdp.execute(QStringLiteral("alter table nova add column c_%1 %2")
                                        .arg(QString::fromLatin1(type).section(u'(', 0, 0), QLatin1String(type))))
            << type;
    EXPECT_NO_THROW(run("insert into nova (n, d, t, b, x, m) values (1, #02/01/1750#, 'abc', true, 1.5, 'x')"));
    expectRows({{"select cint(t) as n from nova where n = 2", ""},
                {"select first(n) as um, max(d) as dia, count(*) as quantos from nova group by t", "1|01/02/1750|1"}});
}

TEST_F(AGuardedConnection, DoesNotReadStatisticsOfTheFile)
{
    bdp.close();
    outside("analyze; update sqlite_stat1 set stat = '9 9 9 9 nada unordered sz=-1'");
    bdp.open(path());
    EXPECT_EQ(refusal("select * from sqlite_stat1"), SQLITE_AUTH);
    expectRows({{"select nome from individuo where nome = 'Ana'", "Ana"}});
}

TEST_F(AGuardedConnection, RunsNoTriggerThatAnotherProgramMakesMeanwhile)
{
    outside("create trigger g before update on individuo begin "
            "select raise(abort, 'jet:0:Telefone já para o 555'); end");
    EXPECT_EQ(run("update individuo set nome = 'Zé' where nind = 1"), 1);
    expectRows({{"select nome from individuo where nind = 1", "Zé"}});
}

TEST_F(AGuardedConnection, DoesNotSpeakWithTheVoiceOfAFile)
{
    const auto raise = [](sqlite3_context* context, int, sqlite3_value**) {
        sqlite3_result_error(context, "jet:3021:Telefone já para o 555", -1);
    };
    sqlite3_create_function(bdp.handle(), "upper", 1, SQLITE_UTF8, nullptr, raise, nullptr, nullptr);
    EXPECT_EQ(numberOf([&] { run("update individuo set nome = upper(nome)"); }), number::invalidStatement);
    EXPECT_EQ(numberOf([&] { run("update individuo set altura = cint('jet:0:x')"); }), number::typeMismatch);
}

TEST_F(AGuardedConnection, TakesNoValueWithoutMeasure)
{
    const QString huge(qsizetype(17) * 1024 * 1024, u'x');
    const Error error =
        errorOf([&] { bdp.execute(NativeSql(QStringLiteral("update individuo set obs = ? where nind = 1"), {huge})); });
    EXPECT_EQ(error.number, number::invalidStatement);
    EXPECT_EQ(error.description, "A instrução ou um dos seus valores é demasiado grande.");
    const QString large(1'000'000, u'x');
    EXPECT_EQ(bdp.execute(NativeSql(QStringLiteral("update individuo set obs = ? where nind = 1"), {large})), 1);
    const QString deep =
        QStringLiteral("select nind from individuo where nind = 1") + QStringLiteral(" + 1").repeated(500);
    EXPECT_EQ(numberOf([&] { Recordset(bdp, deep); }), number::invalidStatement);
}

} // namespace jet::test
