// The runner's own look into a BDP: plain SQLite, nothing of the program's engine.
#pragma once

#include <QString>
#include <QStringList>

namespace Database {

// Both take one statement, open the file for it and close it again, and throw Failure with the engine's words.
void exec(const QString& file, const QString& statement);

// The rows of a select, the values joined by "|". Null is "null", a whole number has no decimal point.
QStringList rows(const QString& file, const QString& select);

} // namespace Database
