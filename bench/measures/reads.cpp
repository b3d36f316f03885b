#include "measures/reads.h"

namespace bench {

void readPerson(Bare& bare, double person)
{
    bare.run("select nome, tipo, sexo, famorig, titulo, alcunha, inicioobs, fimobs, datanasc, DnascFixa, localnasc, "
             "tipolocalnasc, filiacao, idadepai, idademae, estadocivilpai, estadocivilmae, dataobito, dobitofixa, "
             "localobito, tipolocalobito, causa, idadeobito, estadoobito, menor, sacramentos, classparoquial, testam, "
             "escrit, obs from individuo where nind = ?",
             {person});
    bare.run("select familia.nfamilia, tipocasal, sfamilia, datacasam from familias join familia on familia.nfamilia = "
             "familias.nfamilia where familias.nind = ? order by datacasam",
             {person});
}

void readFamily(Bare& bare, double family)
{
    bare.run("select sfamilia, tipocasal, datacasam, dcasamfixa, localcasam, tipolocalcasam, inicioobs, fimobs, obs "
             "from familia where nfamilia = ?",
             {family});
    bare.run("select familias.nind, idade, estadocivil, numcasam, sexo, nome, datanasc, dataobito, nomelugar from "
             "familias join individuo on individuo.nind = familias.nind left join lugar on codlugar = localnasc where "
             "nfamilia = ?",
             {family});
    bare.run("select filho.nind, nome, datanasc, fimobs, dataobito, (select min(datacasam) from familias join familia "
             "on familia.nfamilia = familias.nfamilia where familias.nind = filho.nind) from individuo as filho where "
             "famorig = ? order by datanasc",
             {family});
}

void readPlace(Bare& bare, double person)
{
    bare.run("select nomelugar from individuo join lugar on codlugar = localnasc where nind = ?", {person});
}

void readTree(Bare& bare, double person)
{
    bare.run("with pais(nind) as (select fs.nind from individuo as i join familias as fs on fs.nfamilia = i.famorig "
             "where i.nind = ?1), avos(nind) as (select fs.nind from pais join individuo as i on i.nind = pais.nind "
             "join familias as fs on fs.nfamilia = i.famorig) select nome, sexo, datanasc, dataobito, "
             "individuo.inicioobs, individuo.fimobs, nomelugar from (select nind from pais union all select nind from "
             "avos) as deles join individuo on individuo.nind = deles.nind left join lugar on codlugar = localnasc",
             {person});
}

void readFactsOf(Bare& bare, double person)
{
    bare.run("select dataref, profissao from profissoes join profissao on profissao.codprof = profissoes.codprof where "
             "nind = ? order by dataref",
             {person});
}

static void readWorkingList(Bare& bare)
{
    bare.run("select codsitio, nomesitio from sitio where prioridade <> 0 union all select codlugar, nomelugar from "
             "lugar where prioridade <> 0 union all select codparoquia, nomeparoquia from paroquia where prioridade <> "
             "0 union all select codconcelho, nomeconcelho from concelho where prioridade <> 0 union all select "
             "coddistrito, nomedistrito from distrito where prioridade <> 0 union all select codzona, nomezona from "
             "zonapais where prioridade <> 0 union all select codpais, nomepais from pais where prioridade <> 0");
}

void readListsOfPerson(Bare& bare)
{
    bare.run("select categoria, codigo, descricao from infocomplementar where categoria in ('Filia', 'TipIn', 'EstCi', "
             "'Sacra', 'ClaPa')");
    readWorkingList(bare);
}

void readListsOfFamily(Bare& bare)
{
    bare.run(
        "select categoria, codigo, descricao from infocomplementar where categoria in ('SitFa', 'TipFa', 'EstCi')");
    readWorkingList(bare);
}

double lastPerson(Bare& bare)
{
    return bare.number("select nind from individuo order by nind desc limit 1");
}

double lastFamily(Bare& bare)
{
    return bare.number("select nfamilia from familia order by nfamilia desc limit 1");
}

} // namespace bench
