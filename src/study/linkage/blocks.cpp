#include "study/linkage/blocks.h"

#include <QHash>

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace study::linkage {

namespace {

using Entry = std::pair<uint64_t, uint32_t>; // key, index
using Codes = std::vector<WordCode>;

enum class Key : uint64_t
{
    Parents = 1,
    Surname,
    Spouse,
    Nickname,
    Place,
    Couple
};

uint64_t mixed(uint64_t hash, uint64_t value)
{
    static constexpr uint64_t prime = 1099511628211U, turn = 29;
    hash = (hash ^ value) * prime;
    return hash ^ (hash >> turn);
}

uint64_t keyOf(Key key, std::initializer_list<uint64_t> values)
{
    uint64_t hash = mixed(14695981039346656037U, uint64_t(key));
    for (const uint64_t value : values)
        hash = mixed(hash, value + 1);
    return hash;
}

const Codes& firstOf(const Name* name)
{
    static const Codes none;
    return name && !name->isEmpty() ? name->words.front().keys : none;
}

// Who is "Maria Josefa" goes by "Josefa", too.
Codes givenOf(const Name* name)
{
    Codes codes = firstOf(name);
    if (name && name->words.size() > 1)
        codes.insert(codes.end(), name->words[1].keys.begin(), name->words[1].keys.end());
    return codes;
}

void addRest(const Name* name, Codes& to)
{
    if (!name) return;
    for (size_t i = 1; i < name->words.size(); ++i)
        to.insert(to.end(), name->words[i].keys.begin(), name->words[i].keys.end());
}

// A child is baptised with a first name alone: those of the parents stand for the surname that it will have.
Codes surnamesOf(const Face& face)
{
    Codes codes;
    addRest(face.name, codes);
    if (face.name->words.size() == 1) {
        addRest(face.father, codes);
        addRest(face.mother, codes);
    }
    std::ranges::sort(codes);
    codes.erase(std::unique(codes.begin(), codes.end()), codes.end());
    return codes;
}

void addKeys(const Face& face, uint32_t index, std::vector<Entry>& entries)
{
    for (const WordCode given : givenOf(face.name)) {
        for (const WordCode father : firstOf(face.father))
            for (const WordCode mother : firstOf(face.mother))
                entries.emplace_back(keyOf(Key::Parents, {given, father, mother}), index);
        for (const Tie& tie : face.ties)
            for (const WordCode spouse : firstOf(tie.name))
                entries.emplace_back(keyOf(Key::Spouse, {given, spouse}), index);
    }
    for (const WordCode first : firstOf(face.name)) {
        for (const WordCode surname : surnamesOf(face))
            entries.emplace_back(keyOf(Key::Surname, {first, surname}), index);
        for (const Whereabouts& where : face.places)
            entries.emplace_back(keyOf(Key::Place, {first, uint64_t(where.place)}), index);
        for (const QString& byname : face.bynames + face.tags)
            entries.emplace_back(keyOf(Key::Nickname, {first, codeOf(byname)}), index);
    }
}

// Calls `found` with each run of one key, each index once.
template <class Found>
void forEachRun(std::vector<Entry>& entries, const Found& found)
{
    std::ranges::sort(entries);
    entries.erase(std::unique(entries.begin(), entries.end()), entries.end());
    for (size_t from = 0; from < entries.size();) {
        size_t to = from + 1;
        while (to < entries.size() && entries[to].first == entries[from].first)
            ++to;
        if (to - from > 1) {
            std::vector<uint32_t> members;
            members.reserve(to - from);
            for (size_t i = from; i < to; ++i)
                members.push_back(entries[i].second);
            found(std::move(members));
        }
        from = to;
    }
}

// Those of one surname together, and what is still too large in the order of time: each with its neighbours.
template <class Surnames, class Time>
void addBlock(std::vector<uint32_t> members, const Surnames& surnames, const Time& time, std::vector<Block>& blocks)
{
    if (members.size() <= largestBlock) {
        const size_t reach = members.size();
        blocks.push_back({std::move(members), reach});
        return;
    }
    const auto byTime = [&](uint32_t a, uint32_t b) { return std::pair(time(a), a) < std::pair(time(b), b); };
    std::ranges::sort(members, byTime);
    std::vector<Entry> entries;
    for (const uint32_t index : members)
        for (const WordCode code : surnames(index))
            entries.emplace_back(code, index);
    forEachRun(entries, [&](std::vector<uint32_t> part) {
        std::ranges::sort(part, byTime);
        const size_t reach = std::min(part.size(), largestBlock / 2);
        blocks.push_back({std::move(part), reach});
    });
    blocks.push_back({std::move(members), largestBlock / 4});
}

// Of those of one first name each with who was born next, as many at any size of a parish.
void addBlocksByTime(const std::vector<Face>& people, std::vector<Block>& blocks)
{
    static constexpr size_t reach = 100;
    std::vector<Entry> entries;
    for (size_t i = 0; i < people.size(); ++i)
        if (people[i].birthYear != 0)
            for (const WordCode first : firstOf(people[i].name))
                entries.emplace_back(first, uint32_t(i));
    forEachRun(entries, [&](std::vector<uint32_t> members) {
        std::ranges::sort(members, [&](uint32_t a, uint32_t b) {
            return std::pair(people[a].birthYear, a) < std::pair(people[b].birthYear, b);
        });
        const size_t most = std::min(members.size(), reach);
        blocks.push_back({std::move(members), most});
    });
}

} // namespace

std::vector<Block> blocksOfPeople(const Faces& faces, bool alsoByTime)
{
    const std::vector<Face>& people = faces.people();
    std::vector<Entry> entries;
    for (size_t i = 0; i < people.size(); ++i)
        addKeys(people[i], uint32_t(i), entries);
    std::vector<Block> blocks;
    forEachRun(entries, [&](std::vector<uint32_t> members) {
        addBlock(
            std::move(members), [&](uint32_t index) { return surnamesOf(people[index]); },
            [&](uint32_t index) { return people[index].birthYear; }, blocks);
    });
    if (alsoByTime) addBlocksByTime(people, blocks);
    return blocks;
}

std::vector<Block> blocksOfCouples(const Faces& faces)
{
    const std::vector<CoupleFace>& couples = faces.couples();
    std::vector<Entry> entries;
    for (size_t i = 0; i < couples.size(); ++i) {
        if (!couples[i].husband || !couples[i].wife) continue;
        for (const WordCode husband : givenOf(couples[i].husband->name))
            for (const WordCode wife : givenOf(couples[i].wife->name))
                entries.emplace_back(keyOf(Key::Couple, {husband, wife}), uint32_t(i));
    }
    const auto surnames = [&](uint32_t index) {
        Codes codes;
        addRest(couples[index].husband->name, codes);
        addRest(couples[index].wife->name, codes);
        return codes;
    };
    std::vector<Block> blocks;
    forEachRun(entries, [&](std::vector<uint32_t> members) {
        addBlock(
            std::move(members), surnames, [&](uint32_t index) { return double(couples[index].time.from); }, blocks);
    });
    return blocks;
}

} // namespace study::linkage
