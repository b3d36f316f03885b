// The codes of the reference data that mean something to who computes. A code of the researcher's own is none of them.
#pragma once

#include "study/parish/snapshot.h"

namespace study::parish {

// EstCi
namespace civil {
inline constexpr int single = 1, married = 2, widowed = 3, separated = 4, divorced = 5, cleric = 6, inUnion = 7,
                     unknown = 8;
}

// Filia
namespace filiation {
inline constexpr int legitimate = 1, natural = 2, fatherUnknown = 3, motherUnknown = 4, parentsUnknown = 5,
                     foundling = 6, adulterine = 7, sacrilegious = 8, incestuous = 9, spurious = 10,
                     legitimisedByMarriage = 11, legitimisedByLetter = 12, recognised = 13, adopted = 14,
                     posthumous = 15, unknown = 16;
}
bool isOutOfWedlock(Code filiation); // 2 to 5, 7 to 10

// ClaPa
namespace parishClass {
inline constexpr int innocent = 1, minorWithoutConfession = 2, minorWithConfession = 3;
}

// SitFa
namespace situation {
inline constexpr auto legitimate = "1", presumedLegitimate = "2", fatherUnknown = "3", motherUnknown = "4",
                      bothKnown = "5", unmarriedUnion = "6", adulterine = "7", sacrilegious = "8", madeLegitimate = "9",
                      foster = "10", unknown = "11";
}
bool isMarried(const Family& family);    // 1, 2 and 9: legitimate, presumed, made so later
bool isLegitimate(const Family& family); // 1 and 2: of children born in it, not made so later
bool isUnmarried(const Family& family);  // 3 to 8

} // namespace study::parish
