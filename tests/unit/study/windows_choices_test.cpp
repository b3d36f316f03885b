// What the text in a field of an act may mean.
#include "study/windows/actChoices.h"

#include <gtest/gtest.h>

#include <QStringList>

using namespace study;

namespace {

Sheet withNames(ActKind kind, const QStringList& names)
{
    Sheet sheet = newSheet(kind, {});
    for (int person = 0; person < names.size(); ++person)
        setText(sheet, {person, study::Field::Name}, names[person]);
    return sheet;
}

Candidate maria()
{
    return {.nind = 85,
            .name = "Maria Gomes",
            .sex = Sex::Female,
            .reasons = {"o mesmo nome"},
            .against = {"tinha 9 anos"},
            .birth = {.year = 1680},
            .residence = "Cruz",
            .father = "João Gomes",
            .spouse = "José Dias"};
}

CoupleCandidate abreus()
{
    return {
        .nfamilia = 29, .husband = 1, .wife = 2, .names = "Manuel e Joana", .reasons = {"o nome do pai"}, .open = true};
}

QStringList shownOf(const Choices& choices)
{
    QStringList shown;
    for (const Choice& choice : choices.entries)
        shown << choice.shown.section('\n', 0, 0);
    return shown;
}

const NewPlacesIn azurem{.code = "030804", .name = "Azurém"};

PlaceFound place(const QString& code, const QString& name, bool same)
{
    return {.place = {.code = code}, .shown = name + " (Azurém)", .same = same};
}

} // namespace

TEST(TheListOfPeople, HasSomebodyNewFirstAndNobodyLast)
{
    const Sheet sheet = withNames(ActKind::Baptism, {"Ana", "", "", "", "Maria Gomes"});
    const Choices choices = choicesOfPerson(sheet.act, 4, {maria()}, {});
    EXPECT_EQ(shownOf(choices), QStringList({"Nova: Maria Gomes", "nº 85  Maria Gomes (n. 1680)",
                                             "Não é pessoa da BDP: fica só no acto"}));
    EXPECT_EQ(choices.usual, 0);
    EXPECT_EQ(choices.firstNumber, 0);
    EXPECT_TRUE(choices.entries[1].shown.contains("Cruz; filha de João Gomes; casada com José Dias"));
    EXPECT_TRUE(choices.entries[1].shown.contains("→ o mesmo nome; mas tinha 9 anos"));
}

TEST(TheListOfPeople, IsEmptyWithoutAName)
{
    const Sheet sheet = newSheet(ActKind::Baptism, {});
    EXPECT_EQ(choicesOfPerson(sheet.act, 0, {}, {}), Choices{});
}

TEST(TheListOfPeople, KeepsWhoIsOnlyMentionedInTheAct)
{
    Sheet sheet = newSheet(ActKind::Baptism, {});
    const int somebody = addRow(sheet, Role::Mentioned, -1);
    setText(sheet, {somebody, study::Field::Name}, "Abade de Tagilde");
    EXPECT_EQ(choicesOfPerson(sheet.act, somebody, {}, {}).usual, 1);
}

TEST(ACouple, IsTakenForBothParentsWithOneChoice)
{
    Sheet sheet = withNames(ActKind::Baptism, {"Ana", "Manuel", "Joana"});
    const Choices choices = choicesOfPerson(sheet.act, 2, {maria()}, {abreus()});
    take(sheet, {2, study::Field::Name}, choices.entries[1]);
    EXPECT_EQ(sheet.conclusions.people[1].nind, 1);
    EXPECT_EQ(sheet.conclusions.people[2].nind, 2);
    EXPECT_EQ(sheet.conclusions.people[2].reason, "o nome do pai");
    EXPECT_EQ(sheet.conclusions.people[0].kind, Identity::Kind::Open);
}

TEST(ACouple, IsOfferedForParentsAlone)
{
    const Sheet sheet = withNames(ActKind::Baptism, {"Ana", "Manuel", "Joana", "Manuel"});
    EXPECT_EQ(choicesOfPerson(sheet.act, 3, {}, {abreus()}).entries.size(), 2);
}

TEST(ACouple, OfWhomTheDatesAllowNoChildIsToldForTheChildsParentsOnly)
{
    Sheet sheet = withNames(ActKind::Baptism, {"Ana", "Manuel", "Joana", "Bento"});
    CoupleCandidate closed = abreus();
    closed.open = false;
    const auto told = [&](int person) {
        return choicesOfPerson(sheet.act, person, {}, {closed}).entries[1].shown.contains("as datas não o permitem");
    };
    EXPECT_TRUE(told(1));
    EXPECT_TRUE(choicesOfPerson(sheet.act, 1, {maria()}, {closed}).entries[1].shown.startsWith("nº 85"));
    const int father = addRow(sheet, Role::Father, 3);
    setText(sheet, {father, study::Field::Name}, "Manuel");
    EXPECT_FALSE(told(father));
}

TEST(APersonWhoIsTaken, HasASexThatTheActDoesNotTell)
{
    Sheet sheet = withNames(ActKind::Burial, {"Maria Gomes"});
    take(sheet, {0, study::Field::Name}, choicesOfPerson(sheet.act, 0, {maria()}, {}).entries[1]);
    EXPECT_EQ(sheet.conclusions.people[0].nind, 85);
    EXPECT_EQ(sexOf(sheet, 0), Sex::Female);
    EXPECT_FALSE(sheet.act.people[0].toldSex) << "the register doesn't tell it";
    const int husband = addRow(sheet, Role::Spouse, 0);
    EXPECT_EQ(roleTitle(sheet, husband), "marido");
    take(sheet, {0, study::Field::Name}, {.kind = Choice::Kind::NewPerson});
    EXPECT_EQ(sexOf(sheet, 0), Sex::Unknown);
    Sheet told = withNames(ActKind::Burial, {"Maria Gomes"});
    setText(told, {0, study::Field::Sex}, "m");
    take(told, {0, study::Field::Name}, choicesOfPerson(told.act, 0, {maria()}, {}).entries[1]);
    EXPECT_EQ(sexOf(told, 0), Sex::Male);
}

TEST(APlace, OfTheSameNameIsTheUsualOne)
{
    const Choices choices =
        choicesOfPlace(study::Field::Residence, "Pouca Pena", {place("03080401", "Poucapena", true)}, azurem);
    EXPECT_EQ(choices.usual, 0);
    EXPECT_EQ(shownOf(choices),
              QStringList({"Poucapena (Azurém)", "Novo lugar em Azurém: Pouca Pena", "Fica só no acto"}));
}

TEST(APlace, IsMadeAnewForAResidenceWhereNoOtherIsLikely)
{
    EXPECT_EQ(choicesOfPlace(study::Field::Residence, "Outeiro", {}, azurem).usual, 0);
    EXPECT_EQ(choicesOfPlace(study::Field::Residence, "Outeiro", {place("1", "Oiteiro", false)}, azurem).usual, -1);
    EXPECT_EQ(choicesOfPlace(study::Field::Birthplace, "Outeiro", {}, azurem).usual, -1);
    EXPECT_EQ(choicesOfPlace(study::Field::Place, "Matriz", {}, azurem).usual, 1);
    EXPECT_EQ(choicesOfPlace(study::Field::Residence, "Outeiro", {}, {}).usual, 0); // stays in the act
    EXPECT_EQ(choicesOfPlace(study::Field::Residence, "", {}, azurem), Choices{});
}

TEST(APlace, WhoseParishIsToldIsTakenFromThereAndMadeThere)
{
    const PlaceFound parish = place("101010", "Azurém", true);
    EXPECT_EQ(choicesOfPlace(study::Field::Residence, "freguesia de Azurém", {parish}, {}).usual, 0);
    const Choices unknown = choicesOfPlace(study::Field::Residence, "freguesia de Nenhures", {}, {});
    EXPECT_EQ(shownOf(unknown), QStringList("Fica só no acto"));
    const Choices made = choicesOfPlace(study::Field::Residence, "lugar da Fonte, freguesia de Azurém", {}, azurem);
    EXPECT_EQ(shownOf(made), QStringList({"Novo lugar em Azurém: Fonte", "Fica só no acto"}));
    EXPECT_EQ(made.entries.first().place.name, "Fonte");
}

TEST(APlace, OfTheSameNameElsewhereIsChosenByTheUser)
{
    const PlaceFound here = place("03080401", "Paço", true), there = place("101010", "Paço", true);
    const PlaceFound elsewhere = place("141414", "Paço", true);
    EXPECT_EQ(choicesOfPlace(study::Field::Residence, "Paço", {there, here}, azurem).usual, 1);
    EXPECT_EQ(choicesOfPlace(study::Field::Residence, "Paço", {there}, azurem).usual, -1);
    EXPECT_EQ(choicesOfPlace(study::Field::Birthplace, "Paço", {there}, azurem).usual, 0);
    EXPECT_EQ(choicesOfPlace(study::Field::Birthplace, "Paço", {there, elsewhere}, azurem).usual, -1);
    EXPECT_EQ(choicesOfPlace(study::Field::Place, "Paço", {there, elsewhere}, azurem).usual, -1);
}

TEST(APlace, CompletesABeginningAndLeavesAnotherSpelling)
{
    const auto taken = [](const QString& typed) {
        Sheet sheet = newSheet(ActKind::Baptism, {});
        const Spot spot{3, study::Field::Residence};
        setText(sheet, spot, typed);
        take(sheet, spot,
             choicesOfPlace(study::Field::Residence, typed, {place("1", "Pouca Pena", false)}, azurem).entries[0]);
        EXPECT_EQ(sheet.conclusions.places.value(text(sheet, spot)).code, "1");
        return text(sheet, spot);
    };
    EXPECT_EQ(taken("pou"), "Pouca Pena");
    EXPECT_EQ(taken("Poucapena"), "Poucapena");
    EXPECT_EQ(taken("Pouca Penha"), "Pouca Penha");
}

TEST(APlace, ThatIsNotOfTheBdpIsForgotten)
{
    Sheet sheet = newSheet(ActKind::Baptism, {});
    const Spot spot{3, study::Field::Residence};
    setText(sheet, spot, "Outeiro");
    const Choices choices = choicesOfPlace(study::Field::Residence, "Outeiro", {}, azurem);
    take(sheet, spot, choices.entries[0]);
    EXPECT_EQ(sheet.conclusions.places.value("Outeiro").parish, "030804");
    EXPECT_EQ(chosenIn(choices, sheet, spot), 0);
    take(sheet, spot, choices.entries[1]);
    EXPECT_TRUE(sheet.conclusions.places.isEmpty());
    EXPECT_EQ(chosenIn(choices, sheet, spot), -1);
}

TEST(AProfession, IsTakenByItsNameOrMadeAnew)
{
    Sheet sheet = newSheet(ActKind::Baptism, {});
    const Spot spot{1, study::Field::Profession};
    setText(sheet, spot, "alfaiate");
    const Choices known = choicesOfProfession("alfaiate", {{7, "Alfaiate"}});
    EXPECT_EQ(known.usual, 0);
    take(sheet, spot, known.entries[0]);
    EXPECT_EQ(sheet.conclusions.professions.value("alfaiate"), 7);
    const Choices fresh = choicesOfProfession("sombreireiro", {});
    EXPECT_EQ(shownOf(fresh), QStringList({"Nova profissão: sombreireiro", "Fica só no acto"}));
    EXPECT_EQ(fresh.usual, 0);
    EXPECT_EQ(choicesOfProfession("alfaiate", {{8, "Alfaiata"}}).usual, -1);
    take(sheet, spot, known.entries.last());
    EXPECT_TRUE(sheet.conclusions.professions.isEmpty());
}

TEST(AWord, IsCompletedFromItsBeginning)
{
    const QStringList states{"solteiro", "casado", "viúvo"};
    EXPECT_EQ(shownOf(choicesOfWord("vi", states)), QStringList("viúvo"));
    EXPECT_EQ(choicesOfWord("vi", states).usual, 0);
    EXPECT_EQ(choicesOfWord("", states).usual, -1);
    EXPECT_EQ(choicesOfWord("menor", states).entries.size(), 0);
    EXPECT_EQ(wordsFor(Sex::Female, {"Viúvo", "Clérigo ou religioso"}), QStringList({"viúva", "clérigo ou religioso"}));
    EXPECT_EQ(wordsFor(Sex::Male, {"Viúvo"}), QStringList("viúvo"));
}

TEST(WhatTheSheetHas, IsFoundAgainInTheList)
{
    Sheet sheet = withNames(ActKind::Baptism, {"Ana", "", "", "", "Maria Gomes"});
    const Choices choices = choicesOfPerson(sheet.act, 4, {maria()}, {});
    const Spot spot{4, study::Field::Name};
    EXPECT_EQ(chosenIn(choices, sheet, spot), -1);
    for (int entry = 0; entry < 3; ++entry) {
        take(sheet, spot, choices.entries[entry]);
        EXPECT_EQ(chosenIn(choices, sheet, spot), entry);
    }
}

TEST(AListOfChoices, HasKeysForWhatIsNewAndWhatStaysHoweverLongItIs)
{
    const auto places = [](int count) {
        QList<PlaceFound> found;
        found.reserve(count);
        for (int i = 0; i < count; ++i)
            found << place("0308040" + QString::number(i), "Outeiro", false);
        return choicesOfPlace(study::Field::Residence, "Outeiro", found, azurem);
    };
    const auto keysOf = [](const Choices& choices) {
        QStringList keys;
        for (int entry = 0; entry < choices.entries.size(); ++entry)
            keys << keyOf(choices, entry);
        return keys;
    };
    EXPECT_EQ(keysOf(places(2)), QStringList({"1", "2", "3", "4"}));
    const Choices many = places(10);
    EXPECT_EQ(keysOf(many), QStringList({"1", "2", "3", "4", "5", "6", "7", "8", "9", "", "0", "-"}));
    EXPECT_EQ(many.entries[newEntry(many)].shown, "Novo lugar em Azurém: Outeiro");
    EXPECT_EQ(many.entries[keptEntry(many)].shown, "Fica só no acto");
    const Choices words = choicesOfWord("vi", {"viúvo"});
    EXPECT_EQ(newEntry(words), -1);
    EXPECT_EQ(keptEntry(words), -1);
    const Choices professions = choicesOfProfession("alfaiate", {{7, "Alfaiate"}});
    EXPECT_EQ(newEntry(professions), 1);
    EXPECT_EQ(keptEntry(professions), 2);
}

TEST(TheListOfPeople, StandsOnWhoWasThereWhereTheNameMayStillBeTheirs)
{
    const Sheet sheet = withNames(ActKind::Baptism, {"Ana", "", "", "", "Maria Gomes"});
    const auto usual = [&](const QList<Candidate>& people, qint64 nind) {
        Choices choices = choicesOfPerson(sheet.act, 4, people, {});
        expectPerson(choices, nind);
        return choices.usual;
    };
    EXPECT_EQ(usual({maria()}, 85), 1);
    EXPECT_EQ(usual({maria()}, 0), 0);
    EXPECT_EQ(usual({maria()}, 86), 0);
    EXPECT_EQ(usual({}, 85), 0);
}
