// When a child was born and when it was baptised, where more than the one date of its card tells it.
#pragma once

#include "study/indicators/settings.h"
#include "study/parish/snapshot.h"

#include <QRegularExpression>

#include <optional>

namespace study::indicators {

// Finds the day that notes tell behind words of the researcher's: "nasceu a; n." reads "n. 12/03", "nasceu a 12 de
// Março de 1745", "N. 12-3-1745". Cases and blanks don't matter. Read-only.
class DaysInNotes
{
public:
    explicit DaysInNotes(const QString& words); // several ones are parted by ";"

    bool isEmpty() const { return !pattern_; } // no words: finds nothing
    bool isIn(const QString& notes) const;     // the words, whether a day stands behind them or not
    // The first day that is told; one without a year is the last such day that isn't behind `day`, or the first one
    // that isn't before it. Nothing where there is none, or where the calendar doesn't have it.
    std::optional<QDate> lastUntil(const QString& notes, QDate day) const;
    std::optional<QDate> firstFrom(const QString& notes, QDate day) const;

private:
    std::optional<QDate> found(const QString& notes, QDate day, int step) const;

    std::optional<QRegularExpression> words_ = {}, pattern_ = {};
};

struct BaptismTold
{
    enum class By : quint8
    {
        Nothing,
        List,
        Notes,
        Unread,     // the words are there, and no day behind them
        Approximate // the notes tell of one day, and that of the card isn't exact
    };
    By by = By::Nothing;
    BaptismDays days = {}; // where a list or the notes tell them

    bool isTold() const { return by == By::List || by == By::Notes; }
    bool operator==(const BaptismTold&) const = default;
};

// By the settings of one study. The list goes before the notes. Where the notes tell of the birth, the date of the card
// is that of the baptism; where they tell of the baptism, it is that of the birth.
class BaptismReader
{
public:
    explicit BaptismReader(const Settings& settings);

    BaptismTold read(const parish::Person& child, const QString& notes) const;

private:
    BaptismTold readNotes(const parish::Person& child, const QString& notes) const;

    const std::map<parish::PersonNumber, BaptismDays>& list_;
    DaysInNotes births_, baptisms_;
};

} // namespace study::indicators
