// The engine has no statistics of a file, and goes through all people where it cannot see that few come into question.
#include "platform/jet/rewriter.h"

#include "platform/jet/beginning.h"
#include "platform/jet/clauses.h"
#include "platform/jet/columns.h"
#include "platform/jet/prepared.h"

#include <sqlite3.h>

#include <utility>

namespace jet {

namespace {

// A row that is looked up costs as much as some twenty that are read one behind the other.
constexpr qint64 lookUp = 20;

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

// Whether so few rows of the table meet the condition, with the values of its ?, that they are quicker looked up one by
// one.
bool Rewriter::isNarrow(const QString& table, const QString& condition, const QStringList& values) const
{
    const QString from = QStringLiteral(" from ") + quoted(table);
    const QString most = QStringLiteral("(select coalesce(max(rowid), 0) / %1%2)").arg(QString::number(lookUp), from);
    return isTrue(QStringLiteral("select (select count(*) from (select 1%1 where %2 limit 1 + %3)) <= %3")
                      .arg(from, condition, most),
                  values);
}

// False also where the engine doesn't take the question.
bool Rewriter::isTrue(const QString& question, const QStringList& values) const
{
    Prepared asked = prepared_ ? prepared_->take(question) : Prepared();
    const QByteArray utf8 = asked.statement ? QByteArray() : question.toUtf8();
    if (!asked.statement && sqlite3_prepare_v3(database_, utf8.constData(), int(utf8.size()) + 1,
                                               SQLITE_PREPARE_PERSISTENT, &asked.statement, nullptr) != SQLITE_OK)
        return false;
    for (int i = 0; i < values.size(); ++i) {
        const QByteArray value = values[i].toUtf8();
        sqlite3_bind_text(asked.statement, i + 1, value.constData(), int(value.size()), SQLITE_TRANSIENT);
    }
    const bool result = sqlite3_step(asked.statement) == SQLITE_ROW && sqlite3_column_int(asked.statement, 0) != 0;
    if (prepared_ && !values.isEmpty())
        prepared_->keep(question, std::move(asked));
    else
        sqlite3_finalize(asked.statement);
    return result;
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
    const bool one = dates.size() == 2;
    const QString asked = quoted(date->name) + QLatin1String(one ? " = ?" : " between ? and ?");
    const QStringList values =
        one ? QStringList{dateAt(dates.begin + 1)} : QStringList{dateAt(dates.begin + 1), dateAt(dates.begin + 3)};
    if (!isNarrow(date->table.name, asked, values)) return;
    const QString keySql = join(t_, key.begin, key.end);
    const QString rows =
        QStringLiteral(" from %1 where (%2) and %3 ")
            .arg(join(t_, from + 1, where), join(t_, where + 1, group), join(t_, value.begin, value.end));
    QString candidates = QLatin1String("select ") + keySql + rows + condition;
    if (t_[having + 1].is("min") && areColumnsOf(named->table, scope, {group + 2, having})) {
        // All that is joined with one row is of one group, so an earlier date leaves the row out: the first that is
        // met.
        const QString row = quoted(named->table.alias) + QLatin1String(".rowid");
        candidates = QStringLiteral("select orv_one.k from (select %1 as k, %2 as r%3%4) as orv_one where not exists "
                                    "(select 1%3< %5 and %2 = orv_one.r)")
                         .arg(keySql, row, rows, condition, t_[dates.begin + 1].sql);
    }
    t_[where + 1].sql.prepend(u'(');
    t_[group - 1].sql += QStringLiteral(") and %1 in (%2)").arg(keySql, candidates);
}

// Whether a list of terms names columns of that table alone.
bool Rewriter::areColumnsOf(const Scope::Table& table, const Scope& scope, Operand list) const
{
    for (int begin = list.begin; begin < list.end;) {
        int end = begin;
        while (end < list.end && !t_[end].is(","))
            ++end;
        const auto named = columnOf({begin, end}, scope);
        if (!named || named->table.alias.compare(table.alias, Qt::CaseInsensitive) != 0) return false;
        if (aliased({begin, end}, scope).begin != begin) return false;
        begin = end + 1;
    }
    return true;
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

// The date as it is stored.
QString Rewriter::dateAt(int at) const
{
    return t_[at].sql.mid(1, t_[at].sql.size() - 2);
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
