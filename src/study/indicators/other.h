// The subjects beside marriages, births and deaths.
#pragma once

#include "study/indicators/subject.h"

namespace study::indicators {

extern const Subject mobility;
extern const Subject passports;
extern const Subject literacy;
extern const Subject professions;
extern const Subject bequests;

} // namespace study::indicators
