// What the schema of a file may hold.
#include "jet/testbdp.h"

#include <QFile>

#include <sqlite3.h>

namespace jet::test {

class ASchema : public TestBdp
{
protected:
    ASchema()
    {
        run("create table pessoa (nind double, nome varchar(20), constraint pk primary key (nind))");
        run("create table outra (a long)");
        bdp.close();
    }

    QByteArray content()
    {
        QFile file(path());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    // The refusal of the file as it was changed from outside, which leaves every byte of it; "" where it opens.
    std::string refusalAfter(const char* sql)
    {
        outside(sql);
        return refusal();
    }
    std::string refusal()
    {
        const QByteArray before = content();
        Connection own(OwnTables{{QStringLiteral("Pessoa")}, QStringLiteral("estudo_")});
        const Error error = errorOf([&] { own.open(path()); });
        EXPECT_EQ(own.state() == Connection::Closed, error.number != 0);
        if (error.number == 0) return {};
        EXPECT_EQ(error.number, number::engineFailure);
        EXPECT_EQ(content(), before);
        const QString head =
            QStringLiteral("O ficheiro \"%1\" não foi aberto, porque tem o que uma BDP não pode ter: ").arg(path());
        EXPECT_TRUE(error.description.startsWith(head)) << error.description.toStdString();
        return error.description.mid(head.size()).toStdString();
    }
};

TEST_F(ASchema, WithATriggerOnAnOwnTableIsRefused)
{
    EXPECT_EQ(refusalAfter("create trigger g after insert on PESSOA begin select 1; end"),
              "o gatilho (trigger) \"g\" da tabela \"PESSOA\".");
}

TEST_F(ASchema, WithATriggerThatReachesAnOwnTableIsRefused)
{
    for (const char* body :
         {"delete from pessoa", "delete from \"pessoa\"", "delete from [Pessoa]", "delete from `pessoa`",
          "delete from 'pessoa'", "delete from /* x */ pessoa", "insert into estudo_x select 1",
          "select 1 from outra where a in (select nind from pessoa)"})
    {
        const QByteArray sql = QByteArray("create trigger g after insert on outra begin ") + body + "; end";
        EXPECT_EQ(refusalAfter(sql), "o gatilho (trigger) \"g\" da tabela \"outra\".") << body;
        outside("drop trigger g");
    }
    EXPECT_EQ(refusal(), "");
}

TEST_F(ASchema, WithAViewOfAnOwnTableIsRefused)
{
    EXPECT_EQ(refusalAfter("create view v as select * from \"pessoa\""), "a vista (view) \"v\".");
    outside("drop view v; drop table pessoa");
    EXPECT_EQ(refusalAfter("create view pessoa as select * from outra"), "a vista (view) \"pessoa\".");
}

TEST_F(ASchema, WithAVirtualTableOnAnOwnTableIsRefused)
{
    EXPECT_EQ(refusalAfter("create virtual table v using fts4 (content=\"pessoa\", nome)"), "a tabela virtual \"v\".");
    outside("drop table v; create virtual table estudo using fts4 (nome)");
    EXPECT_EQ(refusal(), "a tabela virtual \"estudo\".");
    outside("drop table estudo; drop table pessoa; create virtual table pessoa using fts4 (nome)");
    EXPECT_EQ(refusal(), "a tabela virtual \"pessoa\".");
}

TEST_F(ASchema, WithACalculatedColumnInAnOwnTableIsRefused)
{
    EXPECT_EQ(refusalAfter("alter table pessoa add column x as (nind * 2)"),
              "a coluna calculada \"x\" da tabela \"pessoa\".");
    outside("drop table pessoa; create table pessoa (nind double, y generated always as (nind) stored)");
    EXPECT_EQ(refusal(), "a coluna calculada \"y\" da tabela \"pessoa\".");
}

TEST_F(ASchema, WithAnExpressionThatCallsMoreThanAFewFunctionsIsRefused)
{
    for (const char* column :
         {"check (length(hex(zeroblob(9999999))) > 0)", "check (x like '%a%')", "check (x glob '*a*a*a*')",
          "check (\"hex\"(x) = '')", "default (hex(zeroblob(99)))", "check ((x is null) or abs(hex(x)) > 1)"})
    {
        const QByteArray sql = QByteArray("create table estudo_t (x text ") + column + ")";
        EXPECT_NE(refusalAfter(sql), "") << column;
        outside("drop table estudo_t");
    }
    EXPECT_NE(refusalAfter("create index i on pessoa (hex(nome))"), "");
    outside("drop index i");
    EXPECT_NE(refusalAfter("create index i on pessoa (nome) where nome glob 'a*'"), "");
    outside("drop index i");
    EXPECT_EQ(refusal(), "");
}

TEST_F(ASchema, IsReadWithTheBlanksOfTheEngine)
{
    EXPECT_NE(refusalAfter("create table estudo_t (x text check \xef\xbb\xbf(length(hex(zeroblob(9))) > 0))"), "");
    outside("drop table estudo_t");
    EXPECT_NE(refusalAfter("create trigger g after insert on outra begin delete from \xef\xbb\xbfpessoa; end"), "");
}

TEST_F(ASchema, WithACheckThatLooksForEachLetterOfATextInAnotherOneIsRefused)
{
    EXPECT_EQ(refusalAfter("create table estudo_t (x text, y text check (trim(x, y) is not null))"),
              "a expressão com \"trim\" na tabela \"estudo_t\".");
}

TEST_F(ASchema, WithARuleThatPutsOneRowInThePlaceOfAnotherIsRefused)
{
    for (const char* table : {"x text unique on conflict replace", "x text not null ON /* */ Conflict ignore",
                              "x text, unique (x) on conflict rollback"})
    {
        const QByteArray sql = QByteArray("create table estudo_t (") + table + ")";
        EXPECT_EQ(refusalAfter(sql), "a regra \"on conflict\" da tabela \"estudo_t\".") << table;
        outside("drop table estudo_t");
    }
    EXPECT_EQ(refusalAfter("create table estudo_t (x text unique on conflict abort)"), "");
    EXPECT_EQ(refusalAfter("create table k (x text unique on conflict replace)"), "");
}

TEST_F(ASchema, WithATableWhoseRowsHaveNoNumberIsRefused)
{
    EXPECT_EQ(refusalAfter("create table estudo_t (x text primary key) without rowid"),
              "a tabela sem rowid \"estudo_t\".");
}

TEST_F(ASchema, MayHoldTablesWithTheNamesOfWhatTheOpenAsksFor)
{
    outside("create table pragma_page_count (page_count); create table pragma_page_size (page_size);"
            "insert into pragma_page_count values (1000000); insert into pragma_page_size values (65536)");
    EXPECT_EQ(refusal(), "");
}

TEST_F(ASchema, WithAColumnThatHidesTheNumberOfItsRowsIsRefused)
{
    EXPECT_EQ(refusalAfter("alter table pessoa add column RowId long"), "a coluna \"RowId\" da tabela \"pessoa\".");
}

TEST_F(ASchema, WithARowThatIsNotWhatItSaysIsRefused)
{
    const QByteArray body = " begin delete from pessoa; end')";
    for (const QByteArray& row : {"('table', 'x', 'x', 0, 'create trigger g after insert on pessoa" + body,
                                  "('trigger', 'x', 'outra', 0, 'create trigger g after insert on pessoa" + body,
                                  "('trigger', 'g', 'outra', 0, 'create trigger g after insert on pessoa" + body,
                                  "('trigger', 'g', 'outra', 0, 'create temp trigger g after insert on pessoa" + body})
    {
        outside("pragma writable_schema = on; insert into sqlite_master values " + row);
        const QByteArray before = content();
        Connection own(OwnTables{{QStringLiteral("pessoa")}, {}});
        EXPECT_EQ(numberOf([&] { own.open(path()); }), number::engineFailure) << row.toStdString();
        EXPECT_EQ(content(), before);
        outside("pragma writable_schema = on; delete from sqlite_master where rootpage = 0");
    }
}

TEST_F(ASchema, IsNotReadAsLongAsItWouldBeToldWhole)
{
    for (int i = 0; i < 12; ++i)
        outside(QStringLiteral("create view \"%1 %2\" as select * from pessoa")
                    .arg(i)
                    .arg(QString(200, u'x'))
                    .toUtf8()
                    .constData());
    const std::string told = refusal();
    EXPECT_NE(told.find("; e mais 4."), std::string::npos) << told;
    EXPECT_LT(told.size(), 1200);
}

TEST_F(ASchema, ThatTouchesNoOwnTableIsLeftAlone)
{
    outside("create trigger g after insert on outra begin update outra set a = 1; end;"
            "create view v as select a from outra; create virtual table f using fts4 (a);"
            "alter table outra add column x as (hex(a)); create index i on outra (hex(a));"
            "create table k (a text check (a like '%m%'));"
            "insert into outra (a) values (7); insert into f (a) values ('um')");
    const QByteArray before = content();
    EXPECT_EQ(refusal(), "");
    EXPECT_EQ(content(), before);
    Connection own(OwnTables{{QStringLiteral("pessoa")}, {}});
    own.open(path());
    EXPECT_NO_THROW(own.columns());
    EXPECT_EQ(own.execute(QStringLiteral("insert into pessoa (nind, nome) values (1, 'Ana')")), 1);
    own.close();
    outside("insert into outra (a) values (8)");
    own.open(path());
    Recordset set(own, QStringLiteral("select count(*) as n from outra where a = 1"));
    EXPECT_EQ(rows(set), "2");
}

TEST_F(ASchema, OfAFileInTheLogModeOfOtherToolsIsOpened)
{
    outside("pragma journal_mode = wal; insert into outra (a) values (1)");
    ASSERT_EQ(content().at(18), 2);
    EXPECT_EQ(refusal(), "");
    EXPECT_EQ(content().at(18), 1);
}

TEST_F(ASchema, OfAFileInTheLogModeIsRefusedWithoutAChange)
{
    outside("pragma journal_mode = wal; create view v as select * from pessoa");
    EXPECT_EQ(refusal(), "a vista (view) \"v\".");
    EXPECT_EQ(content().at(18), 2);
}

TEST_F(ASchema, OfTextsInUtf16IsReadLikeAnyOther)
{
    QFile::remove(path());
    outside(
        "pragma encoding = 'UTF-16le'; create table pessoa (nome varchar(20)); insert into pessoa values ('Ávila')");
    Connection own;
    own.open(path());
    Recordset set(own, QStringLiteral("select nome from pessoa where nome like 'á%'"));
    EXPECT_EQ(rows(set), "Ávila");
    own.close();
    EXPECT_EQ(refusalAfter("create trigger g after insert on pessoa begin select 1; end"),
              "o gatilho (trigger) \"g\" da tabela \"pessoa\".");
}

} // namespace jet::test
