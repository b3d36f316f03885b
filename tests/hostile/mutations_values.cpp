#include "mutations.h"

namespace {

QString repeated(const char* what, int times)
{
    return QStringLiteral("replace(hex(zeroblob(%1)), '00', '%2')").arg(times).arg(QLatin1String(what));
}

QStringList tables(Raw& raw)
{
    return raw.texts("select name from sqlite_master where type = 'table' and name not like 'sqlite!_%' escape '!'");
}

// A table that the cards show, most of the time.
QString aTable(Raw& raw, Dice& dice)
{
    static constexpr const char* shown[] = {"individuo",  "familia",         "familias",   "assistente",
                                            "residencia", "infopar",         "profissoes", "rituaismorte",
                                            "passaporte", "infocomplementar"};
    return dice.chance(75) ? QString::fromLatin1(dice.of(shown))
                           : dice.of(QStringList(tables(raw) + QStringList("infopar")));
}

QString aColumn(Raw& raw, const QString& table, Dice& dice)
{
    const auto columns = raw.texts("select name from pragma_table_info(" + asText(table) + ")");
    return columns.value(dice.below(columns.size()), "nome");
}

void set(Raw& raw, const QString& table, const QString& column, const QString& value, const QString& where)
{
    raw.run(
        QStringLiteral("update or ignore %1 set %2 = %3 where %4").arg(asName(table), asName(column), value, where));
}

// The schema loses what it demands of the values: checks, types, keys.
void loosen(Raw& raw, const QString& table)
{
    raw.run(QStringLiteral("create table frouxa as select * from %1; drop table %1; alter table frouxa rename to %1")
                .arg(asName(table)));
}

} // namespace

QString strangeValue(Dice& dice)
{
    static const QStringList values{
        "null",
        "''",
        "' '",
        "'0'",
        "'-1'",
        "'abc'",
        "-1",
        "0",
        "0.5",
        "-0.0",
        "1e308",
        "9e999",
        "-9e999",
        "9223372036854775807",
        "-9223372036854775808",
        "2147483648",
        "1e-320",
        "x'00'",
        "zeroblob(5000)",
        "x'fffe410042'",
        "cast(x'c328a0ff' as text)",
        "cast(x'eda080edb080' as text)",
        "cast(x'f4bfbfbf' as text)",
        "'a' || char(0) || 'b'",
        "char(0x2028, 0x202e, 0xfeff, 0x200d, 0x1f468)",
        "char(10, 13, 10, 9, 7, 27)",
        "'''; delete from individuo; --'",
        "'\"'",
        "'%'",
        "'_%_[a-]*?#'",
        "'#1/2/1700#'",
        "'%1 %2 %n %s %99'",
        "'&&&Abrir'",
        "'<b>n</b><img src=\"file:///etc/passwd\"><a href=\"x\">y</a>'",
        "'30/02/1712'",
        "'1712-02-30'",
        "'0000-00-00'",
        "'99999-12-31'",
        "'-4713-11-24'",
        "'1712-02-28 25:61:61'",
        "1712",
        "2415020.5",
        "'/bin/sh'",
        "'file:///etc/passwd'",
        "'PT01020304050607080910'",
        "'x'') or fts3_tokenizer(''simple'', x''4141414141414141'') or (''1'' = ''1'",
        "'" + QString::fromLatin1(voiceOfTheFile) + "'",
    };
    switch (dice.below(12)) {
    case 0:
        return repeated("palavra ", 1000 + dice.below(20000));
    case 1:
        return repeated("W", 1000 + dice.below(1000000));
    default:
        return dice.of(values);
    }
}

// A strange value in any column of one of the first rows.
static void setOne(Raw& raw, const QString& table, Dice& dice)
{
    set(raw, table, aColumn(raw, table, dice), strangeValue(dice), QStringLiteral("rowid = %1").arg(1 + dice.below(5)));
}

const QList<Mutation>& valueMutations()
{
    static const QList<Mutation> all{
        {"a strange value",
         [](Site& site, Dice& dice) {
             Raw raw(site.bdp());
             for (int count = 1 + dice.below(6); count > 0; --count)
                 setOne(raw, aTable(raw, dice), dice);
         }},
        {"a column of strange values",
         [](Site& site, Dice& dice) {
             Raw raw(site.bdp());
             const QString table = aTable(raw, dice);
             set(raw, table, aColumn(raw, table, dice), strangeValue(dice), "1");
         }},
        {"a row of strange values",
         [](Site& site, Dice& dice) {
             Raw raw(site.bdp());
             const QString table = aTable(raw, dice);
             const QString row = QStringLiteral("rowid = %1").arg(1 + dice.below(5));
             for (const QString& column : raw.texts("select name from pragma_table_info(" + asText(table) + ")"))
                 set(raw, table, column, strangeValue(dice), row);
         }},
        {"strange values in a table that demands nothing",
         [](Site& site, Dice& dice) {
             Raw raw(site.bdp());
             const QString table = aTable(raw, dice);
             loosen(raw, table);
             for (int count = 1 + dice.below(6); count > 0; --count)
                 setOne(raw, table, dice);
         }},
        {"the same row many times",
         [](Site& site, Dice& dice) {
             Raw raw(site.bdp());
             const QString table = aTable(raw, dice);
             loosen(raw, table);
             for (int count = 1 + dice.below(9); count > 0; --count)
                 raw.run(QStringLiteral("insert into %1 select * from %1 limit 5000").arg(asName(table)));
         }},
        {"a table without rows",
         [](Site& site, Dice& dice) {
             Raw raw(site.bdp());
             raw.run("delete from " + asName(aTable(raw, dice)));
         }},
        {"no rows at all",
         [](Site& site, Dice&) {
             Raw raw(site.bdp());
             for (const QString& table : tables(raw))
                 raw.run("delete from " + asName(table));
         }},
        {"rows that are gone",
         [](Site& site, Dice& dice) {
             Raw raw(site.bdp());
             raw.run(QStringLiteral("delete from %1 where rowid %% %2 = 0")
                         .arg(asName(aTable(raw, dice)))
                         .arg(2 + dice.below(4)));
         }},
    };
    return all;
}
