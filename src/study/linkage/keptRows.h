// What a decision has kept of the rows that it has altered or taken away.
#pragma once

#include "study/linkage/references.h"

#include <QDateTime>
#include <QJsonObject>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>

namespace study::linkage {

struct Kept
{
    QString table;
    qint64 place = 0;
    std::optional<QJsonObject> key; // of a row that is there; none: it has gone, and `before` is the whole row
    QJsonObject before, after;
    std::optional<QJsonObject> left; // the whole row as it was left, where nothing of it may have changed since
    // The columns of `before` that led nowhere then; none where that wasn't kept.
    std::optional<QStringList> loose;

    // The row as it will be again, out of what it is by now.
    QJsonObject restored(const QJsonObject& now) const;
};

// Nothing where the text isn't what a decision keeps, or names a table that none writes to.
std::optional<QList<Kept>> readChanges(const QString& text);

// Whether the columns are those of the table. Throws jet::Error.
bool areColumns(jet::Connection& bdp, const Kept& step);

// A record for a sentence: "A ficha do indivíduo nº 5".
struct Title
{
    QString text;
    bool masculine = false;

    QString wasAltered() const { return text + (masculine ? " foi alterado depois." : " foi alterada depois."); }
};
Title titleOf(const QString& table, const QJsonObject& row);
QString titleOf(const Named& named); // "A família nº 8"

// The people and families that a card has deleted from that moment on, and nobody has put back: their numbers may be
// somebody else's by now. Throws jet::Error.
struct Deleted
{
    QSet<qint64> people, families;

    bool has(const Named& named) const;
};
Deleted deletedSince(jet::Connection& bdp, const QDateTime& moment);

} // namespace study::linkage
