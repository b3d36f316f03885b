#include "platform/jet/columns.h"
#include "platform/jet/connection.h"
#include "platform/jet/database.h"
#include "platform/jet/date.h"
#include "platform/jet/errors.h"
#include "platform/jet/statement.h"

#include <sqlite3.h>

namespace jet {

struct Connection::Insert::Private
{
    Database& database;
    Statement statement;
    QList<int> dates; // positions of the date columns
    int columns;
};

Connection::Insert::Insert(Connection& connection, const QString& table, const QStringList& columns)
{
    Database& database = *connection.database_;
    database.requireOpen();
    database.dropAbandoned();
    QStringList names;
    QStringList places;
    QList<int> dates;
    for (const QString& column : columns) {
        if (typeOf(declaredType(database.handle, table, column)) == Type::Date) dates << int(names.size());
        names << quoted(column);
        places << QStringLiteral("?");
    }
    const QString sql =
        QStringLiteral("insert into %1 (%2) values (%3)").arg(quoted(table), names.join(u','), places.join(u','));
    d_.reset(new Private{database, Statement(database, sql), dates, int(columns.size())});
}

Connection::Insert::~Insert() = default;

void Connection::Insert::run(const QList<QByteArray>& values)
{
    if (values.size() != d_->columns)
        throw invalidStatement(
            QStringLiteral("A instrução dá %1 valores para %2 colunas.").arg(values.size()).arg(d_->columns));
    d_->database.dropAbandoned();
    sqlite3_stmt* statement = d_->statement.handle();
    if (!statement) throw connectionClosed();
    for (int i = 0; i < d_->columns; ++i)
        sqlite3_bind_text(statement, i + 1, values[i].constData(), int(values[i].size()), SQLITE_STATIC);
    for (const int i : d_->dates)
        if (const auto date = comparedDate(QString::fromUtf8(values[i]))) d_->statement.bind(i + 1, *date);
    d_->statement.step();
    d_->statement.reset();
}

void Connection::Insert::run(const QStringList& values)
{
    QList<QByteArray> utf8;
    for (const QString& value : values)
        utf8 << value.toUtf8();
    run(utf8);
}

} // namespace jet
