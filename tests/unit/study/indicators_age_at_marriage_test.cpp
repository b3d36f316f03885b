// The age at first marriage.
#include "study/counting.h"

#include "study/indicators/nuptiality.h"

using namespace study::indicators;

using TheAgeAtMarriage = Counting;

TEST_F(TheAgeAtMarriage, IsExactAndOfFirstMarriagesAlone)
{
    const qint64 jose = person({"José", 'm', "1720-03-01"}), ana = person({"Ana", 'f', "1725-09-01"});
    const qint64 rosa = person({"Rosa", 'f', "1730-03-01"});
    couple(jose, ana, "1750-03-01");
    couple(jose, rosa, "1760-03-01");
    const auto figures = figuresFor(ageAtMarriage);
    const Table men = tableOf(figures, "idade-homens"), women = tableOf(figures, "idade-mulheres");
    EXPECT_EQ(value(men, "Todos", "Nº"), 1);
    EXPECT_EQ(value(men, "Todos", "Média"), 30);
    EXPECT_EQ(value(women, "1750–1799", "Nº"), 2);
    EXPECT_NEAR(value(women, "Todos", "Média"), (24.50 + 30) / 2, 0.01);
    EXPECT_EQ(cell(women, "Todos", "Média").standing, study::report::Standing::Suppressed);
    EXPECT_EQ(leftOut(figures), (QMap<QString, int>{{"não é o primeiro casamento", 1}}));
}

TEST_F(TheAgeAtMarriage, TakesWhatTheActTellsOfTheOrder)
{
    const qint64 jose = person({"José", 'm', "1720-01-01"}), ana = person({"Ana", 'f', "1725-01-01"});
    const qint64 rui = person({"Rui", 'm', "1720-01-01"}), rosa = person({"Rosa", 'f', "1725-01-01"});
    couple(jose, ana, "1750-01-01");
    couple(rui, rosa, "1750-01-01");
    run("update familias set numcasam = 2 where nind = ?", {jose});
    run("update familias set estadocivil = 3 where nind = ?", {ana});
    run("update familias set numcasam = 1, estadocivil = 3 where nind = ?", {rui});
    run("update familias set estadocivil = 1 where nind = ?", {rosa});
    const auto figures = figuresFor(ageAtMarriage);
    EXPECT_EQ(value(tableOf(figures, "idade-homens"), "Todos", "Nº"), 1);
    EXPECT_EQ(value(tableOf(figures, "idade-mulheres"), "Todos", "Nº"), 1);
    EXPECT_EQ(leftOut(figures), (QMap<QString, int>{{"não é o primeiro casamento", 2}}));
}

TEST_F(TheAgeAtMarriage, IsntTakenWhereAnUndatedUnionMayBeTheFirst)
{
    const qint64 jose = person({"José", 'm', "1720-01-01"}), ana = person({"Ana", 'f'}), rosa = person({"Rosa", 'f'});
    couple(jose, ana);
    couple(jose, rosa, "1760-01-01");
    auto figures = figuresFor(ageAtMarriage);
    EXPECT_EQ(leftOut(figures), (QMap<QString, int>{{"não se sabe se é o primeiro casamento", 1},
                                                    {"sem data do casamento", 2},
                                                    {"sem nascimento no registo", 1}}));
    person({"Filho", 'm', "1755-01-01", "", 1});
    EXPECT_EQ(leftOut(figuresFor(ageAtMarriage))["não é o primeiro casamento"], 1);
    run("update individuo set datanasc = '1765-01-01' where nome = 'Filho'");
    EXPECT_EQ(value(tableOf(figuresFor(ageAtMarriage), "idade-homens"), "Todos", "Nº"), 1);
}

TEST_F(TheAgeAtMarriage, OfAMotherAloneCountsAsFirst)
{
    const qint64 jose = person({"José", 'm'}), ana = person({"Ana", 'f', "1725-01-01"});
    run("insert into familia (nfamilia) values (?)", {++lastFamily});
    run("insert into familias (nfamilia, nind) values (?, ?)", {lastFamily, ana});
    couple(jose, ana, "1750-01-01");
    EXPECT_EQ(value(tableOf(figuresFor(ageAtMarriage), "idade-mulheres"), "Todos", "Nº"), 1);
}

TEST_F(TheAgeAtMarriage, KeepsStatedAgesApartWithHalfAYearMore)
{
    const qint64 jose = person({"José", 'm'}), ana = person({"Ana", 'f', "1725-01-01"});
    couple(jose, ana, "1750-01-01");
    run("update familias set idade = 24 where nind = ?", {jose});
    run("update familias set idade = 0 where nind = ?", {ana});
    const auto figures = figuresFor(ageAtMarriage);
    const Table men = tableOf(figures, "idade-homens"), women = tableOf(figures, "idade-mulheres");
    EXPECT_EQ(value(men, "Todos", "Nº"), 0);
    EXPECT_EQ(value(men, "Todos", "Nº com idade declarada"), 1);
    EXPECT_EQ(value(men, "Todos", "Média da idade declarada"), 24.5);
    EXPECT_EQ(value(women, "Todos", "Nº"), 1);
    EXPECT_EQ(value(women, "Todos", "Nº com idade declarada"), 0);
    EXPECT_EQ(leftOut(figures), (QMap<QString, int>{{"sem nascimento no registo", 1}}));
}

TEST_F(TheAgeAtMarriage, LeavesOutTheFirstYearsOfTheBooksAndTheLastCohorts)
{
    const auto marry = [this](const char* hisBirth, const char* herBirth, const char* day) {
        const qint64 husband = person({"José", 'm', hisBirth}), wife = person({"Ana", 'f', herBirth});
        couple(husband, wife, day);
    };
    marry("1705-01-01", "1710-01-01", "1735-01-01");
    marry("1715-01-01", "1715-01-01", "1740-01-01");
    Settings settings;
    settings.books[static_cast<std::size_t>(Series::Baptisms)].first = 1700;
    settings.books[static_cast<std::size_t>(Series::Marriages)].last = 1761;
    const auto figures = figuresFor(ageAtMarriage, settings);
    EXPECT_EQ(value(tableOf(figures, "idade-homens"), "Todos", "Nº"), 1);
    EXPECT_EQ(value(tableOf(figures, "idade-mulheres"), "Todos", "Nº"), 2);
    EXPECT_EQ(value(tableOf(figures, "coortes"), "1700–1749", "Mulheres"), 1);
    EXPECT_EQ(leftOut(figures).size(), 2);
    EXPECT_EQ(leftOut(figures)["nos primeiros 35 (mulheres) ou 40 anos (homens) dos livros de baptismos"], 1);
    EXPECT_TRUE(tableOf(figures, "idade-homens").notes.contains("Casamentos pelo registo a partir de 1740."));
}

TEST_F(TheAgeAtMarriage, HasGroupsAndSharesByCompletedYears)
{
    for (int i = 0; i < 20; ++i) {
        const qint64 husband = person({"José", 'm', i < 5 ? "1720-03-01" : "1730-04-01"});
        const qint64 wife = person({"Ana", 'f', i < 10 ? "1730-03-01" : "1730-03-02"});
        couple(husband, wife, "1750-03-01");
    }
    const auto figures = figuresFor(ageAtMarriage);
    const Table men = tableOf(figures, "idade-homens"), women = tableOf(figures, "idade-mulheres");
    EXPECT_EQ(value(men, "Todos", "Menos de 20 anos"), 75);
    EXPECT_EQ(value(men, "Todos", "25 e mais"), 25);
    EXPECT_EQ(value(men, "Todos", "30 e mais"), 25);
    EXPECT_EQ(cell(men, "Todos", "Grupo modal"), study::report::text("15–19"));
    EXPECT_EQ(value(women, "Todos", "Menos de 20 anos"), 50) << "a day before the birthday";
    EXPECT_EQ(value(tableOf(figures, "grupos"), "20–24", "Mulheres"), 10);
    EXPECT_EQ(value(tableOf(figures, "grupos"), "30–34", "Homens, em 100"), 25);
}

TEST_F(TheAgeAtMarriage, OfNobodyHasNoNumbers)
{
    const auto figures = figuresFor(ageAtMarriage);
    EXPECT_TRUE(tableOf(figures, "idade-homens").isEmpty());
    EXPECT_TRUE(leftOut(figures).isEmpty());
}

TEST_F(TheAgeAtMarriage, TellsWhereTheFirstYearsOfTheBooksAreInIt)
{
    const auto noteOf = [this](const char* id) { return tableOf(figuresFor(ageAtMarriage), id).notes.back(); };
    EXPECT_TRUE(noteOf("idade-homens").contains("dos primeiros 40 anos"));
    EXPECT_TRUE(noteOf("idade-mulheres").contains("dos primeiros 35 anos"));
}
