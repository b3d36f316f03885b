// A cursor over the rows of one select.
#pragma once

#include "platform/jet/connection.h"

#include <QVariant>

#include <memory>
#include <variant>

namespace jet {

// Opening it reads the keys of the rows in order (8 bytes a row where the select reads one table, 16 where it orders
// them by one column of numbers); a row is read when the cursor stands on it. The set of rows is that of the last
// open() or requery(): rows added by others don't appear, rows deleted by others read as Error 3021.
//
// Of more than some thousand rows that open() could take up again (below), the first ones are read and all are counted;
// the others follow when the program is idle, or at once when somebody needs them or the connection writes. Nothing
// tells the difference, unless another connection writes meanwhile: then the set of rows is that of the moment in which
// the others are read. The cursor stays on its row; where that is gone, it stands on no row until the next movement.
//
// Where it is open already on the same select, of one table without a condition, in the order of entry or by one column
// of numbers, each there once, open() takes in what the connection has written since; it reads all keys only where
// somebody else has written, too, or more than the rows of insert, update and delete. It makes no other difference.
//
// After open() or requery() the cursor stands on the first row, or at once on BOF and EOF where there is none.
// Names of fields are matched case-blind; an unknown one is Error 3265.
// Precondition of field access: a current row; Error 3021 (no current record) otherwise, so at BOF and EOF.
// Precondition of every call but open(), close() and isOpen(): an open recordset, on an open connection; Error 3704 or
// 3709 otherwise.
class Recordset
{
public:
    explicit Recordset(Connection& connection);
    Recordset(Connection& connection, const QString& select); // and opens it
    Recordset(Connection& connection, const NativeSql& select);
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;

    // Throws Error; the connection stays usable, the recordset is closed. A select in the engine's own SQL gives the
    // same types, and can be written to as one of the dialect; but where a ? stands outside "where", its rows are read
    // at once, and none can be added or deleted (Error 3251).
    void open(const QString& select);
    void open(const NativeSql& select);
    void close();
    bool isOpen() const;
    void requery(); // keeps the order and the filter

    bool bof() const;
    bool eof() const;
    int recordCount() const;
    int absolutePosition() const; // 1 for the first row; 0 where there is no current row
    // Precondition: 1 to recordCount(); Error 3001 otherwise.
    void setAbsolutePosition(int position);

    // Precondition: the set has rows, and moveNext() isn't at EOF, movePrevious() not at BOF; Error 3021 otherwise.
    void moveFirst();
    void moveLast();
    void moveNext();     // past the last row: EOF
    void movePrevious(); // before the first row: BOF

    // Forward from the current row, itself included, to the first row for which "field operator value" holds
    // (operators =, <>, <, >, <=, >=, like; value a number, a quoted text or a date between # signs, here read day
    // first); EOF where there is none. On an empty set it does nothing. The only row with a number is found in the same
    // time in a list of any length, where that is in the order of entry, or one that open() can take up again.
    // Precondition: not at BOF or EOF of a set with rows; Error 3021 otherwise.
    void find(const QString& criterion);

    // The rows in the order of one field ("nome", "nome desc"), or those for which a criterion of find() holds.
    // An empty text takes the order or the filter off. The cursor goes to the first row.
    void setSort(const QString& order);
    void setFilter(const QString& criterion);

    int fieldCount() const;
    QString fieldName(int column) const;

    // The value of a field: a null QVariant for null; QDate, double (every number), bool (bit columns) or QString.
    QVariant operator[](const QString& field) const;
    QVariant operator[](int column) const;

    // Starts a new row; set() then gives it values, update() writes it and makes it the current, last row.
    void addNew();
    // Changes the current or the new row in memory; a movement without update() drops the changes. A text for a date
    // column must be a date as the user types it (readDate), a text for a number column a plain number: update()
    // refuses others with Error 13. Line breaks of texts are kept as they come.
    void set(const QString& field, const QVariant& value);
    // Writes what set() has changed. On failure nothing is written, the pending row or changes are dropped, and the
    // cursor stands where it stood before.
    void update();
    void cancelUpdate();
    // Deletes the current row and drops it from the set, also where it has gone from the table already; the cursor
    // stands on no row until the next movement: after moveNext() on the row that followed the deleted one.
    void deleteRow();

    struct Private; // recordset_p.h

private:
    std::unique_ptr<Private> d;
};

// The cursor that a card holds for as long as it lives: a query text and its rows.
class DataControl
{
public:
    explicit DataControl(Connection& connection);

    // An empty text closes the cursor at the next refresh().
    void setRecordSource(const QString& select);
    void setRecordSource(const NativeSql& select);

    // Opens the query again, on its first row. Throws as Recordset::open().
    void refresh();

    Recordset& recordset();
    bool hasRows() const; // false where it isn't open

private:
    Recordset rows_;
    std::variant<QString, NativeSql> source_;
};

} // namespace jet
