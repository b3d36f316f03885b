// What is told of exact dates, and not of those that may be off by as much.
#include "study/checkedActs.h"

class DatesThatMayBeOff : public CheckedActs
{
protected:
    void areAbout() { run("update individuo set DnascFixa = 0, dobitofixa = 0"); }
    void isToldOfExactDatesAlone(const char* rule)
    {
        EXPECT_EQ(cases(rule).size(), 1) << rule;
        areAbout();
        run("update familia set dcasamfixa = 0");
        EXPECT_EQ(cases(rule), QStringList()) << rule;
    }
};

TEST_F(DatesThatMayBeOff, TellNoAgeOfAHundredYears)
{
    person({"Rui", 'm', "1600-03-01", "1701-03-01"}); // 101
    isToldOfExactDatesAlone("P-02");
    run("update individuo set dataobito = '1702-03-03'");
    EXPECT_EQ(cases("P-02").size(), 1);
}

TEST_F(DatesThatMayBeOff, TellNoWidowerWhoDiedMarried)
{
    const qint64 rui = person({"Rui", 'm', "", "1760-05-02"});
    couple(rui, person({"Ana", 'f', "", "1760-01-02"}));
    run("update individuo set estadoobito = 2 where nind = ?", {rui});
    isToldOfExactDatesAlone("P-08");
}

TEST_F(DatesThatMayBeOff, TellNoSpouseOfOneWhoDiedWidowed)
{
    const qint64 rui = person({"Rui", 'm', "", "1760-05-02"});
    couple(rui, person({"Ana", 'f', "", "1760-09-02"}));
    run("update individuo set estadoobito = 3 where nind = ?", {rui});
    isToldOfExactDatesAlone("P-09");
}

TEST_F(DatesThatMayBeOff, TellNoExecutorWhoDiedBefore)
{
    person({"Rui", 'm', "", "1760-05-02"});
    run("update individuo set testamenteiro = ? where nind = 1", {person({"Gil", 'm', "", "1760-03-02"})});
    isToldOfExactDatesAlone("P-25");
}

TEST_F(DatesThatMayBeOff, TellNobodyWhoMarriedYoung)
{
    wedding(person({"Rui", 'm', "1702-02-15"}), 0, "1720-02-14"); // 17 years and 364 days
    isToldOfExactDatesAlone("M-04");
}

TEST_F(DatesThatMayBeOff, TellNobodyWhoMarriedOld)
{
    wedding(person({"Rui", 'm', "1700-02-14"}), 0, "1776-02-14"); // 76
    isToldOfExactDatesAlone("M-05");
}

TEST_F(DatesThatMayBeOff, TellNoGreatDifferenceOfAges)
{
    couple(person({"Rui", 'm', "1700-02-14"}), person({"Ana", 'f', "1725-06-15"}));
    isToldOfExactDatesAlone("M-07");
}

TEST_F(DatesThatMayBeOff, TellNoEarlierMarriageOfTheSingle)
{
    const qint64 rui = person({"Rui"});
    wedding(rui, person({"Ana", 'f'}), "1730-02-03");
    wedding(rui, person({"Eva", 'f'}), "1730-11-03");
    run("update familias set estadocivil = 1");
    isToldOfExactDatesAlone("M-10");
}

TEST_F(DatesThatMayBeOff, TellNoFirstChildLate)
{
    const qint64 rui = person({"Rui"}), ana = person({"Ana", 'f'});
    person({"Gil", 'm', "1735-04-03", "", wedding(rui, ana, "1720-02-03")});
    isToldOfExactDatesAlone("M-18");
    run("update individuo set datanasc = '1689-03-03' where nind = ?", {ana}); // she is 46
    run("update individuo set DnascFixa = 1");
    isToldOfExactDatesAlone("M-18");
}

TEST_F(DatesThatMayBeOff, TellNoObservationFromAnotherDay)
{
    run("insert into infopar (cod, nome) values ('030899', 'Moinhos')");
    wedding(person({"Rui"}), person({"Ana", 'f'}), "1730-01-01");
    run("update familia set localcasam = '030899', tipolocalcasam = 'F', inicioobs = '1730-05-01'");
    isToldOfExactDatesAlone("F-08");
}

TEST_F(DatesThatMayBeOff, TellNoNamesakeWhoStillLives)
{
    const qint64 family = couple(person({"Rui"}), person({"Ana", 'f'}));
    person({"Gil", 'm', "1730-02-03", "1735-03-03", family});
    person({"Gil", 'm', "1735-01-03", "", family});
    isToldOfExactDatesAlone("F-12");
    run("update individuo set dataobito = '1760-01-01' where nind = 3");
    EXPECT_EQ(cases("F-12").size(), 1);
    run("update individuo set datanasc = '1734-06-01' where nind = 3"); // either of both may be the elder one
    EXPECT_EQ(cases("F-12"), QStringList());
}

TEST_F(DatesThatMayBeOff, TellNoMotherOfManyYears)
{
    const qint64 family = couple(person({"Rui"}), person({"Ana", 'f'}));
    person({"Gil", 'm', "1730-02-03", "", family});
    person({"Ivo", 'm', "1755-08-03", "", family});
    isToldOfExactDatesAlone("F-14");
}

TEST_F(DatesThatMayBeOff, TellNothingInsideTheirYear)
{
    const qint64 eva = person({"Eva", 'f', "", "1760-02-01"});
    const qint64 family = couple(person({"Rui", 'm', "", "1760-01-01"}), eva);
    run("update individuo set inicioobs = '1724-02-01' where nind = ?", {eva});
    const qint64 gil = person({"Gil", 'm', "1721-01-01", "", family});
    areAbout();
    EXPECT_EQ(cases("C-15").size(), 1); // 13 months at least
    run("update individuo set datanasc = '1723-01-01' where nind = ?", {gil});
    EXPECT_EQ(cases("C-15"), QStringList());
    // The day of the decree, and of the baptism, is a day: one year is what an approximate date may be off.
    run("insert into rituaismorte (nind, idlegpio, tipolegpio, valortotal, tipoMoeda) values (?, 1, 'missa', 5, 'Es')",
        {eva});
    run("update individuo set dataobito = '1910-01-01' where nind = ?", {eva});
    EXPECT_EQ(cases("W-04").size(), 1);
    run("update individuo set dataobito = '1911-01-01' where nind = ?", {eva});
    EXPECT_EQ(cases("W-04"), QStringList());
    assists("b", gil, "1740-01-01", eva);
    run("update individuo set dataobito = '1737-01-01', dobitofixa = 0 where nind = ?", {gil});
    EXPECT_EQ(cases("C-14").size(), 1);
    run("update individuo set dataobito = '1739-01-01' where nind = ?", {gil});
    EXPECT_EQ(cases("C-14"), QStringList());
    run("insert into residencia (numero, tiporesid, dataref, datafixa) values (?, 'i', '1721-01-01', 0)", {eva});
    EXPECT_EQ(cases("L-02").size(), 1);
    run("update residencia set dataref = '1723-01-01'");
    EXPECT_EQ(cases("L-02"), QStringList());
}
