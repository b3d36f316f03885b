#include "platform/jet/dialect.h"

#include "jet/testbdp.h"

#include <QDate>

#include <sqlite3.h>

namespace jet::test {

class TheDialect : public ParishBdp
{
protected:
    std::string value(const char* expression)
    {
        return rows((std::string("select ") + expression + " from infopar").c_str());
    }
    long refusal(const char* statement)
    {
        return numberOf([&] { run(statement); });
    }
};

TEST_F(TheDialect, ReadsADateLiteralMonthFirst)
{
    EXPECT_EQ(value("#03/05/1750#"), "05/03/1750");
    EXPECT_EQ(value("#3/5/1750#"), "05/03/1750");
    EXPECT_EQ(value("# 03/05/1750 #"), "05/03/1750");
    EXPECT_EQ(value("#1750-03-05#"), "05/03/1750");
    EXPECT_EQ(value("#12/31/9999#"), "31/12/9999");
    EXPECT_EQ(value("#01/01/0100#"), "01/01/0100");
}

TEST_F(TheDialect, ReadsADateLiteralDayFirstWhereItIsNoDateMonthFirst)
{
    EXPECT_EQ(value("#31/01/1750#"), "31/01/1750");
    EXPECT_EQ(value("#13/02/1750#"), "13/02/1750");
}

TEST_F(TheDialect, RunsNothingWithADateLiteralThatIsNoDate)
{
    for (const char* date : {"31/02/1750", "29/02/1700", "00/01/1750", "01/01/0099", "01/01/50", "__/__/____", "", "x"})
    {
        const std::string statement = std::string("update familia set datacasam = #") + date + "#";
        EXPECT_EQ(refusal(statement.c_str()), number::invalidStatement) << date;
    }
    EXPECT_EQ(rows("select datacasam from familia where nfamilia = 1"), "01/02/1745");
}

TEST_F(TheDialect, ReadsAJoinWithinAJoinWithoutATemporaryTable)
{
    run("insert into familias (nfamilia, nind) values (99, 4)"); // of a family that has no row
    const auto sql = [&](const QString& within, const QString& on) {
        return translate("select individuo.nind, familias.nfamilia, sfamilia from individuo left join (" + within +
                             ") on " + on + " order by individuo.nind",
                         bdp.handle());
    };
    const QString onFamily = "familia right join familias on [familia].[nfamilia] =[familias].[nfamilia]";
    const QString onPerson = "individuo.nind = familias.nind";
    EXPECT_FALSE(sql(onFamily, onPerson).contains('('));
    const QString select = "select individuo.nind, familias.nfamilia, sfamilia from individuo left join (" + onFamily +
                           ") on " + onPerson + " order by individuo.nind";
    EXPECT_EQ(rows(select.toUtf8()), "1|1|1 2|1|1 3|2|2 4|99|- 5|2|2 6|3|1");
    // Others mean something else.
    EXPECT_TRUE(sql("familia inner join familias on familia.nfamilia = familias.nfamilia", onPerson).contains('('));
    EXPECT_TRUE(sql(onFamily, "individuo.famorig = familia.nfamilia").contains('('));
    EXPECT_TRUE(sql(onFamily, onPerson + " and sfamilia is null").contains('('));
    EXPECT_TRUE(sql("familia right join familias on familias.nfamilia = familias.nfamilia", onPerson).contains('('));
}

TEST_F(TheDialect, LeavesWhatStandsInATextAlone)
{
    EXPECT_EQ(value("'#01/02/1750# [a] \"b\" ; -- true'"), "#01/02/1750# [a] \"b\" ; -- true");
    EXPECT_EQ(value("'D''Ávila'"), "D'Ávila");
    EXPECT_EQ(value("\"D'Ávila\""), "D'Ávila");
}

TEST_F(TheDialect, FormatsDates)
{
    EXPECT_EQ(value("format(#03/05/1750#, 'mm/dd/yyyy')"), "03/05/1750");
    EXPECT_EQ(value("Format(#03/05/1750#, 'dd/MM/yyyy')"), "05/03/1750");
    EXPECT_EQ(value("format(#03/05/1750#, 'yyyy')"), "1750");
    EXPECT_EQ(value("format(#03/05/1750#, 'dd')"), "05");
    EXPECT_EQ(value("format(#03/05/1750#, 'mm')"), "03");
    EXPECT_EQ(value("format('abc', 'mm')"), "abc");
    EXPECT_EQ(value("format(null, 'mm')"), "");
}

TEST_F(TheDialect, GivesTheFirstValueOfAGroup)
{
    EXPECT_EQ(rows("select sexo, first(nome) from individuo group by sexo"), "f|Maria Ávila m|José da Silva");
    EXPECT_EQ(rows("select first(datanasc) from individuo where nind >= 5"), "-");
    EXPECT_EQ(rows("select first(nome) from individuo where nind = 99"), "-");
}

TEST_F(TheDialect, MakesWholeNumbersOfTexts)
{
    EXPECT_EQ(value("cint('12')"), "12");
    EXPECT_EQ(value("cint(' -7 ')"), "-7");
    EXPECT_EQ(value("cint(2.5)"), "2");
    EXPECT_EQ(value("cint('3.5')"), "4");
    EXPECT_EQ(numberOf([&] { value("cint('abc')"); }), number::typeMismatch);
    EXPECT_EQ(numberOf([&] { value("cint('')"); }), number::typeMismatch);
    EXPECT_EQ(numberOf([&] { value("cint(32768)"); }), number::overflow);
    EXPECT_EQ(value("cint(-32768)"), "-32768");
    EXPECT_EQ(numberOf([&] { value("cint(null)"); }), number::invalidNull);
}

TEST_F(TheDialect, ReadsATextComparedWithADateColumnDayFirst)
{
    const char* three = "Ana";
    for (const char* condition :
         {"datanasc = '05/03/1750'", "'05/03/1750' = datanasc", "individuo.datanasc = '05/03/1750'",
          "datanasc = '1750-03-05'", "datanasc > '04/03/1750' and datanasc < '06/03/1750'",
          "datanasc between '05/03/1750' and '06/03/1750'", "datanasc >= '03/13/1725' and datanasc in ('05/03/1750')",
          "[datanasc] = format(#05/03/1750#, 'mm/dd/yyyy')"})
    {
        const std::string statement = std::string("select nome from individuo where ") + condition;
        EXPECT_EQ(rows(statement.c_str()), three) << condition;
    }
    EXPECT_EQ(rows("select nome from individuo as p where p.datanasc = '05/03/1750'"), three);
    EXPECT_EQ(rows("select nome from individuo group by nome having min(datanasc) = '05/03/1750'"), three);
    EXPECT_EQ(rows("select nome from individuo where datanasc not in ('05/03/1750') and datanasc not between "
                   "'01/01/1746' and '31/12/1749'"),
              "José da Silva Maria Ávila");
    EXPECT_EQ(numberOf([&] { select("select nome from individuo where datanasc = 'x'"); }), number::typeMismatch);
    EXPECT_EQ(numberOf([&] { select("select nome from individuo where datanasc = format('x', 'mm')"); }),
              number::typeMismatch);
}

TEST_F(TheDialect, ReadsATextForADateColumnOfAnUpdateDayFirst)
{
    run("update familia set datacasam = '05/03/1750' where nfamilia = 1");
    EXPECT_EQ(rows("select datacasam from familia where nfamilia = 1"), "05/03/1750");
}

TEST_F(TheDialect, ComparesTextsCaseBlind)
{
    EXPECT_EQ(rows("select nind from individuo where nome = 'ana'"), "3");
    EXPECT_EQ(rows("select nind from individuo where nome = 'áLVARO'"), "4");
    EXPECT_EQ(rows("select nind from individuo where 'ÁLVARO' = nome"), "4");
    EXPECT_EQ(rows("select nind from individuo where nome in ('ANA', 'álvaro', 'maria ávila')"), "2 3 4");
    EXPECT_EQ(rows("select nind from individuo where nome not in ('ÁLVARO') and nind > 2"), "3 5 6");
    EXPECT_EQ(rows("select nind from individuo where nome = 'Alvaro'"), "");
    EXPECT_EQ(rows("select count(*) from individuo where nome <> 'ÁLVARO'"), "5");
}

TEST_F(TheDialect, OrdersTextsAsAPortugueseDictionary)
{
    EXPECT_EQ(rows("select nome from individuo order by nome"),
              "Álvaro Ana António José da Silva Maria Ávila Zulmira d'Além");
    EXPECT_EQ(rows("select nind from individuo order by nome desc"), "6 2 1 5 3 4");
    EXPECT_EQ(rows("select nind from individuo as p order by p.sexo desc, p.nome"), "4 5 1 3 2 6");
    EXPECT_EQ(rows("select individuo.nome as n from individuo order by individuo.nome").substr(0, 7), "Álvaro");
}

TEST_F(TheDialect, KeepsTheIndexOfNumbersAndDates)
{
    EXPECT_EQ(translate(QStringLiteral("select nind from individuo order by nind"), bdp.handle()),
              u"select nind from individuo order by nind");
    EXPECT_EQ(translate(QStringLiteral("select nind from individuo order by datanasc desc"), bdp.handle()),
              u"select nind from individuo order by datanasc desc");
}

TEST_F(TheDialect, KnowsTrueAndFalse)
{
    run("update individuo set testam = True where nind = 1");
    run("update individuo set testam = false where nind = 2");
    EXPECT_EQ(rows("select testam from individuo where nind <= 2"), "sim não");
    EXPECT_EQ(rows("select nind from individuo where testam = true"), "1 3");
    EXPECT_EQ(rows("select nind from individuo where testam = 0"), "2");
}

TEST_F(TheDialect, TakesOneStatementACall)
{
    for (const char* statement : {"delete from sitio; delete from lugar",
                                  "delete from sitio delete from lugar",
                                  "",
                                  "   ",
                                  "\r\n",
                                  ";",
                                  "; ;",
                                  "delete from sitio; x",
                                  "delete from sitio -- x",
                                  "delete from sitio /* x */",
                                  "delete from sitio where ?",
                                  "delete from sitio where (1 = 1",
                                  "delete from sitio where 1 = 1)",
                                  "delete from sitio where codsitio = 'x",
                                  "delete from sitio where [codsitio = 'x'",
                                  "delete from sitio where #1/1/1750",
                                  "pragma journal_mode = wal",
                                  "begin",
                                  "commit",
                                  "rollback",
                                  "attach 'x' as y",
                                  "vacuum",
                                  "x"})
        EXPECT_EQ(refusal(statement), number::invalidStatement) << statement;
    EXPECT_EQ(numberOf([&] { bdp.execute(QStringLiteral("delete from sitio") + QChar(0) + u'x'); }),
              number::invalidStatement);
    EXPECT_EQ(rows("select count(*) from sitio"), "1");
    EXPECT_EQ(run(" delete\r\n\tfrom sitio ; "), 1);
}

TEST_F(TheDialect, TellsInWordsWhatToDoAboutAQuoteInAText)
{
    for (const char* name : {"Mestre d'armas", "d'armas d'El-Rei", "armas'", "'armas'"}) {
        const QString statement =
            QStringLiteral("select * from profissao where profissao = '%1'").arg(QString::fromUtf8(name));
        const Error error = errorOf([&] { bdp.execute(statement); });
        EXPECT_EQ(error.number, number::invalidStatement) << name;
        EXPECT_TRUE(error.description.contains("Escreva o nome sem plica.")) << error.description.toStdString();
    }
    EXPECT_EQ(value("'d''armas'"), "d'armas");
}

TEST_F(TheDialect, SubtractsWhereTwoMinusSignsMeet)
{
    EXPECT_EQ(value("5--3"), "8");
}

struct Refusal
{
    const char* type;
    const char* value;
    const char* words; // of the description
};

TEST_F(TheDialect, MakesColumnsThatRefuseWrongValues)
{
    run("create table t (k long, m memo, b bit, l long, x double, d date, v varchar(5), w varchar, c char(2), t text, "
        "n long not null default 0)");
    for (const Refusal& refused : std::initializer_list<Refusal>{{"b", "2", "verdadeiro ou falso"},
                                                                 {"b", "'x'", "verdadeiro ou falso"},
                                                                 {"l", "'abc'", "não é um número"},
                                                                 {"l", "''", "não é um número"},
                                                                 {"x", "'1,5'", "não é um número"},
                                                                 {"d", "'31/02/1750'", "não é uma data"},
                                                                 {"d", "'0099-01-01'", "não é uma data"},
                                                                 {"d", "5", "não é uma data"},
                                                                 {"d", "'now'", ""},
                                                                 {"v", "'abcdef'", "no máximo 5 caracteres"},
                                                                 {"c", "'áéí'", "no máximo 2 caracteres"},
                                                                 {"n", "null", "t.n"}})
    {
        const QString statement = QStringLiteral("insert into t (k, %1) values (1, %2)")
                                      .arg(QLatin1String(refused.type), QLatin1String(refused.value));
        const Error error = errorOf([&] { bdp.execute(statement); });
        EXPECT_EQ(error.number, number::invalidStatement) << statement.toStdString();
        EXPECT_TRUE(error.description.contains(QString::fromUtf8(refused.words))) << error.description.toStdString();
    }
    EXPECT_EQ(rows("select count(*) from t"), "0");
    run("insert into t (k, m, b, l, x, d, v, w, c, t) values ('1', '007', true, '12', 1.5, #12/31/0100#, 'áéíóú', "
        "'longo longo longo', 'PT', '1')");
    run("insert into t (k) values (null)");
    EXPECT_EQ(rows("select k, m, b, l, x, d, v, w, c, t, n from t"),
              "1|007|sim|12|1.5|31/12/0100|áéíóú|longo longo longo|PT|1|0 -|-|-|-|-|-|-|-|-|-|0");
}

TEST_F(TheDialect, KeepsALongWithinThirtyTwoBits)
{
    run("create table t (l long, x double)");
    run("insert into t (l) values (-2147483648)");
    run("insert into t (l) values ('2147483647')");
    run("insert into t (l, x) values (null, 99999999999)");
    for (const char* beyond : {"-2147483649", "2147483648", "99999999999", "'2147483648'", "1e300"})
        EXPECT_EQ(refusal(QStringLiteral("insert into t (l) values (%1)").arg(QLatin1String(beyond)).toUtf8()),
                  number::invalidStatement)
            << beyond;
    EXPECT_EQ(
        errorOf([&] { run("update t set l = 99999999999"); }).description,
        QStringLiteral("O valor da coluna \"l\" da tabela \"t\" não é um número entre -2147483648 e 2147483647."));
    EXPECT_EQ(errorOf([&] { run("update t set x = 'abc'"); }).description,
              QStringLiteral("O valor da coluna \"x\" da tabela \"t\" não é um número."));
    EXPECT_EQ(rows("select l, x from t"), "-2147483648|- 2147483647|- -|99999999999");

    Recordset set(bdp, QStringLiteral("select l from t"));
    set.set(QStringLiteral("l"), QStringLiteral("99999999999"));
    EXPECT_EQ(numberOf([&] { set.update(); }), number::invalidStatement);
    EXPECT_EQ(set["l"], QVariant(-2147483648.0));
}

TEST_F(TheDialect, GivesZeroToOldRowsOfANewBit)
{
    run("alter table familia add column extra bit");
    run("alter table familia add outra bit");
    EXPECT_EQ(rows("select extra, outra from familia"), "não|não não|não não|não");
    EXPECT_EQ(refusal("update familia set extra = 7"), number::invalidStatement);
}

TEST_F(TheDialect, RefusesTypesThatItDoesNotHave)
{
    EXPECT_EQ(refusal("create table t (a blob)"), number::invalidStatement);
    EXPECT_EQ(refusal("create table t (a)"), number::invalidStatement);
    EXPECT_EQ(refusal("create table t"), number::invalidStatement);
    EXPECT_EQ(refusal("alter table familia add column a inteiro"), number::invalidStatement);
}

TEST_F(TheDialect, KeepsTheFileOpenToAnyToolOfTheEngine)
{
    bdp.close();
    sqlite3* bare = nullptr;
    ASSERT_EQ(sqlite3_open(path().toUtf8(), &bare), SQLITE_OK);
    char* message = nullptr;
    for (const char* statement :
         {"insert into individuo (nind, nome, datanasc) values (99, 'Zé', '1750-01-02')",
          "update individuo set nome = 'ZÉ' where nome = 'zé' or nome = 'Zé'", "delete from familia", "reindex",
          "select * from individuo where nome = 'x' order by nome", "pragma integrity_check", "vacuum"})
        EXPECT_EQ(sqlite3_exec(bare, statement, nullptr, nullptr, &message), SQLITE_OK) << statement << message;
    EXPECT_NE(sqlite3_exec(bare, "update individuo set datanasc = 'x'", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(bare);
    bdp.open(path());
    EXPECT_EQ(rows("select nome, datanasc from individuo where nind = 99"), "ZÉ|02/01/1750");
}

TEST(Dates, ALineBreakBehindADateIsNoPartOfIt)
{
    EXPECT_FALSE(readDate(QStringLiteral("28/1/1700\n")));
    EXPECT_FALSE(readDate(QStringLiteral("28011700\n")));
}

TEST(DatesOfTheUser, AreReadDayFirstWithOrWithoutNoughtsAndStrokes)
{
    EXPECT_EQ(readDate(QStringLiteral("05/03/1750")), QDate(1750, 3, 5));
    EXPECT_EQ(readDate(QStringLiteral("29/02/1704")), QDate(1704, 2, 29));
    EXPECT_EQ(readDate(QStringLiteral("15/10/1582")), QDate(1582, 10, 15));
    EXPECT_EQ(readDate(QStringLiteral("10/10/1582")), QDate(1582, 10, 10));
    for (const char* text : {"5/3/1750", "05/3/1750", "05031750"})
        EXPECT_EQ(readDate(QString::fromUtf8(text)), QDate(1750, 3, 5)) << text;
    for (const char* text :
         {"29/02/1700", "5/13/1750", "5/3/50", "5031750", "5/31750", "005/03/1750", "01/13/1750", "01/01/99",
          "01/01/0099", " 05/03/1750", "05-03-1750", "1750-03-05", "__/__/____", "", "05/03/17500", "٠١/٠١/١٧٥٠"})
        EXPECT_FALSE(readDate(QString::fromUtf8(text))) << text;
    EXPECT_EQ(readDateEitherWay(QStringLiteral("01/13/1750")), QDate(1750, 1, 13));
    EXPECT_EQ(readDateEitherWay(QStringLiteral("05/03/1750")), QDate(1750, 3, 5));
    EXPECT_FALSE(readDateEitherWay(QStringLiteral("31/31/1750")));
    EXPECT_FALSE(readDateEitherWay(QStringLiteral("5/3/1750")));
}

} // namespace jet::test
