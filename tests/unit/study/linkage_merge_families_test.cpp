// Families of two people who are one, and families that are one.
#include "study/aMerge.h"

#include <utility>

using namespace study::linkage;

TEST_F(AMerge, JoinsTheFamiliesOfTheSameCoupleWhereThatIsChosen)
{
    const qint64 rui = person({"Rui"}), ana = person({"Ana", 'f'}), again = person({"Ana", 'f'});
    const qint64 first = couple(rui, ana, "1725-01-01"), second = couple(rui, again);
    person({"Gil", 'm', "", "", second});
    run("insert into residencia (numero, tiporesid, dataref) values (?, 'f', '1730-01-01')", {second});
    run("insert into assistente (tipoacto, entidade, nind) values ('c', ?, 3)", {second});
    run("update familias set idade = 20 where nfamilia = ? and nind = ?", {first, ana});
    run("update familias set idade = 22 where nfamilia = ? and nind = ?", {second, again});
    const MergePlan plan = planMerge(bdp, ana, again);
    ASSERT_EQ(plan.couples.size(), 1);
    EXPECT_EQ(plan.couples[0].kept, first);
    EXPECT_EQ(plan.couples[0].other, second);
    note();
    const qint64 id = mergePeople(bdp, ana, again, {.join = {{first, second}}});
    EXPECT_EQ(one("select count(*) from familia"), "1");
    EXPECT_EQ(one("select count(*) from familias"), "2");
    EXPECT_EQ(one("select famorig from individuo where nome = 'Gil'"), "1");
    EXPECT_EQ(one("select numero from residencia"), "1");
    EXPECT_EQ(one("select entidade from assistente"), "1");
    EXPECT_TRUE(one("select obs from familia").contains("idade 22"));
    expectWayBack(id);
}

TEST_F(AMerge, AsksForTheMembersOfTheFamiliesOfACouple)
{
    const qint64 rui = person({"Rui"}), ana = person({"Ana", 'f'}), again = person({"Ana", 'f'});
    const qint64 first = couple(rui, ana, "1725-01-01"), second = couple(rui, again);
    run("update familias set idade = 20 where nfamilia = ? and nind = ?", {first, ana});
    run("update familias set idade = 22 where nfamilia = ? and nind = ?", {second, again});
    const MergePlan plan = planMerge(bdp, ana, again);
    ASSERT_EQ(plan.couples.size(), 1);
    ASSERT_EQ(plan.couples[0].differences.size(), 1);
    const Difference& age = plan.couples[0].differences[0];
    EXPECT_EQ(age.title, "nº 2 como cônjuge: idade");
    note();
    const qint64 id = mergePeople(bdp, ana, again, {.sides = {{age.column, Side::Other}}, .join = {{first, second}}});
    EXPECT_EQ(one("select idade from familias where nind = ?", {ana}), "22");
    EXPECT_TRUE(one("select obs from familia").contains("idade 20"));
    expectWayBack(id);
}

TEST_F(AMerge, CountsMarriagesOnFromTheNumberThatAnActGives)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f'});
    const qint64 early = couple(person({"Rui"}), ana, "1700-01-01"), first = couple(person({"Gil"}), ana, "1710-01-01");
    const qint64 second = couple(person({"Luís"}), again, "1720-01-01");
    run("update familias set numcasam = 2 where nind in (?, ?) and nfamilia <> ?", {ana, again, early});
    note();
    const qint64 id = mergePeople(bdp, ana, again);
    const char* number = "select numcasam from familias where nind = ? and nfamilia = ?";
    EXPECT_EQ(one(number, {ana, early}), "");
    EXPECT_EQ(one(number, {ana, first}), "2");
    EXPECT_EQ(one(number, {ana, second}), "3");
    EXPECT_TRUE(one("select obs from familia where nfamilia = ?", {second}).endsWith(": número de casamento 2"));
    expectWayBack(id);
}

TEST_F(AMerge, LeavesNumbersOfMarriagesThatItDoesNotMakeClash)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f'});
    couple(person({"Rui"}), ana, "1700-01-01");
    couple(person({"Gil"}), ana, "1710-01-01");
    run("update familias set numcasam = 1 where nind = ?", {ana});
    mergePeople(bdp, ana, again);
    EXPECT_EQ(one("select sum(numcasam) from familias where nind = ?", {ana}).toDouble(), 2);
    const qint64 third = person({"Ana", 'f'});
    couple(person({"Luís"}), third, "1720-01-01");
    run("update familias set numcasam = 0 where nind in (?, ?)", {ana, third});
    mergePeople(bdp, ana, third);
    EXPECT_EQ(one("select sum(numcasam) from familias where nind = ?", {ana}).toDouble(), 0) << "none is told";
}

TEST_F(AMerge, CountsMarriagesAnewByTheirDates)
{
    const qint64 ana = person({"Ana", 'f'}), again = person({"Ana", 'f'});
    couple(person({"Rui"}), ana, "1740-01-01");
    couple(person({"Gil"}), again, "1725-01-01");
    run("update familias set numcasam = 1 where nind in (?, ?)", {ana, again});
    mergePeople(bdp, ana, again);
    EXPECT_EQ(one("select numcasam from familias where nind = ? and nfamilia = 1", {ana}), "2");
    EXPECT_EQ(one("select numcasam from familias where nind = ? and nfamilia = 2", {ana}), "1");
}

TEST_F(AMerge, RefusesAFamilyThatNobodyIsKnownOf)
{
    const qint64 family = couple(person({"Rui"}), person({"Ana", 'f'}));
    run("insert into familia (nfamilia) values (9)");
    person({"Gil", 'm', "", "", 9});
    const QString why = "Uma das famílias não tem cônjuges: não se sabe se é a mesma.";
    EXPECT_EQ(refused([&] { joinFamilies(bdp, family, 9); }), why);
    EXPECT_EQ(refused([&] { joinFamilies(bdp, 9, family); }), why);
}

TEST_F(AMerge, IsPlannedWithTheFamiliesThatAreJoined)
{
    const qint64 rui = person({"Rui"}), ana = person({"Ana", 'f'}), again = person({"Ana", 'f'});
    const qint64 first = couple(rui, ana, "1725-01-01"), second = couple(rui, again, "1726-01-01");
    person({"Gil", 'm', "", "", second});
    run("update familias set numcasam = 1");
    run("insert into residencia (numero, tiporesid, dataref) values (?, 'f', '1730-01-01'), (?, 'f', '1730-01-01')",
        {first, second});
    const MergePlan apart = planMerge(bdp, ana, again);
    EXPECT_TRUE(apart.sentences.contains("Os casamentos são numerados de novo, pelas datas."))
        << qUtf8Printable(told(apart));
    EXPECT_EQ(possibleJoins(apart), (QList<QPair<qint64, qint64>>{{first, second}}));
    const MergeChoices choices{.join = possibleJoins(apart)};
    const MergePlan plan = planMerge(bdp, ana, again, choices);
    EXPECT_FALSE(plan.sentences.contains("Os casamentos são numerados de novo, pelas datas."));
    EXPECT_TRUE(plan.sentences.contains("1 filho passa para a família nº 1.")) << qUtf8Printable(told(plan));
    EXPECT_TRUE(plan.sentences.contains("A família nº 2 deixa de existir."));
    EXPECT_EQ(plan.doubles.filter("Residência").size(), 1) << qUtf8Printable(told(plan));
    EXPECT_NE(plan.mark, apart.mark);
}

TEST_F(AMerge, JoinsAllFamiliesOfOneCouple)
{
    const qint64 rui = person({"Rui"}), ana = person({"Ana", 'f'}), again = person({"Ana", 'f'});
    const qint64 first = couple(rui, ana), second = couple(rui, again), third = couple(rui, again);
    const MergePlan plan = planMerge(bdp, ana, again);
    EXPECT_EQ(possibleJoins(plan), (QList<QPair<qint64, qint64>>{{first, second}, {first, third}}));
    note();
    qint64 id = mergePeople(bdp, ana, again, {.join = possibleJoins(plan)});
    EXPECT_EQ(one("select group_concat(nfamilia) from familia"), "1");
    expectWayBack(id);
    id = mergePeople(bdp, ana, again, {.join = {{second, first}, {first, third}}});
    EXPECT_EQ(one("select group_concat(nfamilia) from familia"), "2") << "the other one stays";
    expectWayBack(id);
    EXPECT_EQ(refused([&] {
                  mergePeople(bdp, ana, again, {.join = {{first, 99}}});
              }),
              "As duas famílias não têm o mesmo casal.");
}

TEST_F(AMerge, AsksForEachCoupleApart)
{
    const qint64 rui = person({"Rui"}), again = person({"Rui"});
    const qint64 ana = person({"Ana", 'f'}), eva = person({"Eva", 'f'});
    const qint64 first = couple(rui, ana, "1725-01-01"), second = couple(again, ana, "1725-02-02");
    const qint64 third = couple(rui, eva, "1735-01-01"), fourth = couple(again, eva, "1735-02-02");
    const MergeChoices joins{.join = {{first, second}, {third, fourth}}};
    const MergePlan plan = planMerge(bdp, rui, again, joins);
    ASSERT_EQ(plan.couples.size(), 2);
    MergeChoices choices = joins;
    for (const Difference& one : plan.couples[0].differences)
        if (one.title == "data de casamento") choices.sides << std::pair(one.column, Side::Other);
    ASSERT_EQ(choices.sides.size(), 1);
    mergePeople(bdp, rui, again, choices);
    EXPECT_EQ(one("select datacasam from familia where nfamilia = ?", {first}), "1725-02-02");
    EXPECT_EQ(one("select datacasam from familia where nfamilia = ?", {third}), "1735-01-01");
}
