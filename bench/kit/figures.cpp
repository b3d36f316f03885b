#include "kit/figures.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

namespace bench {

double median(std::vector<double> values)
{
    if (values.empty()) return 0;
    std::sort(values.begin(), values.end());
    const std::size_t half = values.size() / 2;
    return values.size() % 2 == 1 ? values[half] : (values[half - 1] + values[half]) / 2;
}

double exponent(const std::vector<std::pair<double, double>>& timesBySize)
{
    const auto count = static_cast<double>(timesBySize.size());
    double sizes = 0;
    double times = 0;
    for (const auto& [size, time] : timesBySize) {
        sizes += std::log(size) / count;
        times += std::log(time) / count;
    }
    double together = 0;
    double alone = 0;
    for (const auto& [size, time] : timesBySize) {
        const double aside = std::log(size) - sizes;
        together += aside * (std::log(time) - times);
        alone += aside * aside;
    }
    return alone > 0 ? together / alone : 0;
}

double drift(const std::vector<double>& turns)
{
    const auto tenth = static_cast<std::ptrdiff_t>(turns.size() / 10);
    if (tenth < 2) return 1;
    const double first = median({turns.begin(), std::next(turns.begin(), tenth)});
    return first > 0 ? median({std::prev(turns.end(), tenth), turns.end()}) / first : 1;
}

} // namespace bench
