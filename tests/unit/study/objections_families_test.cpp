// What speaks against the families of an act: each rule with a case that fires and a near miss.
#include "study/objected.h"

#include <functional>

using namespace study;
using ObjectionsToFamilies = Objected;

TEST_F(ObjectionsToFamilies, TellOfParentsOfAnUnlikelyAge)
{
    EXPECT_EQ(against(baptism(), Role::Mother, born(actDay.addYears(-12).addDays(1)), 0), QStringList("mae-nova:1"));
    EXPECT_EQ(against(baptism(), Role::Mother, born(actDay.addYears(-12)), 0), QStringList());
    EXPECT_EQ(against(baptism(), Role::Mother, born(actDay.addYears(-56)), 0), QStringList("mae-velha:1"));
    EXPECT_EQ(against(baptism(), Role::Mother, born(actDay.addYears(-56).addDays(1)), 0), QStringList());
    EXPECT_EQ(against(baptism(), Role::Mother, born(actDay.addYears(-11), false), 0), QStringList());
    EXPECT_EQ(against(baptism(), Role::Father, born(actDay.addYears(-14).addDays(1)), 0), QStringList("pai-novo:1"));
    EXPECT_EQ(against(baptism(), Role::Father, born(actDay.addYears(-14)), 0), QStringList());
    EXPECT_EQ(against(baptism(), Role::Father, born(actDay.addYears(-76)), 0), QStringList("pai-velho:1"));
    EXPECT_EQ(against(baptism(), Role::Father, born(actDay.addYears(-76).addDays(1)), 0), QStringList());
    EXPECT_EQ(against(baptism(), Role::Father, born(actDay.addDays(1)), 0), QStringList("nascido-depois:1"));
}

TEST_F(ObjectionsToFamilies, TellOfTheParentsOfThoseWhoAreGrown)
{
    const QDate birth(1670, 5, 1);
    const auto mother = [&](const Row& columns) {
        Telling told = baptism();
        const int godfather = told.known(Role::Godfather, person("Rui", "m", born(birth)));
        return against(told, Role::Mother, columns, godfather);
    };
    EXPECT_EQ(mother(born(birth.addYears(-11))), QStringList("mae-nova:2"));
    EXPECT_EQ(mother(born(birth.addYears(-12))), QStringList());
    EXPECT_EQ(mother(born(birth.addYears(1))), QStringList("mae-nova:2"));
    EXPECT_EQ(mother(died(birth.addDays(-1))), QStringList("morto-antes:2"));
    EXPECT_EQ(mother(died(birth)), QStringList());
}

TEST_F(ObjectionsToFamilies, TellOfChildrenBornTooCloseToEachOther)
{
    const qint64 he = person("Rui", "m"), she = person("Ana", "f"), theirs = family({he, she});
    const qint64 other = person("Zé", "m", {{"famorig", theirs}});
    Telling told = baptism();
    told.known(Role::Father, he, 0);
    told.known(Role::Mother, she, 0);
    const auto apart = [&](int days, bool exact = true) {
        run("update individuo set datanasc = ?, DnascFixa = ? where nind = ?", {actDay.addDays(days), exact, other});
        return objectionsOf(told.plan());
    };
    EXPECT_EQ(apart(-10), QStringList());
    EXPECT_EQ(apart(-11), QStringList("irmaos-proximos:0"));
    EXPECT_EQ(apart(-239), QStringList("irmaos-proximos:0"));
    EXPECT_EQ(apart(-240), QStringList());
    EXPECT_EQ(apart(200), QStringList("irmaos-proximos:0"));
    EXPECT_EQ(apart(-200, false), QStringList());
}

TEST_F(ObjectionsToFamilies, TellWhomTheBdpHasBaptisedBuriedOrMarriedAlready)
{
    Telling told = Telling::of(ActKind::Baptism, actDay);
    EXPECT_EQ(against(told, Role::Child, born(actDay.addYears(-1))), QStringList("ja-baptizado:0"));
    EXPECT_EQ(against(told, Role::Child, born(actDay.addYears(1))), QStringList("ja-baptizado:0"));
    EXPECT_EQ(against(told, Role::Child, died(actDay.addDays(-1))), QStringList("morto-antes:0"));
    EXPECT_EQ(against(told, Role::Child, died(actDay)), QStringList());
    Telling burial = Telling::of(ActKind::Burial, actDay);
    EXPECT_EQ(against(burial, Role::Deceased, died(actDay)), QStringList("ja-sepultado:0"));
    EXPECT_EQ(against(burial, Role::Deceased, born(actDay)), QStringList());
    EXPECT_EQ(against(burial, Role::Deceased, born(actDay.addDays(1))), QStringList("nascido-depois:0"));
    const qint64 he = person("Rui", "m"), she = person("Ana", "f");
    family({he, she}, {{"sfamilia", "2"}});
    EXPECT_EQ(objectionsOf(marriage(he, she).plan()), QStringList());
    run("update familia set datacasam = ?", {actDay});
    EXPECT_EQ(objectionsOf(marriage(he, she).plan()), QStringList("ja-casados"));
}

TEST_F(ObjectionsToFamilies, TellOfAnUnlikelyAgeAtMarriage)
{
    const auto aged = [&](int his, int hers) {
        return objectionsOf(
            marriage(person("Rui", "m", born(actDay.addYears(-his))), person("Ana", "f", born(actDay.addYears(-hers))))
                .plan());
    };
    EXPECT_EQ(aged(18, 16), QStringList());
    EXPECT_EQ(aged(13, 11), (QStringList{"idade-impossivel:0", "idade-impossivel:1"}));
    EXPECT_EQ(aged(14, 12), (QStringList{"casamento-cedo:0", "casamento-cedo:1"}));
    EXPECT_EQ(aged(17, 15), (QStringList{"casamento-cedo:0", "casamento-cedo:1"}));
    EXPECT_EQ(aged(75, 60), QStringList());
    EXPECT_EQ(aged(76, 61), (QStringList{"casamento-tarde:0", "casamento-tarde:1"}));
    Telling told = marriage(person("Rui", "m"), person("Ana", "f"));
    told.tell(1, attribute::age, "15");
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("casamento-cedo:1"));
}

TEST_F(ObjectionsToFamilies, TellOfASpouseWhoLivesStill)
{
    const qint64 he = person("Rui", "m"), other = person("Eva", "f");
    family({he, other}, {{"datacasam", actDay.addYears(-5)}, {"dcasamfixa", true}});
    const qint64 she = person("Ana", "f");
    const auto widowed = [&](const QVariant& death) {
        run("update individuo set dataobito = ?, dobitofixa = 1 where nind = ?", {death, other});
        return objectionsOf(marriage(he, she).plan());
    };
    EXPECT_EQ(widowed({}), QStringList());
    EXPECT_EQ(widowed(actDay), QStringList());
    EXPECT_EQ(widowed(actDay.addDays(1)), QStringList("outro-conjuge-vivo:0"));
    run("update familia set datacasam = ?", {actDay.addYears(1)});
    EXPECT_EQ(widowed(actDay.addYears(2)), QStringList()) << "a later marriage";
}

TEST_F(ObjectionsToFamilies, TellOfAMarriageWithinTheHouse)
{
    const qint64 father = person("Gil", "m"), mother = person("Eva", "f"), origin = family({father, mother});
    const qint64 he = person("Rui", "m", {{"famorig", origin}}), she = person("Ana", "f", {{"famorig", origin}});
    EXPECT_EQ(objectionsOf(marriage(he, she).plan()), QStringList("parentes:1"));
    EXPECT_EQ(objectionsOf(marriage(father, she).plan()), QStringList("parentes:1"));
    EXPECT_EQ(objectionsOf(marriage(he, mother).plan()), QStringList("parentes:1"));
    run("update individuo set famorig = null where nind = ?", {she});
    EXPECT_EQ(objectionsOf(marriage(he, she).plan()), QStringList());
}

TEST_F(ObjectionsToFamilies, TellOfThePersonWhoIsTwoInOneAct)
{
    const qint64 rui = person("Rui", "m"), ana = person("Ana", "f");
    const auto twice = [&](Role first, int firstOwner, Role second, int secondOwner, qint64 who) {
        Telling told = baptism();
        told.isNew(Role::Father, "Gil", 0);
        told.known(first, who, firstOwner);
        told.known(second, who, secondOwner);
        return objectionsOf(told.plan());
    };
    EXPECT_EQ(twice(Role::Godfather, -1, Role::Witness, -1, rui), QStringList("mesma-pessoa:3"));
    EXPECT_EQ(twice(Role::Mother, 0, Role::Godmother, -1, ana), QStringList("mesma-pessoa:3"));
    EXPECT_EQ(twice(Role::Mother, 1, Role::Godmother, -1, ana), QStringList()) << "the grandmother";
    EXPECT_EQ(twice(Role::Celebrant, -1, Role::Godfather, -1, rui), QStringList());
    Telling child = Telling::of(ActKind::Baptism, actDay);
    child.known(Role::Child, rui);
    child.known(Role::Godfather, rui);
    EXPECT_EQ(objectionsOf(child.plan()), QStringList("mesma-pessoa:1"));
    Telling couple = marriage(rui, rui);
    couple.overrule("mesma-pessoa:1");
    couple.overrule("sexo-trocado:1");
    EXPECT_EQ(objectionsOf(couple.plan()), QStringList("mesma-pessoa:1")) << "nobody is both halves of a family";
}

TEST_F(ObjectionsToFamilies, TellWhoWouldDescendFromHimself)
{
    const qint64 old = person("Gil", "m"), oldest = family({old});
    const qint64 son = person("Rui", "m", {{"famorig", oldest}}), his = family({son});
    const qint64 grandson = person("Zé", "m", {{"famorig", his}});
    Telling told = baptism();
    const int godfather = told.known(Role::Godfather, old);
    told.known(Role::Father, grandson, godfather);
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("ascendente:1"));
    told.conclusions.people[2].nind = person("Outro", "m");
    EXPECT_EQ(objectionsOf(told.plan()), QStringList());
}

TEST_F(ObjectionsToFamilies, TellWhoWouldBeChildAndSpouseInOneFamily)
{
    const qint64 he = person("Rui", "m"), she = person("Ana", "f");
    const qint64 theirs = family({he, she});
    Telling told = baptism();
    const int godfather = told.known(Role::Godfather, he);
    told.known(Role::Mother, she, godfather);
    EXPECT_EQ(objectionsOf(told.plan()), QStringList());
    run("update individuo set famorig = ? where nind = ?", {theirs, he});
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("filho-e-conjuge:1"));
}

TEST_F(ObjectionsToFamilies, ObjectsToAParentWhoIsTooYoungByTheAge)
{
    Telling told = Telling::of(ActKind::Baptism, QDate(1702, 2, 14));
    const int child = told.isNew(Role::Child, "Maria");
    const int father = told.isNew(Role::Father, "Rui", child), mother = told.isNew(Role::Mother, "Ana", child);
    told.tell(father, attribute::roughAge, "1");
    told.tell(mother, attribute::age, "8");
    const Plan plan = told.plan();
    EXPECT_EQ(objectionsOf(plan), (QStringList{"pai-novo:1", "mae-nova:2"}));
    EXPECT_TRUE(plan.objections[0].text.contains("tinha 1 ano quando")) << qPrintable(plan.objections[0].text);
    EXPECT_TRUE(plan.objections[1].text.contains("tinha 8 anos quando"));
}

TEST_F(ObjectionsToFamilies, ObjectsToAParentBornWithinTheYearBehindTheBaptism)
{
    const qint64 rui = person("Rui", "m", {{"datanasc", QDate(1702, 6, 1)}, {"DnascFixa", false}});
    Telling told = Telling::of(ActKind::Baptism, QDate(1702, 2, 14));
    told.known(Role::Father, rui, told.isNew(Role::Child, "Maria"));
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("pai-novo:1"));
}

TEST_F(ObjectionsToFamilies, ObjectsToASpouseBornWithinTheYearBehindTheMarriage)
{
    const qint64 rui = person("Rui", "m", {{"datanasc", QDate(1702, 6, 1)}, {"DnascFixa", false}});
    Telling told = Telling::of(ActKind::Marriage, QDate(1702, 2, 14));
    told.known(Role::Groom, rui);
    told.tell(told.isNew(Role::Bride, "Ana"), attribute::roughAge, "8");
    EXPECT_EQ(objectionsOf(told.plan()), (QStringList{"idade-impossivel:0", "idade-impossivel:1"}));
}

// Somebody known was taken for the one half, and the other half was left to be somebody new.
TEST_F(ObjectionsToFamilies, TellOfACoupleThatTheBdpHasAlready)
{
    const qint64 rui = person("Rui Dias", "m"), ana = person("Ana Maria Lopes", "f");
    family({rui, ana});
    const auto withMother = [&](const QString& name) {
        Telling told = baptism();
        told.known(Role::Father, rui, 0);
        told.isNew(Role::Mother, name, 0);
        return objectionsOf(told.plan());
    };
    EXPECT_EQ(withMother("Ana Maria Lopes"), QStringList("mesmo-casal:2"));
    EXPECT_EQ(withMother("Ana"), QStringList("mesmo-casal:2")) << "a name that tells less is no other name";
    EXPECT_EQ(withMother("Ana Pires"), QStringList());
    EXPECT_EQ(withMother("Eva Lopes"), QStringList());
    run("update individuo set dataobito = '1701-01-01', dobitofixa = 1 where nind = ?", {ana});
    EXPECT_EQ(withMother("Ana Maria Lopes"), QStringList()) << "a widower's next wife may have the name of the first";
}

// The name of the dead is typed first, when nothing tells who it is, and the parents behind it.
TEST_F(ObjectionsToFamilies, TellOfAChildThatTheFamilyHasAlready)
{
    const qint64 rui = person("Rui Dias", "m"), ana = person("Ana Maria Lopes", "f");
    const qint64 origin = family({rui, ana});
    const qint64 child = person("Baltasar Dias", "m", born(QDate(1701, 12, 26)));
    run("update individuo set famorig = ? where nind = ?", {origin, child});
    const auto burialOf = [&](const QString& name, const QString& age) {
        Telling told = Telling::of(ActKind::Burial, actDay);
        const int dead = told.isNew(Role::Deceased, name);
        if (!age.isEmpty()) told.tell(dead, attribute::age, age);
        told.known(Role::Father, rui, dead);
        told.known(Role::Mother, ana, dead);
        return objectionsOf(told.plan());
    };
    EXPECT_EQ(burialOf("Baltasar", "2 meses"), QStringList("mesmo-filho:0"));
    EXPECT_EQ(burialOf("Baltasar", ""), QStringList("mesmo-filho:0"));
    EXPECT_EQ(burialOf("Baltasar", "7 anos"), QStringList()) << "an elder brother of the same name";
    EXPECT_EQ(burialOf("Gaspar", "2 meses"), QStringList());
    run("update individuo set dataobito = '1702-01-01', dobitofixa = 1 where nind = ?", {child});
    EXPECT_EQ(burialOf("Baltasar", "2 meses"), QStringList()) << "he died before";
}

TEST_F(ObjectionsToFamilies, TellOfTheSameBaptismAndOfNoYoungerSisterOfTheName)
{
    const qint64 rui = person("Rui Dias", "m"), ana = person("Ana Maria Lopes", "f");
    const qint64 origin = family({rui, ana});
    const qint64 child = person("Maria", "f");
    run("update individuo set famorig = ? where nind = ?", {origin, child});
    const auto whereSheWasBorn = [&](const QDate& birth) {
        run("update individuo set datanasc = ?, DnascFixa = 1 where nind = ?", {birth, child});
        Telling told = baptism();
        told.known(Role::Father, rui, 0);
        told.known(Role::Mother, ana, 0);
        return objectionsOf(told.plan());
    };
    EXPECT_EQ(whereSheWasBorn(actDay.addDays(-2)), QStringList("mesmo-filho:0"));
    EXPECT_EQ(whereSheWasBorn(actDay.addYears(-2)), QStringList());
}

TEST_F(ObjectionsToFamilies, TellOfSpousesOfOneSex)
{
    Telling told = Telling::of(ActKind::Burial, actDay);
    const int dead = told.known(Role::Deceased, person("Rui", "m"));
    told.act.people[told.known(Role::Spouse, person("Gil", "m"), dead)].toldSex = Sex::Male;
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("mesmo-sexo:1"));
}
