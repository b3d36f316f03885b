#include "study/checks/kinship.h"

#include <algorithm>
#include <tuple>

namespace study::checks {

using parish::Person;

namespace {

struct Ancestor
{
    const Person* person;
    int generations;
};

// The person and all ancestors, each with the shortest line, in the order of their places in the memory.
std::vector<Ancestor> ancestorsOf(const Person& person, int generations)
{
    std::vector<Ancestor> all{{&person, 0}};
    for (size_t next = 0; next < all.size(); ++next) {
        const Ancestor one = all[next];
        if (one.generations == generations) continue;
        for (const Person* parent : {one.person->father(), one.person->mother()})
            if (parent) all.push_back({parent, one.generations + 1});
    }
    std::ranges::stable_sort(all, {}, &Ancestor::person);
    const auto isTwice = [](const Ancestor& one, const Ancestor& next) { return one.person == next.person; };
    all.erase(std::unique(all.begin(), all.end(), isTwice), all.end());
    return all;
}

auto nearness(int first, int second)
{
    return std::tuple(std::max(first, second), std::min(first, second), first);
}

} // namespace

Kinship kinshipOf(const Person& first, const Person& second, int generations)
{
    Kinship nearest;
    if (!first.origin && !second.origin) return nearest;
    const auto ours = ancestorsOf(first, generations), theirs = ancestorsOf(second, generations);
    auto other = theirs.begin();
    for (const Ancestor& one : ours) {
        other = std::ranges::lower_bound(other, theirs.end(), one.person, {}, &Ancestor::person);
        if (other == theirs.end()) break;
        if (other->person != one.person) continue;
        const auto line = nearness(one.generations, other->generations);
        const auto known = nearness(nearest.first, nearest.second);
        if (nearest.isKnown() && known < line) continue;
        if (!nearest.isKnown() || line < known) nearest = {one.generations, other->generations};
        nearest.ancestors.push_back(one.person);
    }
    std::ranges::sort(nearest.ancestors, {}, &Person::number);
    return nearest;
}

} // namespace study::checks
