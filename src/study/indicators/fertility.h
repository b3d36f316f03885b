// Marital fertility, by the wife's age and by what a complete family has had.
#pragma once

#include "study/indicators/subject.h"

namespace study::indicators {

extern const Subject maritalFertility;  // rates by age, their sum, M and m, I_g′
extern const Subject lastBirth;         // the wife's age at it, in complete families
extern const Subject completedSize;     // of families, and couples without a child
extern const Subject parityProgression; // from one birth to the next

} // namespace study::indicators
