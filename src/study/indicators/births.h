// Births: what lies between them, and of which kinds they are.
#pragma once

#include "study/indicators/subject.h"

namespace study::indicators {

extern const Subject firstInterval;         // from the marriage to the first confinement
extern const Subject premaritalConceptions; // and births before the marriage
extern const Subject birthIntervals;        // by rank, in large families, by what became of the child before
extern const Subject twins;
extern const Subject sexRatio;
extern const Subject birthSeasons; // of births and conceptions
extern const Subject illegitimacy;
extern const Subject foundlings;
extern const Subject parentsAge; // at the births of their children

} // namespace study::indicators
