#include "raw.h"

#include <QCryptographicHash>
#include <QUrl>

#include <sqlite3.h>

#include <algorithm>

namespace {

// A cell's type and bytes.
void add(QCryptographicHash& hash, sqlite3_stmt* row, int column)
{
    const int type = sqlite3_column_type(row, column);
    const void* bytes = sqlite3_column_blob(row, column);
    const qint32 head[] = {type, sqlite3_column_bytes(row, column)};
    hash.addData(QByteArrayView(reinterpret_cast<const char*>(head), sizeof head));
    if (bytes) hash.addData(QByteArrayView(static_cast<const char*>(bytes), head[1]));
}

} // namespace

Raw::Raw(const QString& path, Way way)
{
    QByteArray uri = "file:" + QUrl::toPercentEncoding(path, "/");
    int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_URI;
    if (way == Way::Untouched) {
        uri += "?immutable=1";
        flags = SQLITE_OPEN_READONLY | SQLITE_OPEN_URI;
    }
    sqlite3_open_v2(uri.constData(), &handle_, flags, nullptr);
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_DEFENSIVE, 0, nullptr);
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_WRITABLE_SCHEMA, 1, nullptr);
    run("pragma synchronous = off; pragma ignore_check_constraints = 1");
}

Raw::~Raw()
{
    sqlite3_close_v2(handle_);
}

bool Raw::run(const QString& sql)
{
    return sqlite3_exec(handle_, sql.toUtf8().constData(), nullptr, nullptr, nullptr) == SQLITE_OK;
}

QStringList Raw::texts(const QString& sql)
{
    QStringList found;
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(handle_, sql.toUtf8().constData(), -1, &statement, nullptr);
    while (statement && sqlite3_step(statement) == SQLITE_ROW)
        found << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
    sqlite3_finalize(statement);
    return found;
}

bool Raw::read(const QString& table, TableDump& dump)
{
    QStringList names;
    for (const QString& column : dump.columns)
        names << asName(column);
    sqlite3_stmt* statement = nullptr;
    const QString sql = QStringLiteral("select %1 from %2").arg(names.join(", "), asName(table));
    if (sqlite3_prepare_v2(handle_, sql.toUtf8().constData(), -1, &statement, nullptr) != SQLITE_OK) return false;
    int code = SQLITE_ROW;
    while ((code = sqlite3_step(statement)) == SQLITE_ROW) {
        QCryptographicHash hash(QCryptographicHash::Sha1);
        for (int column = 0; column < names.size(); ++column)
            add(hash, statement, column);
        dump.rows << hash.result();
    }
    sqlite3_finalize(statement);
    std::sort(dump.rows.begin(), dump.rows.end());
    return code == SQLITE_DONE;
}

Dump Raw::dump(const Dump& like)
{
    Dump all;
    const auto tables = texts("select name from sqlite_master where type = 'table' and rootpage > 0 "
                              "and name not like 'sqlite!_%' escape '!'");
    for (const QString& table : tables) {
        TableDump dump;
        dump.columns = like.contains(table) ? like[table].columns
                                            : texts("select name from pragma_table_info(" + asText(table) + ")");
        if (!dump.columns.isEmpty() && read(table, dump)) all[table] = dump;
    }
    return all;
}

QString asName(QString name)
{
    return '"' + name.replace('"', "\"\"") + '"';
}

QString asText(QString text)
{
    return '\'' + text.replace('\'', "''") + '\'';
}
