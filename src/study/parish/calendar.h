// The moving feasts, and when marriages were not solemnised.
//
// Days are as the registers write them, and as the BDP has them: of the Julian calendar until 4 October 1582, of the
// Gregorian one from 15 October 1582 on, when Portugal changed.
#pragma once

#include <QDate>

namespace study::parish {

// The days from 5 to 14 October 1582, which Portugal left out.
bool wasLeftOut(QDate day);

// By the computus of the year's calendar. Sources: J.-M. Oudin, 1940, in the Explanatory Supplement to the Astronomical
// Almanac, 1992, for the Gregorian one; J. Meeus, Astronomical Algorithms, 1991, for the Julian one.
// Preconditions of this and the following: the year is from 326 to 9999.
QDate easter(int year);
QDate ashWednesday(int year); // 46 days before Easter
QDate adventSunday(int year); // the Sunday that is nearest to 30 November: from 27 November to 3 December

// The forbidden times of the Council of Trent, session XXIV, decree on the reform of marriage, chapter X. First and
// last days belong to them.
enum class ClosedSeason
{
    None,
    Advent, // from the first Sunday of Advent to Epiphany, 6 January
    Lent    // from Ash Wednesday to the Sunday behind Easter
};
ClosedSeason closedSeason(QDate day); // None for an invalid one

} // namespace study::parish
