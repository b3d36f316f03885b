// What a program apart from this one has counted in the demonstration BDP; and what holds for every subject there.
#include "data/demobdp.h"
#include "study/counting.h"

#include "study/indicators/nuptiality.h"
#include "study/indicators/other.h"

#include <cmath>
#include <set>

using namespace study::indicators;

using TheDemonstration = DemoBdp;

TEST_F(TheDemonstration, HasItsMeanAgesAtFirstMarriage)
{
    const auto parish = study::parish::Snapshot::read(bdp_->connection);
    const Settings settings;
    const Study study = studyOf(parish, settings);
    const auto figures = ageAtMarriage.figures(tallyOf(ageAtMarriage, study), settings);
    const Table men = Counting::tableOf(figures, "idade-homens"), women = Counting::tableOf(figures, "idade-mulheres");
    EXPECT_EQ(Counting::value(men, "Todos", "Nº"), 95);
    EXPECT_NEAR(Counting::value(men, "Todos", "Média"), 28.75, 0.005);
    EXPECT_EQ(Counting::value(women, "Todos", "Nº"), 98);
    EXPECT_NEAR(Counting::value(women, "Todos", "Média"), 26.32, 0.005);
    EXPECT_EQ(behind(ageAtMarriage, study, Counting::cell(men, "Todos", "Média").from).size(), 95U);
    EXPECT_EQ(behind(ageAtMarriage, study, Counting::cell(women, "Todos", "25 e mais").from).size(),
              std::lround(Counting::value(women, "Todos", "25 e mais") * 98 / 100));
}

namespace {

void expectSound(const Table& table)
{
    for (const auto& row : table.rows) {
        ASSERT_EQ(row.size(), table.columns.size()) << qPrintable(table.id);
        for (const Cell& cell : row)
            if (const double* number = std::get_if<double>(&cell.value)) {
                EXPECT_TRUE(std::isfinite(*number)) << qPrintable(table.id);
            }
    }
}

} // namespace

TEST_F(TheDemonstration, GivesEverySubjectTheSameFiguresOnManyThreads)
{
    const auto parish = study::parish::Snapshot::read(bdp_->connection);
    const Settings settings;
    const Study study = studyOf(parish, settings);
    for (const Subject* subject :
         {&ageAtMarriage, &combinedStatus, &remarriage, &ageGap, &placeEndogamy, &kinEndogamy, &marriageSeasons,
          &celibacy, &marriageDuration, &mobility, &passports, &literacy, &professions, &bequests})
    {
        SCOPED_TRACE(subject->id);
        const Tally tally = tallyOf(*subject, study);
        EXPECT_EQ(tally, tallyOf(*subject, study, 3));
        EXPECT_FALSE(tally.isEmpty());
        for (const auto& [key, n] : tally.cells())
            EXPECT_LT(key.count, subject->counts.size());
        std::set<QString> ids;
        for (const auto& figure : subject->figures(tally, settings)) {
            const auto* table = std::get_if<Table>(&figure);
            EXPECT_TRUE(ids.insert(table ? table->id : std::get<study::report::Chart>(figure).id).second);
            if (table) expectSound(*table);
        }
        for (const auto& figure : subject->figures({}, settings))
            if (const auto* table = std::get_if<Table>(&figure)) expectSound(*table);
    }
}
