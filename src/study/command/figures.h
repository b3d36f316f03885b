// orv-estudo contagens, juntar, relatorio, tabelas: what is counted in one or more parishes, and its figures.
#pragma once

#include "study/command/usage.h"

#include <functional>

class QTextStream;

namespace study {

// As runCommand(); ends with counted or notCounted. A BDP is only read, also where a program has it in work.
// Precondition of a report: the thread of the application's windows, for its charts.
int runFigures(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn);

} // namespace study
