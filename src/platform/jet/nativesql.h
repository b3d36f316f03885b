// A statement in the engine's own SQL, with its values beside it.
#pragma once

#include <QString>
#include <QVariant>

#include <utility>

namespace jet {

// The engine reads it as it stands: nothing of the dialect (dialect.h) is translated. A ? stands for each value, which
// never becomes part of the text, so a quote in it is a letter like any other.
//
// One statement without comments, beginning with the same words as those of the dialect. A value is null, a bool, a
// whole number, a double, a QString or a QDate, which the engine gets as date columns keep it.
// The tables compare texts blind to the case of ASCII letters only, and order them by their code points. Where the
// dialect's rules are wanted, "collate orv_nocase" compares blind to the case of every letter, and "collate
// orv_alphabetical" orders as a Portuguese dictionary does. like, format(), cint() and first() are those of the
// dialect.
struct NativeSql
{
    explicit NativeSql(QString text, QVariantList bound = {}) : sql(std::move(text)), values(std::move(bound)) {}

    QString sql;
    // Precondition of a run: as many as there are ?; Error (invalidStatement) otherwise, and nothing is run.
    QVariantList values;
};

} // namespace jet
