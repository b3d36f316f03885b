// Rules of marriages within two lives: each with a case that must fire and a near miss that must not.
#include "study/checked.h"

using AMarriage = Checked;

TEST_F(AMarriage, IsBetweenTheLiving)
{
    person({"Rui", 'm', "", "1730-02-13"});
    person({"Ana", 'f', "", "1730-02-12"});
    wedding(1, 2, "1730-02-14");
    person({"Gil", 'm', "", "1730-02-14"});
    person({"Eva", 'f'});
    wedding(3, 4, "1730-02-14");
    EXPECT_EQ(cases("M-01"),
              QStringList("impossível: O casamento de 14/02/1730 (a família nº 1 de Rui e Ana) é posterior "
                          "à morte de Rui (nº 1) em 13/02/1730 e posterior à morte de Ana (nº 2) em "
                          "12/02/1730."));
    run("update familia set dcasamfixa = 0");
    EXPECT_TRUE(cases("M-01").first().startsWith("aviso: "));
    run("update familia set datacasam = '1732-02-14'");
    EXPECT_TRUE(cases("M-01").first().startsWith("impossível: "));
}

TEST_F(AMarriage, IsBetweenThoseWhoAreBorn)
{
    person({"Rui", 'm', "1730-02-14"});
    person({"", 'f', "1730-02-15"});
    wedding(1, 2, "1730-02-14");
    EXPECT_EQ(cases("M-02"), QStringList("impossível: O casamento de 14/02/1730 (a família nº 1 de Rui) é anterior ao "
                                         "nascimento do indivíduo nº 2 em 15/02/1730."));
    run("update individuo set datanasc = '1730-01-01', DnascFixa = 0 where nind = 2"); // some day of 1730
    EXPECT_EQ(cases("M-02"), QStringList());
}

TEST_F(AMarriage, IsOfTheCanonicalAge)
{
    person({"Rui", 'm', "1702-02-15"});
    person({"Ana", 'f', "1704-02-15"});
    wedding(1, 2, "1716-02-14");
    EXPECT_EQ(cases("M-03"),
              QStringList("impossível: Rui (nº 1), nascido em 15/02/1702, casou em 14/02/1716 com 13 anos; Ana (nº 2), "
                          "nascida em 15/02/1704, casou em 14/02/1716 com 11 anos."));
    EXPECT_EQ(cases("M-04"), QStringList()); // told already
    run("update individuo set DnascFixa = 0");
    EXPECT_TRUE(cases("M-03").first().startsWith("aviso: "));
    run("update familia set datacasam = '1716-02-15'");
    EXPECT_EQ(cases("M-03"), QStringList());
    EXPECT_EQ(cases("M-04").size(), 1);
}

TEST_F(AMarriage, IsSeldomOfTheVeryYoung)
{
    person({"Rui", 'm', "1702-02-14"});
    person({"Ana", 'f', "1704-02-15"});
    wedding(1, 2, "1720-02-14");
    EXPECT_EQ(cases("M-04"), QStringList("aviso: Ana (nº 2), nascida em 15/02/1704, casou em 14/02/1720 com 15 anos."));
    run("update familia set datacasam = '1720-02-15'");
    EXPECT_EQ(cases("M-04"), QStringList());
}

TEST_F(AMarriage, IsSeldomOfTheOld)
{
    person({"Rui", 'm', "1702-02-15"});
    person({"Ana", 'f', "1716-02-15"});
    wedding(1, 2, "1778-02-14");
    EXPECT_EQ(cases("M-05"), QStringList("aviso: Ana (nº 2), nascida em 15/02/1716, casou em 14/02/1778 com 61 anos."));
    run("update individuo set datanasc = '1717-02-15' where nind = 2");
    EXPECT_EQ(cases("M-05"), QStringList());
    EXPECT_EQ(cases("M-05", {.limits = {{"M-05.homem", 74}}}).size(), 1);
}

TEST_F(AMarriage, HasTheAgesThatAreTold)
{
    person({"Rui", 'm', "1700-02-14"});
    person({"Ana", 'f', "1702-02-14"});
    wedding(1, 2, "1730-02-14");
    run("update familias set idade = case nind when 1 then 32 else 25 end");
    EXPECT_EQ(cases("M-06"),
              QStringList("aviso: Ana (nº 2), nascida em 14/02/1702, casou em 14/02/1730 com 28 anos, e a "
                          "idade indicada é de 25 anos."));
    run("update familias set idade = 26");
    EXPECT_EQ(cases("M-06"),
              QStringList("aviso: Rui (nº 1), nascido em 14/02/1700, casou em 14/02/1730 com 30 anos, e a "
                          "idade indicada é de 26 anos."));
}

TEST_F(AMarriage, IsOfPeopleOfOneGeneration)
{
    person({"Rui", 'm', "1700-02-14"});
    person({"Ana", 'f', "1725-02-15"});
    couple(1, 2);
    EXPECT_EQ(cases("M-07"),
              QStringList("aviso: Rui (nº 1), nascido em 14/02/1700, é 25 anos mais velho do que a mulher, "
                          "Ana (nº 2), nascida em 15/02/1725."));
    run("update individuo set datanasc = '1725-02-14' where nind = 2");
    EXPECT_EQ(cases("M-07"), QStringList());
    run("update individuo set datanasc = '1684-02-14' where nind = 2");
    EXPECT_EQ(cases("M-07"),
              QStringList("aviso: Ana (nº 2), nascida em 14/02/1684, é 16 anos mais velha do que o marido, "
                          "Rui (nº 1), nascido em 14/02/1700."));
    run("update individuo set datanasc = '1685-02-14' where nind = 2");
    EXPECT_EQ(cases("M-07"), QStringList());
}

TEST_F(AMarriage, HasItsFirstChildInTime)
{
    person({"Rui"});
    person({"Ana", 'f', "1702-02-14"});
    wedding(1, 2, "1733-02-13");
    person({"Eva", 'f', "1748-02-14", "", 1});
    EXPECT_EQ(cases("M-18"),
              QStringList("aviso: Eva (nº 3), primeira filha da família nº 1, nasceu em 14/02/1748, 15 anos depois do "
                          "casamento em 13/02/1733, quando a mãe, Ana (nº 2), nascida em 14/02/1702, tinha 46 anos."));
    run("update individuo set datanasc = '1748-02-13' where nind = 3");
    EXPECT_EQ(cases("M-18"), QStringList()); // she is 45
    run("update individuo set datanasc = '1752-02-14' where nind = 3");
    person({"Gil", 'm', "", "", 1}); // may be the first one
    EXPECT_EQ(cases("M-18"), QStringList());
}
