// Dates as statements and columns hold them.
#pragma once

#include <QDate>
#include <QString>

#include <optional>

namespace jet {

// What stands between two # signs: month first, and where that is no date, day first.
std::optional<QDate> readDateLiteral(const QString& text);

// year-month-day, as a date column keeps it.
std::optional<QDate> readStoredDate(const QString& text);
QString storedDate(const QDate& date);

// A text that meets a date column, as the column would keep it: a text of that form stays, any other is read in the
// user's order, day first, and where that is no date, month first.
std::optional<QString> comparedDate(const QString& text);

} // namespace jet
