// The subjects of a study, in the order of a report. A new one takes a line here, and the header of its group above.
#include "study/indicators/annual.h"
#include "study/indicators/births.h"
#include "study/indicators/fertility.h"
#include "study/indicators/mortality.h"
#include "study/indicators/nuptiality.h"
#include "study/indicators/other.h"
#include "study/indicators/quality.h"
#include "study/indicators/subject.h"

#include <algorithm>

namespace study::indicators {

std::span<const Subject* const> subjects()
{
    static const std::vector<const Subject*> all{
        // clang-format off
        // quality
        &quality,
        // nuptiality
        &ageAtMarriage, &combinedStatus, &remarriage, &ageGap, &placeEndogamy, &kinEndogamy, &marriageSeasons, &celibacy,
        &marriageDuration,
        // fertility
        &maritalFertility, &lastBirth, &completedSize, &parityProgression,
        // births
        &firstInterval, &premaritalConceptions, &birthIntervals, &twins, &sexRatio, &birthSeasons, &illegitimacy,
        &foundlings, &parentsAge,
        // mortality
        &infantMortality, &endogenousMortality, &childhoodMortality, &adultMortality, &maternalMortality, &ageAtDeath,
        &orphanhood, &seasonOfDeaths, &mortalityCrises, &causesOfDeath, &lastSacraments,
        // other
        &annualSeries, &mobility, &passports, &literacy, &professions, &bequests, &baptismDelay, &godparenthood,
        &givenNames,
        // clang-format on
    };
    return all;
}

const Subject* subjectOf(const QString& id)
{
    const auto all = subjects();
    const auto found = std::ranges::find_if(all, [&](const Subject* one) { return id == one->id; });
    return found == all.end() ? nullptr : *found;
}

} // namespace study::indicators
