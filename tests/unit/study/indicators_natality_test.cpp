// Confinements, months and the married life that the subjects of births share.
#include "study/days.h"
#include "study/natal.h"

#include "study/indicators/births.h"
#include "study/indicators/confinements.h"
#include "study/indicators/fertility.h"
#include "study/indicators/natality.h"

#include <set>

using namespace study::indicators;

namespace {

class TheConfinements : public Natal
{
protected:
    std::vector<std::size_t> sizes()
    {
        const auto parish = study::parish::Snapshot::read(bdp);
        std::vector<std::size_t> all;
        for (const Confinement& one : confinementsOf(parish.families().front()))
            all.push_back(one.children.size());
        return all;
    }
};

} // namespace

TEST_F(TheConfinements, OfThreeDaysAreOneAndOfFourAreTwo)
{
    children(married({"1740-01-01"}), {"1741-01-01", "1741-01-04", "1743-01-01", "1743-01-05", ""});
    EXPECT_EQ(sizes(), (std::vector<std::size_t>{2, 1, 1}));
}

TEST_F(TheConfinements, OfApproximateDaysAreNeverOfTwins)
{
    children(married({"1740-01-01"}), {"1741-01-01", "1741-01-01", "1743-05-01", "1743-05-01"});
    run("update individuo set DnascFixa = 0 where famorig is not null");
    EXPECT_EQ(sizes(), (std::vector<std::size_t>{1, 1, 1, 1}));
}

TEST(CompletedMonths, AreThoseOfTheCalendar)
{
    using natality::completedMonths;
    EXPECT_EQ(completedMonths(day(1741, 6, 10), day(1742, 2, 9)), 7);
    EXPECT_EQ(completedMonths(day(1741, 6, 10), day(1742, 2, 10)), 8);
    EXPECT_EQ(completedMonths(day(1741, 6, 30), day(1742, 2, 28)), 8);
    EXPECT_EQ(completedMonths(day(1741, 6, 10), day(1741, 6, 10)), 0);
    EXPECT_EQ(completedMonths(day(1741, 6, 10), day(1741, 6, 9)), -1);
    EXPECT_EQ(completedMonths(day(1741, 6, 10), day(1740, 6, 10)), -12);
}

TEST(GroupsOfYears, GoDownwardsBelowZeroToo)
{
    EXPECT_EQ(natality::groupOf(24), 20);
    EXPECT_EQ(natality::groupOf(25), 25);
    EXPECT_EQ(natality::groupOf(-1), -5);
    EXPECT_EQ(natality::anniversary(day(1704, 2, 29), 1), day(1705, 3, 1));
}

TEST(TheSubjectsOfBirths, HaveOneNameForEachCountAndTellEachReason)
{
    std::set<QString> ids;
    for (const Subject* subject :
         {&maritalFertility, &lastBirth, &completedSize, &parityProgression, &firstInterval, &premaritalConceptions,
          &birthIntervals, &twins, &sexRatio, &birthSeasons, &illegitimacy, &foundlings, &parentsAge})
    {
        EXPECT_TRUE(ids.insert(subject->id).second) << subject->id;
        EXPECT_EQ(subjectOf(subject->id), subject);
        std::set<QString> names;
        for (const char* name : subject->counts)
            EXPECT_TRUE(names.insert(name).second) << name;
        for (const Reason& reason : subject->reasons) {
            ASSERT_LT(reason.count, subject->counts.size());
            EXPECT_FALSE(QString(reason.told).isEmpty());
        }
        EXPECT_FALSE(subject->figures({}, {}).empty());
    }
}

// Whoever has no dates at all, and a tally that holds the left out alone, give figures all the same.
TEST_F(TheConfinements, OfPeopleWithoutDatesGiveFiguresWithoutNumbers)
{
    children(married({}), {"", ""});
    for (const Subject* subject : subjects()) {
        count(*subject);
        for (const auto& figure : figures()) {
            const auto* shown = std::get_if<study::report::Table>(&figure);
            if (!shown) continue;
            for (const auto& row : shown->rows)
                EXPECT_EQ(row.size(), shown->columns.size()) << subject->id;
        }
    }
}

// Two halves of a parish add up to the whole.
TEST_F(TheConfinements, AreCountedOnceByWhateverThreads)
{
    for (int i = 0; i < 20; ++i)
        children(married({"1741-06-10", "1720-03-12", "1790-05-01", "1755-10-02"}), {"1742-05-03", "1744-09-20"});
    const auto parish = study::parish::Snapshot::read(bdp);
    const Study study = studyOf(parish, {});
    for (const Subject* subject : subjects())
        EXPECT_EQ(tallyOf(*subject, study, 1), tallyOf(*subject, study, 3)) << subject->id;
}
