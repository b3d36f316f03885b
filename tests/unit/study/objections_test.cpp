// What speaks against an act: each rule with a case that fires and a near miss.
#include "study/objected.h"

#include <functional>

using namespace study;
using Objections = Objected;

TEST(DatesOfTwoEvents, AreComparedByWhatIsKnownOfThem)
{
    const DayKnown exact{actDay, true}, later{actDay.addDays(1), true}, none;
    EXPECT_TRUE(isBefore(exact, later));
    EXPECT_FALSE(isBefore(exact, exact));
    EXPECT_FALSE(isBefore(exact, later, 1));
    EXPECT_FALSE(isBefore(none, later));
    EXPECT_FALSE(isBefore(exact, none));
    const DayKnown about{actDay, false};
    EXPECT_FALSE(isBefore(about, {actDay.addYears(1), true}));
    EXPECT_TRUE(isBefore(about, {actDay.addYears(1).addDays(1), true}));
    const DayKnown year{QDate(1700, 1, 1), false};
    EXPECT_FALSE(isBefore(year, {QDate(1710, 1, 1), false}));
    EXPECT_TRUE(isBefore(year, {QDate(1711, 1, 1), false}));
}

TEST(AgeAtADay, IsCompletedYears)
{
    EXPECT_EQ(ageAt({QDate(1690, 2, 14), true}, {actDay, true})->years, 12);
    EXPECT_EQ(ageAt({QDate(1690, 2, 15), true}, {actDay, true})->years, 11);
    EXPECT_EQ(ageAt({QDate(1703, 1, 1), true}, {actDay, true})->years, -1);
    EXPECT_EQ(ageAt({QDate(1690, 2, 15), false}, {actDay, true})->slack, 1);
    EXPECT_FALSE(ageAt({}, {actDay, true}));
}

TEST_F(Objections, AreHardWhereNothingCanBeWritten)
{
    const auto hard = [](const Telling& told) {
        Telling forced = told;
        for (const Objection& objection : told.plan().objections)
            forced.overrule(objection.id);
        return objectionsOf(forced.plan());
    };
    Telling told = baptism();
    EXPECT_EQ(hard(told), QStringList());
    told.act.date = {};
    EXPECT_EQ(hard(told), QStringList("sem-data"));
    told.act.date = {.month = 2, .day = 14};
    EXPECT_EQ(hard(told), QStringList("sem-data"));
    told.act.date = {.year = 1702, .month = 9, .day = 31};
    EXPECT_EQ(hard(told), QStringList("data-impossivel"));
    told.act.date = {.year = 1702, .month = 9, .day = 30};
    EXPECT_EQ(hard(told), QStringList());
    told.open(Role::Godfather, "Rui");
    EXPECT_EQ(hard(told), QStringList("sem-decisao:1"));
    told.conclusions.people[1] = {.kind = Identity::Kind::Known, .nind = 99};
    EXPECT_EQ(hard(told), QStringList("nao-existe:1"));
    told.conclusions.people[1] = {.kind = Identity::Kind::New};
    EXPECT_EQ(hard(told), QStringList());
    told.act.people[1].name.value = " ";
    EXPECT_EQ(hard(told), QStringList("sem-nome:1"));
    told.act.people[1].name.value = QString(QChar(0));
    EXPECT_EQ(hard(told), QStringList("sem-nome:1"));
    told.act.people[1].name.value = QString(256, 'x');
    EXPECT_EQ(hard(told), QStringList("nome-longo:1"));
    told.act.people[1].name.value = QString(255, 'x');
    EXPECT_EQ(hard(told), QStringList());
    told.conclusions.people[0].kind = Identity::Kind::Kept; // beside a new godfather
    EXPECT_EQ(hard(told), QStringList("sem-sujeito:0"));
    told.act.kind = ActKind::Burial;
    EXPECT_EQ(hard(told), QStringList("sem-sujeito"));
}

TEST_F(Objections, LetAnActBeKeptWithoutCards)
{
    const auto stored = cardRows();
    Telling told = Telling::of(ActKind::Baptism, actDay);
    told.act.date = {.year = 1702, .month = 9, .day = 31, .text = "31 de Setembro"};
    told.kept(Role::Child, "");
    told.kept(Role::Father, "José", 0);
    told.kept(Role::Celebrant, "Padre Gil");
    told.tell(1, attribute::residence, "Casal");
    told.conclusions.places.insert("Casal", {.name = "Casal"});
    const QList<Objection> objections = told.plan().objections;
    EXPECT_EQ(objectionsOf(told.plan()), (QStringList{"data-impossivel", "sem-sujeito:0"}));
    for (const Objection& objection : objections) {
        EXPECT_FALSE(objection.hard);
        EXPECT_TRUE(objection.text.endsWith("Guarda-se só o acto, e nada se escreve nas fichas."))
            << qPrintable(objection.text);
        told.overrule(objection.id, "só assim se guarda");
    }
    EXPECT_EQ(told.plan().rows, QList<RowChange>());
    EXPECT_TRUE(told.plan().sentences.contains("Guarda-se só o acto: nada se escreve nas fichas."));
    const Stored act = storeAct(cnBDP, told.act, told.conclusions);
    EXPECT_EQ(cardRows(), stored);
    EXPECT_EQ(readAct(cnBDP, act.act)->act, told.act);
    EXPECT_EQ(readAct(cnBDP, act.act)->conclusions, told.conclusions);
    EXPECT_EQ(undoAct(cnBDP, act.act), "");

    told.act.date = {};
    EXPECT_EQ(objectionsOf(told.plan()), (QStringList{"sem-data", "sem-sujeito:0"})) << "not for another date";
    told.overrule("sem-data");
    told.overrule("sem-sujeito:0");
    EXPECT_EQ(objectionsOf(told.plan()), QStringList());
    told.conclusions.people[1].kind = Identity::Kind::New;
    EXPECT_EQ(objectionsOf(told.plan()), (QStringList{"sem-data", "sem-sujeito:0"})); // that of the father has a card
    EXPECT_TRUE(told.plan().objections.first().hard);
}

TEST_F(Objections, OfferTheActAloneWhereANewCardHasNoName)
{
    Telling told = Telling::of(ActKind::Burial, actDay);
    told.isNew(Role::Deceased, "");
    ASSERT_EQ(objectionsOf(told.plan()), QStringList("sem-nome:0"));
    EXPECT_TRUE(told.plan().objections.first().text.contains("guarda-se o acto sem fichas"));
    told.conclusions.people[0].kind = Identity::Kind::Kept;
    told.overrule("sem-sujeito:0", "inocente sem nome");
    EXPECT_EQ(objectionsOf(told.plan()), QStringList());
}

TEST_F(Objections, AreOverruledByAReasonAlone)
{
    Telling told = baptism();
    told.act.date = {.year = 1300};
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("ano-improvavel"));
    told.overrule("ano-improvavel", "  ");
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("ano-improvavel"));
    told.overrule("ano-improvavel", "está assim");
    EXPECT_EQ(objectionsOf(told.plan()), QStringList());
    told.act.date = {.year = 1400};
    told.conclusions.overruled.clear();
    EXPECT_EQ(objectionsOf(told.plan()), QStringList());
    told.act.date = partialDate(QDate::currentDate());
    EXPECT_EQ(objectionsOf(told.plan()), QStringList());
    told.act.date = partialDate(QDate::currentDate().addDays(2));
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("data-futura"));
}

TEST_F(Objections, TellOfAnActThatIsThereAlready)
{
    Telling told = baptism();
    storeAct(cnBDP, told.act, told.conclusions);
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("acto-repetido"));
    told.act.number = " 07";
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("acto-repetido"));
    told.act.number = "8";
    EXPECT_EQ(objectionsOf(told.plan()), QStringList());
    told.act.number = "";
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("acto-repetido")) << "of that day, and of the same name";
    EXPECT_TRUE(told.plan().objections.first().text.startsWith("Um acto desse dia"));
    for (const auto& differs : {std::function<void(Act&)>([](Act& act) { act.folio = "4"; }),
                                std::function<void(Act&)>([](Act& act) { act.book = "2"; }),
                                std::function<void(Act&)>([](Act& act) { act.date.day = 15; }),
                                std::function<void(Act&)>([](Act& act) { act.date.day = 0; }),
                                std::function<void(Act&)>([](Act& act) { act.people[0].name.value = "Ana"; }),
                                std::function<void(Act&)>([](Act& act) { act.kind = ActKind::Burial; })})
    {
        Telling other = told;
        differs(other.act);
        EXPECT_FALSE(objectionsOf(other.plan()).contains("acto-repetido"));
    }
    told.act.people[0].name.value = "MARIA";
    told.act.folio = "";
    EXPECT_EQ(objectionsOf(told.plan()), QStringList("acto-repetido"));
}

TEST_F(Objections, TellWhoIsDeadBeforeTheAct)
{
    for (const Role role : {Role::Godfather, Role::Godmother, Role::Witness, Role::Celebrant}) {
        EXPECT_EQ(against(baptism(), role, died(actDay.addDays(-1))), QStringList("morto-antes:1")) << int(role);
        EXPECT_EQ(against(baptism(), role, died(actDay)), QStringList()) << int(role);
        EXPECT_EQ(against(baptism(), role, died(actDay.addDays(-300), false)), QStringList()) << int(role);
    }
    EXPECT_EQ(against(baptism(), Role::Father, died(actDay.addDays(-301)), 0), QStringList("morto-antes:1"));
    EXPECT_EQ(against(baptism(), Role::Father, died(actDay.addDays(-300)), 0), QStringList());
    EXPECT_EQ(against(baptism(), Role::Mother, died(actDay.addDays(-9)), 0), QStringList("morto-antes:1"));
    EXPECT_EQ(against(baptism(), Role::Mother, died(actDay.addDays(-8)), 0), QStringList());
    Telling told = baptism();
    const int father = told.isNew(Role::Father, "Rui", 0);
    EXPECT_EQ(against(told, Role::Father, died(actDay.addYears(-20)), father), QStringList()) << "a grandfather";
    EXPECT_EQ(against(baptism(), Role::Mentioned, died(actDay.addYears(-20))), QStringList());
}

TEST_F(Objections, TellWhoWasNotBornYetOrTooYoung)
{
    EXPECT_EQ(against(baptism(), Role::Mentioned, born(actDay.addDays(1))), QStringList("nascido-depois:1"));
    EXPECT_EQ(against(baptism(), Role::Mentioned, born(actDay)), QStringList());
    EXPECT_EQ(against(baptism(), Role::Godfather, born(actDay.addYears(-7).addDays(1))), QStringList("novo-de-mais:1"));
    EXPECT_EQ(against(baptism(), Role::Godfather, born(actDay.addYears(-7))), QStringList());
    EXPECT_EQ(against(baptism(), Role::Witness, born(actDay.addYears(-14).addDays(1))), QStringList("novo-de-mais:1"));
    EXPECT_EQ(against(baptism(), Role::Witness, born(actDay.addYears(-14))), QStringList());
    EXPECT_EQ(against(baptism(), Role::Witness, born(actDay.addYears(-13), false)), QStringList());
}

TEST_F(Objections, TellWhoIsOutOfTheWindowOfObservation)
{
    const auto starts = [](int year) { return QMap<QString, QVariant>{{"inicioobs", QDate(year, 1, 1)}}; };
    const auto ends = [](int year) { return QMap<QString, QVariant>{{"fimobs", QDate(year, 1, 1)}}; };
    EXPECT_EQ(against(baptism(), Role::Celebrant, born(QDate(1601, 5, 1))), QStringList("fora-de-tempo:1"));
    EXPECT_EQ(against(baptism(), Role::Celebrant, born(QDate(1602, 5, 1))), QStringList());
    EXPECT_EQ(against(baptism(), Role::Godfather, starts(1602)), QStringList("fora-de-tempo:1"));
    EXPECT_EQ(against(baptism(), Role::Godfather, starts(1603)), QStringList());
    EXPECT_EQ(against(baptism(), Role::Godfather, died(QDate(1793, 1, 1))), QStringList("fora-de-tempo:1"));
    EXPECT_EQ(against(baptism(), Role::Godfather, died(QDate(1792, 1, 1))), QStringList());
    EXPECT_EQ(against(baptism(), Role::Godfather, ends(1792)), QStringList("fora-de-tempo:1"));
    EXPECT_EQ(against(baptism(), Role::Godfather, ends(1791)), QStringList());
    EXPECT_EQ(against(baptism(), Role::Mentioned, starts(1602)), QStringList());
}

TEST_F(Objections, TellWhoseSexIsAnother)
{
    EXPECT_EQ(against(baptism(), Role::Godfather, {{"sexo", "f"}}), QStringList("sexo-trocado:1"));
    EXPECT_EQ(against(baptism(), Role::Godfather, {{"sexo", "d"}}), QStringList());
    EXPECT_EQ(against(baptism(), Role::Witness, {{"sexo", "f"}}), QStringList());
    EXPECT_EQ(objectionsOf(marriage(person("Rui", "m"), person("Zé", "m")).plan()), QStringList("sexo-trocado:1"));
}
