#include "study/statistics/tally.h"

#include <algorithm>

namespace study::statistics {

namespace {

bool matches(const std::array<qint32, 4>& at, const std::array<qint32, 4>& asked)
{
    for (std::size_t i = 0; i < at.size(); ++i)
        if (asked[i] != Tally::any && asked[i] != at[i]) return false;
    return true;
}

} // namespace

std::size_t KeyHash::operator()(const Key& key) const
{
    std::size_t hash = key.count;
    for (const qint32 value : key.at)
        hash = hash * 1099511628211u ^ static_cast<quint32>(value);
    return hash ^ (hash >> 29);
}

void Tally::add(const Key& key, qint64 amount)
{
    if (amount == 0) return;
    const auto place = cells_.try_emplace(key, 0).first;
    place->second += amount;
    if (place->second == 0) cells_.erase(place);
}

Tally& Tally::operator+=(const Tally& other)
{
    for (const auto& [key, amount] : other.cells_)
        add(key, amount);
    return *this;
}

qint64 Tally::operator[](const Key& key) const
{
    const auto found = cells_.find(key);
    return found == cells_.end() ? 0 : found->second;
}

std::vector<std::pair<Key, qint64>> Tally::cells() const
{
    std::vector<std::pair<Key, qint64>> all(cells_.begin(), cells_.end());
    std::sort(all.begin(), all.end());
    return all;
}

qint64 Tally::sum(quint16 count, std::array<qint32, 4> at) const
{
    qint64 sum = 0;
    for (const auto& [key, amount] : cells_)
        if (key.count == count && matches(key.at, at)) sum += amount;
    return sum;
}

std::vector<qint32> Tally::valuesOf(quint16 count, int dimension) const
{
    std::vector<qint32> values;
    for (const auto& cell : cells_)
        if (cell.first.count == count) values.push_back(cell.first.at[static_cast<std::size_t>(dimension)]);
    std::sort(values.begin(), values.end());
    values.erase(std::unique(values.begin(), values.end()), values.end());
    return values;
}

std::map<qint32, qint64> Tally::along(quint16 count, int dimension, std::array<qint32, 4> at) const
{
    const auto place = static_cast<std::size_t>(dimension);
    at[place] = any;
    std::map<qint32, qint64> amounts;
    for (const auto& [key, amount] : cells_)
        if (key.count == count && matches(key.at, at)) amounts[key.at[place]] += amount;
    std::erase_if(amounts, [](const auto& entry) { return entry.second == 0; });
    return amounts;
}

} // namespace study::statistics
