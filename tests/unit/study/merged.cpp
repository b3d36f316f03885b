#include "study/merged.h"

#include <QCryptographicHash>

#include <sqlite3.h>

namespace merged {

namespace {

sqlite3_stmt* everyRow(const jet::Connection& bdp, const QString& table)
{
    sqlite3_stmt* statement = nullptr;
    const QByteArray select = "select rowid, * from " + table.toUtf8() + " order by rowid";
    sqlite3_prepare_v2(bdp.handle(), select.constData(), -1, &statement, nullptr);
    return statement;
}

QByteArray textOf(sqlite3_stmt* row)
{
    QByteArray text;
    const int columns = sqlite3_column_count(row);
    for (int column = 0; column < columns; ++column) {
        text += char(sqlite3_column_type(row, column));
        const auto* const bytes = static_cast<const char*>(sqlite3_column_blob(row, column));
        text.append(bytes, sqlite3_column_bytes(row, column)).append('|');
    }
    return text;
}

} // namespace

QStringList tables(const jet::Connection& bdp)
{
    QStringList all;
    for (const QString& table : bdp.tables())
        if (!table.startsWith("estudo_nome") && table != "estudo_decisao") all << table.toLower();
    return all;
}

QByteArray content(const jet::Connection& bdp, const QString& table)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    sqlite3_stmt* statement = everyRow(bdp, table);
    while (sqlite3_step(statement) == SQLITE_ROW)
        hash.addData(textOf(statement));
    sqlite3_finalize(statement);
    return hash.result().toHex();
}

std::map<Place, QByteArray> rows(const jet::Connection& bdp, const QStringList& tables)
{
    std::map<Place, QByteArray> all;
    for (const QString& table : tables) {
        sqlite3_stmt* statement = everyRow(bdp, table);
        while (sqlite3_step(statement) == SQLITE_ROW)
            all.emplace(Place(table, sqlite3_column_int64(statement, 0)), textOf(statement));
        sqlite3_finalize(statement);
    }
    return all;
}

QMap<QString, QByteArray> contents(const jet::Connection& bdp)
{
    QMap<QString, QByteArray> all;
    for (const QString& table : tables(bdp))
        all.insert(table, content(bdp, table));
    return all;
}

QMap<QString, QByteArray> contentsOfPeople(const jet::Connection& bdp)
{
    static const QStringList fixed{"pais",  "zonapais", "distrito",         "concelho",  "paroquia",
                                   "lugar", "sitio",    "infocomplementar", "categoria", "profissao"};
    QMap<QString, QByteArray> all;
    for (const QString& table : tables(bdp))
        if (!fixed.contains(table)) all.insert(table, content(bdp, table));
    return all;
}

} // namespace merged
