// Objections: for whom a reason against one was given, and what speaks against couples.
#include "store/modBD.h"
#include "study/tellings.h"

using namespace study;

namespace {

class ObjectionsToCouples : public SmallParish
{
protected:
    static QVariant nullable(qint64 number) { return number == 0 ? QVariant() : number; }
    static qint64 born(const QString& name, const QString& sex, qint64 origin)
    {
        return person(name, sex, {{"famorig", nullable(origin)}});
    }
};

using AnOverruling = ObjectionsToCouples;

} // namespace

TEST_F(AnOverruling, HoldsForThePersonTheNumberAndTheDateItWasGivenFor)
{
    const auto dead = [](const QString& name) {
        return person(name, "m", {{"dataobito", QDate(1690, 1, 1)}, {"dobitofixa", true}});
    };
    const qint64 rui = dead("Rui"), gil = dead("Gil");
    Telling told = Telling::of(ActKind::Baptism, actDay);
    told.isNew(Role::Child, "Maria");
    told.known(Role::Godfather, rui);
    told.overrule("morto-antes:1");
    EXPECT_EQ(objectionsOf(told.plan()), QStringList());
    told.isNew(Role::Witness, "Simão");
    EXPECT_EQ(objectionsOf(told.plan()), QStringList()) << "what is told of others is no matter";
    told.conclusions.people[1].nind = gil;
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("morto-antes:1"));
    told.conclusions.people[1].nind = rui;
    EXPECT_EQ(objectionsOf(told.plan()), QStringList());
    told.act.date.day = 15;
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("morto-antes:1"));
}

TEST_F(AnOverruling, HoldsForOneNumberOfAnAct)
{
    Telling told = Telling::of(ActKind::Baptism, actDay);
    told.isNew(Role::Child, "Maria");
    storeAct(cnBDP, told.act, told.conclusions);
    told.act.number = "8";
    told.act.folio = "4";
    storeAct(cnBDP, told.act, told.conclusions);
    told.overrule("acto-repetido");
    EXPECT_EQ(objectionsOf(told.plan()), QStringList());
    told.act.number = "7";
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("acto-repetido"));
}

TEST_F(AnOverruling, HoldsWhateverNumberSomebodyNewWillGet)
{
    Telling told = Telling::of(ActKind::Baptism, actDay);
    const int child = told.isNew(Role::Child, "Maria");
    told.tell(told.isNew(Role::Mother, "Ana", child), attribute::age, "8");
    told.overrule("mae-nova:1");
    person("Outro", "m");
    EXPECT_EQ(objectionsOf(told.plan()), QStringList());
}

TEST_F(ObjectionsToCouples, TellKinAmongTheParentsOfAChild)
{
    const qint64 old = person("Gil", "m"), theirs = family({old, person("Eva", "f")});
    const qint64 rui = born("Rui", "m", theirs), ana = born("Ana", "f", theirs);
    Telling told = Telling::of(ActKind::Baptism, actDay);
    const int child = told.isNew(Role::Child, "Maria");
    const int father = told.known(Role::Father, rui, child), mother = told.known(Role::Mother, ana, child);
    EXPECT_EQ(objectionsOf(told.plan()), QStringList(QString("parentes:%1").arg(mother)));
    told.conclusions.people[father].nind = old;
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("parentes:2")) << "who is her father";
    told.conclusions.people[father].nind = person("Zé", "m");
    EXPECT_EQ(objectionsOf(told.plan()), QStringList());
    Telling burial = Telling::of(ActKind::Burial, actDay);
    burial.known(Role::Spouse, ana, burial.known(Role::Deceased, rui));
    EXPECT_EQ(objectionsOf(burial.plan()), QStringList("parentes:1"));
    family({rui, ana});
    EXPECT_EQ(objectionsOf(burial.plan()), QStringList()) << "the BDP has them so";
}

TEST_F(ObjectionsToCouples, TellTheCoupleOfTheMarriageAlone)
{
    const qint64 gil = person("Gil", "m"), eva = person("Eva", "f");
    family({gil, eva}, {{"datacasam", QDate(1680, 1, 1)}, {"dcasamfixa", true}});
    Telling told = Telling::of(ActKind::Marriage, actDay);
    const int groom = told.kept(Role::Groom, "Rui");
    told.isNew(Role::Bride, "Ana");
    told.known(Role::Father, gil, groom);
    told.known(Role::Mother, eva, groom);
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("sem-sujeito:0")) << "not that his parents are married";
}

TEST_F(ObjectionsToCouples, TellAChildOfTheMotherByAnotherFather)
{
    const qint64 ana = person("Ana", "f"), first = family({person("Gil", "m"), ana});
    person("Zé", "m", {{"famorig", first}, {"datanasc", QDate(1701, 10, 1)}, {"DnascFixa", true}});
    Telling told = Telling::of(ActKind::Baptism, actDay);
    const int child = told.isNew(Role::Child, "Maria");
    told.isNew(Role::Father, "Rui", child);
    told.known(Role::Mother, ana, child);
    const Plan plan = told.plan();
    EXPECT_EQ(objectionsOf(plan), QStringList("irmaos-proximos:0"));
    EXPECT_TRUE(plan.objections.first().text.startsWith("Da mesma mãe (família 1), nº 3 Zé"));
    told.act.date.year = 1704;
    EXPECT_EQ(objectionsOf(told.plan()), QStringList());
}

TEST_F(ObjectionsToCouples, TellASecondFatherOfOnePerson)
{
    Telling told = Telling::of(ActKind::Baptism, actDay);
    const int child = told.isNew(Role::Child, "Maria");
    told.isNew(Role::Father, "Rui", child);
    const int second = told.isNew(Role::Father, "Gil", child);
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("repetido:2"));
    told.conclusions.people[second].kind = Identity::Kind::Kept;
    EXPECT_EQ(objectionsOf(told.plan()), QStringList());
    Telling marriage = Telling::of(ActKind::Marriage, actDay);
    const int groom = marriage.isNew(Role::Groom, "Rui");
    marriage.isNew(Role::Bride, "Ana");
    for (const char* wife : {"Eva", "Inês"})
        marriage.act.people[marriage.isNew(Role::EarlierSpouse, wife, groom)].ordinal = 1;
    EXPECT_EQ(objectionsOf(marriage.plan()), QStringList("repetido:3"));
    marriage.act.people[3].ordinal = 2;
    EXPECT_EQ(objectionsOf(marriage.plan()), QStringList());
}
