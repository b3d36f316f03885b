// Rules of parents and children: each with a case that must fire and a near miss that must not.
#include "study/checked.h"

class TheParents : public Checked
{
protected:
    TheParents()
    {
        father = person({"Rui", 'm', "1700-03-10"});
        mother = person({"Eva", 'f', "1704-03-10"});
        family = couple(father, mother, "1724-02-01");
    }
    qint64 child(const char* name, const char* birth, char sex = 'm') { return person({name, sex, birth, "", family}); }
    void dies(qint64 who, const char* day) { run("update individuo set dataobito = ? where nind = ?", {day, who}); }

    qint64 father = 0, mother = 0, family = 0;
};

TEST_F(TheParents, AreBornBeforeTheirChildren)
{
    child("Gil", "1700-03-09");
    child("Ana", "1703-03-10", 'f');
    child("Ivo", "1704-03-10"); // the day of the mother's birth: an age, not an order
    EXPECT_EQ(
        cases("C-01"),
        QStringList({"impossível: Gil (nº 3) nasceu em 09/03/1700, antes do pai, Rui (nº 1), nascido em 10/03/1700 "
                     "e da mãe, Eva (nº 2), nascida em 10/03/1704.",
                     "impossível: Ana (nº 4) nasceu em 10/03/1703, antes da mãe, Eva (nº 2), nascida em "
                     "10/03/1704."}));
    const auto found = all();
    EXPECT_EQ(std::ranges::find(found, QString("C-01"), &study::checks::Case::rule)->key(), "C-01 i3 i1 i2 f1");
}

TEST_F(TheParents, MayBeBornAboutTheSameTimeAsAChild)
{
    run("update individuo set datanasc = '1704-01-01', DnascFixa = 0 where nind = ?", {mother});
    child("Ana", "1704-06-01", 'f'); // a year is any of its days
    child("Gil", "1703-06-01");
    EXPECT_EQ(cases("C-01"),
              QStringList("aviso: Gil (nº 4) nasceu em 01/06/1703, antes da mãe, Eva (nº 2), nascida em cerca de "
                          "1704."));
}

TEST_F(TheParents, HaveNoChildAfterTheMothersDeath)
{
    dies(mother, "1730-05-01");
    child("Ivo", "1730-05-02"); // died in childbed
    child("Gil", "1730-05-03");
    child("Ana", "1730-05-10", 'f');
    child("Leonor", "", 'f');
    EXPECT_EQ(cases("C-02"), QStringList({"aviso: Gil (nº 4) nasceu em 03/05/1730, 2 dias depois da morte da mãe, Eva "
                                          "(nº 2), em 01/05/1730.",
                                          "impossível: Ana (nº 5) nasceu em 10/05/1730, 9 dias depois da morte da mãe, "
                                          "Eva (nº 2), em 01/05/1730."}));
    EXPECT_EQ(cases("C-02", {.limits = {{"C-02.dias", 9}}}), QStringList());
}

TEST_F(TheParents, MayHaveAnApproximateDeath)
{
    dies(mother, "1730-05-01");
    run("update individuo set dobitofixa = 0");
    child("Ana", "1731-01-01", 'f');
    EXPECT_EQ(cases("C-02"), QStringList("aviso: Ana (nº 3) nasceu em 01/01/1731, 245 dias depois da morte da mãe, Eva "
                                         "(nº 2), em cerca de 01/05/1730."));
}

TEST_F(TheParents, HaveNoChildLongAfterTheFathersDeath)
{
    dies(father, "1730-01-01");
    child("Gil", "1730-10-28"); // 300 days
    child("Ana", "1730-10-29", 'f');
    EXPECT_EQ(cases("C-03"),
              QStringList("impossível: Ana (nº 4) nasceu em 29/10/1730, 301 dias depois da morte do pai, "
                          "Rui (nº 1), em 01/01/1730."));
    EXPECT_EQ(cases("C-03", {.limits = {{"C-03.dias", 294}}}).size(), 2);
}

TEST_F(TheParents, HaveNoMotherWhoIsAChild)
{
    child("Gil", "1719-03-10");
    child("Ana", "1719-03-09", 'f');
    child("Ivo", "1716-03-09");
    child("Rosa", "1704-03-09", 'f'); // C-01
    EXPECT_EQ(cases("C-04"),
              QStringList({"aviso: Ana (nº 4) nasceu em 09/03/1719, quando a mãe, Eva (nº 2), nascida em 10/03/1704, "
                           "tinha 14 anos.",
                           "impossível: Ivo (nº 5) nasceu em 09/03/1716, quando a mãe, Eva (nº 2), nascida em "
                           "10/03/1704, tinha 11 anos."}));
    run("update individuo set DnascFixa = 0 where nind = ?", {mother});
    EXPECT_EQ(cases("C-04"), QStringList("aviso: Ivo (nº 5) nasceu em 09/03/1716, quando a mãe, Eva (nº 2), nascida em "
                                         "cerca de 10/03/1704, tinha 11 anos."));
}

TEST_F(TheParents, HaveNoMotherWhoIsOld)
{
    child("Gil", "1753-03-09"); // 48
    child("Ana", "1753-03-10", 'f');
    child("Ivo", "1755-03-10");
    EXPECT_EQ(cases("C-05"),
              QStringList({"aviso: Ana (nº 4) nasceu em 10/03/1753, quando a mãe, Eva (nº 2), nascida em 10/03/1704, "
                           "tinha 49 anos.",
                           "impossível: Ivo (nº 5) nasceu em 10/03/1755, quando a mãe, Eva (nº 2), nascida em "
                           "10/03/1704, tinha 51 anos."}));
    run("update individuo set DnascFixa = 0 where nind = ?", {mother});
    EXPECT_EQ(cases("C-05"), QStringList("aviso: Ivo (nº 5) nasceu em 10/03/1755, quando a mãe, Eva (nº 2), nascida em "
                                         "cerca de 10/03/1704, tinha 51 anos."));
}

TEST_F(TheParents, HaveAFatherOfAnOrdinaryAge)
{
    child("Gil", "1716-03-10");
    child("Ana", "1716-03-09", 'f');
    child("Ivo", "1771-03-09");
    child("Rosa", "1771-03-10", 'f');
    EXPECT_EQ(cases("C-06"),
              QStringList({"aviso: Ana (nº 4) nasceu em 09/03/1716, quando o pai, Rui (nº 1), nascido em 10/03/1700, "
                           "tinha 15 anos.",
                           "aviso: Rosa (nº 6) nasceu em 10/03/1771, quando o pai, Rui (nº 1), nascido em 10/03/1700, "
                           "tinha 71 anos."}));
}

TEST_F(TheParents, MarryBeforeTheirChildren)
{
    const qint64 gil = child("Gil", "1702-01-01");
    const qint64 ana = child("Ana", "1703-01-01", 'f');
    couple(gil, person({"Leonor", 'f'}), "1724-01-31");
    couple(person({"Ivo"}), ana, "1724-02-01");
    run("update familia set dcasamfixa = 1");
    EXPECT_EQ(cases("C-13"), QStringList("impossível: Gil (nº 3) casou em 31/01/1724 (a família nº 2 de Gil e Leonor), "
                                         "antes do casamento dos pais em 01/02/1724."));
    run("update familia set dcasamfixa = 0 where nfamilia = 1");
    EXPECT_EQ(cases("C-13").first().section(':', 0, 0), "aviso");
    run("update familia set datacasam = null where nfamilia = 1");
    EXPECT_EQ(cases("C-13"), QStringList());
}

TEST_F(TheParents, AreObservedWhenTheirChildrenAreBorn)
{
    run("update individuo set inicioobs = '1724-02-01', fimobs = '1740-01-01' where nind = ?", {mother});
    child("Gil", "1724-01-31");
    child("Ana", "1724-02-01", 'f');
    child("Ivo", "1740-01-01");
    child("Rosa", "1740-01-02", 'f');
    EXPECT_EQ(cases("C-15"), QStringList("aviso: Eva (nº 2) está em observação desde 01/02/1724 até 01/01/1740, e fora "
                                         "dela nasceram filhos seus: Gil (nº 3) em 31/01/1724; Rosa (nº 6) em "
                                         "02/01/1740."));
    run("update individuo set DnascFixa = 0 where nind > 2");
    EXPECT_EQ(cases("C-15"), QStringList());
    run("update individuo set DnascFixa = 1");
    dies(mother, "1740-01-01"); // C-02
    EXPECT_EQ(cases("C-15").size(), 1);
    EXPECT_FALSE(cases("C-15").first().contains("Rosa"));
}
