// What the rules of children, acts and lists tell and measure alike.
#pragma once

#include "study/checks/check.h"

#include <algorithm>

namespace study::checks {

// "de Manuel de Abreu (nº 29)", "do indivíduo nº 29"; "da família nº 12 de Manuel de Abreu e Joana Lopes".
QString of(const parish::Person& person);
QString of(const parish::Family& family);
// "a Manuel de Abreu (nº 29)", "ao indivíduo nº 29".
QString to(const parish::Person& person);

// "baptismo de Manuel de Abreu (nº 29)", "casamento da família nº 12 de …"; where there is nobody of that number,
// "baptismo do indivíduo nº 29".
QString actOf(const parish::Assistance& row);
// The day of the act on its card; unknown where there is no card.
parish::Date dayOfAct(const parish::Assistance& row);

QString told(QDate day); // "14/02/1702"
// The first few of them, "…; e mais 12".
QString few(const QStringList& list);
QString howMany(qint64 number, const char* one, const char* many);

// Days from `at` on until somebody born then has completed so many years; 0 or less where that age has been reached.
// Precondition: both are known.
int daysShortOf(int years, const parish::Date& birth, const parish::Date& at);

// Puts a record among those of a case, once.
template <class Record>
void addOnce(std::vector<const Record*>& records, const Record* record)
{
    if (record && std::ranges::find(records, record) == records.end()) records.push_back(record);
}

} // namespace study::checks
