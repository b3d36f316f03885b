#include "study/statistics/quantiles.h"

#include <boost/math/distributions/chi_squared.hpp>
#include <boost/math/distributions/normal.hpp>
#include <boost/math/distributions/students_t.hpp>
#include <boost/math/special_functions/beta.hpp>

#include <cmath>

namespace study::statistics {

namespace {

constexpr double many = 1e8; // degrees of freedom beyond which the series no longer end

// The cube root of χ² is nearly normal (E. B. Wilson and M. M. Hilferty, 1931); of so many degrees to ten digits.
double chiSquareByCubeRoot(double p, double degrees)
{
    const double variance = 2 / (9 * degrees);
    const double root = 1 - variance + normalQuantile(p) * std::sqrt(variance);
    return degrees * root * root * root;
}

} // namespace

double normalQuantile(double p)
{
    return boost::math::quantile(boost::math::normal_distribution<double>(), p);
}

double studentQuantile(double p, double degrees)
{
    return boost::math::quantile(boost::math::students_t_distribution<double>(degrees), p);
}

double chiSquareQuantile(double p, double degrees)
{
    if (degrees > many) return chiSquareByCubeRoot(p, degrees);
    return boost::math::quantile(boost::math::chi_squared_distribution<double>(degrees), p);
}

double chiSquareTail(double value, double degrees)
{
    return boost::math::cdf(boost::math::complement(boost::math::chi_squared_distribution<double>(degrees), value));
}

double headsAtMost(qint64 most, qint64 n)
{
    return boost::math::ibeta(static_cast<double>(n - most), static_cast<double>(most + 1), 0.5);
}

} // namespace study::statistics
