#include "mutations.h"

#include <QFile>

namespace {

const QStringList& ours()
{
    static const QStringList all{
        "individuo", "familia",          "familias",    "assistente", "residencia", "profissoes", "infopar",
        "categoria", "infocomplementar", "profissao",   "paroquia",   "concelho",   "pais",       "lugar",
        "sitio",     "passaporte",       "rituaismorte"};
    return all;
}

void onOneTable(Site& site, Dice& dice, const char* statements)
{
    Raw raw(site.bdp());
    raw.run(QString::fromLatin1(statements).replace("%1", dice.of(ours())));
}

// The text of a schema row, edited as no statement could.
void edit(Site& site, const QString& change, const QString& where)
{
    Raw raw(site.bdp());
    raw.run("pragma writable_schema = on; update sqlite_master set " + change + " where " + where);
}

void editOne(Site& site, Dice& dice, const QString& change)
{
    edit(site, change, QStringLiteral("rowid = %1").arg(1 + dice.below(40)));
}

// All that the file holds, in a new file that is set up by `settings`.
void moveInto(Site& site, const QString& settings)
{
    const QString other = site.folder() + "/../outra.orv";
    {
        Raw raw(other);
        raw.run(settings + "; create table inicio (a); attach " + asText(site.bdp()) + " as velha");
        for (const QString& sql : raw.texts("select sql from velha.sqlite_master where sql is not null"))
            raw.run(sql);
        for (const QString& table : raw.texts("select name from velha.sqlite_master where type = 'table'"))
            raw.run(QStringLiteral("insert into main.%1 select * from velha.%1").arg(asName(table)));
        raw.run("drop table inicio");
    }
    Site::setBytesOf(site.bdp(), Site::bytesOf(other));
    for (const char* suffix : {"", "-wal", "-shm"})
        QFile::remove(other + QLatin1String(suffix));
}

constexpr const char* triggers[] = {
    "create trigger t after update on %1 begin select raise(abort, 'VOZ DO FICHEIRO'); end",
    "create trigger t before insert on %1 begin select raise(fail, 'VOZ DO FICHEIRO'); end",
    "create trigger t after delete on %1 begin delete from individuo; end",
    "create trigger t after insert on individuo begin delete from %1; end",
    ("create trigger t after update on infopar begin with recursive c(n) as (select 1 union all select n + 1 from c) "
     "insert into %1 select n from c; end"),
};
constexpr const char* views[] = {
    "alter table %1 rename to velha; create view %1 as select * from velha",
    ("alter table %1 rename to velha; create view %1 as select velha.* from velha, (with recursive c(n) as (select 1 "
     "union all select n + 1 from c) select n from c)"),
    "drop table %1; create view %1 as with recursive c(n) as (select 1 union all select n + 1 from c) select n from c",
    "create view minha as with recursive c(n) as (select 1 union all select n + 1 from c) select n from c",
    "drop table %1; create view %1 as select * from %1",
    "drop table %1; create view %1 as select load_extension('/tmp/x.so') as cod",
};
constexpr const char* virtuals[] = {
    "drop table %1; create virtual table %1 using fts4(cod, nome, obs)",
    "drop table %1; create virtual table %1 using fts5(cod, nome, obs)",
    "drop table %1; create virtual table %1 using rtree(cod, a, b)",
    "create virtual table minha using fts3(a)",
    "drop table %1; create virtual table %1 using dbstat",
    "drop table %1; create virtual table %1 using desconhecida(a)",
};
constexpr const char* generateds[] = {
    "alter table %1 add column gerada generated always as (hex(zeroblob(100000000))) virtual",
    "alter table %1 add column gerada generated always as (abs(-9223372036854775808)) virtual",
    "alter table %1 add column gerada as (1) virtual",
};
constexpr const char* expressions[] = {
    "create index minha on %1 (lower(1), abs(rowid))",
    "create index minha on %1 (1) where rowid > 3",
    "alter table %1 add column mais text default (hex(randomblob(100)))",
    "alter table %1 add column mais text check (length(mais) <> 3)",
    "alter table %1 add column mais text collate nocase default 'x'",
    "alter table %1 add column \"com \"\"aspas e espaços\" text",
    "alter table %1 add column mais text not null default 'x'",
};
constexpr const char* shapes[] = {
    "drop table %1",
    "alter table %1 rename to outra",
    "create table n as select * from %1; drop table %1; alter table n rename to %1",
    "create table n as select rowid as primeira, * from %1; drop table %1; alter table n rename to %1",
    "create table n as select *, * from %1; drop table %1; alter table n rename to %1",
    "drop table %1; create table %1 (a)",
    "drop table %1; create table %1 (cod text primary key, nome text) without rowid",
    ("create table n (nind, nome, nfamilia, primary key (nind, nome, nfamilia)) without rowid; drop table %1;"
     "alter table n rename to %1"),
    "create table \"sim; drop table individuo\" (a)",
    "create table sqlitex_a (a); create table \"'\" (\"'\")",
};
constexpr const char* statistics[] = {
    "analyze; update sqlite_stat1 set stat = '0 0 0'",
    "analyze; update sqlite_stat1 set stat = '99999999999999999999 -1 x'",
    "analyze; update sqlite_stat1 set stat = zeroblob(100), idx = tbl",
    "create table a (b integer primary key autoincrement); insert into sqlite_sequence values ('a', 'x'), (null, 9e99)",
    "pragma user_version = -1; pragma application_id = 7",
};

template <auto& statements>
void anyOf(Site& site, Dice& dice)
{
    onOneTable(site, dice, dice.of(statements));
}

const QStringList& schemaEdits()
{
    static const QStringList all{
        "sql = null",
        "sql = 'create table'",
        "sql = 'nada'",
        "sql = zeroblob(300)",
        "sql = sql || ' strict'",
        "sql = replace(sql, 'nocase', 'desconhecida')",
        "sql = replace(sql, 'nocase', 'rtrim')",
        "sql = replace(sql, 'check (length', 'check (desconhecida')",
        "sql = replace(sql, 'varchar', 'integer')",
        "sql = replace(sql, 'obs', 'nome')",
        "sql = sql || '/*' || hex(zeroblob(500000)) || '*/'",
        "rootpage = 0",
        "rootpage = 1",
        "rootpage = 99999",
        "rootpage = rootpage + 1",
        "rootpage = -1",
        "rootpage = 'x'",
        "type = 'view'",
        "type = 'trigger'",
        "type = 'coisa'",
        "type = null",
        "name = 'individuo'",
        "name = null",
        "tbl_name = 'nada'",
        "name = 'sqlite_stat1'",
    };
    return all;
}

} // namespace

const QList<Mutation>& schemaMutations()
{
    static const QList<Mutation> all{
        {"a trigger", anyOf<triggers>},
        {"a view", anyOf<views>},
        {"a virtual table", anyOf<virtuals>},
        {"a generated column", anyOf<generateds>},
        {"an expression in the schema", anyOf<expressions>},
        {"a table of another shape", anyOf<shapes>},
        {"strange statistics", anyOf<statistics>},
        {"a row of the schema", [](Site& site, Dice& dice) { editOne(site, dice, dice.of(schemaEdits())); }},
        {"all rows of the schema", [](Site& site, Dice& dice) { edit(site, dice.of(schemaEdits()), "1"); }},
        {"a column that is missing",
         [](Site& site, Dice& dice) {
             Raw raw(site.bdp());
             const QString table = dice.of(ours());
             const auto columns = raw.texts("select name from pragma_table_info(" + asText(table) + ")");
             raw.run(QStringLiteral("alter table %1 rename column %2 to outra")
                         .arg(asName(table), asName(columns.value(dice.below(columns.size())))));
         }},
        {"another encoding",
         [](Site& site, Dice& dice) {
             moveInto(site, QStringLiteral("pragma encoding = '%1'").arg(dice.chance(50) ? "utf-16le" : "utf-16be"));
         }},
        {"pages of another size",
         [](Site& site, Dice& dice) {
             moveInto(site, QStringLiteral("pragma page_size = %1; pragma auto_vacuum = %2")
                                .arg(dice.chance(50) ? 512 : 65536)
                                .arg(dice.below(3)));
         }},
        {"the log mode",
         [](Site& site, Dice&) {
             Raw raw(site.bdp());
             raw.run("pragma journal_mode = wal");
         }},
        {"thousands of tables",
         [](Site& site, Dice& dice) {
             Raw raw(site.bdp());
             QString sql = "begin;";
             for (int i = 0, count = 500 + dice.below(1500); i < count; ++i)
                 sql += QStringLiteral("create table t%1 (a, b);").arg(i);
             raw.run(sql + "commit");
         }},
        {"a table of a thousand columns",
         [](Site& site, Dice& dice) {
             Raw raw(site.bdp());
             QString columns;
             for (int i = 0; i < 1000; ++i)
                 columns += QStringLiteral(", c%1").arg(i);
             raw.run(QStringLiteral("drop table %1; create table %1 (cod%2); insert into %1 (cod) values ('a')")
                         .arg(dice.of(ours()), columns));
         }},
    };
    return all;
}
