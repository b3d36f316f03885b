#include "parish/writer.h"

#include <QtGlobal>

#include <sqlite3.h>

namespace bench {

namespace {

void bindText(sqlite3_stmt* statement, int at, const QByteArray& text)
{
    sqlite3_bind_text(statement, at, text.constData(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

void bind(sqlite3_stmt* statement, int at, const Cell& cell)
{
    if (const auto* number = std::get_if<int>(&cell))
        sqlite3_bind_int(statement, at, *number);
    else if (const auto* text = std::get_if<QByteArray>(&cell))
        bindText(statement, at, *text);
    else if (const auto* date = std::get_if<QDate>(&cell); date && date->isValid())
        bindText(statement, at, date->toString(Qt::ISODate).toLatin1());
    else
        sqlite3_bind_null(statement, at);
}

} // namespace

Writer::Writer(sqlite3* database, const QByteArray& table, const QByteArray& columns) : database_(database)
{
    const QByteArray places = QByteArray("?,").repeated(columns.count(',') + 1).chopped(1);
    const QByteArray sql = "insert into " + table + " (" + columns + ") values (" + places + ")";
    if (sqlite3_prepare_v2(database, sql.constData(), -1, &insert_, nullptr) != SQLITE_OK)
        qFatal("%s: %s", sqlite3_errmsg(database), sql.constData());
}

Writer::~Writer()
{
    sqlite3_finalize(insert_);
}

void Writer::write(std::initializer_list<Cell> cells)
{
    int at = 0;
    for (const Cell& cell : cells)
        bind(insert_, ++at, cell);
    if (sqlite3_step(insert_) != SQLITE_DONE) qFatal("%s: %s", sqlite3_errmsg(database_), sqlite3_sql(insert_));
    sqlite3_reset(insert_);
}

} // namespace bench
