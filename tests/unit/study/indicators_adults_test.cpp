// Adults from their marriage to their death, as four estimates see it.
#include "study/days.h"
#include "study/taking.h"

#include "study/indicators/adultLife.h"
#include "study/indicators/mortality.h"

using namespace study::indicators;
using taking::keyOf;
using taking::Shown;

namespace {

constexpr qint32 cohort = 1750, man = 1;

} // namespace

TEST(AdultMortality, OfTheWorkedExampleLeaves37YearsAt20)
{
    const std::array<double, 13> years = {410, 380.5, 352, 330, 310.5, 290, 262, 228, 186, 138, 86, 47, 20};
    const std::array<int, 13> deaths = {4, 4, 4, 4, 4, 5, 6, 7, 9, 10, 10, 8, 6};
    for (const qint32 estimate : {0, 1, 2, 3}) {
        Tally tally;
        tally.add(keyOf(adultMortality, "pessoas", {cohort, man, estimate}), 90);
        qint32 age = 20;
        for (std::size_t i = 0; i < years.size(); ++i, age += 5) {
            tally.add(keyOf(adultMortality, "meios-dias", {cohort, man, estimate, age}), qRound64(years[i] * 730.5));
            tally.add(keyOf(adultMortality, "obitos", {cohort, man, estimate, age}), deaths[i]);
        }
        static constexpr std::array<const char*, 4> ids = {"tabua-fechadas-m", "tabua-minima-m", "tabua-maxima-m",
                                                           "tabua-censurada-m"};
        const char* id = ids[static_cast<std::size_t>(estimate)];
        const Shown shown(adultMortality, tally);
        EXPECT_NEAR(shown.value(id, "20–24", "5qx"), 47.62, 0.005);
        EXPECT_NEAR(shown.value(id, "45–49", "5qx"), 82.64, 0.005);
        EXPECT_NEAR(shown.value(id, "60–64", "5qx"), 215.83, 0.005);
        EXPECT_NEAR(shown.value(id, "75–79", "5qx"), 597.01, 0.005);
        EXPECT_NEAR(shown.value(id, "50–54", "Sobreviventes"), 691.07, 0.005);
        EXPECT_NEAR(shown.value(id, "80 e mais", "Sobreviventes"), 63.61, 0.005);
        EXPECT_NEAR(shown.value(id, "20–24", "Esperança"), 37.68, 0.005);
        EXPECT_NEAR(shown.value(id, "60–64", "Esperança"), 11.34, 0.005);
        EXPECT_NEAR(shown.value(id, "80 e mais", "Esperança"), 3.33, 0.005);
    }
}

TEST(AdultMortality, ClosesItsTableWhereNobodyDiesAtTheEnd)
{
    Tally tally;
    for (qint32 age = 20; age <= 80; age += 5) {
        tally.add(keyOf(adultMortality, "meios-dias", {cohort, man, 0, age}), 100000);
        if (age < 80) tally.add(keyOf(adultMortality, "obitos", {cohort, man, 0, age}), 2);
    }
    const Shown shown(adultMortality, tally);
    EXPECT_EQ(shown.value("tabua-fechadas-m", "75 e mais", "Óbitos"), 2);
    EXPECT_EQ(shown.table("tabua-fechadas-m").rows.size(), 12U);
}

TEST(AdultMortality, ByThousandBearsADecimalFromAHundredYearsOn)
{
    Tally tally;
    const auto add = [&](const char* years, const char* deaths, qint32 estimate, qint32 age, int lived) {
        tally.add(keyOf(adultMortality, years, {cohort, man, estimate, age}), qRound64(lived * 730.5));
        tally.add(keyOf(adultMortality, deaths, {cohort, man, estimate, age}), 4);
    };
    for (const qint32 age : {20, 25, 30, 35}) {
        add("meios-dias", "obitos", 0, age, age == 25 ? 99 : 101);
        add("meios-dias-desde", "obitos-desde", 0, age, age == 20 ? 99 : 101);
    }
    tally.add(keyOf(adultMortality, "pessoas", {cohort, man, 0}), 90);
    tally.add(keyOf(adultMortality, "pessoas-desde", {cohort, man, 0}), 90);
    const Shown shown(adultMortality, tally);
    const Table table = shown.table("tabua-fechadas-m");
    const auto decimals = [&](const char* row, const char* column) {
        return Counting::cell(table, row, column).decimals;
    };
    EXPECT_FALSE(decimals("20–24", "5qx"));
    EXPECT_EQ(decimals("25–29", "5qx"), 0);
    EXPECT_FALSE(decimals("30–34", "5qx"));
    EXPECT_FALSE(decimals("25–29", "Sobreviventes"));
    EXPECT_EQ(decimals("30–34", "Sobreviventes"), 0) << "they have come through the age of few";
    const Table from = shown.table("desde-idade-exacta");
    EXPECT_EQ(Counting::cell(from, "20 anos, homens", "5qx").decimals, 0);
}

TEST(AdultMortality, LeadsFromWhoIsLeftToWhoWasAtRisk)
{
    Tally tally;
    for (const qint32 age : {20, 25, 30}) {
        tally.add(keyOf(adultMortality, "meios-dias", {cohort, man, 0, age}), 100000);
        tally.add(keyOf(adultMortality, "obitos", {cohort, man, 0, age}), 4);
    }
    const Table table = Shown(adultMortality, tally).table("tabua-fechadas-m");
    const auto key = [](const char* name, qint32 age) {
        return keyOf(adultMortality, name, {Tally::any, man, 0, age});
    };
    EXPECT_EQ(Counting::cell(table, "30 e mais", "Sobreviventes").from,
              (std::vector<Key>{key("meios-dias", 20), key("meios-dias", 25), key("obitos", 20), key("obitos", 25)}));
    EXPECT_EQ(Counting::cell(table, "25–29", "Esperança").from,
              (std::vector<Key>{key("meios-dias", 25), key("meios-dias", 30), key("obitos", 25), key("obitos", 30)}));
}

TEST(AdultMortality, TellsWhomTheLeastOfTheTwoBoundsDoesNotBound)
{
    Tally tally;
    tally.add(keyOf(adultMortality, "pessoas", {cohort, man, 1}), 5);
    const Shown shown(adultMortality, tally);
    for (const char* id : {"resumo", "tabua-minima-m", "tabua-minima-f"})
        EXPECT_TRUE(shown.table(id).notes.join(' ').contains("Para quem nenhum acto diz morto não há limite")) << id;
    EXPECT_FALSE(shown.table("tabua-maxima-m").notes.join(' ').contains("não há limite"));
}

TEST(AdultMortality, ByKaplanMeierTakesTenDeathsATable)
{
    constexpr qint32 year = 365, at30 = 30 * year, woman = 2;
    Tally tally;
    for (const auto& [gender, deaths] : {std::pair{man, 9}, std::pair{woman, 10}}) {
        tally.add(keyOf(adultMortality, "entradas", {cohort, gender, 20 * year - 1}), 100);
        tally.add(keyOf(adultMortality, "obitos-por-dia", {cohort, gender, at30 + 1}), deaths);
        tally.add(keyOf(adultMortality, "saidas", {cohort, gender, 70 * year}), 100 - deaths);
    }
    const Shown shown(adultMortality, tally);
    const auto table = shown.table("kaplan-meier");
    using study::report::Standing;
    for (const char* row : {"20–24", "30–34"}) {
        EXPECT_EQ(shown.standing("kaplan-meier", row, "Homens, 5qx"), Standing::Suppressed) << row;
        EXPECT_FALSE(Counting::cell(table, row, "Homens, 5qx").interval) << row;
        EXPECT_EQ(shown.standing("kaplan-meier", row, "Mulheres, 5qx"), Standing::Sound) << row;
    }
    EXPECT_EQ(shown.standing("kaplan-meier", "75–79", "Homens, 5qx"), Standing::Sound) << "there is nobody";
}

TEST(AdultMortality, GivesNothingOfNothing)
{
    for (const auto& figure : adultMortality.figures({}, {})) {
        const auto* table = std::get_if<study::report::Table>(&figure);
        EXPECT_TRUE(!table || table->isEmpty() || table->id == "nao-contados") << qPrintable(table->id);
    }
}

class Adults : public Counting
{
protected:
    AdultLife lifeOf(qint64 number, const Settings& settings = {}) const
    {
        const auto parish = study::parish::Snapshot::read(bdp);
        const Study study = studyOf(parish, settings);
        AdultLife life = adultLifeOf(*parish.person(study::parish::PersonNumber(number)), study);
        life.family = nullptr; // of a parish that is gone
        return life;
    }
    static const End& end(const AdultLife& life, Estimate estimate)
    {
        return life.ends[static_cast<std::size_t>(estimate)];
    }
};

TEST_F(Adults, WithAKnownDeathDieThenByAllEstimates)
{
    const qint64 joao = person({"João", 'm', "1720-01-01", "1760-01-01"});
    couple(joao, person({"Ana", 'f', "1722-01-01", "1780-01-01"}), "1745-01-01");
    const AdultLife life = lifeOf(joao);
    ASSERT_EQ(life.why, NoAdult::None);
    for (const Estimate estimate : estimates) {
        EXPECT_EQ(end(life, estimate).day, day(1760));
        EXPECT_TRUE(end(life, estimate).dies);
    }
}

TEST_F(Adults, WhoAreLeftBehindAreSeenToTheEndOfTheUnionAlone)
{
    const qint64 woman = person({"Ana", 'f', "1722-01-01", "1780-01-01"});
    couple(person({"João", 'm', "1720-01-01", "1760-01-01"}), woman, "1745-01-01");
    const AdultLife life = lifeOf(woman);
    EXPECT_EQ(end(life, Estimate::Closed).day, day(1760));
    EXPECT_FALSE(end(life, Estimate::Closed).dies);
    EXPECT_EQ(end(life, Estimate::Censored).day, day(1780));
    EXPECT_TRUE(end(life, Estimate::Censored).dies);
}

TEST_F(Adults, OfUnknownDeathDieLateEarlyOrNot)
{
    const qint64 father = person({"João", 'm', "1720-01-01"});
    const qint64 family = couple(father, person({"Ana", 'f', "1722-01-01"}), "1745-01-01");
    const qint64 child = person({"Rui", 'm', "1750-06-01", "", family});
    const qint64 other = person({"Eva", 'f', "1779-03-01"});
    run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente, falecidopai, "
        "falecidomae) values ('b', ?, '1779-03-01', ?, 'p', 1, 0)",
        {other, child});
    const AdultLife life = lifeOf(father);
    ASSERT_EQ(life.why, NoAdult::None);
    EXPECT_FALSE(end(life, Estimate::Closed).day.isKnown());
    EXPECT_EQ(end(life, Estimate::Least).day, day(1779, 3, 1));
    EXPECT_TRUE(end(life, Estimate::Least).dies);
    EXPECT_EQ(end(life, Estimate::Most).day, end(life, Estimate::Censored).day);
    EXPECT_TRUE(end(life, Estimate::Most).dies);
    EXPECT_FALSE(end(life, Estimate::Censored).dies);
    EXPECT_LT(end(life, Estimate::Censored).day.date().year(), 1752);
}

TEST_F(Adults, AreToldDeadByTheNextMarriageOfTheSpouse)
{
    const qint64 joao = person({"João", 'm', "1720-01-01"});
    const qint64 woman = person({"Ana", 'f', "1722-01-01"});
    couple(joao, woman, "1745-01-01");
    couple(person({"Rui", 'm', "1720-01-01"}), woman, "1755-05-05");
    EXPECT_EQ(end(lifeOf(joao), Estimate::Least).day.date(), QDate(1755, 5, 5));
    EXPECT_TRUE(end(lifeOf(joao), Estimate::Least).dies);
}

TEST_F(Adults, WhoDieElsewhereAreSeenHereToTheirLastActHere)
{
    const qint64 joao = person({"João", 'm', "1720-01-01", "1790-01-01"});
    couple(joao, person({"Ana", 'f', "1722-01-01"}), "1745-01-01");
    run("update individuo set localobito = '030301', tipolocalobito = 'F' where nind = ?", {joao});
    run("insert into infopar (cod, nome) values ('030899', 'Aqui')");
    const AdultLife life = lifeOf(joao);
    EXPECT_FALSE(end(life, Estimate::Censored).dies);
    EXPECT_LT(end(life, Estimate::Censored).day.date().year(), 1790);
    EXPECT_TRUE(end(life, Estimate::Most).dies);
}

TEST_F(Adults, WhoAreMarriedAtAnExactAgeAreATableOfTheirOwn)
{
    // Married at 22 and at 28, both dead at 40.
    for (const char* marriage : {"1742-03-01", "1748-03-01"})
        couple(person({"João", 'm', "1720-03-01", "1760-03-01"}), person({"Ana", 'f', "1722-03-01", "1780-03-01"}),
               marriage);
    const Table table = tableOf(figuresFor(adultMortality), "desde-idade-exacta");
    const auto at = [&](const char* row, const char* column) { return value(table, row, column); };
    EXPECT_EQ(at("25 anos, homens", "Pessoas"), 1) << "who marries later never enters";
    EXPECT_NEAR(at("25 anos, homens", "Anos em risco"), 15, 0.01);
    EXPECT_EQ(at("30 anos, homens", "Pessoas"), 2);
    EXPECT_NEAR(at("30 anos, homens", "Anos em risco"), 20, 0.02);
    EXPECT_EQ(at("30 anos, homens", "Óbitos"), 2);
    EXPECT_EQ(at("20 anos, mulheres", "Pessoas"), 1) << "married on her twentieth birthday";
    for (const auto& row : table.rows)
        EXPECT_NE(std::get<QString>(row[0].value), "20 anos, homens");
}

TEST(AdultMortality, OfTheWorkedExampleIsTheSameFromTheExactAgeOf20)
{
    const std::array<double, 13> years = {410, 380.5, 352, 330, 310.5, 290, 262, 228, 186, 138, 86, 47, 20};
    const std::array<int, 13> deaths = {4, 4, 4, 4, 4, 5, 6, 7, 9, 10, 10, 8, 6};
    constexpr qint32 censoredFrom20 = 3;
    Tally tally;
    tally.add(keyOf(adultMortality, "pessoas-desde", {cohort, man, censoredFrom20}), 90);
    qint32 age = 20;
    for (std::size_t i = 0; i < years.size(); ++i, age += 5) {
        tally.add(keyOf(adultMortality, "meios-dias-desde", {cohort, man, censoredFrom20, age}),
                  qRound64(years[i] * 730.5));
        tally.add(keyOf(adultMortality, "obitos-desde", {cohort, man, censoredFrom20, age}), deaths[i]);
    }
    const Shown shown(adultMortality, tally);
    EXPECT_NEAR(shown.value("desde-idade-exacta", "20 anos, homens", "5qx"), 47.62, 0.005);
    EXPECT_NEAR(shown.value("desde-idade-exacta", "20 anos, homens", "Esperança"), 37.68, 0.005);
    EXPECT_NEAR(shown.value("tabua-desde-20-m", "25–29", "Esperança"), 34.44, 0.005);
    EXPECT_NEAR(shown.value("tabua-desde-20-m", "50–54", "Esperança"), 17.54, 0.005);
}

TEST_F(Adults, WithoutABirthAreLeftOut)
{
    const qint64 joao = person({"João", 'm', "", "1790-01-01"});
    couple(joao, person({"Ana", 'f', "1750-01-01"}), "1745-01-01");
    EXPECT_EQ(lifeOf(joao).why, NoAdult::NoBirth);
    EXPECT_EQ(leftOut(figuresFor(adultMortality)),
              (QMap<QString, int>{{"sem nascimento", 1}, {"datas que se contradizem", 1}}));
}
