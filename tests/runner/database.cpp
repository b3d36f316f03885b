#include "database.h"

#include "failure.h"

#include <QFileInfo>
#include <QLocale>

#include <sqlite3.h>

#include <cmath>
#include <memory>

namespace {

struct Close
{
    void operator()(sqlite3* db) const { sqlite3_close(db); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

QString valueOf(sqlite3_stmt* statement, int column)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
        return "null";
    case SQLITE_FLOAT: {
        const double value = sqlite3_column_double(statement, column);
        if (std::nearbyint(value) == value && std::abs(value) < 1e15) return QString::number(qint64(value));
        return QString::number(value, 'g', QLocale::FloatingPointShortest);
    }
    default: {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
        return QString::fromUtf8(text, sqlite3_column_bytes(statement, column));
    }
    }
}

} // namespace

QStringList Database::rows(const QString& file, const QString& select)
{
    if (file.isEmpty()) fail("no BDP is in use: bdp or use comes first");
    if (!QFileInfo::exists(file)) fail(QStringLiteral("there is no file %1").arg(file));

    sqlite3* opened = nullptr;
    const int open = sqlite3_open_v2(file.toUtf8().constData(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    const std::unique_ptr<sqlite3, Close> db(opened);
    const auto check = [&](int status) {
        if (status != SQLITE_OK && status != SQLITE_DONE)
            fail(QString::fromUtf8(sqlite3_errmsg(db.get())) + " in " + quoted(select));
    };
    check(open);
    sqlite3_busy_timeout(db.get(), 2000);

    sqlite3_stmt* prepared = nullptr;
    const char* tail = nullptr;
    const QByteArray utf8 = select.toUtf8();
    check(sqlite3_prepare_v2(db.get(), utf8.constData(), -1, &prepared, &tail));
    const std::unique_ptr<sqlite3_stmt, Close> statement(prepared);
    if (!statement || !QString::fromUtf8(tail).trimmed().isEmpty()) fail("not one statement: " + quoted(select));

    QStringList rows;
    int status = SQLITE_ROW;
    while ((status = sqlite3_step(statement.get())) == SQLITE_ROW) {
        QStringList values;
        for (int column = 0; column < sqlite3_column_count(statement.get()); ++column)
            values.append(valueOf(statement.get(), column));
        rows.append(values.join('|'));
    }
    check(status);
    return rows;
}

void Database::exec(const QString& file, const QString& statement)
{
    rows(file, statement);
}
