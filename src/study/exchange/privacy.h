// Who may be alive.
#pragma once

#include "platform/jet/connection.h"

#include <QDate>
#include <QSet>

namespace study::exchange {

// The people without a death who were born behind the day, and those who may have been: of whom no birth is told, and
// no act until that day, of their own or of somebody else, names them. Where nothing in the BDP is of a time behind the
// day, the latter are none: a person without any date is as old as the books.
// Precondition: the day is valid. Throws jet::Error.
QSet<qint64> peopleWhoMayBeAlive(const jet::Connection& bdp, QDate bornBehind);

} // namespace study::exchange
