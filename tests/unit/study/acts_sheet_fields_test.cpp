// The fields of a sheet, where its keys lead, and what the act before lets expect.
#include "study/acts/sheet.h"
#include "study/names/names.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <random>

using namespace study;

namespace {

ActRecord sixth()
{
    ActRecord record;
    Sheet sheet = newSheet(ActKind::Baptism, {});
    setText(sheet, {.field = Field::Date}, "3/2/1702");
    setText(sheet, {.field = Field::Book}, "3");
    setText(sheet, {.field = Field::Folio}, "12v");
    setText(sheet, {.field = Field::Number}, "6");
    setText(sheet, {.field = Field::Place}, "Igreja");
    setText(sheet, {0, Field::Name}, "José");
    setText(sheet, {1, Field::Name}, "António Dias");
    setText(sheet, {3, Field::Residence}, "Outeiro");
    setText(sheet, {5, Field::Name}, "Padre Manuel da Silva");
    sheet.conclusions.people[5] = {.kind = Identity::Kind::New};
    sheet.conclusions.places = {{"Igreja", {.code = "01010101"}}};
    record.act = sheet.act;
    record.conclusions = sheet.conclusions;
    record.people = {1, 2, 3, 4, 5, 6};
    return record;
}

QString placeOf(const Spot& spot)
{
    return QString::number(spot.person) + ':' + QString::number(int(spot.field));
}

TEST(TheNextNumber, FollowsTheOneBefore)
{
    EXPECT_EQ(nextNumber("7"), "8");
    EXPECT_EQ(nextNumber("09"), "10");
    EXPECT_EQ(nextNumber("007"), "008");
    EXPECT_EQ(nextNumber("7A"), "8");
    EXPECT_EQ(nextNumber("s/n"), "");
    EXPECT_EQ(nextNumber(""), "");
    EXPECT_EQ(nextNumber("999999999"), "1000000000");
    EXPECT_EQ(nextNumber("99999999999999999999"), "1000000000");
}

TEST(ADateBehindAnother, NeedsOnlyWhatIsNew)
{
    const PartialDate before{.year = 1702, .month = 2, .day = 3};
    const auto after = [&](const char* typed) { return shown(readDateAfter(typed, before)); };
    EXPECT_EQ(after("14"), "14/02/1702");
    EXPECT_EQ(after(" 14 "), "14/02/1702");
    EXPECT_EQ(after("14/3"), "14/03/1702");
    EXPECT_EQ(after("14-3"), "14/03/1702");
    EXPECT_EQ(after("?/3"), "03/1702");
    EXPECT_EQ(after("14/3/1703"), "14/03/1703");
    EXPECT_EQ(after("3/1703"), "03/1703");
    EXPECT_EQ(after("1703"), "1703");
    EXPECT_EQ(after("c. 1702"), "cerca de 1702");
    EXPECT_EQ(after("dia de São João"), "dia de São João");
    EXPECT_EQ(after(""), "");
}

TEST(ADateWithoutAnotherBefore, IsNoYearWhereOnlyADayWasTyped)
{
    EXPECT_EQ(readDateAfter("14", {}).year, 0);
    EXPECT_EQ(readDateAfter("14", {}).day, 14);
    EXPECT_EQ(readDateAfter("14/2", {}).month, 2);
}

TEST(ANewSheet, IsProposedFromTheActBefore)
{
    const Sheet sheet = newSheet(ActKind::Baptism, sixth());
    EXPECT_TRUE(sheet.act.date.isEmpty());
    EXPECT_EQ(sheet.act.book, "3");
    EXPECT_EQ(sheet.act.folio, "12v");
    EXPECT_EQ(sheet.act.number, "7");
    EXPECT_EQ(sheet.act.place.value, "Igreja");
    EXPECT_EQ(sheet.conclusions.places["Igreja"].code, "01010101");
    const int celebrant = celebrantOf(sheet.act);
    EXPECT_EQ(sheet.act.people[celebrant].standardName, "Manuel da Silva");
    EXPECT_EQ(sheet.conclusions.people[celebrant].kind, Identity::Kind::Known);
    EXPECT_EQ(sheet.conclusions.people[celebrant].nind, 6);
    EXPECT_EQ(sheet.act.people[0], newSheet(ActKind::Baptism, {}).act.people[0]);
}

TEST(ANewSheet, OfAnotherKindTakesNeitherBookNorNumber)
{
    const Sheet sheet = newSheet(ActKind::Burial, sixth());
    EXPECT_EQ(sheet.act.book + sheet.act.folio + sheet.act.number, "");
    EXPECT_EQ(sheet.act.place.value, "Igreja");
    EXPECT_EQ(sheet.conclusions.people[celebrantOf(sheet.act)].nind, 6);
}

TEST(AField, GivesBackWhatWasTyped)
{
    std::mt19937 dice(21);
    const QStringList odd{"Maria d'Além", "\"aspas\"", "Ana 👶", "a/b;c", QString(10000, 'x'), "Zé?"};
    Sheet sheet = newSheet(ActKind::Burial, {});
    QList<Spot> spots;
    for (const Field field : headFields() + factFields(ActKind::Burial))
        if (field != Field::Date) spots << Spot{.field = field};
    for (const Field field : fieldsOf(sheet.act, 0))
        if (field != Field::Sex && field != Field::Kinship) spots << Spot{0, field};
    for (int round = 0; round < 200; ++round) {
        const Spot spot = spots[int(dice() % spots.size())];
        const QString& typed = odd[int(dice() % odd.size())];
        setText(sheet, spot, typed);
        ASSERT_EQ(text(sheet, spot), typed) << qPrintable(placeOf(spot));
        setText(sheet, spot, "");
        ASSERT_EQ(text(sheet, spot), "");
    }
}

TEST(AField, ThatIsEmptiedLeavesNothingBehind)
{
    const Sheet untouched = newSheet(ActKind::Burial, {});
    Sheet sheet = untouched;
    for (const Field field : factFields(ActKind::Burial)) {
        setText(sheet, {.field = field}, "x");
        setText(sheet, {.field = field}, " ");
    }
    for (const Field field : fieldsOf(sheet.act, 0)) {
        setText(sheet, {0, field}, "m");
        setText(sheet, {0, field}, "");
    }
    EXPECT_EQ(sheet, untouched);
}

TEST(AField, KeepsWhatATranscriptionToldBesideIt)
{
    Sheet sheet = newSheet(ActKind::Baptism, {});
    sheet.act.people[0].attributes = {{.type = "idade", .told = {.value = "1 dia", .source = "hum dia"}},
                                      {.type = "idade", .told = {.value = "2"}}};
    EXPECT_EQ(text(sheet, {0, Field::Age}), "1 dia");
    setText(sheet, {0, Field::Age}, "2 dias");
    EXPECT_EQ(sheet.act.people[0].attributes[0].told.source, "hum dia");
    EXPECT_EQ(sheet.act.people[0].attributes.size(), 2);
}

TEST(AName, IsSpelledAsTodayUnlessTheUserHasSaidOtherwise)
{
    Sheet sheet = newSheet(ActKind::Baptism, {});
    setText(sheet, {1, Field::Name}, "joam gliz");
    EXPECT_EQ(text(sheet, {1, Field::StandardName}), standardName("joam gliz"));
    setText(sheet, {1, Field::StandardName}, "João Gomes");
    setText(sheet, {1, Field::Name}, "joam glz");
    EXPECT_EQ(text(sheet, {1, Field::StandardName}), "João Gomes");
    EXPECT_EQ(sheet.act.people[1].name.value, "joam glz");
}

TEST(AName, IsStoredApartFromTheTitleBeforeIt)
{
    Sheet sheet = newSheet(ActKind::Baptism, {});
    setText(sheet, {5, Field::Name}, "Padre Manuel da Silva");
    EXPECT_EQ(text(sheet, {5, Field::StandardName}), "Manuel da Silva");
    EXPECT_EQ(text(sheet, {5, Field::Title}), "Padre");
    setText(sheet, {5, Field::Title}, "Reverendo");
    setText(sheet, {5, Field::Name}, "Padre Manuel Silva");
    EXPECT_EQ(text(sheet, {5, Field::Title}), "Reverendo");
}

TEST(AName, ThatIsChangedIdentifiesNobodyAnyLonger)
{
    Sheet sheet = newSheet(ActKind::Baptism, {});
    setText(sheet, {1, Field::Name}, "Manuel");
    sheet.conclusions.people[1] = {.kind = Identity::Kind::Known, .nind = 9};
    setText(sheet, {1, Field::Name}, "Manuel");
    EXPECT_EQ(sheet.conclusions.people[1].nind, 9);
    setText(sheet, {1, Field::Name}, "Manuel Dias");
    EXPECT_EQ(sheet.conclusions.people[1], Identity{});
}

TEST(AWordThatCannotBeRead, IsTakenAsItIsAndMarked)
{
    Sheet sheet = newSheet(ActKind::Baptism, {});
    setText(sheet, {.field = Field::Date}, "?/2/1702");
    setText(sheet, {3, Field::Name}, "António R?");
    setText(sheet, {3, Field::Residence}, "Outeiro ?");
    EXPECT_TRUE(sheet.act.people[3].name.doubtful);
    EXPECT_EQ(marks(sheet.act),
              QStringList({"A data está incompleta: 02/1702.", "Leitura duvidosa: padrinho \"António R?\".",
                           "Leitura duvidosa: padrinho, \"Outeiro ?\"."}));
    setText(sheet, {3, Field::Name}, "António Rosa");
    EXPECT_FALSE(sheet.act.people[3].name.doubtful);
}

TEST(Kinship, WithSomebodyOutsideTheActIsShownWithoutAnArticle)
{
    Sheet sheet = newSheet(ActKind::Baptism, {});
    setText(sheet, {4, Field::Kinship}, "irmã de Maria; tia do José Dias");
    EXPECT_EQ(text(sheet, {4, Field::Kinship}), "irmã de Maria; tia de José Dias");
    setText(sheet, {4, Field::Kinship}, text(sheet, {4, Field::Kinship}));
    ASSERT_EQ(sheet.act.relations.size(), 2);
    EXPECT_EQ(sheet.act.relations.first().otherName, "Maria");
}

TEST(WhatIsWrittenWithAName, IsProposedInItsFieldAndTold)
{
    Sheet sheet = newSheet(ActKind::Baptism, {});
    setText(sheet, {3, Field::Name}, "Pedro Francisco, solteiro");
    EXPECT_EQ(text(sheet, {3, Field::StandardName}), "Pedro Francisco");
    EXPECT_EQ(text(sheet, {3, Field::CivilState}), "solteiro");
    EXPECT_TRUE(marks(sheet.act).contains("Lido do nome: padrinho, estado civil «solteiro».")) << "told in words";
    setText(sheet, {5, Field::Name}, "Padre João Coelho, vigário");
    EXPECT_EQ(text(sheet, {5, Field::StandardName}), "João Coelho");
    EXPECT_EQ(text(sheet, {5, Field::Title}), "Padre");
    EXPECT_EQ(text(sheet, {5, Field::Office}), "vigário");
    setText(sheet, {0, Field::Name}, "João exposto");
    EXPECT_EQ(text(sheet, {0, Field::StandardName}), "João");
    EXPECT_EQ(text(sheet, {0, Field::Filiation}), "exposto");
    setText(sheet, {4, Field::Name}, "Maria \"a Nova\", viúva de Pedro");
    EXPECT_EQ(text(sheet, {4, Field::StandardName}), "Maria");
    EXPECT_EQ(text(sheet, {4, Field::Nickname}), "a Nova");
    EXPECT_EQ(text(sheet, {4, Field::CivilState}), "viúva de Pedro");
}

TEST(WhatIsWrittenWithAName, GoesWithItAndLeavesWhatTheUserTyped)
{
    Sheet sheet = newSheet(ActKind::Baptism, {});
    setText(sheet, {3, Field::Name}, "Pedro, solteiro");
    setText(sheet, {3, Field::Name}, "Pedro");
    EXPECT_EQ(text(sheet, {3, Field::CivilState}), "");
    setText(sheet, {3, Field::CivilState}, "casado");
    setText(sheet, {3, Field::Name}, "Pedro, solteiro");
    EXPECT_EQ(text(sheet, {3, Field::CivilState}), "casado");
}

TEST(Kinship, IsToldOfSomebodyOfTheAct)
{
    Sheet sheet = newSheet(ActKind::Baptism, {});
    const auto other = [&](const char* typed) {
        const auto relation = readKinship(sheet.act, 4, typed);
        return relation ? relation->told.value + "→" + QString::number(relation->other) + relation->otherName
                        : QString();
    };
    EXPECT_EQ(other("tia"), "tia→0");
    EXPECT_EQ(other("irmã da mãe"), "irmã→2");
    EXPECT_EQ(other("tia da criança"), "tia→0");
    EXPECT_EQ(other("criada do abade"), "criada→-1abade");
    EXPECT_EQ(other("  "), "");
    setText(sheet, {4, Field::Kinship}, "irmã da mãe; prima");
    EXPECT_EQ(sheet.act.relations.size(), 2);
    const Sheet told = sheet;
    setText(sheet, {4, Field::Kinship}, text(sheet, {4, Field::Kinship}));
    EXPECT_EQ(sheet, told);
    setText(sheet, {4, Field::Kinship}, "");
    EXPECT_TRUE(sheet.act.relations.isEmpty());
}

TEST(Return, GoesThroughWhatARegisterUsuallyTells)
{
    const Sheet sheet = newSheet(ActKind::Baptism, sixth());
    QStringList way;
    for (std::optional<Spot> spot = firstSpot(sheet, sixth()); spot; spot = nextSpot(sheet, *spot, sixth()))
        way << (spot->person < 0 ? QString() : roleTitle(sheet.act, spot->person) + ' ') +
                   QString::number(int(spot->field));
    const auto at = [](const char* who, Field field) { return who + QString::number(int(field)); };
    EXPECT_EQ(way, QStringList({at("", Field::Date), at("baptizado ", Field::Name), at("baptizado ", Field::Sex),
                                at("pai ", Field::Name), at("mãe ", Field::Name), at("mãe ", Field::Residence),
                                at("padrinho ", Field::Name), at("padrinho ", Field::Residence),
                                at("madrinha ", Field::Name), at("madrinha ", Field::Residence)}));
}

TEST(Return, AsksInTheFirstActForAllOfItsHead)
{
    const Sheet sheet = newSheet(ActKind::Burial, {});
    Spot spot = firstSpot(sheet, {});
    for (const Field field : {Field::Date, Field::Book, Field::Folio, Field::Number, Field::Place}) {
        EXPECT_EQ(spot, (Spot{.field = field}));
        spot = *nextSpot(sheet, spot, {});
    }
    EXPECT_EQ(spot, (Spot{celebrantOf(sheet.act), Field::Name}));
}

TEST(Return, PassesOverWhatTheActBeforeLeftOutInItsHead)
{
    ActRecord before = sixth();
    before.act.folio.clear();
    const Sheet sheet = newSheet(ActKind::Baptism, before);
    EXPECT_EQ(nextSpot(sheet, {.field = Field::Date}, before), (Spot{0, Field::Name}));
}

TEST(Return, PassesOverTheSexOfWhoeverIsKnown)
{
    Sheet sheet = newSheet(ActKind::Marriage, {});
    const int witness = personWith(sheet.act, Role::Witness);
    setText(sheet, {witness, Field::Name}, "João Dias");
    sheet.conclusions.people[witness] = {.kind = Identity::Kind::Known, .nind = 3};
    EXPECT_EQ(nextSpot(sheet, {witness, Field::Name}, {}), (Spot{witness, Field::Residence}));
}

TEST(Return, StopsAtANameThatIsntDecided)
{
    Sheet sheet = newSheet(ActKind::Baptism, sixth());
    setText(sheet, {0, Field::Name}, "Maria");
    EXPECT_EQ(nextSpot(sheet, {.field = Field::Date}, sixth()), (Spot{0, Field::Name}));
    sheet.conclusions.people[0].kind = Identity::Kind::New;
    EXPECT_EQ(nextSpot(sheet, {.field = Field::Date}, sixth()), (Spot{0, Field::Sex}));
}

TEST(Tab, VisitsEveryRowOnceAndComesBackTheSameWay)
{
    for (const auto kind : {ActKind::Baptism, ActKind::Marriage, ActKind::Burial}) {
        const Sheet sheet = newSheet(kind, {});
        QStringList there, back;
        Spot last{.field = Field::Date};
        for (std::optional<Spot> spot = last; spot; spot = neighbour(sheet, *spot, true))
            there << placeOf(*spot), last = *spot;
        for (std::optional<Spot> spot = last; spot; spot = neighbour(sheet, *spot, false))
            back.prepend(placeOf(*spot));
        EXPECT_EQ(there, back);
        EXPECT_EQ(there.removeDuplicates(), 0);
        for (int person = 0; person < sheet.act.people.size(); ++person) {
            EXPECT_TRUE(there.contains(placeOf({person, Field::Name})));
            EXPECT_EQ(there.contains(placeOf({person, Field::Residence})), person != celebrantOf(sheet.act));
            EXPECT_FALSE(there.contains(placeOf({person, Field::Age})));
        }
    }
}

TEST(Tab, GoesThroughTheDetailsOfAPersonWhereItBeganThere)
{
    for (const auto kind : {ActKind::Baptism, ActKind::Marriage, ActKind::Burial}) {
        const Sheet sheet = newSheet(kind, {});
        for (int person = 0; person < sheet.act.people.size(); ++person) {
            QList<Field> visited;
            std::optional<Spot> spot = Spot{person, Field::StandardName};
            for (; spot && spot->person == person; spot = neighbour(sheet, *spot, true))
                visited << spot->field;
            QList<Field> details = fieldsOf(sheet.act, person);
            details.removeIf([](Field one) { return QList{Field::Name, Field::Sex, Field::Residence}.contains(one); });
            EXPECT_EQ(visited, details);
            EXPECT_TRUE(!spot || spot->person < 0 || spot->field == Field::Name);
            const auto before = neighbour(sheet, {person, Field::StandardName}, false);
            EXPECT_TRUE(before && (before->field == Field::Residence || person == celebrantOf(sheet.act)));
        }
    }
}

TEST(TheLastPerson, IsWhoHadTheSamePlaceInTheActBefore)
{
    ActRecord before = sixth();
    before.people = QList<qint64>(before.act.people.size(), 0);
    const Sheet sheet = newSheet(ActKind::Baptism, before);
    EXPECT_EQ(lastPerson(sheet, 1, before), 0);
    before.people[personWith(before.act, Role::Father, 0)] = 459;
    EXPECT_EQ(lastPerson(sheet, 1, before), 459);
    EXPECT_EQ(lastPerson(sheet, 2, before), 0);
    EXPECT_EQ(lastPerson(sheet, 1, {}), 0);
}

TEST(TheLastValue, IsThatOfARowAboveOrElseOfTheActBefore)
{
    Sheet sheet = newSheet(ActKind::Baptism, sixth());
    EXPECT_EQ(lastText(sheet, {3, Field::Residence}, sixth()), "Outeiro");
    setText(sheet, {2, Field::Residence}, "Pouca Pena");
    EXPECT_EQ(lastText(sheet, {3, Field::Residence}, sixth()), "Pouca Pena");
    EXPECT_EQ(lastText(sheet, {1, Field::Name}, sixth()), "António Dias");
    EXPECT_EQ(lastText(sheet, {3, Field::Name}, sixth()), "");
    EXPECT_EQ(lastText(sheet, {.field = Field::Date}, sixth()), "03/02/1702");
    EXPECT_EQ(lastText(sheet, {.field = Field::Number}, sixth()), "6");
    EXPECT_EQ(lastText(sheet, {.field = Field::Date}, {}), "");
}

} // namespace
