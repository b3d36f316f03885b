// One of two: people, families, places, professions, codes. A plan tells what would happen and changes nothing; the
// merge makes it in one transaction, as one decision that can be taken back (decisions.h).
#pragma once

#include "platform/jet/connection.h"

#include <QByteArray>
#include <QList>
#include <QPair>
#include <QSet>
#include <QString>
#include <QStringList>

#include <utility>

namespace study::linkage {

// Which of the two values of a record stays.
enum class Side
{
    Kept,
    Other
};

// Columns that belong together (a date with whether it is exact, a place with its level, a priest with his function) in
// which both records have something, and not the same.
struct Difference
{
    QString column = {};           // the first of them, by which a choice names them
    QString title = {};            // as the card has it: "data de nascimento"
    QString kept = {}, other = {}; // as the card shows them: "03/02/1702"
    Side proposed = Side::Kept;

    bool operator==(const Difference&) const = default;
};

// Two families of the two people that have the same couple once these are one. Of several, each goes with the first of
// them.
struct SameCouple
{
    qint64 kept = 0, other = 0;         // nfamilia; the lower number stays unless the choices join them the other way
    QString text = {};                  // "Família 3 (Rui e Ana, 03/02/1702) e família 8 (Rui e Ana)"
    QList<Difference> differences = {}; // whose columns name the couple as well: no two couples share a choice
    QStringList refusals = {};          // why they can't be joined

    bool operator==(const SameCouple&) const = default;
};

struct MergePlan
{
    QString kept = {}, other = {}; // both as a title: "Ana Lopes (nº 5)"
    QStringList refusals = {};     // in Portuguese; where there is one, nothing can be merged
    QList<Difference> differences = {};
    QList<SameCouple> couples = {};
    // Rows of both that would have the same key, or are the same but for their number, and what happens to each.
    QStringList doubles = {};
    QStringList sentences = {}; // what else happens, with counts: "2 residências passam para o nº 5."
    QByteArray mark = {};       // another one where anything else would be written

    bool operator==(const MergePlan&) const = default;
    bool isPossible() const { return refusals.isEmpty(); }
};

// What is chosen. A difference that isn't named goes as proposed.
struct MergeChoices
{
    QList<QPair<QString, Side>> sides = {}; // by Difference::column, also of couples
    QList<QPair<qint64, qint64>> join = {}; // the families to be joined: which stays, which goes
    QString reason = {};
    QByteArray expected = {}; // the mark of the plan that was seen: nothing else is written. "": whatever it is

    bool operator==(const MergeChoices&) const = default;
};

// All couples of the plan that can be joined, as `join` has them.
QList<QPair<qint64, qint64>> possibleJoins(const MergePlan& plan);

// Thrown where nothing was merged: the first refusal of the plan, or what has changed since. In Portuguese.
struct MergeRefused
{
    QString text;
};

inline constexpr auto changedSince = "A BDP mudou entretanto: veja outra vez o que vai ser escrito.";

// All plan… read and change nothing. All merge… run in one transaction, give the id of the decision, and throw
// MergeRefused or jet::Error, by which nothing is changed. `other` goes, `kept` stays; a value that isn't chosen goes
// to the notes of what stays, with where it comes from and the day.

MergePlan planMerge(jet::Connection& bdp, qint64 kept, qint64 other, const MergeChoices& choices = {});
qint64 mergePeople(jet::Connection& bdp, qint64 kept, qint64 other, const MergeChoices& choices = {});

// Two families with the same couple, or of which one lacks a spouse, and has the other one.
MergePlan planJoin(jet::Connection& bdp, qint64 kept, qint64 other, const MergeChoices& choices = {});
qint64 joinFamilies(jet::Connection& bdp, qint64 kept, qint64 other, const MergeChoices& choices = {});

// Two places of one level, by its letter (P Z D C F L S). What lies below the other one lies below the kept one then.
MergePlan planPlaces(jet::Connection& bdp, const QString& level, const QString& kept, const QString& other,
                     const MergeChoices& choices = {});
qint64 mergePlaces(jet::Connection& bdp, const QString& level, const QString& kept, const QString& other,
                   const MergeChoices& choices = {});

MergePlan planProfessions(jet::Connection& bdp, qint64 kept, qint64 other, const MergeChoices& choices = {});
qint64 mergeProfessions(jet::Connection& bdp, qint64 kept, qint64 other, const MergeChoices& choices = {});

// Two codes of one category (infocomplementar); the one that goes must be the researcher's own (common/marca.h).
MergePlan planCodes(jet::Connection& bdp, const QString& category, const QString& kept, const QString& other,
                    const MergeChoices& choices = {});
qint64 mergeCodes(jet::Connection& bdp, const QString& category, const QString& kept, const QString& other,
                  const MergeChoices& choices = {});

} // namespace study::linkage
