// Rules of the births of one mother: each with a case that must fire and a near miss that must not.
#include "study/checked.h"

class TheBirths : public Checked
{
protected:
    TheBirths()
    {
        father = person({"Rui"});
        mother = person({"Eva", 'f'});
        family = couple(father, mother, "1724-02-01");
        run("update familia set dcasamfixa = 1");
    }
    qint64 child(const char* name, const char* birth, char sex = 'm', const char* death = "")
    {
        return person({name, sex, birth, death, family});
    }

    qint64 father = 0, mother = 0, family = 0;
};

TEST_F(TheBirths, AreTwinsOrApart)
{
    child("Gil", "1730-01-01");
    child("Ana", "1730-01-11", 'f');  // a twin who was baptised later
    child("Ivo", "1730-09-08");       // 240 days
    child("Rosa", "1731-05-07", 'f'); // 241 days
    EXPECT_EQ(cases("C-07"), QStringList("impossível: Ana (nº 4) nasceu em 11/01/1730 e Ivo (nº 5) em 08/09/1730, 240 "
                                         "dias depois: ambos são filhos da família nº 1 de Rui e Eva."));
    run("update individuo set datanasc = '1730-01-12' where nind = 4");
    EXPECT_EQ(cases("C-07").first(), "impossível: Gil (nº 3) nasceu em 01/01/1730 e Ana (nº 4) em 12/01/1730, 11 dias "
                                     "depois: ambos são filhos da família nº 1 de Rui e Eva.");
}

TEST_F(TheBirths, MayBeApartWhereADateIsApproximate)
{
    child("Gil", "1730-01-02");
    child("Ana", "1730-06-01", 'f');
    run("update individuo set DnascFixa = 0 where nind = 3");
    EXPECT_EQ(cases("C-07").size(), 1);
    EXPECT_TRUE(cases("C-07").first().startsWith("aviso: Gil"));
    run("update individuo set datanasc = '1730-01-01' where nind = 3"); // any day of the year
    EXPECT_EQ(cases("C-07"), QStringList());
}

TEST_F(TheBirths, AreThoseOfTheMotherInAllHerFamilies)
{
    const qint64 other = couple(person({"Ivo"}), mother, "1735-01-01");
    child("Gil", "1735-01-01");
    person({"Ana", 'f', "1735-06-01", "", other});
    const auto found = all();
    EXPECT_EQ(cases("C-07"), QStringList("impossível: Gil (nº 4) nasceu em 01/01/1735 e Ana (nº 5) em 01/06/1735, 151 "
                                         "dias depois: ambos são filhos de Eva (nº 2)."));
    const auto one = std::ranges::find(found, QString("C-07"), &study::checks::Case::rule);
    EXPECT_EQ(one->key(), "C-07 i4 i5 f1 f2");
}

TEST_F(TheBirths, OfTwoWivesMayFollowEachOther)
{
    const qint64 other = couple(father, person({"Leonor", 'f'}), "1735-01-01");
    child("Gil", "1735-01-01");
    person({"Ana", 'f', "1735-06-01", "", other});
    EXPECT_EQ(cases("C-07"), QStringList());
}

TEST_F(TheBirths, SeldomFollowEachOtherWithinNineMonths)
{
    child("Gil", "1730-01-01");
    child("Ana", "1730-09-28", 'f'); // 270 days
    child("Ivo", "1731-06-26");      // 271 days
    EXPECT_EQ(cases("C-08"), QStringList("aviso: Gil (nº 3) nasceu em 01/01/1730 e Ana (nº 4) em 28/09/1730, 270 dias "
                                         "depois: ambos são filhos da família nº 1 de Rui e Eva."));
    run("update individuo set DnascFixa = 0 where nind = 4");
    EXPECT_EQ(cases("C-08"), QStringList());
}

TEST_F(TheBirths, SeldomFollowEachOtherAfterEightYears)
{
    child("Gil", "1730-01-01");
    child("Ana", "1738-01-01", 'f');
    child("Ivo", "1746-01-02");
    EXPECT_EQ(cases("C-09"), QStringList("informação: Entre Ana (nº 4), que nasceu em 01/01/1738, e Ivo (nº 5), que "
                                         "nasceu em 02/01/1746, não há outro filho da família nº 1 de Rui e Eva: "
                                         "passaram 8 anos."));
    run("update individuo set fimobs = '1746-01-01' where nind = ?", {mother});
    EXPECT_EQ(cases("C-09"), QStringList());
    run("update individuo set fimobs = null, DnascFixa = case nind when 5 then 0 else 1 end");
    EXPECT_EQ(cases("C-09"), QStringList());
}

TEST_F(TheBirths, AreSeldomOfThree)
{
    child("Gil", "1730-01-01");
    child("Ana", "1730-01-01", 'f');
    EXPECT_EQ(cases("C-10"), QStringList());
    child("Ivo", "1730-01-11");
    EXPECT_EQ(cases("C-10"),
              QStringList("informação: 3 crianças nasceram de um só parto, filhos da família nº 1 de Rui "
                          "e Eva: Gil (nº 3) em 01/01/1730; Ana (nº 4) em 01/01/1730; Ivo (nº 5) em "
                          "11/01/1730."));
    run("update individuo set datanasc = '1730-01-12' where nind = 5");
    EXPECT_EQ(cases("C-10"), QStringList());
    run("update individuo set datanasc = '1730-01-11', DnascFixa = 0 where nind = 5");
    EXPECT_EQ(cases("C-10"), QStringList());
}

TEST_F(TheBirths, OfLegitimateChildrenFollowTheMarriage)
{
    run("insert into infocomplementar (categoria, codigo, descricao) values ('Filia', '1', 'Legítima')");
    child("Gil", "1724-01-31");
    child("Ana", "1724-02-01", 'f');
    child("Ivo", "1723-01-31");
    run("update individuo set filiacao = 1 where nind > 2");
    run("update individuo set filiacao = 11 where nind = 5"); // made legitimate by the marriage
    EXPECT_EQ(cases("C-11"), QStringList("aviso: Gil (nº 3) nasceu em 31/01/1724, antes do casamento dos pais em "
                                         "01/02/1724, e a sua filiação é «Legítima»."));
    run("update individuo set DnascFixa = 0");
    EXPECT_EQ(cases("C-11"), QStringList());
}

TEST_F(TheBirths, OfALegitimateFamilyFollowTheMarriage)
{
    child("Gil", "1724-01-31");
    EXPECT_EQ(cases("C-11"), QStringList());
    run("update familia set sfamilia = '1'");
    EXPECT_EQ(cases("C-11"), QStringList("aviso: Gil (nº 3) nasceu em 31/01/1724, antes do casamento dos pais em "
                                         "01/02/1724, e a família é «1»."));
    run("update familia set sfamilia = '9'");
    EXPECT_EQ(cases("C-11"), QStringList());
}

TEST_F(TheBirths, MayComeEarlyInAMarriage)
{
    child("Gil", "1724-09-30");
    child("Ana", "1724-09-30", 'f'); // a twin is no second case
    EXPECT_EQ(cases("C-12"),
              QStringList("informação: Gil (nº 3) nasceu em 30/09/1724, 242 dias depois do casamento dos "
                          "pais em 01/02/1724."));
    run("update individuo set datanasc = '1724-10-01'");
    EXPECT_EQ(cases("C-12"), QStringList());
    run("update individuo set datanasc = '1724-09-30', DnascFixa = 0");
    EXPECT_EQ(cases("C-12"), QStringList());
}

TEST_F(TheBirths, AreBaptisedInLife)
{
    const qint64 gil = child("Gil", "1730-01-01", 'm', "1730-01-03");
    run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente) values ('b', ?, '1730-01-03', ?, "
        "'p')",
        {gil, father});
    EXPECT_EQ(cases("C-14"), QStringList());
    run("update assistente set dataref = '1730-01-04'");
    EXPECT_EQ(
        cases("C-14"),
        QStringList("informação: O baptismo de Gil (nº 3) tem a data 04/01/1730, depois do óbito em 03/01/1730."));
    run("update individuo set dobitofixa = 0");
    EXPECT_EQ(cases("C-14"), QStringList());
}

TEST_F(TheBirths, GiveANameAgainAfterADeathOnly)
{
    child("Maria", "1730-01-01", 'f');
    child("Maria", "1732-01-01", 'f');
    EXPECT_EQ(cases("C-16"), QStringList("aviso: Maria (nº 3) nasceu em 01/01/1730 e não tem óbito; Maria (nº 4), que "
                                         "nasceu depois em 01/01/1732, tem o mesmo nome."));
    run("update individuo set dataobito = '1731-01-01' where nind = 3");
    EXPECT_EQ(cases("C-16"), QStringList());
}

TEST_F(TheBirths, GiveNamesThatAreOthers)
{
    const qint64 first = child("Maria Josefa", "1730-01-01", 'f');
    child("Maria Teresa", "1732-01-01", 'f');
    child("Ana", "1734-01-01", 'f');
    child("José", "1736-01-01");
    child("Maria", "1738-01-01", 'f');
    EXPECT_EQ(cases("C-16"), QStringList()); // only the next one is asked
    EXPECT_EQ(cases("C-16", {.limits = {{"C-16.irmaos", 4}}}).size(), 2);
    run("update individuo set nome = 'Maria' where nind = 4");
    EXPECT_EQ(cases("C-16").size(), 1);
    couple(person({"Ivo"}), first, "1755-01-01"); // she grew up
    EXPECT_EQ(cases("C-16"), QStringList());
}
