// What the engine may do for the program: a BDP is a file that anybody may have sent.
#pragma once

struct sqlite3;

namespace jet {

// Nothing that a file holds runs as a program: no trigger, no view, no virtual table, no extension, no function in a
// schema but the engine's own harmless ones. A statement reads and writes ordinary tables of the one file, with a list
// of functions and of pragmas by name; any other is refused when it is prepared, with invalidStatement. Statistics
// that a file holds are not read.
// Precondition: no statement was prepared on the handle yet.
void guardEngine(sqlite3* database);

} // namespace jet
