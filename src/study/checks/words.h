// How the sentences of the cases put things, and what the rules compare by.
#pragma once

#include "study/parish/age.h"
#include "study/parish/snapshot.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <vector>

namespace study::checks {

class Check;

QString inDays(int days);                  // "1 dia", "45 dias"
QString together(const QStringList& list); // "a", "a e b", "a, b e c"

// The word for a woman where the person is one, otherwise the word for a man.
QString wordFor(const parish::Person& person, const char* man, const char* woman);

// "na família nº 12 de Manuel de Abreu e Joana Lopes".
QString inFamily(const parish::Family& family);

// What the table of codes says of a code in its category, or the code itself: "«Legítima»", "«31»".
QString described(const parish::Snapshot& parish, const char* category, const QString& code);

// By how many days `later` comes before `earlier`, though it should come on that day or behind it. 0 where it doesn't,
// or where one of them isn't known. A year alone counts as any of its days, so that it contradicts no day of its own.
int daysTooEarly(const parish::Date& later, const parish::Date& earlier);
// Whether the first one comes before the second one however either is read.
bool isSurelyBefore(const parish::Date& first, const parish::Date& second, const Check& check);

// By how many days the second date comes more than so many years behind the first, by the calendar. 0 where it doesn't,
// or where one of them isn't known.
int daysBeyond(const parish::Date& first, const parish::Date& second, double years);

// What the person is in the couple of, each family once: a row that stands twice is one union. Those of families that
// don't exist are among them.
std::vector<const parish::Membership*> unionsOf(const parish::Person& person);

// The mother of the children: a woman of the couple. Family::wife may be somebody of undetermined sex, from whom
// nothing of a mother follows. Null where no woman is known.
const parish::Person* motherIn(const parish::Family& family);

// The children with a date of birth, by it.
std::vector<const parish::Person*> datedChildren(const parish::Family& family);

// Of a column that has no flag of its own.
inline parish::Date exact(QDate day)
{
    return parish::dateOf(day, true);
}

} // namespace study::checks
