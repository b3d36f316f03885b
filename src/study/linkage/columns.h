// The columns of a record that belong together, and what becomes of two that are one.
#pragma once

#include "study/linkage/decisions.h"
#include "study/linkage/merge.h"

#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

#include <span>

namespace study::linkage {

enum class Shown
{
    Text,
    Name, // which may be marked as the researcher's own
    Number,
    Person, // a number, of which 0 is nobody
    Sex,    // of which "d" says nothing
    Mark,   // a box, which says nothing where it isn't ticked
    Date,   // with the flag that it is exact
    Code,
    Place // with its level; or of the level that `category` tells
};

struct ColumnGroup
{
    const char* column;
    const char* title;
    Shown shown = Shown::Text;
    const char* with = "";     // the column that belongs to it
    const char* category = ""; // of a code; a letter for a place
};
using ColumnGroups = std::span<const ColumnGroup>;

// Of individuo, familia, familias, assistente, residencia, passaporte: all columns of the schema but those of
// uncompared().
ColumnGroups groupsOf(const QString& table);

// What is no value of a row: keys, types and notes.
const QStringList& uncompared();

// The values as the card shows them. Throws jet::Error.
QString shown(jet::Connection& bdp, const ColumnGroup& group, const QJsonObject& row);

// Two rows of one table as one. Columns that the schema doesn't know are filled; the other's goes to its lost ones.
struct Joined
{
    QJsonObject set = {};    // on the kept one
    QStringList filled = {}; // "data de nascimento 03/02/1702": what the kept one lacked
    QList<Difference> differences = {};
    QStringList keptLost, otherLost = {}; // "data de nascimento 03/02/1702": values of each that weren't chosen
    QStringList unreadable = {};          // titles of values that would be lost, and that no note can hold
};
using Sides = QList<QPair<QString, Side>>; // by Difference::column
Joined joined(jet::Connection& bdp, const QString& table, const QJsonObject& kept, const QJsonObject& other,
              const Sides& sides = {});
Joined joined(jet::Connection& bdp, ColumnGroups groups, const QJsonObject& kept, const QJsonObject& other,
              const Sides& sides);

// Those whose column begins with it, without it; and their differences with it.
Sides sidesBelow(const Sides& sides, const QString& prefix);
QList<Difference> prefixed(QList<Difference> differences, const QString& prefix);

// Asks which of two values stays: `proposed`, where `sides` don't say. Sets nothing on the row.
Side ask(Joined& result, jet::Connection& bdp, const ColumnGroup& group, const QJsonObject& kept,
         const QJsonObject& other, Side proposed, const Sides& sides);

// Why nothing can be joined where a value would be lost that nobody can read.
QStringList whyNotRead(const Joined& joined);

// "Do nº 15, junto em 22/11/2026: data de nascimento 03/02/1702; sexo feminino", of "Do nº 15, junto"; "" where nothing
// was lost.
QString origin(const QString& of, const QStringList& lost);

// The notes with a paragraph behind them, which is left out where they hold it already.
QString withNote(const QString& notes, const QString& note);

inline constexpr int longestNotes = 65535; // characters that the field takes

} // namespace study::linkage
