// Links that are one case.
#include "study/linkage/candidates.h"

#include <algorithm>
#include <functional>
#include <map>
#include <numeric>
#include <utility>

namespace study::linkage {

namespace {

// Sets that are joined; each is known by one of its members.
class Sets
{
public:
    explicit Sets(size_t count) : parent_(count) { std::iota(parent_.begin(), parent_.end(), size_t(0)); }

    size_t of(size_t one)
    {
        while (parent_[one] != one)
            one = parent_[one] = parent_[parent_[one]];
        return one;
    }
    void join(size_t one, size_t other) { parent_[std::max(of(one), of(other))] = std::min(of(one), of(other)); }

private:
    std::vector<size_t> parent_;
};

using LinkOf = std::map<std::pair<Record, Record>, size_t>;

// Husband with husband, wife with wife; children with the children of the same two families.
void joinFamily(const parish::Snapshot& parish, const std::vector<Link>& links, size_t number, const LinkOf& linkOf,
                Sets& sets)
{
    const parish::Family* one = parish.family(parish::FamilyNumber(links[number].one.number));
    const parish::Family* other = parish.family(parish::FamilyNumber(links[number].other.number));
    if (!one || !other) return;
    const auto join = [&](const parish::Person* a, const parish::Person* b) {
        if (!a || !b || a == b) return;
        const auto both = std::minmax({recordOf(a->number), recordOf(b->number)});
        if (linkOf.contains(both)) sets.join(number, linkOf.at(both));
    };
    join(one->husband, other->husband);
    join(one->wife, other->wife);
    for (const parish::Person* a : one->children)
        for (const parish::Person* b : other->children)
            join(a, b);
}

// Three records of which each two may well be one person.
void joinDoubles(const std::vector<Link>& links, double from, const LinkOf& linkOf, Sets& sets)
{
    const auto isStrong = [&](size_t number) { return links[number].bits >= from; };
    std::map<Record, std::vector<size_t>> linksOf;
    for (const auto& [pair, number] : linkOf)
        if (isStrong(number)) {
            linksOf[pair.first].push_back(number);
            linksOf[pair.second].push_back(number);
        }
    for (const auto& entry : linksOf) {
        const Record& record = entry.first;
        const std::vector<size_t>& own = entry.second;
        const auto other = [&](size_t number) {
            return links[number].one == record ? links[number].other : links[number].one;
        };
        for (size_t i = 0; i < own.size(); ++i)
            for (size_t j = i + 1; j < own.size(); ++j) {
                const std::pair<Record, Record> third = std::minmax({other(own[i]), other(own[j])});
                if (!linkOf.contains(third) || !isStrong(linkOf.at(third))) continue;
                sets.join(own[i], own[j]);
                sets.join(own[i], linkOf.at(third));
            }
    }
}

} // namespace

std::vector<Group> groups(const parish::Snapshot& parish, const std::vector<Link>& links, double from)
{
    LinkOf linkOf;
    for (size_t i = 0; i < links.size(); ++i)
        if (links[i].one.isPerson() && links[i].other.isPerson())
            linkOf.emplace(std::minmax(links[i].one, links[i].other), i);
    Sets sets(links.size());
    for (size_t i = 0; i < links.size(); ++i)
        if (links[i].kind == LinkKind::SameFamily) joinFamily(parish, links, i, linkOf, sets);
    joinDoubles(links, from, linkOf, sets);
    std::map<size_t, Group> bySet;
    for (size_t i = 0; i < links.size(); ++i) {
        Group& group = bySet[sets.of(i)];
        group.bits = group.links.empty() ? links[i].bits : std::max(group.bits, links[i].bits);
        group.links.push_back(i);
    }
    std::vector<Group> all;
    all.reserve(bySet.size());
    for (auto& [set, group] : bySet)
        all.push_back(std::move(group));
    std::ranges::stable_sort(all, std::greater(), &Group::bits);
    return all;
}

} // namespace study::linkage
