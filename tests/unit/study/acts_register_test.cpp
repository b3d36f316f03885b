// The register of acts: what is put there comes back as it was.
#include "study/acts/register.h"

#include "common/emptybdp.h"
#include "store/modBD.h"
#include "study/randomacts.h"

#include <gtest/gtest.h>

using namespace study;

namespace {

TEST(TheRegisterOfActs, GivesBackEveryActAsItWasStored)
{
    const EmptyBdp bdp;
    CriaTabelas(cnBDP, ORV_DATA_DIR "/CriarTab.dat");
    for (unsigned seed = 1; seed <= 150; ++seed) {
        RandomActs any(seed);
        const Act act = any.act();
        const Conclusions conclusions = any.conclusionsOf(act);
        const Plan plan = any.planOf(act, conclusions);
        const qint64 id = addAct(cnBDP, act, conclusions, plan);
        const std::optional<ActRecord> record = readAct(cnBDP, id);
        ASSERT_TRUE(record) << seed;
        EXPECT_TRUE(record->act == act) << seed;
        EXPECT_TRUE(record->conclusions == conclusions) << seed;
        EXPECT_TRUE(record->written == plan.rows) << seed;
        EXPECT_EQ(record->people, plan.people) << seed;
        EXPECT_EQ(record->families, plan.families) << seed;
        EXPECT_LE(record->stored.secsTo(QDateTime::currentDateTime()), 60) << seed;
        EXPECT_TRUE(lastAct(cnBDP) == record) << seed;
    }
}

TEST(TheRegisterOfActs, KeepsEveryDraftAsItIs)
{
    const EmptyBdp bdp;
    EXPECT_FALSE(savedDraft(cnBDP));
    for (unsigned seed = 1; seed <= 150; ++seed) {
        RandomActs any(seed);
        const Act act = any.act();
        const Conclusions conclusions = any.conclusionsOf(act);
        saveDraft(cnBDP, act, conclusions);
        const std::optional<ActDraft> draft = savedDraft(cnBDP);
        ASSERT_TRUE(draft) << seed;
        EXPECT_TRUE(draft->act == act) << seed;
        EXPECT_TRUE(draft->conclusions == conclusions) << seed;
    }
    EXPECT_FALSE(hasActs(cnBDP));
    dropDraft(cnBDP);
    EXPECT_FALSE(savedDraft(cnBDP));
}

} // namespace
