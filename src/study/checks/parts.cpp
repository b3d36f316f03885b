#include "study/checks/parts.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace study::checks {

std::vector<Rule> joined(std::vector<std::vector<Rule>> parts)
{
    std::vector<Rule> group;
    for (std::vector<Rule>& part : parts)
        std::ranges::move(part, std::back_inserter(group));
    std::ranges::sort(group, {}, [](const Rule& rule) { return std::string_view(rule.id); });
    return group;
}

} // namespace study::checks
