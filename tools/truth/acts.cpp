#include "acts.h"

#include "clerk.h"

#include <algorithm>
#include <tuple>

namespace truth {

namespace {

constexpr int yearsOfABook = 25;

struct Event
{
    QDate day = {};
    ActKind kind = ActKind::Baptism;
    int of = 0; // the person, or the couple
};

std::vector<Event> events(const World& world)
{
    std::vector<Event> all;
    all.reserve(2 * world.people.size() + world.couples.size());
    const auto add = [&](QDate day, ActKind kind, int of) {
        if (day.isValid() && day.year() >= firstYear && day.year() <= lastYear) all.push_back({day, kind, of});
    };
    for (const Person& person : world.people) {
        if (person.id == 0) continue;
        add(person.birth, ActKind::Baptism, person.id);
        add(person.death, ActKind::Burial, person.id);
    }
    for (const Couple& couple : world.couples)
        if (couple.id != 0) add(couple.wedding, ActKind::Marriage, couple.id);
    std::ranges::sort(all, {}, [](const Event& one) { return std::tuple(one.day, one.kind, one.of); });
    return all;
}

} // namespace

std::vector<Act> acts(const World& world, const Rates& rates, const Spellings& spellings, std::uint32_t seed)
{
    Clerk clerk(world, rates, spellings, seed);
    std::vector<Act> all;
    for (const Event& event : events(world)) {
        clerk.begin(event.day.year());
        Act act = event.kind == ActKind::Baptism    ? clerk.baptism(world.person(event.of))
                  : event.kind == ActKind::Marriage ? clerk.marriage(world.couple(event.of))
                                                    : clerk.burial(world.person(event.of));
        if (act.subject) all.push_back(std::move(act));
    }
    std::ranges::stable_sort(
        all, {}, [](const Act& act) { return std::pair(act.date.year() / yearsOfABook, static_cast<int>(act.kind)); });
    return all;
}

} // namespace truth
