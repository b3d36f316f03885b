// What is set for a study, and what the codes count as.
#include "study/indicators/settings.h"

#include <gtest/gtest.h>

using namespace study;
using namespace study::indicators;

TEST(TheSettingsOfAStudy, CoverTheYearsOfTheBooksButTheirGaps)
{
    Settings settings;
    EXPECT_TRUE(settings.covers(Series::Baptisms, 1500));
    settings.books[0] = {1600, 1700};
    settings.gaps[0] = {{1620, 1622}, {}};
    settings.gaps[1] = {{0, 1650}};
    EXPECT_FALSE(settings.covers(Series::Baptisms, 1599));
    EXPECT_TRUE(settings.covers(Series::Baptisms, 1600));
    EXPECT_TRUE(settings.covers(Series::Baptisms, 1619));
    EXPECT_FALSE(settings.covers(Series::Baptisms, 1620));
    EXPECT_FALSE(settings.covers(Series::Baptisms, 1622));
    EXPECT_TRUE(settings.covers(Series::Baptisms, 1700));
    EXPECT_FALSE(settings.covers(Series::Baptisms, 1701));
    EXPECT_FALSE(settings.covers(Series::Marriages, 1650));
    EXPECT_TRUE(settings.covers(Series::Marriages, 1651));
    EXPECT_TRUE(settings.covers(Series::Burials, 1621));
}

TEST(TheSettingsOfAStudy, MakePeriodsOfWholeBreadths)
{
    Settings settings;
    EXPECT_EQ(periodOf(1787, settings), 1750);
    EXPECT_EQ(periodOf(1750, settings), 1750);
    settings.cohortYears = 25;
    EXPECT_EQ(periodOf(1799, settings), 1775);
    settings.cohortYears = 0;
    EXPECT_EQ(periodOf(1799, settings), 1799);
}

TEST(TheLegitimacy, OfACodeIsAsTheFieldHasIt)
{
    for (const int code : {1, 15})
        EXPECT_EQ(legitimacyOfCode(code), Legitimacy::Legitimate) << code;
    for (const int code : {11, 12})
        EXPECT_EQ(legitimacyOfCode(code), Legitimacy::Legitimised) << code;
    for (const int code : {2, 3, 4, 5, 7, 8, 9, 10, 13})
        EXPECT_EQ(legitimacyOfCode(code), Legitimacy::Illegitimate) << code;
    EXPECT_EQ(legitimacyOfCode(6), Legitimacy::Foundling);
    for (const int code : {0, 14, 16, 17, 99})
        EXPECT_EQ(legitimacyOfCode(code), Legitimacy::Unknown) << code;
}

TEST(TheLegitimacy, OfABirthIsOfItsFamilyWhereItsCodeTellsNothing)
{
    parish::Family family;
    parish::Person child;
    const auto in = [&](const char* situation) {
        family.situation = situation;
        child.origin = &family;
        return legitimacyOf(child, {});
    };
    for (const char* situation : {"1", "2", "9"})
        EXPECT_EQ(in(situation), Legitimacy::Legitimate) << situation;
    for (const char* situation : {"3", "4", "5", "6", "7", "8"})
        EXPECT_EQ(in(situation), Legitimacy::Illegitimate) << situation;
    EXPECT_EQ(in("10"), Legitimacy::Foundling);
    EXPECT_EQ(in("11"), Legitimacy::Unknown);
    child.filiation = 16;
    EXPECT_EQ(in("1"), Legitimacy::Legitimate);
    child.filiation = 2;
    EXPECT_EQ(in("1"), Legitimacy::Illegitimate);
    child.origin = nullptr;
    child.filiation = 16;
    EXPECT_EQ(legitimacyOf(child, {}), Legitimacy::Unknown);
}

TEST(TheLegitimacy, OfACodeIsWhatTheResearcherSays)
{
    parish::Person child;
    Settings settings;
    settings.filiations = {{40, Legitimacy::Foundling}, {2, Legitimacy::Legitimised}};
    child.filiation = 40;
    EXPECT_EQ(legitimacyOf(child, settings), Legitimacy::Foundling);
    child.filiation = 2;
    EXPECT_EQ(legitimacyOf(child, settings), Legitimacy::Legitimised);
}
