// What is counted for the rates of marital fertility, and how they are read.
#pragma once

#include "study/indicators/marriedLife.h"
#include "study/indicators/natality.h"
#include "study/statistics/fertility.h"

namespace study::indicators::rates {

using natality::Row;

// How the wife's birth is known, and whether it is her first marriage: series that are added for a table, never before.
enum class Known : quint8
{
    Exactly,
    About,
    Stated // by an age that an act tells
};
inline constexpr int knowns = 3, series = 2 * knowns;
enum class Order : quint8
{
    First,
    Later
};

// Each of them by series; dimensions: age, age at marriage, period (of the marriage or of the event), duration. Those
// of families: 0, age at marriage, cohort of the marriage.
inline constexpr quint16 firstExposure = 0, firstBirths = series, firstFamilies = 2 * series, firstLack = 3 * series,
                         firstPlacing = firstLack + lacks;
// Of closed families whose wife's age isn't taken (MF II), for rates by duration: 0, 0, period, duration.
inline constexpr quint16 agelessExposure = firstPlacing + placings, agelessBirths = agelessExposure + 1,
                         agelessFamilies = agelessExposure + 2;
quint16 seriesOf(Known known, Order order);

// Which series a figure adds.
struct Chosen
{
    std::vector<Known> knowns = {Known::Exactly, Known::About, Known::Stated};
    std::vector<Order> orders = {Order::First, Order::Later};
};

// Births and exposure where the dimensions are as given.
struct Base
{
    Reading::Part births = {}, halfDays = {}, families = {};

    Base& operator+=(const Base& other);
    double years() const { return static_cast<double>(halfDays.n) / 2 / parish::daysOfAYear; }
    statistics::Borne borne() const { return {static_cast<double>(births.n), years()}; }
    std::vector<Key> keys() const;
};
Base baseOf(const Reading& reading, const Chosen& chosen, const Reading::At& at = Reading::everywhere);
Base agelessBaseOf(const Reading& reading, const Reading::At& at = Reading::everywhere);
// Of the seven groups from 15–19 to 45–49, the other dimensions as given.
std::array<Base, 7> byAge(const Reading& reading, const Chosen& chosen, Reading::At at = Reading::everywhere);

// What the births that the books lack make of a rate.
double inflationOf(const Settings& settings);

// The tables of the sums: TMFR and I_g′, and M with m.
Table sumsTable(const Reading& reading, const Settings& settings);
Table controlTable(const Reading& reading, const Settings& settings);

// All tables and charts but "Não contados".
std::vector<report::Figure> figuresOf(const Reading& reading, const Settings& settings);

// Of 1000 woman-years; nothing where nobody lived them.
Cell rateCell(const Base& base, const Settings& settings);
// Which series stand in the tables by the settings.
Chosen chosenBy(const Settings& settings);
// Periods (or cohorts) in which something was lived.
std::vector<qint32> periodsOf(const Reading& reading, const Chosen& chosen);

} // namespace study::indicators::rates
