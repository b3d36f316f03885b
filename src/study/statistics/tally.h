// A tally: what was counted, as a value that can be added.
//
// All amounts are whole numbers, so that sums are the same in whatever order and on however many threads they are made.
#pragma once

#include <QtGlobal>

#include <array>
#include <cstddef>
#include <map>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

namespace study::statistics {

// One cell: which of the subject's counts, and where on its dimensions (period, sex, age group, …; 0 where unused).
struct Key
{
    quint16 count = 0;
    std::array<qint32, 4> at = {};

    bool operator==(const Key&) const = default;
    bool operator<(const Key& other) const { return std::tie(count, at) < std::tie(other.count, other.at); }
};

struct KeyHash
{
    std::size_t operator()(const Key& key) const;
};

class Tally
{
public:
    bool operator==(const Tally&) const = default; // a cell that holds 0 is never kept

    void add(const Key& key, qint64 amount);
    Tally& operator+=(const Tally& other);

    qint64 operator[](const Key& key) const; // 0 where nothing was counted
    bool isEmpty() const { return cells_.empty(); }
    std::vector<std::pair<Key, qint64>> cells() const; // in the order of the keys

    // The sum over all cells of this count whose dimensions are as given; `any` stands for every value.
    static constexpr qint32 any = -2147483647;
    qint64 sum(quint16 count, std::array<qint32, 4> at = {any, any, any, any}) const;
    // The values that a dimension (0 to 3) of this count has, ascending, each once.
    std::vector<qint32> valuesOf(quint16 count, int dimension) const;
    // What stands at each value of a dimension (0 to 3) of this count, the other dimensions as given; only what isn't
    // 0.
    std::map<qint32, qint64> along(quint16 count, int dimension, std::array<qint32, 4> at = {any, any, any, any}) const;

private:
    std::unordered_map<Key, qint64, KeyHash> cells_;
};

} // namespace study::statistics
