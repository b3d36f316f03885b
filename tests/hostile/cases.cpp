#include "cases.h"

#include "mutations.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>

namespace {

constexpr auto endless = "(with recursive c(n) as (select 1 union all select n + 1 from c) select n from c)";

void spoil(const Site& site, const QString& statements)
{
    Raw(site.bdp()).run(statements);
}

// A code of a place that closes the text of a statement and calls the engine's function for its own tokenizers, which
// takes an address and hands over to it.
constexpr auto callsTheTokenizer = "x'') or fts3_tokenizer(''simple'', x''4141414141414141'') or (''1'' = ''1";

void placeCode(const Site& site, const char* code)
{
    spoil(site, QStringLiteral("update individuo set localnasc = '%1', localobito = '%1';"
                               "update familia set localcasam = '%1'; update residencia set localresid = '%1';"
                               "update passaporte set localdestino = '%1'; update infopar set cod = '%1'")
                    .arg(QLatin1String(code)));
}

void longWord(const Site& site, int letters)
{
    spoil(site, QStringLiteral("update individuo set obs = replace(hex(zeroblob(%1)), '00', 'W');"
                               "update familia set obs = (select obs from individuo limit 1);"
                               "update residencia set obs = (select obs from individuo limit 1);"
                               "update passaporte set obs = (select obs from individuo limit 1);"
                               "update legadosprofanos set obs = (select obs from individuo limit 1)")
                    .arg(letters));
}

} // namespace

const QList<Case>& cases()
{
    static const QList<Case> all{
        {"a good BDP", Wanted::Calm, [](Site&) {}},
        {"a place code that calls fts3_tokenizer", Wanted::Calm,
         [](Site& site) { placeCode(site, callsTheTokenizer); }},
        {"a place code that closes its text", Wanted::Calm,
         [](Site& site) { placeCode(site, "'' or 1 = 1; delete from individuo; --"); }},
        {"codes of the lists that close their text", Wanted::Opened,
         [](Site& site) {
             spoil(site, "update infocomplementar set codigo = codigo || ''' or ''a''=''a' where rowid % 2;"
                         "update individuo set tipo = ''' or ''a''=''a';"
                         "update familia set sfamilia = ''' or ''a''=''a'");
         }},
        {"a journal that names a super-journal", Wanted::Refused,
         [](Site& site) { Site::setBytesOf(site.beside("-journal"), journalThatNames(site.bystander())); }},
        {"a journal that is a pipe", Wanted::Refused,
         [](Site& site) { mkfifo(QFile::encodeName(site.beside("-journal")).constData(), 0600); }},
        {"a log that is a pipe", Wanted::Refused,
         [](Site& site) {
             spoil(site, "pragma journal_mode = wal");
             mkfifo(QFile::encodeName(site.beside("-wal")).constData(), 0600);
         }},
        {"a journal that is a folder", Wanted::Refused, [](Site& site) { QDir().mkpath(site.beside("-journal")); }},
        {"a journal that is a link", Wanted::Refused,
         [](Site& site) { QFile::link(site.bystander(), site.beside("-journal")); }},
        {"a journal of another file", Wanted::Refused,
         [](Site& site) { Site::setBytesOf(site.beside("-journal"), journalOfAnother()); }},
        {"a journal of its own, after a kill", Wanted::Opened, [](Site& site) { site.breakOff("delete"); }},
        {"a log of its own, after a kill", Wanted::Anything, [](Site& site) { site.breakOff("wal"); }},
        {"a trigger that speaks", Wanted::Refused,
         [](Site& site) {
             for (const char* table : {"infopar", "individuo", "familia", "paroquia"})
                 for (const char* event : {"insert", "update", "delete"})
                     spoil(site, QStringLiteral("create trigger %1%2 before %2 on %1 begin select raise(abort, "
                                                "'VOZ DO FICHEIRO'); end")
                                     .arg(QLatin1String(table), QLatin1String(event)));
         }},
        {"a trigger that deletes", Wanted::Refused,
         [](Site& site) { spoil(site, "create trigger t after update on infopar begin delete from individuo; end"); }},
        {"a view in place of the people", Wanted::Refused,
         [](Site& site) {
             spoil(site, "alter table individuo rename to velha; create view individuo as select * from velha");
         }},
        {"an endless view in place of the families", Wanted::Refused,
         [](Site& site) {
             spoil(site, QStringLiteral("alter table familia rename to velha; create view familia as select velha.* "
                                        "from velha, %1")
                             .arg(QLatin1String(endless)));
         }},
        {"an endless view in place of the parish", Wanted::Refused,
         [](Site& site) {
             spoil(site, QStringLiteral("drop table infopar; create view infopar as select count(*) as cod, '' as nome,"
                                        " 'PT' as pais from %1")
                             .arg(QLatin1String(endless)));
         }},
        {"an endless view of its own", Wanted::Anything,
         [](Site& site) {
             spoil(site, QStringLiteral("create view minha as select * from %1").arg(QLatin1String(endless)));
         }},
        {"a virtual table in place of the places", Wanted::Refused,
         [](Site& site) {
             spoil(site, "drop table paroquia; create virtual table paroquia using fts4(codparoquia, nomeparoquia, "
                         "codconcelho, obs, prioridade)");
         }},
        {"a generated column", Wanted::Refused,
         [](Site& site) {
             spoil(site, "alter table individuo add column g generated always as (hex(zeroblob(100000000))) virtual");
         }},
        {"a check that calls a function", Wanted::Anything,
         [](Site& site) {
             spoil(site, "alter table individuo add column g text check (hex(randomblob(100000000)) <> g)");
         }},
        {"an index over an expression", Wanted::Anything,
         [](Site& site) { spoil(site, "create index caro on individuo (hex(zeroblob(1000000) || nome))"); }},
        {"a word of a hundred thousand letters in the notes", Wanted::Calm, [](Site& site) { longWord(site, 100000); }},
        {"a word of a million letters in the notes", Wanted::Calm, [](Site& site) { longWord(site, 1000000); }},
        {"names of a million letters", Wanted::Opened,
         [](Site& site) {
             spoil(site, "update individuo set nome = replace(hex(zeroblob(1000000)), '00', 'W') where rowid < 5;"
                         "update infopar set nome = (select nome from individuo limit 1);"
                         "update infocomplementar set descricao = (select nome from individuo limit 1) where "
                         "rowid < 5");
         }},
        {"texts that are no letters", Wanted::Anything,
         [](Site& site) {
             spoil(site, "update individuo set nome = cast(x'c328a0ff00eda080' as text), obs = nome;"
                         "update infopar set nome = cast(x'c328a0ff00eda080' as text)");
         }},
        {"numbers beyond all numbers", Wanted::Anything,
         [](Site& site) {
             spoil(site, "update individuo set nind = 9e999 where nind = 1; update familia set tipocasal = 9e300;"
                         "update individuo set nind = -9223372036854775808 where nind = 2;"
                         "update individuo set famorig = 9223372036854775807, idadepai = 9e999, altura = 1e300");
         }},
        {"paths to programs in place of records", Wanted::Opened,
         [](Site& site) {
             spoil(site, "update individuo set rpBapt = '/bin/sh', rpObi = '\\\\servidor\\pasta\\x.exe';"
                         "update familia set rpCas = '/tmp/x.desktop'");
         }},
        {"somebody who is their own parent", Wanted::Opened,
         [](Site& site) {
             spoil(site, "update individuo set famorig = (select nfamilia from familias where familias.nind = "
                         "individuo.nind limit 1)");
         }},
        {"people of the file of another program", Wanted::Anything,
         [](Site& site) {
             QFile::remove(site.bdp());
             spoil(site, "create table individuo (a); create table familia (b); create table infopar (c)");
         }},
        {"thousands of families without people", Wanted::Opened,
         [](Site& site) {
             spoil(site, "with recursive c(n) as (select 10000 union all select n + 1 from c where n < 60000) "
                         "insert into familia (nfamilia) select n from c");
         }},
        {"fifty thousand children of a family", Wanted::Opened,
         [](Site& site) {
             spoil(site, "with recursive c(n) as (select 10000 union all select n + 1 from c where n < 60000) "
                         "insert into individuo (nind, nome, sexo, famorig) select n, 'Ana', 'f', "
                         "(select min(nfamilia) from familia) from c");
         }},
    };
    return all;
}
