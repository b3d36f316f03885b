// The engine has no statistics of a file, and goes through all people where it cannot see that few come into question.
#include "platform/jet/rewriter.h"

#include "platform/jet/beginning.h"
#include "platform/jet/clauses.h"
#include "platform/jet/columns.h"

#include <sqlite3.h>

namespace jet {

namespace {

// A row that is looked up costs as much as some twenty that are read one behind the other.
constexpr qint64 lookUp = 20;

std::optional<qint64> number(sqlite3* database, const QString& sql)
{
    const QByteArray utf8 = sql.toUtf8();
    sqlite3_stmt* statement = nullptr;
    std::optional<qint64> result;
    if (sqlite3_prepare_v2(database, utf8.constData(), int(utf8.size()), &statement, nullptr) == SQLITE_OK &&
        sqlite3_step(statement) == SQLITE_ROW)
        result = sqlite3_column_int64(statement, 0);
    sqlite3_finalize(statement);
    return result;
}

// Whether the engine keeps all but a blob as a text in it: in another column, a text may have become a number.
bool keepsTexts(const QString& declared)
{
    const auto has = [&](const char* word) { return declared.contains(QLatin1String(word), Qt::CaseInsensitive); };
    return !has("int") && (has("char") || has("clob") || has("text"));
}

bool isRequired(sqlite3* database, const QString& table, const QString& column)
{
    int required = 0;
    return sqlite3_table_column_metadata(database, nullptr, table.toUtf8(), column.toUtf8(), nullptr, nullptr,
                                         &required, nullptr, nullptr) == SQLITE_OK &&
           required != 0;
}

} // namespace

// Whether so few rows of the table meet the condition that they are quicker looked up one by one.
bool Rewriter::isNarrow(const QString& table, const QString& condition) const
{
    const QString from = QStringLiteral(" from ") + quoted(table);
    const qint64 most = number(database_, QStringLiteral("select max(rowid)") + from).value_or(0) / lookUp;
    const auto found = number(database_, QStringLiteral("select count(*) from (select 1%1 where %2 limit %3)")
                                             .arg(from, condition, QString::number(most + 1)));
    return found && *found <= most;
}

// "like 'Maria%'" also says where in the index the names stand. Where nothing else is read, the index alone gives the
// rows, in its order, with the range as without it. Otherwise those of the range are put into the order of the table.
void Rewriter::narrowLike(const Scope& scope, int at)
{
    const Operand left = leftOf(at, scope);
    const Operand right = rightOf(at, scope);
    if (!isText(right) || right.size() != 1 || !isOwnCondition(scope, {left.begin, right.end})) return;
    const auto named = columnOf(left, scope);
    if (!named || !keepsTexts(named->declared)) return;
    const QString name = quoted(named->name);
    const QString range = beginningCondition(name, t_[right.begin].text);
    if (range.isEmpty()) return;
    if (t_[left.begin - 1].is("where") && isAllElse(scope, right.end, *named)) {
        t_[right.begin].sql += QStringLiteral(" and (%1)").arg(range);
        return;
    }
    if (!isNarrow(named->table.name, range)) return;
    t_[left.begin].sql =
        QStringLiteral("%1.rowid in (select rowid from %2 where %3 like %4 and (%5))")
            .arg(quoted(named->table.alias), quoted(named->table.name), name, t_[right.begin].sql, range);
    for (int i = left.begin + 1; i < right.end; ++i)
        t_[i].sql.clear();
}

// Whether a select of one table leaves out each row that does not meet what stands there. Not where it looks for a
// range of another column: which of two ranges the engine takes shows in the order of rows that are equal to it.
bool Rewriter::isOwnCondition(const Scope& scope, Operand operand) const
{
    if (scope.tables.size() != 1 || operand.begin <= scope.begin || !t_[scope.begin].is("select")) return false;
    const Clauses clauses(t_, scope.begin, scope.end);
    if (clauses.grouped() || clauses.where < 0) return false;
    bool stands = false;
    for (int i = clauses.where; i < clauses.endOf(clauses.where); i = t_[i].is("(") ? t_[i].mate + 1 : i + 1) {
        stands = stands || i == operand.begin;
        if (isAny(t_[i], {"or", "between", "<", ">", "<=", ">="})) return false;
    }
    return stands && isAny(t_[operand.begin - 1], {"where", "and"}) &&
           (operand.end == scope.end || isAny(t_[operand.end], {"and", "order"}));
}

// Whether from there on the outermost select has nothing but an order by the column.
bool Rewriter::isAllElse(const Scope& scope, int at, const Column& named) const
{
    if (scope.outer) return false;
    if (at == scope.end) return true;
    if (!t_[at].is("order")) return false;
    const Operand by = rightOf(at + 1, scope);
    const auto ordered = by.end == scope.end ? columnOf(by, scope) : std::nullopt;
    return ordered && ordered->name.compare(named.name, Qt::CaseInsensitive) == 0;
}

// "group by person having first(date) = #D#": of the people with a D at all, who are looked up by it, the groups are
// made as they would be of everybody.
void Rewriter::narrowGroups(const Scope& scope)
{
    const Clauses clauses(t_, scope.begin, scope.end);
    const int from = clauses.from;
    const int where = clauses.where;
    const int group = clauses.group;
    const int having = clauses.having;
    const bool whole = from >= 0 && where > from + 1 && group > where + 1 && having > group + 2;
    if (!t_[scope.begin].is("select") || clauses.other >= 0 || !whole) return;
    const Operand value = aggregateBehind(having, clauses.endOf(having));
    const Operand dates{value.end + 1, clauses.endOf(having)};
    const auto date = value.size() > 0 ? columnOf(value, scope) : std::nullopt;
    if (!date || jet::typeOf(date->declared) != Type::Date || !isOneDate(dates)) return;
    const Operand key = rightOf(group + 1, scope);
    const auto named = columnOf(key, scope);
    if (!named || !isRequired(database_, named->table.name, named->name)) return; // null is in no list
    for (int i = from; i < where; ++i)
        if (isAny(t_[i], {"left", "right", "full"})) return; // there it may be, all the same

    const QString condition = join(t_, dates.begin, dates.end);
    if (!isNarrow(date->table.name, quoted(date->name) + u' ' + condition)) return;
    const QString keySql = join(t_, key.begin, key.end);
    const QString candidates = QStringLiteral("select %1 from %2 where (%3) and %4 %5")
                                   .arg(keySql, join(t_, from + 1, where), join(t_, where + 1, group),
                                        join(t_, value.begin, value.end), condition);
    t_[where + 1].sql.prepend(u'(');
    t_[group - 1].sql += QStringLiteral(") and %1 in (%2)").arg(keySql, candidates);
}

// What stands inside the aggregate behind "having"; nothing where something else stands there.
Rewriter::Operand Rewriter::aggregateBehind(int having, int end) const
{
    const int open = having + 2;
    if (open >= end || !t_[open].is("(")) return {having, having};
    const Operand value{having + 1, t_[open].mate + 1};
    const Operand inner = aggregated(value);
    return inner.begin > value.begin ? inner : Operand{having, having};
}

// "= #date#" or "between #date# and #date#".
bool Rewriter::isOneDate(Operand condition) const
{
    const auto is = [&](int at, Token::Kind kind) { return t_[condition.begin + at].kind == kind; };
    if (condition.size() == 2) return t_[condition.begin].is("=") && is(1, Token::Date);
    return condition.size() == 4 && t_[condition.begin].is("between") && is(1, Token::Date) &&
           t_[condition.begin + 2].is("and") && is(3, Token::Date);
}

} // namespace jet
