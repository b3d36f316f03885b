// The wording and the numbers of the engine's errors, told once.
#pragma once

#include "platform/jet/error.h"

#include <QString>

struct sqlite3;

namespace jet {

// The error that the engine has just reported on `database` (null: it could not even be opened) with `code`; `file` is
// the path of the BDP.
Error engineError(sqlite3* database, int code, const QString& file);

// What a function of the connection hands to the engine, so that engineError() finds the number again.
QString markedMessage(long number, const QString& description);

Error invalidStatement(const QString& description);
Error noCurrentRow();
Error noSuchField(const QString& field);
Error recordsetClosed();
Error connectionClosed();

} // namespace jet
