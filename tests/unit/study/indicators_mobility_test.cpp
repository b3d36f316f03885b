// Who moved, and who vanished.
#include "study/counting.h"

#include "study/indicators/other.h"

using namespace study::indicators;

class Mobility : public Counting
{
protected:
    Mobility() { run("insert into infopar (cod, nome) values ('030899', 'São Mamede')"); }
    qint64 native(const char* birth, const char* death = "", qint64 family = 0)
    {
        const qint64 who = person({"Alguém", 'm', birth, death, family});
        run("update individuo set localnasc = '030899', tipolocalnasc = 'F' where nind = ?", {who});
        return who;
    }
    void lives(qint64 who, const char* day, const char* place, const char* level = "F")
    {
        run("insert into residencia (numero, tiporesid, dataref, datafixa, localresid, tipolocal) values (?, 'i', ?, "
            "1, "
            "?, ?)",
            {who, QString(day), *place ? QVariant(QString(place)) : QVariant(), QString(level)});
    }
};

TEST_F(Mobility, CountsMovesFromPlaceToPlace)
{
    const qint64 rui = person({"Rui", 'm'}), luis = person({"Luís", 'm'});
    lives(rui, "1730-03-01", "03089901", "L");
    lives(rui, "1720-03-01", "030899");
    lives(rui, "1735-03-01", "03089901", "L");
    lives(rui, "1740-03-01", "030801");
    lives(luis, "1740-03-01", "030801");
    lives(luis, "1741-03-01", "");
    const auto figures = figuresFor(mobility);
    const Table table = tableOf(figures, "residencias"), matrix = tableOf(figures, "mudancas");
    EXPECT_EQ(value(table, "pessoas", "Nº com residência datada"), 2);
    EXPECT_EQ(value(table, "pessoas", "Lugares diferentes"), 2);
    EXPECT_EQ(value(table, "pessoas", "Mudanças"), 2);
    EXPECT_NEAR(value(table, "pessoas", "Anos entre a primeira e a última"), 20, 0.01);
    EXPECT_EQ(value(matrix, "a paróquia", "a paróquia"), 1);
    EXPECT_EQ(value(matrix, "a paróquia", "mesmo concelho"), 1);
    EXPECT_EQ(leftOut(figures), (QMap<QString, int>{{"residência sem lugar", 1}}));
}

TEST_F(Mobility, TellsFromWhichLocalityToWhich)
{
    run("insert or replace into lugar (codlugar, nomelugar, codparoquia) values ('03089901', 'Paço', '030899'), "
        "('03089902', 'Outeiro', '030899'), ('03080101', 'Paço', '030801')");
    const qint64 rui = person({"Rui", 'm'}), luis = person({"Luís", 'm'});
    lives(rui, "1720-03-01", "0308990101", "S");
    lives(rui, "1725-03-01", "0308990102", "S"); // the same locality
    lives(rui, "1730-03-01", "03089902", "L");
    lives(luis, "1720-03-01", "03089901", "L");
    lives(luis, "1730-03-01", "03089902", "L");
    lives(luis, "1740-03-01", "03080101", "L");
    const Table table = tableOf(figuresFor(mobility), "mudancas-entre-lugares");
    ASSERT_EQ(table.rows.size(), 4U) << "three places, and all";
    const auto at = [&](const char* from, const char* to) { return value(table, from, to); };
    EXPECT_EQ(at("Paço (03089901)", "Outeiro"), 2);
    EXPECT_EQ(at("Outeiro", "Paço (03080101)"), 1);
    EXPECT_EQ(at("Outeiro", "Paço (03089901)"), 0);
    EXPECT_EQ(at("Todos os lugares", "Todos os lugares"), 3);
}

TEST_F(Mobility, TellsWhoDiedElsewhere)
{
    for (const char* place : {"030899", "030801", ""}) {
        const qint64 who = native("1720-03-01", "1780-03-01");
        run("update individuo set localobito = ?, tipolocalobito = 'F' where nind = ?",
            {*place ? QVariant(QString(place)) : QVariant(), who});
    }
    const auto figures = figuresFor(mobility);
    const Table table = tableOf(figures, "obitos-fora");
    EXPECT_EQ(value(table, "Homens, todos", "Nº"), 2);
    EXPECT_EQ(value(table, "Homens, 1700–1749", "Fora da paróquia"), 1);
    EXPECT_EQ(leftOut(figures)["natural da paróquia, com óbito sem lugar"], 1);
}

TEST_F(Mobility, TellsWhoWasLostBehindTheFifteenthBirthday)
{
    const qint64 father = person({"Pai", 'm', "", "1760-03-01"}), mother = person({"Mãe", 'f', "", "1760-03-01"});
    const qint64 home = couple(father, mother, "1719-03-01");
    native("1720-03-01", "", home);                               // lost
    couple(native("1721-03-01", "", home), person({"Ana", 'f'})); // married
    native("1722-03-01", "1790-03-01", home);                     // died
    native("1723-03-01", "1730-03-01", home);                     // died as a child: of no concern
    native("1750-03-01", "", home);                               // not seen to 15
    const auto figures = figuresFor(mobility);
    const Table table = tableOf(figures, "destino");
    EXPECT_EQ(value(table, "Homens, 1700–1749", "Nº"), 3);
    EXPECT_EQ(value(table, "Homens, 1700–1749", "Perdidos"), 1);
    EXPECT_EQ(value(table, "Homens, 1700–1749", "Casados, sem óbito"), 1);
    EXPECT_EQ(value(table, "Homens, 1700–1749", "Com óbito"), 1);
    EXPECT_EQ(leftOut(figures)["natural da paróquia que deixa de ser visto antes dos 15 anos"], 1);
}

// From the 4th to the 15th of October of 1582 it was a day.
TEST_F(Mobility, CountsNoneOfTheDaysThatTheCalendarLeftOut)
{
    const qint64 rui = person({"Rui", 'm'});
    lives(rui, "1582-10-01", "030899");
    lives(rui, "1582-10-20", "030801");
    const Table table = tableOf(figuresFor(mobility), "residencias");
    EXPECT_NEAR(value(table, "pessoas", "Anos entre a primeira e a última"), 9 / 365.25, 1e-9);
}
