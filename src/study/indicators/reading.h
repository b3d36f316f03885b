// A tally read for its figures: sums with the keys that they were made of, and cells by the rules of small numbers.
#pragma once

#include "study/indicators/subject.h"
#include "study/statistics/distribution.h"

namespace study::indicators {

using report::Cell;
using report::Column;
using report::Table;

class Reading
{
public:
    using At = std::array<qint32, 4>;
    static constexpr qint32 any = Tally::any;
    static constexpr At everywhere = {any, any, any, any};

    explicit Reading(const Tally& tally) : cells_(tally.cells()) {}
    bool isEmpty() const { return cells_.empty(); }

    // What was counted where the dimensions are as given, and by which keys: wide ones, which hold `any` where it
    // stands for every value; none where nothing was counted.
    struct Part
    {
        qint64 n = 0;
        std::vector<Key> keys = {};

        Part& operator+=(const Part& other);
    };
    Part part(quint16 count, const At& at = everywhere) const;
    qint64 sum(quint16 count, const At& at = everywhere) const { return part(count, at).n; }
    // Each cell of a count by itself, in the order of the keys.
    std::vector<Part> cellsOf(quint16 count) const;
    // Where one dimension is at least `from` and below `until`.
    Part within(quint16 count, int dimension, qint32 from, qint32 until, const At& at = everywhere) const;
    // The counts along one dimension.
    struct Spread
    {
        statistics::Distribution values = {};
        std::vector<Key> keys = {};
    };
    Spread spread(quint16 count, int dimension, const At& at = everywhere) const;
    // Ascending, each once.
    std::vector<qint32> values(quint16 count, int dimension, const At& at = everywhere) const;

private:
    template <class Take>
    void each(quint16 count, const At& at, const Take& take) const;

    std::vector<std::pair<Key, qint64>> cells_; // in the order of the keys
};

Cell counted(const Reading::Part& part);
// In %, with Wilson's interval; nothing where the whole is 0, suppressed below a base of 20. Never more than the whole.
Cell percent(const Reading::Part& part, const Reading::Part& whole);

// Of values of which `unit` make one of the column's: 100 for hundredths of a year. Grey under 10, suppressed under 5,
// nothing where there is nothing.
Cell meanCell(const Reading::Spread& spread, double unit);
Cell deviationCell(const Reading::Spread& spread, double unit);
Cell quantileCell(const Reading::Spread& spread, double p, double unit);
Cell medianCell(const Reading::Spread& spread, double unit); // with its interval

Column textColumn(const QString& title);
Column countColumn(const QString& title);
Column decimalColumn(const QString& title, const QString& unit, int decimals = 1);

// "12,3": for notes, as the screen has it.
QString decimalComma(double value, int decimals);
// "1750–1799": the period that begins in `first`.
QString periodName(qint32 first, const Settings& settings);

// The periods that dimension 0 of these counts has, ascending, and `any` last, named "Todos"; none where there is none.
std::vector<std::pair<qint32, QString>> periodsOf(const Reading& reading, const std::vector<quint16>& counts,
                                                  const Settings& settings);

// The last table of every subject: each reason, and how many it has left out.
Table leftOutTable(const Reading& reading, std::span<const Reason> reasons);

} // namespace study::indicators
