// What hangs on the people, families, places and professions that an act has made.
#pragma once

#include "platform/jet/connection.h"
#include "study/acts/plan.h"

#include <QHash>
#include <QPair>
#include <QSet>
#include <QString>

namespace study {

// The rows of an act where they stand in the tables: (table, rowid) → its change.
using OwnRows = QHash<QPair<QString, qint64>, const RowChange*>;

// What other than the act itself has led to a record that it made, in Portuguese; "" for nothing. Of the columns of a
// row that the act has altered its own don't count. Throws jet::Error.
QString laterUse(jet::Connection& bdp, qint64 act, const QList<RowChange>& written, const OwnRows& own);

// What a later act tells, too, and so didn't write again: the residence, the parents, the couple that this act wrote of
// those who were there before. In Portuguese; "" for nothing. Throws jet::Error.
QString laterReliance(jet::Connection& bdp, qint64 act, const QList<RowChange>& written);

// Whether any row that isn't its own uses the new place or profession. Throws jet::Error.
bool isUsed(jet::Connection& bdp, const RowChange& made);

} // namespace study
