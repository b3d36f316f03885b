// What can be made one of two, and how one of them is named by what the user types.
#pragma once

#include "study/linkage/merge.h"

#include <QList>
#include <QString>

#include <optional>

namespace study {

enum class MergeSubject
{
    People,
    Families,
    Places,
    Professions,
    Codes
};

QString title(MergeSubject subject);   // "Indivíduos"
bool isNumbered(MergeSubject subject); // people and families, whom the user may name by their numbers

// A record that may be meant. The key is that of linkage::Decided: a number; the letter of a place before its code, the
// category of a code before it.
struct Pick
{
    QString key = {};
    QString shown = {};

    bool operator==(const Pick&) const = default;
};

// The person or the family with that number, where the whole text is one; none where nobody has it.
std::optional<Pick> pickNumbered(jet::Connection& bdp, MergeSubject subject, const QString& typed);
// The record of that key, as picks() would show it; none where it has gone.
std::optional<Pick> pickWithKey(jet::Connection& bdp, MergeSubject subject, const QString& key);

// The places, professions or codes that a name may mean, the likeliest first; none of people and families, who have
// their finder. Throws jet::Error.
QList<Pick> picks(jet::Connection& bdp, MergeSubject subject, const QString& typed);

// The plan, and the merge, of two keys of one subject. A plan of two that can't be compared (places of two levels,
// codes of two categories) is a refusal. merged() gives the id of the decision and throws linkage::MergeRefused; both
// throw jet::Error.
linkage::MergePlan planned(jet::Connection& bdp, MergeSubject subject, const QString& kept, const QString& other,
                           const linkage::MergeChoices& choices = {});
qint64 merged(jet::Connection& bdp, MergeSubject subject, const QString& kept, const QString& other,
              const linkage::MergeChoices& choices);

// To be asked before a merge of the BDP in work: makes the copy of today, where there is none yet. Where that fails,
// the user is told why, and whether it is merged all the same is his answer, for the day.
bool isCopiedForToday();

} // namespace study
