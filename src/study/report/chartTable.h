// The numbers of a chart, for who wants them and not the drawing.
#pragma once

#include "study/report/figure.h"

namespace study::report {

// A row for each x, in their order; behind it a column for each series, with the intervals that its points have. An x
// that a series has twice, as a step has, takes two rows. Nothing stands where a series has no such x. Whole numbers
// bear no decimals, others two. No cell tells who stands behind it. Of a chart without a point: an empty table.
Table tableOf(const Chart& chart);

} // namespace study::report
