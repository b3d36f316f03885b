// The tables of the acts as the BDP has them (docs/bdp.md), and the words that stand in them.
#pragma once

#include "platform/jet/connection.h"
#include "study/acts/act.h"
#include "study/acts/conclusions.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace study::tables {

struct Table
{
    const char* name;
    QStringList columns;
    QStringList statements; // that make it and its indexes
};

const QList<Table>& ofActs();
const Table& ofDraft();

// Whether the BDP has them all. Throws jet::Error, in Portuguese, where one of a name is another one: without the
// columns, or no table. Nothing is changed.
bool exist(jet::Connection& bdp, const QList<Table>& wanted);
// Makes those that aren't there. Throws as exist().
void make(jet::Connection& bdp, const QList<Table>& wanted);

QString word(ActKind kind);
ActKind kindOf(const QString& word); // a word that is none of these is read as the first one
QString word(Role role);
Role roleOf(const QString& word);
QString word(Identity::Kind kind);
Identity::Kind identityOf(const QString& word);
QString word(Sex sex);
std::optional<Sex> sexTold(const QString& word); // "": not told

inline constexpr auto timeFormat = "yyyy-MM-dd HH:mm:ss";

} // namespace study::tables
