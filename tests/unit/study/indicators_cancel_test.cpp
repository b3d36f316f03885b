// A study that somebody gives up is left where it stands.
#include "study/people.h"

#include "study/indicators/studyReport.h"
#include "study/windows/subjectRecords.h"

#include <gtest/gtest.h>

using namespace study;
using parish::Snapshot;

namespace {

using ACancelledStudy = People;

} // namespace

TEST_F(ACancelledStudy, IsGivenUpWhileThePresenceOfPeopleIsLookedFor)
{
    bdp.beginTrans();
    for (int i = 0; i < 5000; ++i)
        person({"Rui", 'm', "1700-02-14"});
    bdp.commitTrans();
    const auto parish = Snapshot::read(bdp);
    std::vector<double> asked;
    const auto goesOn = [&asked](double done) {
        asked.push_back(done);
        return true;
    };
    EXPECT_EQ(indicators::studyOf(parish, {}, goesOn).presences.size(), 5000U);
    ASSERT_EQ(asked.size(), 2U);
    EXPECT_EQ(asked[0], 0);
    EXPECT_NEAR(asked[1], 4096.0 / 5000, 1e-9);
    EXPECT_THROW(indicators::studyOf(parish, {}, [](double done) { return done == 0; }), Snapshot::Interrupted);
}

TEST_F(ACancelledStudy, IsGivenUpWhileWhoStandsBehindANumberIsLookedFor)
{
    bdp.beginTrans();
    for (int i = 0; i < 5000; ++i)
        person({"Rui", 'm', "1700-02-14"});
    bdp.commitTrans();
    const auto parish = Snapshot::read(bdp);
    const indicators::Study study = indicators::studyOf(parish, {});
    const indicators::Subject& subject = *indicators::subjectOf("qualidade");
    const auto never = [](double) { return false; };
    EXPECT_THROW(indicators::behind(subject, study, {}, never), Snapshot::Interrupted);
    EXPECT_THROW(verdictOn(subject, study, parish.people()[0], never), Snapshot::Interrupted);
    EXPECT_NO_THROW(indicators::behind(subject, study, {}, [](double) { return true; }));
}

TEST_F(ACancelledStudy, IsGivenUpBetweenTheFiguresOfTwoSubjects)
{
    person({"Rui", 'm', "1700-02-14"});
    const auto parish = Snapshot::read(bdp);
    const auto tallies = indicators::talliesOf(indicators::studyOf(parish, {}), {});
    const auto all = indicators::subjects();
    std::size_t asked = 0;
    const auto goesOn = [&asked](double) {
        ++asked;
        return true;
    };
    EXPECT_FALSE(reportOf(tallies, {}, all, goesOn).chapters.empty());
    EXPECT_EQ(asked, all.size());
    EXPECT_THROW(reportOf(tallies, {}, all, [](double done) { return done < 0.5; }), Snapshot::Interrupted);
}
