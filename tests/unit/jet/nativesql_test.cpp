// Statements in the engine's own SQL, with bound values.
#include "jet/testbdp.h"

#include <QDate>
#include <QPoint>

namespace jet::test {

class ANativeStatement : public TestBdp
{
protected:
    ANativeStatement()
    {
        run("create table pessoa (nind double not null, nome varchar(20), datanasc date, viva bit, obs memo, "
            "constraint PKp primary key (nind))");
        run("insert into pessoa (nind, nome, datanasc, viva) values (3, 'Zulmira d''Além', #03/12/1750#, true)");
        run("insert into pessoa (nind, nome) values (1, 'Ana')");
        run("insert into pessoa (nind, nome, viva) values (2, 'Álvaro', 0)");
        run("create table filho (pai double, nome varchar, constraint PKf primary key (pai, nome))");
        run("insert into filho (pai, nome) values (3, 'Rui')");
        run("insert into filho (pai, nome) values (1, 'Ivo')");
    }

    static NativeSql native(const char* sql, const QVariantList& values = {})
    {
        return NativeSql(QString::fromUtf8(sql), values);
    }
    std::string rowsOf(const char* sql, const QVariantList& values = {})
    {
        Recordset set(bdp, native(sql, values));
        return rows(set);
    }
    Error refusal(const char* sql, const QVariantList& values = {})
    {
        const Error executed = errorOf([&] { bdp.execute(native(sql, values)); });
        if (QString::fromUtf8(sql).startsWith(QLatin1String("select"))) {
            EXPECT_EQ(errorOf([&] { Recordset(bdp, native(sql, values)); }).description, executed.description);
        }
        return executed;
    }
    static QString text(const char* utf8) { return QString::fromUtf8(utf8); }
};

using ANativeRecordset = ANativeStatement;

TEST_F(ANativeStatement, BindsItsValues)
{
    EXPECT_EQ(bdp.execute(native("insert into pessoa (nind, nome, datanasc, viva, obs) values (?, ?, ?, ?, ?)",
                                 {4, text("Eva"), QDate(812, 3, 4), true, text("1\r\n2")})),
              1);
    EXPECT_EQ(rows("select * from pessoa where nind = 4"), "4|Eva|04/03/0812|sim|1\r\n2");
    EXPECT_EQ(rows("select nind from pessoa where datanasc = #03/04/0812#"), "4");
    EXPECT_EQ(bdp.execute(native("update pessoa set nind = ?, nome = ?, datanasc = ?, viva = ?, obs = ? where nind = ?",
                                 {qint64(5), QVariant(), QDate(), false, QVariant(), 4.0})),
              1);
    EXPECT_EQ(rows("select * from pessoa where nind = 5"), "5|-|-|não|-");
    EXPECT_EQ(bdp.execute(native("update pessoa set nome = ?, nind = ? where nind = 5", {QString(), 5.5})), 1);
    EXPECT_EQ(rows("select nind, nome from pessoa where nome = ''"), "5.5|"); // an empty text isn't null
    EXPECT_EQ(rowsOf("select nome from pessoa where nind = ?", {text("3")}), "Zulmira d'Além");
}

TEST_F(ANativeStatement, TakesAQuoteAsALetter)
{
    EXPECT_EQ(rowsOf("select nind from pessoa where nome = ?", {text("Zulmira d'Além")}), "3");
    const QString likeSql = text("x'; delete from pessoa; select '");
    EXPECT_EQ(rowsOf("select nind from pessoa where nome = ?", {likeSql}), "");
    EXPECT_EQ(bdp.execute(native("update pessoa set obs = ? where nome = ?", {likeSql, text("ana")})), 1);
    EXPECT_EQ(rows("select obs from pessoa where nind = 1"), likeSql.toStdString());
    EXPECT_EQ(rows("select count(*) from pessoa"), "3");
    EXPECT_EQ(bdp.execute(native("delete from pessoa where nome = ?", {text("? or 1 = 1")})), 0);
}

TEST_F(ANativeStatement, IsNotTranslated)
{
    EXPECT_EQ(rowsOf("select nome from pessoa order by nome"), "Ana Zulmira d'Além Álvaro");
    EXPECT_EQ(rowsOf("select nome from pessoa order by nome collate orv_alphabetical"), "Álvaro Ana Zulmira d'Além");
    EXPECT_EQ(rowsOf("select nind from pessoa where nome = ?", {text("álvaro")}), "");
    EXPECT_EQ(rowsOf("select nind from pessoa where nome = ? collate orv_nocase", {text("álvaro")}), "2");
    EXPECT_EQ(rowsOf("select nind from pessoa where nome like ?", {text("á%")}), "2");
    EXPECT_EQ(rowsOf("select nind from pessoa where datanasc = ?", {text("12/03/1750")}), "");
    EXPECT_EQ(rowsOf("select nind from pessoa where datanasc = ?", {QDate(1750, 3, 12)}), "3");
    EXPECT_EQ(rowsOf("select \"nome\" from [pessoa] where \"nind\" = 1"),
              "Ana"); // a name, where the dialect has a text
    EXPECT_EQ(numberOf([&] { bdp.execute(native("select nind from pessoa where datanasc = #03/12/1750#")); }),
              number::invalidStatement);
}

TEST_F(ANativeStatement, GetsAsManyValuesAsItTakes)
{
    EXPECT_EQ(refusal("delete from pessoa where nind = ?").description,
              text("A instrução leva 1 valor(es), mas foram dados 0."));
    EXPECT_EQ(refusal("delete from pessoa where nind = ?", {3, 1}).number, number::invalidStatement);
    EXPECT_EQ(refusal("delete from pessoa", {3}).number, number::invalidStatement);
    EXPECT_EQ(refusal("select * from pessoa where nind = ?", {1, 2}).number, number::invalidStatement);
    EXPECT_EQ(refusal("select ? from pessoa where nind = ?", {1}).number, number::invalidStatement);
    EXPECT_EQ(refusal("delete from pessoa where nind = ?", {QPoint()}).number, number::typeMismatch);
    EXPECT_EQ(rows("select count(*) from pessoa"), "3");
}

TEST_F(ANativeStatement, IsOne)
{
    EXPECT_EQ(refusal("delete from pessoa where nind = 1; delete from pessoa where nind = 2").number,
              number::invalidStatement);
    EXPECT_EQ(refusal("select * from pessoa; delete from pessoa").number, number::invalidStatement);
    EXPECT_EQ(refusal("").number, number::invalidStatement);
    EXPECT_EQ(refusal(" ; ").number, number::invalidStatement);
    EXPECT_EQ(refusal("rollback").description, text("Instrução desconhecida: começa por \"rollback\"."));
    EXPECT_EQ(refusal("select * from pessoa -- todas").number, number::invalidStatement);
    EXPECT_EQ(refusal("delete from nada where a = ?", {1}).description,
              text("A tabela \"nada\" não existe na BDP \"%1\".").arg(path()));
    EXPECT_EQ(rows("select count(*) from pessoa"), "3");
    EXPECT_EQ(bdp.execute(native("delete from pessoa where nind = 1;")), 1);
    bdp.close();
    EXPECT_EQ(refusal("select * from pessoa").number, number::connectionClosed);
}

TEST_F(ANativeStatement, RollsBackWhatWasAbandonedBeforeItWrites)
{
    bdp.beginTrans();
    run("delete from pessoa");
    bdp.abandonAbove(0);
    EXPECT_EQ(rowsOf("select count(*) from pessoa where nind > ?", {0}), "0");
    EXPECT_EQ(bdp.transactionLevel(), 1);
    EXPECT_EQ(bdp.execute(native("update pessoa set obs = ? where nind = ?", {text("a"), 1})), 1);
    EXPECT_EQ(bdp.transactionLevel(), 0);
    EXPECT_EQ(rows("select nind, obs from pessoa order by nind"), "1|a 2|- 3|-");
}

TEST_F(ANativeRecordset, GivesEachFieldTheTypeOfItsColumn)
{
    const Recordset set(bdp, native("select * from pessoa where nind = ?", {3}));
    EXPECT_EQ(set["nind"].typeId(), QMetaType::Double);
    EXPECT_EQ(set["NOME"].typeId(), QMetaType::QString);
    EXPECT_EQ(set["DataNasc"], QVariant(QDate(1750, 3, 12)));
    EXPECT_EQ(set["viva"], QVariant(true));
    EXPECT_FALSE(set["obs"].isValid());
    const Recordset joined(bdp, native("select datanasc, viva, count(*) from pessoa, filho where pai = nind and "
                                       "filho.nome = ?",
                                       {text("rui")}));
    EXPECT_EQ(joined[0], QVariant(QDate(1750, 3, 12)));
    EXPECT_EQ(joined[1], QVariant(true));
    EXPECT_EQ(joined[2], QVariant(1.0));
    EXPECT_EQ(numberOf([&] { Recordset(bdp, native("delete from pessoa where nind = ?", {3})); }),
              number::invalidStatement);
}

TEST_F(ANativeRecordset, GivesItsRowsInTheOrderOfEntryOrAsAskedFor)
{
    EXPECT_EQ(rowsOf("select nind from pessoa where nind > ?", {0}), "3 1 2");
    EXPECT_EQ(rowsOf("select nind from pessoa where nind > ? order by nind desc", {1}), "3 2");
    EXPECT_EQ(rowsOf("select nind + ? as n from pessoa where nind > ? order by n", {10, 1}), "12 13");
    EXPECT_EQ(rowsOf("select group_concat(nome, ?) from filho where pai = 3", {text("+")}), "Rui");
    EXPECT_EQ(rowsOf("select group_concat(pai) from filho where pai > ?", {1}), "3");
    EXPECT_EQ(
        rowsOf("select nome from filho where pai = ? and nome in (select nome from filho where pai <> ?)", {3, 1}),
        "Rui");
}

TEST_F(ANativeRecordset, IsSearchedSortedAndOpenedAnewWithItsValues)
{
    Recordset set(bdp, native("select nind, nome from pessoa where nind > ?", {1}));
    set.setSort(QStringLiteral("nome"));
    EXPECT_EQ(set["nind"], QVariant(2.0));
    set.find(QStringLiteral("nind = 3"));
    EXPECT_EQ(set["nome"].toString(), text("Zulmira d'Além"));
    set.moveFirst();
    set.find(QStringLiteral("nind = 1"));
    EXPECT_TRUE(set.eof());
    run("insert into pessoa (nind, nome) values (9, 'Bento')");
    run("insert into pessoa (nind, nome) values (0, 'Zita')");
    set.requery();
    EXPECT_EQ(rows(set), "2|Álvaro 9|Bento 3|Zulmira d'Além");
}

TEST_F(ANativeRecordset, IsWrittenTo)
{
    Recordset set(bdp, native("select * from pessoa where nind > ?", {1}));
    set.set(QStringLiteral("obs"), QStringLiteral("a"));
    set.update();
    set.addNew();
    set.set(QStringLiteral("nind"), 7);
    set.update();
    set.moveFirst();
    set.moveNext();
    set.deleteRow();
    EXPECT_EQ(rows("select nind, obs from pessoa order by nind"), "1|- 3|a 7|-");
    Recordset joined(bdp, native("select pessoa.nind, obs from pessoa, filho where pai = nind and filho.nome = ?",
                                 {QStringLiteral("Ivo")}));
    joined.set(QStringLiteral("obs"), QStringLiteral("b"));
    joined.update();
    EXPECT_EQ(rows("select obs from pessoa where nind = 1"), "b");
    EXPECT_EQ(numberOf([&] { joined.deleteRow(); }), number::notUpdatable);
}

TEST_F(ANativeRecordset, IsHeldByADataControl)
{
    DataControl control(bdp);
    control.setRecordSource(native("select nome from pessoa where nind = ?", {2}));
    EXPECT_FALSE(control.recordset().isOpen());
    control.refresh();
    EXPECT_EQ(control.recordset()[0].toString(), text("Álvaro"));
    control.setRecordSource(QStringLiteral("select nome from pessoa where nind = 1"));
    control.refresh();
    EXPECT_EQ(control.recordset()[0].toString(), "Ana");
}

} // namespace jet::test
