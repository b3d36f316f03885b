// The table of the settings (docs/bdp.md), made when first needed.
#pragma once

namespace study::indicators {

inline constexpr auto settingsTable =
    "create table estudo_ajuste (chave varchar primary key not null, valor text not null)"; // makes it

} // namespace study::indicators
