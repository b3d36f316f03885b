// Types of records that are one.
#include "study/aMerge.h"

#include "study/linkage/types.h"

using namespace study::linkage;

TEST_F(AMerge, AsksForATypeOfAFamilyThatSomebodyChose)
{
    const qint64 rui = person({"Rui"}), ana = person({"Ana", 'f'});
    const qint64 first = couple(rui, ana), second = couple(rui, ana);
    run("update familia set tipocasal = 2 where nfamilia = ?", {second});
    note();
    qint64 id = joinFamilies(bdp, first, second);
    EXPECT_EQ(one("select tipocasal from familia"), "2") << "the other has none";
    expectWayBack(id);
    run("update familia set tipocasal = 3 where nfamilia = ?", {first});
    const MergePlan plan = planJoin(bdp, first, second);
    ASSERT_EQ(plan.differences.size(), 1);
    EXPECT_EQ(plan.differences[0].column, "tipocasal");
    EXPECT_EQ(plan.differences[0].title, "tipo de família");
    note();
    id = joinFamilies(bdp, first, second);
    EXPECT_EQ(one("select tipocasal from familia"), "3");
    EXPECT_TRUE(one("select obs from familia").contains("tipo de família ")) << "the one that went";
    expectWayBack(id);
    id = joinFamilies(bdp, first, second, {.sides = {{"tipocasal", Side::Other}}});
    EXPECT_EQ(one("select tipocasal from familia"), "2");
    expectWayBack(id);
}

TEST_F(AMerge, KeepsTheChosenTypeOfAFamilyOfTheSameCouple)
{
    const qint64 rui = person({"Rui"}), ana = person({"Ana", 'f'}), again = person({"Ana", 'f'});
    const qint64 first = couple(rui, ana), second = couple(rui, again);
    run("update familia set tipocasal = 2 where nfamilia = ?", {second});
    note();
    const qint64 id = mergePeople(bdp, ana, again, {.join = {{first, second}}});
    EXPECT_EQ(one("select tipocasal from familia"), "2");
    expectWayBack(id);
}

TEST_F(AMerge, AsksForATypeOfAPersonThatSomebodyChose)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f'});
    run("update individuo set tipo = '55' where nind = ?", {ana});
    run("update individuo set tipo = '77' where nind = ?", {again});
    const MergePlan plan = planMerge(bdp, ana, again);
    ASSERT_EQ(plan.differences.size(), 1);
    EXPECT_EQ(plan.differences[0], (Difference{.column = "tipo", .title = "tipo", .kept = "55", .other = "77"}));
    note();
    qint64 id = mergePeople(bdp, ana, again);
    EXPECT_EQ(one("select tipo from individuo"), "55");
    EXPECT_TRUE(one("select obs from individuo").contains("tipo 77"));
    expectWayBack(id);
    id = mergePeople(bdp, ana, again, {.sides = {{"tipo", Side::Other}}});
    EXPECT_EQ(one("select tipo from individuo"), "77");
    EXPECT_TRUE(one("select obs from individuo").contains("tipo 55"));
    expectWayBack(id);
}

TEST_F(AMerge, FollowsTheTypeOfAFamilyUnlessSomebodyChoseIt)
{
    const qint64 rui = person({"Rui", 'm', "", "1750-01-01"}), ana = person({"Ana", 'f'});
    const qint64 again = person({"Ana", 'f', "1702-01-01", "1751-01-01"});
    const qint64 family = couple(rui, ana, "1725-01-01");
    note();
    const qint64 id = mergePeople(bdp, ana, again);
    EXPECT_EQ(one("select tipocasal from familia"), "") << "the card gives it none, either";
    expectWayBack(id);
    run("update familia set tipocasal = ?", {familyType(Recording(bdp), family)});
    const QString before = one("select tipocasal from familia");
    EXPECT_TRUE(
        planMerge(bdp, ana, again).sentences.contains("O tipo da família nº 1 passa de " + before + " para 1."));
    mergePeople(bdp, ana, again);
    EXPECT_EQ(one("select tipocasal from familia"), "1");
}

TEST_F(AMerge, TellsOfTheTypeOfThePerson)
{
    const qint64 ana = person({"Ana", 'f', "1702-02-14"}), again = person({"Ana", 'f', "", "1760-05-01"});
    run("update individuo set tipo = '1' where nind = ?", {ana});
    EXPECT_TRUE(planMerge(bdp, ana, again).sentences.contains("O tipo do nº 1 passa de «1» para «4»."));
}
