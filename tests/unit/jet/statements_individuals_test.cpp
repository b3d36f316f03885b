// The statements about individuals, as the program sends them.
#include "jet/testbdp.h"

namespace jet::test {

using StatementsOnIndividuals = ParishBdp;

TEST_F(StatementsOnIndividuals, OfTheCard)
{
    expectRows({
        {"select nind from individuo order by nind", "1 2 3 4 5 6"},
        {"select nome, datanasc from individuo where nind = 3", "Ana|05/03/1750"},
        {"SELECT familia.nfamilia, tipocasal, sfamilia, datacasam FROM (familia INNER JOIN familias ON "
         "familia.nfamilia "
         "= familias.nfamilia) WHERE familias.nind =1 order by datacasam asc",
         "1|1|1|01/02/1745"},
        {"Select codigo, descricao from infocomplementar where infocomplementar.categoria = 'Filia'", ""},
        {"Select codigo from infocomplementar where  infocomplementar.categoria = 'TipIn'", "T"},
        {"Select codigo, descricao from infocomplementar where  infocomplementar.categoria = 'EstCi'",
         "1|Solteiro 2|Casado 10|*Viúvo"},
        {"Select codigo, descricao from infocomplementar where  infocomplementar.categoria = 'Sacra'", ""},
        {"Select codigo, descricao from infocomplementar where  infocomplementar.categoria = 'ClaPa'", ""},
        {"select datanasc, dataobito, inicioobs, fimobs from individuo where nind = 2", "13/12/1725|02/01/1800|-|-"},
        {"select datanasc, dataobito, inicioobs, fimobs from individuo where nind = 99", ""},
    });
    EXPECT_EQ(select("select * from individuo").recordCount(), 6);
    EXPECT_EQ(select("select * from individuo where nind = 4").fieldCount(), 46);
}

TEST_F(StatementsOnIndividuals, OfTheSearchWithoutFamilies)
{
    expectRows({
        {"select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where  individuo.nome like "
         "'Á%' order by nome",
         "4|Álvaro|31/01/1748|-|1"},
        {"select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where  individuo.nome like "
         "'%á%' order by nome",
         "4|Álvaro|31/01/1748|-|1 2|Maria Ávila|13/12/1725|02/01/1800|-"},
        {"select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where individuo.sexo = 'f' "
         "order by nome",
         "3|Ana|05/03/1750|20/11/1790|1 2|Maria Ávila|13/12/1725|02/01/1800|- 6|Zulmira d'Além|-|-|-"},
        {"select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where  individuo.nind=3 "
         "and "
         "individuo.tipo= '4' and individuo.sexo = 'f' order by nome",
         "3|Ana|05/03/1750|20/11/1790|1"},
        {"select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where individuo.tipo= '4' "
         "and individuo.sexo = 'd' order by nome",
         ""},
        {"select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where individuo.localnasc "
         "= "
         "'010101' and individuo.tipolocalnasc = 'f' and individuo.filiacao = 1 order by nome",
         "1|José da Silva|03/05/1720|-|-"},
        {"select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where individuo.localobito "
         "= "
         "'01010101' and individuo.tipolocalobito = 'L' order by nome",
         "2|Maria Ávila|13/12/1725|02/01/1800|-"},
        {"select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where individuo.filiacao = "
         "1 "
         "and individuo.obs like '%x%' order by nome",
         ""},
        {"select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where  individuo.obs like "
         "'%BEXIGAS' order by nome",
         "3|Ana|05/03/1750|20/11/1790|1"},
        {"select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where  datanasc = "
         "#03/05/1750# order by nome",
         "3|Ana|05/03/1750|20/11/1790|1"},
        {"select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where  dataobito = "
         "#01/02/1800# order by nome",
         "2|Maria Ávila|13/12/1725|02/01/1800|-"},
        {"select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where  dataobito between "
         "#01/01/1790# and #12/31/1799# order by nome",
         "3|Ana|05/03/1750|20/11/1790|1"},
    });
}

// Kept: the two dates stand there day first, are read month first where they can be, and day first again.
TEST_F(StatementsOnIndividuals, OfTheSearchByAnIntervalOfBirths)
{
    expectRows({
        {"select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where  datanasc between "
         "format(#05/03/1750#, 'mm/dd/yyyy') and format(#05/03/1750# , 'mm/dd/yyyy') order by nome",
         "3|Ana|05/03/1750|20/11/1790|1"},
        {"select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where individuo.sexo = 'm' "
         "and datanasc between Format(#01/01/1748#, 'mm/dd/yyyy') and Format(#31/12/1748#, 'mm/dd/yyyy') order by nome",
         "4|Álvaro|31/01/1748|-|1"},
    });
}

TEST_F(StatementsOnIndividuals, OfTheSearchByMarriage)
{
    expectRows({
        {"select individuo.nind as Nind, nome, datanasc, dataobito,  famorig, first(datacasam) from individuo, "
         "familias, "
         "familia where  individuo.nind =  familias.nind and familia.nfamilia = familias.nfamilia  group by "
         "individuo.nind, nome, datanasc, dataobito,  famorig having first(datacasam)  = #02/01/1745# order by nome",
         "1|José da Silva|03/05/1720|-|-|01/02/1745 2|Maria Ávila|13/12/1725|02/01/1800|-|01/02/1745"},
        {"select individuo.nind as Nind, nome, datanasc, dataobito,  famorig, first(datacasam) from individuo, "
         "familias, "
         "familia where  individuo.nind =  familias.nind and familia.nfamilia = familias.nfamilia and  individuo.nome "
         "like '%A%' group by individuo.nind, nome, datanasc, dataobito,  famorig having first(datacasam)  between "
         "#01/01/1745# and #12/31/1775# order by nome",
         "3|Ana|05/03/1750|20/11/1790|1|24/06/1775 5|António|-|-|-|24/06/1775 "
         "1|José da Silva|03/05/1720|-|-|01/02/1745 2|Maria Ávila|13/12/1725|02/01/1800|-|01/02/1745"},
    });
}

TEST_F(StatementsOnIndividuals, OfTheSearchByFirstChild)
{
    expectRows({
        {"select individuo.nind as Nind, individuo.nome as nome,  individuo.datanasc as DataNasc,individuo.dataobito "
         "as "
         "DataObito, individuo.famorig as Famorig, min(filho.datanasc) from individuo, individuo as filho, familias "
         "where individuo.nind = familias.nind and  filho.famorig = familias.nfamilia  group by individuo.nind, "
         "individuo.nome, individuo.datanasc, individuo.dataobito,  individuo.famorig having min(filho.datanasc)  = "
         "#01/31/1748# order by individuo.nome",
         "1|José da Silva|03/05/1720|-|-|31/01/1748 2|Maria Ávila|13/12/1725|02/01/1800|-|31/01/1748"},
        {"select individuo.nind as Nind, individuo.nome as nome,  individuo.datanasc as DataNasc,individuo.dataobito "
         "as "
         "DataObito, individuo.famorig as Famorig, min(filho.datanasc) from individuo, individuo as filho, familias "
         "where individuo.nind = familias.nind and  filho.famorig = familias.nfamilia and individuo.sexo = 'f' group "
         "by "
         "individuo.nind, individuo.nome, individuo.datanasc, individuo.dataobito,  individuo.famorig having "
         "min(filho.datanasc)  between #01/01/1748# and #12/31/1748# order by individuo.nome",
         "2|Maria Ávila|13/12/1725|02/01/1800|-|31/01/1748"},
    });
}

TEST_F(StatementsOnIndividuals, OfTheSearchWithAnApostropheAreRefused)
{
    expectErrors(number::invalidStatement,
                 {"select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where  "
                  "individuo.nome like 'd'Além' order by nome",
                  "select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where  datanasc = "
                  "#__/__/____# order by nome",
                  "select individuo.nind as Nind, nome, datanasc, dataobito,  famorig from individuo where  datanasc "
                  "between format(#31/02/1750#, 'mm/dd/yyyy') and format(#01/01/1751# , 'mm/dd/yyyy') order by nome"});
}

TEST_F(StatementsOnIndividuals, OfTheDelete)
{
    expectRows({
        {"select nfamilia from familias where nind = 3", "2"},
        {"select count(*) as cont from familias where nfamilia = 1", "2"},
    });
    const char* count = "select count(*) from individuo";
    expectChanges({
        {"delete from residencia where tiporesid = 'i' and numero = 3", 2, "select numero from residencia", "1"},
        {"delete from profissoes where nind = 1", 2, "select * from profissoes", ""},
        {"delete from legadosprofanos where nind = 3", 1, "select * from legadosprofanos", ""},
        {"delete from rituaismorte where nind = 3", 1, "select * from rituaismorte", ""},
        {"delete from assinatura where nind = 1", 1, "select * from assinatura", ""},
        {"delete from assistente where tipoacto = 'b'  and entidade = 3", 1, "select nind from assistente", "6"},
        {"delete from assistente where nind = 6", 1, "select nind from assistente", "5"},
        {"delete from passaporte where nind = 4", 2, "select * from passaporte", ""},
        {"update individuo set famorig = null where  famorig = 1", 2, "select famorig from individuo where nind = 3",
         "-"},
        {"delete from familias where nfamilia = 1", 2, "select nind from familias", "5 3 6"},
        {"delete from familia where nfamilia = 3", 1, "select nfamilia from familia", "1 2"},
        {"delete from individuo where nind = 5", 1, count, "5"},
        {"delete from individuo where nind = 77", 0, count, "6"},
    });
    expectErrors(number::invalidStatement, {"delete from residencia where tiporesid = 'i' and numero = "});
}

TEST_F(StatementsOnIndividuals, OfTheLinks)
{
    expectChanges({
        {"update individuo set testamenteiro = 1 where nind = 3", 1,
         "select testamenteiro from individuo where nind = 3", "1"},
    });
    expectRows({
        {"select individuo.nind, nome from individuo, familias where nfamilia = 2 and familias.nind = individuo.nind "
         "and "
         " familias.nind <> 3",
         "5|António"},
    });
}

} // namespace jet::test
