#include "study/acts/act.h"

#include <gtest/gtest.h>

using namespace study;

namespace {

// A baptism with grandparents, and a godmother with her father.
Act actWithGrandparents()
{
    Act act;
    act.people = {{.role = Role::Child, .name = {"maria"}},
                  {.role = Role::Father, .of = 0, .name = {"manuel de abreu"}},
                  {.role = Role::Mother, .of = 0, .name = {"joana"}},
                  {.role = Role::Father, .of = 2, .name = {"pedro dias"}},
                  {.role = Role::Mother, .of = 1, .name = {"ana"}},
                  {.role = Role::Godfather, .name = {"domingos luis"}},
                  {.role = Role::Godmother, .name = {"luisa"}},
                  {.role = Role::Father, .of = 6, .name = {"bento alvares"}},
                  {.role = Role::Spouse, .of = 5, .name = {"isabel"}},
                  {.role = Role::Proxy, .of = 5, .name = {"antonio"}},
                  {.role = Role::Mentioned, .of = 6, .name = {"rosa"}, .toldSex = Sex::Female}};
    return act;
}

} // namespace

TEST(DeadBefore, AsksTheValueAndNotTheTypeAlone)
{
    for (const char* before : {"antes", "s", "", "sim", "defunto", "em 1690", "viúvo", "?"})
        EXPECT_TRUE(saysDeadBefore(before)) << before;
    for (const char* living :
         {"não", "nao", "N", "depois", "vivo", "ainda viva", "0", "-", "não consta", "morreu depois"})
        EXPECT_FALSE(saysDeadBefore(living)) << living;
    Act act{.people = {{.role = Role::Father, .attributes = {{.type = "Morta", .told = {.value = "ainda vivo"}}}}}};
    EXPECT_FALSE(deadBefore(act, 0));
    act.people[0].attributes[0].told.value = "antes";
    EXPECT_TRUE(deadBefore(act, 0));
}

TEST(PeopleOfAnAct, HangOnWhomeverStandsBeforeThem)
{
    const Act act{.people = {{.role = Role::Father, .of = 1}, {.role = Role::Child}, {.role = Role::Mother, .of = 1}}};
    EXPECT_EQ(personWith(act, Role::Father, 1), -1);
    EXPECT_EQ(peopleWith(act, Role::Father, 1), QList<int>());
    EXPECT_EQ(personWith(act, Role::Mother, 1), 2);
}

TEST(AnAct, TellsTheSexByTheRoleAndByTheSpouse)
{
    Act act = actWithGrandparents();
    EXPECT_EQ(sexOf(act, 0), Sex::Unknown);
    EXPECT_EQ(sexOf(act, 1), Sex::Male);
    EXPECT_EQ(sexOf(act, 4), Sex::Female);
    EXPECT_EQ(sexOf(act, 8), Sex::Female) << "the wife of the godfather";
    act.people[0].toldSex = Sex::Female;
    EXPECT_EQ(sexOf(act, 0), Sex::Female);
    act.people[5].toldSex = Sex::Female;
    EXPECT_EQ(sexOf(act, 5), Sex::Female) << "what is told counts more than the role";
}

TEST(AnAct, NamesEachPersonByTheRole)
{
    const Act act = actWithGrandparents();
    const QStringList titles{"baptizado",
                             "pai",
                             "mãe",
                             "avô materno",
                             "avó paterna",
                             "padrinho",
                             "madrinha",
                             "pai da madrinha",
                             "mulher do padrinho",
                             "procurador do padrinho",
                             "referida da madrinha"};
    for (int person = 0; person < act.people.size(); ++person)
        EXPECT_EQ(roleTitle(act, person), titles[person]) << person;
}

TEST(AnAct, NamesTheParentsOfSpousesAndOfGrandparents)
{
    Act act{.kind = ActKind::Marriage};
    act.people = {{.role = Role::Groom},
                  {.role = Role::Father, .of = 0},
                  {.role = Role::Bride},
                  {.role = Role::Mother, .of = 2},
                  {.role = Role::EarlierSpouse, .of = 0, .ordinal = 1},
                  {.role = Role::Father, .of = 1}};
    EXPECT_EQ(roleTitle(act, 1), "pai do noivo");
    EXPECT_EQ(roleTitle(act, 3), "mãe da noiva");
    EXPECT_EQ(roleTitle(act, 4), "mulher anterior do noivo");
    EXPECT_EQ(roleTitle(act, 5), "pai do pai do noivo");
}

TEST(AnAct, FindsItsPeopleByTheirRole)
{
    const Act act = actWithGrandparents();
    EXPECT_EQ(personWith(act, Role::Mother, 0), 2);
    EXPECT_EQ(personWith(act, Role::Mother, 2), -1);
    EXPECT_EQ(personWith(act, Role::Godmother), 6);
    EXPECT_EQ(peopleWith(act, Role::Father, 0), QList<int>{1});
    EXPECT_EQ(subjects(act), QList<int>{0});
}

TEST(AnAct, TellsWhoIsDead)
{
    Act act = actWithGrandparents();
    EXPECT_FALSE(deadBefore(act, 7));
    act.people[7].attributes = {{.type = "Morto", .told = {"antes"}}};
    EXPECT_TRUE(deadBefore(act, 7));
    act.people[7].attributes = {{.type = "morta", .told = {"antes"}}};
    EXPECT_TRUE(deadBefore(act, 7));
    act.people[8].role = Role::EarlierSpouse;
    EXPECT_TRUE(deadBefore(act, 8));
}

TEST(AnAct, IsNamedByItsReference)
{
    EXPECT_EQ(reference({.kind = ActKind::Baptism, .book = "3", .folio = "12v", .number = "7"}),
              "Baptismos 3, fl. 12v, n.º 7");
    EXPECT_EQ(reference({.kind = ActKind::Burial, .number = "7"}), "Óbitos, n.º 7");
    EXPECT_EQ(reference({.kind = ActKind::Marriage}), "Casamentos");
}

TEST(AnAge, IsReadWithItsUnit)
{
    const Age none{.years = 0, .underOneYear = true};
    EXPECT_EQ(readAge("30"), (Age{.years = 30}));
    EXPECT_EQ(readAge("de 30 annos pouco mais ou menos"), (Age{.years = 30}));
    EXPECT_EQ(readAge("4 meses"), none);
    EXPECT_EQ(readAge("18 meses"), (Age{.years = 1}));
    EXPECT_EQ(readAge("11 dias"), none);
    EXPECT_EQ(readAge("6 semanas"), none);
    EXPECT_EQ(readAge("2 horas"), none);
    EXPECT_EQ(readAge("2 para 3 anos"), (Age{.years = 2}));
    EXPECT_EQ(readAge("recem nascido"), none);
    EXPECT_EQ(readAge("0"), none);
    EXPECT_EQ(readAge("60 de idade"), (Age{.years = 60})) << "no days";
    EXPECT_EQ(readAge("20 mais ou menos"), (Age{.years = 20})) << "no months";
    EXPECT_EQ(readAge("50 segundo diz"), (Age{.years = 50})) << "no weeks";
    EXPECT_EQ(readAge("2 mezes"), none);
    EXPECT_EQ(readAge("maior"), std::nullopt);
    EXPECT_EQ(readAge("?"), std::nullopt);
    EXPECT_EQ(readAge(""), std::nullopt);
}

TEST(SomebodyDead, IsNotWhoIsToldToLive)
{
    Act act;
    act.people = {{.role = Role::Father, .attributes = {{.type = "morto", .told = {.value = "antes"}}}}};
    EXPECT_TRUE(deadBefore(act, 0));
    act.people[0].attributes[0].told.value = "não";
    EXPECT_FALSE(deadBefore(act, 0));
    act.people[0].attributes[0].told.value = "depois";
    EXPECT_FALSE(deadBefore(act, 0));
}
