// The rule by which figures of few cases are marked or not shown, for its reader.
#pragma once

#include <QString>

namespace study::report {

// In sentences, with the limits that rate(), share(), mean() and median() go by (figure.h) and the marks of the page.
QString ruleOfSmallNumbers();

} // namespace study::report
