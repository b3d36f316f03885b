// One prepared statement of the engine.
#pragma once

#include "platform/jet/database.h"
#include "platform/jet/prepared.h"

#include <QString>
#include <QVariant>

#include <vector>

struct sqlite3_stmt;

namespace jet {

// Done with by its end of life or by the close of its connection, whichever comes first; used behind that, it throws
// Error 3709. The connection keeps it prepared for the next one of the same text.
class Statement
{
public:
    Statement() = default;
    Statement(Database& database, const QString& sql); // throws Error
    ~Statement() { finalize(); }
    Statement(Statement&& other) noexcept;
    Statement& operator=(Statement&& other) noexcept;

    explicit operator bool() const { return prepared_.statement; }
    // Its columns are those of the schema as it was when it was prepared, perhaps long ago; after the first step(), or
    // this, they are those of today.
    // Precondition: nothing is bound, and it gives no row so.
    void bringUpToDate();
    // Of its rows, as handle() has them. Looked up once for as long as it stays prepared and the schema as it is.
    const std::vector<ResultColumn>& columns();
    sqlite3_stmt* handle() const { return prepared_.statement; }

    // A value as NativeSql takes them, or a QByteArray, which is a blob; parameters count from 1. Throws Error
    // (typeMismatch) for any other.
    void bind(int parameter, const QVariant& value);
    // Precondition: one value for each parameter; Error (invalidStatement) otherwise.
    void bindAll(const QVariantList& values);
    bool step(); // true: a row stands ready. Throws Error; then it is reset
    void reset();
    void finalize();

private:
    void enlist(Database* database, Prepared prepared);
    Prepared release();
    void end();

    Database* database_ = nullptr;
    QString sql_;
    Prepared prepared_;
    bool kept_ = false; // it was prepared for an earlier one
    bool writes_ = false;
    bool heard_ = false;   // who follows a table hears of the rows that it writes
    bool running_ = false; // between its first row and its last
};

} // namespace jet
