// The subjects of the parish as a whole: series by the year, godparents, names, the delay of the baptism.
#pragma once

#include "study/indicators/subject.h"

namespace study::indicators {

extern const Subject annualSeries;
extern const Subject baptismDelay;
extern const Subject godparenthood;
extern const Subject givenNames;

} // namespace study::indicators
