// The rows of a sheet: which there are, which can be added, which follow.
#include "study/acts/sheet.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <random>

using namespace study;

namespace {

QStringList rolesOf(const Act& act)
{
    QStringList titles;
    for (int person = 0; person < act.people.size(); ++person)
        titles << roleTitle(act, person);
    return titles;
}

QStringList titlesOf(const QList<NewRow>& rows)
{
    QStringList titles;
    for (const NewRow& row : rows)
        titles << row.title;
    return titles;
}

Sheet baptismSheet()
{
    Sheet sheet = newSheet(ActKind::Baptism, {});
    setText(sheet, {.field = Field::Date}, "14/2/1702");
    const QStringList names{"Maria", "Manuel de Abreu", "Joana do Espírito Santo", "António Rodrigues", "Maria Gomes"};
    for (int person = 0; person < names.size(); ++person)
        setText(sheet, {person, Field::Name}, names[person]);
    return sheet;
}

int godmotherOf(const Sheet& sheet)
{
    return personWith(sheet.act, Role::Godmother);
}

TEST(ASheet, HasTheRowsThatEachActOfItsKindHas)
{
    EXPECT_EQ(rolesOf(newSheet(ActKind::Baptism, {}).act),
              QStringList({"baptizado", "pai", "mãe", "padrinho", "madrinha", "celebrante"}));
    EXPECT_EQ(rolesOf(newSheet(ActKind::Marriage, {}).act),
              QStringList({"noivo", "pai do noivo", "mãe do noivo", "noiva", "pai da noiva", "mãe da noiva",
                           "testemunha", "testemunha", "celebrante"}));
    EXPECT_EQ(rolesOf(newSheet(ActKind::Burial, {}).act), QStringList({"defunto", "celebrante"}));
}

TEST(ASheet, HasOneIdentityForEachPerson)
{
    Sheet sheet = baptismSheet();
    const int godmother = godmotherOf(sheet);
    sheet.conclusions.people[godmother] = {.kind = Identity::Kind::Known, .nind = 85};
    const int father = addRow(sheet, Role::Father, godmother);
    const int second = addRow(sheet, Role::Godfather, -1);
    EXPECT_EQ(sheet.conclusions.people.size(), sheet.act.people.size());
    EXPECT_EQ(roleTitle(sheet.act, second), "padrinho");
    EXPECT_EQ(roleTitle(sheet.act, father + 1), "pai da madrinha");
    EXPECT_EQ(sheet.conclusions.people[godmotherOf(sheet)].nind, 85);
}

TEST(ASheet, OffersThoseWhoHangOnThePersonFirst)
{
    const Sheet sheet = baptismSheet();
    EXPECT_EQ(titlesOf(addable(sheet.act, godmotherOf(sheet))),
              QStringList({"pai da madrinha", "mãe da madrinha", "marido da madrinha", "procurador da madrinha",
                           "padrinho", "madrinha", "testemunha", "celebrante", "referido"}));
    EXPECT_EQ(titlesOf(addable(sheet.act, 1)).mid(0, 2), QStringList({"avô paterno", "avó paterna"}));
    EXPECT_EQ(titlesOf(addable(sheet.act, -1)),
              QStringList({"padrinho", "madrinha", "testemunha", "celebrante", "referido"}));
    const Sheet marriage = newSheet(ActKind::Marriage, {});
    EXPECT_EQ(titlesOf(addable(marriage.act, personWith(marriage.act, Role::Bride))).mid(0, 2),
              QStringList({"marido anterior da noiva", "procurador da noiva"}));
}

TEST(ASheet, OffersNoSecondFather)
{
    Sheet sheet = baptismSheet();
    addRow(sheet, Role::Father, godmotherOf(sheet));
    EXPECT_FALSE(titlesOf(addable(sheet.act, godmotherOf(sheet))).contains("pai da madrinha"));
}

TEST(ASheet, TakesThoseWhoHangOnAPersonOutWithThem)
{
    Sheet sheet = baptismSheet();
    const Sheet before = sheet;
    const int godfather = personWith(sheet.act, Role::Godfather);
    addRow(sheet, Role::Mother, addRow(sheet, Role::Father, godfather));
    removeRow(sheet, godfather);
    EXPECT_EQ(
        rolesOf(sheet.act),
        QStringList({"baptizada", "pai", "mãe", "madrinha", "celebrante"}).replaceInStrings("baptizada", "baptizado"));
    EXPECT_EQ(sheet.act.people[3], before.act.people[4]);
}

TEST(ASheet, LosesNothingThatSpeaksOfAPersonWhoseNumberMoves)
{
    Sheet sheet = baptismSheet();
    const int godmother = godmotherOf(sheet);
    setText(sheet, {godmother, Field::Kinship}, "tia da mãe");
    sheet.conclusions.overruled = {{"padrinho-morto:3", "outro"}, {"padrinho-morto:4", "o livro diz"}, {"ano", "sim"}};
    const Sheet before = sheet;
    const int father = addRow(sheet, Role::Father, 3);
    EXPECT_EQ(text(sheet, {godmother + 1, Field::Kinship}), "tia da mãe");
    EXPECT_EQ(sheet.conclusions.overruled.keys(), QStringList({"ano", "padrinho-morto:3", "padrinho-morto:5"}));
    removeRow(sheet, father);
    EXPECT_EQ(sheet, before);
    removeRow(sheet, 3);
    EXPECT_EQ(sheet.conclusions.overruled.keys(), QStringList({"ano", "padrinho-morto:3"}));
    EXPECT_EQ(sheet.conclusions.overruled["padrinho-morto:3"], "o livro diz");
    EXPECT_EQ(sheet.act.relations.size(), 1);
    removeRow(sheet, 2); // the mother, to whom the godmother is an aunt
    EXPECT_EQ(sheet.act.relations.size(), 0);
}

TEST(ASheet, IsTheSameAgainWhereARowIsAddedAndTakenOut)
{
    std::mt19937 dice(20);
    for (int round = 0; round < 300; ++round) {
        Sheet sheet = newSheet(ActKind(dice() % 3), {});
        for (int step = 0; step < 6; ++step) {
            const auto rows = addable(sheet.act, int(dice() % sheet.act.people.size()));
            const NewRow& row = rows[int(dice() % rows.size())];
            const Sheet before = sheet;
            const int added = addRow(sheet, row.role, row.of);
            ASSERT_EQ(roleTitle(sheet.act, added), row.title);
            ASSERT_EQ(sheet.conclusions.people.size(), sheet.act.people.size());
            for (int person = 0; person < sheet.act.people.size(); ++person)
                ASSERT_LT(sheet.act.people[person].of, person);
            Sheet without = sheet;
            removeRow(without, added);
            ASSERT_EQ(without, before);
        }
    }
}

TEST(ASheet, GetsTheSpouseOfAWidowerAndTheParentsOfAChild)
{
    Sheet widow = newSheet(ActKind::Burial, {});
    setText(widow, {0, Field::Sex}, "f");
    setText(widow, {0, Field::CivilState}, "viúva");
    addWhatFollows(widow);
    EXPECT_EQ(rolesOf(widow.act), QStringList({"defunta", "marido", "celebrante"}));
    EXPECT_EQ(text(widow, {1, Field::Dead}), "antes");
    Sheet child = newSheet(ActKind::Burial, {});
    setText(child, {0, Field::Age}, "4 meses");
    addWhatFollows(child);
    EXPECT_EQ(rolesOf(child.act), QStringList({"defunto", "pai", "mãe", "celebrante"}));
    addWhatFollows(child);
    EXPECT_EQ(child.act.people.size(), 4);
    Sheet groom = newSheet(ActKind::Marriage, {});
    setText(groom, {0, Field::CivilState}, "Viúvo");
    addWhatFollows(groom);
    EXPECT_TRUE(rolesOf(groom.act).contains("mulher anterior do noivo"));
    Sheet adult = newSheet(ActKind::Burial, {});
    setText(adult, {0, Field::Age}, "60");
    addWhatFollows(adult);
    EXPECT_EQ(adult.act.people.size(), 2);
}

TEST(ASheet, HandsOnTheRowsThatHoldSomething)
{
    Sheet sheet = baptismSheet();
    setText(sheet, {3, Field::Name}, "");
    const int father = addRow(sheet, Role::Father, godmotherOf(sheet));
    setText(sheet, {father, Field::Name}, "Domingos Gomes");
    sheet.conclusions.places = {{"Pouca Pena", {.code = "01010101"}}, {"Outro", {.code = "01010102"}}};
    setText(sheet, {2, Field::Residence}, "Pouca Pena");
    const Trimmed given = trimmed(sheet);
    EXPECT_EQ(rolesOf(given.sheet.act), QStringList({"baptizado", "pai", "mãe", "madrinha", "pai da madrinha"}));
    EXPECT_EQ(given.from, QList<int>({0, 1, 2, 4, 5}));
    EXPECT_EQ(given.sheet.conclusions.places.keys(), QStringList("Pouca Pena"));
    EXPECT_EQ(onWholeSheet("padrinho-morto:3", given), "padrinho-morto:4");
    EXPECT_EQ(onWholeSheet("sem-data", given), "sem-data");
}

TEST(ASheet, KeepsWhomSomebodyWasTakenForEvenWithoutAName)
{
    Sheet sheet = baptismSheet();
    const int godmother = godmotherOf(sheet);
    setText(sheet, {godmother, Field::Name}, "");
    const int father = addRow(sheet, Role::Father, godmother);
    sheet.conclusions.people[father] = {.kind = Identity::Kind::Known, .nind = 85};
    const Trimmed given = trimmed(sheet);
    EXPECT_EQ(given.from, QList<int>({0, 1, 2, 3, godmother, father}));
    EXPECT_EQ(given.sheet.conclusions.people.last(), (Identity{.kind = Identity::Kind::Known, .nind = 85}));
    EXPECT_EQ(given.sheet.conclusions.people[4].kind, Identity::Kind::Kept);
}

TEST(ASheet, KeepsSomebodyWithoutANameWhoseKinIsTold)
{
    Sheet sheet = baptismSheet();
    setText(sheet, {2, Field::Name}, "");
    setText(sheet, {3, Field::Kinship}, "irmão da mãe");
    const Trimmed given = trimmed(sheet);
    EXPECT_FALSE(isEmptyRow(sheet.act, 2));
    EXPECT_EQ(rolesOf(given.sheet.act), QStringList({"baptizado", "pai", "mãe", "padrinho", "madrinha"}));
    EXPECT_EQ(given.sheet.act.relations, sheet.act.relations);
    ASSERT_EQ(given.sheet.act.relations.size(), 1);
    EXPECT_EQ(given.sheet.act.relations.first().other, 2);
}

TEST(ASheet, KeepsWhatAProfessionWasTakenForHoweverItsTypeIsSpelled)
{
    Sheet sheet = baptismSheet();
    sheet.act.people[1].attributes << Attribute{.type = "Profissao", .told = {.value = "moleiro"}};
    sheet.conclusions.professions = {{"moleiro", 2}, {"alfaiate", 7}};
    EXPECT_EQ(trimmed(sheet).sheet.conclusions.professions, (QMap<QString, int>{{"moleiro", 2}}));
}

TEST(ASheet, KeepsAnEmptyRowOnWhichSomebodyHangs)
{
    Sheet sheet = baptismSheet();
    setText(sheet, {godmotherOf(sheet), Field::Name}, "");
    const int father = addRow(sheet, Role::Father, godmotherOf(sheet));
    setText(sheet, {father, Field::Name}, "Domingos Gomes");
    const Trimmed given = trimmed(sheet);
    EXPECT_TRUE(rolesOf(given.sheet.act).contains("madrinha"));
    EXPECT_EQ(given.sheet.conclusions.people[godmotherOf(given.sheet)].kind, Identity::Kind::Kept);
}

TEST(ASheet, KeepsWhomItIsAboutEvenWithoutAName)
{
    EXPECT_EQ(rolesOf(trimmed(newSheet(ActKind::Marriage, {})).sheet.act), QStringList({"noivo", "noiva"}));
}

TEST(ASheet, LosesNobodyWhereItsKindChanges)
{
    for (const auto to : {ActKind::Marriage, ActKind::Burial}) {
        const Sheet sheet = baptismSheet();
        const Sheet other = withKind(sheet, to, {});
        EXPECT_EQ(other.act.kind, to);
        EXPECT_EQ(other.act.date, sheet.act.date);
        QStringList names;
        for (const ActPerson& person : other.act.people)
            names << person.name.value;
        for (const ActPerson& person : sheet.act.people)
            EXPECT_TRUE(person.name.value.isEmpty() || names.contains(person.name.value));
        EXPECT_EQ(other.conclusions.people.size(), other.act.people.size());
    }
    EXPECT_EQ(withKind(baptismSheet(), ActKind::Burial, {}).act.people[0].role, Role::Deceased);
}

TEST(ASheet, OfAnotherKindHasNoRowForTheOneOfWhomNothingWasTyped)
{
    Sheet sheet = newSheet(ActKind::Baptism, {});
    sheet.act.folio = "4v";
    const Sheet marriage = withKind(sheet, ActKind::Marriage, {});
    EXPECT_EQ(marriage.act.people.value(0).role, Role::Groom);
    EXPECT_EQ(peopleWith(marriage.act, Role::Mentioned), QList<int>());
    EXPECT_EQ(marriage.act.folio, "4v");
    EXPECT_EQ(withKind(sheet, ActKind::Burial, {}).act.people.value(0).role, Role::Deceased);
}

TEST(ASheet, OfADamagedDraftHasItsRowsAllTheSame)
{
    Act act{.kind = ActKind::Baptism};
    act.people = {{.role = Role::Father, .of = 1}, {.role = Role::Mother, .of = 0}};
    const Sheet sheet = sheetOf(act, {});
    EXPECT_GE(personWith(sheet.act, Role::Child), 0);
    EXPECT_EQ(sheet.conclusions.people.size(), sheet.act.people.size());
    EXPECT_TRUE(isEmptyRow(sheet.act, 0));
}

TEST(APersonOfAnAct, IsNewUnlessTheyAreOnlyMentioned)
{
    Sheet sheet = baptismSheet();
    EXPECT_EQ(usualIdentity(sheet.act, 1).kind, Identity::Kind::New);
    const int proxy = addRow(sheet, Role::Proxy, 3);
    setText(sheet, {proxy, Field::Name}, "João Dias");
    EXPECT_EQ(usualIdentity(sheet.act, proxy).kind, Identity::Kind::Kept);
    setText(sheet, {1, Field::Name}, "pai incógnito");
    EXPECT_EQ(usualIdentity(sheet.act, 1).kind, Identity::Kind::Kept);
}

TEST(ASaint, IsUsuallyNobodyOfTheBdp)
{
    Sheet sheet = baptismSheet();
    setText(sheet, {4, Field::Name}, "Nossa Senhora do Rosário");
    EXPECT_EQ(usualIdentity(sheet.act, 4).kind, Identity::Kind::Kept);
    setText(sheet, {4, Field::Name}, "Rosária");
    EXPECT_EQ(usualIdentity(sheet.act, 4).kind, Identity::Kind::New);
}

TEST(WhomAnActIsAbout, IsSomebodyEvenWithoutAName)
{
    Sheet sheet = newSheet(ActKind::Burial, {});
    setText(sheet, {0, Field::Name}, "hum pobre que não disse o nome");
    EXPECT_EQ(usualIdentity(sheet.act, 0).kind, Identity::Kind::New);
    setText(sheet, {0, Field::Name}, "exposta");
    EXPECT_EQ(usualIdentity(sheet.act, 0).kind, Identity::Kind::New);
    const int witness = addRow(sheet, Role::Witness, -1);
    setText(sheet, {witness, Field::Name}, "hum pobre que não disse o nome");
    EXPECT_EQ(usualIdentity(sheet.act, witness).kind, Identity::Kind::Kept);
}

} // namespace
