// Which acts a BDP has already.
#pragma once

#include "platform/jet/connection.h"
#include "study/acts/register.h"

#include <QSet>
#include <QString>

namespace study {

// Those that it has when this is made. Throws jet::Error.
class KnownActs
{
public:
    explicit KnownActs(jet::Connection& bdp);

    // By its kind and book, and its id, or its number within a year; by its folio, date and subjects where it has
    // neither, or no book that the number could be of.
    bool has(const Act& act) const;

    // The act as a list shows it.
    static ActLine lineOf(const Act& act);

private:
    QSet<QString> keys_;
};

} // namespace study
