#include "platform/jet/prepared.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

namespace jet {

namespace {

constexpr size_t keptAtMost = 64;
constexpr qsizetype lettersAtMost = 8000; // a longer text has somebody's notes in it, and doesn't come again

} // namespace

std::list<PreparedStatements::Kept>::iterator PreparedStatements::find(const QString& sql)
{
    return std::find_if(kept_.begin(), kept_.end(), [&](const Kept& kept) { return kept.sql == sql; });
}

Prepared PreparedStatements::take(const QString& sql)
{
    const auto kept = find(sql);
    if (kept == kept_.end()) return {};
    Prepared prepared = std::move(kept->prepared);
    kept_.erase(kept);
    return prepared;
}

void PreparedStatements::keep(const QString& sql, Prepared prepared)
{
    if (!prepared.statement) return;
    if (sql.size() > lettersAtMost || find(sql) != kept_.end()) {
        sqlite3_finalize(prepared.statement);
        return;
    }
    sqlite3_reset(prepared.statement);
    sqlite3_clear_bindings(prepared.statement);
    kept_.push_front({sql, std::move(prepared)});
    if (kept_.size() <= keptAtMost) return;
    sqlite3_finalize(kept_.back().prepared.statement);
    kept_.pop_back();
}

void PreparedStatements::clear()
{
    for (const Kept& kept : kept_)
        sqlite3_finalize(kept.prepared.statement);
    kept_.clear();
}

} // namespace jet
