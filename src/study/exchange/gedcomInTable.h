// The tables of imports (docs/bdp.md), made when first needed.
#pragma once

#include "study/acts/register_tables.h"

namespace study::exchange {

const tables::Table& importTable();   // one row an import
const tables::Table& importedTable(); // one row a record that an import which stands has made

// What stands in importedTable() for whom, and a mark of all rows of the record.
namespace imported {
inline constexpr auto person = "i", family = "f", parish = "F", locality = "L", site = "S", profession = "p";
}

} // namespace study::exchange
