// What a researcher says to the links that are proposed, kept among the decisions (decisions.h): each is a transaction
// of its own, and can be taken back.
#pragma once

#include "study/linkage/candidates.h"
#include "study/linkage/decisions.h"

#include <QList>
#include <QString>

#include <utility>

namespace study::linkage {

// Whether the two of a link can be told apart for good: two people, two families, a person and the couple named.
bool canTellApart(const Link& link);

// Decides that they aren't the same, or aren't the parents. It gives the decision that stands where there is one
// already. Two people, or two families, that were told apart can't be merged while that stands.
// Precondition: canTellApart(). Throws jet::Error.
qint64 tellApart(jet::Connection& bdp, const Link& link, const QString& reason = {});
qint64 decideNotTheSame(jet::Connection& bdp, qint64 one, qint64 other, const QString& reason = {}); // two people

// Decides that a doubtful link of the BDP is right. It gives the decision that stands where there is one already.
qint64 confirm(jet::Connection& bdp, const Link& doubtful, const QString& reason = {});

// "", or why the family can't become the family of origin of the person, in Portuguese.
QString whyNotOrigin(jet::Connection& bdp, parish::PersonNumber child, parish::FamilyNumber family);
// Writes the family of origin, and the type of the family where that follows from the dates. Throws MergeRefused with
// whyNotOrigin() (merge.h), and jet::Error; nothing is changed then.
qint64 setOrigin(jet::Connection& bdp, parish::PersonNumber child, parish::FamilyNumber family,
                 const QString& reason = {});

// All that stands. Who has become one with somebody since counts by the number that stayed; of whom a card has deleted
// since nothing stands, as the number may be somebody else's, until that is put back.
struct Verdicts
{
    ToldApart apart = {};
    ToldApart right = {};

    bool operator==(const Verdicts&) const = default;
};
Verdicts verdicts(jet::Connection& bdp);
QList<std::pair<qint64, qint64>> notTheSame(jet::Connection& bdp); // of people, the lower number first

// Whether such a decision is an answer to a link that is proposed.
bool isOfLinks(DecisionKind kind);
// The records that it names; none of one about anything else.
std::vector<Record> recordsOf(const Ruling& ruling);

} // namespace study::linkage
