// What stands in the BDPs of a folder.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

// A digest of each table's rows, in any order, and of the schema. What is made of the rest by itself isn't there, nor
// when a row was made.
using Content = QMap<QString, QByteArray>;
// The act in work, which is written whenever a field is left: a table of its own, known by whether it is there.
inline constexpr auto draftTable = "estudo_rascunho";
// By the path of each BDP, relative to the folder.
using Snapshot = QMap<QString, Content>;

// Reads every file of that suffix, below the folder too, through the engine's own VFS, past all that is recorded. One
// that can't be read, or that another connection is writing, keeps what `before` knows of it.
Snapshot snapshotOf(const QString& folder, const Snapshot& before = {});

// Of one file. Throws where it can't be read, or isn't sound.
struct Unreadable
{
    QString reason;
};
Content contentOf(const QString& path);

// What differs: the names of tables.
QString difference(const Content& a, const Content& b);
