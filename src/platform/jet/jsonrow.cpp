#include "platform/jet/jsonrow.h"

#include "platform/jet/columns.h"
#include "platform/jet/reader.h"
#include "platform/jet/statement.h"

#include <QJsonValue>
#include <QStringDecoder>

#include <sqlite3.h>

#include <cmath>

namespace jet {

namespace {

constexpr auto blobKey = "blob", textKey = "texto", realKey = "real";

QJsonObject marked(const char* key, const QByteArray& bytes)
{
    return {{QLatin1String(key), QString::fromLatin1(bytes)}};
}

QByteArray bytesOf(sqlite3_stmt* statement, int column)
{
    const void* bytes = sqlite3_column_blob(statement, column);
    return {static_cast<const char*>(bytes), sqlite3_column_bytes(statement, column)};
}

QJsonValue textOf(const QByteArray& bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::Stateless);
    const QString text = decoder(bytes);
    if (decoder.hasError() || text.toUtf8() != bytes) return marked(textKey, bytes.toBase64());
    return text;
}

QJsonValue valueOf(sqlite3_stmt* statement, int column)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
        return QJsonValue::Null;
    case SQLITE_INTEGER:
        return qint64(sqlite3_column_int64(statement, column));
    case SQLITE_FLOAT: {
        const double number = sqlite3_column_double(statement, column);
        if (std::isfinite(number)) return number;
        return marked(realKey, QByteArray::number(number));
    }
    case SQLITE_BLOB:
        return marked(blobKey, bytesOf(statement, column).toBase64());
    default:
        return textOf(bytesOf(statement, column));
    }
}

// The engine is blind to the case of the letters of ASCII alone, as this is.
QString nameOf(sqlite3_stmt* statement, int column)
{
    return QString::fromUtf8(QByteArray(sqlite3_column_name(statement, column)).toLower());
}

// What stands in the statement for a value, and the value that is bound there.
std::pair<QString, QVariant> bound(const QJsonValue& value)
{
    const QString place = QStringLiteral("?");
    if (value.isObject()) {
        const QJsonObject object = value.toObject();
        const auto bytes = [&](const char* key) {
            return QByteArray::fromBase64(object[QLatin1String(key)].toString().toLatin1());
        };
        if (object.contains(QLatin1String(realKey)))
            return {place, object[QLatin1String(realKey)].toString().toDouble()};
        if (object.contains(QLatin1String(textKey))) return {QStringLiteral("cast(? as text)"), bytes(textKey)};
        return {place, bytes(blobKey)};
    }
    if (value.isNull()) return {place, {}};
    return {place, value.toVariant()}; // a whole number, a double or a text
}

} // namespace

QList<QJsonObject> jsonRows(const Connection& connection, const NativeSql& select)
{
    Statement statement(JsonReader::database(connection), select.sql);
    for (qsizetype i = 0; i < select.values.size(); ++i)
        statement.bind(int(i) + 1, select.values[i]);
    QList<QJsonObject> rows;
    while (statement.step()) {
        QJsonObject row;
        for (int i = 0; i < sqlite3_column_count(statement.handle()); ++i)
            row.insert(nameOf(statement.handle(), i), valueOf(statement.handle(), i));
        rows << row;
    }
    return rows;
}

void insertJsonRow(Connection& connection, const QString& table, const QJsonObject& row)
{
    QStringList columns, places;
    QVariantList values;
    for (auto column = row.begin(); column != row.end(); ++column) {
        const auto [place, value] = bound(column.value());
        columns << quoted(column.key());
        places << place;
        values << value;
    }
    connection.execute(NativeSql(
        QStringLiteral("insert into %1 (%2) values (%3)").arg(quoted(table), columns.join(u','), places.join(u',')),
        values));
}

void updateJsonRow(Connection& connection, const QString& table, qint64 place, const QJsonObject& columns)
{
    QStringList settings;
    QVariantList values;
    for (auto column = columns.begin(); column != columns.end(); ++column) {
        const auto [mark, value] = bound(column.value());
        settings << quoted(column.key()) + QStringLiteral(" = ") + mark;
        values << value;
    }
    values << place;
    connection.execute(NativeSql(
        QStringLiteral("update %1 set %2 where rowid = ?").arg(quoted(table), settings.join(QStringLiteral(", "))),
        values));
}

} // namespace jet
