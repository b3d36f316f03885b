// Whether figures agree with those worked out by hand, to the last digit told.
#pragma once

#include <QtGlobal>

#include <cstddef>
#include <map>
#include <vector>

// Half a unit of the last digit, and a hair for its rounding.
inline double lastDigit(int decimals)
{
    double unit = 1;
    for (int i = 0; i < decimals; ++i)
        unit /= 10;
    return 0.5001 * unit;
}

// Values as a distribution or a series takes them: how often each stands there.
inline std::map<qint32, qint64> counted(const std::vector<qint32>& values)
{
    std::map<qint32, qint64> counts;
    for (const qint32 value : values)
        ++counts[value];
    return counts;
}
