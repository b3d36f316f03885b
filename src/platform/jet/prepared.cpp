#include "platform/jet/prepared.h"

#include <sqlite3.h>

#include <algorithm>

namespace jet {

namespace {

constexpr size_t keptAtMost = 64;
constexpr qsizetype lettersAtMost = 8000; // a longer text has somebody's notes in it, and doesn't come again

} // namespace

std::list<PreparedStatements::Kept>::iterator PreparedStatements::find(const QString& sql)
{
    return std::find_if(kept_.begin(), kept_.end(), [&](const Kept& kept) { return kept.sql == sql; });
}

sqlite3_stmt* PreparedStatements::take(const QString& sql)
{
    const auto kept = find(sql);
    if (kept == kept_.end()) return nullptr;
    sqlite3_stmt* statement = kept->statement;
    kept_.erase(kept);
    return statement;
}

void PreparedStatements::keep(const QString& sql, sqlite3_stmt* statement)
{
    if (!statement) return;
    if (sql.size() > lettersAtMost || find(sql) != kept_.end()) {
        sqlite3_finalize(statement);
        return;
    }
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
    kept_.push_front({sql, statement});
    if (kept_.size() <= keptAtMost) return;
    sqlite3_finalize(kept_.back().statement);
    kept_.pop_back();
}

void PreparedStatements::clear()
{
    for (const Kept& kept : kept_)
        sqlite3_finalize(kept.statement);
    kept_.clear();
}

} // namespace jet
