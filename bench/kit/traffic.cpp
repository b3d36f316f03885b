#include "kit/traffic.h"

#include <sqlite3.h>

namespace bench {

static int count(unsigned event, void* traffic, void*, void*)
{
    auto* counted = static_cast<Traffic*>(traffic);
    ++(event == SQLITE_TRACE_ROW ? counted->rows : counted->statements);
    return 0;
}

static int note(unsigned, void* statements, void* statement, void*)
{
    const char* sql = sqlite3_sql(static_cast<sqlite3_stmt*>(statement));
    static_cast<QStringList*>(statements)->append(QString::fromUtf8(sql));
    return 0;
}

Traffic trafficOf(sqlite3* database, const std::function<void()>& work)
{
    Traffic traffic;
    if (!database) {
        work();
        return traffic;
    }
    const auto before = sqlite3_total_changes64(database);
    sqlite3_trace_v2(database, SQLITE_TRACE_STMT | SQLITE_TRACE_ROW, count, &traffic);
    work();
    sqlite3_trace_v2(database, 0, nullptr, nullptr);
    traffic.changes = static_cast<int>(sqlite3_total_changes64(database) - before);
    return traffic;
}

QStringList statementsOf(sqlite3* database, const std::function<void()>& work)
{
    QStringList statements;
    sqlite3_trace_v2(database, SQLITE_TRACE_STMT, note, &statements);
    work();
    sqlite3_trace_v2(database, 0, nullptr, nullptr);
    return statements;
}

} // namespace bench
