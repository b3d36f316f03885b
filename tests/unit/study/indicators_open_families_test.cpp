// Families of unknown end, where a researcher takes them up to the day on which the couple is last seen.
#include "study/natal.h"

#include "study/indicators/fertility.h"
#include "study/indicators/marriedLife.h"

#include <gtest/gtest.h>

using namespace study::indicators;

namespace {

class AnOpenFamily : public Natal
{
protected:
    static constexpr auto rates = "taxas-por-idade", births = "Nascimentos",
                          years = "Anos vividos por mulheres casadas";

    AnOpenFamily()
    {
        family_ = married({.marriage = "1760-02-03", .wifeBirth = "1735-07-05", .wifeDeath = "", .husbandDeath = ""});
        child(family_, "1761-01-20");
        child(family_, "1763-03-11", 'm', "1766-04-10");
        child(family_, "1765-08-02");
    }
    static Settings taken()
    {
        Settings settings;
        settings.openFamilies = true;
        return settings;
    }
    double days(const char* age) const { return value(rates, age, years) * study::parish::daysOfAYear; }

    qint64 family_ = 0;
};

} // namespace

TEST_F(AnOpenFamily, CountsUpToTheLastActThatIsNoBirth)
{
    count(maritalFertility);
    EXPECT_EQ(leftOut("sem fim conhecido da união"), 1);
    count(maritalFertility, taken());
    EXPECT_EQ(leftOut("sem fim conhecido da união"), 0);
    EXPECT_NEAR(days("20–24"), 153, 1e-6);
    EXPECT_NEAR(days("25–29"), 1826, 1e-6);
    EXPECT_NEAR(days("30–34"), 279, 1e-6);
    EXPECT_NEAR(days("15–49"), 2258, 1e-6);
    EXPECT_EQ(value(rates, "15–49", births), 3);
    EXPECT_TRUE(table(rates).notes.join(' ').contains("famílias abertas")) << "who reads it knows";
}

TEST_F(AnOpenFamily, CountsNoBirthBehindIt)
{
    child(family_, "1768-01-01");
    count(maritalFertility, taken());
    EXPECT_EQ(value(rates, "15–49", births), 3);
    EXPECT_EQ(leftOut("nascidos depois do fim da observação"), 1);
}

TEST_F(AnOpenFamily, WithoutSuchAnActGivesNothingEither)
{
    run("update individuo set dataobito = null");
    count(maritalFertility, taken());
    EXPECT_EQ(leftOut("sem fim conhecido da união"), 1);
    EXPECT_EQ(value(rates, "15–49", births), 0);
}

TEST_F(AnOpenFamily, IsNeverACompleteOne)
{
    run("update familia set fimobs = '1790-01-01'");
    const auto parish = study::parish::Snapshot::read(bdp);
    const Study study = studyOf(parish, taken());
    const MarriedLife life = marriedLifeOf(study.unions[0], study);
    ASSERT_TRUE(life.isCounted());
    EXPECT_EQ(life.until.date(), QDate(1785, 7, 5)) << "her fiftieth birthday";
    EXPECT_FALSE(life.isCompleteAt(50));
    EXPECT_FALSE(closedLifeOf(study.unions[0], study).isCounted());
}
