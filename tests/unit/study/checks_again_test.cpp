// Rules by what they once told wrongly, told twice, or did not tell: one case each, by name.
#include "study/checkedActs.h"

#include "study/checks/facts.h"

#include <QSet>

#include <type_traits>

class ARuleAgain : public CheckedActs
{
protected:
    void isAbout(qint64 who) { run("update individuo set DnascFixa = 0 where nind = ?", {who}); }
    void diesAbout(qint64 who) { run("update individuo set dobitofixa = 0 where nind = ?", {who}); }
    void isOfKind(qint64 family, const char* situation)
    {
        run("update familia set sfamilia = ? where nfamilia = ?", {situation, family});
    }
    // What the rules of one letter find, without the severities: "C-02".
    QStringList ids(const QString& letter) const
    {
        QStringList found;
        for (const study::checks::Case& one : all())
            if (one.rule.startsWith(letter)) found << one.rule;
        return found;
    }
};

TEST_F(ARuleAgain, KeepsTheNamesOfOneWhileItAsksForOthers)
{
    const qint64 first = person({"Rui Abreu"});
    for (int i = 0; i < 500; ++i)
        person({qUtf8Printable(QString("Gil Nome%1").arg(i))});
    const auto parish = study::parish::Snapshot::read(bdp);
    const study::checks::Facts facts(parish);
    static_assert(!std::is_reference_v<decltype(facts.names(*parish.person({})))>);
    const auto names = facts.names(*parish.person(study::parish::PersonNumber(first)));
    for (const study::parish::Person& person : parish.people())
        facts.names(person);
    const auto again = facts.names(*parish.person(study::parish::PersonNumber(first)));
    EXPECT_EQ(names.given + names.surnames, again.given + again.surnames);
}

TEST_F(ARuleAgain, TakesNobodyOfUndeterminedSexForTheMother)
{
    const qint64 rui = person({"Rui", 'd', "1690-03-01", "1730-01-01"});
    const qint64 ana = person({"Ana", 'f', "1706-03-01"});
    const qint64 family = couple(rui, ana);
    person({"Gil", 'm', "1730-06-01", "", family}); // posthumous
    person({"Ivo", 'm', "1745-06-01", "", family}); // Rui would be 55
    EXPECT_EQ(cases("C-02"), QStringList());
    EXPECT_EQ(cases("C-05"), QStringList());
    isOfKind(family, "4");
    EXPECT_EQ(cases("F-07"), QStringList("aviso: A família nº 1 de Rui tem a situação «4», e tem mãe: Ana (nº 2)."));
    run("update individuo set dataobito = '1740-01-01' where nind = ?", {ana});
    EXPECT_EQ(cases("C-02"), QStringList("impossível: Ivo (nº 4) nasceu em 01/06/1745, 1978 dias depois da morte da "
                                         "mãe, Ana (nº 2), em 01/01/1740."));
    run("update individuo set datanasc = '1731-01-01' where nind = ?", {rui});
    EXPECT_EQ(cases("C-01"),
              QStringList("impossível: Gil (nº 3) nasceu em 01/06/1730, antes do progenitor, Rui (nº 1), "
                          "nascido em 01/01/1731."));
}

TEST_F(ARuleAgain, CountsTheChildrenOfUndeterminedSexAsOfEither)
{
    const qint64 rui = person({"Rui", 'd', "1690-03-01"});
    const qint64 family = couple(rui, 0);
    for (int i = 0; i < 16; ++i)
        person({"Gil", 'm', qUtf8Printable(QString("%1-03-01").arg(1710 + 2 * i)), "", family});
    EXPECT_EQ(cases("F-14"), QStringList());
    EXPECT_EQ(cases("F-15"), QStringList());
}

TEST_F(ARuleAgain, DoesNotOrderMarriagesThatMayBeTheOtherWayRound)
{
    person({"Rui"});
    person({"Ana", 'f', "", "1750-01-01"});
    person({"Eva", 'f', "", "1730-02-10"});
    couple(1, 2, "1730-01-01"); // some day of that year
    wedding(1, 3, "1730-02-03");
    EXPECT_EQ(cases("M-08"), QStringList());
    run("update individuo set dataobito = null where nind = 3");
    EXPECT_EQ(cases("M-08").size(), 1);
    EXPECT_TRUE(cases("M-08").first().startsWith("aviso: "));
    run("update familia set dcasamfixa = 1");
    EXPECT_TRUE(cases("M-08").first().startsWith("impossível: "));
}

TEST_F(ARuleAgain, LeavesASpouseWhoIsAlsoTheChildToOne)
{
    const qint64 rui = person({"Rui", 'm', "1700-03-01"});
    const qint64 ana = person({"Ana", 'f', "1704-03-01", "1704-06-01"});
    const qint64 family = couple(rui, ana);
    run("update individuo set famorig = ?", {family});
    EXPECT_EQ(ids("F-04"), QStringList({"F-04", "F-04"}));
    EXPECT_EQ(ids("C-04"), QStringList());
    EXPECT_EQ(ids("C-06"), QStringList("C-06")); // of her: he would be 4
    EXPECT_EQ(cases("C-06").filter("Rui (nº 1) nasceu"), QStringList());
    EXPECT_EQ(ids("M-13"), QStringList());
}

TEST_F(ARuleAgain, HoldsNobodyImpossiblyOldByDatesThatMayBeOff)
{
    const qint64 rui = person({"Rui", 'm', "1600-02-01", "1716-03-01"}); // 116
    EXPECT_TRUE(cases("P-02").first().startsWith("impossível: "));
    isAbout(rui);
    EXPECT_TRUE(cases("P-02").first().startsWith("aviso: "));
    run("update individuo set datanasc = '1600-01-01', dataobito = '1720-01-01'");
    diesAbout(rui); // both of a year
    EXPECT_TRUE(cases("P-02").first().startsWith("aviso: "));
    run("update individuo set dataobito = '1727-01-01'");
    EXPECT_TRUE(cases("P-02").first().startsWith("impossível: "));
}

TEST_F(ARuleAgain, SpeaksInTheFirstHalfOfTheYearOfABirth)
{
    const qint64 rui = person({"Rui", 'm', "1700-03-01"});
    const qint64 eva = person({"Eva", 'f', "1704-01-01"});
    isAbout(eva);
    const qint64 family = wedding(rui, eva, "1704-03-01");
    person({"Gil", 'm', "1704-03-01", "", family});
    EXPECT_EQ(cases("C-04"), QStringList("impossível: Gil (nº 3) nasceu em 01/03/1704, quando a mãe, Eva (nº 2), "
                                         "nascida em cerca de 1704, tinha 0 anos."));
    EXPECT_EQ(cases("M-03").filter("Eva (nº 2), nascida em cerca de 1704, casou em 01/03/1704 com 0 anos").size(), 1);
}

TEST_F(ARuleAgain, MeasuresAYearByAnExactDayWithinOneYear)
{
    const qint64 rui = person({"Rui"});
    const qint64 eva = person({"Eva", 'f', "", "1760-01-01"});
    diesAbout(eva);
    const qint64 family = couple(rui, eva);
    run("update individuo set inicioobs = '1724-02-01' where nind = ?", {eva});
    const qint64 gil = person({"Gil", 'm', "1715-01-01", "", family});
    isAbout(gil);
    EXPECT_EQ(cases("C-15").size(), 1);
    run("update individuo set dataobito = '1760-01-01', dobitofixa = 0 where nind = ?", {rui});
    run("update familia set fimobs = '1769-01-01'");
    EXPECT_EQ(cases("F-09").size(), 1);
    run("update familia set fimobs = '1761-06-01'");
    EXPECT_EQ(cases("F-09"), QStringList());
}

TEST_F(ARuleAgain, SeesTheExactBirthsBesideAYearBetweenThem)
{
    const qint64 family = couple(person({"Rui"}), person({"Eva", 'f'}));
    person({"Gil", 'm', "1729-12-20", "", family});
    const qint64 ana = person({"Ana", 'f', "1730-01-01", "", family});
    person({"Ivo", 'm', "1730-03-01", "", family});
    isAbout(ana);
    EXPECT_EQ(cases("C-07"), QStringList("impossível: Gil (nº 3) nasceu em 20/12/1729 e Ivo (nº 5) em 01/03/1730, 71 "
                                         "dias depois: ambos são filhos da família nº 1 de Rui e Eva."));
    run("update individuo set datanasc = '1730-09-20' where nind = 5"); // 274 days, then 265
    EXPECT_EQ(cases("C-08"), QStringList());
    run("update individuo set datanasc = '1730-09-11' where nind = 5");
    EXPECT_EQ(cases("C-08").size(), 1);
}

TEST_F(ARuleAgain, LooksForTheMissingDeathBehindATwin)
{
    const qint64 family = couple(person({"Rui"}), person({"Eva", 'f'}));
    person({"Maria", 'f', "1730-01-01", "", family});
    person({"Ana", 'f', "1730-01-02", "", family});
    person({"M.a", 'f', "1732-01-01", "", family}); // Maria
    EXPECT_EQ(cases("C-16"), QStringList("aviso: Maria (nº 3) nasceu em 01/01/1730 e não tem óbito; M.a (nº 5), que "
                                         "nasceu depois em 01/01/1732, tem o mesmo nome."));
    run("update individuo set datanasc = '1731-01-02' where nind = 4"); // the next birth is hers
    EXPECT_EQ(cases("C-16"), QStringList());
}

TEST_F(ARuleAgain, NumbersMarriagesBesideTheDatedOnes)
{
    person({"Rui"});
    for (int i = 0; i < 3; ++i)
        person({"Ana", 'f'});
    couple(1, 2);
    wedding(1, 3, "1720-02-03");
    wedding(1, 4, "1730-02-03");
    run("update familias set numcasam = 4 - nfamilia where nind = 1"); // 3 of no date, then 2, then 1
    EXPECT_EQ(cases("M-09"), QStringList("aviso: Dos casamentos de Rui (nº 1), o de 03/02/1720 (família nº 2) tem o "
                                         "número 2, e o de 03/02/1730 (família nº 3) tem o número 1."));
}

TEST_F(ARuleAgain, KnowsSiblingsWhoseParentsAreUnknown)
{
    run("insert into familia (nfamilia) values (?)", {++lastFamily});
    const qint64 rui = person({"Rui", 'm', "", "", lastFamily}), ana = person({"Ana", 'f', "", "", lastFamily});
    couple(rui, ana);
    EXPECT_EQ(cases("M-13"), QStringList("impossível: Rui (nº 1) e Ana (nº 2), cônjuges, são parentes que não podem "
                                         "casar: são irmãos, filhos da família nº 1."));
}

TEST_F(ARuleAgain, WidowsNobodyOfAUnionThatIsNoMarriage)
{
    const qint64 rui = person({"Rui", 'm', "", "1760-01-01"}), ana = person({"Ana", 'f', "", "1765-01-01"});
    const qint64 family = couple(rui, ana);
    run("update individuo set estadoobito = 3 where nind = ?", {rui});
    EXPECT_EQ(cases("P-09").size(), 1);
    isOfKind(family, "5");
    EXPECT_EQ(cases("P-09"), QStringList());
    run("update individuo set estadoobito = 2, dataobito = '1770-01-01' where nind = ?", {rui});
    EXPECT_EQ(cases("P-08"), QStringList());
    isOfKind(family, "1");
    EXPECT_EQ(cases("P-08").size(), 1);
}

TEST_F(ARuleAgain, TellsApartWhatItHasAgainstOneRecord)
{
    couple(person({"Rui"}), person({"Ana", 'f'}));
    run("insert into familias (nfamilia, nind) values (1, 9)");
    run("insert into familias (nfamilia, nind) values (1, 10)");
    assists("b", 1, "1730-01-01", 97);
    assists("b", 1, "1730-01-01", 98);
    QSet<QString> keys;
    const auto found = all();
    for (const study::checks::Case& one : found)
        keys.insert(one.key());
    EXPECT_EQ(keys.size(), qsizetype(found.size()));
    EXPECT_EQ(cases("F-03").size(), 2);
    EXPECT_EQ(cases("K-07").size(), 2);
}

TEST_F(ARuleAgain, CountsSumsWithAllTheirFigures)
{
    const qint64 rui = person({"Rui", 'm', "", "1760-02-14"});
    run("insert into rituaismorte (nind, idlegpio, tipolegpio, quantidade, valorunit, valortotal) values (?, 1, "
        "'missa', 3, 411522.5, 1200000)",
        {rui});
    EXPECT_EQ(cases("W-03"),
              QStringList("aviso: Nos sufrágios de Rui (nº 1), 3 missas a 411522,50 são 1234567,50, e não 1200000."));
}

TEST_F(ARuleAgain, SpeaksOfAWomanAsOfOne)
{
    const qint64 ana = person({"Ana", 'f'});
    run("update individuo set testamenteiro = ?", {ana});
    EXPECT_EQ(cases("P-25"), QStringList("aviso: Ana (nº 1) está como testamenteira de si própria."));
    const qint64 eva = person({"Eva", 'f', "", "1760-05-01"});
    run("update individuo set testamenteiro = ?, dataobito = '1760-04-30', dobitofixa = 1 where nind = ?", {eva, eva});
    run("update individuo set dataobito = '1760-05-01' where nind = ?", {ana});
    run("update individuo set testamenteiro = ? where nind = ?", {eva, ana});
    EXPECT_EQ(cases("P-25").filter("testadora"),
              QStringList("aviso: Eva (nº 2), testamenteira de Ana (nº 1), morreu em 30/04/1760, antes da testadora, "
                          "que morreu em 01/05/1760."));
}
