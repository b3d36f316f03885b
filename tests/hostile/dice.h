// Chance that is the same on every machine for the same seed.
#pragma once

#include <QtGlobal>

#include <cstdint>
#include <iterator>

class Dice
{
public:
    explicit Dice(std::uint64_t seed) : state_(seed) {}
    Dice(std::uint64_t seed, std::uint64_t index) : state_(seed * 0x9e3779b97f4a7c15U ^ index) {}

    std::uint64_t next()
    {
        std::uint64_t z = state_ += 0x9e3779b97f4a7c15U;
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9U;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebU;
        return z ^ (z >> 31);
    }

    // From 0 to `count` - 1; 0 where there is nothing to choose from.
    int below(qint64 count) { return count > 0 ? int(next() % std::uint64_t(count)) : 0; }
    bool chance(int percent) { return below(100) < percent; }

    template <class List>
    const auto& of(const List& list)
    {
        return list[below(qint64(std::size(list)))];
    }

private:
    std::uint64_t state_;
};
