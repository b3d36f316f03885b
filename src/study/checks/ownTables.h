// The tables of the checks (docs/bdp.md), made when first needed.
#pragma once

#include "platform/jet/connection.h"

#include <QStringList>

namespace study::checks {

struct OwnTable
{
    QString name;
    QStringList columns;
    QString statement; // that makes it
};

const OwnTable& seenTable();    // the cases that were put aside
const OwnTable& settingTable(); // what is set otherwise than standard

// Whether the BDP has it. Throws jet::Error, in Portuguese, where something else stands under its name.
bool exists(const jet::Connection& bdp, const OwnTable& table);
// Makes it where it isn't there. Throws as exists().
void make(jet::Connection& bdp, const OwnTable& table);

} // namespace study::checks
