// The weights of a BDP, by its own records.
//
// m by the EM algorithm (A. P. Dempster, N. M. Laird, D. B. Rubin, JRSS B 39 (1977) 1-38) over the patterns of
// agreement of the candidate pairs, of which each is of one person or of two; the fields are taken for independent. u
// by pairs of records taken at random.
#include "study/linkage/scores.h"
#include "study/names/weights.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <optional>

namespace study::linkage {

namespace {

constexpr size_t signCount = 2 * size_t(fieldCount); // of a couple: the fields of the husband, then those of the wife
using Levels = std::array<quint8, signCount>;        // of each; 0: missing
using Patterns = std::map<Levels, double>;           // how many pairs have it
using Table = std::array<std::array<double, levelCount>, fieldCount>;

constexpr size_t mostPairs = 300'000, randomPairs = 40'000;
constexpr int rounds = 30;
constexpr double startingShare = 0.05; // of the candidate pairs that are one person
// The start values count as so many pairs: what agrees in a pair isn't quite independent, and the EM takes brothers for
// one person the more readily the less it is held.
constexpr double trustInStart = 2000;
constexpr double smallest = 1e-4;

bool isName(Field field)
{
    return field <= Field::Grandparents;
}

// How well a name agrees is no matter of the EM, but whether it does.
Level levelForCounting(Field field, Level level)
{
    const bool variant = level == Level::OfOneClass || level == Level::Likened;
    return isName(field) && variant ? Level::Equal : level;
}

// What is the same for all pairs of a block, or too rare to be counted, keeps its start values.
bool isCounted(Field field, Level level)
{
    const bool always = field == Field::FirstName || field == Field::Same || field == Field::SameOrigin ||
                        field == Field::Godparents || field == Field::Grandparents || field == Field::Unions ||
                        field == Field::Parish;
    return !always && level != Level::SameDay && level != Level::SomeDays && level != Level::Devotional;
}

Levels levelsOf(const Comparison& comparison)
{
    Levels levels{};
    for (const Sign& sign : comparison.signs) {
        quint8& level = levels[size_t(sign.field) + (sign.of == Of::Wife ? size_t(fieldCount) : 0)];
        if (isCounted(sign.field, sign.level) && level == 0) level = quint8(levelForCounting(sign.field, sign.level));
    }
    return levels;
}

// Some of all pairs, each once, however many blocks it stands in.
std::vector<std::pair<uint32_t, uint32_t>> somePairs(const std::vector<Block>& blocks)
{
    double all = 0;
    for (const Block& block : blocks)
        all += double(block.members.size()) * double(std::min(block.reach, block.members.size())) / 2;
    const auto every = std::max<size_t>(1, size_t(all / double(mostPairs)));
    std::vector<std::pair<uint32_t, uint32_t>> pairs;
    pairs.reserve(2 * mostPairs);
    size_t number = 0;
    for (const Block& block : blocks)
        for (size_t i = 0; i < block.members.size(); ++i)
            for (size_t j = i + 1; j < std::min(block.members.size(), i + 1 + block.reach); ++j)
                if (++number % every == 0) pairs.push_back(std::minmax(block.members[i], block.members[j]));
    std::ranges::sort(pairs);
    pairs.erase(std::unique(pairs.begin(), pairs.end()), pairs.end());
    return pairs;
}

template <class Record>
void countPairs(const std::vector<Block>& blocks, const std::vector<Record>& records, const Comparer& comparer,
                Patterns& patterns)
{
    Comparison comparison;
    for (const auto& [one, other] : somePairs(blocks)) {
        comparison.clear();
        comparer.compare(records[one], records[other], comparison);
        if (!comparison.vetoed) ++patterns[levelsOf(comparison)];
    }
}

// The same row of numbers on every machine (D. E. Knuth, The Art of Computer Programming 2, 3.3.4).
class Dice
{
public:
    size_t below(size_t count)
    {
        static constexpr quint64 factor = 6364136223846793005U, addend = 1442695040888963407U;
        static constexpr int used = 33;
        state_ = state_ * factor + addend;
        return size_t(state_ >> used) % count;
    }

private:
    quint64 state_ = 20;
};

bool areOfOneSort(const Face& one, const Face& other)
{
    return one.person->gender == other.person->gender;
}

bool areOfOneSort(const CoupleFace&, const CoupleFace&)
{
    return true;
}

// Those are vetoed whose times are too far apart: they count for all levels of these fields together, and for none.
bool isOfTime(Field field)
{
    return field != Field::Place && field != Field::Profession;
}

template <class Record>
void countRandom(const std::vector<Record>& records, const Comparer& comparer, Table& counts)
{
    if (records.size() < 2) return;
    Dice dice;
    Comparison comparison;
    for (size_t i = 0; i < randomPairs; ++i) {
        const size_t one = dice.below(records.size()), other = dice.below(records.size());
        if (one == other || !areOfOneSort(records[one], records[other])) continue;
        comparison.clear();
        comparer.compareTimesAndThings(records[one], records[other], comparison);
        const bool vetoed = isVetoed(records[one], records[other]);
        for (const Sign& sign : comparison.signs)
            ++counts[size_t(sign.field)][vetoed && isOfTime(sign.field) ? 0 : size_t(sign.level)];
    }
}

double sumOf(const std::array<double, levelCount>& row)
{
    double sum = 0;
    for (const double value : row)
        sum += value;
    return sum;
}

// Shares of each level among those that aren't missing, the start values counted with them.
Table shares(const Table& counts, const Table& start, double trust)
{
    Table result{};
    for (size_t field = 0; field < fieldCount; ++field) {
        const double all = sumOf(counts[field]) + trust * sumOf(start[field]);
        for (size_t level = 1; level < levelCount; ++level)
            if (all > 0) result[field][level] = (counts[field][level] + trust * start[field][level]) / all;
    }
    return result;
}

Table startTable(const Model& model, bool same)
{
    Table table{};
    for (const Weight& weight : model.weights) {
        const Level level = levelForCounting(weight.field, weight.level);
        if (level == weight.level && isCounted(weight.field, level))
            table[size_t(weight.field)][size_t(level)] = same ? weight.m : weight.u;
    }
    for (std::array<double, levelCount>& row : table)
        if (const double sum = sumOf(row); sum > 1)
            for (double& value : row)
                value /= sum;
    return table;
}

double likelihood(const Levels& levels, const Table& table)
{
    double product = 1;
    for (size_t i = 0; i < signCount; ++i)
        if (levels[i] != 0) product *= std::max(smallest, table[i % fieldCount][levels[i]]);
    return product;
}

void addTo(Table& counts, const Levels& levels, double weight)
{
    for (size_t i = 0; i < signCount; ++i)
        if (levels[i] != 0) counts[i % fieldCount][levels[i]] += weight;
}

Table maximised(const Patterns& patterns, const Table& startM, const Table& startU)
{
    Table m = startM, u = startU;
    double share = startingShare;
    for (int round = 0; round < rounds; ++round) {
        Table same{}, other{};
        double sameSum = 0, all = 0;
        for (const auto& [levels, count] : patterns) {
            const double one = share * likelihood(levels, m), two = (1 - share) * likelihood(levels, u);
            const double probability = one / (one + two);
            addTo(same, levels, probability * count);
            addTo(other, levels, (1 - probability) * count);
            sameSum += probability * count;
            all += count;
        }
        m = shares(same, startM, trustInStart);
        u = shares(other, startU, 1);
        share = std::clamp(sameSum / std::max(1.0, all), smallest, 0.5);
    }
    return m;
}

constexpr double leastOfName = 0.4, mostOfName = 0.99; // a name that never agrees, or always, is a mistake of the EM

void reweighName(Weight& weight, const Table& m)
{
    const double agrees = std::clamp(m[size_t(weight.field)][size_t(Level::Equal)], leastOfName, mostOfName);
    switch (weight.level) {
    case Level::OfOneClass:
        weight.m = agrees * spelling::ofOneClass;
        break;
    case Level::Likened:
        weight.m = agrees * spelling::likened;
        break;
    case Level::Other:
        weight.m = 1 - agrees;
        break;
    default:
        weight.m = agrees;
    }
}

void reweigh(Weight& weight, const Table& m, const Table& u)
{
    if (!isCounted(weight.field, weight.level)) return;
    if (isName(weight.field)) return reweighName(weight, m);
    weight.m = std::max(smallest, m[size_t(weight.field)][size_t(weight.level)]);
    if (weight.field != Field::Nickname && weight.field != Field::Title)
        weight.u = std::max(smallest, u[size_t(weight.field)][size_t(weight.level)]);
}

} // namespace

Model estimated(const parish::Snapshot& parish, const Model& start, const parish::Snapshot::GoesOn& goesOn)
{
    const auto ask = [&](double done) {
        if (goesOn && !goesOn(done)) throw parish::Snapshot::Interrupted{};
    };
    ask(0);
    const Faces faces(parish);
    const Comparer comparer(faces, start);
    Table random{};
    countRandom(faces.people(), comparer, random);
    countRandom(faces.couples(), comparer, random);
    ask(0.3);
    Patterns patterns;
    countPairs(blocksOfCouples(faces), faces.couples(), comparer, patterns);
    countPairs(blocksOfPeople(faces, false), faces.people(), comparer, patterns);
    ask(0.8);
    Model model = start;
    const Table startM = startTable(start, true), startU = startTable(start, false);
    const Table m = maximised(patterns, startM, startU), u = shares(random, startU, trustInStart);
    for (Weight& weight : model.weights)
        reweigh(weight, m, u);
    ask(1);
    return model;
}

} // namespace study::linkage
