// Many rows, read or written one after the other in little time.
#pragma once

#include "platform/jet/connection.h"

#include <QByteArrayView>
#include <QDate>
#include <QString>
#include <QVariantList>

#include <memory>

namespace jet {

// The rows of one select in the engine's own SQL, from the first one to the last: what a routine reads at one go.
//
// It ends with its routine: nothing else of the program runs before that, and the routine writes nothing meanwhile.
// Columns count from 0; those of a row stand until the next one is asked for. All throw Error.
class Rows
{
public:
    Rows(const Connection& connection, const NativeSql& select);
    ~Rows();
    Rows(const Rows&) = delete;
    Rows& operator=(const Rows&) = delete;

    bool next(); // false behind the last row

    // As what the engine keeps the value, whatever the type of its column.
    enum class Kind : quint8
    {
        Null,
        Whole,
        Real,
        Text,
        Blob
    };
    Kind kind(int column) const;
    QByteArrayView bytes(int column) const; // of a text or a blob, as they stand in the file; "" for none

    bool isNull(int column) const;
    qint64 number(int column) const; // 0 for none; of a fraction the whole part
    double real(int column) const;   // 0 for none
    QString text(int column) const;  // "" for none
    QDate date(int column) const;    // of a date column; an invalid one for none

private:
    struct Private;
    std::unique_ptr<Private> d_;
};

// One statement in the engine's own SQL that writes again and again.
// Precondition: the connection outlives it. All throw Error.
class Repeated
{
public:
    Repeated(Connection& connection, const NativeSql& statement); // without values: each run gives them
    ~Repeated();
    Repeated(const Repeated&) = delete;
    Repeated& operator=(const Repeated&) = delete;

    void run(const QVariantList& values);

private:
    struct Private;
    std::unique_ptr<Private> d_;
};

// While it lives, all that is read is of one state of the file, which is locked once for all. Nothing is written
// meanwhile. Within a transaction it does nothing.
class OneLook
{
public:
    explicit OneLook(const Connection& connection); // throws Error
    ~OneLook();
    OneLook(const OneLook&) = delete;
    OneLook& operator=(const OneLook&) = delete;

private:
    struct Private;
    std::unique_ptr<Private> d_;
};

// While it lives, the engine keeps up to 32 MB of the file in memory, instead of 2: for what reads to and fro in a
// large one. A sort that begins meanwhile takes as much for itself: let those begin before. Precondition: the
// connection outlives it, and is open.
class WideView
{
public:
    explicit WideView(const Connection& connection); // throws Error
    ~WideView();
    WideView(const WideView&) = delete;
    WideView& operator=(const WideView&) = delete;

private:
    const Connection& connection_;
};

} // namespace jet
