// What the merges share.
#pragma once

#include "study/linkage/merge.h"
#include "study/linkage/moving.h"

#include <QSet>

namespace study::linkage {

// The notes of two rows that are one: those of the kept one, those of the other with where they come from, and what
// wasn't chosen. `kept`, `other`: "Do nº 15, junto".
struct Origins
{
    QString kept, other;
};
QString notesOf(const QJsonObject& kept, const QJsonObject& other, const Joined& joined, const Origins& origins);

// Why those notes can't be kept; "" where they can.
QString whyNoNotes(const QJsonObject& kept, const QJsonObject& other, const QString& notes);

// "O nº 5 fica com: causa febres; altura 160.", of "o nº 5"; "" where nothing was lacking.
QString getsWhatItLacked(const QString& who, const Joined& row);

// Throws MergeRefused for a plan that is refused, or another one than was seen.
void checkPlan(const MergePlan& plan, const MergeChoices& choices);

// The value of that column, once the two rows are one.
QJsonValue valueOf(jet::Connection& bdp, const QString& table, const QString& column, const QJsonObject& kept,
                   const QJsonObject& other, const Sides& sides);

std::optional<Row> firstRow(const Recording& recording, const QString& table, const QJsonObject& having);

// Husband and wife of a family, by its rows of `familias`.
QSet<qint64> membersOf(const Recording& recording, qint64 family);

// Why the two families can't be one.
QStringList joinRefusals(const Recording& recording, qint64 kept, qint64 other);
QStringList toldApartRefusals(jet::Connection& bdp, qint64 kept, qint64 other); // of families

// Precondition: there are no refusals of joinRefusals(). `following`: as in types.h; whoever calls it settles them.
// Gives the differences; adds to the refusals of the moving.
QList<Difference> joinInto(Moving& moving, qint64 kept, qint64 other, const Sides& sides, QList<qint64>& following);

// Families with these people, or of which they are children: their types may follow.
QList<qint64> familiesAround(const Recording& recording, const QList<qint64>& people);

inline constexpr auto copyIsMade = "Antes de juntar, o programa guarda na pasta «copias» a cópia de hoje da BDP, se "
                                   "ainda não a há, ou diz porque não.";

} // namespace study::linkage
