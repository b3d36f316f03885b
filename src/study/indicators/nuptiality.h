// The subjects of nuptiality.
#pragma once

#include "study/indicators/subject.h"

namespace study::indicators {

extern const Subject ageAtMarriage;
extern const Subject combinedStatus;
extern const Subject remarriage;
extern const Subject ageGap;
extern const Subject placeEndogamy;
extern const Subject kinEndogamy;
extern const Subject marriageSeasons;
extern const Subject celibacy;
extern const Subject marriageDuration;

} // namespace study::indicators
