// Complete families: their last births, their sizes, and who goes on.
#include "study/natal.h"

#include "study/indicators/fertility.h"

using namespace study::indicators;
using study::report::Standing;

namespace {

class CompleteFamilies : public Natal
{
protected:
    // A wife of 21 who is married until 60, with a child in each year from the second one on.
    qint64 ofSize(int size)
    {
        const qint64 family = married({"1741-06-10", "1720-03-12", "1790-05-01", "1780-10-02"});
        for (int i = 0; i < size; ++i)
            child(family, qPrintable(QString("%1-06-10").arg(1742 + i)));
        return family;
    }
    void theTwenty()
    {
        for (const int size : {0, 1, 1, 2, 3, 3, 4, 5, 5, 5, 6, 6, 7, 7, 8, 8, 9, 10, 11, 12})
            ofSize(size);
    }
};

} // namespace

TEST_F(CompleteFamilies, GoOnAsInTheWorkedExample)
{
    theTwenty();
    count(parityProgression);
    const double expected[]{0.950, 0.895, 0.941, 0.875, 0.929, 0.769, 0.800, 0.750, 0.667, 0.750, 0.667, 0.500, 0};
    const Table& steps = table("completas");
    ASSERT_EQ(steps.rows.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i)
        EXPECT_NEAR(std::get<double>(steps.rows[i].back().value), expected[i], 5e-4) << i;
    EXPECT_EQ(steps.notes,
              QStringList("A soma dos produtos sucessivos, 5,65 filhos, é a descendência média das 20 famílias."));
    EXPECT_EQ(steps.rows[1].back().standing, Standing::Suppressed); // a base of 19
    EXPECT_NEAR(value("por-tempo", "do casamento ao 1.º filho", "Em 15 anos"), 0.950, 5e-4);
    EXPECT_NEAR(value("por-tempo", "do 11.º ao 12.º filho", "Em 15 anos"), 0.5, 5e-4);
}

TEST_F(CompleteFamilies, LetWhoLeavesEarlyGoAtTheEnd)
{
    children(married({"1741-06-10", "1720-03-12", "1790-05-01", "1743-06-10"}), {"1742-06-10"});
    children(married({"1741-06-10", "1720-03-12", "1790-05-01", "1742-01-10"}), {});
    children(married({"1741-06-10", "1720-03-12", "1790-05-01", "1755-06-10"}), {"1744-06-10", "1744-06-10"});
    count(parityProgression);
    EXPECT_EQ(leftOut("fora das famílias completas"), 3);
    // At the first year two are left of the three, of whom one goes on; then the last one does.
    EXPECT_NEAR(value("por-tempo", "do casamento ao 1.º filho", "Em 10 anos"), 1, 1e-9);
    EXPECT_EQ(value("por-tempo", "do casamento ao 1.º filho", "Em risco no início"), 3);
    EXPECT_EQ(value("por-tempo", "do 1.º ao 2.º filho", "Com mais um"), 1); // the other one of the twins
    EXPECT_NEAR(value("por-tempo", "do 1.º ao 2.º filho", "Em 10 anos"), 0.5, 1e-9);
}

TEST_F(CompleteFamilies, HaveTheSizesOfAllEvenOfNone)
{
    theTwenty();
    count(completedSize);
    EXPECT_NEAR(value("descendencia-final", "Todas", "Média de filhos"), 5.65, 1e-9);
    EXPECT_EQ(value("descendencia-final", "Todas", "Nascimentos"), 113);
    EXPECT_NEAR(value("descendencia-final", "Casadas aos 20–24", "Média de filhos"), 5.65, 1e-9);
    EXPECT_EQ(value("por-numero-de-filhos", "5", "Famílias"), 3);
    EXPECT_EQ(value("por-numero-de-filhos", "15 e mais", "Famílias"), 0);
    EXPECT_EQ(value("sem-filhos", "20–24", "Sem filhos"), 1);
    EXPECT_NEAR(value("sem-filhos", "Todas", "Parte sem filhos"), 5, 1e-9);
    EXPECT_NEAR(value("familias-fechadas", "Todas", "Duração média da união"), 39.31, 0.01);
}

TEST_F(CompleteFamilies, EndNeitherBeforeTheAgeNorInYearsWithoutBooks)
{
    ofSize(3);
    married({"1741-06-10", "1720-03-12", "1790-05-01", "1769-10-02"}); // at 49
    count(completedSize);
    EXPECT_EQ(value("descendencia-final", "Todas", "Famílias"), 1);
    EXPECT_EQ(value("familias-fechadas", "Todas", "Famílias"), 2);
    EXPECT_EQ(leftOut("não chegam à idade pedida"), 1);
    Settings settings;
    settings.completeAge = 45;
    count(completedSize, settings);
    EXPECT_EQ(value("descendencia-final", "Todas", "Famílias"), 2);
    settings.gaps[int(Series::Baptisms)] = {{1750, 1750}};
    count(completedSize, settings);
    EXPECT_EQ(value("descendencia-final", "Todas", "Famílias"), 0);
    EXPECT_EQ(leftOut("não chegam à idade pedida"), 2);
}

TEST_F(CompleteFamilies, AreNotSterileWithAChildOfBeforeOrWithoutADate)
{
    child(ofSize(0), "1741-01-10");
    child(ofSize(0), "");
    ofSize(0);
    count(completedSize);
    EXPECT_EQ(value("sem-filhos", "Todas", "Casais"), 3);
    EXPECT_EQ(value("sem-filhos", "Todas", "Sem filhos"), 1);
    EXPECT_EQ(value("descendencia-final", "Todas", "Nascimentos"), 1);
}

TEST_F(CompleteFamilies, TellTheAgeAtTheLastBirth)
{
    theTwenty();
    married({"1741-06-10", "1720-03-12", "1790-05-01", "1755-10-02"}); // ends too early
    count(lastBirth);
    EXPECT_EQ(value("idade-ao-ultimo-filho", "Todas", "Número"), 19);
    // 22.25 at the first one, and a year more for each.
    EXPECT_NEAR(value("idade-ao-ultimo-filho", "Todas", "Média"), 21.25 + 113 / 19.0, 0.01);
    EXPECT_EQ(cell("idade-ao-ultimo-filho", "Todas", "Média").standing, Standing::Grey);
    EXPECT_EQ(leftOut("sem filhos com data"), 1);
    EXPECT_EQ(leftOut("não chegam à idade pedida"), 1);
    EXPECT_EQ(tally().sum(0), 19);
}

TEST_F(CompleteFamilies, AreNotYetFortyOnTheDayBefore)
{
    for (int i = 0; i < 20; ++i)
        child(ofSize(0), i < 5 ? "1760-03-11" : "1760-03-12");
    count(lastBirth);
    EXPECT_EQ(value("idade-ao-ultimo-filho", "Todas", "Antes dos 40 anos"), 25);
}

// The wife is 35 at the end of the union: her last birth says nothing of when she would have stopped.
TEST_F(CompleteFamilies, DoNotHoldTheFamilyOfTheHandExample)
{
    children(married({"1741-06-10", "1720-03-12", "1790-05-01", "1755-10-02"}),
             {"1742-05-03", "1744-09-20", "1747-02-11", "1749-07-30", "1749-07-30", "1753-01-15"});
    count(lastBirth);
    EXPECT_EQ(tally().sum(0), 0);
    EXPECT_EQ(value("idade-ao-ultimo-filho", "Todas", "Média"), -1);
}
