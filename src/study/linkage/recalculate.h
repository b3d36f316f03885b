// Types of people and families that are written by what is known of them: one step, which can be taken back.
#pragma once

#include "platform/jet/connection.h"

#include <QList>
#include <QString>

namespace study::linkage {

// A code of TipIn or TipFa in place of another.
struct NewType
{
    bool isFamily = false;
    qint64 number = 0;
    QString before = {}; // "" for none
    QString after = {};

    bool operator==(const NewType&) const = default;
};

struct TypesWritten
{
    qint64 decision = 0; // 0: nothing was written
    int people = 0, families = 0;
    QList<NewType> left = {}; // which were altered or have gone since: they stay as they are

    bool operator==(const TypesWritten&) const = default;
};

// Writes them in one transaction, with one decision of kind TypesRecalculated, where the stored type is still the one
// before. Throws jet::Error; nothing is written then.
TypesWritten writeTypes(jet::Connection& bdp, const QList<NewType>& types);

// The last decision of that kind that stands; 0 for none. Throws jet::Error.
qint64 lastTypesWritten(jet::Connection& bdp);

} // namespace study::linkage
