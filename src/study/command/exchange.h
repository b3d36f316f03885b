// orv-estudo exportar and importar by the ways of study/exchange: a BDP for other programs, and a BDP made of files.
#pragma once

#include "study/command/usage.h"

#include <functional>

class QTextStream;

namespace study {

// End as a run does (command.h): refused also where a file can't be taken, each reason as "ficheiro:linha: razão" to
// `err`. Throw nothing. Precondition: order.way names one.
int runExport(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn);
int runImport(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn);
// Of GEDCOM, also taking back what came with the last one.
int runImportGedcom(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn);

} // namespace study
