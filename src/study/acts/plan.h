// What storing an act would write: computed first, shown as it is, and then written.
#pragma once

#include "platform/jet/connection.h"
#include "study/acts/act.h"
#include "study/acts/conclusions.h"

#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace study {

// One row of the cards' tables that is added or altered. Dates are QDate, bits bool, numbers double or int.
struct RowChange
{
    using Columns = QList<QPair<QString, QVariant>>;

    QString table;
    Columns key;         // that names the row
    Columns values = {}; // the columns that are set, without the key
    Columns before = {}; // of an altered row: what the same columns held; empty: the row is new

    bool operator==(const RowChange&) const = default;
};

// The value of a column, whose name is matched whatever its case; null where it isn't there. That of a whole row is
// looked for in its key first.
QVariant valueIn(const RowChange::Columns& columns, const QString& column);
QVariant valueIn(const RowChange& row, const QString& column);

// Why an act should not be stored as it is.
struct Objection
{
    // The rule, a mark of what it says (whom of the BDP, which numbers and dates: where these change, what overruled it
    // doesn't any more), and whom of the act it concerns: "morto-antes/5d1f20c3:3". A hard one has no mark.
    QString id;
    QString text;    // in Portuguese, with the numbers and dates that it is about
    int person = -1; // of the act; -1: the whole act
    // Can't be overruled: with somebody undecided nothing can be written. That the date, or whom the act is about,
    // makes no rows is hard unless all people are Kept: the act alone needs neither.
    bool hard = false;

    bool operator==(const Objection&) const = default;
};

struct Plan
{
    QList<RowChange> rows = {};       // in the order of writing
    QList<Objection> objections = {}; // those that weren't overruled
    QStringList sentences = {};       // what will be written, in Portuguese, for the user to read
    QList<qint64> people = {};        // the number of each person of the act; 0: none
    QList<qint64> families = {};      // touched or made
    // In which the child or the deceased was born, or else is husband or wife; that of groom and bride. 0: none, or not
    // told. It stands first in `families`.
    qint64 family = 0;
    // What the act tells that isn't written: no column takes it, or one holds something else. In Portuguese.
    QStringList leftOut = {};

    bool operator==(const Plan&) const = default;
};

// Who is known has the sex of the card where the act tells none: who hangs on them has a sex by it, and a role
// ("mulher"). A stored act doesn't keep it. Throws jet::Error.
Conclusions withKnownSexes(jet::Connection& bdp, const Act& act, const Conclusions& conclusions);

// Reads the BDP and changes nothing. Numbers are those that would be given now. Throws jet::Error.
// Precondition: one identity for each person of the act.
Plan planned(jet::Connection& bdp, const Act& act, const Conclusions& conclusions);

} // namespace study
