// Summaries of rates of marital fertility.
#pragma once

#include <array>
#include <optional>
#include <vector>

namespace study::statistics {

// Births and woman-years of one age group of five years.
struct Borne
{
    double births = 0, years = 0;

    bool operator==(const Borne&) const = default;
};

struct Estimate
{
    double value = 0, error = 0; // standard error
};

// 5·Σ rates and its error, 5·sqrt(Σ B/E²). Nothing where a group has no exposure.
std::optional<Estimate> totalMaritalFertility(const std::vector<Borne>& groups);

// The model of A. J. Coale and T. J. Trussell, r(a) = M·n(a)·exp(m·v(a)), schedules of 1978. Ages from 20–24 on: six
// groups, or five where 45–49 stays out.
struct CoaleTrussell
{
    double level = 0;                                            // M
    double control = 0;                                          // m
    std::optional<double> levelLogError = {}, controlError = {}; // of ln M and of m, where the way gives them
    std::optional<double> squaredError = {}; // mean, of ln r: over the rates of a regression, otherwise over 20–44;
                                             // none where one of them is 0
};
// Poisson maximum likelihood (G. Broström, 1985), by Newton's steps; groups without exposure stay out. Nothing without
// births, or where it doesn't settle.
std::optional<CoaleTrussell> coaleTrussellByPoisson(const std::vector<Borne>& groups);
// Least squares of ln(r/n) on v. Rates by woman-year. Nothing where a rate is 0, or for fewer than two.
std::optional<CoaleTrussell> coaleTrussellBySquares(const std::vector<double>& rates);
// M from 20–24 alone, m as the mean of 25–44. Nothing where one of these five rates is 0 or not there.
std::optional<CoaleTrussell> coaleTrussellByMeans(const std::vector<double>& rates);

// Births over those that Hutterite women would have had in these years, from 15–19 on to 45–49. Nothing without years.
std::optional<double> coaleIndex(const std::array<Borne, 7>& groups);

} // namespace study::statistics
