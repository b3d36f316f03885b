// orv-estudo definicoes and baptismos: what is set for the study of one BDP.
#pragma once

#include "study/command/usage.h"

#include <functional>

class QTextStream;

namespace study {

// Tells the settings as JSON, or keeps those of a file. Ends as counting does (command.h). Throws nothing.
int runSettings(const Order& order, QTextStream& out, QTextStream& err);

// Tells of each child what a list, or the notes behind certain words, tell of its birth and baptism; keeps words and
// list only where that is asked for. Ends as counting does. Throws nothing.
int runBaptisms(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn);

} // namespace study
