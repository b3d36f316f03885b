// What goes wrong when a rule of observation is broken: on the same lives the estimate moves to the side on which the
// rule keeps it from going.
#include "study/simulated_figures.h"

#include "study/indicators/births.h"
#include "study/indicators/fertility.h"
#include "study/indicators/mortality.h"
#include "study/indicators/nuptiality.h"

#include <cmath>

using namespace study::indicators;
using simulated::Figures;
using simulated::Parameters;
using simulated::Registers;

namespace {

constexpr auto allFamilies = "Todas as famílias contadas";
constexpr auto everyBirth = "Todo o período";
constexpr auto toLastProof = "até à última prova de vida";

// Enough couples for chance to be small beside what a broken rule does.
class ABrokenRule : public testing::Test
{
protected:
    static Parameters known()
    {
        Parameters parameters;
        parameters.couples = 2000;
        return parameters;
    }
    static const std::vector<simulated::Couple>& lives()
    {
        static const std::vector<simulated::Couple> made = simulated::lives(known(), 1896);
        return made;
    }

    const Parameters truth = known();
};

// A parish and its figures.
struct Studied
{
    study::parish::Snapshot parish;
    Figures figures;

    explicit Studied(const std::vector<simulated::Couple>& lives, const Registers& registers = {},
                     const Settings& settings = {})
        : parish(simulated::written(lives, registers)), figures(parish, settings)
    {
    }

    double rate(const char* age) { return figures.value(maritalFertility, "taxas-por-idade", age, "Taxa"); }
    double total() { return figures.value(maritalFertility, "somas", allFamilies, "Descendência teórica 20–49"); }
    double control()
    {
        return figures.value(maritalFertility, "m-e-m",
                             QString(allFamilies) + "|máxima verosimilhança de Poisson, 20–49", "m");
    }
    double infants(const char* way) { return figures.value(infantMortality, "mortalidade-infantil", everyBirth, way); }
    double children(const char* row, const char* way)
    {
        return figures.value(childhoodMortality, "quocientes", row, way);
    }
    double endogenous()
    {
        return figures.value(endogenousMortality, "endogena", everyBirth, "Endógena (quadrados mínimos)");
    }
    double interval() { return figures.value(birthIntervals, "por-ordem", "Todos", "Média"); }
    double married(const char* row, const char* column)
    {
        return figures.value(ageAtMarriage, "idade-mulheres", row, column);
    }
};

// How far a figure is off: 1 where it is right.
double ratio(double found, double truth)
{
    return found / truth;
}

} // namespace

TEST_F(ABrokenRule, OpenCouplesFollowedToFiftyMakeFertilityTooLowAndLowerWithAge)
{
    Studied kept(lives()), broken(lives(), {.openToFifty = true});
    EXPECT_NEAR(kept.total(), truth.totalFrom(1), 0.05 * truth.totalFrom(1));
    EXPECT_LT(broken.total(), 0.9 * truth.totalFrom(1));
    const double young = ratio(broken.rate("25–29"), 1000 * truth.rate(2)),
                 grown = ratio(broken.rate("30–34"), 1000 * truth.rate(3)),
                 old = ratio(broken.rate("40–44"), 1000 * truth.rate(5));
    EXPECT_LT(young, 1);
    EXPECT_LT(grown, young);
    EXPECT_LT(old, grown);
    EXPECT_NEAR(kept.control(), truth.control, 0.1);
    EXPECT_GT(broken.control(), truth.control + 0.1) << "as if births were limited";
}

TEST_F(ABrokenRule, CouplesWithoutAChildLeftOutMakeFertilityTooHighAndSterilityVanish)
{
    Studied kept(lives()), broken(lives(), {.withChildrenOnly = true});
    EXPECT_GT(broken.total(), 1.03 * truth.totalFrom(1));
    EXPECT_GT(broken.total(), kept.total());
    EXPECT_GT(kept.figures.value(completedSize, "sem-filhos", "Todas", "Sem filhos"), 0);
    EXPECT_EQ(broken.figures.value(completedSize, "sem-filhos", "Todas", "Sem filhos"), 0);
}

TEST_F(ABrokenRule, AnEndAtTheLastBirthMakesFertilityFarTooHighAtOldAges)
{
    Studied broken(lives(), {.endsAtLastBirth = true});
    const double young = ratio(broken.rate("25–29"), 1000 * truth.rate(2)),
                 grown = ratio(broken.rate("35–39"), 1000 * truth.rate(4)),
                 old = ratio(broken.rate("40–44"), 1000 * truth.rate(5));
    EXPECT_GT(young, 1);
    EXPECT_GT(grown, young);
    EXPECT_GT(old, grown);
    EXPECT_GT(old, 1.5);
}

TEST_F(ABrokenRule, RoundStatedAgesOfWivesPullTheRatesTogether)
{
    Settings derived;
    derived.derivedBirths = true;
    Studied kept(lives(), {}, derived), broken(lives(), {.heapedAges = true}, derived);
    EXPECT_GT(broken.rate("45–49"), 1.3 * kept.rate("45–49"));
    EXPECT_LT(broken.rate("40–44") / broken.rate("45–49"), kept.rate("40–44") / kept.rate("45–49"));
    EXPECT_LT(broken.rate("35–39") / broken.rate("40–44"), kept.rate("35–39") / kept.rate("40–44"));
}

TEST_F(ABrokenRule, AMarriageMadeOfTheFirstBirthMakesTheFirstIntervalAConstant)
{
    Studied kept(lives()), broken(lives(), {.marriedByChild = true});
    const auto first = [](Studied& of, const char* column) {
        return of.figures.value(firstInterval, "primeiro-intervalo", "Todos os casamentos, 8 meses e mais", column);
    };
    const double year = 365 / 30.4375;
    EXPECT_GT(first(kept, "Média"), first(kept, "Mediana") + 2);
    EXPECT_DOUBLE_EQ(first(broken, "Média"), year);
    EXPECT_DOUBLE_EQ(first(broken, "Mediana"), year);
    const auto& rate = broken.figures.cell(maritalFertility, "taxas-por-idade", "20–24", "Taxa");
    ASSERT_TRUE(rate.interval);
    EXPECT_GT(rate.interval->low, 1000 * truth.rate(1)) << "a year is shorter than couples really wait";
}

TEST_F(ABrokenRule, BothDeathsDemandedFavourLongUnions)
{
    Settings both;
    both.unions.marriedAtDeath = false;
    Studied kept(lives()), broken(lives(), {}, both);
    const auto families = [](Studied& of, const char* column) {
        return of.figures.value(completedSize, "familias-fechadas", "Todas", column);
    };
    EXPECT_LT(families(broken, "Famílias"), families(kept, "Famílias"));
    EXPECT_GT(families(broken, "Duração média da união"), families(kept, "Duração média da união") + 0.2);
}

TEST_F(ABrokenRule, ChildrenFollowedBeyondTheLastEventOfTheFamilyDieTooSeldom)
{
    Parameters restless = known();
    restless.leaving = 0.1;
    const auto couples = simulated::lives(restless, 1896);
    Studied kept(couples), broken(couples, {.followedBeyond = true});
    const double infants = 1000 * truth.infantMortality();
    EXPECT_NEAR(kept.infants("1q0 Kaplan–Meier"), infants, 0.06 * infants);
    EXPECT_LT(broken.infants("1q0 Kaplan–Meier"), kept.infants("1q0 Kaplan–Meier"));
    EXPECT_LT(broken.infants("1q0 clássico"), kept.infants("1q0 clássico"));
    for (const char* way : {"q Kaplan–Meier", "q clássico"}) {
        EXPECT_LT(broken.children("1–4 (4q1)", way), 0.96 * kept.children("1–4 (4q1)", way)) << way;
        EXPECT_LT(broken.children("10–14 (5q10)", way), 0.96 * kept.children("10–14 (5q10)", way)) << way;
    }
}

TEST_F(ABrokenRule, ChildrenFoundByLaterActsOfTheirOwnDieTooSeldom)
{
    Studied broken(lives(), {.survivorsLinked = true});
    EXPECT_LT(broken.infants("1q0 Kaplan–Meier"), 0.8 * 1000 * truth.infantMortality());
    EXPECT_LT(broken.children("1–4 (4q1)", "q Kaplan–Meier"), 0.8 * 1000 * truth.childhoodQuotient(0));
}

// Nothing follows the last child of a family that left: who counts it only where it died has too many deaths.
TEST_F(ABrokenRule, LastChildrenCountedOnlyWhenTheyDieMakeInfantMortalityTooHigh)
{
    Studied kept(lives());
    EXPECT_GT(kept.infants("1q0 com todos os óbitos"), kept.infants("1q0 clássico"));
    EXPECT_GT(kept.infants("1q0 com todos os óbitos"), 1000 * truth.infantMortality());
}

TEST_F(ABrokenRule, DeathsWithoutTheExposureOfEmigrantsMakeYoungAdultsDieTooOften)
{
    Studied told(lives(), {.passports = true}), untold(lives());
    const double died = 1000 * truth.adults.quotient(20, 50), expected = truth.adults.expectation(20);
    for (const char* gender : {"Todo o período, homens|", "Todo o período, mulheres|"}) {
        const auto summary = [&](Studied& of, const char* estimate, const char* column) {
            return of.figures.value(adultMortality, "resumo", gender + QString(estimate), column);
        };
        EXPECT_GT(summary(told, "uniões fechadas", "30q20"), 1.1 * died) << gender;
        EXPECT_LT(summary(told, "uniões fechadas", "e20"), expected - 1) << gender;
        EXPECT_NEAR(summary(told, toLastProof, "30q20"), died, 0.12 * died) << gender;
        EXPECT_NEAR(summary(told, toLastProof, "e20"), expected, 1.5) << gender;
        // Between the last act and the day on which they leave they live unseen.
        EXPECT_GT(summary(untold, toLastProof, "30q20"), summary(told, toLastProof, "30q20")) << gender;
        EXPECT_LT(summary(untold, toLastProof, "e20"), summary(told, toLastProof, "e20") - 1) << gender;
        EXPECT_LT(summary(untold, "mínima", "e20"), expected - 1) << gender << "no bound where leaving isn't told";
        EXPECT_LT(summary(untold, "máxima", "e20"), summary(untold, "mínima", "e20")) << gender;
    }
}

TEST_F(ABrokenRule, AgesFromLinksAloneAreTooLowAndTooNarrowWhereWhoMovedMarriesLater)
{
    Parameters moving = known();
    moving.movers = 0.4;
    moving.moversLater = 4;
    const double mean = moving.women.mean() + moving.movers * moving.moversLater;
    const double deviation =
        std::hypot(moving.women.deviation(), moving.moversLater * std::sqrt(moving.movers * (1 - moving.movers)));
    const auto couples = simulated::lives(moving, 1896);
    Studied kept(couples), broken(couples, {.moversUnlinked = true});
    EXPECT_NEAR(kept.married("Todos", "Média"), mean, 0.4);
    EXPECT_LT(broken.married("Todos", "Média"), mean - 1);
    EXPECT_LT(broken.married("Todos", "Desvio-padrão"), kept.married("Todos", "Desvio-padrão"));
    EXPECT_LT(broken.married("Todos", "Desvio-padrão"), deviation);
    EXPECT_NEAR(broken.married("Todos", "Média da idade declarada"), mean, 0.4) << "who moved states an age, too";
}

TEST_F(ABrokenRule, TheStartOfTheBooksIgnoredMakesAgesAtMarriageRise)
{
    Settings unaware, aware;
    unaware.cohortYears = aware.cohortYears = 10;
    aware.books[std::size_t(Series::Baptisms)].first = 1700;
    Studied broken(lives(), {.firstBaptisms = 1700}, unaware), kept(lives(), {.firstBaptisms = 1700}, aware);
    double before = 0;
    for (const char* decade : {"1710–1719", "1720–1729", "1730–1739"}) {
        EXPECT_GT(broken.married(decade, "Média"), before) << decade;
        before = broken.married(decade, "Média");
    }
    EXPECT_LT(before, truth.women.mean());
    EXPECT_LT(broken.married("Todos", "Média"), truth.women.mean() - 0.5);
    EXPECT_NEAR(kept.married("Todos", "Média"), truth.women.mean(), 0.5);
}

TEST_F(ABrokenRule, PeriodsTakenForCohortsOfMarriageLagBehindAChange)
{
    Parameters changing = known();
    changing.years = 100;
    changing.newLevelFrom = 1750;
    changing.newLevel = 0.5;
    const auto couples = simulated::lives(changing, 1896);
    Settings byCohort, byPeriod;
    byCohort.cohortYears = byPeriod.cohortYears = 10;
    byPeriod.byMarriageCohort = false;
    Studied kept(couples, {}, byCohort), broken(couples, {}, byPeriod);
    const auto rate = [](Studied& of, const char* decade) {
        return of.figures.value(maritalFertility, "taxas-por-periodo", decade, "Taxa");
    };
    const double old = 1000 * changing.rate(4), middle = old * (1 + changing.newLevel / changing.level) / 2;
    EXPECT_LT(rate(kept, "1750–1759|35–39"), middle);
    EXPECT_GT(rate(broken, "1750–1759|35–39"), middle);
    EXPECT_LT(rate(broken, "1770–1779|35–39"), middle) << "fifteen years late";
}

TEST_F(ABrokenRule, TwinsTakenForTwoConfinementsMakeIntervalsTooShort)
{
    Studied kept(lives()), broken(lives(), {.twinsApart = 5});
    EXPECT_LT(broken.interval(), kept.interval());
    EXPECT_NEAR(broken.interval(), kept.interval(), 0.05 * kept.interval());
}

TEST_F(ABrokenRule, ChildrenDeadBeforeTheirBaptismMakeIntervalsTooLongAndInfantMortalityTooLow)
{
    Settings inflated;
    const Registers early{.daysUnbaptised = 3};
    Studied kept(lives()), broken(lives(), early);
    EXPECT_GT(broken.interval(), kept.interval());
    EXPECT_LT(broken.infants("1q0 clássico"), kept.infants("1q0 clássico"));
    EXPECT_LT(broken.infants("1q0 Kaplan–Meier"), 0.9 * 1000 * truth.infantMortality());
    EXPECT_LT(broken.endogenous(), 0.8 * 1000 * truth.endogenous);
    EXPECT_LT(broken.endogenous() / broken.infants("1q0 clássico"), kept.endogenous() / kept.infants("1q0 clássico"));
    EXPECT_LT(broken.total(), kept.total());
    inflated.missingBirths = 1 - broken.total() / kept.total();
    EXPECT_NEAR(Studied(lives(), early, inflated).total(), kept.total(), 0.01 * kept.total());
}
