// A report as one page for a browser and for paper.
#pragma once

#include "study/report/report.h"

#include <QByteArray>

namespace study::report {

// HTML in UTF-8 that is well-formed XML, too. It needs no script and refers to nothing outside; all texts are escaped.
// Contents with links, a chapter for each of the report, tables with their captions, units, limits and legend, charts
// as drawings of their own; on A4 chapters begin a page. Same bytes for the same report.
// Precondition: the thread of the application's windows, for the charts.
QByteArray pageOf(const Report& report);

} // namespace study::report
