// The settings of a study as a user types and reads them.
#pragma once

#include "study/indicators/settings.h"

#include <QString>

#include <optional>
#include <vector>

namespace study {

// "" is no limit: 0. Nothing where the text is no year from 1 to 9999.
std::optional<int> yearFrom(const QString& text);
QString shownYear(int year); // "" for 0

// Nothing where one is no year, or the last one comes before the first.
std::optional<indicators::YearSpan> spanFrom(const QString& first, const QString& last);

// "1810-1811; 1834; 1840-", with a hyphen or a dash; a year alone is a gap of one year. Nothing where a piece is none.
std::optional<std::vector<indicators::YearSpan>> gapsFrom(const QString& text);
QString shownGaps(const std::vector<indicators::YearSpan>& gaps);

// A share from 0 to 0.2, typed as "12,5" per cent; a blank text is 0.
std::optional<double> shareFrom(const QString& text);
QString shownShare(double share);

QString inWords(indicators::Legitimacy legitimacy); // "legitimada"

} // namespace study
