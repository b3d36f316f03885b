// What a Recordset holds.
#pragma once

#include "platform/jet/changes.h"
#include "platform/jet/database.h"
#include "platform/jet/keylist.h"
#include "platform/jet/recordset.h"
#include "platform/jet/rest.h"
#include "platform/jet/select.h"
#include "platform/jet/statement.h"

#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace jet {

// Nothing for what is no number.
std::optional<double> numberIn(sqlite3_stmt* statement, int column);

struct Recordset::Private
{
    using Field = ResultColumn;

    // A row is known by a number: the rowid where the select is simple, else its place among `cells`.
    using Keys = KeyList::Keys;
    using SortedKeys = std::vector<qint64>;

    explicit Private(std::shared_ptr<Database> shared) : database(std::move(shared)) {}

    std::shared_ptr<Database> database;
    int opened = -1; // the database's count of opens at ours; -1: closed
    Select select;
    std::vector<Field> fields;

    // What the select was opened with, so that the same one opened again can follow what was written since.
    QString source;
    Language language = Language::Dialect;
    QString placing;                     // the column, in the engine's SQL, whose numbers order `all`; "": their keys
    std::optional<Changes::Moment> asOf; // when `all` was read; none where it can't follow
    qint64 version = 0;                  // of the file then

    KeyList all;                 // the beginning of the list, where there is a rest
    std::unique_ptr<Rest> rest;  // see to it by readTo()
    std::optional<Keys> chosen;  // those of `all` that the filter lets through, in the order of the sort
    std::vector<QVariant> cells; // of all rows, where the select isn't simple
    QString sort;
    QString filter;

    int position = 0; // -1: BOF; the number of rows: EOF; else, where there is a rest, in the beginning
    bool onDeleted = false;

    Statement reader; // of one row by its rowid
    std::vector<QVariant> row;
    bool rowRead = false;

    bool adding = false;
    std::map<int, QVariant> pending; // field to value

    // State.
    const Keys& rows() const { return chosen ? *chosen : all.keys(); }
    int count() const { return rest ? rest->count() : int(rows().size()); }
    bool isOpen() const { return opened >= 0 && database->handle && opened == database->opened; }
    void requireOpen() const;
    bool hasCurrentRow() { return position >= 0 && position < count() && !onDeleted; }
    qint64 currentKey(); // Error 3021
    int fieldIndex(const QString& name) const;
    void moveTo(int newPosition);

    // Reading.
    void open(Select analysed);
    void loadKeys();
    void readAllKeys();
    bool collectKeys();
    void stepOverKeys();
    void loadCells();
    QString keysSql(const QString& condition, const QString& order, const QString& number = {}) const;
    Keys readKeys(const QString& sql, const QVariantList& more = {}) const;
    std::vector<QVariant> readRow(qint64 key);
    const std::vector<QVariant>& currentRow();

    // Following what was written (recordset_follow.cpp).
    bool takesUp(const QString& sql, Language itsLanguage);
    bool follow();
    bool putAnew(qint64 key);
    QString placingColumn() const;
    void beginToFollow();
    Statement lookUp(qint64 key) const;
    int placeOf(qint64 key);

    // A long list is read in pieces (recordset_rest.cpp).
    static int keysOfAPiece; // fewer in tests
    enum class Piece
    {
        Full,
        Last,
        Sorted // as the last one; the engine has looked at all rows to find those of it
    };
    bool readBeginning();
    Piece appendPiece();
    void readTo(int place); // or to the last row
    void readRest();
    void readPiece();
    bool isDisturbed();
    void readAnew();

    // Looking for rows.
    bool isColumn(int field) const { return select.simple && !fields[field].column.isEmpty(); }
    QString columnSql(int field) const;
    SortedKeys matches(const QString& criterion);
    int firstOf(const SortedKeys& matches);
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
