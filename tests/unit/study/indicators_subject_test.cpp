// Counting a subject, and who stands behind a count.
#include "study/people.h"

#include "study/indicators/subject.h"

#include <QSet>

#include <stdexcept>

using namespace study;
using namespace study::indicators;

namespace {

enum Count : quint16
{
    byName,
    byCouple
};
constexpr const char* trialCounts[]{"pessoas", "famílias"};

// People by sex and by the letters of their name; families.
void fillTrial(const Study& study, const Share& share, Taker& taker)
{
    for (std::size_t i = share.firstPerson; i < share.lastPerson; ++i) {
        const parish::Person& person = study.parish.people()[i];
        const Key key{byName, {static_cast<qint32>(person.gender), static_cast<qint32>(person.name.size())}};
        taker.count(key, {.person = &person});
        taker.count(key, {.person = &person}, 2);
        taker.count(key, {.person = &person}, 0);
    }
    for (std::size_t i = share.firstFamily; i < share.lastFamily; ++i)
        taker.count({byCouple, {}}, {.family = &study.parish.families()[i]});
}

void fillAndFail(const Study&, const Share& share, Taker&)
{
    if (share.firstPerson > 0) throw std::runtime_error("second share");
}

const Subject trial{"prova", "", "", "", trialCounts, {}, fillTrial, nullptr};
const Subject failing{"falha", "", "", "", trialCounts, {}, fillAndFail, nullptr};

class ASubject : public People
{
protected:
    ASubject()
    {
        for (const char* name : {"Rui", "Gil", "Manuel", "Ivo", "Tomé"})
            person({name});
        for (const char* name : {"Ana", "Eva"})
            person({name, 'f'});
        couple(1, 6);
        couple(2, 7);
        couple(3, 6);
    }
};

} // namespace

TEST_F(ASubject, GivesTheSameTallyOnAnyNumberOfThreads)
{
    const auto parish = parish::Snapshot::read(bdp);
    const Study study{parish, {}, {}, {}};
    const Tally one = tallyOf(trial, study);
    EXPECT_EQ((one[{byName, {int(parish::Gender::Male), 3}}]), 9);
    EXPECT_EQ(one.sum(byName), 21);
    EXPECT_EQ(one.sum(byCouple), 3);
    for (int threads = 0; threads < 12; ++threads)
        EXPECT_EQ(tallyOf(trial, study, threads), one) << threads;
}

TEST_F(ASubject, OfNobodyIsCountedToo)
{
    run("delete from individuo");
    run("delete from familia");
    const auto parish = parish::Snapshot::read(bdp);
    EXPECT_TRUE(tallyOf(trial, {parish, {}, {}, {}}, 3).isEmpty());
}

TEST_F(ASubject, ThrowsWhatItsCountingThrowsOnAnotherThread)
{
    const auto parish = parish::Snapshot::read(bdp);
    EXPECT_THROW(tallyOf(failing, {parish, {}, {}, {}}, 3), std::runtime_error);
}

TEST_F(ASubject, TellsWhoStandsBehindACount)
{
    const auto parish = parish::Snapshot::read(bdp);
    const Study study{parish, {}, {}, {}};
    const auto numbers = [&](const std::vector<Key>& cells) {
        QStringList told;
        for (const indicators::Who& who : behind(trial, study, cells))
            told << (who.person ? shown(who.person->number) : 'f' + shown(who.family->number));
        return told.join(' ');
    };
    const auto male = int(parish::Gender::Male);
    EXPECT_EQ(numbers({{byName, {male, 3}}}), "1 2 4");
    EXPECT_EQ(numbers({{byName, {male, 6}}, {byName, {male, 4}}, {byName, {male, 4}}}), "3 5");
    EXPECT_EQ(numbers({{byName, {Tally::any, 3, 0, 0}}}), "1 2 4 6 7");
    EXPECT_EQ(numbers({{byCouple, {}}}), "f1 f2 f3");
    EXPECT_EQ(numbers({{byName, {male, 9}}}), "");
    EXPECT_EQ(numbers({}), "");
}

TEST_F(ASubject, FindsWhatIsKnownOfAPersonAndAFamily)
{
    const auto parish = parish::Snapshot::read(bdp);
    Study study{parish, {}, std::vector<observation::Union>(3), std::vector<observation::Presence>(7)};
    study.unions[1].computedType = 4;
    study.presences[6].aliveUntil = {parish::dateOf(QDate(1750, 1, 1), true), observation::Proof::Death};
    EXPECT_EQ(study.unionOf(parish.families()[1]).computedType, 4);
    EXPECT_EQ(study.presenceOf(parish.people()[6]).aliveUntil.by, observation::Proof::Death);
}

TEST(TheSubjects, HaveTheirOwnNames)
{
    QSet<QString> ids;
    for (const Subject* subject : subjects()) {
        EXPECT_FALSE(ids.contains(subject->id)) << subject->id;
        ids.insert(subject->id);
        EXPECT_EQ(subjectOf(subject->id), subject);
        for (const Reason& reason : subject->reasons)
            EXPECT_LT(reason.count, subject->counts.size()) << subject->id;
    }
    EXPECT_EQ(subjectOf("nenhum"), nullptr);
}

TEST_F(ASubject, IsCountedOfAParishMadeReadyByItsSettings)
{
    run("update familia set datacasam = '1720-01-10', dcasamfixa = 0 where nfamilia = 2");
    run("update individuo set datanasc = '1700-01-10', DnascFixa = 1 where nind = 2");
    const auto parish = parish::Snapshot::read(bdp);
    Settings settings;
    settings.unions.approximateMarriages = true;
    const Study study = studyOf(parish, settings);
    ASSERT_EQ(study.unions.size(), 3U);
    ASSERT_EQ(study.presences.size(), 7U);
    EXPECT_TRUE(study.unions[1].marriage.isKnown());
    EXPECT_EQ(study.presences[1].from.by, observation::Proof::Birth);
    EXPECT_FALSE(studyOf(parish, {}).unions[1].marriage.isKnown());
}
