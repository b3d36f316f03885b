// Writes rows of a table quickly, around the program.
#pragma once

#include <QByteArray>
#include <QDate>

#include <initializer_list>
#include <variant>

struct sqlite3;
struct sqlite3_stmt;

namespace bench {

// Nothing, a number, a text or a date; an invalid date is nothing.
using Cell = std::variant<std::nullptr_t, int, QByteArray, QDate>;

class Writer
{
public:
    // The columns, comma by comma.
    Writer(sqlite3* database, const QByteArray& table, const QByteArray& columns);
    ~Writer();
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    // What the engine refuses ends the process.
    void write(std::initializer_list<Cell> cells);

private:
    sqlite3* database_;
    sqlite3_stmt* insert_ = nullptr;
};

} // namespace bench
