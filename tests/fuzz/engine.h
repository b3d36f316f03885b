// A database in memory with the tables of a BDP and a row in some of them.
#pragma once

#include <sqlite3.h>

namespace Fuzz {

sqlite3* engine(); // the same one each time; statements that run long are ended

}
