// The statements of a connection that stay prepared.
#pragma once

#include "platform/jet/columns.h"

#include <QString>

#include <cstddef>
#include <list>
#include <vector>

struct sqlite3_stmt;

namespace jet {

// A column of the rows that a statement gives.
struct ResultColumn
{
    QString name;
    Type type;
    QString table; // of the column that it shows; "" for an expression
    QString column;
};

// A prepared statement, and what has been asked about it.
struct Prepared
{
    sqlite3_stmt* statement = nullptr;
    std::vector<ResultColumn> columns;
    int described = -1; // how often the engine had read it anew when its columns were asked for; -1: they weren't
};

// What a card does all day is said in a few texts: the engine reads each once. Those used last are kept, at most 64.
// A statement that is kept is reset, holds no values, and so holds nothing of the file.
class PreparedStatements
{
public:
    PreparedStatements() = default;
    ~PreparedStatements() { clear(); }
    PreparedStatements(const PreparedStatements&) = delete;
    PreparedStatements& operator=(const PreparedStatements&) = delete;

    // The one of that text, which is the caller's from then on; no statement where none is kept. The schema may have
    // been altered since it was prepared: the engine sees to that in its first step, and not before.
    Prepared take(const QString& sql);
    void keep(const QString& sql, Prepared prepared); // or finalises it
    void clear();                                     // to be called before the handle is closed

private:
    struct Kept
    {
        QString sql;
        Prepared prepared;
    };
    std::list<Kept>::iterator find(const QString& sql);

    std::list<Kept> kept_; // the one used last in front
};

} // namespace jet
