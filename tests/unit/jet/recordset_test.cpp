#include "jet/testbdp.h"

#include <QDate>

#include <sqlite3.h>

namespace jet::test {

class ARecordset : public TestBdp
{
protected:
    ARecordset()
    {
        run("create table pessoa (nind double not null, nome varchar(20), datanasc date, viva bit, obs memo, "
            "constraint PKp primary key (nind))");
        run("create index pessoa_nome on pessoa (nome)");
        run("insert into pessoa (nind, nome, datanasc, viva) values (3, 'Zulmira', #03/12/1750#, true)");
        run("insert into pessoa (nind, nome) values (1, 'Ana')");
        run("insert into pessoa (nind, nome, viva) values (2, 'Álvaro', 0)");
        run("create table filho (pai double, nome varchar, constraint PKf primary key (pai, nome))");
        run("insert into filho (pai, nome) values (3, 'Rui')");
        run("insert into filho (pai, nome) values (3, 'Eva')");
        run("insert into filho (pai, nome) values (1, 'Ivo')");
    }

    static QString text(const char* utf8) { return QString::fromUtf8(utf8); }
    static std::string name(const Recordset& set) { return set[QStringLiteral("nome")].toString().toStdString(); }
};

TEST_F(ARecordset, GivesRowsInTheOrderOfEntry)
{
    EXPECT_EQ(rows("select nind, nome, datanasc, viva from pessoa"),
              "3|Zulmira|12/03/1750|sim 1|Ana|-|- 2|Álvaro|-|não");
    EXPECT_EQ(rows("select nome from pessoa"), "Zulmira Ana Álvaro"); // though an index has the names in their order
    EXPECT_EQ(rows("select nome from pessoa where nome > 'A'"), "Zulmira Ana Álvaro");
    EXPECT_EQ(rows("select nind from pessoa where nind > 0"), "3 1 2");
}

TEST_F(ARecordset, GivesRowsInTheOrderAskedFor)
{
    EXPECT_EQ(rows("select nind from pessoa order by nind"), "1 2 3");
    EXPECT_EQ(rows("select nind from pessoa order by nome"), "2 1 3");
    EXPECT_EQ(rows("select nind, nome as quem from pessoa order by quem desc"), "3|Zulmira 1|Ana 2|Álvaro");
    EXPECT_EQ(rows("select nind + 10 as n from pessoa order by n"), "11 12 13");
    EXPECT_EQ(rows("select nind from pessoa order by datanasc asc, nind desc"), "2 1 3"); // nulls first
}

TEST_F(ARecordset, GivesEachFieldTheTypeOfItsColumn)
{
    Recordset set = select("select * from pessoa");
    EXPECT_EQ(set["nind"].typeId(), QMetaType::Double);
    EXPECT_EQ(set["NOME"].typeId(), QMetaType::QString);
    EXPECT_EQ(set["DataNasc"], QVariant(QDate(1750, 3, 12)));
    EXPECT_EQ(set["viva"], QVariant(true));
    EXPECT_FALSE(set["obs"].isValid());
    EXPECT_EQ(set[1].toString(), "Zulmira");
    EXPECT_EQ(set.fieldCount(), 5);
    EXPECT_EQ(set.fieldName(2), "datanasc");
    EXPECT_EQ(numberOf([&] { set["nada"]; }), number::noSuchField);
    EXPECT_EQ(numberOf([&] { set[5]; }), number::noSuchField);
    EXPECT_EQ(numberOf([&] { set[-1]; }), number::noSuchField);
    EXPECT_EQ(numberOf([&] { set.fieldName(5); }), number::noSuchField);
}

TEST_F(ARecordset, TellsDatesAndNumbersOfAggregates)
{
    Recordset set = select("select count(*) as n, max(datanasc) as d, max(nome) as m, min(nind) from pessoa");
    EXPECT_EQ(set["n"], QVariant(3.0));
    EXPECT_EQ(set["d"], QVariant(QDate(1750, 3, 12)));
    EXPECT_EQ(set["m"].typeId(), QMetaType::QString);
    EXPECT_EQ(set[3], QVariant(1.0));
}

TEST_F(ARecordset, MovesOverItsRows)
{
    Recordset set = select("select * from pessoa order by nind");
    EXPECT_EQ(set.recordCount(), 3);
    EXPECT_EQ(set.absolutePosition(), 1);
    set.moveNext();
    EXPECT_EQ(name(set), "Álvaro");
    set.moveLast();
    EXPECT_EQ(set.absolutePosition(), 3);
    EXPECT_FALSE(set.eof());
    set.moveNext();
    EXPECT_TRUE(set.eof());
    EXPECT_FALSE(set.bof());
    EXPECT_EQ(set.absolutePosition(), 0);
    EXPECT_EQ(numberOf([&] { set.moveNext(); }), number::noCurrentRow);
    EXPECT_EQ(numberOf([&] { name(set); }), number::noCurrentRow);
    set.movePrevious();
    EXPECT_EQ(name(set), "Zulmira");
    set.moveFirst();
    set.movePrevious();
    EXPECT_TRUE(set.bof());
    EXPECT_FALSE(set.eof());
    EXPECT_EQ(numberOf([&] { set.movePrevious(); }), number::noCurrentRow);
    EXPECT_EQ(numberOf([&] { name(set); }), number::noCurrentRow);
    set.moveNext();
    EXPECT_EQ(name(set), "Ana");
    set.setAbsolutePosition(2);
    EXPECT_EQ(name(set), "Álvaro");
    EXPECT_EQ(numberOf([&] { set.setAbsolutePosition(0); }), number::invalidPosition);
    EXPECT_EQ(numberOf([&] { set.setAbsolutePosition(4); }), number::invalidPosition);
}

TEST_F(ARecordset, WithoutRowsStandsOnBothEnds)
{
    Recordset set = select("select * from pessoa where nind = 9");
    EXPECT_TRUE(set.bof());
    EXPECT_TRUE(set.eof());
    EXPECT_EQ(set.recordCount(), 0);
    EXPECT_EQ(set.absolutePosition(), 0);
    EXPECT_EQ(numberOf([&] { set.moveFirst(); }), number::noCurrentRow);
    EXPECT_EQ(numberOf([&] { set.moveLast(); }), number::noCurrentRow);
    EXPECT_EQ(numberOf([&] { set.moveNext(); }), number::noCurrentRow);
    EXPECT_EQ(numberOf([&] { set.movePrevious(); }), number::noCurrentRow);
    EXPECT_EQ(numberOf([&] { name(set); }), number::noCurrentRow);
    EXPECT_EQ(numberOf([&] { set.deleteRow(); }), number::noCurrentRow);
    EXPECT_EQ(numberOf([&] { set.set("nome", "x"); }), number::noCurrentRow);
    EXPECT_NO_THROW(set.find(text("nind = 1")));
}

TEST_F(ARecordset, RefusesEveryCallWhenClosed)
{
    Recordset set(bdp);
    EXPECT_FALSE(set.isOpen());
    EXPECT_EQ(numberOf([&] { set.eof(); }), number::objectClosed);
    EXPECT_EQ(numberOf([&] { set.requery(); }), number::objectClosed);
    EXPECT_EQ(numberOf([&] { set["nome"]; }), number::objectClosed);
    set.open(text("select * from pessoa"));
    EXPECT_EQ(numberOf([&] { set.open(text("select * from nada")); }), number::invalidStatement);
    EXPECT_FALSE(set.isOpen());
    EXPECT_EQ(numberOf([&] { set.open(text("delete from pessoa")); }), number::invalidStatement);
    EXPECT_EQ(rows("select count(*) from pessoa"), "3");
    set.open(text("select * from pessoa"));
    bdp.close();
    EXPECT_FALSE(set.isOpen());
    EXPECT_EQ(numberOf([&] { set.recordCount(); }), number::connectionClosed);
    bdp.open(path());
    EXPECT_EQ(numberOf([&] { set.recordCount(); }), number::objectClosed); // its rows were those of the other session
    set.open(text("select * from pessoa"));
    EXPECT_EQ(set.recordCount(), 3);
}

TEST_F(ARecordset, OutlivesItsConnection)
{
    auto connection = std::make_unique<Connection>();
    connection->open(path());
    Recordset set(*connection, text("select * from pessoa"));
    name(set);
    connection.reset();
    EXPECT_FALSE(set.isOpen());
}

TEST_F(ARecordset, KeepsTheRowsOfItsOpening)
{
    Recordset set = select("select * from pessoa order by nind");
    run("insert into pessoa (nind) values (0)");
    run("delete from pessoa where nind = 2");
    run("update pessoa set nome = 'Zita' where nind = 3");
    EXPECT_EQ(set.recordCount(), 3);
    set.moveNext();
    EXPECT_EQ(numberOf([&] { name(set); }), number::noCurrentRow);
    set.moveNext();
    EXPECT_EQ(name(set), "Zita");
    set.requery();
    EXPECT_EQ(set.absolutePosition(), 1);
    EXPECT_EQ(rows(set), "0|-|-|-|- 1|Ana|-|-|- 3|Zita|12/03/1750|sim|-");
}

TEST_F(ARecordset, LeavesNoStatementOpenBetweenCalls)
{
    Recordset set = select("select * from pessoa");
    name(set);
    EXPECT_NO_THROW(run("alter table pessoa add column extra long"));
    set.moveNext();
    EXPECT_EQ(name(set), "Ana");
    outside("drop table filho");
}

// All that it reads is of one state of the file, which nobody else can write meanwhile, and can afterwards.
TEST_F(ARecordset, ReadsItsRowsInOneTransactionAndEndsIt)
{
    QStringList ran;
    sqlite3_trace_v2(
        bdp.handle(), SQLITE_TRACE_STMT,
        [](unsigned, void* to, void*, void* sql) {
            static_cast<QStringList*>(to)->append(QString::fromUtf8(static_cast<const char*>(sql)));
            return 0;
        },
        &ran);
    for (const char* statement : {"select nome from pessoa order by nome", "select max(nind) as m from pessoa",
                                  "select nome as x from pessoa order by x"})
    {
        ran.clear();
        Recordset set = select(statement);
        EXPECT_GT(ran.size(), 2);
        EXPECT_EQ(ran.value(0), "begin") << statement;
        EXPECT_EQ(ran.count("begin"), 1) << statement;
        EXPECT_EQ(ran.last(), "commit") << statement;
        outside("update pessoa set obs = obs");
    }
    EXPECT_NE(numberOf([&] { select("select nome, max(x) from pessoa"); }), 0);
    outside("update pessoa set obs = obs");

    bdp.beginTrans(); // that of a routine goes on
    ran.clear();
    select("select nome from pessoa");
    EXPECT_FALSE(ran.contains("begin") || ran.contains("commit"));
    bdp.rollbackTrans();
    sqlite3_trace_v2(bdp.handle(), 0, nullptr, nullptr);
}

TEST_F(ARecordset, FindsForwardFromTheCurrentRow)
{
    Recordset set = select("select * from pessoa order by nind");
    set.find(text("nind = 2"));
    EXPECT_EQ(set.absolutePosition(), 2);
    set.find(text("nind =2")); // itself included
    EXPECT_EQ(set.absolutePosition(), 2);
    set.find(text("nind = 1")); // behind it
    EXPECT_TRUE(set.eof());
    EXPECT_EQ(numberOf([&] { set.find(text("nind = 1")); }), number::noCurrentRow);
    set.moveFirst();
    set.movePrevious();
    EXPECT_EQ(numberOf([&] { set.find(text("nind = 1")); }), number::noCurrentRow);
}

TEST_F(ARecordset, FindsByEveryOperatorAndType)
{
    const auto position = [&](const char* query, const char* criterion) {
        Recordset set = select(query);
        set.find(text(criterion));
        return set.absolutePosition();
    };
    const char* plain = "select nind, nome, datanasc, viva from pessoa order by nind";
    const char* computed = "select nind + 0 as nind, nome || '' as nome, max(datanasc) as datanasc, max(viva) as viva "
                           "from pessoa group by nind, nome order by nind";
    for (const char* query : {plain, computed}) {
        EXPECT_EQ(position(query, "NIND=3"), 3) << query;
        EXPECT_EQ(position(query, "nind > 1"), 2) << query;
        EXPECT_EQ(position(query, "nind >= -1"), 1) << query;
        EXPECT_EQ(position(query, "nind <> 1"), 2) << query;
        EXPECT_EQ(position(query, "nind < 1"), 0) << query;
        EXPECT_EQ(position(query, "nind <= 1"), 1) << query;
        EXPECT_EQ(position(query, "nome = 'ÁLVARO'"), 2) << query;
        EXPECT_EQ(position(query, "nome = 'ZULMIRA'"), 3) << query;
        EXPECT_EQ(position(query, "nome like 'z%'"), 3) << query;
        EXPECT_EQ(position(query, "nome = 'D''Ávila'"), 0) << query;
        EXPECT_EQ(position(query, "datanasc =#12/03/1750#"), 3) << query;
        EXPECT_EQ(position(query, "[datanasc] = #1750-03-12#"), 3) << query;
        EXPECT_EQ(position(query, "viva = true"), 3) << query;
    }
    EXPECT_EQ(position(plain, "datanasc = '12/03/1750'"), 3);
    EXPECT_EQ(position(plain, "nind = '3'"), 3);
    Recordset set = select(plain);
    for (const char* criterion : {"", "nind", "nind =", "nind = 1 or 1 = 1", "= 1", "nind = nome", "nind between 1"})
        EXPECT_EQ(numberOf([&] { set.find(text(criterion)); }), number::invalidStatement) << criterion;
    EXPECT_EQ(numberOf([&] { set.find(text("nada = 1")); }), number::noSuchField);
    EXPECT_EQ(numberOf([&] { set.find(text("datanasc = 'x'")); }), number::typeMismatch);
    EXPECT_EQ(numberOf([&] { set.find(text("nind = 'x'")); }), number::typeMismatch);
    EXPECT_EQ(set.absolutePosition(), 1);
}

TEST_F(ARecordset, SortsAndFilters)
{
    for (const char* query : {"select nind, nome from pessoa", "select distinct nind, nome from pessoa"}) {
        Recordset set = select(query);
        set.setSort(text("nome ASC"));
        EXPECT_EQ(rows(set), "2|Álvaro 1|Ana 3|Zulmira");
        set.setSort(text("nind desc"));
        EXPECT_EQ(set.absolutePosition(), 1);
        EXPECT_EQ(rows(set), "3|Zulmira 2|Álvaro 1|Ana");
        set.setFilter(text("nind > 1"));
        EXPECT_EQ(set.recordCount(), 2);
        EXPECT_EQ(rows(set), "3|Zulmira 2|Álvaro");
        set.moveFirst();
        set.find(text("nome = 'álvaro'"));
        EXPECT_EQ(set.absolutePosition(), 2);
        set.requery();
        EXPECT_EQ(rows(set), "3|Zulmira 2|Álvaro");
        set.setFilter(text("nome = 'x'"));
        EXPECT_TRUE(set.eof());
        EXPECT_EQ(numberOf([&] { set.setFilter(text("nada = 1")); }), number::noSuchField);
        EXPECT_EQ(numberOf([&] { set.setSort(text("nind nome")); }), number::invalidStatement);
        EXPECT_EQ(set.recordCount(), 0);
        set.setFilter({});
        EXPECT_EQ(set.recordCount(), 3);
        set.setSort({});
        EXPECT_EQ(set.recordCount(), 3);
        EXPECT_EQ(name(set), select(query)["nome"].toString().toStdString());
    }
}

TEST_F(ARecordset, AddsARowAndMakesItTheCurrentOne)
{
    Recordset set = select("select * from pessoa order by nind");
    set.addNew();
    EXPECT_FALSE(set["nome"].isValid());
    set.set("nind", 4);
    set.set("NOME", "D'Ávila");
    set.set("datanasc", "31/12/1699");
    set.set("viva", true);
    set.set("obs", "uma\r\nduas");
    EXPECT_EQ(set["nome"].toString(), "D'Ávila");
    EXPECT_EQ(set.recordCount(), 3);
    set.update();
    EXPECT_EQ(set.recordCount(), 4);
    EXPECT_EQ(set.absolutePosition(), 4);
    EXPECT_EQ(set["datanasc"].toDate(), QDate(1699, 12, 31));
    EXPECT_EQ(rows("select nind, nome, datanasc, viva from pessoa where nind = 4"), "4|D'Ávila|31/12/1699|sim");
    EXPECT_EQ(select("select obs from pessoa where nind = 4")["obs"].toString(), "uma\r\nduas");
    EXPECT_EQ(rows("select nind from pessoa where typeof(nind) <> 'integer'"), "");
}

TEST_F(ARecordset, AltersTheCurrentRow)
{
    Recordset set = select("select nind, nome, datanasc from pessoa order by nind");
    set.moveNext();
    set.set("nome", "Alva");
    set.set("datanasc", QDate(1701, 2, 3));
    EXPECT_EQ(name(set), "Alva");
    set.update();
    EXPECT_EQ(set.absolutePosition(), 2);
    EXPECT_EQ(rows("select nome, datanasc, viva from pessoa where nind = 2"), "Alva|03/02/1701|não");
    set.set("nome", QVariant());
    set.update();
    EXPECT_FALSE(set["nome"].isValid());
    EXPECT_NO_THROW(set.update()); // nothing was set
}

TEST_F(ARecordset, DropsWhatWasSetWithACancelOrAMovement)
{
    Recordset set = select("select * from pessoa");
    set.set("nome", "x");
    set.cancelUpdate();
    EXPECT_EQ(name(set), "Zulmira");
    set.set("nome", "x");
    set.moveNext();
    set.addNew();
    set.set("nome", "x");
    set.moveFirst();
    set.update();
    EXPECT_EQ(rows("select nome from pessoa"), "Zulmira Ana Álvaro");
}

TEST_F(ARecordset, RefusesValuesThatDoNotFitTheirColumn)
{
    Recordset set = select("select * from pessoa order by nind");
    const auto refused = [&](const char* field, const QVariant& value) {
        set.set(text(field), value);
        const long number = numberOf([&] { set.update(); });
        EXPECT_EQ(set.absolutePosition(), 1);
        EXPECT_EQ(name(set), "Ana");
        return number;
    };
    for (const char* date : {"31/02/1750", "__/__/____", "1_/__/____", "", "x", "1-1-1750", "01/13/1750"})
        EXPECT_EQ(refused("datanasc", text(date)), number::typeMismatch) << date;
    for (const char* number : {"abc", "", "12,5", "1.000.000", "inf", "nan", "0x10", "1 2"})
        EXPECT_EQ(refused("nind", text(number)), number::typeMismatch) << number;
    EXPECT_EQ(refused("nome", QString(21, u'x')), number::invalidStatement);
    EXPECT_EQ(refused("nind", QVariant()), number::invalidStatement);
    EXPECT_EQ(refused("nind", 2), number::duplicateKey);
    set.set("datanasc", text("13/01/1750"));
    set.set("nind", text(" 12.5 "));
    set.update();
    EXPECT_EQ(set["nind"].toDouble(), 12.5);
    EXPECT_EQ(set["datanasc"].toDate(), QDate(1750, 1, 13));
}

TEST_F(ARecordset, DropsANewRowThatCannotBeWritten)
{
    Recordset set = select("select * from pessoa order by nind");
    set.moveLast();
    set.addNew();
    set.set("nind", 1);
    EXPECT_EQ(numberOf([&] { set.update(); }), number::duplicateKey);
    EXPECT_EQ(set.recordCount(), 3);
    EXPECT_EQ(set.absolutePosition(), 3);
    EXPECT_EQ(name(set), "Zulmira");
    set.addNew();
    EXPECT_EQ(numberOf([&] { set.update(); }), number::invalidStatement); // the number is missing
    set.addNew();
    set.set("nind", 7);
    set.update();
    EXPECT_EQ(set.recordCount(), 4);
}

TEST_F(ARecordset, DeletesTheCurrentRow)
{
    Recordset set = select("select * from pessoa order by nind");
    set.moveNext();
    set.deleteRow();
    EXPECT_EQ(set.recordCount(), 2);
    EXPECT_EQ(numberOf([&] { name(set); }), number::noCurrentRow);
    EXPECT_EQ(numberOf([&] { set.deleteRow(); }), number::noCurrentRow);
    EXPECT_EQ(set.absolutePosition(), 0);
    EXPECT_FALSE(set.eof());
    set.moveNext();
    EXPECT_EQ(name(set), "Zulmira");
    set.deleteRow();
    EXPECT_FALSE(set.eof());
    set.moveNext();
    EXPECT_TRUE(set.eof());
    set.movePrevious();
    EXPECT_EQ(name(set), "Ana");
    set.deleteRow();
    EXPECT_TRUE(set.eof());
    EXPECT_TRUE(set.bof());
    EXPECT_NO_THROW(set.moveNext());
    EXPECT_EQ(numberOf([&] { set.moveNext(); }), number::noCurrentRow);
    EXPECT_EQ(rows("select * from pessoa"), "");
}

TEST_F(ARecordset, StepsBackFromADeletedRow)
{
    Recordset set = select("select * from pessoa order by nind");
    set.moveLast();
    set.deleteRow();
    set.movePrevious();
    EXPECT_EQ(name(set), "Álvaro");
    set.moveFirst();
    set.deleteRow();
    set.movePrevious();
    EXPECT_TRUE(set.bof());
    set.moveFirst();
    EXPECT_EQ(name(set), "Álvaro");
}

TEST_F(ARecordset, DropsARowThatHasGoneAlready)
{
    Recordset set = select("select * from pessoa order by nind");
    run("delete from pessoa where nind = 1");
    set.deleteRow();
    EXPECT_EQ(set.recordCount(), 2);
    set.moveNext();
    EXPECT_EQ(name(set), "Álvaro");
}

TEST_F(ARecordset, KeepsARowThatCannotBeDeleted)
{
    Recordset set = select("select * from pessoa order by nind");
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(path().toUtf8(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "begin immediate", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_NE(numberOf([&] { set.deleteRow(); }), 0);
    sqlite3_close(other);
    EXPECT_EQ(set.recordCount(), 3);
    EXPECT_EQ(name(set), "Ana");
}

TEST_F(ARecordset, DoesNotWriteARowThatHasGone)
{
    Recordset set = select("select * from pessoa order by nind");
    run("delete from pessoa where nind = 1");
    set.set("nome", "x");
    EXPECT_EQ(numberOf([&] { set.update(); }), number::noCurrentRow);
}

TEST_F(ARecordset, OfAJoinIsWrittenWhereTheKeyIsInIt)
{
    Recordset set = select("select pai, filho.nome as f, pessoa.nome as nome, nind, datanasc from pessoa inner join "
                           "filho on pessoa.nind = filho.pai where filho.nome = 'Eva'");
    set.set("nome", "Zita");
    set.set("datanasc", "05/03/1751");
    set.update();
    EXPECT_EQ(rows(set), "3|Eva|Zita|3|05/03/1751");
    EXPECT_EQ(rows("select nome, datanasc from pessoa where nind = 3"), "Zita|05/03/1751");
    set.moveFirst();
    set.set("nome", "x");
    set.set("f", "y");
    EXPECT_EQ(numberOf([&] { set.update(); }), number::notUpdatable); // two tables at once
    EXPECT_EQ(numberOf([&] { set.addNew(); }), number::notUpdatable);
    EXPECT_EQ(numberOf([&] { set.deleteRow(); }), number::notUpdatable);
}

TEST_F(ARecordset, IsNotWrittenWhereTheRowCannotBeTold)
{
    Recordset keyless = select("select pessoa.nome as nome from pessoa, filho where pessoa.nind = filho.pai");
    keyless.set("nome", "x");
    EXPECT_EQ(numberOf([&] { keyless.update(); }), number::notUpdatable);
    Recordset twice = select("select a.nind, a.nome, b.nind from pessoa as a, pessoa as b");
    twice.set("nome", "x");
    EXPECT_EQ(numberOf([&] { twice.update(); }), number::notUpdatable);
    Recordset computed = select("select nind + 1 as n from pessoa");
    EXPECT_EQ(numberOf([&] { computed.set("n", 1); }), number::notUpdatable);
    Recordset grouped = select("select count(*) as n from pessoa group by viva");
    EXPECT_EQ(numberOf([&] { grouped.set("n", 1); }), number::notUpdatable);
}

TEST_F(ARecordset, TakesPartInTheTransactionOfItsConnection)
{
    Recordset set = select("select * from pessoa");
    bdp.beginTrans();
    set.set("nome", "x");
    set.update();
    bdp.rollbackTrans();
    EXPECT_EQ(rows("select nome from pessoa"), "Zulmira Ana Álvaro");
}

TEST_F(ARecordset, IsHeldByADataControl)
{
    DataControl control(bdp);
    EXPECT_FALSE(control.hasRows());
    control.setRecordSource(text("select * from pessoa order by nind"));
    EXPECT_FALSE(control.recordset().isOpen());
    control.refresh();
    EXPECT_TRUE(control.hasRows());
    control.recordset().moveLast();
    control.refresh();
    EXPECT_EQ(control.recordset().absolutePosition(), 1);
    control.setRecordSource({});
    EXPECT_TRUE(control.hasRows());
    control.refresh();
    EXPECT_FALSE(control.recordset().isOpen());
}

} // namespace jet::test
