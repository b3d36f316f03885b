// Who left with a passport.
#include "study/counting.h"

#include "study/indicators/other.h"

using namespace study::indicators;

class PassportsOfAStudy : public Counting
{
protected:
    PassportsOfAStudy() { run("insert or replace into pais (codpais, nomepais) values ('15', 'Brasil')"); }
    void leaves(qint64 who, const char* day, const char* place = "15", const char* level = "P")
    {
        run("insert into passaporte (nind, nPass, dataref, localdestino, tipolocaldest) values (?, ?, ?, ?, ?)",
            {who, ++lastRow, *day ? QVariant(QString(day)) : QVariant(), *place ? QVariant(QString(place)) : QVariant(),
             *level ? QVariant(QString(level)) : QVariant()});
    }
    int lastRow = 0;
};

TEST_F(PassportsOfAStudy, TellAgeStateAndDestination)
{
    const qint64 rui = person({"Rui", 'm', "1720-03-01"}), ana = person({"Ana", 'f', "", "1745-03-01"});
    const qint64 luis = person({"Luís", 'm', "1725-03-01", "1790-03-01"});
    run("update individuo set altura = 165 where nind in (?, ?)", {rui, luis});
    couple(rui, ana, "1744-03-01");
    run("update individuo set estadoobito = 2 where nind = ?", {ana});
    leaves(rui, "1744-02-28");
    leaves(rui, "1744-06-01", "1526", "Z");
    leaves(rui, "1750-03-01", "");
    leaves(luis, "1746-02-28");
    leaves(luis, "");
    const auto figures = figuresFor(passports);
    EXPECT_EQ(value(tableOf(figures, "periodos"), "1700–1749", "Homens"), 3);
    const Table states = tableOf(figures, "estados");
    EXPECT_EQ(value(states, "sem casamento conhecido", "Homens"), 2);
    EXPECT_EQ(value(states, "casados", "Homens"), 1);
    EXPECT_EQ(value(states, "viúvos", "Homens"), 1);
    EXPECT_EQ(value(tableOf(figures, "destinos"), "Brasil", "Passaportes"), 3);
    EXPECT_EQ(value(tableOf(figures, "idades"), "20–24", "Homens"), 3);
    EXPECT_EQ(value(tableOf(figures, "idades"), "30–39", "Homens"), 1);
    const Table heights = tableOf(figures, "alturas");
    EXPECT_EQ(value(heights, "Todos", "Nº"), 1) << "a day too young for 21, the other";
    EXPECT_EQ(value(tableOf(figures, "regressos"), "vistos", "Homens"), 2) << "married in March, died in 1790";
    EXPECT_EQ(leftOut(figures), (QMap<QString, int>{{"sem data", 1},
                                                    {"só pelo destino: sem lugar de destino", 1},
                                                    {"só pela assinatura: sem assinatura com nível", 4}}));
}
