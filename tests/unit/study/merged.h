// What tests of merges ask of a BDP.
#pragma once

#include "platform/jet/connection.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <map>
#include <utility>

namespace merged {

// The tables of the BDP but those that hold decisions, and those that are made anew from the people.
QStringList tables(const jet::Connection& bdp);

// Every row of a table with its place, as it is stored.
QByteArray content(const jet::Connection& bdp, const QString& table);

using Place = std::pair<QString, qint64>; // a table, and a place in it

// The same, row by row.
std::map<Place, QByteArray> rows(const jet::Connection& bdp, const QStringList& tables);

// Of all those tables: two BDPs are the same where these are. Of the second, only of those that a merge of people may
// write to, without the long ones of places.
QMap<QString, QByteArray> contents(const jet::Connection& bdp);
QMap<QString, QByteArray> contentsOfPeople(const jet::Connection& bdp);

} // namespace merged
