// The records behind the numbers of a subject, and why a record isn't behind any.
#pragma once

#include "study/indicators/subject.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace study {

// What a subject makes of one person, or of one family.
struct Verdict
{
    QStringList counted = {}; // the counts that it stands behind, by their names, in the order of the subject
    QStringList leftOut = {}; // the reasons for which it was left out of others, in the same order

    bool operator==(const Verdict&) const = default;
};

// The record itself has to be told by the subject: a family doesn't count where only its members do, one by one. A
// subject's fill() is heard once from beginning to end, piece by piece; throws what that throws. goesOn is asked now
// and then with the share that is done; where it answers false, parish::Snapshot::Interrupted is thrown.
Verdict verdictOn(const indicators::Subject& subject, const indicators::Study& study, const parish::Person& person,
                  const parish::Snapshot::GoesOn& goesOn = {});
Verdict verdictOn(const indicators::Subject& subject, const indicators::Study& study, const parish::Family& family,
                  const parish::Snapshot::GoesOn& goesOn = {});

// As an answer to "porque não conta?", in lines that end with CR LF: "Conta em: …", "Fica de fora: …". `title` is that
// of the record, "Família 12 – …".
QString told(const Verdict& verdict, const QString& title);

// From when to when somebody is seen, or a couple lived together, and what proves it; sentences, in lines that end with
// CR LF. The same whatever the subject: what the verdicts of all of them rest on.
QString observed(const indicators::Study& study, const parish::Person& person);
QString observed(const indicators::Study& study, const parish::Family& family);

// Both cells of a line of who stands behind a number: the person and the family; "" where there is none.
QStringList cellsOf(const indicators::Who& who);

// "12 registos", "1 registo", "nenhum registo".
QString countedRecords(std::size_t count);

} // namespace study
