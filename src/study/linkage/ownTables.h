// The tables of what was decided and of the weights (docs/bdp.md), made when first needed.
#pragma once

#include "study/acts/register_tables.h"

namespace study::linkage {

const tables::Table& decisionTable();

inline constexpr auto weightTable =
    "create table estudo_peso (campo varchar not null, nivel varchar not null, m double not null, u double not null, "
    "primary key (campo, nivel))"; // makes it

} // namespace study::linkage
