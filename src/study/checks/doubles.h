// Two records that may be of one person: what only equal names and dates tell. Likeness is weighed elsewhere.
#pragma once

#include "study/checks/check.h"

namespace study::checks {

// Whether nothing that is known of the one stands against being the other: sex, dates of birth and death, what either
// did when the other wasn't born or was dead, families of origin, a marriage of the one with the other. Approximate
// dates may be off by the tolerance of the check.
bool mayBeOne(const parish::Person& one, const parish::Person& other, const Check& check);

// A name that is more than a given name. Given: the name as it is spelled today.
bool isFullName(const QString& standardName);

// Equal, as far as both are known and exact.
bool mayBeEqual(const parish::Date& one, const parish::Date& other, const Check& check);

} // namespace study::checks
