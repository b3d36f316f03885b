// The types of people and families, where they follow from what is known, as the cards have them follow.
#pragma once

#include "study/linkage/columns.h"
#include "study/linkage/decisions.h"

#include <QMap>
#include <QString>

namespace study::linkage {

// By the table of the family's types, with the changes of the recording.
QString familyType(const Recording& recording, qint64 family);

// Whether the type that is stored says what follows from the dates: so it isn't somebody's own choice. A family without
// a type has none afterwards, either: the card gives it none.
bool followsDates(const Recording& recording, qint64 family);

// Writes what follows by now; tells of it in a sentence, "" where it is the same.
QString settleType(Recording& recording, qint64 family);

// Both join the types of two records, in `row`, to which all else is joined already. A type that somebody chose stays,
// where the other has none; where both have one, and not the same, that is asked. `following`: the families whose types
// aren't anybody's choice; `kept` is among them afterwards, or not, and `other` isn't.
void joinFamilyTypes(Joined& row, jet::Connection& bdp, const QJsonObject& kept, const QJsonObject& other,
                     const Sides& sides, QList<qint64>& following);
void joinPersonTypes(Joined& row, jet::Connection& bdp, const QJsonObject& kept, const QJsonObject& other,
                     const Sides& sides);

} // namespace study::linkage
