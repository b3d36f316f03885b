// What people did.
#include "study/counting.h"

#include "study/indicators/other.h"

using namespace study::indicators;

class Professions : public Counting
{
protected:
    Professions()
    {
        run("delete from profissao");
        run("insert into profissao (codprof, profissao, obs) values (1, 'Lavrador', 'HISCO 61110'), (2, 'Ferreiro', "
            "'HISCO "
            "83110'), (3, 'Trabalhador de "
            "enxada', null)");
    }
    void works(qint64 who, int code, const char* day)
    {
        run("insert into profissoes (nind, idprofissao, dataref, datafixa, codprof) values (?, ?, ?, 1, ?)",
            {who, ++lastRow, *day ? QVariant(QString(day)) : QVariant(), code ? QVariant(code) : QVariant()});
    }
    int lastRow = 0;
};

TEST_F(Professions, AreThoseToldNearTheEvent)
{
    const qint64 rui = person({"Rui", 'm', "1720-03-01", "1780-03-01"}), ana = person({"Ana", 'f'});
    couple(rui, ana, "1750-03-01");
    person({"Filho", 'm', "1752-03-01", "", 1});
    works(rui, 1, "1749-04-01");
    works(rui, 2, "1750-05-01");
    works(rui, 3, "1782-03-01");
    works(rui, 3, "");
    const auto figures = figuresFor(professions);
    const Table marriage = tableOf(figures, "ao-casar"), life = tableOf(figures, "em-toda-a-vida");
    ASSERT_EQ(marriage.rows.size(), 1U);
    EXPECT_EQ(value(marriage, "Ferreiro", "Pessoas"), 1);
    EXPECT_EQ(value(tableOf(figures, "grupos-hisco"), "7/8/9 Ofícios, indústria e transportes", "Ao casar"), 1);
    EXPECT_TRUE(tableOf(figures, "ao-primeiro-filho").isEmpty());
    EXPECT_TRUE(tableOf(figures, "ao-morrer").isEmpty());
    EXPECT_EQ(life.rows.size(), 3U);
    EXPECT_EQ(value(life, "Trabalhador de … (3)", "Pessoas"), 1);
    const Table known = tableOf(figures, "conhecidas");
    EXPECT_EQ(value(known, "Homens, ao casar", "Com profissão"), 1);
    EXPECT_EQ(value(known, "Mulheres, ao casar", "Com profissão"), 0);
    EXPECT_EQ(value(known, "Homens, ao morrer", "Pessoas"), 1);
    EXPECT_EQ(leftOut(figures)["profissão sem data (só conta em toda a vida)"], 1);
}

TEST_F(Professions, GoFromFatherToSon)
{
    const qint64 father = person({"Pai", 'm'}), mother = person({"Mãe", 'f'});
    const qint64 home = couple(father, mother);
    works(father, 2, "1730-03-01");
    works(father, 1, "1744-03-01");
    works(father, 2, "1746-03-01");
    const qint64 eldest = person({"Um", 'm', "1720-03-01", "", home});
    const qint64 second = person({"Dois", 'm', "1720-03-01", "", home});
    person({"Três", 'm', "1720-03-01", "", home});
    works(eldest, 1, "1750-03-01");
    works(second, 1, "1740-03-01"); // too young
    works(second, 2, "1745-03-01"); // twenty-five on that day
    works(second, 1, "1750-03-01");
    const qint64 stranger = person({"Quatro", 'm', "1720-03-01"});
    works(stranger, 1, "1750-03-01");
    const auto figures = figuresFor(professions);
    const Table table = tableOf(figures, "de-pai-a-filho");
    EXPECT_EQ(value(table, "Lavrador", "Filhos"), 2);
    EXPECT_EQ(value(table, "Lavrador", "Com a mesma"), 1);
    EXPECT_EQ(value(table, "Todas", "Filhos"), 2);
    EXPECT_EQ(value(tableOf(figures, "grupos-de-pai-a-filho"), "6 Agricultura, gado, mata e pesca",
                    "7/8/9 Ofícios, indústria e transportes"),
              1);
    EXPECT_EQ(value(tableOf(figures, "coortes-de-filhos"), "1700–1749", "Com a mesma"), 1);
    EXPECT_EQ(leftOut(figures), (QMap<QString, int>{{"de pai a filho: sem pai ligado", 1}}));
}
