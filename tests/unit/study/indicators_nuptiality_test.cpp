// Who marries whom, and when in the year.
#include "study/counting.h"

#include "study/indicators/nuptiality.h"
#include "study/indicators/reasons.h"

using namespace study::indicators;
using study::report::Standing;

namespace {

class Nuptiality : public Counting
{
protected:
    qint64 marry(const char* day, char hisState = 0, char herState = 0)
    {
        const qint64 husband = person({"José", 'm'}), wife = person({"Ana", 'f'});
        couple(husband, wife, day);
        run("update familia set dcasamfixa = 1 where nfamilia = ?", {lastFamily});
        const auto told = [this](qint64 who, char state) {
            if (state) run("update familias set estadocivil = ? where nind = ?", {int(state), who});
        };
        told(husband, hisState);
        told(wife, herState);
        return lastFamily;
    }
};

} // namespace

using TheCombinedStatus = Nuptiality;

TEST_F(TheCombinedStatus, CountsBothStates)
{
    for (int i = 0; i < 15; ++i)
        marry("1750-03-01", 1, 1);
    for (int i = 0; i < 5; ++i)
        marry("1750-03-01", 3, 1);
    marry("1750-03-01", 3, 3);
    marry("1750-03-01", 1, 3);
    marry("1750-03-01", 1, 8);
    marry("", 1, 1);
    const auto figures = figuresFor(combinedStatus);
    const Table table = tableOf(figures, "estado-combinado");
    EXPECT_EQ(value(table, "Todos", "Casamentos"), 22);
    EXPECT_EQ(value(table, "1750–1799", "Solteiro e solteira"), 15);
    EXPECT_EQ(value(table, "1750–1799", "Viúvo e solteira"), 5);
    EXPECT_EQ(value(table, "1750–1799", "Solteiro e viúva"), 1);
    EXPECT_EQ(value(table, "1750–1799", "Viúvo e viúva"), 1);
    EXPECT_NEAR(value(table, "Todos", "Segundas núpcias de um ou de ambos"), 100 * 7 / 22.0, 1e-9);
    EXPECT_EQ(leftOut(figures),
              (QMap<QString, int>{{"estado civil anterior desconhecido", 1}, {reasons::noMarriage, 1}}));
}

TEST_F(TheCombinedStatus, DerivesWidowhoodFromAnEarlierUnionThatHadEnded)
{
    const qint64 jose = person({"José", 'm', "", "1790-01-01"}), ana = person({"Ana", 'f', "", "1755-02-02"});
    const qint64 rosa = person({"Rosa", 'f'});
    couple(jose, ana, "1750-03-01");
    couple(jose, rosa, "1756-03-01");
    run("update familias set estadocivil = 1 where nind = ?", {rosa});
    EXPECT_EQ(value(tableOf(figuresFor(combinedStatus), "estado-combinado"), "Todos", "Viúvo e solteira"), 1);
}

TEST_F(TheCombinedStatus, DerivesNoWidowhoodFromAUnionThatWasNoMarriage)
{
    const qint64 jose = person({"José", 'm', "", "1790-01-01"}), ana = person({"Ana", 'f', "", "1755-02-02"});
    const qint64 rosa = person({"Rosa", 'f'});
    run("update familia set sfamilia = '6' where nfamilia = ?", {couple(jose, ana, "1750-03-01")});
    couple(jose, rosa, "1756-03-01");
    run("update familias set estadocivil = 1 where nind = ?", {rosa});
    const auto figures = figuresFor(combinedStatus);
    EXPECT_EQ(tallyFor(combinedStatus).sum(0), 0);
    EXPECT_EQ(leftOut(figures), (QMap<QString, int>{{"estado civil anterior desconhecido", 2}}));
}

using TheSeasonsOfMarriage = Nuptiality;

TEST_F(TheSeasonsOfMarriage, KnowTheClosedTimesOfTheYear)
{
    marry("1755-01-06");
    marry("1755-01-07");
    marry("1755-02-11"); // the last day of Carnival: Ash Wednesday was the 12th
    marry("1755-01-29");
    marry("1755-01-28");
    marry("1755-02-12");
    marry("1755-04-06");
    marry("1755-04-07");
    marry("1755-11-29");
    marry("1755-11-30");
    marry("1755-12-31");
    const auto figures = figuresFor(marriageSeasons);
    const Table table = tableOf(figures, "tempos-proibidos");
    ASSERT_EQ(table.rows.size(), 5U);
    const auto number = [&table](std::size_t row, std::size_t column) {
        return std::get<double>(table.rows[row][column].value);
    };
    EXPECT_EQ(number(0, 1), 3) << "Advent";
    EXPECT_EQ(number(0, 2), 38);
    EXPECT_EQ(number(1, 1), 2) << "Lent";
    EXPECT_EQ(number(1, 2), 54);
    EXPECT_EQ(number(2, 1), 2) << "Carnival";
    EXPECT_EQ(number(2, 2), 14);
    EXPECT_EQ(number(3, 1), 4);
    EXPECT_EQ(number(4, 2), 365);
    EXPECT_EQ(table.rows[0][3].standing, Standing::Suppressed);
    EXPECT_EQ(value(tableOf(figures, "dia-da-semana"), "sábado", "Nº"), 1) << "29 November 1755";
}

TEST_F(TheSeasonsOfMarriage, HaveAnIndexByTheDay)
{
    for (int i = 0; i < 100; ++i)
        marry(i < 20 ? "1755-02-03" : "1755-07-03");
    const auto figures = figuresFor(marriageSeasons);
    const Table table = tableOf(figures, "tempos-por-periodo");
    EXPECT_NEAR(value(table, "1750–1799", "Carnaval"), 20 / 14.0 / (100 / 365.0) * 100, 1e-9);
    EXPECT_EQ(value(table, "1750–1799", "Advento fechado"), 0);
    EXPECT_NEAR(value(tableOf(figures, "casamentos-por-mes"), "Julho", "Razão diária"),
                80 / 31.0 / (100 / 365.25) * 100, 1e-9);
    EXPECT_EQ(value(tableOf(figures, "casamentos-por-trimestre"), "Todos", "Nº"), 100);
}

TEST_F(TheSeasonsOfMarriage, GoOverTheYearsOfTheBooksWithoutTheirGaps)
{
    marry("1755-02-03");
    Settings settings;
    settings.books[static_cast<std::size_t>(Series::Marriages)] = {1750, 1759};
    settings.gaps[static_cast<std::size_t>(Series::Marriages)] = {{1751, 1752}};
    const Table table = tableOf(figuresFor(marriageSeasons, settings), "tempos-proibidos");
    EXPECT_EQ(std::get<double>(table.rows[1][2].value), 8 * 54);
    EXPECT_EQ(table.notes.back(), "Anos de 1750 a 1759, sem as lacunas dos livros (8 anos). A Páscoa é a de cada ano.");
}

TEST_F(TheSeasonsOfMarriage, LeaveInexactDaysOutButOfTheQuarters)
{
    run("update familia set dcasamfixa = 0 where nfamilia = ?", {marry("1755-02-03")});
    run("update familia set dcasamfixa = 0 where nfamilia = ?", {marry("1755-01-01")});
    const auto figures = figuresFor(marriageSeasons);
    EXPECT_EQ(leftOut(figures).values(), (QList<int>{2}));
    EXPECT_EQ(value(tableOf(figures, "casamentos-por-trimestre"), "Todos", "Nº"), 1);
    EXPECT_TRUE(tableOf(figures, "dia-da-semana").isEmpty());
    EXPECT_TRUE(tableOf(figures, "tempos-proibidos").isEmpty());
}
