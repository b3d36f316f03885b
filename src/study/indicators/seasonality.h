// Events by the month: shared by the subjects of marriages, births and deaths.
#pragma once

#include "study/indicators/reading.h"

namespace study::indicators {

// 1 to 12, of days that are exactly known alone.
std::optional<int> monthOf(const parish::Date& date);
// 1 to 4, also of approximate days, but nothing where only the year is meant.
std::optional<int> quarterOf(const parish::Date& date);
// The month nine months before.
int monthOfConception(int monthOfBirth);
// 1 Monday to 7 Sunday, as it was in the calendar of the time; of days that are exactly known alone.
std::optional<int> dayOfWeek(const parish::Date& date);

QString monthName(int month);     // "Janeiro"
QString dayOfWeekName(int day);   // "segunda-feira"
QString quarterName(int quarter); // "Janeiro a Março"

// What is shown by the month.
struct ByMonth
{
    QString id = {};     // of the figures: "casamentos"
    QString title = {};  // "Casamentos por mês"
    QString events = {}; // in the plural: "casamentos"
    quint16 count = 0;
    int dimension = 0; // that holds the month
    struct Group
    {
        QString name = {}; // "" for the only one
        Reading::At at = Reading::everywhere;
    };
    std::vector<Group> groups = {};
};

// Fewer events in a year give indices that chance alone makes high or low: they are suppressed.
inline constexpr qint64 leastBySeason = 100;

// A table for each group with events: count, daily ratio (100: the mean of the year) with its interval, proportional
// number (the twelve sum to 1200), the test of evenness as a note; and a chart of the daily ratios of all groups, where
// there is one to be shown.
std::vector<report::Figure> monthFigures(const Reading& reading, const ByMonth& shown);

// The same by the quarter: one table, a row for each group with its count and its four daily ratios. 90.25, 91, 92 and
// 92 days; `dimension` holds the quarter.
Table quarterTable(const Reading& reading, const ByMonth& shown);

} // namespace study::indicators
