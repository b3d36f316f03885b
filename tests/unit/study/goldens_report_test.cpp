// What a program apart from this one has counted in the demonstration BDP, on the way that a study takes: counted on
// several threads, kept as a file, read again, and put together as a report.
#include "data/demobdp.h"
#include "study/counting.h"

#include "study/indicators/fertility.h"
#include "study/indicators/mortality.h"
#include "study/indicators/quality.h"
#include "study/indicators/studyReport.h"

using namespace study::indicators;

namespace {

class TheReportOfTheDemonstration : public DemoBdp
{
protected:
    static study::report::Report reportBy(const Settings& settings)
    {
        const auto parish = study::parish::Snapshot::read(bdp_->connection);
        const Tallies tallies = talliesOf(studyOf(parish, settings), {.path = "demo.orv"}, 3);
        return reportOf(talliesFrom(jsonOf(tallies)), {});
    }
    static std::vector<study::report::Figure> figuresOf(const study::report::Report& report, const QString& id)
    {
        for (const auto& chapter : report.chapters)
            for (const auto& section : chapter.sections)
                if (section.id == id) return section.figures;
        ADD_FAILURE() << "no section " << qPrintable(id);
        return {};
    }
    static double numberAt(const std::vector<study::report::Figure>& figures, std::size_t figure, std::size_t row,
                           std::size_t column)
    {
        return std::get<double>(std::get<Table>(figures.at(figure)).rows.at(row).at(column).value);
    }
};

} // namespace

TEST_F(TheReportOfTheDemonstration, HasAgesAndIntervals)
{
    const auto report = reportBy({});
    EXPECT_EQ(report.parish, "São Mamede da Ribeira");
    EXPECT_EQ(report.parishCode, "030899");
    const auto ages = figuresOf(report, "idade-ao-casamento");
    EXPECT_NEAR(Counting::value(Counting::tableOf(ages, "idade-homens"), "Todos", "Média"), 28.75, 0.005);
    EXPECT_NEAR(Counting::value(Counting::tableOf(ages, "idade-mulheres"), "Todos", "Média"), 26.32, 0.005);
    EXPECT_NEAR(numberAt(figuresOf(report, "intervalo-protogenesico"), 0, 0, 2), 15.53, 0.005);
    EXPECT_NEAR(numberAt(figuresOf(report, "intervalos-intergenesicos"), 0, 0, 2), 29.40, 0.005);
    const auto infants = figuresOf(report, infantMortality.id);
    EXPECT_EQ(Counting::value(Counting::tableOf(infants, "obitos-ate-um-ano"), "Menos de um ano", "Óbitos"), 86);
}

TEST_F(TheReportOfTheDemonstration, HasTheFertilityOfItsClosedFamilies)
{
    Settings exact;
    exact.unions = {.approximateMarriages = false, .marriedAtDeath = true, .leaveOutContradictory = false};
    const auto figures = figuresOf(reportBy(exact), maritalFertility.id);
    EXPECT_NEAR(numberAt(figures, 1, 1, 4), 7.795, 5e-4);
    EXPECT_EQ(numberAt(figures, 1, 0, 1), 88);
}

TEST_F(TheReportOfTheDemonstration, HasItsPeopleAndFamilies)
{
    const auto figures = figuresOf(reportBy({}), quality.id);
    EXPECT_EQ(Counting::value(Counting::tableOf(figures, "sinais"), "Pessoas de sexo indeterminado (%)", "De quantos"),
              620);
    const Table families = Counting::tableOf(figures, "familias-por-classe");
    EXPECT_EQ(Counting::value(families, "Todas", "Famílias"), 137);
    EXPECT_EQ(Counting::value(families, "Todas", "Com outro tipo na ficha"), 0);
}
