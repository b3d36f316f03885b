// The one place that turns acts into rows of the cards' tables, and takes them back.
#pragma once

#include "study/acts/plan.h"

#include <stdexcept>

namespace study {

struct Refused : std::runtime_error
{
    explicit Refused(QList<Objection> why);
    QList<Objection> objections;
};

struct Stored
{
    qint64 act = 0; // its number in estudo_acto
    Plan plan;      // as it was written
};

// Plans the act on the BDP as it is at this moment, and writes all of it, with the act itself and what was concluded,
// in one transaction; or nothing. Throws Refused where an objection isn't overruled, jet::Error where the store fails.
// Within a transaction of the caller it is a part of that one.
Stored storeAct(jet::Connection& bdp, const Act& act, const Conclusions& conclusions);

// "" where the act can be undone, or why not, in Portuguese: a row that it wrote was changed since, has gone, or
// carries what came later (a child, an assistance, a later act), or tells what a later act tells, too.
QString whyNotUndone(jet::Connection& bdp, qint64 act);

// Takes the act and the rows that it wrote away, and puts altered columns back, in one transaction. Returns "" or why
// nothing was changed. Throws jet::Error; nothing is changed then.
QString undoAct(jet::Connection& bdp, qint64 act);

} // namespace study
