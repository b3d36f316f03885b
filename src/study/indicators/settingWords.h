// The values of settings in words. For this room alone.
#pragma once

#include "study/indicators/settings.h"

#include <QString>

namespace study::indicators::words {

QString ofYesNo(bool value);
QString ofYears(int years);           // "50 anos"
QString ofSpan(const YearSpan& span); // "1700–1850", "desde 1700", "até 1850", "todos os anos"
QString ofWhich(Which which);
QString ofGender(parish::Gender gender);
QString ofBooks(const std::array<YearSpan, 4>& books);
QString ofGaps(const std::array<std::vector<YearSpan>, 4>& gaps);
QString ofCodes(const QStringList& codes);
QString ofFiliations(const QHash<int, Legitimacy>& filiations);
QString ofShare(double share); // "5 %"
QString ofCauses(const QMap<QString, QString>& causes);
QString ofNotes(const QString& words);    // "não se lêem"
QString ofBaptisms(std::size_t children); // "120 crianças"
QString ofBase(int firstYear);            // "1750–1759", "os primeiros dez anos seguidos"

} // namespace study::indicators::words
