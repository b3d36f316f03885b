// Rules of the card of a family: each with a case that must fire and a near miss that must not.
#include "study/checked.h"

class TheCardOfAFamily : public Checked
{
protected:
    TheCardOfAFamily()
    {
        run("insert into infopar (cod, nome) values ('030899', 'Moinhos')");
        person({"Rui"});
        person({"Ana", 'f'});
        couple(1, 2);
    }
};

TEST_F(TheCardOfAFamily, HasSomebodyOnIt)
{
    run("delete from familias where nind = 1");
    EXPECT_EQ(cases("F-01"), QStringList());
    run("delete from familias");
    person({"Eva", 'f', "", "", 1});
    EXPECT_EQ(cases("F-01"), QStringList());
    run("delete from individuo where nind = 3");
    EXPECT_EQ(cases("F-01"), QStringList("aviso: A família nº 1 não tem cônjuges nem filhos."));
}

TEST_F(TheCardOfAFamily, IsThereForThoseBornInIt)
{
    person({"Eva", 'f', "", "", 1});
    person({"Gil", 'm', "", "", 7});
    run("update individuo set famorig = 0 where nind = 1"); // nothing chosen
    EXPECT_EQ(cases("F-02"), QStringList("impossível: Gil (nº 4) tem como família de origem a nº 7, que não existe."));
}

TEST_F(TheCardOfAFamily, HasPeopleWhoAreThere)
{
    EXPECT_EQ(cases("F-03"), QStringList());
    run("update familias set nind = 9 where nind = 2");
    run("insert into familias (nfamilia, nind) values (7, 2)");
    run("insert into familias (nfamilia, nind) values (8, 9)");
    run("insert into familias (nfamilia, nind) values (8, 10)");
    EXPECT_EQ(
        cases("F-03"),
        QStringList({"impossível: Há uma linha de cônjuge sem ficha nenhuma: nem a família nº 8 nem o indivíduo nº "
                     "10 existem.",
                     "impossível: Há uma linha de cônjuge sem ficha nenhuma: nem a família nº 8 nem o indivíduo nº "
                     "9 existem.",
                     "impossível: A família nº 1 de Rui tem como cônjuge o indivíduo nº 9, que não existe.",
                     "impossível: Ana (nº 2) é cônjuge na família nº 7, que não existe."}));
    EXPECT_NE(all().at(0).key(), all().at(1).key());
}

TEST_F(TheCardOfAFamily, HasNobodyAsSpouseAndChild)
{
    person({"Eva", 'f', "", "", 1});
    EXPECT_EQ(cases("F-04"), QStringList());
    run("update individuo set famorig = 1 where nind = 2");
    EXPECT_EQ(cases("F-04"), QStringList("impossível: Ana (nº 2) é ao mesmo tempo cônjuge e filha na família nº 1."));
    EXPECT_EQ(cases("F-05"), QStringList());
}

TEST_F(TheCardOfAFamily, HasAMarriageWhereItIsLegitimate)
{
    run("insert into infocomplementar values ('SitFa', '1', 'Legítima')");
    run("update familia set sfamilia = '1'");
    EXPECT_EQ(cases("F-06"),
              QStringList("informação: A família nº 1 de Rui e Ana tem a situação «Legítima», e não tem data de "
                          "casamento."));
    run("update familia set sfamilia = '2'"); // presumed
    EXPECT_EQ(cases("F-06"), QStringList());
    run("update familia set sfamilia = '1', datacasam = '1730-01-01'");
    EXPECT_EQ(cases("F-06"), QStringList());
}

TEST_F(TheCardOfAFamily, HasNoParentWhoIsUnknown)
{
    run("update familia set sfamilia = '3'");
    EXPECT_EQ(cases("F-07"),
              QStringList("aviso: A família nº 1 de Rui e Ana tem a situação «3», e tem pai: Rui (nº 1)."));
    run("update familia set sfamilia = '4'");
    EXPECT_EQ(cases("F-07"),
              QStringList("aviso: A família nº 1 de Rui e Ana tem a situação «4», e tem mãe: Ana (nº 2)."));
    run("delete from familias where nind = 2");
    EXPECT_EQ(cases("F-07"), QStringList());
}

TEST_F(TheCardOfAFamily, IsObservedFromTheMarriage)
{
    run("update familia set datacasam = '1730-02-03', dcasamfixa = 1, localcasam = '030899', tipolocalcasam = 'F', "
        "inicioobs = '1730-02-04'");
    EXPECT_EQ(cases("F-08"),
              QStringList("informação: A família nº 1 de Rui e Ana está em observação desde 04/02/1730, e o "
                          "casamento foi em 03/02/1730."));
    run("update familia set localcasam = '030801'"); // they came later
    EXPECT_EQ(cases("F-08"), QStringList());
    run("update familia set localcasam = '030899', inicioobs = '1730-02-03'");
    EXPECT_EQ(cases("F-08"), QStringList());
}

TEST_F(TheCardOfAFamily, IsObservedUntilBothHaveDied)
{
    run("update individuo set dataobito = case nind when 1 then '1760-05-01' else '1765-05-01' end, dobitofixa = 1");
    run("update familia set fimobs = '1765-05-02'");
    EXPECT_EQ(cases("F-09"),
              QStringList("aviso: A família nº 1 de Rui e Ana está em observação até 02/05/1765, depois da "
                          "morte de Rui (nº 1) em 01/05/1760 e de Ana (nº 2) em 01/05/1765."));
    run("update individuo set dobitofixa = 0 where nind = 2");
    EXPECT_EQ(cases("F-09"), QStringList());
    run("update individuo set dobitofixa = 1");
    run("update familia set fimobs = '1765-05-01'");
    EXPECT_EQ(cases("F-09"), QStringList());
}

TEST_F(TheCardOfAFamily, IsOfTheTypeThatTheDatesMake)
{
    run("update familia set tipocasal = 7");
    EXPECT_EQ(cases("F-16"), QStringList());
    run("update familia set datacasam = '1730-02-03'");
    EXPECT_EQ(cases("F-16"),
              QStringList("informação: A família nº 1 de Rui e Ana está no tipo 7, e pelas datas é do tipo 4."));
    person({"Eva", 'f', "", "", 1}); // of unknown birth
    EXPECT_EQ(cases("F-16"), QStringList());
    run("update familia set tipocasal = null");
    EXPECT_EQ(cases("F-16"),
              QStringList("informação: A família nº 1 de Rui e Ana não tem tipo, e pelas datas é do tipo 7."));
    run("update familia set tipocasal = 12"); // of the researcher's own
    EXPECT_EQ(cases("F-16"), QStringList());
}
