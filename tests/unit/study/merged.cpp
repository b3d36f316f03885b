#include "study/merged.h"

#include <QCryptographicHash>

#include <sqlite3.h>

namespace merged {

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
    sqlite3_stmt* statement = nullptr;
    const QByteArray select = "select rowid, * from " + table.toUtf8() + " order by rowid";
    sqlite3_prepare_v2(bdp.handle(), select.constData(), -1, &statement, nullptr);
    while (sqlite3_step(statement) == SQLITE_ROW) {
        QByteArray row;
        for (int column = 0; column < sqlite3_column_count(statement); ++column) {
            row += char(sqlite3_column_type(statement, column));
            const auto* const bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
            row.append(bytes, sqlite3_column_bytes(statement, column)).append('|');
        }
        hash.addData(row);
    }
    sqlite3_finalize(statement);
    return hash.result().toHex();
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
