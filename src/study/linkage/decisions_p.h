// What the files of the decisions share.
#pragma once

#include "study/linkage/decisions.h"

#include <QStringList>

namespace study::linkage {

// Writes a row of the table of decisions; its id.
qint64 kept(jet::Connection& bdp, const Ruling& what, int rows, const QString& changes);

// The columns that name a row, in small letters: those of its primary key, or all of a table without one.
QStringList keyColumns(jet::Connection& bdp, const QString& table, const QJsonObject& row);

QJsonObject only(const QJsonObject& row, const QStringList& columns);

// The rows that have these values, as they are stored.
QList<Row> storedRows(const jet::Connection& bdp, const QString& table, const QJsonObject& having);

} // namespace study::linkage
