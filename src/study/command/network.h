// orv-estudo rede: the network of godparents and witnesses of one BDP, as tables and as GraphML.
#pragma once

#include "study/command/usage.h"

#include <functional>

class QTextStream;

namespace study {

// Ends as counting does (command.h). Throws nothing.
int runNetwork(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn);

} // namespace study
