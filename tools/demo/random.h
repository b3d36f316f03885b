// Chance that falls the same way on every machine.
#pragma once

#include <cstdint>
#include <random>

namespace demo {

// The engine is laid down by the language to the bit, its distributions are not: so these are our own.
class Random
{
public:
    explicit Random(std::uint32_t seed) : engine_(seed) {}

    // A whole number from `first` to `last`, both included.
    int between(int first, int last)
    {
        const int width = last - first + 1;
        return first + static_cast<int>((engine_() * static_cast<std::uint64_t>(width)) >> 32);
    }

    bool chance(int percent) { return between(1, 100) <= percent; }

    // One element of a list that isn't empty.
    template <class List>
    const auto& pick(const List& list)
    {
        return list[static_cast<decltype(list.size())>(between(0, static_cast<int>(list.size()) - 1))];
    }

private:
    std::mt19937 engine_;
};

} // namespace demo
