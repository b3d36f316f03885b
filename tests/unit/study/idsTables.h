// The tables of the Intermediate Data Structure that are made of a BDP, read back, and what isn't by its rules.
#pragma once

#include "platform/jet/connection.h"
#include "study/exchange/ids.h"

#include <QList>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

namespace ids {

using Row = QMap<QString, QString>;

struct Tables
{
    QMap<QString, QByteArray> files = {}; // by name
    QMap<QString, QStringList> headings = {};
    QMap<QString, QList<Row>> rows = {}; // by table
    study::exchange::IdsCounts counts = {};

    // The rows of the person of that type; all of them for "".
    QList<Row> of(qint64 person, const QString& type = {}) const;
    QString value(qint64 person, const QString& type) const; // of the first one
    // "Godfather" where Id_I_1 is that of Id_I_2.
    QStringList relations(qint64 one, qint64 other) const;
};

// Written to a folder of its own.
Tables written(const jet::Connection& bdp, const study::exchange::IdsOptions& options);

// What is not as it should be, in the words of the rule; [] for nothing. Read by the published tables of the structure,
// and not by those of the program.
QStringList faultsOf(const Tables& tables);

// A couple, or one parent alone, and the children: by the numbers of the people.
using Families = QMap<QList<qint64>, QSet<qint64>>;
// By INDIV_INDIV alone, with Id_I_1 as the Relation of Id_I_2, or the other way.
Families familiesOf(const Tables& tables, bool reversed);

QString date(const Row& row); // "14/2/1702", "1702", "" for none

} // namespace ids
