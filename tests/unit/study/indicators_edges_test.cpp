// What every subject makes of parishes that have nothing, hardly anything, or nonsense.
#include "study/generated.h"
#include "study/people.h"

#include "study/indicators/studyReport.h"
#include "study/report/page.h"

#include <QRandomGenerator>
#include <QRegularExpression>

#include <cmath>
#include <set>

using namespace study::indicators;
using study::parish::Snapshot;
using study::report::Cell;
using study::report::Chart;
using study::report::Figure;
using study::report::Table;

namespace {

bool isSound(const std::optional<study::statistics::Interval>& interval)
{
    return !interval ||
           (std::isfinite(interval->low) && std::isfinite(interval->high) && interval->low <= interval->high);
}

void expectSound(const Table& table, const QString& where)
{
    for (const auto& row : table.rows) {
        ASSERT_EQ(row.size(), table.columns.size()) << qPrintable(where);
        for (std::size_t i = 0; i < row.size(); ++i) {
            const Cell& cell = row[i];
            const QString at = where + ", " + table.columns[i].title;
            if (const double* number = std::get_if<double>(&cell.value)) {
                EXPECT_TRUE(std::isfinite(*number)) << qPrintable(at);
            }
            EXPECT_TRUE(isSound(cell.interval)) << qPrintable(at);
            EXPECT_FALSE(shown(cell, table.columns[i]).isEmpty() && !table.columns[i].isText) << qPrintable(at);
        }
    }
    static const QRegularExpression notNumbers("\\b(nan|inf)\\b");
    for (const QString& note : table.notes)
        EXPECT_FALSE(note.contains(notNumbers)) << qPrintable(where + ": " + note);
}

void expectSound(const Chart& chart, const QString& where)
{
    for (const auto& plot : chart.plots)
        for (const auto& point : plot.points) {
            EXPECT_TRUE(std::isfinite(point.x) && (!point.y || std::isfinite(*point.y))) << qPrintable(where);
            EXPECT_TRUE(isSound(point.interval)) << qPrintable(where);
        }
    EXPECT_FALSE(chart.xTitle.isEmpty() || chart.yTitle.isEmpty()) << qPrintable(where);
    EXPECT_FALSE(chart.described.isEmpty()) << qPrintable(where);
}

// Each figure has an id of its own, and is of numbers alone; what was left out stands last, if anything was counted.
void expectSound(const Subject& of, const Tally& tally, const Settings& settings)
{
    const QString subject = of.id;
    const std::vector<Figure> figures = of.figures(tally, settings);
    std::set<QString> ids;
    for (const Figure& figure : figures) {
        const auto* table = std::get_if<Table>(&figure);
        const auto* chart = std::get_if<Chart>(&figure);
        const QString id = table ? table->id : chart->id, where = subject + '/' + id;
        EXPECT_TRUE(ids.insert((table ? "t" : "g") + id).second) << qPrintable(where);
        table ? expectSound(*table, where) : expectSound(*chart, where);
    }
    ASSERT_FALSE(figures.empty()) << qPrintable(subject);
    if (tally.isEmpty()) return;
    const auto* last = std::get_if<Table>(&figures.back());
    EXPECT_EQ(last ? last->id : QString(), "nao-contados") << qPrintable(subject);
}

class EverySubjectOfAnOddParish : public People
{
protected:
    std::vector<Settings> odd() const
    {
        Settings none, byYear;
        none.period = {1200, 1201};
        byYear.cohortYears = 10;
        byYear.byMarriageCohort = false;
        byYear.localOnly = false;
        byYear.derivedBirths = true;
        byYear.missingBirths = 0.2;
        return {{}, none, byYear};
    }
    void expectSoundFigures() const
    {
        const Snapshot parish = Snapshot::read(bdp);
        for (const Settings& settings : odd()) {
            const Study study = studyOf(parish, settings);
            for (const Subject* subject : subjects())
                expectSound(*subject, tallyOf(*subject, study), settings);
        }
    }
    Tallies counted() const
    {
        const Snapshot parish = Snapshot::read(bdp);
        return talliesOf(studyOf(parish, {}), {});
    }
};

} // namespace

TEST_F(EverySubjectOfAnOddParish, HasNoDataWhereThereIsNobody)
{
    expectSoundFigures();
    for (const Subject* subject : subjects()) {
        const Tally tally = counted().bySubject.at(subject->id);
        EXPECT_TRUE(tally.isEmpty()) << subject->id;
        for (const Figure& figure : subject->figures(tally, {})) {
            if (const auto* chart = std::get_if<Chart>(&figure)) {
                EXPECT_TRUE(chart->isEmpty()) << subject->id << '/' << qPrintable(chart->id);
            }
            if (const auto* table = std::get_if<Table>(&figure))
                for (const auto& row : table->rows)
                    for (const Cell& cell : row) {
                        const double* number = std::get_if<double>(&cell.value);
                        EXPECT_TRUE(!number || *number == 0) << subject->id << '/' << qPrintable(table->id);
                    }
        }
    }
    const QByteArray page = pageOf(reportOf(counted(), {}));
    EXPECT_GT(page.count("sem dados"), 10);
}

TEST_F(EverySubjectOfAnOddParish, BearsOnePersonOfWhomNothingIsTold)
{
    person({"Rui", 'd'});
    expectSoundFigures();
}

TEST_F(EverySubjectOfAnOddParish, BearsOneLife)
{
    person({"Ana", 'f', "1700-02-29", "1700-02-29"});
    expectSoundFigures();
}

TEST_F(EverySubjectOfAnOddParish, BearsDeathsAlone)
{
    for (int year = 1700; year < 1790; ++year)
        for (const char sex : {'m', 'f', 'd'})
            person({"Rui", sex, "", qPrintable(QString("%1-01-%2").arg(year).arg(10 + year % 10))});
    expectSoundFigures();
}

TEST_F(EverySubjectOfAnOddParish, BearsTheFirstAndTheLastYears)
{
    const qint64 rui = person({"Rui", 'm', "0100-01-01", "9999-12-31"});
    const qint64 ana = person({"Ana", 'f', "0100-01-02", "9999-12-31"});
    const qint64 family = couple(rui, ana, "0100-01-01");
    person({"Eva", 'f', "9999-12-31", "0100-01-01", family});
    person({"Gil", 'm', "9999-12-30", "9999-12-31", family});
    expectSoundFigures();
}

TEST_F(EverySubjectOfAnOddParish, BearsDeathsBeforeBirthsAndMarriagesOfTheUnborn)
{
    for (int i = 0; i < 40; ++i) {
        const qint64 rui = person({"Rui", 'm', "1750-05-05", "1700-01-01"});
        const qint64 ana = person({"Ana", 'f', "1760-05-05", "1699-01-01"});
        const qint64 family = couple(rui, i % 3 == 0 ? 0 : ana, "1690-02-02");
        person({"Eva", 'f', "1680-03-03", "1670-03-03", family});
        person({"Gil", 'm', "1850-03-03", "1850-03-02", family});
    }
    run("update familia set sfamilia = '1', dcasamfixa = 1");
    run("update individuo set famorig = 1 where nind = 1"); // a child of itself
    expectSoundFigures();
}

// A parish in which nothing holds together any more.
TEST_F(EverySubjectOfAnOddParish, BearsAnyDatesAndLinks)
{
    const truth::Parish made = truth::parish(600, 5, ORV_DATA_DIR);
    truth::write(made.bdp, made.world, bdp);
    QRandomGenerator dice(1582);
    const auto people = int(made.bdp.people.size()), families = int(made.bdp.families.size());
    const auto anyDay = [&dice] {
        return QDate(dice.bounded(4) == 0 ? dice.bounded(100, 10000) : dice.bounded(1600, 1900), dice.bounded(1, 13),
                     dice.bounded(1, 29));
    };
    for (int i = 0; i < 400; ++i) {
        const QVariant person = dice.bounded(1, people), family = dice.bounded(1, families);
        run("update individuo set datanasc = ?, sexo = ?, DnascFixa = ? where nind = ?",
            {anyDay().toString(Qt::ISODate), QString("mfd"[dice.bounded(3)]), dice.bounded(2), person});
        run("update individuo set dataobito = ?, idadeobito = ?, estadoobito = ?, famorig = ? where nind = ?",
            {anyDay().toString(Qt::ISODate), dice.bounded(0, 200), dice.bounded(0, 9), family,
             dice.bounded(1, people)});
        run("update familia set datacasam = ?, sfamilia = ? where nfamilia = ?",
            {anyDay().toString(Qt::ISODate), QString::number(dice.bounded(0, 12)), family});
        run("update assistente set dataref = ? where nind = ?", {anyDay().toString(Qt::ISODate), person});
        run("insert into assinatura (nind, idassinatura, dataref, datafixa, nivelassinatura) values (?, ?, ?, 1, ?)",
            {person, i, anyDay().toString(Qt::ISODate), dice.bounded(0, 9)});
        run("insert into passaporte (nind, nPass, dataref) values (?, ?, ?)",
            {person, i, anyDay().toString(Qt::ISODate)});
        run("insert into rituaismorte (nind, idlegpio, tipolegpio, quantidade, valortotal, tipoMoeda) values (?, ?, "
            "'missa', ?, ?, 'Re')",
            {person, i, dice.bounded(-5, 100), dice.bounded(-5, 100000)});
    }
    expectSoundFigures();
}
