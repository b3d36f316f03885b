// orv-estudo verificar: what contradicts in a BDP.
#pragma once

#include "study/command/usage.h"

#include <functional>

class QTextStream;

namespace study {

// As runCommand(); ends with nothingFound, somethingFound or notChecked. Writes nothing to the BDP, and takes it also
// where a program has it in work.
int runCheck(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn);

} // namespace study
