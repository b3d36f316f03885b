#include "study/statistics/celibacy.h"

#include <algorithm>
#include <numeric>

namespace study::statistics {

std::optional<double> singulateMeanAge(const std::array<double, 8>& singles)
{
    const auto isShare = [](double share) { return share >= 0 && share <= 1; }; // no NaN either
    if (!std::all_of(singles.begin(), singles.end(), isShare)) return {};
    static constexpr double firstAge = 15, lastAge = 50, breadth = 5;
    const double at50 = (singles[6] + singles[7]) / 2;
    if (at50 >= 1) return {};
    const double before50 = std::accumulate(singles.begin(), singles.end() - 1, 0.0);
    return (firstAge + breadth * before50 - lastAge * at50) / (1 - at50);
}

} // namespace study::statistics
