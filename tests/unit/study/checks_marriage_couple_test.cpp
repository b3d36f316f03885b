// Rules of who a couple is: each with a case that must fire and a near miss that must not.
#include "study/checked.h"

using TheCoupleOfAFamily = Checked;

TEST_F(TheCoupleOfAFamily, IsAManAndAWoman)
{
    person({"Rui"});
    person({"Gil"});
    person({"Ivo", 'd'});
    couple(1, 2);
    couple(1, 3);
    EXPECT_EQ(cases("M-14"),
              QStringList("impossível: Rui (nº 1) e Gil (nº 2) são cônjuges na família nº 1, e são ambos homens."));
    run("update individuo set sexo = 'f'");
    EXPECT_EQ(cases("M-14").first(),
              "impossível: Rui (nº 1) e Gil (nº 2) são cônjuges na família nº 1, e são ambas mulheres.");
}

TEST_F(TheCoupleOfAFamily, IsTwoPeople)
{
    person({"Rui"});
    person({"Ana", 'f'});
    couple(1, 2);
    EXPECT_EQ(cases("M-15"), QStringList());
    elsewhere(
        "create table outra as select * from familias; drop table familias; alter table outra rename to familias; "
        "insert into familias select * from familias where nind = 1");
    EXPECT_EQ(cases("M-15"), QStringList("impossível: Rui (nº 1) está mais de uma vez como cônjuge na família nº 1."));
    EXPECT_EQ(cases("M-14"), QStringList());
}

TEST_F(TheCoupleOfAFamily, IsNotNobodyAndNotThree)
{
    person({"Rui"});
    person({"Ana", 'f'});
    couple(1, 2);
    EXPECT_EQ(cases("M-16"), QStringList());
    run("insert into familias (nfamilia, nind) values (1, 77)");
    EXPECT_EQ(cases("M-16"),
              QStringList("impossível: A família nº 1 tem 3 cônjuges: Rui (nº 1), Ana (nº 2) e o nº 77."));
    run("delete from familias");
    EXPECT_EQ(cases("M-16"), QStringList()); // nobody at all: that is told of an empty family
    person({"Eva", 'f', "", "", 1});
    EXPECT_EQ(cases("M-16"), QStringList("informação: A família nº 1 não tem cônjuges, e tem 1 filho."));
}

TEST_F(TheCoupleOfAFamily, IsNotMarriedInAClosedSeason)
{
    person({"Rui"});
    person({"Ana", 'f'});
    for (const char* day : {"1703-01-06", "1703-01-07", "1703-02-20", "1703-02-21", "1703-04-15", "1703-04-16"})
        wedding(1, 2, day);
    EXPECT_EQ(cases("M-19"),
              QStringList({"informação: O casamento de 06/01/1703 (a família nº 1 de Rui e Ana) foi em tempo proibido, "
                           "entre o Advento e os Reis.",
                           "informação: O casamento de 21/02/1703 (a família nº 4 de Rui e Ana) foi em tempo proibido, "
                           "entre as Cinzas e a oitava da Páscoa, que foi em 08/04/1703.",
                           "informação: O casamento de 15/04/1703 (a família nº 5 de Rui e Ana) foi em tempo proibido, "
                           "entre as Cinzas e a oitava da Páscoa, que foi em 08/04/1703."}));
    run("update familia set dcasamfixa = 0");
    EXPECT_EQ(cases("M-19"), QStringList());
}
