// Rates of age groups.
#pragma once

namespace study::statistics {

inline constexpr double yearsOfAGroup = 5;

} // namespace study::statistics
