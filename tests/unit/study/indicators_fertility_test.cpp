// Marital fertility: who counts, from when to when, and the rates.
#include "data/demobdp.h"
#include "study/natal.h"

#include "study/indicators/fertility.h"
#include "study/indicators/marriedLife.h"

using namespace study::indicators;
using study::report::Standing;

namespace {

class MaritalFertility : public Natal
{
protected:
    static constexpr auto rates = "taxas-por-idade", births = "Nascimentos",
                          years = "Anos vividos por mulheres casadas", rate = "Taxa",
                          all = "Todas as famílias contadas";

    // Married on 10 June 1741; the husband is buried in 1755, the wife in 1790.
    qint64 closedFamily()
    {
        const qint64 family = married({"1741-06-10", "1720-03-12", "1790-05-01", "1755-10-02"});
        children(family, {"1742-05-03", "1744-09-20", "1747-02-11", "1749-07-30", "1749-07-30", "1753-01-15"});
        return family;
    }
    qint64 openFamily()
    {
        const qint64 family = married({"1760-02-03", "1735-07-05"});
        child(family, "1761-01-20");
        child(family, "1763-03-11", 'm', "1766-04-10");
        child(family, "1765-08-02");
        return family;
    }
    double days(const char* age) const { return value(rates, age, years) * study::parish::daysOfAYear; }
    // The wife's birth, so that she is exactly 25 on 1 July 1750, and her children at these ages behind that day.
    void marriedAt25(const char* husbandDeath, const char* wifeDeath, std::initializer_list<double> at)
    {
        const qint64 family = married({"1750-07-01", "1725-07-01", wifeDeath, husbandDeath});
        for (const double year : at)
            child(family, qPrintable(QDate(1750, 7, 1).addDays(qint64(year * 365.25)).toString("yyyy-MM-dd")));
    }
};

} // namespace

TEST_F(MaritalFertility, OfOneClosedFamilyIsThatOfTheHandExample)
{
    closedFamily();
    count(maritalFertility);
    const struct
    {
        const char* age;
        double days, births;
    } rows[]{{"15–19", 0, 0},   {"20–24", 1371, 2}, {"25–29", 1826, 3}, {"30–34", 1826, 1},
             {"35–39", 204, 0}, {"40–44", 0, 0},    {"45–49", 0, 0},    {"15–49", 5227, 6}};
    for (const auto& row : rows) {
        EXPECT_NEAR(days(row.age), row.days, 1e-6) << row.age;
        EXPECT_EQ(value(rates, row.age, births), row.births) << row.age;
    }
    EXPECT_NEAR(value(rates, "20–24", years), 3.7536, 5e-5);
    EXPECT_NEAR(value(rates, "25–29", rate), 3 / 4.9993 * 1000, 0.01);
    EXPECT_EQ(cell(rates, "25–29", rate).standing, Standing::Suppressed);
    EXPECT_EQ(value(rates, "40–44", rate), -1);
}

TEST_F(MaritalFertility, IsToldByAgeAtMarriageCohortAndDuration)
{
    closedFamily();
    count(maritalFertility);
    EXPECT_EQ(value("taxas-por-idade-ao-casamento", "20–24|25–29", births), 3);
    EXPECT_EQ(value("taxas-por-periodo", "1700–1749|30–34", births), 1);
    EXPECT_EQ(value("taxas-por-duracao", "0–4", births), 2);
    EXPECT_EQ(value("taxas-por-duracao", "5–9", births), 3);
    EXPECT_EQ(value("taxas-por-duracao", "10–14", births), 1);
    EXPECT_NEAR(value("taxas-por-duracao", "10–14", years) * 365.25, 1575, 1e-6);
}

TEST_F(MaritalFertility, OfAPeriodIsOfTheYearsOfTheEvents)
{
    closedFamily();
    Settings settings;
    settings.byMarriageCohort = false;
    count(maritalFertility, settings);
    EXPECT_EQ(value("taxas-por-periodo", "1700–1749|25–29", births), 3);
    EXPECT_EQ(value("taxas-por-periodo", "1750–1799|30–34", births), 1);
    EXPECT_NEAR(value("taxas-por-periodo", "1700–1749|25–29", years) * 365.25, 1756, 1e-6);
    EXPECT_NEAR(value("taxas-por-periodo", "1750–1799|25–29", years) * 365.25, 70, 1e-6);
}

TEST_F(MaritalFertility, OfAnOpenFamilyIsNothing)
{
    openFamily();
    count(maritalFertility);
    EXPECT_EQ(tally().sum(0), 0);
    EXPECT_EQ(leftOut("sem fim conhecido da união"), 1);
    for (const auto& row : table(rates).rows) {
        EXPECT_EQ(std::get<double>(row[1].value), 0);
        EXPECT_EQ(std::get<double>(row[2].value), 0);
    }
    EXPECT_TRUE(table("somas").rows.empty());
}

// The couple whose end nobody knows isn't followed to 50, nor to its last birth.
TEST_F(MaritalFertility, LeavesOutWhoseEndIsUnknown)
{
    marriedAt25("1780-01-01", "1785-01-01", {0.9, 3.2, 5.6, 8.3, 11.0, 14.2});
    marriedAt25("1772-07-01", "1790-01-01", {1.0, 3.5, 6.1, 9.0, 12.2});
    marriedAt25("", "", {0.8, 3.1, 5.5});
    count(maritalFertility);
    const struct
    {
        const char* age;
        double births, years;
    } rows[]{{"25–29", 4, 10}, {"30–34", 4, 10}, {"35–39", 3, 10}, {"40–44", 0, 10}, {"45–49", 0, 7}};
    for (const auto& row : rows) {
        EXPECT_EQ(value(rates, row.age, births), row.births) << row.age;
        EXPECT_NEAR(value(rates, row.age, years), row.years, 0.005) << row.age;
    }
    EXPECT_NEAR(value(rates, "30–34", rate), 400, 0.2);
    EXPECT_NEAR(value(rates, "35–39", rate), 300, 0.2);
}

TEST_F(MaritalFertility, CountsTheThirdCoupleWhereItsEndIsKnown)
{
    marriedAt25("1780-01-01", "1785-01-01", {0.9, 3.2, 5.6, 8.3, 11.0, 14.2});
    marriedAt25("1772-07-01", "1790-01-01", {1.0, 3.5, 6.1, 9.0, 12.2});
    marriedAt25("1758-07-01", "1790-01-01", {0.8, 3.1, 5.5});
    count(maritalFertility);
    EXPECT_NEAR(value(rates, "25–29", rate), 400, 0.2);
    EXPECT_NEAR(value(rates, "30–34", years), 13, 0.005);
    EXPECT_NEAR(value(rates, "30–34", rate), 384.6, 0.2);
    EXPECT_NEAR(value(rates, "45–49", years), 7, 0.005);
}

TEST_F(MaritalFertility, CountsAPosthumousBirthAndNotItsTime)
{
    const qint64 family = married({"1741-06-10", "1720-03-12", "1790-05-01", "1755-10-02"});
    children(family, {"1756-07-28"}); // the 300th day
    count(maritalFertility);
    EXPECT_EQ(value(rates, "35–39", births), 1);
    EXPECT_NEAR(days("35–39"), 204, 1e-6);
    run("update individuo set datanasc = '1756-07-29' where famorig = ?", {family});
    Settings settings;
    settings.unions.leaveOutContradictory = false;
    count(maritalFertility, settings);
    EXPECT_EQ(value(rates, "35–39", births), 0);
    EXPECT_EQ(leftOut("depois do fim"), 1);
}

TEST_F(MaritalFertility, TellsWhichChildrenDoNotCount)
{
    const qint64 family = closedFamily();
    children(family, {"1741-06-09", ""});
    run("update individuo set filiacao = 2 where nind = ?", {child(family, "1750-12-01")});
    count(maritalFertility);
    EXPECT_EQ(value(rates, "15–49", births), 6);
    EXPECT_EQ(leftOut("antes do casamento"), 1);
    EXPECT_EQ(leftOut("sem data de nascimento"), 1);
    EXPECT_EQ(leftOut("que não são legítimos"), 1);
}

TEST_F(MaritalFertility, TellsWhichFamiliesDoNotCount)
{
    person({"Eva", 'f'});
    run("insert into familia (nfamilia) values (?)", {++lastFamily});
    run("insert into familias (nfamilia, nind) values (?, ?)", {lastFamily, lastPerson});
    married({"", "1720-03-12", "1790-05-01", "1755-10-02"});
    married({"1741-06-10", "", "1790-05-01", "1755-10-02"});
    run("update familias set idade = 21 where nind = ?", {lastPerson});
    married({"1741-06-10", "", "1790-05-01", "1755-10-02"});
    married({"1775-06-10", "1720-03-12", "1790-05-01", "1785-10-02"});
    run("update familia set sfamilia = '6' where nfamilia = ?",
        {married({"1741-06-10", "1720-03-12", "1790-05-01", "1755-10-02"})});
    married({"1741-06-10", "1720-03-12", "1730-05-01", "1755-10-02"});
    count(maritalFertility);
    for (const char* reason :
         {"um só membro", "sem data de casamento", "só por uma idade declarada", "sem nascimento da mulher",
          "aos 50 anos da mulher ou depois", "não é de casamento", "se contradizem"})
        EXPECT_EQ(leftOut(reason), 1) << reason;
    EXPECT_EQ(tally().sum(0), 0);
    Settings settings;
    settings.derivedBirths = true;
    count(maritalFertility, settings);
    EXPECT_EQ(leftOut("só por uma idade declarada"), 0);
    EXPECT_EQ(value("somas", all, "Número de famílias"), 1);
    EXPECT_EQ(value("taxas-por-idade", "20–24", births), 0);
    EXPECT_GT(value("taxas-por-idade", "20–24", years), 3);
}

TEST_F(MaritalFertility, ObeysTheLimitsThatAResearcherTyped)
{
    const qint64 family = closedFamily();
    run("update familia set fimobs = '1750-03-12', inicioobs = datacasam where nfamilia = ?", {family});
    run("update individuo set inicioobs = datanasc, fimobs = dataobito");
    count(maritalFertility);
    EXPECT_NEAR(days("25–29"), 1826, 1e-6);
    EXPECT_NEAR(days("30–34"), 0, 1e-6);
    EXPECT_EQ(leftOut("depois do fim da observação"), 1);
    run("update familia set inicioobs = '1745-03-12' where nfamilia = ?", {family});
    count(maritalFertility);
    EXPECT_NEAR(days("20–24"), 0, 1e-6);
    EXPECT_EQ(leftOut("antes do casamento ou da observação"), 2);
}

TEST_F(MaritalFertility, LeavesOutYearsWithoutBooks)
{
    closedFamily();
    Settings settings;
    settings.gaps[int(Series::Baptisms)] = {{1747, 1749}};
    count(maritalFertility, settings);
    EXPECT_EQ(value(rates, "25–29", births), 0);
    EXPECT_NEAR(days("25–29"), 1826 - (365 + 366 + 365), 1e-6);
    EXPECT_EQ(leftOut("em anos sem livros"), 3);
    settings.books[int(Series::Baptisms)] = {1800, 1850};
    count(maritalFertility, settings);
    EXPECT_EQ(leftOut("nenhum ano da união"), 1);
}

TEST_F(MaritalFertility, OfAWeddingDayThatIsTheLastOneTooHasHalfADay)
{
    const qint64 family = married({"1741-06-10", "1720-03-12", "1790-05-01", "1741-06-10"});
    child(family, "1741-06-10");
    count(maritalFertility);
    EXPECT_NEAR(days("20–24"), 0.5, 1e-9);
    EXPECT_EQ(value(rates, "20–24", births), 1);
}

TEST_F(MaritalFertility, OfAWidowWhoMarriesAgainStandsApart)
{
    closedFamily();
    const qint64 second = person({"Gil", 'm', "", "1765-10-02"});
    const qint64 family = couple(second, 2, "1756-06-10");
    run("update familia set dcasamfixa = 1 where nfamilia = ?", {family});
    count(maritalFertility);
    EXPECT_EQ(value("somas", "Primeiros casamentos da mulher", "Número de famílias"), 1);
    EXPECT_EQ(value("somas", "Outros casamentos da mulher", "Número de famílias"), 1);
    EXPECT_EQ(value("taxas-primeiros-casamentos", "35–39", births), 0);
    EXPECT_NEAR(value("taxas-recasamentos", "35–39", years) * 365.25, 1371, 1e-6);
}

TEST_F(MaritalFertility, IsRaisedByTheBirthsThatTheBooksLack)
{
    closedFamily();
    Settings settings;
    settings.missingBirths = 0.2;
    count(maritalFertility, settings);
    EXPECT_NEAR(value(rates, "25–29", rate), 3 / 4.9993 * 1250, 0.02);
    EXPECT_EQ(value(rates, "25–29", births), 3);
}

// The children born at 25 to 29, and the wife who lived these years.
TEST_F(MaritalFertility, TellsWhoStandsBehindARate)
{
    closedFamily();
    openFamily();
    count(maritalFertility);
    const auto parish = study::parish::Snapshot::read(bdp);
    const Study study = studyOf(parish, {});
    std::vector<qint64> numbers;
    for (const auto& who : behind(maritalFertility, study, cell(rates, "25–29", rate).from))
        numbers.push_back(study::parish::value(who.person->number));
    EXPECT_EQ(numbers, (std::vector<qint64>{2, 5, 6, 7}));
}

TEST_F(MaritalFertility, OfNobodyHasNoData)
{
    count(maritalFertility);
    ASSERT_EQ(figures().size(), 1U);
    EXPECT_EQ(table("sem-dados").notes, QStringList("sem dados"));
}

// The tally of the worked example: 38.5 to 60.75 years, 151 births, and 10 years with 4 births before.
TEST(TheRatesOfATally, AreSummedUpAndComparedWithNaturalFertility)
{
    Tally tally;
    const double lived[]{10, 38.5, 92, 120.25, 115.5, 98, 60.75};
    const qint64 born[]{4, 17, 40, 45, 34, 14, 1};
    for (int i = 0; i < 7; ++i) {
        tally.add({0, {15 + 5 * i, 20, 1750, 0}}, qRound64(lived[i] * 365.25 * 2));
        tally.add({6, {15 + 5 * i, 20, 1750, 0}}, born[i]);
    }
    const auto figures = maritalFertility.figures(tally, {});
    const auto& sums = std::get<study::report::Table>(figures[1]);
    const auto number = [](const study::report::Cell& cell) { return std::get<double>(cell.value); };
    EXPECT_NEAR(number(sums.rows[0][4]), 8.521, 5e-4);
    EXPECT_NEAR(number(sums.rows[0][5]), 0.768, 5e-4);
    EXPECT_NEAR(number(sums.rows[0][7]), 0.789, 5e-4);
    const auto& models = std::get<study::report::Table>(figures[2]);
    EXPECT_NEAR(number(models.rows[0][3]), 1.015, 5e-4);
    EXPECT_NEAR(number(models.rows[0][4]), 0.148, 5e-4);
    EXPECT_NEAR(number(models.rows[0][5]), 0.110, 5e-4);
    EXPECT_NEAR(number(models.rows[0][6]), 0.190, 5e-4);
    EXPECT_NEAR(number(models.rows[1][3]), 0.998, 5e-4);
    EXPECT_NEAR(number(models.rows[1][5]), 0.094, 5e-4);
    EXPECT_NEAR(number(models.rows[1][7]), 0.0007, 5e-5);
    const auto& table = std::get<study::report::Table>(figures[0]);
    EXPECT_NEAR(number(table.rows[5][3]), 142.9, 0.05);
    EXPECT_NEAR(table.rows[5][3].interval->low, 78.1, 0.05);
    EXPECT_NEAR(table.rows[5][3].interval->high, 239.7, 0.05);
}

TEST(TheRatesOfATally, HaveTheRatesAndAllEstimatorsOfTheWorkedExample)
{
    Tally tally;
    const double lived[]{38.5, 92, 120.25, 115.5, 98, 60.75}, told[]{441.6, 434.8, 374.2, 294.4, 142.9, 16.5};
    const qint64 born[]{17, 40, 45, 34, 14, 1};
    for (int i = 0; i < 6; ++i) {
        tally.add({0, {20 + 5 * i, 20, 1750, 0}}, qRound64(lived[i] * 365.25 * 2));
        tally.add({6, {20 + 5 * i, 20, 1750, 0}}, born[i]);
    }
    const auto figures = maritalFertility.figures(tally, {});
    const auto table = [&](std::size_t i) { return std::get<study::report::Table>(figures[i]); };
    const auto number = [](const study::report::Cell& cell) { return std::get<double>(cell.value); };
    for (std::size_t i = 0; i < 6; ++i)
        EXPECT_NEAR(number(table(0).rows[i + 1][3]), told[i], 0.05);
    EXPECT_NEAR(table(0).rows[3][3].interval->low, 273.0, 0.05);
    EXPECT_NEAR(table(0).rows[3][3].interval->high, 500.7, 0.05);
    const auto models = table(2);
    for (const std::size_t row : {0U, 1U, 2U}) {
        SCOPED_TRACE(row);
        EXPECT_NE(models.rows[row][3].standing, Standing::Suppressed);
        EXPECT_TRUE(std::holds_alternative<double>(models.rows[row][7].value));
    }
    EXPECT_NEAR(number(models.rows[0][7]), 0.0008, 5e-5);
    EXPECT_NEAR(number(models.rows[2][3]), 0.960, 5e-4);
    EXPECT_NEAR(number(models.rows[2][5]), -0.007, 5e-4);
    EXPECT_NEAR(number(models.rows[2][7]), 0.0043, 5e-5);
    EXPECT_EQ(models.rows[1][3].standing, Standing::Sound);
    EXPECT_EQ(models.notes.size(), 2);
}

// The rates of a parish that the model describes badly: an error of 0.0117.
TEST(TheRatesOfATally, AreNotReadByAModelThatDoesNotFitThem)
{
    Tally tally;
    const qint64 born[]{346, 395, 272, 182, 104, 20};
    for (int i = 0; i < 6; ++i) {
        tally.add({0, {20 + 5 * i, 20, 1750, 0}}, qRound64(1000 * 365.25 * 2));
        tally.add({6, {20 + 5 * i, 20, 1750, 0}}, born[i]);
    }
    const auto figures = maritalFertility.figures(tally, {});
    const auto& models = std::get<study::report::Table>(figures[2]);
    EXPECT_NEAR(std::get<double>(models.rows[1][7].value), 0.0117, 5e-5);
    EXPECT_EQ(models.rows[1][3].standing, Standing::Grey);
    EXPECT_EQ(models.rows[1][5].standing, Standing::Grey);
    EXPECT_EQ(models.rows[0][3].standing, Standing::Sound) << "the guide is that of the regression";
    EXPECT_TRUE(models.notes.back().contains("não se podem ler: Todas as famílias contadas; "))
        << qPrintable(models.notes.back());
}

// Two closed families, of one of which nobody knows the wife's age: 14 years and 114 days, and 55 years.
TEST_F(MaritalFertility, ByDurationIsToldOfFamiliesWithoutTheWifesAgeToo)
{
    closedFamily();
    const qint64 ageless = married({"1741-06-10", "", "1796-06-10", "1797-01-01"});
    children(ageless, {"1742-06-10", "1743-06-10", "1747-01-01"});
    count(maritalFertility);
    const char* const table = "taxas-por-duracao";
    EXPECT_EQ(value(table, "0–4|com idade da mulher", births), 2);
    EXPECT_EQ(value(table, "0–4|sem idade da mulher", births), 2);
    EXPECT_EQ(value(table, "0–4|todas", births), 4);
    EXPECT_NEAR(value(table, "0–4|todas", years) * 365.25, 2 * 1826, 1e-6);
    EXPECT_EQ(value(table, "5–9|todas", births), 4);
    EXPECT_NEAR(value(table, "10–14|com idade da mulher", years) * 365.25, 1575, 1e-6);
    EXPECT_NEAR(value(table, "50–54|sem idade da mulher", years) * 365.25, 1827, 1e-6);
    EXPECT_EQ(cell(table, "0–4|todas", rate).from.size(), 4U);
    EXPECT_EQ(leftOut("sem nascimento da mulher"), 1) << "in the tables by age it doesn't count";
    EXPECT_EQ(value(rates, "15–49", births), 6);
    EXPECT_EQ(value("somas", all, "Número de famílias"), 1);
}

TEST_F(MaritalFertility, ByDurationTakesNoWifeTwice)
{
    const qint64 family = married({"1741-06-10", "", "1790-05-01", "1755-10-02"});
    run("update familias set idade = 21 where nind = ?", {lastPerson});
    child(family, "1742-06-10");
    count(maritalFertility);
    EXPECT_EQ(value("taxas-por-duracao", "0–4|todas", births), 1);
    Settings settings;
    settings.derivedBirths = true;
    count(maritalFertility, settings);
    EXPECT_EQ(value("taxas-por-duracao", "0–4|com idade da mulher", births), 1);
    for (const auto& row : table("taxas-por-duracao").rows)
        EXPECT_EQ(std::get<QString>(row[1].value), "com idade da mulher");
}

// At 20 to 24 all who married then begin at one point of their lives.
TEST(TheRatesOfATally, AreNotDrawnForTheAgeOfTheMarriage)
{
    Tally tally;
    for (const int married : {15, 20})
        for (int age = married; age < 35; age += 5) {
            tally.add({0, {age, married, 1750, 0}}, qRound64(50 * 365.25 * 2));
            tally.add({6, {age, married, 1750, 0}}, 20);
        }
    for (const auto& figure : maritalFertility.figures(tally, {})) {
        const auto* chart = std::get_if<study::report::Chart>(&figure);
        if (!chart || chart->id != "taxas-idade-ao-casamento") continue;
        ASSERT_EQ(chart->plots.size(), 2U);
        EXPECT_FALSE(chart->plots[0].points[0].y);
        EXPECT_TRUE(chart->plots[0].points[1].y);
        EXPECT_FALSE(chart->plots[1].points[1].y);
        EXPECT_TRUE(chart->plots[1].points[2].y);
        return;
    }
    ADD_FAILURE() << "no chart";
}

using TheDemonstration = DemoBdp;

TEST_F(TheDemonstration, HasTheFertilityThatWasWorkedOutApart)
{
    const auto parish = study::parish::Snapshot::read(bdp_->connection);
    Settings settings;
    settings.unions.approximateMarriages = false;
    settings.unions.leaveOutContradictory = false;
    const auto figures = maritalFertility.figures(tallyOf(maritalFertility, studyOf(parish, settings)), settings);
    const auto& sums = std::get<study::report::Table>(figures[1]);
    ASSERT_EQ(std::get<QString>(sums.rows[1][0].value), "Nascimento exacto da mulher");
    EXPECT_NEAR(std::get<double>(sums.rows[1][4].value), 7.795, 5e-4);
    EXPECT_EQ(std::get<double>(sums.rows[1][1].value), 79);
    EXPECT_EQ(std::get<double>(sums.rows[0][1].value), 88);
}
