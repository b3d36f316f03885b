// Intervals and kinds of births.
#include "data/demobdp.h"
#include "study/counting.h"
#include "study/natal.h"

#include "study/indicators/births.h"

using namespace study::indicators;
using study::report::Standing;

namespace {

class Births : public Natal
{
protected:
    static constexpr auto first = "primeiro-intervalo", ranks = "por-ordem", mean = "Média", number = "Número",
                          everyMarriage = "Todos os casamentos, 8 meses e mais",
                          firstMarriages = "Primeiros casamentos, 8 meses e mais",
                          premarital = "concepcoes-pre-nupciais";

    void handExample()
    {
        children(married({"1741-06-10", "1720-03-12", "1790-05-01", "1755-10-02"}),
                 {"1742-05-03", "1744-09-20", "1747-02-11", "1749-07-30", "1749-07-30", "1753-01-15"});
    }
    // A couple whose first child comes so many days behind the marriage.
    qint64 firstAfter(int days, QDate marriage = {1741, 6, 10})
    {
        const QByteArray day = marriage.toString("yyyy-MM-dd").toLatin1();
        const qint64 family = married({day.constData(), "1720-03-12", "1790-05-01", "1780-10-02"});
        child(family, marriage.addDays(days).toString("yyyy-MM-dd").toLatin1().constData());
        return family;
    }
    // The row of 243 days is of a marriage on this day.
    void workedIntervals(QDate of243)
    {
        for (const int days : {120, 150, 200, 214, 239, 243, 260, 273, 280, 300, 330, 365, 420, 500, 730})
            firstAfter(days, days == 243 ? of243 : QDate(1741, 6, 10));
    }
    void filiation(int code, qint64 nind) { run("update individuo set filiacao = ? where nind = ?", {code, nind}); }
    // A mother alone.
    qint64 motherAlone(const char* birth = "1720-03-12")
    {
        const qint64 mother = person({"Eva", 'f', birth});
        run("insert into familia (nfamilia, sfamilia) values (?, '3')", {++lastFamily});
        run("insert into familias (nfamilia, nind) values (?, ?)", {lastFamily, mother});
        return lastFamily;
    }
};

} // namespace

TEST_F(Births, OfTheHandExampleFollowEachOther)
{
    handExample();
    count(firstInterval);
    EXPECT_NEAR(value(first, everyMarriage, mean), 10.74, 0.005);
    EXPECT_NEAR(value(first, firstMarriages, mean), 10.74, 0.005);
    EXPECT_EQ(cell(first, everyMarriage, mean).standing, Standing::Suppressed);
    count(premaritalConceptions);
    EXPECT_EQ(value(premarital, "Todos os casamentos", "Antes dos 8 meses"), 0);
    count(birthIntervals);
    const std::pair<const char*, double> expected[]{{"1–2", 28.62}, {"2–3", 28.71}, {"3–4", 29.57}, {"4–5", 41.56}};
    for (const auto& [rank, months] : expected)
        EXPECT_NEAR(value(ranks, rank, mean), months, 0.005) << rank;
    EXPECT_EQ(value(ranks, "Todos", "Intervalos"), 4);
    EXPECT_NEAR(value("grandes-familias", "primeiro", mean), 28.62, 0.005);
    EXPECT_NEAR(value("grandes-familias", "terceiro", mean), 29.57, 0.005);
    EXPECT_NEAR(value("grandes-familias", "antepenúltimo", mean), 28.71, 0.005);
    EXPECT_NEAR(value("grandes-familias", "último", mean), 41.56, 0.005);
    count(twins);
    EXPECT_EQ(value("gemeos", "Todos", "Partos"), 5);
    EXPECT_EQ(value("gemeos", "Todos", "Partos de gémeos"), 1);
}

TEST_F(Births, OfTheHandExampleHaveTheMothersAges)
{
    handExample();
    count(parentsAge);
    const std::pair<const char*, double> expected[]{
        {"1.º", 22.14}, {"2.º", 24.53}, {"3.º", 26.92}, {"4.º", 29.38}, {"6.º", 32.85}};
    for (const auto& [rank, age] : expected)
        EXPECT_NEAR(value("idades", rank, "Idade média da mãe"), age, 0.005) << rank;
    EXPECT_EQ(value("idades", "4.º", "Mães"), 2) << "twins";
}

TEST_F(Births, BeforeEightMonthsOfTheCalendarArePremarital)
{
    workedIntervals({1741, 6, 10});
    count(premaritalConceptions);
    const QString all = "Todos os casamentos";
    EXPECT_EQ(value(premarital, all, "Primeiros partos"), 15);
    EXPECT_EQ(value(premarital, all, "Antes dos 7 meses"), 3);
    EXPECT_NEAR(value(premarital, all, "Parte antes dos 7 meses"), 20, 1e-9);
    EXPECT_EQ(value(premarital, all, "Antes dos 8 meses"), 6); // 243 days from 10 June are under eight months
    EXPECT_EQ(value(premarital, all, "Antes do casamento"), 0);
}

TEST_F(Births, OfTheWorkedIntervalsHaveTheirMeanAndMedian)
{
    workedIntervals({1741, 7, 1}); // eight months to the day
    count(premaritalConceptions);
    EXPECT_EQ(value(premarital, "Todos os casamentos", "Antes dos 8 meses"), 5);
    count(firstInterval);
    EXPECT_EQ(value(first, everyMarriage, number), 10);
    EXPECT_NEAR(value(first, everyMarriage, mean), 12.16, 0.005);
    EXPECT_EQ(value(first, firstMarriages, number), 10);
    EXPECT_NEAR(value(first, "Primeiros casamentos, 0 meses e mais", "Mediana"), 8.97, 0.005);
    EXPECT_NEAR(value(first, everyMarriage, "12–23 meses"), 30, 1e-9); // 365, 420, 500
    EXPECT_NEAR(value(first, everyMarriage, "24–35 meses"), 10, 1e-9); // 730 days, two years to the day
}

TEST_F(Births, OnTheLimitOfEightMonthsAreNot)
{
    firstAfter(244);
    firstAfter(245);
    firstAfter(-1);
    firstAfter(0);
    count(premaritalConceptions);
    EXPECT_EQ(value(premarital, "Todos os casamentos", "Antes dos 8 meses"), 2);
    EXPECT_EQ(value(premarital, "Todos os casamentos", "Antes do casamento"), 1);
    EXPECT_EQ(value(premarital, "Todos os casamentos", "Primeiros partos"), 4);
}

// The definition asks for a marriage in the parish; the interval, for a first child of it, too.
TEST_F(Births, InAnotherParishTellOfTheConceptionBeforeTheMarriage)
{
    run("insert into infopar (cod, nome) values ('030899', 'São Mamede')");
    run("update individuo set localnasc = '010101', tipolocalnasc = 'F' where famorig = ?", {firstAfter(150)});
    firstAfter(300);
    count(premaritalConceptions);
    EXPECT_EQ(value(premarital, "Todos os casamentos", "Primeiros partos"), 2);
    EXPECT_EQ(value(premarital, "Todos os casamentos", "Antes dos 8 meses"), 1);
    EXPECT_EQ(value(premarital, "Todos os casamentos, 1700–1749", "Primeiros partos"), 2);
    for (const auto& row : table("nao-contados").rows)
        EXPECT_EQ(std::get<double>(row[1].value), 0) << qPrintable(std::get<QString>(row[0].value));
    count(firstInterval);
    EXPECT_EQ(value(first, "Primeiros casamentos, 0 meses e mais", number), 1);
    EXPECT_EQ(leftOut("nascido noutra paróquia"), 1);
}

TEST_F(Births, TellWhyAFirstOneIsNotCounted)
{
    run("insert into infopar (cod, nome) values ('030899', 'São Mamede')");
    run("update familia set dcasamfixa = 0 where nfamilia = ?", {firstAfter(300)});
    run("update individuo set DnascFixa = 0 where famorig = ?", {firstAfter(300)});
    married({"1741-06-10"});
    child(motherAlone(), "1741-01-01");
    run("update familia set localcasam = '010101', tipolocalcasam = 'F' where nfamilia = ?", {firstAfter(300)});
    run("update individuo set localnasc = '010101', tipolocalnasc = 'F' where famorig = ?", {firstAfter(300)});
    child(married({}), "1742-05-05");
    count(firstInterval);
    EXPECT_EQ(tally().sum(0), 0);
    for (const char* reason : {"casamento aproximada", "filhos sem data exacta", "um só membro",
                               "casamento noutra paróquia", "nascido noutra paróquia", "sem data de casamento"})
        EXPECT_EQ(leftOut(reason), 1) << reason;
    EXPECT_EQ(tally().sum(8), 1); // without children
    Settings settings;
    settings.localOnly = false;
    count(firstInterval, settings);
    EXPECT_EQ(value(first, everyMarriage, number), 2);
}

TEST_F(Births, OfAWidowedOneAndOfWhoIsNotSeenAgainAreNotOfFirstMarriages)
{
    run("update familias set estadocivil = 3 where nfamilia = ?", {firstAfter(300)});
    child(married({"1741-06-10"}), "1742-06-10"); // and nothing more
    firstAfter(300);
    count(firstInterval);
    EXPECT_EQ(value(first, everyMarriage, number), 3);
    EXPECT_EQ(value(first, firstMarriages, number), 1);
}

// Nobody knows when the wife was married before; a child of that union tells that she was.
TEST_F(Births, OfAWifeWithAnEarlierUnionWithoutADateAreNotOfFirstMarriages)
{
    const qint64 family = firstAfter(300);
    const qint64 wife = lastPerson - 1;
    firstAfter(300);
    child(couple(person({"Gil"}), wife), "1740-01-01");
    count(firstInterval);
    EXPECT_EQ(value(first, everyMarriage, number), 2);
    EXPECT_EQ(value(first, firstMarriages, number), 1);
    run("update familias set numcasam = 1 where nfamilia = ? and nind = ?", {family, wife});
    count(firstInterval);
    EXPECT_EQ(value(first, firstMarriages, number), 2) << "the act tells it";
}

TEST_F(Births, AreTellingWhatBecameOfTheChildBefore)
{
    const qint64 family = married({"1740-06-10", "1720-03-12", "1790-05-01", "1770-10-02"});
    child(family, "1741-01-10", 'm', "1741-03-10"); // died
    child(family, "1742-01-10", 'm', "1743-01-10"); // on its birthday: survived
    child(family, "1744-01-10");                    // seen by the next birth
    child(family, "1746-01-10");
    run("update individuo set dobitofixa = 0 where nind = ?", {child(family, "1748-01-10", 'm', "1748-05-05")});
    child(family, "1749-01-10");
    count(birthIntervals);
    EXPECT_EQ(value("por-destino", "morreu antes de um ano", "Intervalos"), 1);
    EXPECT_EQ(value("por-destino", "sobreviveu a um ano", "Intervalos"), 3);
    EXPECT_EQ(value("por-destino", "desconhecido", "Intervalos"), 1);
    EXPECT_NEAR(value("por-destino", "sobreviveu a um ano", mean), 730.33 / 30.4375, 0.005);
    EXPECT_NEAR(value("por-destino", "Diferença: sobreviveu menos morreu", mean), (2191 / 3.0 - 365) / 30.4375, 0.005);
}

// The first child dies at 11 months, when the next one has been conceived; the second one at 13, before that.
TEST_F(Births, AreAlsoToldByWhetherTheChildBeforeLivedAtTheConception)
{
    const qint64 family = married({"1740-06-10", "1720-03-12", "1790-05-01", "1770-10-02"});
    child(family, "1741-01-10", 'm', "1741-12-10");
    child(family, "1742-06-10", 'm', "1743-07-10");
    child(family, "1744-04-11"); // conceived on 11 July 1743
    run("update individuo set dobitofixa = 0 where nind = ?", {child(family, "1746-01-10", 'm', "1747-03-03")});
    child(family, "1748-01-10");
    count(birthIntervals);
    EXPECT_EQ(value("por-destino", "morreu antes de um ano", "Intervalos"), 1);
    const char* const table = "por-destino-ate-a-concepcao";
    EXPECT_EQ(value(table, "morreu antes da concepção", "Intervalos"), 1);
    EXPECT_NEAR(value(table, "morreu antes da concepção", mean), 671 / 30.4375, 0.005);
    EXPECT_EQ(value(table, "vivia na concepção", "Intervalos"), 2);
    EXPECT_EQ(value(table, "desconhecido", "Intervalos"), 1);
    EXPECT_NEAR(value(table, "Diferença: vivia menos morreu", mean), ((516 + 639) / 2.0 - 671) / 30.4375, 0.005);
}

TEST_F(Births, AboveEightYearsApartAreFlagged)
{
    children(married({"1740-06-10"}), {"1741-01-10", "1749-01-11"});
    count(birthIntervals);
    EXPECT_EQ(value(ranks, "1–2", "Acima de 8 anos"), 1);
    EXPECT_EQ(leftOut("sem data exacta"), 0);
    children(married({"1740-06-10"}), {"1741-01-10", ""});
    count(birthIntervals);
    EXPECT_EQ(leftOut("sem data exacta"), 1);
}

TEST_F(Births, OfTwinsAreCountedByTheirSexesAndNearOnesAreFlagged)
{
    const qint64 family = married({"1740-06-10"});
    child(family, "1741-01-10", 'm');
    child(family, "1741-01-12", 'f');
    child(family, "1741-05-12", 'f');
    child(family, "1743-05-12", 'f');
    child(family, "1743-05-12", 'f');
    count(twins);
    EXPECT_EQ(value("gemeos", "Todos", "Partos"), 3);
    EXPECT_EQ(value("gemeos", "Todos", "Nascimentos 4 a 200 dias depois de outro"), 1);
    EXPECT_EQ(value("sexo-dos-gemeos", "De sexo diferente", number), 1);
    EXPECT_EQ(value("sexo-dos-gemeos", "Duas raparigas", number), 1);
    EXPECT_EQ(value("sexo-dos-gemeos", "Dizigóticos (Weinberg)", number), 2);
}

TEST(TheTwinsOfATally, AreAsTheWorkedExampleHasThem)
{
    Tally tally;
    tally.add({0, {1, 1750}}, 1186);
    tally.add({0, {2, 1750}}, 14);
    tally.add({1, {0, 1750}}, 5);
    tally.add({1, {1, 1750}}, 4);
    tally.add({1, {2, 1750}}, 5);
    const auto figures = twins.figures(tally, {});
    const auto& rates = std::get<study::report::Table>(figures[0]);
    EXPECT_NEAR(std::get<double>(rates.rows[0][3].value), 11.7, 0.05);
    const auto& pairs = std::get<study::report::Table>(figures[1]);
    EXPECT_EQ(std::get<double>(pairs.rows[5][1].value), 10);
    EXPECT_EQ(std::get<double>(pairs.rows[6][1].value), 4);
}

TEST(TheSexRatioOfATally, HasTheIntervalOfTheWorkedExample)
{
    Tally tally;
    tally.add({0, {1, 1750, 0}}, 412);
    tally.add({0, {2, 1750, 0}}, 388);
    tally.add({0, {0, 1750, 0}}, 7);
    const auto figures = sexRatio.figures(tally, {});
    const auto& row = std::get<study::report::Table>(figures[0]).rows[0];
    EXPECT_EQ(std::get<double>(row[3].value), 7);
    EXPECT_NEAR(std::get<double>(row[4].value), 106.2, 0.05);
    EXPECT_NEAR(row[4].interval->low, 92.4, 0.05);
    EXPECT_NEAR(row[4].interval->high, 122.0, 0.05);
    EXPECT_EQ(row[4].from.size(), 2U);
}

TEST_F(Births, OfASexAreThoseOfThePersonsOfTheParish)
{
    run("insert into infopar (cod, nome) values ('030899', 'São Mamede')");
    const qint64 family = married({"1740-06-10"});
    child(family, "1741-01-10", 'm');
    child(family, "1742-01-10", 'f');
    child(family, "1743-01-10", 'd');
    run("update individuo set localnasc = '010101', tipolocalnasc = 'F' where nind = ?", {child(family, "1744-01-10")});
    count(sexRatio);
    EXPECT_EQ(value("relacao-de-masculinidade", "Todos", "Rapazes"), 1);
    EXPECT_EQ(value("relacao-de-masculinidade", "Todos", "Raparigas"), 1);
    EXPECT_EQ(value("relacao-de-masculinidade", "Todos", "Sexo por determinar"), 1);
    EXPECT_EQ(cell("relacao-de-masculinidade", "Todos", "Rapazes por 100 raparigas").standing, Standing::Suppressed);
    EXPECT_EQ(leftOut("noutra paróquia"), 1);
    EXPECT_EQ(leftOut("sem data de nascimento"), 2);
}

TEST_F(Births, AreAllHereWhereTheParishIsNotKnownToItself)
{
    const qint64 family = married({"1740-06-10"});
    run("update individuo set localnasc = '010101', tipolocalnasc = 'F' where nind = ?", {child(family, "1744-01-10")});
    run("update familia set localcasam = '010101', tipolocalcasam = 'F'");
    count(sexRatio);
    EXPECT_EQ(value("relacao-de-masculinidade", "Todos", "Rapazes"), 1);
    count(firstInterval);
    EXPECT_EQ(value(first, everyMarriage, number), 1);
}

TEST_F(Births, ByTheMonthHaveTheirConceptions)
{
    const qint64 family = married({"1740-06-10"});
    for (int i = 0; i < 100; ++i)
        child(family, "1741-01-10");
    count(birthSeasons);
    EXPECT_EQ((tally()[{0, {1, 1700}}]), 100);
    EXPECT_EQ((tally()[{1, {4, 1700}}]), 100);
    EXPECT_EQ((tally()[{2, {1, 1700}}]), 1);
    run("update individuo set DnascFixa = 0 where famorig is not null");
    count(birthSeasons);
    EXPECT_EQ(leftOut("aproximada"), 100);
    EXPECT_EQ((tally()[{3, {1, 1700}}]), 100);
}

TEST_F(Births, OutOfWedlockAreAShareWithoutFoundlings)
{
    const qint64 family = married({"1740-06-10"});
    for (int i = 0; i < 18; ++i)
        child(family, "1741-01-10");
    filiation(11, child(family, "1741-01-10"));
    filiation(3, child(motherAlone(), "1741-02-10"));
    filiation(6, child(married({}), "1741-02-10"));
    run("update individuo set filiacao = null where nind = ?", {child(motherAlone(), "1741-03-10")});
    const qint64 lost = person({"Zé", 'm', "1741-05-05"});
    EXPECT_GT(lost, 0);
    count(illegitimacy);
    EXPECT_EQ(value("ilegitimidade", "Todos", "Legítimos"), 18);
    EXPECT_EQ(value("ilegitimidade", "Todos", "Legitimados"), 1);
    EXPECT_EQ(value("ilegitimidade", "Todos", "Ilegítimos"), 2);
    EXPECT_NEAR(value("ilegitimidade", "Todos", "Ilegítimos entre os três"), 200 / 21.0, 1e-9);
    EXPECT_EQ(value("ilegitimidade", "Todos", "Expostos, à parte"), 1);
    EXPECT_EQ(leftOut("filiação desconhecida"), 3); // and the two mothers
}

TEST_F(Births, OutOfWedlockTellOfTheirMothers)
{
    const qint64 family = motherAlone("1720-02-10");
    const qint64 mother = lastPerson;
    filiation(3, child(family, "1741-02-10"));
    filiation(3, child(family, "1743-02-10"));
    filiation(2, child(motherAlone(""), "1743-02-10"));
    couple(person({"Gil"}), mother, "1745-02-10");
    count(illegitimacy);
    const auto* mothers = "maes-de-ilegitimos";
    EXPECT_EQ(value(mothers, "Mães com dois filhos ilegítimos ou mais", number), 1);
    EXPECT_EQ(value(mothers, "Mães com dois filhos ilegítimos ou mais", "Base"), 2);
    EXPECT_EQ(value(mothers, "Nascimentos ilegítimos dessas mães", number), 2);
    EXPECT_EQ(value(mothers, "Nascimentos ilegítimos dessas mães", "Base"), 3);
    EXPECT_EQ(value(mothers, "Mães que casaram depois", number), 1);
    EXPECT_EQ(value(mothers, "Nascimentos ilegítimos com pai conhecido", number), 0);
    EXPECT_NEAR(value(mothers, "Idade da mãe ao primeiro filho ilegítimo", mean), 21, 1e-9);
}

TEST_F(Births, OfFoundlingsAreFollowedWhileTheyAreSeen)
{
    const qint64 family = married({});
    for (const char* death : {"1741-02-20", "1741-08-10", ""})
        filiation(6, child(family, "1741-02-10", 'm', death));
    child(family, "1741-02-10");
    child(family, "1745-02-10");
    count(foundlings);
    EXPECT_EQ(value("expostos", "Todos", "Expostos"), 3);
    EXPECT_EQ(value("sobrevivencia", "1 mês", "Mortos antes"), 1);
    EXPECT_EQ(value("sobrevivencia", "1 ano", "Mortos antes"), 2);
    EXPECT_EQ(cell("sobrevivencia", "1 ano", "Sobreviventes").standing, Standing::Suppressed);
}

// Neither who dies nor who is never seen again is followed where nothing but the own acts shows a foundling.
TEST_F(Births, OfFoundlingsWithoutAFamilyAreNotFollowed)
{
    for (const char* death : {"1741-02-20", "1741-08-10", ""}) {
        const qint64 found = person({"Zé", 'm', "1741-02-10", death});
        filiation(6, found);
    }
    count(foundlings);
    EXPECT_EQ(value("expostos", "Todos", "Expostos"), 3);
    EXPECT_EQ(leftOut("sem observação"), 3);
    EXPECT_TRUE(table("sobrevivencia").rows.empty());
}

// The family is last seen on the first of June of 1742, and the second foundling dies behind that day.
TEST_F(Births, OfFoundlingsDieWhileTheirFamilyIsSeenOrLeaveWithIt)
{
    const qint64 family = married({});
    filiation(6, child(family, "1741-02-10", 'm', "1741-02-20"));
    filiation(6, child(family, "1741-02-10"));
    child(family, "1742-06-01");
    const qint64 late = child(family, "1741-03-10", 'm', "1750-01-01");
    filiation(6, late);
    run("update individuo set localobito = '010101', tipolocalobito = 'F' where nind = ?", {late});
    count(foundlings);
    EXPECT_EQ(value("sobrevivencia", "10 anos", "Mortos antes"), 1);
    EXPECT_NEAR(value("sobrevivencia", "10 anos", "Sobreviventes"), 100 * 2.0 / 3, 1e-9);
    EXPECT_EQ(leftOut("sem observação"), 0);
}

// Twenty are followed for one year and some months, and one of them dies.
TEST(TheSurvivalOfFoundlings, IsSuppressedWhereNobodyIsFollowedSoLong)
{
    constexpr quint16 died = 2, left = 3;
    const auto cellOf = [](const study::statistics::Tally& tally, const char* row) {
        const auto figures = foundlings.figures(tally, {});
        const auto table = Counting::tableOf(figures, "sobrevivencia");
        return Counting::cell(table, row, "Sobreviventes");
    };
    study::statistics::Tally tally;
    tally.add({0, {1750}}, 20);
    tally.add({died, {100}}, 1);
    tally.add({left, {500}}, 19);
    EXPECT_EQ(cellOf(tally, "1 ano").standing, Standing::Sound);
    EXPECT_TRUE(cellOf(tally, "1 ano").interval);
    for (const char* row : {"5 anos", "10 anos"}) {
        EXPECT_EQ(cellOf(tally, row).standing, Standing::Suppressed) << row;
        EXPECT_FALSE(cellOf(tally, row).interval) << row;
    }
    study::statistics::Tally all;
    all.add({0, {1750}}, 20);
    all.add({died, {100}}, 20);
    EXPECT_EQ(cellOf(all, "10 anos").standing, Standing::Sound) << "known: nobody is left";
}

TEST_F(Births, HaveTheAgesOfTheParentsByTheRank)
{
    const qint64 family = married({"1740-06-10", "1720-01-10"});
    child(family, "1741-01-10");
    run("update individuo set idadepai = 30, idademae = 99 where nind = ?", {lastPerson});
    child(family, "1743-07-11");
    run("update individuo set idadepai = 0 where nind = ?", {lastPerson});
    count(parentsAge);
    EXPECT_NEAR(value("idades", "1.º", "Idade média da mãe"), 21, 1e-9);
    EXPECT_NEAR(value("idades", "2.º", "Idade média da mãe"), 23.5, 0.005);
    EXPECT_NEAR(value("idades-declaradas", "1.º", "Idade média do pai"), 30.5, 1e-9);
    EXPECT_EQ(value("idades-declaradas", "Todos", "Mães"), 0);
    EXPECT_EQ(leftOut("sem idade do pai"), 1);
}

class TheBirthsOfTheDemonstration : public DemoBdp
{
protected:
    static double valueOf(const Subject& subject, std::size_t row, std::size_t column)
    {
        const auto parish = study::parish::Snapshot::read(bdp_->connection);
        const Settings settings;
        const auto figures = subject.figures(tallyOf(subject, studyOf(parish, settings)), settings);
        return std::get<double>(std::get<study::report::Table>(figures[0]).rows[row][column].value);
    }
};

TEST_F(TheBirthsOfTheDemonstration, LieApartAsWasWorkedOut)
{
    EXPECT_EQ(valueOf(firstInterval, 0, 1), 110);
    EXPECT_NEAR(valueOf(firstInterval, 0, 2), 15.53, 0.005);
    EXPECT_EQ(valueOf(birthIntervals, 0, 1), 383);
    EXPECT_NEAR(valueOf(birthIntervals, 0, 2), 29.40, 0.005);
}
