// How a parish is checked, whatever the rules.
#include "study/checked.h"

using ACheck = Checked;
using namespace study::checks;

TEST_F(ACheck, AsksNoRuleThatIsPutAside)
{
    person({"Rui", 'm', "1702-02-14", "1702-02-13"});
    EXPECT_EQ(cases("P-01").size(), 1);
    EXPECT_EQ(cases("P-01", {.asked = {{"P-01", false}}}).size(), 0);
}

TEST_F(ACheck, KnowsACaseAgainUntilTheRecordIsAltered)
{
    const qint64 rui = person({"Rui", 'm', "1702-02-14", "1702-02-13"});
    const Case before = all().at(0);
    EXPECT_EQ(before.key(), "P-01 i1");
    EXPECT_EQ(all().at(0), before);
    run("update individuo set titulo = 'Dom' where nind = ?", {rui});
    EXPECT_EQ(all().at(0).key(), before.key());
    EXPECT_NE(all().at(0).state, before.state);
    run("update individuo set titulo = null where nind = ?", {rui});
    EXPECT_EQ(all().at(0).state, before.state);
}

TEST(ACase, IsKnownByWhatItIsAbout)
{
    Case one{.rule = "K-02", .text = "", .people = {study::parish::PersonNumber(7)}};
    EXPECT_EQ(one.key(), "K-02 i7");
    one.about = "F030301";
    EXPECT_EQ(one.key(), "K-02 i7 F030301");
}

TEST_F(ACheck, EndsWhenAsked)
{
    bdp.beginTrans();
    for (int i = 0; i < 2000; ++i)
        person({"Rui"});
    bdp.commitTrans();
    const auto parish = study::parish::Snapshot::read(bdp);
    EXPECT_THROW(Check::run(parish, {}, [](double) { return false; }), study::parish::Snapshot::Interrupted);
}

TEST(TheRules, HaveEachANumberOfTheirOwnAndATitle)
{
    QStringList ids;
    for (const Rule& rule : rules()) {
        EXPECT_FALSE(ids.contains(rule.id)) << rule.id;
        EXPECT_FALSE(QString(rule.title).isEmpty()) << rule.id;
        EXPECT_EQ(ruleOf(rule.id), &rule);
        ids << rule.id;
    }
}
