// Dates of GEDCOM, 5.5.1 and 7.0 and as programs write them, as those of a BDP.
#pragma once

#include "study/parish/date.h"

#include <QDate>
#include <QString>

namespace study::exchange {

struct GedcomDateRead
{
    parish::Date date = {}; // unknown where the text tells no day that a BDP can hold
    QString rest = {};      // the whole text, for the notes, where the date says less than it; "" where it says all
    QString problem = {};   // in Portuguese: why it isn't read, or not to the letter; "" mostly

    bool operator==(const GedcomDateRead&) const = default;
};

// Of a value of DATE, and of its PHRASE in 7.0. A day is exact; with ABT, CAL, EST or INT it is about that day; a month
// or a year is about its first day (a 1 January that isn't exact stands for the year); a range is about the first day
// that it names. A day told to be Julian is kept until 4 October 1582, when the registers were, and is that of the
// Gregorian calendar later. Of a dual year (1731/32) the second one is meant until March. The calendars FRENCH_R and
// HEBREW aren't converted, and years before Christ are none. What gedcomDate() writes is read as it was, without a
// rest; precondition: from the year 100 on.
GedcomDateRead readGedcomDate(const QString& value, const QString& phrase = {});

// "FROM 1 JAN 1700 TO 2 FEB 1750", or one half of it, as gedcomPeriod() writes it. Of a month or a year the first day;
// a day alone begins and ends it. An end that isn't told is invalid.
struct GedcomPeriodRead
{
    QDate from = {}, until = {};
    QString rest = {}, problem = {}; // as of a date

    bool operator==(const GedcomPeriodRead&) const = default;
};
GedcomPeriodRead readGedcomPeriod(const QString& value, const QString& phrase = {});

} // namespace study::exchange
