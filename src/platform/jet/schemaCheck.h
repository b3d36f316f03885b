// What the schema of a file may hold: a BDP is a file that anybody may have sent.
#pragma once

#include <QString>
#include <QStringList>

struct sqlite3;

namespace jet {

// The tables that the program works on: those of the names, blind to their case, and all whose name begins with the
// prefix. Without a name, every table is one of them.
struct OwnTables
{
    QStringList names;
    QString prefix; // "": none

    bool contains(const QString& table) const;
};

// Throws engineFailure, naming what it found, where the schema of the file holds
//   a trigger, a view or a virtual table that touches one of the own tables by its name, its table or its text,
//   an own table with a calculated column, or whose rows have no number, or with a column that hides it,
//   a rule of an own table that alters or leaves out rows where another one is broken (on conflict),
//   a check, a default or an index of an own table that calls more than a few functions of the engine.
// What touches no own table is left alone. Nothing is written.
void requireHarmlessSchema(sqlite3* database, const QString& path, const OwnTables& own);

} // namespace jet
