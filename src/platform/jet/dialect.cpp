#include "platform/jet/dialect.h"

#include "platform/jet/clauses.h"
#include "platform/jet/errors.h"
#include "platform/jet/functions.h"
#include "platform/jet/rewriter.h"
#include "platform/jet/select.h"

#include <QCache>

#include <algorithm>

namespace jet {

namespace {

// Tables and columns.

// "name type(width) rest", from begin to end, as the engine's declaration.
void rewriteColumn(Tokens& t, const QString& table, int begin, int end, Place place)
{
    if (end - begin < 2 || !t[begin].isName() || t[begin + 1].kind != Token::Word)
        throw invalidStatement(
            QStringLiteral("Erro de sintaxe na definição de uma coluna da tabela \"%1\".").arg(table));
    Token& type = t[begin + 1];
    QString width;
    if (begin + 2 < end && t[begin + 2].is("(")) {
        width = join(t, begin + 3, t[begin + 2].mate);
        for (int i = begin + 2; i <= t[begin + 2].mate; ++i)
            t[i].sql.clear();
    }
    type.sql = columnDeclaration(table, t[begin].text, type.text, width, place);
}

bool isConstraint(const Token& token)
{
    return token.is("constraint") || token.is("primary") || token.is("unique") || token.is("foreign");
}

// create table NAME ( items )
void rewriteCreateTable(Tokens& t)
{
    if (t.size() < 4 || !t[2].isName() || !t[3].is("("))
        throw invalidStatement(QStringLiteral("Erro de sintaxe na instrução CREATE TABLE."));
    const int end = t[3].mate;
    for (int begin = 4; begin < end;) {
        int next = begin;
        while (next < end && !t[next].is(","))
            next = t[next].is("(") ? t[next].mate + 1 : next + 1;
        if (!isConstraint(t[begin])) rewriteColumn(t, t[2].text, begin, next, Place::NewTable);
        begin = next + 1;
    }
}

// alter table NAME add column NAME type
void rewriteAlterTable(Tokens& t)
{
    const auto is = [&](size_t at, const char* word) { return at < t.size() && t[at].is(word); };
    if (!is(3, "add")) return;
    rewriteColumn(t, t[2].text, is(4, "column") ? 5 : 4, int(t.size()), Place::OldTable);
}

// The words of one statement that the connection runs.
Tokens statementTokens(const QString& statement, Language language)
{
    static constexpr auto verbs = {"select", "insert", "update", "delete", "create", "alter", "drop"};
    Tokens t = tokenize(statement, language);
    if (std::none_of(verbs.begin(), verbs.end(), [&](const char* verb) { return t[0].is(verb); }))
        throw invalidStatement(QStringLiteral("Instrução desconhecida: começa por \"%1\".").arg(t[0].text));
    return t;
}

Tokens translated(const QString& statement, sqlite3* database, PreparedStatements* prepared)
{
    Tokens t = statementTokens(statement, Language::Dialect);
    const bool onTable = t.size() > 1 && t[1].is("table");
    if (onTable && t[0].is("create"))
        rewriteCreateTable(t);
    else if (onTable && t[0].is("alter"))
        rewriteAlterTable(t);
    else
        Rewriter(t, database, prepared).run();
    return t;
}

// The select as a whole.

bool isAggregate(const Tokens& t, int at, int end)
{
    static constexpr auto names = {"count", "min", "max", "sum", "avg", "first", "total", "group_concat"};
    return at + 1 < end && t[at + 1].is("(") &&
           std::any_of(names.begin(), names.end(), [&](const char* name) { return t[at].is(name); });
}

// The keys and each row are read by statements of their own, and only that of the keys gets the values.
bool valuesOutsideWhere(const Tokens& t, const Clauses& clauses)
{
    const int begin = clauses.where > 0 ? clauses.where : clauses.end;
    const int end = clauses.where > 0 ? clauses.endOf(clauses.where) : clauses.end;
    for (int i = 0; i < clauses.end; ++i)
        if ((i < begin || i >= end) && t[i].is("?")) return true;
    return false;
}

void readSimpleSelect(Select& select, const Tokens& t)
{
    const Clauses clauses(t, 0, int(t.size()));
    if (valuesOutsideWhere(t, clauses)) return;
    if (clauses.from < 2 || clauses.grouped() || t[1].is("distinct") || t[1].is("all")) return;
    for (int i = 1; i < clauses.from; ++i)
        if (isAggregate(t, i, clauses.from)) return;
    const int tablesEnd = clauses.endOf(clauses.from);
    const int table = clauses.from + 1;
    int length = tablesEnd - table;
    const bool named = length == 3 && t[table + 1].is("as");
    if (length < 1 || (length > 2 && !named) ||
        !std::all_of(&t[table], &t[table] + length, [](const Token& token) { return token.isName(); }))
        return;
    select.simple = true;
    select.table = t[table].text;
    select.alias = t[tablesEnd - 1].text;
    select.list = join(t, 1, clauses.from);
    select.from = join(t, table, tablesEnd);
    if (clauses.where > 0) select.where = join(t, clauses.where + 1, clauses.endOf(clauses.where));
    if (clauses.order > 0) select.order = join(t, clauses.order + 2, clauses.end);
}

Select analysed(const Tokens& tokens)
{
    if (!tokens[0].is("select"))
        throw invalidStatement(
            QStringLiteral("A instrução não é uma consulta: começa por \"%1\".").arg(tokens[0].text));
    Select select;
    select.sql = join(tokens, 0, int(tokens.size()));
    readSimpleSelect(select, tokens);
    return select;
}

} // namespace

QString translate(const QString& statement, sqlite3* database, PreparedStatements* prepared)
{
    const Tokens tokens = translated(statement, database, prepared);
    return join(tokens, 0, int(tokens.size()));
}

QString checked(const NativeSql& statement)
{
    const Tokens tokens = statementTokens(statement.sql, Language::Native);
    return join(tokens, 0, int(tokens.size()));
}

Select analyseSelect(const QString& statement, sqlite3* database, PreparedStatements* prepared)
{
    return analysed(translated(statement, database, prepared));
}

// The text says it all, and the cards send the same ones again and again.
Select analyseSelect(const NativeSql& statement)
{
    constexpr qsizetype lettersKept = 100'000;
    static QCache<QString, Select> known(lettersKept);
    Select select;
    if (const Select* before = known.object(statement.sql)) {
        select = *before;
    } else {
        select = analysed(statementTokens(statement.sql, Language::Native));
        known.insert(statement.sql, new Select(select), statement.sql.size());
    }
    select.values = statement.values;
    return select;
}

QString orderCollation(Type type)
{
    return type == Type::Text ? QLatin1String(" collate ") + QLatin1String(functions::alphabetical) : QString();
}

} // namespace jet
