// The file of the tallies of one or more parishes.
#include "study/indicators_random.h"

#include "platform/jet/error.h"
#include "study/indicators/tallyJson.h"

#include <gtest/gtest.h>

#include <limits>

using namespace study::indicators;

namespace {

constexpr const char* ageCounts[]{"homens", "mulheres", "sem_nascimento"};
constexpr const char* deathCounts[]{"obitos", "dias"};
const Subject ages{.id = "idade-ao-casamento",
                   .group = "Nupcialidade",
                   .title = "Idade ao casamento",
                   .method = "",
                   .counts = ageCounts,
                   .reasons = {},
                   .fill = nullptr,
                   .figures = nullptr};
const Subject deaths{.id = "mortalidade",
                     .group = "Mortalidade",
                     .title = "Mortalidade",
                     .method = "",
                     .counts = deathCounts,
                     .reasons = {},
                     .fill = nullptr,
                     .figures = nullptr};
const std::vector<const Subject*> bothSubjects{&ages, &deaths};

Tally randomTally(QRandomGenerator& dice, int counts)
{
    Tally tally;
    for (int n = dice.bounded(40); n > 0; --n)
        tally.add({static_cast<quint16>(dice.bounded(counts)),
                   {dice.bounded(1500, 1900), dice.bounded(-3, 3), dice.bounded(2) == 0 ? 0 : 2460, 0}},
                  dice.bounded(1, 1000));
    return tally;
}

Counted countedIn(const QString& mark, const Settings& settings = {})
{
    return {.source = {.path = "/bdp/São \"Pedro\".orv",
                       .bytes = 123456789012,
                       .sha256 = mark,
                       .readAt = QDateTime(QDate(2024, 5, 1), QTime(10, 0, 1, 23))},
            .settings = settings};
}

Tallies small(const QString& mark = "ab12", const Settings& settings = {})
{
    Tallies tallies{.parishes = {countedIn(mark, settings)}};
    tallies.bySubject[ages.id].add({0, {1750, 2460}}, 3);
    tallies.bySubject[ages.id].add({2, {1750}}, 1);
    tallies.bySubject[deaths.id] = {};
    return tallies;
}

// The text of the small one, with something else in it.
QByteArray with(const QByteArray& was, const QByteArray& is)
{
    QByteArray json = jsonOf(small(), bothSubjects);
    EXPECT_TRUE(json.contains(was)) << was.constData();
    return json.replace(was, is);
}

template <class Act>
void expectRefused(Act act, const QString& told)
{
    try {
        act();
        ADD_FAILURE() << "taken; expected: " << qPrintable(told);
    } catch (const jet::Error& error) {
        EXPECT_TRUE(error.description.contains(told)) << qPrintable(error.description);
    }
}

void expectTalliesRefused(const QByteArray& json, const QString& told)
{
    expectRefused([&json] { talliesFrom(json, bothSubjects); }, told);
}

} // namespace

TEST(AFileOfTallies, IsReadAsItWasWritten)
{
    QRandomGenerator dice(1640);
    for (int round = 0; round < 200; ++round) {
        const Settings settings = randomSettings(dice);
        Tallies tallies;
        for (int n = dice.bounded(1, 4); n > 0; --n)
            tallies.parishes.push_back(countedIn(QString::number(n), settings));
        tallies.bySubject[ages.id] = randomTally(dice, 3);
        tallies.bySubject[deaths.id] = randomTally(dice, 2);
        const QByteArray json = jsonOf(tallies, bothSubjects);
        EXPECT_EQ(talliesFrom(json, bothSubjects), tallies) << json.constData();
        EXPECT_EQ(jsonOf(talliesFrom(json, bothSubjects), bothSubjects), json);
    }
}

TEST(AFileOfTallies, HoldsWhatIsAtTheLimits)
{
    Tallies tallies = small();
    tallies.bySubject[deaths.id].add({1, {std::numeric_limits<qint32>::max(), Tally::any + 1, 0, -1}},
                                     1'000'000'000'000);
    tallies.bySubject[deaths.id].add({1, {}}, -5);
    tallies.parishes[0].source = {};
    EXPECT_EQ(talliesFrom(jsonOf(tallies, bothSubjects), bothSubjects), tallies);
}

TEST(AFileOfTallies, NamesItsCounts)
{
    const QByteArray json = jsonOf(small(), bothSubjects);
    EXPECT_TRUE(
        json.contains(R"("idade-ao-casamento":{"homens":[[[1750,2460,0,0],3]],"sem_nascimento":[[[1750,0,0,0],1]]})"))
        << json.constData();
    EXPECT_TRUE(json.contains(R"("mortalidade":{})"));
    EXPECT_TRUE(json.contains(R"("versao":1)"));
}

TEST(AFileOfTallies, FollowsItsNamesWhereTheCountsStandOtherwise)
{
    static constexpr const char* later[]{"sem_nascimento", "viuvos", "homens", "mulheres"};
    Subject moved = ages;
    moved.counts = later;
    const std::vector<const Subject*> knownLater{&moved, &deaths};
    const Tallies read = talliesFrom(jsonOf(small(), bothSubjects), knownLater);
    EXPECT_EQ((read.bySubject.at(ages.id)[{2, {1750, 2460}}]), 3);
    EXPECT_EQ((read.bySubject.at(ages.id)[{0, {1750}}]), 1);
}

TEST(AFileOfTallies, IsNotWrittenOfWhatNobodyKnows)
{
    Tallies tallies = small();
    tallies.bySubject[ages.id].add({3, {}}, 1);
    expectRefused([&] { jsonOf(tallies, bothSubjects); }, "não tem a contagem n.º 3");
    expectRefused([&] { jsonOf(small(), std::span(bothSubjects).subspan(1)); }, "Não há o tema \"idade-ao-casamento\"");
}

TEST(AFileOfTallies, OfAnotherKindIsRefused)
{
    for (const char* none : {"", "{}", "[]", "{\"formato\": 1}", "PK\x03\x04", "{\"formato\":\"orv-contagens\""})
        expectTalliesRefused(QByteArray(none), "não é um ficheiro de contagens");
    expectTalliesRefused(with("orv-contagens", "outro"), "não é um ficheiro de contagens");
    expectTalliesRefused(QByteArray(100'000, '['), "não é um ficheiro de contagens");
}

TEST(AFileOfTallies, OfALaterVersionIsRefused)
{
    expectTalliesRefused(with(R"("versao":1)", R"("versao":2)"), "da versão 2, que este programa ainda não conhece");
    expectTalliesRefused(with(R"("versao":1)", R"("versao":"1")"), "a versão não é um número");
    expectTalliesRefused(with(R"("versao":1)", R"("versao":0)"), "a versão não é um número");
    expectTalliesRefused(with(R"("versao":1)", R"("x":1)"), "falta \"versao\"");
}

TEST(AFileOfTallies, ThatIsDamagedIsRefused)
{
    const QByteArray cell = "[[1750,2460,0,0],3]";
    for (const char* damaged :
         {"[[1750,2460,0],3]", "[[1750,2460,0,0,0],3]", "[[1750,2460,0,0]]", "[[1750,2460,0,0],0]",
          "[[1750,2460,0,0],3.5]", "[[1750,2460,0,0],\"3\"]", "[[1750,2460,0,\"\"],3]", "[[2147483648,0,0,0],3]",
          "[[-2147483647,0,0,0],3]", "[[1750,0,0,0],9223372036854775807]", "[[1750,0,0,0],18446744073709551615]", "7",
          "null", "[[1750,2460,0,0],3],[[1750,2460,0,0],3]"})
        expectTalliesRefused(with(cell, damaged), "danificado: \"homens\" do tema \"idade-ao-casamento\"");
    expectTalliesRefused(with("[" + cell + "]", "{}"), "danificado: \"homens\"");
    expectTalliesRefused(with(R"("mortalidade":{})", R"("mortalidade":[])"), "o tema \"mortalidade\" não é um objecto");
    expectTalliesRefused(with(R"("temas":{)", R"("temas":[],"x":{)"), "\"temas\" não é um objecto");
    expectTalliesRefused(with(R"("temas")", R"("x")"), "falta \"temas\"");
    expectTalliesRefused(with(R"("bytes":123456789012)", R"("bytes":-1)"), "o tamanho");
    expectTalliesRefused(with(R"("lido":"2)", R"("lido":"x2)"), "a hora");
    expectTalliesRefused(with(R"("sha256":"ab12")", R"("sha256":12)"), "\"sha256\" não é um texto");
    expectTalliesRefused(with(R"("ajustes":{)", R"("ajustes":7,"x":{)"), "não são os ajustes");
    expectTalliesRefused(with(R"(_movel":9)", R"(_movel":8)"), "\"media_movel\"");
    expectTalliesRefused(with(R"("freguesias":[{)", R"("freguesias":[],"x":[{)"), "de que freguesias");
    expectTalliesRefused(with(R"("freguesias":[{)", R"("freguesias":[1,{)"), "uma freguesia não é um objecto");
}

TEST(AFileOfTallies, WithUnknownSubjectsOrCountsIsRefused)
{
    expectTalliesRefused(with("mortalidade", "outro-tema"), "um tema desconhecido: \"outro-tema\"");
    expectTalliesRefused(with("homens", "marcianos"),
                         "uma contagem desconhecida: \"marcianos\" do tema \"idade-ao-casamento\"");
}

TEST(TalliesOfTwoParishes, AddUp)
{
    Tallies other = small("cd34");
    other.bySubject[deaths.id].add({0, {1800}}, 7);
    const Tallies sum = joined(small(), other);
    ASSERT_EQ(sum.parishes.size(), 2U);
    EXPECT_EQ(sum.parishes[1].source.sha256, "cd34");
    EXPECT_EQ((sum.bySubject.at(ages.id)[{0, {1750, 2460}}]), 6);
    EXPECT_EQ((sum.bySubject.at(deaths.id)[{0, {1800}}]), 7);
    EXPECT_EQ(talliesFrom(jsonOf(sum, bothSubjects), bothSubjects), sum);
}

TEST(TalliesOfTwoParishes, OfOtherSettingsAreNotJoined)
{
    Settings settings;
    settings.cohortYears = 25;
    settings.unions.marriedAtDeath = false;
    expectRefused([&] { joined(small(), small("cd34", settings)); },
                  "ajustes diferentes (anos de cada coorte ou período; o óbito de um casado termina a união)");
    Tallies both = small();
    both.parishes.push_back(countedIn("cd34", settings));
    expectTalliesRefused(jsonOf(both, bothSubjects), "ajustes diferentes");
}

TEST(TalliesOfTwoParishes, OfTheSameFileAreNotJoined)
{
    expectRefused([] { joined(small(), small()); }, "foi contada duas vezes");
    EXPECT_EQ(joined(small(""), small("")).parishes.size(), 2U) << "nothing tells that they are the same";
}

TEST(TalliesOfTwoParishes, OfOtherSubjectsAreNotJoined)
{
    Tallies fewer = small("cd34");
    fewer.bySubject.erase(deaths.id);
    expectRefused([&] { joined(small(), fewer); }, "o tema \"mortalidade\" só está numa delas");
    expectRefused([&] { joined(fewer, small()); }, "o tema \"mortalidade\" só está numa delas");
}

TEST(TalliesOfTwoParishes, MayDifferInTheirBooksAndInWhatIsOnlyShown)
{
    Settings settings;
    settings.books[0] = {1700, 1850};
    settings.gaps[0] = {{1810, 1811}};
    settings.neighbours = {"030301"};
    settings.filiations = {{17, Legitimacy::Foundling}};
    settings.movingAverage = 5;
    settings.skipCrises = true;
    settings.missingBirths = 0.1;
    EXPECT_TRUE(whatDiffers({}, settings).isEmpty());
    EXPECT_EQ(joined(small(), small("cd34", settings)).parishes[1].settings, settings);
}

TEST(TalliesOfTwoParishes, AreShownForTheYearsThatAllBooksCover)
{
    Settings one, other;
    one.books = {{{1600, 1850}, {0, 1800}, {1700, 0}, {0, 0}}};
    other.books = {{{1650, 1900}, {1620, 1780}, {0, 1790}, {0, 0}}};
    one.gaps[1] = {{1640, 1645}};
    other.gaps[1] = {{1640, 1645}, {1700, 1701}};
    one.movingAverage = 5;
    const Settings shown = settingsOf(joined(small("ab12", one), small("cd34", other)));
    EXPECT_EQ(shown.books, (std::array<YearSpan, 4>{{{1650, 1850}, {1620, 1780}, {1700, 1790}, {0, 0}}}));
    EXPECT_EQ(shown.gaps[1], (std::vector<YearSpan>{{1640, 1645}, {1700, 1701}}));
    EXPECT_EQ(shown.movingAverage, 5);
    EXPECT_EQ(settingsOf(Tallies()), Settings());
    EXPECT_EQ(settingsOf(small("ab12", one)), one);
}

TEST(TalliesOfTwoParishes, WhoseBooksNeverCoverTheSameYearShowNone)
{
    Settings one, other;
    one.books[0] = {1600, 1650};
    other.books[0] = {1700, 1750};
    const Settings shown = settingsOf(joined(small("ab12", one), small("cd34", other)));
    for (const int year : {1600, 1650, 1675, 1700, 1750})
        EXPECT_FALSE(shown.covers(Series::Baptisms, year)) << year;
}
