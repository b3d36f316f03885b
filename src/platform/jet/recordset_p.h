// What a Recordset holds.
#pragma once

#include "platform/jet/database.h"
#include "platform/jet/recordset.h"
#include "platform/jet/select.h"
#include "platform/jet/statement.h"

#include <deque>
#include <map>
#include <optional>
#include <vector>

namespace jet {

struct Recordset::Private
{
    struct Field
    {
        QString name;
        Type type;
        QString table; // of the column that the field shows; "" for an expression
        QString column;
    };

    // A row is known by a number: the rowid where the select is simple, else its place among `cells`.
    // In pieces: a million keys are never copied, nor twice in memory, while they are read.
    using Keys = std::deque<qint64>;
    using SortedKeys = std::vector<qint64>;

    explicit Private(std::shared_ptr<Database> shared) : database(std::move(shared)) {}

    std::shared_ptr<Database> database;
    int opened = -1; // the database's count of opens at ours; -1: closed
    Select select;
    std::vector<Field> fields;

    Keys all;
    std::optional<Keys> chosen;  // those of `all` that the filter lets through, in the order of the sort
    std::vector<QVariant> cells; // of all rows, where the select isn't simple
    QString sort;
    QString filter;

    int position = 0; // -1: BOF; the number of rows: EOF
    bool onDeleted = false;

    Statement reader; // of one row by its rowid
    std::vector<QVariant> row;
    bool rowRead = false;

    bool adding = false;
    std::map<int, QVariant> pending; // field to value

    // State.
    Keys& rows() { return chosen ? *chosen : all; }
    int count() { return int(rows().size()); }
    bool isOpen() const { return opened >= 0 && database->handle && opened == database->opened; }
    void requireOpen() const;
    bool hasCurrentRow() { return position >= 0 && position < count() && !onDeleted; }
    qint64 currentKey(); // Error 3021
    int fieldIndex(const QString& name) const;
    void moveTo(int newPosition);

    // Reading.
    void open(Select analysed);
    void loadKeys();
    void loadCells();
    void describe(const Statement& statement);
    QString keysSql(const QString& condition, const QString& order) const;
    Keys readKeys(const QString& sql) const;
    std::vector<QVariant> readRow(qint64 key);
    const std::vector<QVariant>& currentRow();

    // Looking for rows.
    bool isColumn(int field) const { return select.simple && !fields[field].column.isEmpty(); }
    QString columnSql(int field) const;
    SortedKeys matches(const QString& criterion);
    void choose();
    void sortByValues(Keys& keys, int field, bool descending);

    // Writing.
    QString keyCondition(const QString& table, std::vector<QVariant>& values);
    void insertPending();
    void updatePending();
    void dropPending();
    bool write(const QString& sql, const std::vector<QVariant>& values);
};

} // namespace jet
