#include "study/indicators/confinements.h"

#include <algorithm>

namespace study::indicators {

using parish::Family;
using parish::Person;

namespace {

bool belongs(const Person& child, const Confinement& confinement)
{
    return child.birth.isExact() && confinement.day.isExact() &&
           parish::daysBetween(confinement.day, child.birth) <= daysOfTwins;
}

} // namespace

std::vector<Confinement> confinementsOf(const Family& family)
{
    std::vector<const Person*> born;
    for (const Person* child : family.children)
        if (child->birth.isKnown()) born.push_back(child);
    std::stable_sort(born.begin(), born.end(), [](const Person* one, const Person* other) {
        return one->birth.middle() < other->birth.middle();
    });
    std::vector<Confinement> confinements;
    Confinement* lastExact = nullptr; // an approximate birth between two of one confinement doesn't part them
    std::size_t exact = 0;
    for (const Person* child : born) {
        if (lastExact && belongs(*child, *lastExact)) {
            lastExact->children.push_back(child);
            continue;
        }
        confinements.push_back({child->birth, {child}});
        if (child->birth.isExact()) exact = confinements.size();
        lastExact = exact > 0 ? &confinements[exact - 1] : nullptr;
    }
    return confinements;
}

bool hasExactBirths(const Family& family)
{
    return std::all_of(family.children.begin(), family.children.end(),
                       [](const Person* child) { return child->birth.isExact(); });
}

} // namespace study::indicators
