// Rules of sex, civil state and type: each with a case that must fire and a near miss that must not.
#include "study/checked.h"

using ThePeopleBesideTheirStates = Checked;

TEST_F(ThePeopleBesideTheirStates, HaveAFamilyWhereTheyDiedMarried)
{
    person({"Rui", 'm', "", "1760-05-01"});
    person({"Eva", 'f', "", "1760-05-01"});
    person({"Gil", 'm', "", "1760-05-01"});
    person({"Ana", 'f'});
    couple(3, 4);
    run("update individuo set estadoobito = case nind when 1 then 2 when 2 then 1 else 3 end");
    EXPECT_EQ(cases("P-06"),
              QStringList("aviso: Rui (nº 1) morreu casado em 01/05/1760, e não é cônjuge em nenhuma família."));
    run("delete from familias where nind = 4");
    EXPECT_EQ(cases("P-06").last(), "aviso: Ana (nº 4) morreu viúva, e não é cônjuge em nenhuma família.");
}

TEST_F(ThePeopleBesideTheirStates, AreSingleInNoLegitimateFamily)
{
    person({"Rui"});
    person({"Ana", 'f', "", "1760-05-01"});
    wedding(1, 2, "1730-02-03");
    run("update individuo set estadoobito = 1 where nind = 2");
    run("update familia set sfamilia = '1'");
    EXPECT_EQ(cases("P-07"), QStringList("impossível: Ana (nº 2) morreu solteira em 01/05/1760, e é cônjuge na família "
                                         "nº 1 de Rui e Ana, casamento em 03/02/1730."));
    run("update familia set sfamilia = '5'");
    EXPECT_EQ(cases("P-07"), QStringList());
}

TEST_F(ThePeopleBesideTheirStates, DieMarriedWhileASpouseLives)
{
    person({"Rui", 'm', "", "1760-05-02"});
    person({"Ana", 'f', "", "1760-05-01"});
    couple(1, 2);
    run("update individuo set estadoobito = 2 where nind = 1");
    EXPECT_EQ(cases("P-08"), QStringList("aviso: Rui (nº 1) morreu casado em 02/05/1760, e já tinha enviuvado: Ana (nº "
                                         "2) morreu em 01/05/1760."));
    EXPECT_EQ(cases("P-08", {.limits = {{"P-08.dias", 1}}}), QStringList());
    person({"Eva", 'f'}); // of whom no death is known
    couple(1, 3);
    EXPECT_EQ(cases("P-08"), QStringList());
}

TEST_F(ThePeopleBesideTheirStates, DieWidowedBehindTheirSpouses)
{
    person({"Rui", 'm', "", "1760-05-01"});
    person({"Ana", 'f', "", "1760-05-02"});
    person({"Eva", 'f', "", "1760-05-01"});
    couple(1, 2);
    couple(1, 3);
    run("update individuo set estadoobito = 3 where nind = 1");
    EXPECT_EQ(
        cases("P-09"),
        QStringList("aviso: Rui (nº 1) morreu viúvo em 01/05/1760, e só depois Ana (nº 2) morreu em 02/05/1760."));
    run("update individuo set dataobito = '1760-01-01', dobitofixa = 0 where nind = 2"); // some day of 1760
    EXPECT_EQ(cases("P-09"), QStringList());
}

TEST_F(ThePeopleBesideTheirStates, AreOfTheTypeThatTheDatesMake)
{
    person({"Rui", 'm', "1702-02-14"});
    person({"Gil", 'm', "", "1702-02-14"});
    person({"Ivo"});
    run("insert into infocomplementar values ('TipIn', '4', 'Nascimento e óbito')");
    run("update individuo set tipo = case nind when 1 then '4' when 2 then '2' else 'T' end");
    EXPECT_EQ(cases("P-10"),
              QStringList("informação: Rui (nº 1) tem o tipo «Nascimento e óbito», e pelas datas é do tipo «1»."));
    run("update individuo set tipo = case nind when 1 then '1' when 2 then '' else '1' end");
    EXPECT_EQ(cases("P-10"),
              QStringList({"informação: Gil (nº 2) tem o tipo por preencher, e pelas datas é do tipo «2».",
                           "informação: Ivo (nº 3) tem o tipo «1», e pelas datas é do tipo «0»."}));
    run("update individuo set tipo = 'X'"); // of the researcher's own
    EXPECT_EQ(cases("P-10"), QStringList());
}

TEST_F(ThePeopleBesideTheirStates, BearNamesOfTheirSex)
{
    for (int i = 0; i < 19; ++i)
        person({"Ana", 'f'});
    person({"ÂNA Lopes", 'm'});
    for (int i = 0; i < 9; ++i)
        person({"Rui", i > 0 ? 'm' : 'f'});
    EXPECT_EQ(cases("P-11"), QStringList("aviso: ÂNA Lopes (nº 20) está como homem, e das 20 pessoas com esse primeiro "
                                         "nome 19 são mulheres."));
    run("update individuo set sexo = 'd' where nind = 1"); // 18 of 19: too few
    EXPECT_EQ(cases("P-11"), QStringList());
    EXPECT_EQ(cases("P-11", {.limits = {{"P-11.pessoas", 9}, {"P-11.percentagem", 80}}}).size(), 2);
}

TEST_F(ThePeopleBesideTheirStates, AreSpousesWithASex)
{
    person({"Rui", 'd'});
    person({"Ana", 'f'});
    person({"Ivo", 'd'});
    couple(1, 2);
    EXPECT_EQ(cases("P-12"), QStringList("impossível: Rui (nº 1) é cônjuge na família nº 1 de Rui, e tem o sexo por "
                                         "determinar."));
}
