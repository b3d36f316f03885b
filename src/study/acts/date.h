// A date as a register tells it, which need not be a day of the calendar.
#pragma once

#include <QDate>
#include <QString>

#include <optional>

namespace study {

// What isn't told is 0. Nothing is checked: a register, or who transcribed it, may have the 31st of September.
struct PartialDate
{
    int year = 0;
    int month = 0;
    int day = 0;
    bool about = false;
    QString text = {}; // as it stands in the register, where that tells more than the numbers

    bool operator==(const PartialDate&) const = default;

    bool isEmpty() const { return *this == PartialDate{}; }
    bool isComplete() const; // a day of the calendar, and not about
    bool isPossible() const; // what is told could be a day of the calendar: 0/9/1702 could, 31/9/1702 could not

    // The day that stands for it in a date column: the first of the month or of the year where the rest isn't told.
    // None where it isn't possible, or has no year between 100 and 9999, which a date column takes.
    std::optional<QDate> standing() const;
};

PartialDate partialDate(const QDate& day); // an empty one for no date

// "14/02/1702", "02/1702", "1702", "cerca de 1702"; "" for an empty one; its text, if it has one, behind it in
// brackets.
QString shown(const PartialDate& date);

// What a person types: "14/2/1702", "14-2-1702", "14.2.1702", "2/1702", "1702", "?/2/1702", "0/2/1702", any of them
// behind "c.", "ca", "cerca de" or "~"; "2 de Março de 1801", "aos 2 dias do mês de Março de 1801", "Março de 1801",
// "em Março". Whatever else was typed becomes the text, with the numbers that could be read.
PartialDate readPartialDate(const QString& typed);

} // namespace study
