#include "study/indicators/inbreeding.h"

#include "study/parish/codes.h"

#include <algorithm>
#include <array>

namespace study::indicators {

using parish::Person;

namespace {

bool isTakenIn(const Person& child)
{
    using namespace parish;
    return child.filiation == filiation::foundling || child.filiation == filiation::adopted ||
           (child.origin && child.origin->situation == situation::foster);
}

// From a person up to an ancestor, both with it.
struct Line
{
    std::array<const Person*, farthestDegree + 1> people = {};
    int generations = 0;

    const Person* top() const { return people[static_cast<std::size_t>(generations)]; }
    bool holds(const Person* person) const
    {
        const auto last = people.begin() + generations + 1;
        return std::find(people.begin(), last, person) != last;
    }
};

using Lines = std::vector<Line>;

void extend(const Line& line, Lines& lines)
{
    lines.push_back(line);
    if (line.generations == farthestDegree) return;
    for (const Person* parent : {fatherByBlood(*line.top()), motherByBlood(*line.top())}) {
        if (!parent || line.holds(parent)) continue; // nobody descends from himself, whatever is linked
        Line longer = line;
        longer.people[static_cast<std::size_t>(++longer.generations)] = parent;
        extend(longer, lines);
    }
}

Lines linesFrom(const Person& person)
{
    Lines lines;
    lines.reserve((std::size_t{2} << farthestDegree) - 1);
    extend({{&person}, 0}, lines);
    return lines;
}

bool meetAtTheEndAlone(const Line& one, const Line& other)
{
    if (one.top() != other.top()) return false;
    for (int generation = 0; generation < one.generations; ++generation)
        if (other.holds(one.people[static_cast<std::size_t>(generation)])) return false;
    return true;
}

// The sum over the paths; an ancestor counts for as much as `weight` gives, of one that isn't inbred.
template <class Weight>
qint64 sumOverPaths(const Person& father, const Person& mother, const Weight& weight)
{
    const Lines his = linesFrom(father), hers = linesFrom(mother);
    qint64 sum = 0;
    for (const Line& one : his)
        for (const Line& other : hers)
            if (meetAtTheEndAlone(one, other)) sum += weight(*one.top()) >> (one.generations + other.generations + 1);
    return sum;
}

constexpr qint64 notInbred = inbreedingUnits;

qint64 weightOf(const Person& ancestor)
{
    const Person* const father = fatherByBlood(ancestor);
    const Person* const mother = motherByBlood(ancestor);
    if (!father || !mother) return notInbred;
    return notInbred + sumOverPaths(*father, *mother, [](const Person&) { return notInbred; });
}

} // namespace

const Person* fatherByBlood(const Person& child)
{
    return isTakenIn(child) ? nullptr : child.father();
}

const Person* motherByBlood(const Person& child)
{
    return isTakenIn(child) ? nullptr : child.mother();
}

qint32 inbreedingOfChildren(const Person& father, const Person& mother)
{
    return static_cast<qint32>(std::min<qint64>(inbreedingUnits, sumOverPaths(father, mother, weightOf)));
}

} // namespace study::indicators
