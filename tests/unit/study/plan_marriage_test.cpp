// What a marriage writes.
#include "study/tellings.h"

using namespace study;

namespace {

class PlanOfAMarriage : public SmallParish
{
protected:
    void couple(const QString& his = "Rui Dias", const QString& hers = "Ana Lopes")
    {
        groom = told.isNew(Role::Groom, his);
        bride = told.isNew(Role::Bride, hers);
    }

    Telling told = Telling::of(ActKind::Marriage, actDay);
    int groom = -1, bride = -1;
};

} // namespace

TEST_F(PlanOfAMarriage, MakesTheFamilyOfTheCouple)
{
    couple();
    told.tell(groom, attribute::civilState, "solteiro");
    told.tell(groom, attribute::age, "24");
    told.tell(bride, attribute::civilState, "s");
    told.act.notes = "dispensados no 4º grau";
    const Plan plan = told.plan();
    EXPECT_EQ(objectionsOf(plan), QStringList());
    EXPECT_EQ(changeOf(plan, "familia", 1)->values, (RowChange::Columns{{"datacasam", actDay},
                                                                        {"dcasamfixa", true},
                                                                        {"inicioobs", actDay},
                                                                        {"sfamilia", "1"},
                                                                        {"localcasam", "030301"},
                                                                        {"tipolocalcasam", "F"},
                                                                        {"obs", "dispensados no 4º grau"},
                                                                        {"tipocasal", 4.0}}));
    const QList<RowChange> members = changesOf(plan, "familias");
    ASSERT_EQ(members.size(), 2);
    EXPECT_EQ(members[0].key, (RowChange::Columns{{"nfamilia", 1.0}, {"nind", 1.0}}));
    EXPECT_EQ(members[0].values, (RowChange::Columns{{"idade", 24.0}, {"estadocivil", 1}, {"numcasam", 1.0}}));
    EXPECT_EQ(members[1].values, (RowChange::Columns{{"estadocivil", 1}, {"numcasam", 1.0}}));
    const QString ofRui = "Na ficha de nº 1 Rui Dias: idade 24; estado civil Solteiro; número de casamento 1.";
    EXPECT_EQ(plan.sentences,
              (QStringList{"Casamento de Rui Dias e Ana Lopes (família 1) em 14/02/1702.",
                           "Noivo: nº 1 Rui Dias, nova ficha.", "Noiva: nº 2 Ana Lopes, nova ficha.",
                           "Nova família 1: Rui Dias e Ana Lopes (legítima).",
                           "Na ficha da família 1: casamento em Santa Maria; notas.", ofRui,
                           "Na ficha de nº 2 Ana Lopes: estado civil Solteiro; número de casamento 1."}));
}

TEST_F(PlanOfAMarriage, SaysNothingOfABrideWhoIsMissing)
{
    groom = told.isNew(Role::Groom, "Rui Dias");
    told.act.people << ActPerson{.role = Role::Bride};
    told.conclusions.people << Identity{.kind = Identity::Kind::Kept};
    const Plan plan = told.plan();
    ASSERT_EQ(plan.objections.size(), 1);
    EXPECT_EQ(plan.objections.first().person, 1);
    EXPECT_TRUE(plan.sentences.filter("Noiva").isEmpty()) << qPrintable(plan.sentences.join('\n'));
}

TEST_F(PlanOfAMarriage, DatesTheFamilyThatWasPresumedBefore)
{
    const qint64 rui = person("Rui", "m"), ana = person("Ana", "f");
    const qint64 theirs = family({rui, ana}, {{"sfamilia", "2"}});
    told.known(Role::Groom, rui);
    told.known(Role::Bride, ana);
    const Plan plan = told.plan();
    const RowChange change{.table = "familia",
                           .key = {{"nfamilia", double(theirs)}},
                           .values = {{"datacasam", actDay},
                                      {"dcasamfixa", true},
                                      {"inicioobs", actDay},
                                      {"sfamilia", "1"},
                                      {"localcasam", "030301"},
                                      {"tipolocalcasam", "F"},
                                      {"tipocasal", 4.0}},
                           .before = {{"datacasam", QVariant()},
                                      {"dcasamfixa", false},
                                      {"inicioobs", QVariant()},
                                      {"sfamilia", "2"},
                                      {"localcasam", QVariant()},
                                      {"tipolocalcasam", QVariant()},
                                      {"tipocasal", 7.0}}};
    EXPECT_EQ(plan.rows, QList{change});
}

TEST_F(PlanOfAMarriage, MakesAChildBornBeforeLegitimate)
{
    const qint64 rui = person("Rui", "m"), ana = person("Ana", "f");
    const qint64 theirs = family({rui, ana}, {{"sfamilia", "5"}});
    person("Zé", "m", {{"famorig", theirs}, {"datanasc", actDay}});
    told.known(Role::Groom, rui);
    told.known(Role::Bride, ana);
    EXPECT_EQ(setTo(told.plan(), "familia", theirs, "sfamilia"), "1") << "born on the day itself";
    run("update individuo set datanasc = ? where nome = 'Zé'", {actDay.addDays(-1)});
    EXPECT_EQ(setTo(told.plan(), "familia", theirs, "sfamilia"), "9");
    run("update familia set sfamilia = '10'");
    EXPECT_TRUE(setTo(told.plan(), "familia", theirs, "sfamilia").isNull()) << "chosen for other reasons";
    EXPECT_EQ(told.plan().leftOut, QStringList("A situação da família 1 fica como está na BDP."));
}

TEST_F(PlanOfAMarriage, CountsTheMarriagesOfAWidower)
{
    couple();
    told.tell(groom, attribute::civilState, "viúvo de Inês");
    EXPECT_TRUE(setTo(told.plan(), "familias", 1, "numcasam").isNull()) << "how many there were isn't told";
    const int first = told.isNew(Role::EarlierSpouse, "Inês", groom);
    const Plan plan = told.plan();
    EXPECT_EQ(changeOf(plan, "familias", 1)->values, (RowChange::Columns{{"estadocivil", 3}, {"numcasam", 2.0}}));
    EXPECT_EQ(setTo(plan, "familia", 2, "sfamilia"), "2");
    told.act.people[first].ordinal = 2;
    EXPECT_EQ(setTo(told.plan(), "familias", 1, "numcasam"), 3.0);
}

TEST_F(PlanOfAMarriage, CountsTheEarlierMarriagesThatTheBdpKnows)
{
    const qint64 rui = person("Rui", "m");
    family({rui, person("Inês", "f")}, {{"datacasam", actDay.addYears(-9)}});
    family({rui, person("Eva", "f")}, {{"datacasam", actDay.addYears(3)}});
    family({rui, person("Lia", "f")}, {{"sfamilia", "5"}});
    family({rui}, {{"sfamilia", "4"}});
    told.known(Role::Groom, rui);
    told.isNew(Role::Bride, "Ana");
    const Plan plan = told.plan();
    const QList<RowChange> members = changesOf(plan, "familias");
    ASSERT_EQ(members.size(), 2);
    EXPECT_EQ(members[0].values, (RowChange::Columns{{"numcasam", 2.0}}));
    EXPECT_EQ(members[1].values, RowChange::Columns());
}

TEST_F(PlanOfAMarriage, TakesOnlyAgesThatTheCardTakes)
{
    couple();
    struct Case
    {
        const char* text;
        QVariant age;
    };
    for (const auto& [text, age] :
         {Case{"12", {}}, {"13", 13.0}, {"120", 120.0}, {"121", {}}, {"maior", {}}, {"25 para 30", 25.0}})
    {
        told.act.people[groom].attributes.clear();
        told.tell(groom, attribute::age, text);
        told.overrule("idade-impossivel:0");
        told.overrule("casamento-cedo:0");
        told.overrule("casamento-tarde:0");
        const Plan plan = told.plan();
        EXPECT_EQ(setTo(plan, "familias", 1, "idade"), age) << text;
        EXPECT_EQ(plan.leftOut.isEmpty(), !age.isNull()) << text;
    }
}

TEST_F(PlanOfAMarriage, TakesThePlaceOfTheCeremonyWhereItIsKnown)
{
    couple();
    told.act.place.value = "capela da Ribeira";
    EXPECT_TRUE(setTo(told.plan(), "familia", 1, "localcasam").isNull());
    told.act.place.value = "nesta igreja matriz";
    EXPECT_EQ(setTo(told.plan(), "familia", 1, "localcasam"), "030301");
    told.act.place.value = "capela da Ribeira";
    told.conclusions.places["capela da Ribeira"] = {.code = "03030102", .level = 'L'};
    const Plan plan = told.plan();
    EXPECT_EQ(setTo(plan, "familia", 1, "localcasam"), "03030102");
    EXPECT_EQ(setTo(plan, "familia", 1, "tipolocalcasam"), "L");
    EXPECT_EQ(plan.leftOut, QStringList());
}

TEST_F(PlanOfAMarriage, CountsAMarriageWithoutADateOnlyWhereItWasBefore)
{
    const qint64 rui = person("Rui", "m"), eva = person("Eva", "f");
    const qint64 other = family({rui, eva}, {{"sfamilia", "2"}});
    const qint64 child = person("Gil", "m", {{"famorig", other}, {"datanasc", QDate(1715, 1, 1)}, {"DnascFixa", true}});
    told.known(Role::Groom, rui);
    told.isNew(Role::Bride, "Ana");
    const auto count = [&] {
        QVariant found;
        for (const RowChange& row : changesOf(told.plan(), "familias"))
            for (const auto& [column, value] : row.values)
                if (column == "numcasam") found = value;
        return found;
    };
    EXPECT_TRUE(count().isNull());
    run("update individuo set datanasc = '1700-01-01' where nind = ?", {child});
    EXPECT_EQ(count(), 2.0);
}
