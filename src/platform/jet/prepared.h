// The statements of a connection that stay prepared.
#pragma once

#include <QString>

#include <cstddef>
#include <list>

struct sqlite3_stmt;

namespace jet {

// What a card does all day is said in a few texts: the engine reads each once. Those used last are kept, at most 64.
// A statement that is kept is reset, holds no values, and so holds nothing of the file.
class PreparedStatements
{
public:
    PreparedStatements() = default;
    ~PreparedStatements() { clear(); }
    PreparedStatements(const PreparedStatements&) = delete;
    PreparedStatements& operator=(const PreparedStatements&) = delete;

    // The one of that text, which is the caller's from then on; null where none is kept. The schema may have been
    // altered since it was prepared: the engine sees to that in its first step, and not before.
    sqlite3_stmt* take(const QString& sql);
    void keep(const QString& sql, sqlite3_stmt* statement); // or finalises it
    void clear();                                           // to be called before the handle is closed

private:
    struct Kept
    {
        QString sql;
        sqlite3_stmt* statement;
    };
    std::list<Kept>::iterator find(const QString& sql);

    std::list<Kept> kept_; // the one used last in front
};

} // namespace jet
