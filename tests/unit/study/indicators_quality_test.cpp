// The quality page, mothers, ages at death, godparents and names.
#include "study/taking.h"

#include "study/indicators/annual.h"
#include "study/indicators/deaths.h"
#include "study/indicators/mortality.h"
#include "study/indicators/packedName.h"
#include "study/indicators/quality.h"

using namespace study::indicators;
using taking::keyOf;
using taking::Shown;

namespace {

constexpr std::array<int, 30> statedAges = {23, 25, 27, 30, 30, 30, 31, 33, 35, 35, 38, 40, 40, 40, 40,
                                            42, 44, 45, 45, 47, 50, 50, 50, 52, 55, 58, 60, 60, 60, 62};

} // namespace

TEST(Quality, HasTheWhippleIndexOfTheWorkedExample)
{
    Tally tally;
    tally.add(keyOf(quality, "pessoas", {0, 1}), 30);
    for (const int age : statedAges)
        tally.add(keyOf(quality, "idades-ao-obito", {age}), 1);
    tally.add(keyOf(quality, "idades-ao-obito", {65}), 7); // outside of the index
    const Shown shown(quality, tally);
    EXPECT_NEAR(shown.value("sinais", "Índice de Whipple das idades declaradas ao óbito", "Valor"), 316.7, 0.05);
    EXPECT_EQ(shown.value("sinais", "Índice de Whipple das idades declaradas ao óbito", "De quantos"), 30);
}

TEST(Quality, HasTheTwinsAndTheSexRatioOfTheWorkedExamples)
{
    Tally tally;
    tally.add(keyOf(quality, "nascimentos", {1750, 1, 0}), 412);
    tally.add(keyOf(quality, "nascimentos", {1750, 2, 0}), 388);
    tally.add(keyOf(quality, "partos", {1750}), 1200);
    tally.add(keyOf(quality, "partos-de-gemeos", {1750}), 14);
    const Shown shown(quality, tally);
    EXPECT_NEAR(shown.value("nascimentos", "1750–1759", "Partos de gémeos"), 11.7, 0.05);
    EXPECT_NEAR(shown.value("nascimentos", "Todos os anos", "Rapazes por 100 raparigas"), 106.2, 0.05);
    const Table table = shown.table("nascimentos");
    const auto interval = Counting::cell(table, "1750–1759", "Rapazes por 100 raparigas").interval;
    ASSERT_TRUE(interval);
    EXPECT_NEAR(interval->low, 92.4, 0.05);
    EXPECT_NEAR(interval->high, 122.0, 0.05);
}

TEST(MaternalMortality, OfTheWorkedExampleIs7Point8)
{
    Tally tally;
    tally.add(keyOf(maternalMortality, "partos", {1750, 1}), 1150);
    tally.add(keyOf(maternalMortality, "obitos-da-mae", {1750, 1, 5}), 7);
    tally.add(keyOf(maternalMortality, "obitos-da-mae", {1750, 1, 42}), 1);
    tally.add(keyOf(maternalMortality, "obitos-da-mae", {1750, 1, 60}), 1);
    const Shown shown(maternalMortality, tally);
    EXPECT_NEAR(shown.value("por-periodo", "1750–1799", "Por mil partos"), 7.8, 0.05);
    EXPECT_EQ(shown.value("por-periodo", "1750–1799", "Óbitos até 42 dias"), 8);
}

TEST(Godparents, OfTheWorkedExampleHaveAGiniOf0449)
{
    Tally tally;
    for (const auto& [held, people] :
         {std::pair(1, 30), std::pair(2, 10), std::pair(3, 5), std::pair(6, 3), std::pair(15, 2)})
        tally.add(keyOf(godparenthood, "afilhados-por-padrinho", {held}), people);
    const Shown shown(godparenthood, tally);
    EXPECT_NEAR(shown.value("concentracao", "Padrinhos e madrinhas", "Gini"), 0.449, 0.0005);
    EXPECT_EQ(shown.value("concentracao", "Padrinhos e madrinhas", "Afilhados ou casamentos"), 113);
    EXPECT_NEAR(shown.value("concentracao", "Padrinhos e madrinhas", "Os 2 primeiros têm"), 26.5, 0.05);
    EXPECT_EQ(shown.value("concentracao", "Padrinhos e madrinhas", "Os 20 primeiros têm"), 83 / 113.0 * 100);
}

TEST(APackedName, ComesBackAsItWas)
{
    for (const char* name : {"Maria", "João", "Antónia", "Inês", "Ágata", "Maximiliana"})
        EXPECT_EQ(unpacked(packed(QString::fromUtf8(name))), QString::fromUtf8(name));
    EXPECT_EQ(packed(""), PackedName());
    EXPECT_EQ(unpacked(packed("Ana Rita")), "Ana Rita");
    EXPECT_EQ(unpacked(packed("Zùlmira")), "Zulmira");
    EXPECT_EQ(unpacked(packed("Abcdefghijklmnopq")), "Abcdefghijklmno");
}

TEST(TheSubjectsOfDeaths, GiveFiguresOfNothing)
{
    for (const Subject* subject :
         {&quality, &maternalMortality, &ageAtDeath, &orphanhood, &seasonOfDeaths, &mortalityCrises, &lastSacraments,
          &causesOfDeath, &annualSeries, &godparenthood, &givenNames})
    {
        for (const auto& reason : subject->reasons)
            EXPECT_LT(reason.count, subject->counts.size()) << subject->id;
        for (const auto& figure : subject->figures({}, {})) {
            const auto* table = std::get_if<study::report::Table>(&figure);
            if (!table) continue;
            for (const auto& row : table->rows)
                EXPECT_EQ(row.size(), table->columns.size()) << subject->id << qPrintable(table->id);
        }
    }
}

using Deceased = Counting;

TEST_F(Deceased, HaveTheAgeOfTheirDatesOrOfTheActOrOfTheirClass)
{
    person({"A", 'm', "1700-01-01", "1750-07-02"});
    run("update individuo set idadeobito = 40 where nind = ?", {person({"B", 'f', "", "1750-07-02"})});
    run("update individuo set classparoquial = 1 where nind = ?", {person({"C", 'f', "", "1750-07-02"})});
    person({"D", 'f', "", "1750-07-02"});
    run("update individuo set classparoquial = 8 where nind = ?", {person({"E", 'f', "", "1750-07-02"})});
    const auto figures = figuresFor(ageAtDeath);
    EXPECT_EQ(value(tableOf(figures, "idades"), "50–59", "Pelas datas"), 1);
    EXPECT_EQ(value(tableOf(figures, "idades"), "40–49", "Declarada"), 1);
    EXPECT_EQ(value(tableOf(figures, "idades"), "menores de 7, sem idade", "Todos"), 1);
    EXPECT_NEAR(value(tableOf(figures, "idade-media"), "Todo o período", "Idade média declarada"), 40.5, 1e-9);
    EXPECT_EQ(leftOut(figures), (QMap<QString, int>{{"óbito sem idade nem classe", 2}}));
}

TEST_F(Deceased, StandInAPyramidByAgeAndNumber)
{
    for (const auto& figure : figuresFor(ageAtDeath))
        if (const auto* chart = std::get_if<study::report::Chart>(&figure)) {
            EXPECT_EQ(chart->drawing, study::report::Drawing::Pyramid);
            EXPECT_EQ(chart->xTitle, "idade (anos)");
            EXPECT_EQ(chart->yTitle, "óbitos");
        }
}

TEST_F(Deceased, MothersCountOnceForTwins)
{
    const qint64 mother = person({"Ana", 'f', "1720-01-01", "1750-03-20"});
    const qint64 family = couple(person({"Rui", 'm'}), mother, "1745-01-01");
    person({"Um", 'm', "1750-03-10", "", family});
    person({"Dois", 'm', "1750-03-11", "", family});
    person({"Antes", 'm', "1747-03-11", "", family});
    const Table table = tableOf(figuresFor(maternalMortality), "por-periodo");
    EXPECT_EQ(value(table, "1750–1799", "Partos"), 1);
    EXPECT_EQ(value(table, "Todo o período", "Partos"), 2);
    EXPECT_EQ(value(table, "Todo o período", "Óbitos até 42 dias"), 1);
}

TEST_F(Deceased, AreToldByTheWordsOfTheirCause)
{
    for (const char* cause : {"Bexigas", "de bexigas", "Febre maligna", "Tísica", "hum tiro", ""})
        run("update individuo set causa = ? where nind = ?",
            {QString::fromUtf8(cause), person({"A", 'm', "1700-01-01", "1750-07-02"})});
    const auto figures = figuresFor(causesOfDeath);
    const Table table = tableOf(figures, "causas");
    EXPECT_EQ(value(table, "Bexigas (varíola)", "Óbitos"), 2);
    EXPECT_EQ(value(table, "Febres, malinas, sezões", "Homens"), 1);
    EXPECT_EQ(value(table, "Tísica", "Óbitos"), 1);
    EXPECT_EQ(value(table, "Outra", "Óbitos"), 1);
    EXPECT_EQ(leftOut(figures), (QMap<QString, int>{{"causa não declarada", 1}}));
}

TEST_F(Deceased, OfAPartOfTheBodyDidNotDieInChildbirth)
{
    for (const char* cause : {"dor na parte esquerda", "de parto", "de sobreparto", "subitamente"})
        run("update individuo set causa = ? where nind = ?",
            {QString::fromUtf8(cause), person({"A", 'f', "1700-01-01", "1750-07-02"})});
    const Table table = tableOf(figuresFor(causesOfDeath), "causas");
    EXPECT_EQ(value(table, "Parto", "Óbitos"), 2);
    EXPECT_EQ(value(table, "De repente", "Óbitos"), 1);
    EXPECT_EQ(value(table, "Outra", "Óbitos"), 1);
}

TEST_F(Deceased, AreToldByTheWordsOfTheResearcherFirst)
{
    for (const char* cause : {"hum tiro", "tiros e febre", "febre"})
        run("update individuo set causa = ? where nind = ?",
            {QString::fromUtf8(cause), person({"A", 'f', "1700-01-01", "1750-07-02"})});
    Settings settings;
    settings.causes = {{"Tiro", "acidente"}};
    const Table table = tableOf(figuresFor(causesOfDeath, settings), "causas");
    EXPECT_EQ(value(table, "Acidente ou afogamento", "Óbitos"), 2);
    EXPECT_EQ(value(table, "Febres, malinas, sezões", "Óbitos"), 1);
}

TEST_F(Deceased, WhoMarriedBetweenTwoAgesWereOrphansAtTheirMarriage)
{
    const qint64 family = couple(person({"Rui", 'm', "1720-01-01", "1752-01-01"}),
                                 person({"Ana", 'f', "1720-01-01", "1790-01-01"}), "1745-01-01");
    const qint64 bride = person({"Eva", 'f', "1750-03-10", "1768-03-10", family}); // no twenty years
    couple(person({"Gil", 'm'}), bride, "1767-01-01");
    const auto tally = tallyFor(orphanhood);
    EXPECT_EQ((tally[keyOf(orphanhood, "vistos", {1750, 5, 1})]), 1);
}

using TheFamiliesOfTheQualityPage = Counting;

TEST_F(TheFamiliesOfTheQualityPage, AreToldByClassAndDecade)
{
    const auto pair = [this](const char* death, const char* marriage) {
        couple(person({"Rui", 'm', "", death}), person({"Ana", 'f', "1720-01-01", death}), marriage);
    };
    pair("1780-01-01", "1745-01-01");
    pair("1780-01-01", "1749-12-31");
    pair("1780-01-01", "1750-01-01");
    pair("", "1750-01-01");
    pair("1780-01-01", "");
    run("update familia set dcasamfixa = 1");
    const Table table = tableOf(figuresFor(quality), "familias-por-anos");
    EXPECT_EQ(value(table, "1740–1749", "MF I"), 2);
    EXPECT_EQ(value(table, "1750–1759", "MF I"), 1);
    EXPECT_EQ(value(table, "1750–1759", "MO I"), 1);
    EXPECT_EQ(value(table, "1750–1759", "Todas"), 2);
    EXPECT_EQ(value(table, "sem data do casamento", "EF I"), 1);
}

TEST_F(Deceased, LeaveOrphans)
{
    const qint64 family = couple(person({"Rui", 'm', "1720-01-01", "1752-01-01"}),
                                 person({"Ana", 'f', "1720-01-01", "1790-01-01"}), "1745-01-01");
    person({"Eva", 'f', "1750-03-10", "", family});
    const auto tally = tallyFor(orphanhood);
    EXPECT_EQ((tally[keyOf(orphanhood, "vistos", {1750, 0, 0})]), 1); // with one year: neither is dead
    EXPECT_EQ((tally[keyOf(orphanhood, "vistos", {1750, 1, 1})]), 1); // with five: the father
    EXPECT_EQ((tally.sum(keyOf(orphanhood, "obitos-dos-pais").count)), 1);
    EXPECT_EQ((tally.sum(keyOf(orphanhood, "saidas-dos-pais").count)), 1);
}

TEST_F(Deceased, AreToldBySacraments)
{
    for (const int code : {1, 1, 3, 11, 16})
        run("update individuo set sacramentos = ? where nind = ?",
            {code, person({"A", 'm', "1700-01-01", "1750-07-02"})});
    const auto figures = figuresFor(lastSacraments);
    EXPECT_EQ(value(tableOf(figures, "por-idade"), "Todas", "Óbitos com declaração"), 4);
    EXPECT_EQ(value(tableOf(figures, "por-idade"), "20–59 anos", "Todos"), 50);
    EXPECT_EQ(leftOut(figures), (QMap<QString, int>{{"sacramentos não declarados", 1}}));
}

TEST_F(Deceased, AndLivingHaveGodparents)
{
    const qint64 family = couple(person({"Rui", 'm'}), person({"Ana", 'f'}), "1745-01-01");
    const qint64 godparent = person({"Eva Lopes", 'f', "1720-01-01"});
    const qint64 saint = person({"Nossa Senhora do Rosário", 'f'});
    for (const char* birth : {"1750-03-10", "1752-03-10"}) {
        const qint64 child = person({"Eva", 'f', birth, "", family});
        for (const qint64 who : {godparent, saint})
            run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente, parentbapt) "
                "values ('b', ?, ?, ?, 'p', 20)",
                {child, QString(birth), who});
    }
    const auto figures = figuresFor(godparenthood);
    EXPECT_EQ(value(tableOf(figures, "afilhados"), "2", "Padrinhos e madrinhas"), 1);
    EXPECT_EQ(value(tableOf(figures, "parentesco"), "parente do lado paterno", "Padrinhos e madrinhas"), 2);
    EXPECT_EQ(value(tableOf(figures, "padrinhos-por-crianca"), "1", "Crianças"), 2);
    EXPECT_EQ(leftOut(figures), (QMap<QString, int>{{"padrinho que é um santo, e não uma pessoa", 2}}));
    const auto tally = tallyFor(godparenthood);
    EXPECT_EQ((tally[keyOf(godparenthood, "mesmo-nome", {1750, 1})]), 2);
    EXPECT_EQ((tally[keyOf(godparenthood, "mesmo-sexo", {1750, 1})]), 2);
    EXPECT_EQ(value(tableOf(figuresFor(givenNames), "nomes-f"), "Eva", "Crianças"), 3);
}

// A site lies in its locality; who is known to live in the parish may live anywhere in it.
TEST_F(Deceased, AndLivingHaveGodparentsOfTheirLocality)
{
    const qint64 family = couple(person({"Rui", 'm'}), person({"Ana", 'f'}), "1745-01-01");
    const auto lives = [&](qint64 who, const char* kind, const char* place, const char* level) {
        run("insert into residencia (tiporesid, numero, dataref, localresid, tipolocal) values (?, ?, "
            "'1746-01-01', ?, ?)",
            {QString(kind), who, QString(place), QString(level)});
    };
    lives(family, "f", "0308990801", "S");
    const qint64 child = person({"Eva", 'f', "1750-03-10", "", family});
    for (const auto& [place, level] : {std::pair("03089908", "L"), std::pair("0308990802", "S"),
                                       std::pair("03089909", "L"), std::pair("030899", "F"), std::pair("030801", "F")})
    {
        const qint64 godparent = person({"Rita", 'f', "1720-01-01"});
        lives(godparent, "i", place, level);
        run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente) values ('b', ?, '1750-03-10', "
            "?, 'p')",
            {child, godparent});
    }
    const auto tally = tallyFor(godparenthood);
    EXPECT_EQ((tally[keyOf(godparenthood, "mesmo-lugar", {1750, 1})]), 2) << "the locality, and another site of it";
    EXPECT_EQ((tally[keyOf(godparenthood, "mesmo-lugar", {1750, 0})]), 2) << "another locality, another parish";
}

TEST_F(Deceased, AndLivingHaveWitnessesOfTheirMarriages)
{
    const qint64 family = couple(person({"Rui", 'm'}), person({"Ana", 'f'}), "1745-01-01");
    const auto assists = [&](char sex, int groom, int bride, const char* as) {
        run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente, parentnoivo, parentnoiva) "
            "values "
            "('c', ?, '1745-01-01', ?, ?, ?, ?)",
            {family, person({"Alguém", sex}), QString(as), groom, bride});
    };
    assists('m', 19, 72, "t");
    assists('m', 72, 19, "t");
    assists('f', 11, 49, "t");
    assists('m', 72, 72, "t");
    assists('m', 19, 19, "p"); // no witness
    const auto tally = tallyFor(godparenthood);
    const auto kin = [&](qint32 which) {
        return tally[keyOf(godparenthood, "parentesco-das-testemunhas", {1700, which})];
    };
    EXPECT_EQ(kin(1), 1) << "of nobody";
    EXPECT_EQ(kin(2), 1) << "of the groom";
    EXPECT_EQ(kin(3), 1) << "of the bride";
    EXPECT_EQ(kin(4), 1) << "of both";
    EXPECT_EQ(value(tableOf(figuresFor(godparenthood), "testemunhas"), "Todos", "Testemunhas"), 4);
    EXPECT_EQ(value(tableOf(figuresFor(godparenthood), "testemunhas"), "Todos", "Parentes"), 75);
}
