// A distribution of whole values (days, completed years, hundredths of a year) and its measures.
#pragma once

#include "study/statistics/confidence.h"
#include "study/statistics/tally.h"

#include <map>
#include <optional>

namespace study::statistics {

class Distribution
{
public:
    Distribution() = default;
    explicit Distribution(std::map<qint32, qint64> counts); // value: how often, never below 0
    // The values of one dimension of a count of a tally, the other dimensions as given (Tally::any for all).
    static Distribution of(const Tally& tally, quint16 count, int dimension, std::array<qint32, 4> at);

    bool operator==(const Distribution&) const = default;
    const std::map<qint32, qint64>& counts() const { return counts_; }
    qint64 n() const { return n_; }

    // Nothing where n is 0; the deviation (with n − 1) nothing where it is below 2.
    std::optional<double> mean() const;
    std::optional<double> deviation() const;
    std::optional<double> quantile(double p) const; // linear between ranks (type 7); p from 0 to 1
    std::optional<double> median() const { return quantile(0.5); }
    std::optional<Interval> meanInterval() const;
    std::optional<Interval> medianInterval() const; // by order statistics; nothing for fewer than six values
    qint64 below(qint32 value) const;               // how many are less

private:
    std::map<qint32, qint64> counts_ = {};
    qint64 n_ = 0;
};

} // namespace study::statistics
