// Rewrites the words of a select, insert, update or delete for the engine.
#pragma once

#include "platform/jet/columns.h"
#include "platform/jet/tokens.h"

#include <QList>
#include <QStringList>

#include <optional>

struct sqlite3;

namespace jet {

class PreparedStatements;

class Rewriter
{
public:
    // `prepared`: as in translate().
    Rewriter(Tokens& tokens, sqlite3* database, PreparedStatements* prepared)
        : t_(tokens), database_(database), prepared_(prepared)
    {
    }

    // Gives each token the SQL that the engine is to read in its place. Throws Error (invalidStatement).
    void run();

private:
    // One select, or the whole statement, with the tables that its columns can belong to.
    struct Scope
    {
        struct Table
        {
            QString alias;
            QString name;
        };
        const Scope* outer = nullptr;
        int begin = 0;
        int end = 0;
        QList<Table> tables;
    };

    // Tokens [begin, end) that stand on one side of an operator.
    struct Operand
    {
        int begin;
        int end;
        int size() const { return end - begin; }
    };

    // Where a name of a statement comes from.
    struct Column
    {
        Scope::Table table;
        QString name;
        QString declared; // its type
    };

    void flattenRightJoins();
    QStringList comparedTables(int at) const;
    void rewrite(int begin, int end, const Scope* outer);
    void collectTables(Scope& scope);
    int readTable(Scope& scope, int at);
    void rewriteOrder(const Scope& scope, int begin, int end);
    void rewriteComparison(const Scope& scope, int at, bool assigns);
    void rewriteBetween(const Scope& scope, int at);
    void rewriteIn(const Scope& scope, int at);

    Operand leftOf(int at, const Scope& scope) const;
    Operand rightOf(int at, const Scope& scope) const;
    Operand aliased(Operand name, const Scope& scope) const;
    Operand aggregated(Operand operand) const;
    Type typeOf(Operand operand, const Scope& scope) const;
    bool isText(Operand operand) const;
    void readAsDate(Operand operand);
    void compareBeyondAscii(Operand operand);
    bool opensSelect(int at) const;
    std::optional<Column> columnOf(Operand operand, const Scope& scope) const;

    // What spares the engine a walk through a whole table, and leaves the rows and their order as they are.
    void narrowLike(const Scope& scope, int at);
    bool isOwnCondition(const Scope& scope, Operand operand) const;
    bool isAllElse(const Scope& scope, int at, const Column& named) const;
    void narrowGroups(const Scope& scope);
    bool areColumnsOf(const Scope::Table& table, const Scope& scope, Operand list) const;
    Operand aggregateBehind(int having, int end) const;
    QString dateAt(int at) const;
    bool isOneDate(Operand condition) const;
    bool isNarrow(const QString& table, const QString& condition, const QStringList& values = {}) const;
    bool isTrue(const QString& question, const QStringList& values) const;

    Tokens& t_;
    sqlite3* database_;
    PreparedStatements* prepared_;
};

// Whether a word ends the list of tables, of conditions or of columns before it.
bool isClause(const Token& token);

} // namespace jet
