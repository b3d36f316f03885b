// The parishes with known truth are the same on every machine, sound, and as asked for.
#include "data/datafolder.h"
#include "linkage/tally.h"
#include "truth/truth.h"

#include <QSet>

#include <gtest/gtest.h>

#include <map>

namespace truth {

namespace {

const Parish& sample()
{
    static const Parish made = parish(4000, 7, ORV_DATA_DIR);
    return made;
}

} // namespace

TEST(ParishOfKnownTruth, IsTheSameForOneSeedAndAnotherForTheNext)
{
    const QByteArray one = key(parish(1000, 3, ORV_DATA_DIR));
    EXPECT_EQ(one, key(parish(1000, 3, ORV_DATA_DIR)));
    EXPECT_NE(one, key(parish(1000, 4, ORV_DATA_DIR)));
}

TEST(ParishOfKnownTruth, HasAboutAsManyPeopleAsAskedFor)
{
    EXPECT_NEAR(static_cast<double>(sample().bdp.people.size()), 4000, 1600);
}

TEST(ParishOfKnownTruth, TellsTheTruthOfEachRecordOnce)
{
    const bench::Key read = bench::Key::read(key(sample()));
    EXPECT_EQ(read.person.size() + 1, sample().bdp.people.size());
    EXPECT_EQ(read.couple.size() + 1, sample().bdp.families.size());
    for (const Card& card : sample().bdp.people)
        EXPECT_EQ(card.number == 0 ? 0 : read.person.at(card.number), card.who);
}

TEST(ParishOfKnownTruth, LeadsNobodyThroughAnImpossibleLife)
{
    const World& world = sample().world;
    for (const Person& person : world.people) {
        if (person.id == 0) continue;
        EXPECT_LE(person.birth, person.death);
        if (const PersonId mother = world.mother(person.id)) {
            EXPECT_GE(person.birth, world.person(mother).birth.addYears(14)) << person.id;
            EXPECT_LE(person.birth, world.person(mother).death) << person.id;
        }
        for (const CoupleId id : person.unions)
            EXPECT_LE(world.couple(id).wedding, person.death) << person.id;
    }
}

TEST(ParishOfKnownTruth, HasMothersWhoseChildrenComeNineMonthsApartOrOnOneDay)
{
    for (const Couple& couple : sample().world.couples) {
        QDate last;
        for (const PersonId child : couple.children) {
            const QDate birth = sample().world.person(child).birth;
            const bool isFirst = !last.isValid() || couple.husband == 0;
            EXPECT_TRUE(isFirst || birth == last || last.addDays(270) <= birth) << child;
            last = birth;
        }
    }
}

TEST(ParishOfKnownTruth, HasInfantDeathsTwinsAndFoundlingsNearTheirRates)
{
    int births = 0, infants = 0, twins = 0, foundlings = 0;
    std::map<std::pair<CoupleId, QDate>, int> ofADay;
    for (const Person& person : sample().world.people) {
        if (!person.bornHere || person.name.given.isEmpty()) continue;
        ++births;
        infants += person.death < person.birth.addDays(365);
        foundlings += person.foundling;
        if (person.origin != 0) twins += ++ofADay[{person.origin, person.birth}] == 2;
    }
    ASSERT_GT(births, 500);
    const auto share = [&](int count) { return double(count) / births; };
    EXPECT_NEAR(share(infants), Rates().infantDeaths, 0.05);
    EXPECT_NEAR(share(twins), Rates().twins, 0.01);
    EXPECT_NEAR(share(foundlings), Rates().foundlings, 0.015);
}

TEST(ParishOfKnownTruth, GivesTheNamesOfDeadChildrenAgain)
{
    const World& world = sample().world;
    int again = 0;
    for (const Couple& couple : world.couples)
        for (const PersonId a : couple.children)
            for (const PersonId b : couple.children) {
                const Person &dead = world.person(a), &child = world.person(b);
                again += dead.death < child.birth && dead.male == child.male && !child.name.given.isEmpty() &&
                         dead.name.given == child.name.given;
            }
    EXPECT_GT(again, 20);
}

TEST(ParishOfKnownTruth, HasDoublesOfPeopleAndOfCouplesAndAFewWrongLinks)
{
    const auto& [world, bdp] = sample();
    QSet<int> people, couples;
    for (const Card& card : bdp.people)
        people << card.who;
    for (const FamilyCard& family : bdp.families)
        couples << family.which;
    const auto doubled = [](auto all, auto different) { return 1 - double(different) / double(all); };
    EXPECT_GT(doubled(bdp.people.size(), people.size()), 0.1);
    EXPECT_GT(doubled(bdp.families.size(), couples.size()), 0.1);
    EXPECT_LT(double(bdp.wrong.size()) / double(bdp.people.size()), 0.05);
}

TEST(ParishOfKnownTruth, StandsInTheTablesThatTheCardsWrite)
{
    datafolder::MadeBdp made;
    write(sample().bdp, sample().world, made.connection);
    const auto count = [&](const QString& from) { return made.rows("select count(*) from " + from).value(0).toInt(); };
    EXPECT_EQ(count("individuo") + 1, static_cast<int>(sample().bdp.people.size()));
    EXPECT_EQ(count("familia") + 1, static_cast<int>(sample().bdp.families.size()));
    EXPECT_EQ(count("assistente"), static_cast<int>(sample().bdp.assistants.size()));
    EXPECT_EQ(count("individuo where famorig is not null and famorig not in (select nfamilia from familia)"), 0);
    EXPECT_EQ(count("familias where nind not in (select nind from individuo)"), 0);
    EXPECT_EQ(count("individuo where dataobito < datanasc and DnascFixa = 1"), 0);
    EXPECT_EQ(datafolder::integrity(made.connection), "ok");
}

TEST(ParishOfKnownTruth, SpellsAWordTheOtherWayRoundOfTheTableOfForms)
{
    const Spellings spellings(ORV_DATA_DIR "/nomes.csv");
    demo::Random random(1);
    QSet<QString> forms;
    for (int i = 0; i < 50; ++i)
        forms << spellings.old("José", random);
    EXPECT_TRUE(forms.contains("Jozé"));
    EXPECT_EQ(spellings.old("Xpto", random), "Xpto");
}

} // namespace truth
