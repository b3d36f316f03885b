// When one of two dates certainly comes before the other, and what an age at a date is.
#pragma once

#include "study/acts/ledger.h"

#include <QDate>
#include <QString>

#include <optional>

namespace study {

struct Work;

struct DayKnown
{
    QDate day;          // invalid: not known
    bool exact = false; // known to the day

    bool isKnown() const { return day.isValid(); }
};

QString dated(const QDate& day);  // "14/02/1702"
DayKnown dayOf(const Work& work); // of the act; not known where no day stands for its date

DayKnown birthOf(const PlannedRow& person); // as it is stored
DayKnown deathOf(const PlannedRow& person);

// Whether `one` is more than `days` days before `other`, beyond doubt: where either is approximate, by more than a
// year, and by more than ten where both are the first of January, as a year stands alone then. False where one isn't
// known.
bool isBefore(const DayKnown& one, const DayKnown& other, int days = 0);

// Completed years at a day; none where the birth isn't known. `slack`: how many years it may be wrong by.
struct AgeThen
{
    int years = 0;
    int slack = 0;
};
std::optional<AgeThen> ageAt(const DayKnown& birth, const DayKnown& day);

} // namespace study
