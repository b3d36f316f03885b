// Parents and couples.
#include "study/tellings.h"

using namespace study;

namespace {

class PlanOfFamilies : public SmallParish
{
protected:
    Telling told = Telling::of(ActKind::Baptism, QDate(1702, 2, 14));
};

} // namespace

TEST_F(PlanOfFamilies, GoBackAsFarAsTheActTells)
{
    const int child = told.isNew(Role::Child, "Maria"), father = told.isNew(Role::Father, "Manuel", child);
    const int grandfather = told.isNew(Role::Father, "Bento", father);
    told.isNew(Role::Mother, "Inês", father);
    told.isNew(Role::Father, "Gil", grandfather);
    const Plan plan = told.plan();
    EXPECT_EQ(setTo(plan, "individuo", 1, "famorig"), 1.0);
    EXPECT_EQ(setTo(plan, "individuo", 2, "famorig"), 2.0);
    EXPECT_EQ(setTo(plan, "individuo", 3, "famorig"), 3.0);
    EXPECT_EQ(setTo(plan, "familia", 1, "sfamilia"), "4");
    EXPECT_EQ(setTo(plan, "familia", 2, "sfamilia"), "2");
    EXPECT_EQ(setTo(plan, "familia", 3, "sfamilia"), "2") << "that one parent isn't told says nothing of a grandparent";
    EXPECT_EQ(plan.families, (QList<qint64>{1, 2, 3}));
}

TEST_F(PlanOfFamilies, PutTheHusbandFirst)
{
    const int godmother = told.isNew(Role::Godmother, "Ana");
    told.isNew(Role::Spouse, "Rui", godmother);
    told.isNew(Role::Child, "Maria");
    const QList<RowChange> members = changesOf(told.plan(), "familias");
    ASSERT_EQ(members.size(), 2);
    EXPECT_EQ(members[0].key, (RowChange::Columns{{"nfamilia", 1.0}, {"nind", 2.0}}));
    EXPECT_EQ(members[1].key, (RowChange::Columns{{"nfamilia", 1.0}, {"nind", 1.0}}));
}

TEST_F(PlanOfFamilies, CompleteAFamilyOfOriginWithTheOtherParent)
{
    const qint64 rui = person("Rui", "m"), known = family({rui}, {{"sfamilia", "2"}});
    const qint64 ana = person("Ana", "f", {{"famorig", known}});
    told.isNew(Role::Child, "Maria");
    const int godmother = told.known(Role::Godmother, ana);
    told.known(Role::Father, rui, godmother);
    told.isNew(Role::Mother, "Inês", godmother);
    const Plan plan = told.plan();
    EXPECT_EQ(objectionsOf(plan), QStringList());
    const QList<RowChange> members = changesOf(plan, "familias");
    ASSERT_EQ(members.size(), 1);
    EXPECT_EQ(members[0].key, (RowChange::Columns{{"nfamilia", double(known)}, {"nind", double(plan.people[3])}}));
    EXPECT_FALSE(changeOf(plan, "individuo", ana));
}

TEST_F(PlanOfFamilies, DoNotGiveAFatherToTheFamilyOfAnUnmarriedMother)
{
    const qint64 ines = person("Inês", "f"), known = family({ines}, {{"sfamilia", "3"}});
    const qint64 ana = person("Ana", "f", {{"famorig", known}});
    told.isNew(Role::Child, "Maria");
    const int godmother = told.known(Role::Godmother, ana);
    told.isNew(Role::Father, "Rui", godmother);
    told.known(Role::Mother, ines, godmother);
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("outra-familia:1"));
    EXPECT_TRUE(changesOf(told.plan(), "familias").isEmpty());
}

TEST_F(PlanOfFamilies, TellAnUnmarriedMotherFromOneWhoseHusbandIsNotNamed)
{
    const qint64 ines = person("Inês", "f");
    const qint64 presumed = family({ines}, {{"sfamilia", "2"}}), unmarried = family({ines}, {{"sfamilia", "3"}});
    const int child = told.isNew(Role::Child, "Maria");
    told.known(Role::Mother, ines, child);
    EXPECT_EQ(told.plan().families, QList<qint64>{unmarried});
    told.act.people[child].role = Role::Mentioned;
    EXPECT_EQ(told.plan().families, QList<qint64>{presumed});
}

TEST_F(PlanOfFamilies, CountAChildOnceThatIsTheirsAlready)
{
    const qint64 he = person("Rui", "m"), she = person("Ana", "f");
    const qint64 theirs = family({he, she}, {{"datacasam", QDate(1695, 1, 1)}, {"tipocasal", 7}});
    const qint64 maria = person("Maria", "f", {{"famorig", theirs}});
    told.known(Role::Child, maria);
    told.known(Role::Father, he, 0);
    told.known(Role::Mother, she, 0);
    EXPECT_EQ(setTo(told.plan(), "familia", theirs, "tipocasal"), 4.0) << "the only child without a date has one now";
    person("outro", "m", {{"famorig", theirs}});
    EXPECT_FALSE(changeOf(told.plan(), "familia", theirs));
}

TEST_F(PlanOfFamilies, MakeAnotherFamilyWhereAKnownParentIsAloneInOne)
{
    const qint64 ines = person("Inês", "f");
    family({ines}, {{"sfamilia", "3"}});
    const int child = told.isNew(Role::Child, "Maria");
    told.isNew(Role::Father, "Manuel", child);
    told.known(Role::Mother, ines, child);
    EXPECT_EQ(told.plan().families, QList<qint64>{2});
}

TEST_F(PlanOfFamilies, AreNumberedBehindTheLastRowUnlessThatNumberIsTaken)
{
    run("insert into familia (nfamilia) values (9)");
    run("insert into familia (nfamilia) values (3)");
    const int child = told.isNew(Role::Child, "Maria");
    told.isNew(Role::Father, "Manuel", child);
    EXPECT_EQ(told.plan().families, QList<qint64>{4});
    run("insert into familia (nfamilia) values (8)");
    EXPECT_EQ(told.plan().families, QList<qint64>{10});
}

TEST_F(PlanOfFamilies, ChangeTheTypeOnlyWhereItWasThatOfTheTable)
{
    const QDate old(1660, 5, 1);
    const auto couple = [&](int type) {
        const qint64 he = person("Rui", "m", {{"dataobito", old.addYears(60)}});
        const qint64 she = person("Ana", "f", {{"datanasc", old}});
        return std::pair(family({he, she}, {{"datacasam", old.addYears(20)}, {"tipocasal", type}}), she);
    };
    Telling burial = Telling::of(ActKind::Burial, QDate(1725, 1, 2));
    const auto [byTable, one] = couple(3);
    burial.known(Role::Deceased, one);
    const Plan follows = burial.plan();
    EXPECT_EQ(changeOf(follows, "familia", byTable)->values, (RowChange::Columns{{"tipocasal", 1.0}}));
    EXPECT_EQ(changeOf(follows, "familia", byTable)->before, (RowChange::Columns{{"tipocasal", 3.0}}));
    const auto [byChoice, other] = couple(7);
    burial.conclusions.people[0].nind = other;
    EXPECT_FALSE(changeOf(burial.plan(), "familia", byChoice));
}

TEST_F(PlanOfFamilies, CountTheChildWithTheOthersForTheType)
{
    const qint64 he = person("Rui", "m"), she = person("Ana", "f");
    const qint64 theirs = family({he, she}, {{"datacasam", QDate(1695, 1, 1)}, {"tipocasal", 4}});
    person("sem data", "m", {{"famorig", theirs}});
    run("update familia set tipocasal = 7");
    run("update individuo set datanasc = ? where nome = 'sem data'", {QDate(1699, 1, 1)});
    const int child = told.isNew(Role::Child, "Maria");
    told.known(Role::Father, he, child);
    told.known(Role::Mother, she, child);
    EXPECT_FALSE(changeOf(told.plan(), "familia", theirs)) << "7 was a choice: the table gave 4";
    run("update familia set tipocasal = 4");
    EXPECT_FALSE(changeOf(told.plan(), "familia", theirs)) << "all children are dated still";
    run("update individuo set datanasc = null, famorig = ? where nome = 'sem data'", {theirs});
    run("update familia set tipocasal = 7");
    EXPECT_FALSE(changeOf(told.plan(), "familia", theirs));
}

TEST_F(PlanOfFamilies, LeaveAFiliationToAnotherFamilyAsItIs)
{
    const qint64 origin = family({person("Gil", "m"), person("Eva", "f")});
    const qint64 ana = person("Ana", "f", {{"famorig", origin}});
    told.isNew(Role::Child, "Maria");
    const int godmother = told.known(Role::Godmother, ana);
    told.isNew(Role::Father, "Rui", godmother);
    const QString id = QString("outra-familia:%1").arg(godmother);
    EXPECT_EQ(objectionsOf(told.plan()), QStringList(id));
    told.overrule(id);
    const Plan plan = told.plan();
    EXPECT_EQ(objectionsOf(plan), QStringList());
    EXPECT_FALSE(changeOf(plan, "individuo", ana));
    EXPECT_TRUE(plan.leftOut.contains("nº 3 Ana já é filha da família 1 de Gil e Eva: a filiação não se altera."));
}
