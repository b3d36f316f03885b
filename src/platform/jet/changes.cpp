#include "platform/jet/changes.h"

#include <sqlite3.h>

#include <algorithm>

namespace jet {

namespace {

constexpr size_t notesAtMost = 20000;

} // namespace

void Changes::install(sqlite3* database)
{
    database_ = database;
    lose();
    levels_.clear();
    heard_ = 0;
    total_ = sqlite3_total_changes64(database);
    sqlite3_update_hook(database, hear, this);
}

Changes::Moment Changes::now(const QString& table)
{
    const QByteArray name = table.toUtf8();
    if (indexOf(name) < 0) tables_.push_back(name);
    return {era_, end()};
}

std::optional<std::vector<qint64>> Changes::since(Moment& moment, const QString& table)
{
    if (sqlite3_total_changes64(database_) != total_) { // somebody has used the handle itself
        lose();
        total_ = sqlite3_total_changes64(database_);
    }
    if (moment.era != era_ || moment.end < first_) return {};
    const int wanted = indexOf(table.toUtf8());
    std::vector<qint64> keys;
    std::for_each(touched_.begin() + (moment.end - first_), touched_.end(), [&](const Touched& each) {
        if (each.table == wanted) keys.push_back(each.key);
    });
    std::sort(keys.begin(), keys.end());
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
    moment.end = end();
    return keys;
}

// Of a replaced row the engine tells nothing.
bool Changes::hearsRowsOf(const QString& statement)
{
    static constexpr auto verbs = {"insert", "update", "delete"};
    return std::any_of(
               verbs.begin(), verbs.end(),
               [&](const char* verb) { return statement.startsWith(QLatin1String(verb), Qt::CaseInsensitive); }) &&
           !statement.contains(QLatin1String("replace"), Qt::CaseInsensitive);
}

void Changes::statementBegins()
{
    heardBefore_ = heard_;
    totalBefore_ = sqlite3_total_changes64(database_);
}

// A delete of all rows empties the table without a word of each of them, but it counts them.
void Changes::statementEnds(bool heard)
{
    total_ = sqlite3_total_changes64(database_);
    if (!heard || heard_ - heardBefore_ != total_ - totalBefore_) lose();
}

void Changes::levelBegins()
{
    levels_.push_back(end());
}

void Changes::levelIsKept()
{
    if (!levels_.empty()) levels_.pop_back();
}

void Changes::levelIsRolledBack()
{
    if (levels_.empty()) return;
    touchSince(levels_.back());
    levels_.pop_back();
}

void Changes::allLevelsAreRolledBack()
{
    if (levels_.empty()) return;
    touchSince(levels_.front());
    levels_.clear();
}

// Who has looked meanwhile must look again.
void Changes::touchSince(qint64 begin)
{
    if (begin < first_) return lose();
    const std::vector<Touched> again(touched_.begin() + (begin - first_), touched_.end());
    for (const Touched& each : again)
        note(each);
}

void Changes::hear(void* changes, int, const char*, const char* table, long long key)
{
    auto& self = *static_cast<Changes*>(changes);
    ++self.heard_;
    if (const int index = self.indexOf(table); index >= 0) self.note({index, key});
}

int Changes::indexOf(const char* table) const
{
    const auto found = std::find_if(tables_.begin(), tables_.end(), [&](const QByteArray& each) {
        return sqlite3_stricmp(each.constData(), table) == 0;
    });
    return found == tables_.end() ? -1 : int(found - tables_.begin());
}

void Changes::note(Touched row)
{
    touched_.push_back(row);
    if (touched_.size() <= notesAtMost) return;
    touched_.pop_front();
    ++first_;
}

void Changes::lose()
{
    ++era_;
    first_ = end() + 1; // a level that began before knows that it can't tell
    touched_.clear();
}

} // namespace jet
