// The rows of the cards that an act needs: as they are stored, and as the act would leave them.
#pragma once

#include "platform/jet/connection.h"
#include "study/acts/plan.h"

#include <QDate>
#include <QHash>
#include <QList>
#include <QString>
#include <QVariant>

#include <deque>
#include <map>
#include <optional>
#include <utility>

namespace study {

// Null is null alone; numbers, whatever their type, by their value.
bool sameValue(const QVariant& one, const QVariant& other);

// One row. Columns are spelled as the schema spells them; one that was neither stored nor set is null.
class PlannedRow
{
public:
    using Values = QHash<QString, QVariant>;

    PlannedRow(QString table, RowChange::Columns key) : table_(std::move(table)), key_(std::move(key)), isNew_(true) {}
    PlannedRow(QString table, RowChange::Columns key, Values stored)
        : table_(std::move(table)), key_(std::move(key)), stored_(std::move(stored))
    {
    }

    const QString& table() const { return table_; }
    bool isNew() const { return isNew_; }
    QVariant stored(const QString& column) const { return stored_.value(column); }
    QVariant now(const QString& column) const;
    bool isChanged(const QString& column) const { return !sameValue(stored(column), now(column)); }

    // Setting null, or what is stored, sets nothing.
    void set(const QString& column, const QVariant& value);

    bool isWritten() const { return isNew_ || !set_.isEmpty(); }
    RowChange change() const;

private:
    QString table_;
    RowChange::Columns key_;
    bool isNew_ = false;
    Values stored_;
    RowChange::Columns set_;
};

// A view of the BDP with the rows of the plan over it. Nothing is written, and a row is read when it is first asked
// for. References stay valid as long as the ledger. All that reads throws jet::Error.
class Ledger
{
public:
    explicit Ledger(jet::Connection& bdp) : bdp_(bdp) {}

    PlannedRow* person(qint64 nind); // null where there is none
    PlannedRow* family(qint64 nfamilia);
    // The number, which the cards would give; but none that a merge has taken away and its way back needs.
    qint64 newPerson();
    qint64 newFamily();
    PlannedRow& add(const QString& table, const RowChange::Columns& key); // any other new row

    QList<qint64> members(qint64 family); // in the order of their rows
    QList<qint64> storedMembers(qint64 family);
    PlannedRow* member(qint64 family, qint64 nind);
    PlannedRow& addMember(qint64 family, qint64 nind);
    QList<qint64> familiesOf(qint64 nind); // in which the person is husband or wife

    struct Children
    {
        int all = 0;
        int dated = 0; // of them with a date of birth
    };
    Children storedChildren(qint64 family);
    Children children(qint64 family);

    QString ownParish(); // its code; "" where the BDP has none

    // The first value of the first row of a select; null for none.
    QVariant value(const jet::NativeSql& select) const;
    qint64 highestMerged(const char* kind) const;

    const std::map<qint64, PlannedRow>& people() const { return people_; }
    const std::map<qint64, PlannedRow>& families() const { return families_; }
    QList<RowChange> changes() const; // in the order of writing

private:
    using Members = std::deque<std::pair<qint64, PlannedRow>>;
    Members& membersOf(qint64 family);

    jet::Connection& bdp_;
    std::map<qint64, PlannedRow> people_, families_;
    std::map<qint64, Members> members_;
    std::deque<PlannedRow> others_;
    QHash<qint64, QList<qint64>> familiesOf_;
    QHash<qint64, Children> children_;
    qint64 lastPerson_ = 0, lastFamily_ = 0;
    std::optional<QString> ownParish_;
};

} // namespace study
