// Rules of single columns of a person: each with a case that must fire and a near miss that must not.
#include "study/checked.h"

using TheColumnsOfAPerson = Checked;

TEST_F(TheColumnsOfAPerson, HoldANameThatCanBeRead)
{
    for (const char* name : {"?", "", "N.", "Zé", "recém-nascido"})
        person({name});
    EXPECT_EQ(cases("P-21"), QStringList({"informação: O indivíduo nº 1 não tem nome que se leia: «?».",
                                          "informação: O indivíduo nº 2 não tem nome.",
                                          "informação: O indivíduo nº 3 não tem nome que se leia: «N.»."}));
}

TEST_F(TheColumnsOfAPerson, HoldNoMotherOfNoAge)
{
    for (const char* name : {"Rui", "", "Ivo"})
        person({name});
    run("update individuo set idademae = case nind when 1 then 0 when 2 then 0 else null end");
    EXPECT_EQ(cases("P-22"),
              QStringList({"informação: Rui (nº 1) tem 0 como idade da mãe: a idade foi apagada.",
                           "informação: O indivíduo nº 2 tem 0 como idade da mãe: a idade foi apagada."}));
}

TEST_F(TheColumnsOfAPerson, HoldTheAgesOfTheParents)
{
    person({"Rui", 'm', "1700-02-14"});
    person({"Ana", 'f', "1702-02-14"});
    couple(1, 2);
    person({"Eva", 'f', "1730-02-14", "", 1});
    person({"Ivo", 'm', "1730-02-14", "", 1});
    run("update individuo set idadepai = case nind when 3 then 34 else 33 end, idademae = case nind when 3 then 24 "
        "else 0 "
        "end where nind > 2");
    EXPECT_EQ(cases("P-23"),
              QStringList("aviso: Quando nasceu Eva (nº 3) em 14/02/1730, o pai, Rui (nº 1), nascido em 14/02/1700, "
                          "tinha 30 anos, e a idade indicada é de 34 anos; a mãe, Ana (nº 2), nascida em 14/02/1702, "
                          "tinha 28 anos, e a idade indicada é de 24 anos."));
}

TEST_F(TheColumnsOfAPerson, HoldAWillOfOneKind)
{
    for (const char* name : {"Rui", "Gil", "Ivo"})
        person({name});
    run("update individuo set testam = nind <> 2, escrit = nind <> 3");
    EXPECT_EQ(cases("P-24"), QStringList("informação: Rui (nº 1) está ao mesmo tempo com testamento e com escritura."));
}

TEST_F(TheColumnsOfAPerson, HoldAnExecutorWhoOutlivesTheTestator)
{
    person({"Rui", 'm', "", "1760-05-01"});
    person({"Gil", 'm', "", "1760-04-30"});
    person({"Ivo", 'm', "", "1760-05-01"});
    run("update individuo set testamenteiro = case nind when 1 then 2 when 2 then 2 else 1 end");
    EXPECT_EQ(cases("P-25"), QStringList({"aviso: Gil (nº 2), testamenteiro de Rui (nº 1), morreu em 30/04/1760, antes "
                                          "do testador, que morreu em 01/05/1760.",
                                          "aviso: Gil (nº 2) está como testamenteiro de si próprio."}));
}

TEST_F(TheColumnsOfAPerson, HoldAFiliationLikeTheFamilys)
{
    person({"Ana", 'f'});
    couple(0, 1);
    couple(0, 1);
    run("update familia set sfamilia = case nfamilia when 1 then '3' else '1' end");
    person({"Rui", 'm', "", "", 1});
    person({"Gil", 'm', "", "", 2});
    person({"Ivo", 'm', "", "", 2});
    run("update individuo set filiacao = case nind when 2 then 1 when 3 then 2 when 4 then 11 end");
    run("insert into infocomplementar values ('Filia', '1', 'Legítima')");
    EXPECT_EQ(cases("P-28"), QStringList({"aviso: Rui (nº 2) tem a filiação «Legítima», e a sua família de origem, a "
                                          "família nº 1 de Ana, a situação «3».",
                                          "aviso: Gil (nº 3) tem a filiação «2», e a sua família de origem, a família "
                                          "nº 2 de Ana, a situação «1»."}));
}

TEST_F(TheColumnsOfAPerson, HoldNoPosthumousChildOfALivingFather)
{
    person({"Zé", 'm', "", "1730-02-14"});
    person({"Ana", 'f'});
    couple(1, 2);
    person({"Rui", 'm', "1730-02-13", "", 1});
    person({"Gil", 'm', "1730-02-14", "", 1});
    run("update individuo set filiacao = 15 where nind > 2");
    EXPECT_EQ(cases("P-29"),
              QStringList("impossível: Rui (nº 3) está como filho póstumo e nasceu em 13/02/1730; o pai, "
                          "Zé (nº 1), só morreu em 14/02/1730."));
    run("update individuo set DnascFixa = 0");
    EXPECT_TRUE(cases("P-29").first().startsWith("aviso: "));
}

TEST_F(TheColumnsOfAPerson, HoldNoFoundlingWithParents)
{
    person({"Ana", 'f'});
    couple(0, 1);
    couple(0, 1);
    run("update familia set sfamilia = case nfamilia when 1 then '1' else '10' end");
    person({"Eva", 'f', "", "", 1});
    person({"Rui", 'm', "", "", 2});
    run("update individuo set filiacao = 6 where nind > 1");
    EXPECT_EQ(cases("P-30"),
              QStringList("aviso: Eva (nº 2) está como exposta, e tem família de origem: a família nº 1 de Ana."));
}
