// The tables of what is kept of transcriptions beside their acts (docs/bdp.md), made when first needed.
#pragma once

#include "study/acts/register_tables.h"

namespace study {

const tables::Table& sourceTable();     // what is told of the books
const tables::Table& assignmentTable(); // which columns hold what

} // namespace study
