// How far a parish bears figures: the first page of every report.
#pragma once

#include "study/indicators/subject.h"

namespace study::indicators {

extern const Subject quality;

} // namespace study::indicators
