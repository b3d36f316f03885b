// Episodes and indicators tell the same of the same people: their sums are the tallies.
#include "study/episodes.h"
#include "study/generated.h"

#include "demo.h"
#include "study/indicators/adultLife.h"
#include "study/indicators/childhood.h"
#include "study/indicators/exposure.h"
#include "study/indicators/fertility.h"
#include "study/indicators/mortality.h"
#include "study/indicators/nuptiality.h"
#include "study/indicators/settingsJson.h"
#include "study/indicators/subject.h"

#include <map>
#include <memory>

using namespace study;
using namespace study::indicators;
using episodes::File;
using parish::Date;

namespace {

constexpr int generatedPeople = 3000;

quint16 countOf(const Subject& subject, const char* name)
{
    for (std::size_t i = 0; i < subject.counts.size(); ++i)
        if (QLatin1String(subject.counts[i]) == QLatin1String(name)) return static_cast<quint16>(i);
    ADD_FAILURE() << name;
    return 0;
}

// Sums by a key, of which those that are 0 don't tell anything.
using Sums = std::map<std::pair<qint32, qint32>, qint64>;

Sums without0(Sums sums)
{
    std::erase_if(sums, [](const auto& one) { return one.second == 0; });
    return sums;
}

struct Case
{
    const char* name;
    bool isGenerated;
    Settings settings;
};

std::vector<Case> cases()
{
    Settings byPeriod, narrow, open;
    byPeriod.byMarriageCohort = false;
    byPeriod.cohortYears = 10;
    byPeriod.localOnly = false;
    byPeriod.derivedBirths = true;
    narrow.period = {1700, 1750};
    narrow.which = Which::Legitimate;
    narrow.gender = parish::Gender::Female;
    narrow.books[static_cast<std::size_t>(Series::Baptisms)] = {1690, 1740};
    narrow.gaps[static_cast<std::size_t>(Series::Baptisms)] = {{1712, 1714}};
    narrow.gaps[static_cast<std::size_t>(Series::Burials)] = {{1730, 1731}};
    open.openFamilies = true;
    open.unions.approximateMarriages = true;
    std::vector<Case> all;
    for (const bool isGenerated : {false, true})
        for (const auto& [name, settings] :
             {std::pair{"standard", Settings()}, {"by period", byPeriod}, {"narrow", narrow}, {"open", open}})
            all.push_back({name, isGenerated, settings});
    return all;
}

std::string nameOfCase(const testing::TestParamInfo<Case>& one)
{
    const char* const of = one.param.isGenerated ? "AGeneratedParish" : "TheDemonstration";
    return QString("%1Of%2").arg(QString(one.param.name).remove(' '), of).toStdString();
}

// A BDP, what a study makes of it, and its files of episodes.
struct Exported
{
    explicit Exported(const Case& of)
    {
        if (of.isGenerated) {
            const truth::Parish made = truth::parish(generatedPeople, 31, ORV_DATA_DIR);
            truth::write(made.bdp, made.world, bdp.connection);
        } else {
            demo::write(demo::demonstration(), bdp.connection);
        }
        indicators::keepSettings(bdp.connection, of.settings);
        exchange::exportEpisodes(bdp.connection, folder.path(), {.limitYears = 0});
        parish = std::make_unique<parish::Snapshot>(parish::Snapshot::read(bdp.connection));
        study = std::make_unique<Study>(studyOf(*parish, of.settings));
    }

    datafolder::MadeBdp bdp;
    QTemporaryDir folder;
    std::unique_ptr<parish::Snapshot> parish = {};
    std::unique_ptr<Study> study = {};
};

class Agreement : public testing::TestWithParam<Case>
{
protected:
    static void TearDownTestSuite() { made().clear(); }

    File file(const char* name) const { return {exported_.folder.path(), name}; }
    QString folder() const { return exported_.folder.path(); }
    Tally tally(const Subject& subject) const { return tallyOf(subject, *exported_.study); }
    // How many a file leaves out for this reason.
    qint64 leftOut(const QString& name, const QString& reason) const
    {
        const File all = file("nao_contados");
        for (qsizetype row = 0; row < all.size(); ++row)
            if (all.text(row, "file") == name && all.text(row, "reason") == reason)
                return all.text(row, "n").toLongLong();
        return 0;
    }

private:
    // Each is made once.
    static std::map<std::string, std::unique_ptr<Exported>>& made()
    {
        static std::map<std::string, std::unique_ptr<Exported>> all;
        return all;
    }
    static const Exported& exportedOf(const Case& of)
    {
        std::unique_ptr<Exported>& one = made()[std::string(of.name) + (of.isGenerated ? "+" : "")];
        if (!one) one = std::make_unique<Exported>(of);
        return *one;
    }

    const Exported& exported_ = exportedOf(GetParam());
};

class AgreementOfFiles : public Agreement
{
};

} // namespace

TEST_P(Agreement, OfMaritalFertilityByAgeAndPeriod)
{
    const Tally counted = tally(maritalFertility);
    Sums births, halfDays;
    for (std::size_t i = 0; i < maritalFertility.counts.size(); ++i) {
        const QString name = maritalFertility.counts[i];
        const bool isBirth = name.startsWith("nascimentos-"), isTime = name.startsWith("meios-dias-");
        if ((!isBirth && !isTime) || name.endsWith("sem-idade")) continue;
        for (const auto& [key, n] : counted.cells())
            if (key.count == i) (isBirth ? births : halfDays)[{key.at[0], key.at[2]}] += n;
    }
    Sums ownBirths, ownHalfDays;
    const File all = file("fecundidade");
    const char* const period = GetParam().settings.byMarriageCohort ? "marriage_cohort" : "period";
    for (qsizetype row = 0; row < all.size(); ++row) {
        const std::pair cell{all.text(row, "age_group").toInt(), all.text(row, period).toInt()};
        ownBirths[cell] += all.text(row, "births").toInt();
        ownHalfDays[cell] += all.halfDays(row);
        EXPECT_EQ(all.flag(row, "event"), all.text(row, "births") != "0");
    }
    EXPECT_FALSE(ownBirths.empty());
    EXPECT_EQ(without0(ownBirths), births);
    EXPECT_EQ(without0(ownHalfDays), halfDays);
}

TEST_P(Agreement, OfTheMortalityOfChildrenToTheDay)
{
    const Tally counted = tally(childhoodMortality);
    Sums exits; // whether it died, age in days
    for (const auto& [key, n] : counted.cells())
        if (key.count <= 1) exits[{key.count == 0, key.at[3]}] += n;
    ASSERT_EQ(countOf(childhoodMortality, "obitos"), 0);
    ASSERT_EQ(countOf(childhoodMortality, "saidas"), 1);

    Sums own;
    qint64 halfDays = 0, expected = 0;
    const File all = file("mortalidade_infancia");
    for (qsizetype row = 0; row < all.size(); ++row) {
        const Date birth = all.date(row, "birth_date"), end = all.date(row, "end_date");
        halfDays += all.halfDays(row);
        if (row + 1 < all.size() && all.text(row + 1, "id") == all.text(row, "id")) {
            EXPECT_FALSE(all.flag(row, "event")) << "only the last spell ends in the death";
            continue;
        }
        ++own[{all.flag(row, "event"), ageInDays(birth, end)}];
        expected += birth == end ? 1 : 2 * parish::daysBetween(birth, end);
    }
    EXPECT_FALSE(own.empty());
    EXPECT_EQ(own, exits);
    EXPECT_EQ(halfDays, expected);
}

TEST_P(Agreement, OfTheMortalityOfTheMarriedByAgeAndEstimate)
{
    Ages ages = fiveYearAges(20, 80);
    ages.push_back(200);
    const Tally counted = tally(adultMortality);
    std::map<QString, Sums> halfDays, deaths;
    for (const char* const name : {"mortalidade_adultos", "mortalidade_adultos_limites"}) {
        const File all = file(name);
        for (qsizetype row = 0; row < all.size(); ++row) {
            const qint32 gender = all.text(row, "sex") == "m" ? 1 : 2;
            const bool isBound = QString(name).endsWith("limites");
            const QString estimate = isBound ? all.text(row, "estimate") : QString("censored");
            const Episode spell{all.date(row, "birth_date"), all.date(row, "start_date"), all.date(row, "end_date"),
                                all.flag(row, "event")};
            for (const Slice& slice : split(spell, ages))
                halfDays[estimate][{gender, slice.age}] += slice.halfDays;
            const auto group = ageGroup(spell.origin, spell.until, ages);
            if (spell.endsInEvent && group) ++deaths[estimate][{gender, *group}];
        }
    }
    for (const auto& [estimate, name] : {std::pair{Estimate::Closed, "closed"},
                                         {Estimate::Least, "least"},
                                         {Estimate::Most, "most"},
                                         {Estimate::Censored, "censored"}})
    {
        Sums expectedTime, expectedDeaths;
        for (const auto& [key, n] : counted.cells()) {
            if (key.at[2] != static_cast<qint32>(estimate)) continue;
            if (key.count == countOf(adultMortality, "meios-dias")) expectedTime[{key.at[1], key.at[3]}] += n;
            if (key.count == countOf(adultMortality, "obitos")) expectedDeaths[{key.at[1], key.at[3]}] += n;
        }
        EXPECT_FALSE(expectedTime.empty()) << name;
        EXPECT_EQ(halfDays[name], expectedTime) << name;
        EXPECT_EQ(deaths[name], expectedDeaths) << name;
    }
}

TEST_P(Agreement, OfRemarriageToTheDay)
{
    const Tally counted = tally(remarriage);
    Sums again, left;
    qint64 halfDays = 0;
    for (const auto& [key, n] : counted.cells()) {
        if (key.count == countOf(remarriage, "novo casamento")) again[{key.at[1], key.at[3]}] += n;
        if (key.count == countOf(remarriage, "saída de observação")) left[{key.at[1], key.at[3]}] += n;
        if (key.count == countOf(remarriage, "entrada mais tarde")) halfDays -= 2 * n * (key.at[3] + 1);
    }
    for (const Sums& exits : {again, left})
        for (const auto& [cell, n] : exits)
            halfDays += 2 * n * cell.second;
    Sums ownAgain, ownLeft;
    qint64 ownHalfDays = 0;
    const File all = file("recasamento");
    for (qsizetype row = 0; row < all.size(); ++row) {
        const Date start = all.date(row, "start_date"), end = all.date(row, "end_date");
        const int days = parish::daysBetween(all.date(row, "widowed_date"), end);
        ++(all.flag(row, "event") ? ownAgain : ownLeft)[{all.text(row, "sex") == "m" ? 1 : 2, days}];
        ownHalfDays += start == end ? 0 : all.halfDays(row);
    }
    qint64 lefts = 0, ownLefts = leftOut("recasamento", "visto só no dia em que ficou viúvo");
    for (const auto& [cell, n] : left)
        lefts += n;
    for (const auto& [cell, n] : ownLeft)
        ownLefts += n;
    EXPECT_FALSE(ownAgain.empty() && ownLeft.empty());
    EXPECT_EQ(ownAgain, again);
    EXPECT_EQ(ownLefts, lefts);
    EXPECT_EQ(ownHalfDays, halfDays);
}

TEST_P(Agreement, OfWhoIsLeftOutAndWhy)
{
    const auto expectThem = [this](const Subject& subject, const char* name) {
        const Tally counted = tally(subject);
        for (const Reason& reason : subject.reasons) {
            const qint64 n = leftOut(name, reason.told);
            EXPECT_TRUE(n == 0 || n == counted.sum(reason.count)) << reason.told << ": " << n;
        }
    };
    expectThem(maritalFertility, "fecundidade");
    expectThem(childhoodMortality, "mortalidade_infancia");
    expectThem(adultMortality, "mortalidade_adultos");
    expectThem(remarriage, "recasamento");
    EXPECT_GT(file("nao_contados").size(), 4);
}

// Each life is one spell behind the other, each with a length, and nothing happens but at the end.
TEST_P(Agreement, OfTheSpellsOfOneLife)
{
    struct Of
    {
        const char *file, *life, *enter, *exit;
    };
    for (const Of& of :
         {Of{"fecundidade", "family", "age_enter", "age_exit"},
          Of{"fecundidade", "family", "since_enter", "since_exit"}, Of{"mortalidade_infancia", "id", "enter", "exit"},
          Of{"mortalidade_adultos", "id", "enter", "exit"}, Of{"nupcialidade", "id", "enter", "exit"},
          Of{"recasamento", "family", "enter", "exit"}})
    {
        const File all = file(of.file);
        EXPECT_GT(all.size(), 0) << of.file;
        for (qsizetype row = 0; row < all.size(); ++row) {
            const QString told = QString("%1 of %2, %3").arg(of.file, all.text(row, of.life), all.text(row, "spell"));
            EXPECT_LT(all.number(row, of.enter), all.number(row, of.exit)) << qPrintable(told);
            if (row == 0 || all.text(row, of.life) != all.text(row - 1, of.life) || of.enter[0] == 's') continue;
            EXPECT_GE(all.number(row, of.enter), all.number(row - 1, of.exit)) << qPrintable(told);
            EXPECT_EQ(all.text(row, "spell").toInt(), all.text(row - 1, "spell").toInt() + 1) << qPrintable(told);
        }
    }
}

TEST_P(AgreementOfFiles, WithWhatTheirPackageTells)
{
    EXPECT_EQ(exchanged::faultsOf(folder()), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Episodes, Agreement, testing::ValuesIn(cases()), nameOfCase);
INSTANTIATE_TEST_SUITE_P(Episodes, AgreementOfFiles,
                         testing::Values(Case{"standard", false, {}}, Case{"standard", true, {}}), nameOfCase);
