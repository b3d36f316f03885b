#include "study/statistics/quantiles.h"

#include <boost/math/distributions/chi_squared.hpp>
#include <boost/math/distributions/normal.hpp>
#include <boost/math/distributions/students_t.hpp>
#include <boost/math/special_functions/beta.hpp>

namespace study::statistics {

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
