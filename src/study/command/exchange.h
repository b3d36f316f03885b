// orv-estudo exportar and importar gedcom and tabelas: a BDP for other programs, and what others have made for a BDP.
#pragma once

#include "study/command/usage.h"

#include <functional>

class QTextStream;

namespace study {

// End as a run does (command.h): refused also where a file can't be taken, each reason as "ficheiro:linha: razão" to
// `err`. Throw nothing.
int runExportGedcom(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn);
int runExportTables(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn);
int runImportGedcom(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn);
int runImportTables(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn);

} // namespace study
