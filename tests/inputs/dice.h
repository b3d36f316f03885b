// Chance that can be had again: the same seed gives the same throws on every machine.
#pragma once

#include <QList>
#include <QtGlobal>

#include <random>

class Dice
{
public:
    explicit Dice(quint64 seed) : engine_(seed) {}

    int below(int limit) { return int(engine_() % quint64(limit)); } // from 0; precondition: limit > 0
    bool oneIn(int chances) { return below(chances) == 0; }

    template <class T>
    const T& among(const QList<T>& values) // precondition: not empty
    {
        return values[below(int(values.size()))];
    }

private:
    std::mt19937_64 engine_;
};
