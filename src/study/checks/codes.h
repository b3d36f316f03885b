// The codes of the reference data that the rules know. A code of the researcher's own is none of them.
#pragma once

#include "study/parish/snapshot.h"

namespace study::checks {

// EstCi
inline constexpr int single = 1, married = 2, widowed = 3, separated = 4, divorced = 5;

// Filia
inline constexpr int legitimate = 1, foundling = 6, incestuous = 9, posthumous = 15;
bool isOutOfWedlock(parish::Code filiation); // 2 to 5, 7 to 10

// ClaPa
inline constexpr int innocent = 1;

// SitFa
inline constexpr auto legitimateFamily = "1", madeLegitimate = "9";
inline constexpr auto fatherUnknown = "3", motherUnknown = "4", fosterFamily = "10";
bool isMarried(const parish::Family& family);    // 1, 2 and 9: legitimate, presumed, made so later
bool isLegitimate(const parish::Family& family); // 1 and 2: of children born in it, not made so later
bool isUnmarried(const parish::Family& family);  // 3 to 8

// A type of TipIn or TipFa by what is known, as the cards derive it; what is stored where the dates don't tell: "T" and
// codes of the researcher's own.
QString typeByDates(const parish::Person& person);
QString typeByDates(const parish::Family& family);

} // namespace study::checks
