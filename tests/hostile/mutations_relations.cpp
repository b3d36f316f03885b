#include "mutations.h"

namespace {

// The people of `from` become children of family `to`, and so on round: everybody is everybody's ancestor.
void circle(Raw& raw, int length)
{
    for (int i = 1; i <= length; ++i)
        raw.run(QStringLiteral("update individuo set famorig = %1 where nind = %2;"
                               "insert or ignore into familia (nfamilia) values (%1);"
                               "insert or ignore into familias (nfamilia, nind) values (%1, %3)")
                    .arg(900 + i)
                    .arg(i)
                    .arg(i % length + 1));
}

void children(Raw& raw, int count)
{
    raw.run(QStringLiteral("with recursive c(n) as (select 5000 union all select n + 1 from c where n < 5000 + %1) "
                           "insert or ignore into individuo (nind, nome, sexo, famorig) "
                           "select n, 'Filho ' || n, 'm', (select min(nfamilia) from familias) from c")
                .arg(count));
}

// Somebody with a line of ancestors of `length` generations.
void line(Raw& raw, int length)
{
    raw.run(QStringLiteral("with recursive c(n) as (select 5000 union all select n + 1 from c where n < 5000 + %1) "
                           "insert or ignore into individuo (nind, nome, sexo, famorig) select n, 'Avô', 'm', n from c;"
                           "with recursive c(n) as (select 5000 union all select n + 1 from c where n < 5000 + %1) "
                           "insert or ignore into familia (nfamilia) select n from c;"
                           "with recursive c(n) as (select 5000 union all select n + 1 from c where n < 5000 + %1) "
                           "insert or ignore into familias (nfamilia, nind) select n, n + 1 from c;"
                           "update individuo set famorig = 5000 where nind = (select min(nind) from individuo)")
                .arg(length));
}

} // namespace

const QList<Mutation>& relationMutations()
{
    static const QList<Mutation> all{
        {"somebody who is their own parent",
         [](Site& site, Dice&) {
             Raw raw(site.bdp());
             circle(raw, 1);
         }},
        {"ancestors in a circle",
         [](Site& site, Dice& dice) {
             Raw raw(site.bdp());
             circle(raw, 2 + dice.below(6));
         }},
        {"a long line of ancestors",
         [](Site& site, Dice& dice) {
             Raw raw(site.bdp());
             line(raw, 100 + dice.below(2000));
         }},
        {"very many children",
         [](Site& site, Dice& dice) {
             Raw raw(site.bdp());
             children(raw, 500 + dice.below(5000));
         }},
        {"everybody married to everybody",
         [](Site& site, Dice&) {
             Raw raw(site.bdp());
             raw.run("insert or ignore into familias (nfamilia, nind) select nfamilia, nind from familia, individuo "
                     "limit 2000");
         }},
        {"somebody married to themselves",
         [](Site& site, Dice&) {
             Raw raw(site.bdp());
             raw.run("create table f as select * from familias; drop table familias; alter table f rename to familias;"
                     "insert into familias select * from familias");
         }},
        {"people and families that nobody has",
         [](Site& site, Dice& dice) {
             Raw raw(site.bdp());
             raw.run(QStringLiteral("update or ignore individuo set famorig = %1, testamenteiro = %1, "
                                    "primpadrebapt = %1, segpadrebapt = %1, primpadreobito = %1;"
                                    "update or ignore familia set primpadrecasam = %1, segpadrecasam = %1;"
                                    "update or ignore assistente set nind = %1;"
                                    "update or ignore legadosprofanos set nindherd = %1;"
                                    "update or ignore familias set nind = nind + %1")
                         .arg(77777 + dice.below(100)));
         }},
        {"places that are none",
         [](Site& site, Dice& dice) {
             Raw raw(site.bdp());
             const QString code = strangeValue(dice);
             raw.run(QStringLiteral("update individuo set localnasc = %1, localobito = %1;"
                                    "update familia set localcasam = %1; update residencia set localresid = %1;"
                                    "update passaporte set localdestino = %1")
                         .arg(code));
         }},
        {"levels of places that are none",
         [](Site& site, Dice& dice) {
             Raw raw(site.bdp());
             const QString letter =
                 dice.chance(50) ? QStringLiteral("'%1'").arg(QChar(33 + dice.below(90))) : strangeValue(dice);
             raw.run(QStringLiteral("update individuo set tipolocalnasc = %1, tipolocalobito = %1;"
                                    "update familia set tipolocalcasam = %1; update residencia set tipolocal = %1;"
                                    "update passaporte set tipolocaldest = %1")
                         .arg(letter));
         }},
        {"places with strange codes",
         [](Site& site, Dice& dice) {
             Raw raw(site.bdp());
             const QString code = strangeValue(dice);
             raw.run(QStringLiteral("update or ignore paroquia set codparoquia = %1, codconcelho = %1 where rowid in "
                                    "(select rowid from paroquia order by prioridade desc limit 1);"
                                    "update or ignore lugar set codparoquia = %1; update infopar set cod = %1;"
                                    "update or ignore concelho set coddistrito = %1 where rowid %% 3 = 0")
                         .arg(code));
         }},
        {"codes that are none",
         [](Site& site, Dice& dice) {
             Raw raw(site.bdp());
             const QString code = strangeValue(dice);
             raw.run(QStringLiteral("update individuo set tipo = %1, sexo = %1, filiacao = %1, estadocivilpai = %1;"
                                    "update individuo set classparoquial = %1, sacramentos = %1, estadoobito = %1;"
                                    "update familia set sfamilia = %1, tipocasal = %1;"
                                    "update or ignore infocomplementar set codigo = %1 where rowid %% 2 = 0")
                         .arg(code));
         }},
        {"two parishes",
         [](Site& site, Dice&) {
             Raw raw(site.bdp());
             raw.run("create table p as select * from infopar; drop table infopar; alter table p rename to infopar;"
                     "insert into infopar select * from infopar");
         }},
    };
    return all;
}
