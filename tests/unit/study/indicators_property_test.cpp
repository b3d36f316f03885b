// What holds of every subject, whatever the parish: its counts add up, and stand behind what it tells.
#include "data/demobdp.h"
#include "study/generated.h"

#include "study/indicators/reading.h"
#include "study/indicators/studyReport.h"

#include <QRandomGenerator>
#include <QRegularExpression>

#include <memory>
#include <set>

namespace study::indicators {

using generated::tallyOfShare;
using study::parish::Snapshot;

namespace {

constexpr int peopleAsked = 1500;

// Two parishes with as many places, and the BDP that has both.
struct Sample
{
    truth::Parish one = truth::parish(peopleAsked, 21, ORV_DATA_DIR),
                  other = truth::parish(peopleAsked, 22, ORV_DATA_DIR);
    Snapshot first = generated::snapshotOf(one.bdp, one.world), second = generated::snapshotOf(other.bdp, one.world);
    Snapshot both = generated::snapshotOf(generated::together(one.bdp, other.bdp), one.world);
};

const Sample& sample()
{
    static const Sample all;
    return all;
}

std::vector<Settings> differentSettings()
{
    Settings byPeriod, narrow;
    byPeriod.byMarriageCohort = false;
    byPeriod.cohortYears = 10;
    byPeriod.localOnly = false;
    byPeriod.derivedBirths = true;
    narrow.period = {1700, 1750};
    narrow.which = Which::Legitimate;
    narrow.gender = study::parish::Gender::Female;
    narrow.completeAge = 45;
    narrow.unions.marriedAtDeath = false;
    return {{}, byPeriod, narrow};
}

// The counts of parts, cut anywhere, add up to those of the whole.
void expectSharesToAddUp(const Study& study, const Subject& subject, QRandomGenerator& dice)
{
    const std::size_t all = study.parish.people().size(), families = study.parish.families().size();
    const auto cut = [&dice](std::size_t size) { return std::size_t(dice.bounded(int(size) + 1)); };
    const std::size_t person = cut(all), family = cut(families);
    Tally sum = tallyOfShare(subject, study, {0, person, 0, family});
    sum += tallyOfShare(subject, study, {person, all, family, families});
    EXPECT_EQ(sum, tallyOf(subject, study)) << subject.id << " cut at " << person << " and " << family;
}

bool isConstant(const QString& table, const QString& column)
{
    return (table == "tempos-proibidos" && column == "Dias") || (table == "acumulados" && column == "log³(x + 1)");
}

// A count of nothing has no keys.
void expectKeysOfNumbers(const Subject& subject, const std::vector<study::report::Figure>& figures)
{
    for (const auto& figure : figures) {
        const auto* table = std::get_if<study::report::Table>(&figure);
        if (!table) continue;
        for (const auto& row : table->rows)
            for (std::size_t i = 0; i < row.size(); ++i) {
                const double* number = std::get_if<double>(&row[i].value);
                if (!number || *number == 0 || isConstant(table->id, table->columns[i].title)) continue;
                EXPECT_FALSE(row[i].from.empty())
                    << subject.id << ", " << qPrintable(table->id + ", " + table->columns[i].title);
            }
    }
}

std::set<Key> keysIn(const std::vector<study::report::Figure>& figures)
{
    std::set<Key> keys;
    for (const auto& figure : figures)
        if (const auto* table = std::get_if<study::report::Table>(&figure))
            for (const auto& row : table->rows)
                for (const auto& cell : row)
                    keys.insert(cell.from.begin(), cell.from.end());
    return keys;
}

} // namespace

TEST(EverySubject, CountsAsMuchInItsPartsAsInTheWhole)
{
    QRandomGenerator dice(1750);
    for (const Settings& settings : differentSettings()) {
        const Study study = studyOf(sample().first, settings);
        for (const Subject* subject : subjects())
            expectSharesToAddUp(study, *subject, dice);
    }
}

TEST(EverySubject, CountsOfTwoParishesWhatItCountsOfTheirPeopleTogether)
{
    for (const Settings& settings : differentSettings()) {
        const Study first = studyOf(sample().first, settings), second = studyOf(sample().second, settings),
                    both = studyOf(sample().both, settings);
        for (const Subject* subject : subjects()) {
            Tally sum = tallyOf(*subject, first);
            sum += tallyOf(*subject, second);
            EXPECT_EQ(sum, tallyOf(*subject, both)) << subject->id;
        }
    }
}

TEST(EverySubject, CountsTheSameOnAnyNumberOfThreads)
{
    const Study study = studyOf(sample().first, {});
    const Tallies one = talliesOf(study, {}, 1), four = talliesOf(study, {}, 4);
    EXPECT_EQ(one, four);
    EXPECT_EQ(reportOf(one, {}), reportOf(four, {}));
    for (const Subject* subject : subjects())
        EXPECT_EQ(tallyOf(*subject, study, 4), one.bySubject.at(subject->id)) << subject->id;
}

TEST(EverySubject, HasNamesOfItsOwn)
{
    std::set<QString> ids, titles;
    for (const Subject* subject : subjects()) {
        EXPECT_TRUE(ids.insert(subject->id).second) << subject->id;
        EXPECT_TRUE(titles.insert(subject->title).second) << subject->title;
        EXPECT_EQ(subjectOf(subject->id), subject);
        EXPECT_GT(QString(subject->method).count('.'), 0) << subject->id;
        std::set<QString> counts(subject->counts.begin(), subject->counts.end());
        EXPECT_EQ(counts.size(), subject->counts.size()) << subject->id;
        for (const Reason& reason : subject->reasons)
            EXPECT_LT(reason.count, subject->counts.size()) << subject->id << ": " << reason.told;
    }
}

TEST(EverySubject, TellsItsMethodInThreeSentences)
{
    static const QRegularExpression end("[.!?](?=\\s|$)");
    for (const Subject* subject : subjects()) {
        const QString method = subject->method;
        EXPECT_EQ(method.count(end), 3) << subject->id << ": " << qPrintable(method);
        EXPECT_TRUE(method.endsWith('.')) << subject->id;
    }
}

// A click on a number leads to the people behind it. Two columns are constants of the calendar and of a formula.
TEST(EverySubject, TellsTheKeysOfEachNumber)
{
    for (const Settings& settings : differentSettings()) {
        const Study study = studyOf(sample().first, settings);
        for (const Subject* subject : subjects())
            expectKeysOfNumbers(*subject, subject->figures(tallyOf(*subject, study), settings));
    }
}

TEST(EverySubject, IsWrittenAndReadAgain)
{
    const Tallies tallies = talliesOf(studyOf(sample().first, {}), {.path = "a.orv", .bytes = 1, .sha256 = "ab"});
    EXPECT_EQ(talliesFrom(jsonOf(tallies)), tallies);
}

class EverySubjectOfTheDemonstration : public DemoBdp
{
};

TEST_F(EverySubjectOfTheDemonstration, CountsSomething)
{
    const Snapshot parish = Snapshot::read(bdp_->connection);
    const Study study = studyOf(parish, {});
    for (const Subject* subject : subjects())
        EXPECT_FALSE(tallyOf(*subject, study).isEmpty()) << subject->id;
}

TEST_F(EverySubjectOfTheDemonstration, CountsAsMuchInItsPartsAsInTheWhole)
{
    const Snapshot parish = Snapshot::read(bdp_->connection);
    const Study study = studyOf(parish, {});
    QRandomGenerator dice(1896);
    for (const Subject* subject : subjects())
        for (int round = 0; round < 5; ++round)
            expectSharesToAddUp(study, *subject, dice);
}

TEST_F(EverySubjectOfTheDemonstration, TellsTheKeysOfEachNumber)
{
    const Snapshot parish = Snapshot::read(bdp_->connection);
    const Study study = studyOf(parish, {});
    for (const Subject* subject : subjects())
        expectKeysOfNumbers(*subject, subject->figures(tallyOf(*subject, study), study.settings));
}

// A number that names the keys it was made of is a number of somebody.
TEST_F(EverySubjectOfTheDemonstration, TellsWhoStandsBehindItsFigures)
{
    const Snapshot parish = Snapshot::read(bdp_->connection);
    const Study study = studyOf(parish, {});
    for (const Subject* subject : subjects()) {
        const Tally tally = tallyOf(*subject, study);
        const Reading reading(tally);
        int told = 0;
        for (const Key& key : keysIn(subject->figures(tally, study.settings)))
            if (reading.sum(key.count, key.at) != 0) {
                ++told;
                EXPECT_FALSE(behind(*subject, study, {key}).empty()) << subject->id << ' ' << key.count;
            }
        EXPECT_GT(told, 0) << subject->id;
    }
}

} // namespace study::indicators
