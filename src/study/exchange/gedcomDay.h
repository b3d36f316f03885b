// One day, month or year of a GEDCOM date. For its reader alone.
#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

namespace study::exchange {

struct GedcomDay
{
    QDate day = {};      // invalid: none that a BDP can hold; of a month or a year the first one
    bool isDay = false;  // it names the day
    bool saysAll = true; // the text has no more in it than the day
    bool isSure = true;
    QString problem = {}; // in Portuguese

    bool operator==(const GedcomDay&) const = default;
};

// The words of a date as they are compared: in capitals, without accents, dots behind them, and what only joins them
// ("de"); calendars as one word: "JULIAN", "FRENCH_R".
QStringList gedcomDateWords(const QString& text);

// "14 FEB 1702", "JULIAN 11 FEB 1731/32", "FEB 1702", "1702", and as habit "14 Fevereiro 1702", "14/02/1702".
GedcomDay gedcomDay(const QStringList& words);

} // namespace study::exchange
