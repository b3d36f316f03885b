// Ages by the calendar.
#pragma once

#include <QDate>
#include <QString>

namespace study {

// Completed years; who was born on a 29 February has a birthday on 1 March in common years. Negative before the birth.
inline int completedYears(QDate birth, QDate day)
{
    int ofBirth = 0, monthOfBirth = 0, dayOfBirth = 0, year = 0, month = 0, dayOfMonth = 0;
    birth.getDate(&ofBirth, &monthOfBirth, &dayOfBirth); // each part alone would be worked out of all of it
    day.getDate(&year, &month, &dayOfMonth);
    const bool reached = month > monthOfBirth || (month == monthOfBirth && dayOfMonth >= dayOfBirth);
    return year - ofBirth - (reached ? 0 : 1);
}

// "1 ano", "12 anos".
inline QString yearsTold(int years)
{
    return years == 1 ? QString("1 ano") : QString("%1 anos").arg(years);
}

} // namespace study
