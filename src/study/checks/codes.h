// The codes of the reference data that the rules know, and the types that the cards derive.
#pragma once

#include "study/parish/codes.h"

namespace study::checks {

using parish::civil::divorced;
using parish::civil::married;
using parish::civil::separated;
using parish::civil::single;
using parish::civil::widowed;

using parish::isOutOfWedlock;
using parish::filiation::foundling;
using parish::filiation::incestuous;
using parish::filiation::legitimate;
using parish::filiation::posthumous;

using parish::parishClass::innocent;

using parish::situation::fatherUnknown;
using parish::situation::madeLegitimate;
using parish::situation::motherUnknown;
inline constexpr auto legitimateFamily = parish::situation::legitimate;
inline constexpr auto fosterFamily = parish::situation::foster;

// A type of TipIn or TipFa by what is known, as the cards derive it; what is stored where the dates don't tell: "T" and
// codes of the researcher's own.
QString typeByDates(const parish::Person& person);
QString typeByDates(const parish::Family& family);

} // namespace study::checks
