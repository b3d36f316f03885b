// Ages by the calendar.
#pragma once

#include <QDate>
#include <QString>

namespace study {

// Completed years; who was born on a 29 February has a birthday on 1 March in common years. Negative before the birth.
inline int completedYears(QDate birth, QDate day)
{
    const int years = day.year() - birth.year();
    const bool reached = day.month() > birth.month() || (day.month() == birth.month() && day.day() >= birth.day());
    return reached ? years : years - 1;
}

// "1 ano", "12 anos".
inline QString yearsTold(int years)
{
    return years == 1 ? QString("1 ano") : QString("%1 anos").arg(years);
}

} // namespace study
