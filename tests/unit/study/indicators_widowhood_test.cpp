// What follows the end of a union, and how long it had lasted.
#include "study/counting.h"

#include "study/indicators/nuptiality.h"
#include "study/indicators/reasons.h"

#include <cmath>

using namespace study::indicators;
using study::report::Standing;

namespace {

constexpr qint32 men = 1, women = 2;

// Widows of 30 to 39 without children: months, remarried or left.
Tally widows()
{
    constexpr quint16 interval = 0, again = 1, left = 2;
    constexpr double month = 365.25 / 12;
    constexpr qint32 group = 20;
    Tally tally;
    for (const int months : {4, 7, 9, 14, 26, 75}) {
        const auto days = static_cast<qint32>(std::lround(months * month));
        tally.add({again, {1750, women, group, days}}, 1);
        tally.add({interval, {1750, women, group, days}}, 1);
    }
    for (const int months : {20, 40, 60, 120, 130, 200})
        tally.add({left, {1750, women, group, static_cast<qint32>(std::lround(months * month))}}, 1);
    return tally;
}

} // namespace

using Remarriage = Counting;

TEST_F(Remarriage, OfTheWorkedExampleFollowsThoseWhoDidnt)
{
    const auto figures = remarriage.figures(widows(), {});
    const Table chances = tableOf(figures, "probabilidades");
    EXPECT_EQ(value(chances, "Viúvas", "Nº em observação"), 12);
    EXPECT_EQ(value(chances, "Viúvas", "Voltaram a casar"), 6);
    EXPECT_NEAR(value(chances, "Viúvas", "Até 12 meses"), 25.0, 0.05);
    EXPECT_NEAR(value(chances, "Viúvas", "Até 24 meses"), 33.3, 0.05);
    EXPECT_NEAR(value(chances, "Viúvas", "Até 60 meses"), 42.9, 0.05);
    EXPECT_NEAR(value(chances, "Viúvas", "Alguma vez"), 57.1, 0.05);
    EXPECT_EQ(cell(chances, "Viúvas", "Até 24 meses").standing, Standing::Grey);
    const Table intervals = tableOf(figures, "intervalos");
    EXPECT_EQ(value(intervals, "Viúvas", "Nº"), 6);
    EXPECT_NEAR(value(intervals, "Viúvas", "Média"), 22.5, 0.05) << "of those who did";
    EXPECT_EQ(value(chances, "Viúvas, 30–39 anos", "Voltaram a casar"), 6);
    EXPECT_EQ(value(chances, "Viúvas, sem filhos menores de 15 anos", "Voltaram a casar"), 6);
}

TEST_F(Remarriage, StartsWhereTheUnionEndsAndEndsWithTheNext)
{
    const qint64 ana = person({"Ana", 'f', "1720-03-01", "1790-03-01"});
    const qint64 rui = person({"Rui", 'm', "1715-03-01", "1755-03-01"}), luis = person({"Luís", 'm'});
    couple(rui, ana, "1745-03-01");
    person({"Filho", 'm', "1746-03-01", "", 1});
    couple(luis, ana, "1756-03-01");
    const Tally tally = tallyFor(remarriage);
    EXPECT_EQ((tally[{1, {1750, women, 21, 366}}]), 1) << "35 years old, with a child";
    EXPECT_EQ((tally[{0, {1750, women, 21, 366}}]), 1);
    EXPECT_EQ(tally.sum(2), 0);
    EXPECT_EQ(leftOut(remarriage.figures(tally, {})), (QMap<QString, int>{{reasons::openUnion, 1}}));
}

TEST_F(Remarriage, IsNotThatOfWhoIsSeenUntilDeathAlone)
{
    const qint64 rui = person({"Rui", 'm', "1700-03-01", "1760-03-11"});
    const qint64 ana = person({"Ana", 'f', "1705-03-01", "1760-03-01"});
    couple(rui, ana, "1745-03-01");
    person({"Morto antes", 'm', "1746-03-01", "1747-03-01", 1});
    person({"Crescido", 'm', "1745-03-01", "", 1});
    const Tally tally = tallyFor(remarriage);
    EXPECT_EQ((tally[{2, {1750, men, 40, 10}}]), 1) << "60 years old, without a dependent child";
    EXPECT_EQ(tally.sum(1), 0);
}

TEST_F(Remarriage, CantBeTimedWhereAnotherUnionHasNoDate)
{
    const qint64 rui = person({"Rui", 'm', "1700-03-01", "1770-03-11"});
    const qint64 ana = person({"Ana", 'f', "1705-03-01", "1760-03-01"}), rosa = person({"Rosa", 'f'});
    couple(rui, ana, "1745-03-01");
    couple(rui, rosa);
    EXPECT_EQ(leftOut(figuresFor(remarriage))["outra união do sobrevivente sem data"], 1);
}

// Thursday 4 October 1582 was followed by Friday the 15th.
TEST_F(Remarriage, IsTenDaysSoonerOverTheChangeOfTheCalendar)
{
    const qint64 rui = person({"Rui", 'm', "1550-03-01", "1582-09-30"}), ana = person({"Ana", 'f', "1555-03-01"});
    couple(rui, ana, "1580-03-01");
    couple(person({"Luís", 'm'}), ana, "1582-11-01");
    const Tally tally = tallyFor(remarriage);
    EXPECT_EQ((tally[{0, {1550, women, 10, 22}}]), 1);
    EXPECT_EQ((tally[{1, {1550, women, 10, 22}}]), 1);
}

TEST_F(Remarriage, IsTimedWhereTheOtherUnionWasNoMarriage)
{
    const qint64 rui = person({"Rui", 'm', "1700-03-01", "1770-03-11"});
    const qint64 ana = person({"Ana", 'f', "1705-03-01", "1760-03-01"}), rosa = person({"Rosa", 'f'});
    couple(rui, ana, "1745-03-01");
    run("update familia set sfamilia = '5' where nfamilia = ?", {couple(rui, rosa)});
    const auto figures = figuresFor(remarriage);
    EXPECT_FALSE(leftOut(figures).contains("outra união do sobrevivente sem data"));
    EXPECT_EQ(value(tableOf(figures, "probabilidades"), "Viúvos", "Nº em observação"), 1);
}

TEST_F(Remarriage, BehindTheLastDayThatWasTypedDoesNotCount)
{
    const qint64 ana = person({"Ana", 'f', "1720-03-01", "1790-03-01"});
    couple(person({"Rui", 'm', "1715-03-01", "1755-03-01"}), ana, "1745-03-01");
    couple(person({"Luís", 'm'}), ana, "1756-03-01");
    const auto until = [&](const char* day) {
        run("update individuo set fimobs = ? where nind = ?", {QString(day), ana});
        return tallyFor(remarriage);
    };
    EXPECT_EQ((until("1757-03-01")[{1, {1750, women, 20, 366}}]), 1);
    const Tally tally = until("1755-12-31");
    EXPECT_EQ(tally.sum(0) + tally.sum(1), 0);
    EXPECT_EQ((tally[{2, {1750, women, 20, 305}}]), 1);
    EXPECT_EQ(leftOut(remarriage.figures(until("1755-01-01"), {}))["sem notícia do sobrevivente depois da viuvez"], 1);
}

TEST_F(Remarriage, IsAtRiskFromTheFirstDayThatWasTypedOn)
{
    const qint64 ana = person({"Ana", 'f', "1720-03-01", "1790-03-01"});
    couple(person({"Rui", 'm', "1715-03-01", "1755-03-01"}), ana, "1745-03-01");
    couple(person({"Luís", 'm'}), ana, "1756-03-01");
    const auto from = [&](const char* day) {
        run("update individuo set inicioobs = ? where nind = ?", {QString(day), ana});
        return tallyFor(remarriage);
    };
    constexpr quint16 enter = 10;
    EXPECT_EQ(from("1755-03-01").sum(enter), 0);
    const Tally tally = from("1755-04-01");
    EXPECT_EQ((tally[{enter, {1750, women, 20, 30}}]), 1);
    EXPECT_EQ((tally[{1, {1750, women, 20, 366}}]), 1);
    EXPECT_EQ(from("1757-03-01").sum(1), 0) << "married before she is seen";
}

TEST_F(Remarriage, CountsWhoEntersLaterAmongThoseAtRiskThenAlone)
{
    constexpr quint16 again = 1, left = 2, enter = 10;
    constexpr qint32 group = 20;
    Tally tally;
    tally.add({again, {1750, women, group, 100}}, 5);
    tally.add({again, {1750, women, group, 300}}, 5);
    tally.add({left, {1750, women, group, 4000}}, 10);
    tally.add({enter, {1750, women, group, 199}}, 10);
    const Table chances = tableOf(remarriage.figures(tally, {}), "probabilidades");
    EXPECT_EQ(value(chances, "Viúvas", "Nº em observação"), 20);
    EXPECT_NEAR(value(chances, "Viúvas", "Até 12 meses"), 100 * (1 - 0.5 * 10 / 15), 1e-9);
    tally.add({enter, {1750, women, group, 99}}, 10);
    const Table none = tableOf(remarriage.figures(tally, {}), "probabilidades");
    EXPECT_EQ(value(none, "Viúvas", "Até 12 meses"), -1) << "nobody is seen from the beginning";
}

TEST_F(Remarriage, OfNobodyHasNoNumbers)
{
    const auto figures = figuresFor(remarriage);
    EXPECT_TRUE(tableOf(figures, "probabilidades").isEmpty());
    EXPECT_TRUE(tableOf(figures, "intervalos").isEmpty());
    EXPECT_EQ(figures.size(), 3U) << "no curve";
}

using TheDurationOfMarriage = Counting;

TEST_F(TheDurationOfMarriage, GoesToTheFirstDeath)
{
    const qint64 rui = person({"Rui", 'm', "", "1760-08-30"}), ana = person({"Ana", 'f', "", "1790-03-01"});
    couple(rui, ana, "1750-03-01");
    const qint64 luis = person({"Luís", 'm', "", "1790-03-01"}), rosa = person({"Rosa", 'f', "", "1755-02-28"});
    couple(luis, rosa, "1750-03-01");
    const qint64 joao = person({"João", 'm'}), rita = person({"Rita", 'f'});
    couple(joao, rita, "1750-03-01");
    const auto figures = figuresFor(marriageDuration);
    const Table lengths = tableOf(figures, "duracao");
    EXPECT_EQ(value(lengths, "Todos", "Nº"), 2);
    EXPECT_NEAR(value(lengths, "Todos", "Média"), (10.5 + 5.0) / 2, 0.01);
    EXPECT_EQ(value(lengths, "1750–1799", "0–4 anos"), 50) << "four years are completed";
    EXPECT_EQ(cell(lengths, "1750–1799", "0–4 anos").standing, Standing::Suppressed);
    const Table first = tableOf(figures, "primeiro-a-morrer");
    EXPECT_EQ(value(first, "Todos", "Marido"), 1);
    EXPECT_EQ(value(first, "Todos", "Mulher"), 1);
    EXPECT_EQ(value(tableOf(figures, "residencia-do-casal"), "Todos", "Residência desconhecida"), 3);
    EXPECT_EQ(leftOut(figures), (QMap<QString, int>{{"fim da união desconhecido (fora da duração)", 1}}));
}

TEST_F(TheDurationOfMarriage, TellsWhereTheCoupleLived)
{
    run("insert into infopar (cod, nome) values ('030899', 'São Mamede')");
    const qint64 rui = person({"Rui", 'm'}), ana = person({"Ana", 'f'});
    couple(rui, ana, "1750-03-01");
    const auto lives = [this](const char* day, const char* place) {
        run("insert into residencia (numero, tiporesid, dataref, datafixa, localresid, tipolocal) values (1, 'f', ?, "
            "1, "
            "?, 'F')",
            {day, place});
    };
    lives("1749-01-10", "030899");
    lives("1751-01-10", "030866");
    EXPECT_EQ(value(tableOf(figuresFor(marriageDuration), "residencia-do-casal"), "Todos", "Residência fora"), 1);
    lives("1750-05-10", "030899");
    EXPECT_EQ(value(tableOf(figuresFor(marriageDuration), "residencia-do-casal"), "Todos", "Residência na paróquia"),
              1);
}
