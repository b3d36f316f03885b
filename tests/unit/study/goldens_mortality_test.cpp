// What a program apart from this one has counted in the demonstration BDP.
#include "data/demobdp.h"
#include "study/counting.h"

#include "study/indicators/mortality.h"
#include "study/indicators/quality.h"

using namespace study::indicators;

namespace {

class TheDeathsOfTheDemonstration : public DemoBdp
{
protected:
    static std::vector<study::report::Figure> figuresFor(const Subject& subject)
    {
        const auto parish = study::parish::Snapshot::read(bdp_->connection);
        const Settings settings;
        return subject.figures(tallyOf(subject, studyOf(parish, settings)), settings);
    }
};

} // namespace

TEST_F(TheDeathsOfTheDemonstration, HaveEightySixUnderOneYear)
{
    const Table table = Counting::tableOf(figuresFor(infantMortality), "obitos-ate-um-ano");
    EXPECT_EQ(Counting::value(table, "Menos de um ano", "Óbitos"), 86);
}

TEST_F(TheDeathsOfTheDemonstration, AreSeenTogetherWithAllPeople)
{
    const auto figures = figuresFor(quality);
    EXPECT_EQ(Counting::value(Counting::tableOf(figures, "sinais"), "Pessoas de sexo indeterminado (%)", "De quantos"),
              620);
    const Table families = Counting::tableOf(figures, "familias-por-classe");
    EXPECT_EQ(Counting::value(families, "Todas", "Famílias"), 137);
}
