// The bare side: the engine alone, as a careful hand would use it.
#pragma once

#include <QByteArray>
#include <QString>

#include <initializer_list>
#include <map>
#include <memory>
#include <variant>

struct sqlite3;
struct sqlite3_stmt;

namespace bench {

// A value that is bound; a text is borrowed until the statement has run.
using Value = std::variant<std::nullptr_t, double, const char*, QByteArray>;

// A connection with the program's own pragmas, none of its functions and no mutex. Each statement is prepared once.
// What the engine refuses ends the process: a measure of nothing is none.
class Bare
{
public:
    explicit Bare(const QString& path);
    ~Bare();
    Bare(const Bare&) = delete;
    Bare& operator=(const Bare&) = delete;

    sqlite3* handle() const { return database_; }

    // Runs a prepared statement and reads every column of every row by its type. Returns how many rows there were.
    // Precondition: the text outlives the connection, as statements are known by where their text stands.
    int run(const char* sql, std::initializer_list<Value> values = {});
    // The same, and the first column of the last row as a number, or 0.
    double number(const char* sql, std::initializer_list<Value> values = {});
    // The bytes of all texts of the rows, one behind the other: what an archive of them would hold.
    QByteArray text(const char* sql, std::initializer_list<Value> values = {});

    // Any statements, once: for what is made ready before the turns.
    void execute(const QByteArray& statements);

private:
    sqlite3_stmt* bound(const char* sql, std::initializer_list<Value> values);
    [[noreturn]] void fail(const char* sql) const;

    sqlite3* database_ = nullptr;
    std::map<const char*, sqlite3_stmt*> prepared_;
};

// Opens the file with the pragmas of the program.
sqlite3* openBare(const QString& path);

} // namespace bench
