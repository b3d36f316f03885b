// Days as the cards have them.
#pragma once

#include "study/parish/date.h"

inline study::parish::Date day(int year, int month = 1, int of = 1, bool exact = true)
{
    return study::parish::dateOf(QDate(year, month, of), exact);
}
