// A select taken to pieces, for the recordset.
#pragma once

#include "platform/jet/columns.h"
#include "platform/jet/nativesql.h"
#include "platform/jet/tokens.h"

#include <QString>

#include <optional>

struct sqlite3;

namespace jet {

class PreparedStatements;

// The clauses of a select in the engine's own SQL, each without its keyword; "" where it has none.
struct Select
{
    QString sql;         // the whole statement
    QVariantList values; // of its ?; where it is simple, they all stand in `where`

    // Where it reads one table, row by row, without groups, "distinct" or aggregates.
    bool simple = false;
    QString table;
    QString alias; // what its columns are qualified with; the table's name where it has no alias
    QString list;
    QString from;
    QString where;
    QString order;
};

// Throws Error (invalidStatement) as translate() does, and for a statement that is no select.
Select analyseSelect(const QString& statement, sqlite3* database, PreparedStatements* prepared = nullptr);
Select analyseSelect(const NativeSql& statement);

// "field operator value" of Recordset::find(). Throws Error (invalidStatement) for any other form.
class Criterion
{
public:
    explicit Criterion(const QString& text);

    const QString& field() const { return field_; }
    // "operator value" in the engine's SQL, fit for a field of this type. Throws Error (typeMismatch).
    QString condition(Type type) const;
    // The number of "field = number"; nothing for any other one.
    std::optional<qint64> wholeNumber() const;

private:
    Tokens tokens_;
    size_t operator_;
    size_t value_;
    QString field_;
};

// " collate ..." that orders a column of this type as the dialect wants it; "" where the column's own order does.
QString orderCollation(Type type);

} // namespace jet
