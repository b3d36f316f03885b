// What acts tell of the people and families that a deletion takes. The acts stay; their links are let go, as a number
// may be given to somebody else, and come back with the record.
#pragma once

#include "store/lixo.h"

#include <QJsonArray>

namespace lixo {

// Both do nothing in a BDP without acts. `linhas`: the rows that went with the deletion, as estudo_lixo keeps them.
// Precondition: in the transaction of the deletion, behind it. Throw Error.
void soltaDosActos(jet::Connection& bdp, qint64 eliminacao, const QJsonArray& linhas);
void ligaAosActos(jet::Connection& bdp, qint64 eliminacao); // in that of the return

} // namespace lixo
