// What the program does to the tables, statement by statement.
#pragma once

#include "store/session.h"

#include <QRegularExpression>
#include <QStringList>

#include <sqlite3.h>

// While it lives: the tables that cnBDP deletes from, and "famorig" where it alters that column, in their order.
class Diary
{
public:
    Diary() { sqlite3_trace_v2(cnBDP.handle(), SQLITE_TRACE_STMT, note, this); }
    ~Diary() { sqlite3_trace_v2(cnBDP.handle(), 0, nullptr, nullptr); }
    Diary(const Diary&) = delete;
    Diary& operator=(const Diary&) = delete;

    QStringList entries;

private:
    static int note(unsigned, void* diary, void*, void* sql)
    {
        static const QRegularExpression deletion(R"(^delete from "?(\w+))");
        const QString text = QString::fromUtf8(static_cast<const char*>(sql));
        auto& entries = static_cast<Diary*>(diary)->entries;
        if (const auto match = deletion.match(text); match.hasMatch()) entries << match.captured(1);
        if (text.startsWith("update individuo set famorig")) entries << "famorig";
        return 0;
    }
};
