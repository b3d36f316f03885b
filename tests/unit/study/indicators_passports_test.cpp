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
    EXPECT_EQ(value(tableOf(figures, "anos"), "1744", "Homens"), 2);
    EXPECT_EQ(value(tableOf(figures, "anos"), "1746", "Homens, em 100"), 25);
    EXPECT_EQ(tableOf(figures, "zonas").rows.size(), 1U) << "of the one destination that is a zone";
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

TEST_F(PassportsOfAStudy, TellOfAnyLaterActHereThatSomebodyCameBack)
{
    run("insert into infopar (cod, nome) values ('030899', 'Aqui')");
    const qint64 godfather = person({"Rui", 'm'}), father = person({"Gil", 'm'}), gone = person({"Ivo", 'm'});
    const qint64 elsewhere = person({"Tomé", 'm'});
    const qint64 early = couple(gone, person({"Eva", 'f'})), late = couple(father, person({"Ana", 'f'}));
    person({"Póstumo", 'm', "1750-12-20", "", early}); // conceived before
    const qint64 child = person({"Filho", 'm', "1752-03-01", "", late});
    run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente) values ('b', ?, '1752-03-01', ?, "
        "'p')",
        {child, godfather});
    const qint64 far = person({"Longe", 'f', "1752-03-01"});
    run("update individuo set localnasc = '030301', tipolocalnasc = 'F' where nind = ?", {far});
    run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente) values ('b', ?, '1752-03-01', ?, "
        "'p')",
        {far, elsewhere});
    for (const qint64 who : {godfather, father, gone, elsewhere})
        leaves(who, "1750-03-01");
    const Table table = tableOf(figuresFor(passports), "regressos");
    EXPECT_EQ(value(table, "vistos", "Homens"), 2) << "the godfather and the father";
    EXPECT_EQ(value(table, "não vistos", "Homens"), 2);
}
