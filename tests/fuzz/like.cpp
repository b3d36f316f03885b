#include "fuzz/targets.h"

#include "platform/jet/dialect.h"

#include <sqlite3.h>

namespace {

bool isLike(const QString& text, const QString& pattern)
{
    static sqlite3_stmt* const statement = [] {
        sqlite3* db = nullptr;
        sqlite3_open(":memory:", &db);
        jet::installFunctions(db);
        sqlite3_stmt* prepared = nullptr;
        sqlite3_prepare_v2(db, "select ?1 like ?2", -1, &prepared, nullptr);
        return prepared;
    }();
    const QByteArray a = text.toUtf8(), b = pattern.toUtf8();
    sqlite3_bind_text(statement, 1, a.constData(), int(a.size()), SQLITE_STATIC);
    sqlite3_bind_text(statement, 2, b.constData(), int(b.size()), SQLITE_STATIC);
    const bool row = sqlite3_step(statement) == SQLITE_ROW;
    const bool matches = row && sqlite3_column_int(statement, 0) != 0;
    sqlite3_reset(statement);
    Fuzz::require(row, "like fails: " + text + " like " + pattern);
    return matches;
}

} // namespace

void Fuzz::like(const QByteArray& bytes)
{
    const QString all = QString::fromUtf8(bytes), pattern = all.section('\n', 0, 0), text = all.section('\n', 1);
    isLike(text, pattern);
    require(isLike(text, "%"), "a text isn't like %: " + text);
    require(isLike(text, "%%_%") == !text.isEmpty(), "only an empty text has no character: " + text);
    if (pattern.contains('%') || pattern.contains('_')) return;
    require(isLike(pattern, pattern), "a text isn't like itself: " + pattern);
    require(isLike(text + pattern + text, '%' + pattern + '%'), "a part isn't found: " + pattern + " in " + text);
}
