// The intervals of 95 % that the window shows, over parishes whose truth is known: they hold it in 90 to 99 % of the
// cells.
#include "study/simulated_figures.h"

#include "study/indicators/births.h"
#include "study/indicators/fertility.h"
#include "study/indicators/mortality.h"
#include "study/indicators/nuptiality.h"
#include "study/indicators/seasonality.h"

#include <numeric>

using namespace study::indicators;
using simulated::Figures;

namespace {

constexpr int seeds = 50;

struct Covered
{
    int shown = 0, withheld = 0; // cells with an interval, and those with too little behind them
    int holding = 0;             // intervals that hold the truth

    double share() const { return shown > 0 ? 100.0 * holding / shown : 0; }
    Covered& operator+=(const Covered& other)
    {
        shown += other.shown, withheld += other.withheld, holding += other.holding;
        return *this;
    }
};

using Coverage = std::map<QString, Covered>; // by group of cells

class Gathering
{
public:
    Gathering(Coverage& coverage, Figures& figures) : coverage_(coverage), figures_(figures) {}

    void take(const char* group, const Subject& subject, const char* table, const QString& row, const QString& column,
              double truth)
    {
        const auto& cell = figures_.cell(subject, table, row, column);
        Covered& covered = coverage_[group];
        const double* value = std::get_if<double>(&cell.value);
        if (!value || !cell.interval) {
            ++covered.withheld;
            return;
        }
        ++covered.shown;
        if (truth >= cell.interval->low && truth <= cell.interval->high) ++covered.holding;
    }

    void months(const char* group, const Subject& subject, const char* table, const std::array<double, 12>& indices)
    {
        for (int month = 1; month <= 12; ++month)
            take(group, subject, table, monthName(month), "Razão diária", indices[std::size_t(month - 1)]);
    }

private:
    Coverage& coverage_;
    Figures& figures_;
};

// The gamma time of shape 3 has its median at 2.67406 of its scale.
double medianOf(const simulated::MarriageAge& ages)
{
    return ages.least + 2.67406 * ages.scale;
}

void gatherMarriages(Gathering& gathering, const simulated::Parameters& truth)
{
    struct Sex
    {
        const char* table;
        const simulated::MarriageAge& ages;
    };
    for (const Sex& sex : {Sex{"idade-homens", truth.men}, Sex{"idade-mulheres", truth.women}}) {
        for (const char* row : {"1700–1749", "Todos"})
            gathering.take("idade ao casamento", ageAtMarriage, sex.table, row, "Média", sex.ages.mean());
        gathering.take("idade mediana", ageAtMarriage, sex.table, "Todos", "Mediana", medianOf(sex.ages));
    }
}

void gatherFertility(Gathering& gathering, const simulated::Parameters& truth)
{
    for (int group = 0; group < 7; ++group)
        gathering.take("taxas por idade", maritalFertility, "taxas-por-idade",
                       QString("%1–%2").arg(15 + 5 * group).arg(19 + 5 * group), "Taxa", 1000 * truth.rate(group));
    gathering.take("descendência teórica", maritalFertility, "somas", "Todas as famílias contadas",
                   "Descendência teórica 20–49", truth.totalFrom(1));
    gathering.take("descendência teórica", maritalFertility, "somas", "Todas as famílias contadas",
                   "Descendência teórica 25–49", truth.totalFrom(2));
    const QString poisson = "Todas as famílias contadas|máxima verosimilhança de Poisson, 20–49";
    gathering.take("M", maritalFertility, "m-e-m", poisson, "M", truth.level);
    gathering.take("m", maritalFertility, "m-e-m", poisson, "m", truth.control);
}

void gatherInfants(Gathering& gathering, const simulated::Parameters& truth)
{
    for (const char* row : {"Todo o período", "Todo o período, homens", "Todo o período, mulheres"}) {
        for (const char* way : {"1q0 clássico", "1q0 Kaplan–Meier"})
            gathering.take("1q0", infantMortality, "mortalidade-infantil", row, way, 1000 * truth.infantMortality());
        for (const char* way : {"Endógena (quadrados mínimos)", "Endógena (recta de 1 a 12 meses)"})
            gathering.take("endógena", endogenousMortality, "endogena", row, way, 1000 * truth.endogenous);
    }
}

// All endogenous deaths come before 28 days.
void gatherAges(Gathering& gathering, const simulated::Parameters& truth)
{
    const double young = 1000 * truth.diedBefore(28), all = 1000 * truth.infantMortality();
    for (const char* row : {"Todo o período", "Todo o período, homens", "Todo o período, mulheres"}) {
        gathering.take("idades no primeiro ano", infantMortality, "componentes", row, "0–27 dias", young);
        gathering.take("idades no primeiro ano", infantMortality, "componentes", row, "28–364 dias", all - young);
    }
}

void gatherChildren(Gathering& gathering, const simulated::Parameters& truth)
{
    const std::array<const char*, 3> rows = {"1–4 (4q1)", "5–9 (5q5)", "10–14 (5q10)"};
    for (const char* table : {"quocientes", "quocientes-m", "quocientes-f"})
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const double quotient = 1000 * truth.childhoodQuotient(int(i));
            gathering.take("quocientes 1–14, clássicos", childhoodMortality, table, rows[i], "q clássico", quotient);
            gathering.take("quocientes 1–14, Kaplan–Meier", childhoodMortality, table, rows[i], "q Kaplan–Meier",
                           quotient);
        }
}

// Per day of the month nine months before, which is longer or shorter.
simulated::Season conceptionsOf(const simulated::Season& births)
{
    static constexpr std::array<double, 12> days = {31, 28.25, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    simulated::Season conceptions = {};
    for (std::size_t birth = 0; birth < births.size(); ++birth) {
        const auto month = static_cast<std::size_t>(monthOfConception(static_cast<int>(birth) + 1) - 1);
        conceptions[month] = births[birth] * days[birth] / days[month];
    }
    return conceptions;
}

void gatherMonths(Gathering& gathering, const simulated::Parameters& truth)
{
    const auto indices = [](simulated::Season season) {
        for (double& index : season)
            index *= 100;
        return season;
    };
    const simulated::Season births = indices(truth.births), deaths = indices(truth.deaths);
    gathering.months("meses dos casamentos", marriageSeasons, "casamentos-por-mes", indices(truth.marriages));
    gathering.months("meses dos nascimentos", birthSeasons, "nascimentos-1", births);
    gathering.months("meses das concepções", birthSeasons, "concepcoes", conceptionsOf(births));
    gathering.months("meses dos óbitos", seasonOfDeaths, "obitos-por-mes-3", deaths); // 1 to 4 years
    gathering.months("meses dos óbitos", seasonOfDeaths, "obitos-por-mes-5", deaths); // 20 to 59
    gathering.months("meses dos óbitos", seasonOfDeaths, "obitos-por-mes-6", deaths); // 60 and above
}

void gatherAdults(Gathering& gathering, const simulated::Parameters& truth)
{
    for (int age = 20; age < 80; age += 5)
        for (const char* column : {"Homens, 5qx", "Mulheres, 5qx"})
            gathering.take("quocientes dos adultos", adultMortality, "kaplan-meier",
                           QString("%1–%2").arg(age).arg(age + 4), column, 1000 * truth.adults.quotient(age, age + 5));
}

// Expectations at 20 have no interval of their own: their mean is that of all parishes.
using Expectations = std::map<QString, std::vector<double>>; // by gender

void gatherExpectations(Expectations& expectations, Figures& figures)
{
    for (const char* gender : {"homens", "mulheres"})
        expectations[gender].push_back(figures.value(
            adultMortality, "resumo", QString("Todo o período, %1|até à última prova de vida").arg(gender), "e20"));
}

struct Gathered
{
    Coverage coverage = {};
    Expectations expectations = {};
};

Gathered gatheredOf(const simulated::Parameters& truth)
{
    Gathered gathered;
    Coverage& coverage = gathered.coverage;
    for (quint32 seed = 1; seed <= seeds; ++seed) {
        const std::vector<simulated::Couple> lives = simulated::lives(truth, seed);
        const auto parish = simulated::written(lives);
        Figures figures(parish);
        Gathering gathering(coverage, figures);
        gatherMarriages(gathering, truth);
        gatherFertility(gathering, truth);
        gatherInfants(gathering, truth);
        gatherAges(gathering, truth);
        gatherChildren(gathering, truth);
        gatherMonths(gathering, truth);
        // Adults are only seen to the day on which they leave where somebody tells of it.
        const auto told = simulated::written(lives, {.passports = true});
        Figures toldFigures(told);
        Gathering adults(coverage, toldFigures);
        gatherAdults(adults, truth);
        gatherExpectations(gathered.expectations, toldFigures);
    }
    return gathered;
}

const Gathered& gathered()
{
    static const Gathered once = gatheredOf({});
    return once;
}

double meanOf(const std::vector<double>& values)
{
    return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

} // namespace

TEST(SimulatedParishes, AreHeldByTheIntervalsOfTheirFigures)
{
    Covered all;
    for (const auto& [group, covered] : gathered().coverage) {
        EXPECT_GE(covered.share(), 85) << qPrintable(group) << ", of " << covered.shown << " cells";
        EXPECT_LT(covered.withheld, covered.shown / 20) << qPrintable(group);
        all += covered;
    }
    EXPECT_GE(all.share(), 90) << "of " << all.shown << " cells";
    EXPECT_LE(all.share(), 99) << "of " << all.shown << " cells";
}

TEST(SimulatedParishes, HaveTheExpectationOfLifeOfWhoIsSeenToTheDayOfLeaving)
{
    const double truth = simulated::Parameters().adults.expectation(20);
    for (const auto& [gender, found] : gathered().expectations)
        EXPECT_NEAR(meanOf(found), truth, 0.5) << qPrintable(gender);
}

TEST(SimulatedParishes, ShowNoIntervalOfAnEndogenousRateOfFewDeaths)
{
    simulated::Parameters few;
    few.couples = 40;
    const auto parish = simulated::written(simulated::lives(few, 1));
    Figures figures(parish);
    const auto& cell = figures.cell(endogenousMortality, "endogena", "Todo o período", "Endógena (quadrados mínimos)");
    EXPECT_EQ(cell.standing, study::report::Standing::Suppressed);
    EXPECT_FALSE(cell.interval);
}
