// Rules of one person: each with a case that must fire and a near miss that must not.
#include "study/checked.h"

using ThePeopleOfAParish = Checked;

TEST_F(ThePeopleOfAParish, DieAfterTheyAreBorn)
{
    person({"Rui", 'm', "1702-02-14", "1702-02-13"});
    person({"Gil", 'm', "1702-02-14", "1702-02-14"}); // the day of the birth itself
    EXPECT_EQ(cases("P-01"),
              QStringList("impossível: Rui (nº 1) morreu em 13/02/1702, antes de nascer em 14/02/1702."));
}

TEST_F(ThePeopleOfAParish, MayHaveApproximateDatesThatAreOff)
{
    person({"Rui", 'm', "1702-02-14", "1701-06-01"});
    person({"Gil", 'm', "1702-02-14", "1700-06-01"});
    run("update individuo set DnascFixa = 0");
    EXPECT_EQ(cases("P-01"),
              QStringList({"aviso: Rui (nº 1) morreu em 01/06/1701, antes de nascer em cerca de 14/02/1702.",
                           "impossível: Gil (nº 2) morreu em 01/06/1700, antes de nascer em cerca de 14/02/1702."}));
    run("update individuo set datanasc = '1702-01-01', dataobito = '1693-01-01', dobitofixa = 0 where nind = 2");
    EXPECT_EQ(cases("P-01").last(), "aviso: Gil (nº 2) morreu em cerca de 1693, antes de nascer em cerca de 1702.");
}

TEST_F(ThePeopleOfAParish, DieBeforeTheyAreTooOld)
{
    person({"Rui", 'm', "1702-02-14", "1803-02-14"});
    person({"Gil", 'm', "1702-02-14", "1803-02-13"});
    person({"Eva", 'f', "1602-02-14", "1803-02-13"});
    EXPECT_EQ(cases("P-02"),
              QStringList({"aviso: Rui (nº 1) morreu em 14/02/1803 com 101 anos: nasceu em 14/02/1702.",
                           "impossível: Eva (nº 3) morreu em 13/02/1803 com 200 anos: nasceu em 14/02/1602."}));
    EXPECT_EQ(cases("P-02", {.limits = {{"P-02.idade", 110}}}).size(), 1);
}

TEST_F(ThePeopleOfAParish, MayDieInTheYearOfTheirBirth)
{
    person({"Rui", 'm', "1702-02-14", "1702-01-01"});
    run("update individuo set dobitofixa = 0"); // some day of 1702
    EXPECT_EQ(cases("P-01"), QStringList());
}

TEST_F(ThePeopleOfAParish, AreToldAnAgeThatIsAboutTheirs)
{
    person({"Rui", 'm', "1702-02-14", "1732-02-14"});
    person({"Gil", 'm', "1702-02-14", "1717-02-14"});
    person({"Eva", 'f', "1702-02-14", "1772-02-14"});
    person({"Ana", 'f', "1702-02-14"});
    run("update individuo set idadeobito = case nind when 1 then 34 when 2 then 17 when 3 then 77 else 9 end");
    EXPECT_EQ(cases("P-03"), QStringList("aviso: Rui (nº 1) morreu em 14/02/1732 com 30 anos (nasceu em 14/02/1702), e "
                                         "a idade indicada é de 34 anos."));
    run("update individuo set idadeobito = case nind when 2 then 18 else 33 end");
    EXPECT_EQ(cases("P-03", {.limits = {{"P-03.anos", 3}}}),
              QStringList("aviso: Eva (nº 3) morreu em 14/02/1772 com 70 anos (nasceu em 14/02/1702), e a idade "
                          "indicada é de 33 anos."));
    run("update individuo set DnascFixa = 0");
    EXPECT_EQ(cases("P-03").size(), 1); // 33 and 30 are within the tolerance of a year
}

TEST_F(ThePeopleOfAParish, AreMinorsUntilAnAge)
{
    person({"Rui", 'm', "1702-02-14", "1709-02-14"});
    person({"Gil", 'm', "1702-02-14", "1709-02-13"});
    person({"Eva", 'f', "", "1709-02-13"});
    run("update individuo set menor = 1");
    EXPECT_EQ(cases("P-04"), QStringList("aviso: Rui (nº 1) morreu em 14/02/1709 com 7 anos (nasceu em 14/02/1702), e "
                                         "está como menor."));
    EXPECT_EQ(cases("P-04", {.limits = {{"P-04.idade", 14}}}), QStringList());
    run("update individuo set DnascFixa = 0");
    EXPECT_EQ(cases("P-04"), QStringList());
}

TEST_F(ThePeopleOfAParish, AreInnocentUntilAnAge)
{
    person({"Rui", 'm', "1702-02-14", "1710-02-14"});
    person({"Gil", 'm', "1702-02-14", "1710-02-13"});
    person({"Eva", 'f', "1702-02-14", "1710-02-14"}); // a minor: that is told already
    run("insert into infocomplementar values ('ClaPa', '1', 'Inocente')");
    run("update individuo set classparoquial = 1, menor = case nind when 3 then 1 end");
    EXPECT_EQ(cases("P-05"), QStringList("aviso: Rui (nº 1) morreu em 14/02/1710 com 8 anos (nasceu em 14/02/1702), e "
                                         "está na classe paroquial «Inocente»."));
}

TEST_F(ThePeopleOfAParish, AppearInNoActWhenTheyAreTooOld)
{
    person({"Rui", 'm', "1602-02-14"});
    person({"Gil", 'm', "1602-02-14"});
    person({"Eva", 'f', "1602-02-14", "1680-01-01"}); // her death is known
    run("insert into profissoes (nind, idprofissao, dataref, datafixa) values (1, 1, '1703-02-14', 1)");
    run("insert into profissoes (nind, idprofissao, dataref, datafixa) values (2, 1, '1703-02-13', 1)");
    run("insert into profissoes (nind, idprofissao, dataref, datafixa) values (3, 1, '1703-02-14', 1)");
    EXPECT_EQ(cases("P-27"),
              QStringList("informação: Rui (nº 1) nasceu em 14/02/1602, não tem óbito e ainda aparece em "
                          "14/02/1703 (profissão), com 101 anos."));
}

TEST_F(ThePeopleOfAParish, AreOfTheHeightOfPeople)
{
    for (const char* name : {"Rui", "Gil", "Zé", "Ivo"})
        person({name});
    person({"Eva", 'f', "1702-02-14", "1710-02-14"}); // a child
    run("update individuo set altura = case nind when 1 then 119 when 2 then 120 when 3 then 210 when 4 then 211 else "
        "80 "
        "end");
    EXPECT_EQ(cases("P-31"),
              QStringList({"aviso: Rui (nº 1) tem 119 cm de altura.", "aviso: Ivo (nº 4) tem 211 cm de altura."}));
}

TEST_F(ThePeopleOfAParish, MayBearAnyName)
{
    person({"%1 %2 O'Neill \"x\"; -- 😀", 'm', "1602-02-14", "1703-02-14"});
    EXPECT_EQ(cases("P-02"), QStringList("aviso: %1 %2 O'Neill \"x\"; -- 😀 (nº 1) morreu em 14/02/1703 com 101 anos: "
                                         "nasceu em 14/02/1602."));
}
