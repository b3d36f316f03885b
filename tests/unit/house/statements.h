// A reader of the sources that tells where a statement is put together with something that may change it.
#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

namespace house {

// What may stand in a statement beside its own words.
struct Rules
{
    QStringList makers;             // functions that make a text or a number fit for a statement
    QStringList statements;         // functions that give a whole statement, and are read where they make it
    QMap<QString, QStringList> own; // by file: names that are neither stored nor typed, as the source spells them
};

// The findings in one file of source, as "file:line: text". Read are
// - the expressions in which a text like SQL stands: what is joined to it must be a text of the source, or made by one
//   of the makers, by way of a constant of the file or not;
// - the arguments by which a statement, a criterion or an order reaches the engine: the same, or a whole statement of
//   `statements`.
QStringList findings(const QString& file, const QString& source, const Rules& rules);

} // namespace house
