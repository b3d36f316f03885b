// Quantiles and probabilities of the usual distributions.
#pragma once

#include <QtGlobal>

namespace study::statistics {

// Preconditions: 0 < p < 1, degrees > 0.
double normalQuantile(double p);
double studentQuantile(double p, double degrees);
double chiSquareQuantile(double p, double degrees);

// How likely χ² is to be so large or larger. Precondition: value >= 0, degrees > 0.
double chiSquareTail(double value, double degrees);
// How likely at most `most` heads are in n throws of a coin. Precondition: 0 <= most < n.
double headsAtMost(qint64 most, qint64 n);

} // namespace study::statistics
