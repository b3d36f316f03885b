// Ages at marriage from a list of who is single.
#pragma once

#include <array>
#include <optional>

namespace study::statistics {

// J. Hajnal, 1953: the mean years that those lived single who marry before 50. Shares (0 to 1) of singles at 15–19,
// 20–24, … 50–54. Nothing where a share isn't one, or all at 50 are single.
std::optional<double> singulateMeanAge(const std::array<double, 8>& singles);

} // namespace study::statistics
