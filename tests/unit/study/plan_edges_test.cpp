// Acts that lack what others have: a day, a parish of their own; or that have too much.
#include "study/tellings.h"

using namespace study;

namespace {

class PlanAtTheEdge : public SmallParish
{
};

} // namespace

TEST_F(PlanAtTheEdge, RefusesASecondPersonWhomTheActWouldBeAbout)
{
    Telling twins = Telling::of(ActKind::Baptism, actDay);
    const int maria = twins.isNew(Role::Child, "Maria");
    const int ana = twins.isNew(Role::Child, "Ana");
    twins.isNew(Role::Mother, "Eva", maria);
    twins.overrule("outro-sujeito:1");
    ASSERT_EQ(objectionsOf(twins.plan()), QStringList("outro-sujeito:1")) << "it can't be overruled";
    EXPECT_EQ(twins.plan().objections.first().text,
              "Este acto já tem de quem trata: Ana (baptizado) precisa de um acto seu.");
    twins.conclusions.people[ana] = {.kind = Identity::Kind::Kept};
    EXPECT_EQ(objectionsOf(twins.plan()), QStringList()) << "only named in the act";

    Telling burial = Telling::of(ActKind::Burial, actDay);
    burial.isNew(Role::Deceased, "Eva");
    burial.known(Role::Deceased, person("Gil", "m"));
    EXPECT_EQ(objectionsOf(burial.plan()), QStringList("outro-sujeito:1"));
    Telling other = Telling::of(ActKind::Burial, actDay);
    other.isNew(Role::Deceased, "Eva");
    other.isNew(Role::Child, "Ana");
    EXPECT_EQ(objectionsOf(other.plan()), QStringList("outro-sujeito:1")) << "whom another kind of act is about";
}

TEST_F(PlanAtTheEdge, HasNoPlaceOfItsOwnWhereTheBdpHasNoParish)
{
    run("delete from infopar");
    Telling baptism = Telling::of(ActKind::Baptism, actDay), marriage = Telling::of(ActKind::Marriage, actDay);
    const int child = baptism.isNew(Role::Child, "Maria");
    marriage.isNew(Role::Groom, "Rui");
    marriage.isNew(Role::Bride, "Ana");
    EXPECT_EQ(objectionsOf(baptism.plan()), QStringList());
    EXPECT_TRUE(setTo(baptism.plan(), "individuo", 1, "localnasc").isNull());
    EXPECT_EQ(objectionsOf(marriage.plan()), QStringList());
    EXPECT_TRUE(setTo(marriage.plan(), "familia", 1, "localcasam").isNull());
    EXPECT_TRUE(setTo(marriage.plan(), "familia", 1, "tipolocalcasam").isNull());

    baptism.tell(child, attribute::residence, "Poucapena");
    baptism.conclusions.places["Poucapena"] = {.name = "Poucapena"};
    ASSERT_EQ(objectionsOf(baptism.plan()), QStringList("lugar-impossivel"));
    EXPECT_TRUE(baptism.plan().objections.first().hard);
    baptism.conclusions.places["Poucapena"].parish = "030301";
    EXPECT_EQ(objectionsOf(baptism.plan()), QStringList());
    EXPECT_EQ(setTo(baptism.plan(), "residencia", 1, "localresid"), "03030103");
}

TEST_F(PlanAtTheEdge, TakesTheFirstDayForAMarriageWhoseDayIsNotTold)
{
    Telling told = Telling::of(ActKind::Marriage, actDay);
    told.isNew(Role::Groom, "Rui");
    told.isNew(Role::Bride, "Ana");
    told.act.date = {.year = 1702, .month = 3};
    EXPECT_EQ(objectionsOf(told.plan()), QStringList());
    EXPECT_EQ(setTo(told.plan(), "familia", 1, "datacasam"), QDate(1702, 3, 1));
    EXPECT_EQ(setTo(told.plan(), "familia", 1, "dcasamfixa"), false);
    told.act.date = {.year = 1702};
    EXPECT_EQ(setTo(told.plan(), "familia", 1, "datacasam"), QDate(1702, 1, 1));
    told.act.date = {.year = 1702, .month = 3, .day = 4, .about = true};
    EXPECT_EQ(setTo(told.plan(), "familia", 1, "datacasam"), QDate(1702, 3, 4));
    EXPECT_EQ(setTo(told.plan(), "familia", 1, "dcasamfixa"), false);
}

TEST_F(PlanAtTheEdge, TakesTheFirstDayForABurialWhoseDayIsNotTold)
{
    Telling told = Telling::of(ActKind::Burial, actDay);
    told.isNew(Role::Deceased, "Rui");
    told.act.date = {.year = 1702, .month = 3};
    EXPECT_EQ(objectionsOf(told.plan()), QStringList());
    EXPECT_EQ(setTo(told.plan(), "individuo", 1, "dataobito"), QDate(1702, 3, 1));
    EXPECT_EQ(setTo(told.plan(), "individuo", 1, "dobitofixa"), false);
    told.act.date = {.year = 1702};
    EXPECT_EQ(setTo(told.plan(), "individuo", 1, "dataobito"), QDate(1702, 1, 1));
}
