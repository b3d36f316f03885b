// The statements about families, as the program sends them.
#include "jet/testbdp.h"

namespace jet::test {

using StatementsOnFamilies = ParishBdp;

TEST_F(StatementsOnFamilies, OfTheCard)
{
    EXPECT_EQ(select("select * from familia").recordCount(), 3);
    expectRows({
        {"Select * from  familias where nfamilia = 1", "1|1|24|1|1 1|2|-|-|-"},
        {"select sexo from individuo where nind = 2", "f"},
        {"Select codigo, descricao from infocomplementar where  categoria = 'SitFa'", "1|Legítima"},
        {"Select codigo from infocomplementar where  categoria = 'TipFa'", ""},
        {"Select codigo, descricao from infocomplementar where  categoria = 'EstCi'", "1|Solteiro 2|Casado 10|*Viúvo"},
        {"select nomedistrito from distrito where  coddistrito ='01'", "Aveiro"},
        {"select nomeconcelho from concelho  where codconcelho ='0101'", "Águeda"},
        {"select nomeparoquia from paroquia  where codparoquia ='010101'", "Agadão"},
        {"SELECT [individuo].[FAMORIG], [individuo].[FimObs], [individuo].[NIND], [individuo].[NOME], "
         "[individuo].[Datanasc], [individuo].[DataObito],  MIN([Familia].[DaTacASAM]) as dataCasam  From individuo  "
         "LEFT JOIN ( familia RIGHT JOIN familias  ON [familia].[nfamilia] =[familias].[nfamilia]) ON "
         "[individuo].[nind]=[familias].[nind] where famorig = 1 group by famorig, individuo.nind, nome, "
         "individuo.fimobs, datanasc, dataobito ORDER BY datanasc",
         "1|-|4|Álvaro|31/01/1748|-|- 1|-|3|Ana|05/03/1750|20/11/1790|24/06/1775"},
        {"select nome, sexo, datanasc, localnasc,  tipolocalnasc, dataobito from individuo where nind = 1",
         "José da Silva|m|03/05/1720|010101|F|-"},
        {"select nome, sexo, datanasc, localnasc, tipolocalnasc, dataobito from individuo where nind =2",
         "Maria Ávila|f|13/12/1725|-|-|02/01/1800"},
        {"select datanasc from individuo where nind = 4", "31/01/1748"},
        {"select datanasc, dataobito from individuo where nind = 3", "05/03/1750|20/11/1790"},
        {"select dataobito from individuo where nind = 1", "-"},
        {"select count(datanasc) as Datas, count(nind) as  Filhos from individuo where  famorig = 1", "2|2"},
    });
}

TEST_F(StatementsOnFamilies, OfTheInsert)
{
    const char* family = "select sfamilia, tipocasal, datacasam, dcasamfixa, obs from familia where nfamilia = 9";
    expectChanges({
        {"insert into familia (nfamilia, sfamilia, tipocasal) values (9,1,'4')", 1, family, "1|4|-|-|-"},
        {"insert into familias (nfamilia, nind) values (3,1)", 1, "select nind from familias where nfamilia = 3",
         "6 1"},
        {"insert into familias (nind, nfamilia)  values (1,3)", 1, "select nind from familias where nfamilia = 3",
         "6 1"},
        {"update familia set datacasam = #12/31/1780# where nfamilia = 3", 1,
         "select datacasam from familia where nfamilia = 3", "31/12/1780"},
        {"update familia set dcasamfixa = 1  where nfamilia = 3", 1,
         "select dcasamfixa from familia where nfamilia = 3", "sim"},
        {"update familia set dcasamfixa = 0 where nfamilia = 3", 1, "select dcasamfixa from familia where nfamilia = 3",
         "não"},
        {"update familia set localcasam ='010102' where nfamilia = 3", 1,
         "select localcasam from familia where nfamilia = 3", "010102"},
        {"update familia set tipolocalcasam ='F' where nfamilia = 3", 1,
         "select tipolocalcasam from familia where nfamilia = 3", "F"},
        {"update familia set inicioobs = #01/02/1780# where nfamilia = 3", 1,
         "select inicioobs from familia where nfamilia = 3", "02/01/1780"},
        {"update familia set fimobs = #13/02/1780# where nfamilia = 3", 1,
         "select fimobs from familia where nfamilia = 3", "13/02/1780"},
        {"update familia set obs = 'Casados em Águeda' where nfamilia = 3", 1,
         "select obs from familia where nfamilia = 3", "Casados em Águeda"},
        {"update familias set idade = 24 where nfamilia = 2 and nind = 3", 1,
         "select idade from familias where nind = 3", "24"},
        {"update familias set estadocivil = 2 where nfamilia = 2 and nind = 3", 1,
         "select estadocivil from familias where nind = 3", "2"},
        {"update familias set numcasam = 1 where nfamilia = 2 and nind = 3", 1,
         "select numcasam from familias where nind = 3", "1"},
        {"update familias set idade =24 where nind = 3 and nfamilia =2", 1, "select idade from familias where nind = 3",
         "24"},
        {"update familias set estadocivil =2 where nind = 3 and nfamilia =2", 1,
         "select estadocivil from familias where nind = 3", "2"},
        {"update familias set numcasam =1 where nind = 3 and nfamilia =2", 1,
         "select numcasam from familias where nind = 3", "1"},
    });
    expectErrors(number::invalidStatement, {"update familia set obs = 'Casa d'Além' where nfamilia = 3",
                                            "update familias set numcasam = where "
                                            "nind = 3 and nfamilia =2",
                                            "insert into familia (nfamilia, sfamilia, tipocasal) values (,1,'4')",
                                            "insert into familia (nfamilia, sfamilia, tipocasal) values (9,1,'abc')"});
    expectErrors(number::duplicateKey, {"insert into familia (nfamilia, sfamilia, tipocasal) values (1,1,'4')",
                                        "insert into familias (nfamilia, nind) values (1,1)"});
}

TEST_F(StatementsOnFamilies, OfTheSearch)
{
    expectRows({
        {"select nfamilia , tipocasal, datacasam  from familia where nfamilia=2 and sfamilia= '2' and tipocasal = 3 "
         "order by datacasam",
         "2|3|24/06/1775"},
        {"select nfamilia , tipocasal, datacasam  from familia where sfamilia= '1' order by datacasam",
         "3|7|- 1|1|01/02/1745"},
        {"select nfamilia , tipocasal, datacasam  from familia where localcasam = '010101' and tipolocalcasam = 'F' "
         "order by datacasam",
         "1|1|01/02/1745"},
        {"select nfamilia , tipocasal, datacasam  from familia where  obs like '%' order by datacasam", ""},
        {"select nfamilia , tipocasal, datacasam  from familia where  nfamilia in (select nfamilia from familias where "
         "nind in (select nind from individuo where sexo = 'm' and nome like 'josé%')) and  nfamilia in (select "
         "nfamilia from familias where nind in (select nind from individuo where sexo = 'f' and nome like '%Ávila')) "
         "order by datacasam",
         "1|1|01/02/1745"},
        {"select nfamilia , tipocasal, datacasam  from familia where sfamilia= '2' and  nfamilia in (select nfamilia "
         "from familias where nind in (select nind from individuo where sexo = 'm' and nome like 'a%')) and  nfamilia "
         "in (select nfamilia from familias where nind in (select nind from individuo where sexo = 'f' and nome like "
         "'a%')) order by datacasam",
         "2|3|24/06/1775"},
        {"select nfamilia , tipocasal, datacasam  from familia where  nfamilia in (select nfamilia from familias where "
         "nind in (select nind from individuo where sexo = 'm' and nome like 'ANTÓNIO')) order by datacasam",
         "2|3|24/06/1775"},
        {"select nfamilia , tipocasal, datacasam  from familia where sfamilia= '1' and  nfamilia in (select nfamilia "
         "from familias where nind in (select nind from individuo where sexo = 'f' and nome like '%')) order by "
         "datacasam",
         "3|7|- 1|1|01/02/1745"},
        {"select nfamilia , tipocasal,datacasam  from familia where  datacasam  = #24/06/1775# order by datacasam",
         "2|3|24/06/1775"},
        {"select nfamilia , tipocasal,datacasam  from familia where sfamilia= '1' and  datacasam  between #01/02/1745# "
         "and #31/12/1745# order by datacasam",
         "1|1|01/02/1745"},
        {"select familia.nfamilia as nfamilia, tipocasal,  datacasam,  min(filho.datanasc) from individuo, individuo "
         "as "
         "filho, familias, familia where familia.nfamilia =  familias.nfamilia and  individuo.nind = familias.nind and "
         " "
         "filho.famorig = familias.nfamilia  group by familia.nfamilia , tipocasal, datacasam  having "
         "min(filho.datanasc)  between #01/01/1740# and #31/12/1750# order by familia.nfamilia",
         "1|1|01/02/1745|31/01/1748"},
        {"select familia.nfamilia as nfamilia, tipocasal,  datacasam,  min(filho.datanasc) from individuo, individuo "
         "as "
         "filho, familias, familia where familia.nfamilia =  familias.nfamilia and  individuo.nind = familias.nind and "
         " "
         "filho.famorig = familias.nfamilia and sfamilia= '1' group by familia.nfamilia , tipocasal, datacasam  having "
         "min(filho.datanasc)  = #31/01/1748# order by familia.nfamilia",
         "1|1|01/02/1745|31/01/1748"},
    });
    // The number of the family stands in two of the tables.
    expectErrors(number::invalidStatement,
                 {"select familia.nfamilia as nfamilia, tipocasal,  datacasam,  min(filho.datanasc) from individuo, "
                  "individuo as filho, familias, familia where familia.nfamilia =  familias.nfamilia and  "
                  "individuo.nind = familias.nind and  filho.famorig = familias.nfamilia and nfamilia=1 group by "
                  "familia.nfamilia , tipocasal, datacasam  having min(filho.datanasc)  = #31/01/1748# order by "
                  "familia.nfamilia"});
}

TEST_F(StatementsOnFamilies, OfTheDelete)
{
    expectChanges({
        {"update individuo set famorig = null where famorig = 1", 2,
         "select count(*) from individuo where famorig is null", "6"},
        {"delete from residencia where tiporesid = 'f' and numero = 1", 1, "select numero from residencia", "3 3"},
        {"delete from assistente where tipoacto = 'c' and entidade = 1", 1, "select nind from assistente", "5"},
        {"delete from familias where nfamilia = 2", 2, "select nind from familias", "1 2 6"},
        {"delete from familia where nfamilia = 2", 1, "select nfamilia from familia", "1 3"},
    });
}

TEST_F(StatementsOnFamilies, OfTheTrees)
{
    expectRows({
        {"SELECT familia.nfamilia, individuo.nome,individuo.sexo, datanasc, localnasc,  tipolocalnasc, dataobito, "
         "individuo.inicioobs, individuo.fimobs, individuo.famorig  FROM individuo INNER JOIN (familia INNER JOIN "
         "familias ON  familia.nfamilia = familias.nfamilia) ON individuo.nind = familias.nind WHERE familias.nfamilia "
         "= 2 order by individuo.sexo desc",
         "2|António|m|-|-|-|-|-|-|- 2|Ana|f|05/03/1750|-|-|20/11/1790|-|-|1"},
        {"SELECT familia.nfamilia, individuo.nome as nome,individuo.sexo, datanasc,  dataobito, individuo.inicioobs, "
         "individuo.fimobs, individuo.famorig  FROM individuo INNER JOIN (familia INNER JOIN familias ON  "
         "familia.nfamilia = familias.nfamilia) ON individuo.nind = familias.nind WHERE familias.nfamilia = 1 order by "
         "individuo.sexo desc",
         "1|José da Silva|m|03/05/1720|-|-|-|- 1|Maria Ávila|f|13/12/1725|02/01/1800|-|-|-"},
        {"select individuo.nind, nome from individuo, familias where nfamilia = 1 and familias.nind = individuo.nind "
         "and "
         " familias.nind <> 1",
         "2|Maria Ávila"},
        {"select famorig, datanasc, localnasc, tipolocalnasc,  dataobito, inicioobs, fimobs from individuo where nind "
         "= "
         "3",
         "1|05/03/1750|-|-|20/11/1790|-|-"},
        {"select nome , datanasc, dataobito, inicioobs, fimobs, famorig from individuo where nind = 3",
         "Ana|05/03/1750|20/11/1790|-|-|1"},
        {"select dataref, localresid, tipolocal  from residencia where numero = 1 and tiporesid = 'f' order by dataref",
         "06/05/1746|010101|F"},
        {"select dataref, profissao  from profissoes, profissao where profissao.codprof =  profissoes.codprof and nind "
         "= 1 order by dataref",
         "01/01/1750|*Lavrador 01/01/1760|Ferreiro"},
    });
    expectErrors(number::invalidStatement,
                 {"select nome, sexo from  individuo, familia, familias where  individuo.nind = familias.nind and "
                  "familias.nfamilia = 1 order by pais.sexo desc"});
}

} // namespace jet::test
