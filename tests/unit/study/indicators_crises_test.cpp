// Series by the year, and the years of crisis.
#include "study/taking.h"

#include "study/indicators/annual.h"
#include "study/indicators/mortality.h"

using namespace study::indicators;
using taking::keyOf;
using taking::Shown;

namespace {

constexpr qint32 adult = 0, any = Tally::any;

Tally deaths(int first, std::initializer_list<int> numbers)
{
    Tally tally;
    for (const int n : numbers)
        tally.add(keyOf(mortalityCrises, "obitos", {first++, adult}), n);
    return tally;
}

Tally withLast(int last)
{
    return deaths(1700, {31, 28, 35, 40, 29, 33, 37, 30, 34, 33, last});
}

constexpr auto byN = "Índice (desvio por n)";
constexpr auto byNLessOne = "Índice (desvio por n − 1)";

} // namespace

TEST(ACrisis, IsMeasuredAgainstTheTenYearsBefore)
{
    struct Case
    {
        int deaths;
        double byN, byNLessOne;
        const char* magnitude;
    };
    for (const Case& known : {Case{39, 1.704, 1.616, "1, menor"}, Case{45, 3.408, 3.233, "2, média"},
                              Case{60, 7.667, 7.274, "3, forte"}, Case{118, 24.138, 22.900, "5, enorme"}})
    {
        const Shown shown(mortalityCrises, withLast(known.deaths));
        EXPECT_NEAR(shown.value("indices", "1710", byN), known.byN, 0.0005);
        EXPECT_NEAR(shown.value("indices", "1710", byNLessOne), known.byNLessOne, 0.0005);
        EXPECT_EQ(shown.text("indices", "1710", "Magnitude"), QString::fromUtf8(known.magnitude));
        EXPECT_NEAR(shown.value("indices", "1710", "Média dos 10 anos antes"), 33, 1e-9);
        EXPECT_EQ(shown.value("indices", "1709", byN), -1);
    }
}

TEST(ACrisis, AmongTheTenYearsHidesTheNextUnlessItIsSkipped)
{
    const Tally tally = deaths(1700, {31, 28, 35, 40, 29, 33, 37, 30, 34, 33, 118, 60});
    const Shown hidden(mortalityCrises, deaths(1702, {28, 35, 40, 29, 33, 37, 30, 34, 33, 118, 60}));
    EXPECT_NEAR(hidden.value("indices", "1712", byN), 0.713, 0.0005);
    EXPECT_NEAR(hidden.value("indices", "1712", "Média dos 10 anos antes"), 41.7, 1e-9);
    EXPECT_NEAR((60 - 41.7) / hidden.value("indices", "1712", byN), 25.667, 0.0005) << "the deviation";
    Settings settings;
    settings.skipCrises = true;
    EXPECT_GT(Shown(mortalityCrises, tally, settings).value("indices", "1711", byN), 5);
}

TEST(ACrisis, LeadsToTheYearsThatItIsMeasuredAgainst)
{
    const auto year = [](int of) { return Key{keyOf(mortalityCrises, "obitos").count, {of, any, any, any}}; };
    std::vector<Key> before, around;
    for (int of = 1700; of < 1710; ++of)
        before.push_back(year(of));
    for (int of = 1700; of <= 1710; ++of)
        if (of != 1705) around.push_back(year(of));
    const Table table = Shown(mortalityCrises, withLast(118)).table("indices");
    const auto from = [&](const char* row, const char* column) { return Counting::cell(table, row, column).from; };
    EXPECT_EQ(from("1710", "Média dos 10 anos antes"), before);
    before.insert(before.begin(), year(1710));
    EXPECT_EQ(from("1710", byN), before);
    EXPECT_EQ(from("1710", byNLessOne), before);
    around.insert(around.begin(), year(1705));
    EXPECT_EQ(from("1705", "Razão aos 10 vizinhos"), around);
}

TEST(TheSeries, LeadFromWhatIsWorkedOutToAllItIsMadeOf)
{
    Tally tally;
    for (qint32 of = 1700; of < 1720; ++of)
        for (const char* count : {"baptismos", "casamentos", "obitos"})
            tally.add(keyOf(annualSeries, count, {of, 0}), 7);
    const auto keys = [](const char* count, int first, int last) {
        std::vector<Key> all;
        for (int of = first; of <= last; ++of)
            all.push_back({keyOf(annualSeries, count).count, {of, any, any, any}});
        return all;
    };
    const auto both = [](std::vector<Key> one, const std::vector<Key>& other) {
        one.insert(one.end(), other.begin(), other.end());
        return one;
    };
    Settings settings;
    settings.movingAverage = 9;
    settings.gaps[static_cast<std::size_t>(Series::Baptisms)] = {{1703, 1703}};
    const Shown shown(annualSeries, tally, settings);
    const Table acts = shown.table("actos-por-ano"), means = shown.table("medias-moveis");
    const auto at = [](const Table& table, const char* column) { return Counting::cell(table, "1710", column).from; };
    EXPECT_EQ(at(acts, "Saldo natural"), both(keys("baptismos", 1710, 1710), keys("obitos", 1710, 1710)));
    EXPECT_EQ(at(acts, "Saldo acumulado"), both(keys("baptismos", 1704, 1710), keys("obitos", 1704, 1710)));
    EXPECT_EQ(at(acts, "Baptismos por casamento de 5 anos antes"),
              both(keys("baptismos", 1710, 1710), keys("casamentos", 1705, 1705)));
    EXPECT_EQ(at(means, "Baptismos, média móvel de 9 anos"), keys("baptismos", 1706, 1714));
    EXPECT_EQ(at(means, "Baptismos, índice"), both(keys("baptismos", 1710, 1710), keys("baptismos", 1704, 1713)));
}

TEST(ACrisis, IsAlsoMeasuredAgainstItsNeighbours)
{
    const Shown shown(mortalityCrises, deaths(1700, {31, 28, 35, 40, 29, 118, 33, 37, 30, 34, 33}));
    EXPECT_NEAR(shown.value("indices", "1705", "Razão aos 10 vizinhos"), 3.61, 0.005);
    EXPECT_EQ(shown.text("indices", "1705", "Crise pela razão"), "pequena");
    EXPECT_EQ(shown.value("anos-de-crise", "1705", "Óbitos"), 118);
}

TEST(ACrisis, IsGreyWhereTenDeathsAYearAreNotReached)
{
    const Shown shown(mortalityCrises, deaths(1700, {3, 4, 3, 4, 3, 4, 3, 4, 3, 4, 12}));
    EXPECT_EQ(shown.standing("indices", "1710", byN), study::report::Standing::Grey);
}

TEST(ACrisis, IsNotFoundBehindAGap)
{
    Settings settings;
    settings.gaps[static_cast<std::size_t>(Series::Burials)] = {{1705, 1705}};
    const Shown shown(mortalityCrises, withLast(118), settings);
    EXPECT_EQ(shown.value("indices", "1710", byN), -1);
    EXPECT_EQ(shown.table("indices").rows.size(), 10U);
}

TEST(AnnualSeries, HaveTheMovingAveragesOfTheWorkedExample)
{
    Tally tally;
    int year = 1701;
    for (const int n : {20, 22, 25, 19, 30, 28, 26, 24, 27, 31, 29, 33, 40, 28, 26})
        tally.add(keyOf(annualSeries, "baptismos", {year++}), n);
    Settings settings;
    settings.movingAverage = 5;
    const Shown five(annualSeries, tally, settings);
    const std::array<double, 11> means = {23.2, 24.8, 25.6, 25.4, 27.0, 27.2, 27.4, 28.8, 32.0, 32.2, 31.2};
    for (std::size_t i = 0; i < means.size(); ++i)
        EXPECT_NEAR(five.value("medias-moveis", qPrintable(QString::number(1703 + static_cast<int>(i))),
                               "Baptismos, média móvel de 5 anos"),
                    means[i], 1e-9);
    EXPECT_EQ(five.value("medias-moveis", "1702", "Baptismos, média móvel de 5 anos"), -1);
    EXPECT_EQ(five.value("medias-moveis", "1714", "Baptismos, média móvel de 5 anos"), -1);
    settings.movingAverage = 11;
    const Shown eleven(annualSeries, tally, settings);
    EXPECT_NEAR(eleven.value("medias-moveis", "1706", "Baptismos, média móvel de 11 anos"), 25.55, 0.005);
    EXPECT_NEAR(eleven.value("medias-moveis", "1710", "Baptismos, média móvel de 11 anos"), 29.27, 0.005);
    // 25.2 a year from 1701 to 1710.
    EXPECT_NEAR(eleven.value("medias-moveis", "1713", "Baptismos, índice"), 40 / 25.2 * 100, 1e-9);
}

TEST(ACrisis, IsShownInThePeriodOfTheStudyAloneAndMeasuredByAllYears)
{
    Settings settings;
    settings.period = {1710, 1720};
    const Shown shown(mortalityCrises, withLast(118), settings);
    EXPECT_EQ(shown.table("indices").rows.size(), 1U);
    EXPECT_NEAR(shown.value("indices", "1710", byN), 24.138, 0.0005);
    settings.period = {1700, 1709};
    EXPECT_TRUE(Shown(mortalityCrises, withLast(118), settings).table("anos-de-crise").isEmpty());
}

TEST(ACrisis, HasNoMarriagesWhereTheirBookIsMissing)
{
    Settings settings;
    settings.books[static_cast<std::size_t>(Series::Marriages)] = {1700, 1709};
    const Shown shown(mortalityCrises, withLast(118), settings);
    EXPECT_EQ(shown.value("anos-de-crise", "1710", "Casamentos"), -1) << "a gap, and no zero";
    EXPECT_EQ(shown.value("anos-de-crise", "1710", "Baptismos"), 0);
}

TEST(ACrisis, ByItsNeighboursIsGreyOnlyWhereTheyAreFew)
{
    const Shown shown(mortalityCrises, deaths(1700, {12, 13, 12, 13, 12, 40, 12, 13, 12, 13, 12}));
    EXPECT_EQ(shown.standing("indices", "1705", "Razão aos 10 vizinhos"), study::report::Standing::Sound)
        << "five years before it, of twelve deaths each";
}

TEST(ACrisis, ThatIsSkippedIsNotInTheMeanOfTheBaseEither)
{
    Settings settings;
    settings.skipCrises = true;
    const Shown shown(mortalityCrises, deaths(1700, {31, 28, 35, 40, 29, 33, 37, 30, 34, 33, 118, 60}), settings);
    EXPECT_NEAR(shown.value("indices", "1711", "Média dos 10 anos antes"), 299.0 / 9, 1e-9);
}

TEST(AnnualSeries, HaveTheBaseOfTheirIndexWhereTheStudySetsIt)
{
    Tally tally;
    int year = 1701;
    for (const int n : {20, 22, 25, 19, 30, 28, 26, 24, 27, 31, 29, 33, 40, 28, 26})
        tally.add(keyOf(annualSeries, "baptismos", {year++}), n);
    Settings settings;
    settings.indexBase = 1706;
    const Shown shown(annualSeries, tally, settings);
    EXPECT_NEAR(shown.value("medias-moveis", "1713", "Baptismos, índice"), 40 / 29.2 * 100, 1e-9);
    EXPECT_TRUE(shown.table("medias-moveis").notes.first().startsWith("Baptismos: 100 é a média de 1706–1715"));
    settings.indexBase = 1707;
    const Shown short_(annualSeries, tally, settings);
    EXPECT_EQ(short_.value("medias-moveis", "1713", "Baptismos, índice"), -1) << "1716 is missing";
    EXPECT_TRUE(short_.table("medias-moveis").notes.first().startsWith("Baptismos: sem índice"));
}

TEST(AnnualSeries, HaveNoConceptionsOfAYearWhoseBirthsAreNotAllIn)
{
    Tally tally;
    for (int year = 1701; year <= 1705; ++year) {
        tally.add(keyOf(annualSeries, "baptismos", {year}), 10);
        tally.add(keyOf(annualSeries, "concepcoes", {year}), year < 1705 ? 10 : 2);
    }
    const auto at = [](const Shown& shown, const char* year) {
        return shown.value("actos-por-ano", year, "Concepções");
    };
    const Shown all(annualSeries, tally);
    EXPECT_EQ(at(all, "1704"), 10);
    EXPECT_EQ(at(all, "1705"), -1);
    Settings settings;
    settings.period = {1701, 1703};
    EXPECT_EQ(at(Shown(annualSeries, tally, settings), "1703"), 10) << "the books go on";
    settings.period = {};
    settings.gaps[static_cast<std::size_t>(Series::Baptisms)] = {{1703, 1703}};
    EXPECT_EQ(at(Shown(annualSeries, tally, settings), "1702"), -1);
}

TEST(AnnualSeries, TakeAGapForAGapAndNotForAZero)
{
    Tally tally;
    for (const int year : {1701, 1702, 1704, 1705}) {
        tally.add(keyOf(annualSeries, "baptismos", {year}), 10);
        tally.add(keyOf(annualSeries, "obitos", {year, 0, 0}), 4);
    }
    const Shown whole(annualSeries, tally);
    EXPECT_EQ(whole.value("actos-por-ano", "1703", "Baptismos"), 0);
    EXPECT_EQ(whole.value("actos-por-ano", "1705", "Saldo acumulado"), 24);
    Settings settings;
    settings.gaps[static_cast<std::size_t>(Series::Baptisms)] = {{1703, 1703}};
    const Shown gap(annualSeries, tally, settings);
    EXPECT_EQ(gap.value("actos-por-ano", "1703", "Baptismos"), -1);
    EXPECT_EQ(gap.value("actos-por-ano", "1703", "Saldo natural"), -1);
    EXPECT_EQ(gap.value("actos-por-ano", "1705", "Saldo acumulado"), 12);
}

using TheYearsOfAParish = Counting;

TEST_F(TheYearsOfAParish, HoldItsActsAlone)
{
    const qint64 father = person({"João", 'm', "1720-05-01", "1781-02-01"});
    const qint64 family = couple(father, person({"Ana", 'f'}), "1745-06-01");
    person({"Rui", 'm', "1750-03-01", "1751-09-01", family});
    run("update individuo set localobito = '030301', tipolocalobito = 'F' where nind = ?", {father});
    run("insert into infopar (cod, nome) values ('030899', 'Aqui')");
    const auto figures = figuresFor(annualSeries);
    const Table table = tableOf(figures, "actos-por-ano");
    EXPECT_EQ(value(table, "1750", "Baptismos"), 1);
    EXPECT_EQ(value(table, "1749", "Concepções"), 1);
    EXPECT_EQ(value(table, "1745", "Casamentos"), 1);
    EXPECT_EQ(value(table, "1751", "Menores de 7"), 1);
    EXPECT_EQ(leftOut(figures), (QMap<QString, int>{{"acto de outra freguesia", 1}}));
}

TEST_F(TheYearsOfAParish, HaveAHarvestYearFromAugustOn)
{
    person({"Rui", 'm', "", "1751-07-31"});
    person({"Rui", 'm', "", "1751-08-01"});
    person({"Rui", 'm', "", "1760-01-02"});
    const Tally tally = tallyFor(mortalityCrises);
    EXPECT_EQ((tally[keyOf(mortalityCrises, "obitos-ano-agricola", {1750, 2})]), 1);
    EXPECT_EQ((tally[keyOf(mortalityCrises, "obitos-ano-agricola", {1751, 2})]), 1);
    EXPECT_EQ((tally[keyOf(mortalityCrises, "obitos-ano-agricola", {1759, 2})]), 1);
}
