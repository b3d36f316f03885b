#include "snapshot.h"

#include "recordingVfs.h"

#include <QByteArrayList>
#include <QCryptographicHash>
#include <QDirIterator>
#include <QStringList>

#include <sqlite3.h>

#include <algorithm>
#include <memory>

namespace {

struct Close
{
    void operator()(sqlite3* db) const { sqlite3_close(db); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Engine = std::unique_ptr<sqlite3, Close>;

constexpr auto schema = "the schema";
constexpr auto timeOfDay = "quando";    // another one in each run
constexpr auto derived = "estudo_nome"; // begins the names of what is made of the rest, and made anew where it is wrong

QByteArray valueOf(sqlite3_stmt* statement, int column)
{
    const int type = sqlite3_column_type(statement, column);
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
    return QByteArray::number(type) + ':' + QByteArray(bytes, sqlite3_column_bytes(statement, column));
}

QList<QByteArray> rows(const Engine& engine, const QByteArray& select)
{
    sqlite3_stmt* prepared = nullptr;
    int code = sqlite3_prepare_v2(engine.get(), select.constData(), -1, &prepared, nullptr);
    const std::unique_ptr<sqlite3_stmt, Close> statement(prepared);
    QList<QByteArray> result;
    while (code == SQLITE_OK || code == SQLITE_ROW) {
        code = sqlite3_step(prepared);
        if (code != SQLITE_ROW) break;
        QByteArray row;
        for (int column = 0; column < sqlite3_column_count(prepared); ++column)
            row += valueOf(prepared, column) + '\x1f';
        result << row;
    }
    if (code != SQLITE_DONE) throw Unreadable{QString::fromUtf8(sqlite3_errmsg(engine.get()))};
    std::sort(result.begin(), result.end());
    return result;
}

// All columns but the one that tells when a row was made.
QByteArray columnsOf(const Engine& engine, const QByteArray& table)
{
    QByteArrayList columns;
    for (const QByteArray& name : rows(engine, "select name from pragma_table_info('" + table + "')"))
        if (const QByteArray column = name.mid(2).chopped(1); column != timeOfDay) columns << '"' + column + '"';
    return columns.join(", ");
}

QByteArray digest(const QList<QByteArray>& rows)
{
    QCryptographicHash hash(QCryptographicHash::Md5);
    for (const QByteArray& row : rows)
        hash.addData(row + '\x1e');
    return hash.result();
}

} // namespace

Content contentOf(const QString& path)
{
    sqlite3* opened = nullptr;
    const int code = sqlite3_open_v2(path.toUtf8().constData(), &opened, SQLITE_OPEN_READWRITE, realVfsName());
    const Engine engine(opened);
    if (code != SQLITE_OK) throw Unreadable{QString::fromUtf8(sqlite3_errstr(code))};
    if (rows(engine, "pragma integrity_check") != QList<QByteArray>{"3:ok\x1f"}) throw Unreadable{"it is damaged"};
    Content content;
    content.insert(schema, digest(rows(engine, "select type, name, sql from sqlite_master where tbl_name not glob '" +
                                                   QByteArray(derived) + "*' and tbl_name <> '" + draftTable + "'")));
    for (const QByteArray& name : rows(engine, "select name from sqlite_master where type = 'table'")) {
        const QByteArray table = name.mid(2).chopped(1);
        if (table.startsWith(derived)) continue;
        const QByteArray select = "select " + columnsOf(engine, table) + " from \"" + table + '"';
        content.insert(QString::fromUtf8(table), digest(rows(engine, select)));
    }
    return content;
}

Snapshot snapshotOf(const QString& folder, const Snapshot& before)
{
    Snapshot snapshot;
    QDirIterator found(folder, {"*.orv"}, QDir::Files, QDirIterator::Subdirectories);
    while (found.hasNext()) {
        const QString path = found.next();
        const QString name = path.mid(folder.size() + 1);
        try {
            snapshot.insert(name, contentOf(path));
        } catch (const Unreadable&) {
            if (before.contains(name)) snapshot.insert(name, before[name]);
        }
    }
    return snapshot;
}

QString difference(const Content& a, const Content& b)
{
    QStringList tables;
    for (const QString& table : a.keys() + b.keys())
        if (a.value(table) != b.value(table) && !tables.contains(table)) tables << table;
    return tables.join(", ");
}
