// Infants and children, as long as their families are seen.
#include "study/taking.h"

#include "study/indicators/childhood.h"
#include "study/indicators/mortality.h"

#include <cmath>

using namespace study::indicators;
using taking::keyOf;
using taking::Shown;

namespace {

constexpr qint32 period = 1750, boy = 1;
constexpr auto unknownFiliation = static_cast<qint32>(Legitimacy::Unknown);

} // namespace

// Twelve infants of whom some leave: deaths come before leavings, and who leaves counts until then.
TEST(InfantMortality, OfTheWorkedExampleIs550ByKaplanAndMeier)
{
    Tally tally;
    for (const qint32 day : {0, 3, 12, 40, 90, 200})
        tally.add(keyOf(infantMortality, "obitos", {period, boy, 0, day}), 1);
    for (const qint32 day : {25, 120, 300, 365, 365, 365})
        tally.add(keyOf(infantMortality, "saidas", {period, boy, 0, day}), 1);
    const Shown figures(infantMortality, tally);
    EXPECT_NEAR(figures.value("mortalidade-infantil", "Todo o período", "1q0 Kaplan–Meier"), 550, 1e-9);
    EXPECT_EQ(figures.value("mortalidade-infantil", "1750–1799", "Em observação"), 12);
    // Twelve are too few to be shown.
    EXPECT_EQ(figures.standing("mortalidade-infantil", "Todo o período", "1q0 Kaplan–Meier"),
              study::report::Standing::Suppressed);
}

TEST(InfantMortality, IsGreyBelowTwoHundredBirthsAndHiddenBelowAHundred)
{
    const auto standing = [](qint64 born) {
        Tally tally;
        tally.add(keyOf(infantMortality, "vistos-um-ano", {period, boy, 0, 0}), born);
        tally.add(keyOf(infantMortality, "saidas", {period, boy, 0, 365}), born);
        tally.add(keyOf(infantMortality, "vistos-obitos", {period, boy, 0, 9}), 20);
        const Shown figures(infantMortality, tally);
        return figures.standing("mortalidade-infantil", "1750–1799", "1q0 clássico");
    };
    EXPECT_EQ(standing(99), study::report::Standing::Suppressed);
    EXPECT_EQ(standing(100), study::report::Standing::Grey);
    EXPECT_EQ(standing(199), study::report::Standing::Grey);
    EXPECT_EQ(standing(200), study::report::Standing::Sound);
}

TEST(ChildhoodMortality, OfTheWorkedExampleIs379To15)
{
    Tally tally;
    const auto add = [&tally](qint32 year, qint64 died, qint64 left) {
        tally.add(keyOf(childhoodMortality, "obitos", {period, boy, 0, year * daysOfAnAge + 40}), died);
        tally.add(keyOf(childhoodMortality, "saidas", {period, boy, 0, year * daysOfAnAge + 80}), left);
    };
    add(0, 36, 8);
    add(2, 24, 20);
    add(7, 6, 14);
    add(12, 3, 10);
    tally.add(keyOf(childhoodMortality, "saidas", {period, boy, 0, endOfChildhood}), 79);
    const Shown figures(childhoodMortality, tally);
    EXPECT_EQ(figures.value("quocientes", "0 (1q0)", "Em observação"), 200);
    EXPECT_NEAR(figures.value("quocientes", "0 (1q0)", "q actuarial"), 183.67, 0.005);
    EXPECT_EQ(figures.value("quocientes", "1–4 (4q1)", "Em observação"), 156);
    EXPECT_NEAR(figures.value("quocientes", "1–4 (4q1)", "q actuarial"), 164.38, 0.005);
    EXPECT_NEAR(figures.value("quocientes", "5–9 (5q5)", "q actuarial"), 57.14, 0.005);
    EXPECT_NEAR(figures.value("quocientes", "10–14 (5q10)", "q actuarial"), 34.48, 0.005);
    EXPECT_NEAR(figures.value("quocientes", "10–14 (5q10)", "Sobreviventes no fim (actuarial)"), 620.98, 0.005);
    EXPECT_NEAR(figures.value("quocientes-por-periodo", "1750–1799", "15q0"), 379, 0.05);
}

TEST(EndogenousMortality, OfTheWorkedExampleIs59AndAHalf)
{
    static constexpr std::array<int, 12> ends = {31, 61, 91, 122, 153, 183, 212, 243, 273, 304, 334, 365};
    static constexpr std::array<int, 12> deaths = {78, 90, 101, 109, 116, 122, 128, 133, 138, 143, 147, 150};
    Tally tally;
    tally.add(keyOf(endogenousMortality, "nascimentos", {period, boy, 0, 0}), 1000);
    for (std::size_t i = 0; i < ends.size(); ++i)
        tally.add(keyOf(endogenousMortality, "obitos", {period, boy, 0, ends[i] - 1}),
                  deaths[i] - (i > 0 ? deaths[i - 1] : 0));
    const Shown figures(endogenousMortality, tally);
    EXPECT_NEAR(figures.value("endogena", "1750–1799", "Endógena (quadrados mínimos)"), 59.4, 0.05);
    EXPECT_NEAR(figures.value("endogena", "1750–1799", "Declive"), 5.420, 0.0005);
    EXPECT_NEAR(figures.value("endogena", "1750–1799", "Endógena (recta de 1 a 12 meses)"), 59.7, 0.05);
    EXPECT_NEAR(figures.value("endogena", "1750–1799", "Exógena (recta de 1 a 12 meses)"), 90.3, 0.05);
    EXPECT_NEAR(figures.value("endogena", "1750–1799", "Exógena (atalho)"), 90.3, 0.05);
    EXPECT_EQ(figures.text("endogena", "1750–1799", "Observação"), "recta");
}

TEST(EndogenousMortality, ByThousandBearsADecimalFromAHundredBirthsOn)
{
    for (const auto& [births, decimals] : {std::pair{99, std::optional(0)}, std::pair{100, std::optional<int>()}}) {
        Tally tally;
        tally.add(keyOf(endogenousMortality, "nascimentos", {period, boy, 0, 0}), births);
        for (const qint32 day : {1, 40, 70, 100, 200, 300})
            tally.add(keyOf(endogenousMortality, "obitos", {period, boy, 0, day}), 10);
        const Shown figures(endogenousMortality, tally);
        const auto table = figures.table("endogena");
        for (const char* column : {"Mortalidade infantil", "Exógena (atalho)"})
            EXPECT_EQ(Counting::cell(table, "1750–1799", column).decimals, decimals) << births;
        const auto months = figures.table("acumulados");
        EXPECT_EQ(Counting::cell(months, "365", "Por mil nascimentos").decimals, decimals);
        EXPECT_EQ(Counting::cell(months, "365", "Pela recta").decimals, decimals);
    }
}

TEST(EndogenousMortality, ByMonthIsSuppressedOfFewerThan50DeathsToo)
{
    using study::report::Standing;
    for (const auto& [deaths, standing] : {std::pair{49, Standing::Suppressed}, std::pair{50, Standing::Sound}}) {
        Tally tally;
        tally.add(keyOf(endogenousMortality, "nascimentos", {period, boy, 0, 0}), 500);
        for (const qint32 day : {1, 40, 100, 200})
            tally.add(keyOf(endogenousMortality, "obitos", {period, boy, 0, day}), 10);
        tally.add(keyOf(endogenousMortality, "obitos", {period, boy, 0, 300}), deaths - 40);
        const Shown figures(endogenousMortality, tally);
        for (const char* column : {"Por mil nascimentos", "Pela recta"})
            EXPECT_EQ(figures.standing("acumulados", "365", column), standing) << column << deaths;
        EXPECT_EQ(figures.value("acumulados", "365", "Óbitos"), deaths);
    }
}

// The deaths lie on a line, but for those that nobody wrote down.
TEST(EndogenousMortality, NearNothingIsRemarkedAtAnyTimeAndALowOneBefore1850)
{
    static constexpr std::array<int, 12> ends = {31, 61, 91, 122, 153, 183, 212, 243, 273, 304, 334, 365};
    const auto remarkOf = [](int year, int endogenous, const char* row) {
        Tally tally;
        tally.add(keyOf(endogenousMortality, "nascimentos", {year, boy, 0, 0}), 10000);
        qint64 before = 0;
        for (const int end : ends) {
            const double logarithm = std::log10(end + 1);
            const auto deaths = static_cast<qint64>(10 * (endogenous + 5 * logarithm * logarithm * logarithm));
            tally.add(keyOf(endogenousMortality, "obitos", {year, boy, 0, end - 1}), deaths - before);
            before = deaths;
        }
        return Shown(endogenousMortality, tally).text("endogena", row, "Observação");
    };
    const QString low = "muito baixa: faltam óbitos de recém-nascidos?";
    EXPECT_EQ(remarkOf(1750, 30, "1750–1799"), low);
    EXPECT_EQ(remarkOf(1750, 50, "1750–1799"), "recta");
    EXPECT_EQ(remarkOf(1900, 30, "1900–1949"), "recta");
    EXPECT_EQ(remarkOf(1900, 3, "1900–1949"), low);
    EXPECT_EQ(remarkOf(1900, 3, "Todo o período"), low);
}

TEST(TheAgeOfAChild, CountsNoneOfTheDaysThatOctober1582LeftOut)
{
    const auto day = [](int year, int month, int of) { return study::parish::dateOf(QDate(year, month, of), true); };
    EXPECT_EQ(ageInDays(day(1582, 10, 1), day(1582, 10, 4)), 3);
    EXPECT_EQ(ageInDays(day(1582, 10, 1), day(1582, 10, 15)), 4);
    EXPECT_EQ(ageInDays(day(1582, 10, 1), day(1583, 9, 30)), 354);
    EXPECT_EQ(ageInDays(day(1582, 10, 1), day(1583, 10, 1)), 365);
}

TEST(TheSubjectsOfChildren, GiveFiguresOfNothing)
{
    for (const Subject* subject : {&infantMortality, &childhoodMortality, &endogenousMortality})
        for (const auto& figure : subject->figures({}, {})) {
            const auto* table = std::get_if<study::report::Table>(&figure);
            if (!table) continue;
            for (const auto& row : table->rows)
                EXPECT_EQ(row.size(), table->columns.size()) << qPrintable(table->id);
        }
}

class Children : public Counting
{
protected:
    Children()
    {
        const qint64 father = person({"João Alves", 'm', "", "1790-01-01"});
        const qint64 mother = person({"Ana Lopes", 'f', "", "1790-02-01"});
        family = couple(father, mother, "1745-01-10");
    }
    // Nobody died whose death is known, and what is told ends with the last child.
    qint64 lonelyCouple() { return couple(person({"Rui", 'm'}), person({"Eva", 'f'}), "1745-01-10"); }
    qint64 child(const char* birth, const char* death = "") { return person({"Maria", 'f', birth, death, family}); }
    Table infants(const Settings& settings = {}) const
    {
        return tableOf(figuresFor(infantMortality, settings), "mortalidade-infantil");
    }
    double seen() const { return value(infants(), "Todo o período", "Nascimentos vistos um ano"); }
    double watched() const { return value(infants(), "Todo o período", "Em observação"); }

    qint64 family = 0;
};

TEST_F(Children, AreSeenAsLongAsTheirFamilyIs)
{
    child("1750-03-01");
    child("1752-06-01", "1752-06-20");
    EXPECT_EQ(seen(), 2);
    EXPECT_EQ(value(infants(), "Todo o período", "1q0 clássico"), 500);
}

// Of who is born in the last days of one period, and dies in the first ones of the next.
TEST_F(Children, AreCountedByThePeriodOfTheBirthAndByThatOfTheDeath)
{
    child("1749-12-01", "1750-01-20");
    child("1749-10-01");
    child("1751-10-01");
    const auto figures = figuresFor(infantMortality);
    const auto cohorts = tableOf(figures, "mortalidade-infantil"), periods = tableOf(figures, "pelo-ano-do-obito");
    EXPECT_EQ(value(cohorts, "1700–1749", "Óbitos"), 1);
    EXPECT_EQ(value(cohorts, "1750–1799", "Óbitos"), 0);
    EXPECT_EQ(value(periods, "1700–1749", "Óbitos"), 0);
    EXPECT_EQ(value(periods, "1700–1749", "Nascimentos vistos um ano"), 2);
    EXPECT_EQ(value(periods, "1750–1799", "Óbitos"), 1);
    EXPECT_EQ(value(periods, "1750–1799", "1q0 do período"), 1000);
    EXPECT_EQ(value(periods, "Todo o período", "Óbitos"), 1);
}

TEST_F(Children, WhoDieAloneTellNothing)
{
    const qint64 lonely = lonelyCouple();
    person({"Maria", 'f', "1750-03-01", "1750-03-05", lonely});
    const auto figures = figuresFor(infantMortality);
    EXPECT_EQ(leftOut(figures), (QMap<QString, int>{{"sem prova de presença da família depois do nascimento", 1}}));
    // But it is a death under one, with both dates exact.
    EXPECT_EQ(value(tableOf(figures, "obitos-ate-um-ano"), "Menos de um ano", "Óbitos"), 1);
    EXPECT_EQ(value(tableOf(figures, "obitos-ate-um-ano"), "No próprio dia", "Óbitos"), 0);
}

// The other child's baptism is the last that is heard of them.
TEST_F(Children, LeaveWithTheirFamily)
{
    const qint64 lonely = lonelyCouple();
    person({"Maria", 'f', "1750-03-01", "", lonely});
    person({"Rosa", 'f', "1750-12-30", "", lonely});
    EXPECT_EQ(watched(), 1);
    const auto tally = tallyFor(infantMortality);
    EXPECT_EQ((tally[keyOf(infantMortality, "saidas", {1750, 2, unknownFiliation, 304})]), 1);
}

TEST_F(Children, WhoDieBehindTheLastActOfTheirFamilyHaveLeftAlive)
{
    const qint64 lonely = lonelyCouple();
    person({"Maria", 'f', "1750-03-01", "1751-02-01", lonely});
    person({"Rosa", 'f', "1750-12-30", "", lonely});
    const auto table = infants();
    EXPECT_EQ(value(table, "Todo o período", "1q0 Kaplan–Meier"), 0);
    EXPECT_EQ(value(table, "Todo o período", "1q0 com todos os óbitos"), 1000);
}

TEST_F(Children, OfDoubtfulDatesAreLeftOut)
{
    run("update individuo set DnascFixa = 0 where nind = ?", {child("1750-03-01", "1751-05-01")});
    run("update individuo set DnascFixa = 0 where nind = ?", {child("1753-03-01", "1760-05-01")});
    EXPECT_EQ(leftOut(figuresFor(infantMortality)),
              (QMap<QString, int>{{"datas aproximadas, com menos de dois anos entre nascimento e óbito", 1}}));
    EXPECT_EQ(seen(), 1);
}

TEST_F(Children, ObeyTheLimitThatAResearcherTyped)
{
    run("update individuo set fimobs = '1750-08-01' where nind = ?", {child("1750-03-01")});
    EXPECT_EQ(watched(), 1);
    EXPECT_EQ(seen(), 0);
}

TEST_F(Children, AreNotLimitedByTheDeathThatTheCardWroteIntoTheLimit)
{
    run("update individuo set fimobs = dataobito where nind = ?", {child("1750-03-01", "1750-04-01")});
    EXPECT_EQ(seen(), 1);
    EXPECT_EQ(value(infants(), "Todo o período", "Óbitos"), 1);
}

TEST_F(Children, LeaveWithTheBooks)
{
    child("1750-03-01");
    child("1752-03-01");
    Settings settings;
    settings.books[static_cast<std::size_t>(Series::ChildBurials)] = {1700, 1750};
    const auto figures = figuresFor(infantMortality, settings);
    EXPECT_EQ(value(tableOf(figures, "mortalidade-infantil"), "Todo o período", "Em observação"), 1);
    EXPECT_EQ(value(tableOf(figures, "mortalidade-infantil"), "Todo o período", "Nascimentos vistos um ano"), 0);
    EXPECT_EQ(leftOut(figures)["nascimento fora dos livros de baptismos ou de óbitos de menores"], 1);
}

TEST_F(Children, WhoMarryYoungLeaveThen)
{
    const qint64 bride = child("1750-03-01");
    couple(person({"Rui", 'm', "1740-01-01"}), bride, "1764-03-01");
    const auto tally = tallyFor(childhoodMortality);
    EXPECT_EQ((tally[keyOf(childhoodMortality, "saidas", {1750, 2, unknownFiliation, 14 * daysOfAnAge})]), 1);
    EXPECT_EQ((tally[keyOf(childhoodMortality, "vistos-ate-ao-fim", {1750, 2, unknownFiliation, 2})]), 1);
    EXPECT_EQ((tally[keyOf(childhoodMortality, "vistos-ate-ao-fim", {1750, 2, unknownFiliation, 3})]), 0);
}

TEST_F(Children, TellWhoStandsBehindAFigure)
{
    const qint64 dead = child("1750-03-01", "1750-04-01");
    child("1752-03-01");
    const auto parish = study::parish::Snapshot::read(bdp);
    const Settings settings;
    const Study study = studyOf(parish, settings);
    const auto figures = infantMortality.figures(tallyOf(infantMortality, study), settings);
    const auto who =
        behind(infantMortality, study, cell(tableOf(figures, "mortalidade-infantil"), "Todo o período", "Óbitos").from);
    ASSERT_EQ(who.size(), 1U);
    EXPECT_EQ(study::parish::value(who[0].person->number), dead);
}

TEST(AgesInDays, HaveBirthdaysAtMultiplesOf365)
{
    using study::parish::dateOf;
    const auto day = [](int year, int month, int of) { return dateOf(QDate(year, month, of), true); };
    EXPECT_EQ(ageInDays(day(1703, 3, 1), day(1703, 3, 1)), 0);
    EXPECT_EQ(ageInDays(day(1703, 3, 1), day(1704, 2, 29)), 364);
    EXPECT_EQ(ageInDays(day(1703, 3, 1), day(1704, 3, 1)), 365);
    EXPECT_EQ(ageInDays(day(1704, 2, 29), day(1705, 3, 1)), 365);
    EXPECT_EQ(ageInDays(day(1704, 2, 29), day(1705, 2, 28)), 364);
}
