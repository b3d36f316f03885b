// The subjects of deaths.
#pragma once

#include "study/indicators/subject.h"

namespace study::indicators {

extern const Subject infantMortality;
extern const Subject endogenousMortality;
extern const Subject childhoodMortality;
extern const Subject mortalityCrises;
extern const Subject adultMortality;
extern const Subject maternalMortality;
extern const Subject ageAtDeath;
extern const Subject orphanhood;
extern const Subject seasonOfDeaths;
extern const Subject causesOfDeath;
extern const Subject lastSacraments;

} // namespace study::indicators
