// Who could sign.
#include "study/counting.h"

#include "study/indicators/other.h"

using namespace study::indicators;

class Literacy : public Counting
{
protected:
    void signs(qint64 who, const char* day, int level)
    {
        run("insert into assinatura (nind, idassinatura, dataref, datafixa, nivelassinatura) values (?, ?, ?, 1, ?)",
            {who, ++lastSignature, *day ? QVariant(QString(day)) : QVariant(), level});
    }
    int lastSignature = 0;
};

TEST_F(Literacy, CountsAPersonOnceByTheBestLevel)
{
    const qint64 rui = person({"Rui", 'm', "1720-03-01"}), luis = person({"Luís", 'm'});
    signs(rui, "1745-03-01", 1);
    signs(rui, "1750-03-01", 4);
    signs(rui, "1760-03-01", 1);
    signs(luis, "1755-03-01", 1);
    person({"Calado", 'm', "1720-03-01"});
    const auto figures = figuresFor(literacy);
    const Table people = tableOf(figures, "pessoas");
    EXPECT_EQ(value(people, "Todos", "Homens, nº"), 2);
    EXPECT_EQ(value(people, "1700–1749", "Homens, assinam"), 1) << "in the period of the first signature";
    EXPECT_EQ(value(people, "1750–1799", "Homens, assinam"), 0);
    EXPECT_EQ(value(tableOf(figures, "assinaturas"), "Todos", "Homens, nº"), 4);
    EXPECT_EQ(value(tableOf(figures, "assinaturas"), "Todos", "Homens, assinam"), 1);
    EXPECT_EQ(value(tableOf(figures, "coortes"), "Todos", "Homens, nº"), 1);
    EXPECT_EQ(value(tableOf(figures, "niveis"), "1", "Homens"), 3);
    EXPECT_EQ(leftOut(figures), (QMap<QString, int>{{"só por coorte de nascimento: sem nascimento", 1}}));
}

TEST_F(Literacy, AtMarriageTakesTheSignatureOfThatDayAlone)
{
    const qint64 rui = person({"Rui", 'm'}), ana = person({"Ana", 'f'});
    couple(rui, ana, "1750-03-01");
    signs(rui, "1750-03-01", 2);
    signs(ana, "1750-03-02", 5);
    const auto figures = figuresFor(literacy);
    const Table table = tableOf(figures, "ao-casamento");
    EXPECT_EQ(value(table, "Todos", "Homens, assinam"), 1);
    EXPECT_EQ(value(table, "Todos", "Mulheres, nº"), 0);
    EXPECT_EQ(leftOut(figures)["cônjuge sem assinatura registada no dia do casamento"], 1);
}

TEST_F(Literacy, TakesTheLevelThatTheStudySets)
{
    const qint64 rui = person({"Rui", 'm'});
    signs(rui, "1750-03-01", 2);
    signs(rui, "", 5);
    Settings settings;
    settings.signsFrom = 3;
    const auto figures = figuresFor(literacy, settings);
    EXPECT_EQ(value(tableOf(figures, "pessoas"), "Todos", "Homens, assinam"), 0);
    EXPECT_EQ(leftOut(figures)["sem data"], 1);
}
