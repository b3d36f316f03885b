// What a program apart from this one has counted in the demonstration BDP.
#include "data/demobdp.h"
#include "study/counting.h"

#include "study/indicators/nuptiality.h"

using namespace study::indicators;

using TheDemonstration = DemoBdp;

TEST_F(TheDemonstration, HasItsMeanAgesAtFirstMarriage)
{
    const auto parish = study::parish::Snapshot::read(bdp_->connection);
    const Settings settings;
    const auto figures = ageAtMarriage.figures(tallyOf(ageAtMarriage, studyOf(parish, settings)), settings);
    const Table men = Counting::tableOf(figures, "idade-homens"), women = Counting::tableOf(figures, "idade-mulheres");
    EXPECT_EQ(Counting::value(men, "Todos", "Nº"), 95);
    EXPECT_NEAR(Counting::value(men, "Todos", "Média"), 28.75, 0.005);
    EXPECT_EQ(Counting::value(women, "Todos", "Nº"), 98);
    EXPECT_NEAR(Counting::value(women, "Todos", "Média"), 26.32, 0.005);
}
