// What a researcher has decided about records that the acts don't settle, kept in the BDP with all that leads back: the
// table estudo_decisao (docs/bdp.md). Every decision is one transaction of whoever makes it.
#pragma once

#include "platform/jet/connection.h"

#include <QDateTime>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

#include <map>
#include <optional>
#include <utility>

namespace study::linkage {

class LooseLinks; // recording.cpp

enum class DecisionKind
{
    PeopleMerged,
    FamiliesJoined,
    PlacesMerged,
    ProfessionsMerged,
    CodesMerged,
    NotTheSame, // two people
    NotTheSameFamily,
    NotTheParents, // a person and a couple
    OriginSet,     // a person is a child of a family
    LinkRight,     // what the BDP has of a person, in a family or alone, is right
    TypesRecalculated
};
QString word(DecisionKind kind);    // as the table has it
QString inWords(DecisionKind kind); // for the user: "Pessoas juntas"

// What is told of a decision when it is made.
struct Ruling
{
    DecisionKind kind = DecisionKind::NotTheSame;
    QString title = {};  // in Portuguese, with names and numbers: "Ana Lopes (nº 15) é Ana Lopes (nº 5)"
    QString reason = {}; // "" where none was given
    // The number or the code of what stays and of what goes; of two that aren't the same, the lower number first; a
    // person before the family. A place has its letter before its code ("F030899"), a code its category ("Paren12"). ""
    // where there is none.
    QString kept = {}, other = {};

    bool operator==(const Ruling&) const = default;
};

struct Decision
{
    qint64 id = 0;
    QDateTime when = {};
    Ruling what = {};
    int rows = 0;          // of other tables, that it has changed
    QDateTime undone = {}; // null: it stands

    bool operator==(const Decision&) const = default;
    bool stands() const { return undone.isNull(); }
};

// A row of any table: its place (rowid), and its columns, in small letters, as jet::jsonRows() gives them.
struct Row
{
    qint64 place = 0;
    QJsonObject values = {};

    bool operator==(const Row&) const = default;
};

// The BDP with changes over it that aren't written yet: who only plans reads what would be, and lets it go. Names of
// tables and columns, in small letters, come from the source or out of the schema; values from wherever.
// All that reads or writes throws jet::Error. Precondition: the connection outlives it.
class Recording
{
public:
    explicit Recording(jet::Connection& bdp) : bdp_(bdp) {}

    // The rows that have these values, in their order in the table; none of a table that the BDP hasn't.
    QList<Row> rows(const QString& table, const QJsonObject& having) const;
    std::optional<QJsonObject> row(const QString& table, qint64 place) const;

    // Precondition of both: there is such a row. A value that the row has already sets nothing.
    void set(const QString& table, qint64 place, const QJsonObject& columns);
    void remove(const QString& table, qint64 place);

    // Rows that differ from those of the BDP.
    int count() const;
    int count(const QString& table) const;

    // Another one where anything else would be written.
    QByteArray mark() const;

    // Writes the rows, and the decision with them as they were and as they are; gives its id. Makes the table where the
    // BDP has none. Precondition: a transaction of the caller's, who has begun it before the first row was read, and
    // throws all away with it where this fails.
    qint64 keep(const Ruling& what);

private:
    struct Change
    {
        QJsonObject before = {};
        std::optional<QJsonObject> after = {}; // none: it goes
    };
    Change& changeOf(const QString& table, qint64 place);
    // As the decision keeps the row.
    QJsonObject noted(const QString& table, qint64 place, const Change& change, LooseLinks& links) const;
    bool isThere(const QString& table) const;

    jet::Connection& bdp_;
    std::map<std::pair<QString, qint64>, Change> changes_;
    mutable QStringList tables_ = {}; // of the BDP, in small letters; empty: not read yet
};

// Whether the BDP has the table. Throws jet::Error where one of that name is another one.
bool hasDecisions(jet::Connection& bdp);

// The latest first; none where the BDP has none.
QList<Decision> decisions(jet::Connection& bdp);
std::optional<Decision> decision(jet::Connection& bdp, qint64 id);

// "", or why the decision can't be taken back, in Portuguese: which later ones have to be taken back first, which rows
// have been altered, have gone, or have had their number given to somebody else since, and which records have gone that
// rows would lead to again. Of people and families that only lead to one of the two, only what was set counts.
QString whyNotTakenBack(jet::Connection& bdp, qint64 id);

// Takes it back in one transaction: every row is again as it was, where it was in its table unless another row stands
// there by now. The decision stays in the list, as undone. Returns whyNotTakenBack(); where that isn't "", nothing is
// changed. Throws jet::Error.
QString takeBack(jet::Connection& bdp, qint64 id);

} // namespace study::linkage
