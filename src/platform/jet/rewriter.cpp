#include "platform/jet/rewriter.h"

#include "platform/jet/clauses.h"
#include "platform/jet/date.h"
#include "platform/jet/errors.h"
#include "platform/jet/functions.h"
#include "platform/jet/select.h"

#include <algorithm>

namespace jet {

namespace {

bool isComparison(const Token& token)
{
    return isAny(token, {"=", "<>", "<", ">", "<=", ">="});
}

bool isBeyondAscii(const QString& text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.unicode() > 127; });
}

} // namespace

bool isClause(const Token& token)
{
    return isAny(token, {"where", "group", "having", "order", "union", "on", "set", "values", "from", "limit"});
}

void Rewriter::run()
{
    rewrite(0, int(t_.size()), nullptr);
    flattenRightJoins();
}

bool Rewriter::opensSelect(int at) const
{
    return t_[at].is("(") && at + 1 < int(t_.size()) && t_[at + 1].is("select");
}

void Rewriter::rewrite(int begin, int end, const Scope* outer)
{
    Scope scope{outer, begin, end, {}};
    collectTables(scope);
    bool assigns = false;
    for (int i = begin; i < end; ++i) {
        const Token& token = t_[i];
        if (opensSelect(i)) {
            rewrite(i + 1, token.mate, &scope);
            i = token.mate;
        } else if (token.is("set")) {
            assigns = true;
        } else if (token.is("where")) {
            assigns = false;
        } else if (isComparison(token)) {
            rewriteComparison(scope, i, assigns);
        } else if (token.is("between")) {
            rewriteBetween(scope, i);
        } else if (token.is("in")) {
            rewriteIn(scope, i);
        } else if (token.is("like")) {
            narrowLike(scope, i);
        } else if (token.is("order") && i + 1 < end && t_[i + 1].is("by")) {
            rewriteOrder(scope, i + 2, end);
        } else if (isAny(token, {"true", "false"}) && !(i > begin && t_[i - 1].is("."))) {
            t_[i].sql = token.is("true") ? QStringLiteral("1") : QStringLiteral("0");
        }
    }
    if (!outer) narrowGroups(scope);
}

void Rewriter::collectTables(Scope& scope)
{
    bool inTables = false;
    for (int i = scope.begin; i < scope.end; ++i) {
        if (opensSelect(i)) {
            i = t_[i].mate;
            continue;
        }
        if (isAny(t_[i], {"from", "update", "into", "join"}))
            inTables = true;
        else if (isClause(t_[i]))
            inTables = false;
        const bool tableComesNext = isAny(t_[i], {"from", "update", "into", "join", ",", "("});
        if (inTables && tableComesNext && i + 1 < scope.end && t_[i + 1].isName()) i = readTable(scope, i + 1);
    }
}

// Returns the index of the last token of the table at `at`.
int Rewriter::readTable(Scope& scope, int at)
{
    static constexpr auto joins = {"inner", "left", "right", "outer", "join", "as", "select"};
    Scope::Table table{t_[at].text, t_[at].text};
    int last = at;
    if (last + 1 < scope.end && t_[last + 1].is("as")) ++last;
    if (last + 1 < scope.end && t_[last + 1].isName() && !isClause(t_[last + 1]) && !isAny(t_[last + 1], joins))
        table.alias = t_[++last].text;
    scope.tables << table;
    return last;
}

// The column that a name, or two with a point between them, stands for; none for anything else.
std::optional<Rewriter::Column> Rewriter::columnOf(Operand operand, const Scope& scope) const
{
    const auto [begin, end] = operand;
    const bool qualified = operand.size() == 3 && t_[begin + 1].is(".");
    if ((operand.size() != 1 && !qualified) || !t_[begin].isName() || !t_[end - 1].isName()) return {};
    const QString name = t_[end - 1].text;
    for (const Scope* s = &scope; s; s = s->outer)
        for (const Scope::Table& table : s->tables) {
            if (qualified && table.alias.compare(t_[begin].text, Qt::CaseInsensitive) != 0) continue;
            const QString declared = declaredType(database_, table.name, name);
            if (!declared.isEmpty()) return Column{table, name, declared};
        }
    return {};
}

Rewriter::Operand Rewriter::leftOf(int at, const Scope& scope) const
{
    int begin = at - 1;
    if (begin < scope.begin) return {at, at};
    if (t_[begin].is(")")) {
        begin = t_[begin].mate;
        if (begin > scope.begin && t_[begin - 1].kind == Token::Word) --begin;
    } else if (begin >= scope.begin + 2 && t_[begin].isName() && t_[begin - 1].is(".") && t_[begin - 2].isName()) {
        begin -= 2;
    }
    return {begin, at};
}

Rewriter::Operand Rewriter::rightOf(int at, const Scope& scope) const
{
    const int begin = at + 1;
    if (begin >= scope.end) return {begin, begin};
    int end = begin + 1;
    if (t_[begin].is("("))
        end = t_[begin].mate + 1;
    else if (t_[begin].isName() && end < scope.end && t_[end].is("("))
        end = t_[end].mate + 1;
    else if (t_[begin].isName() && end + 1 < scope.end && t_[end].is(".") && t_[end + 1].isName())
        end += 2;
    return {begin, end};
}

// What stands inside one of the aggregates that give a value of their column; anything else as it is.
Rewriter::Operand Rewriter::aggregated(Operand operand) const
{
    const auto [begin, end] = operand;
    const bool aggregate = operand.size() > 3 && isAny(t_[begin], {"min", "max", "first"}) && t_[begin + 1].is("(") &&
                           t_[begin + 1].mate == end - 1;
    return aggregate ? Operand{begin + 2, end - 1} : operand;
}

// The type of a column, also inside the aggregates that keep it.
Type Rewriter::typeOf(Operand operand, const Scope& scope) const
{
    const auto named = columnOf(aggregated(operand), scope);
    return named ? jet::typeOf(named->declared) : Type::Unknown;
}

// What the select list names so, where a name of the order stands for it.
Rewriter::Operand Rewriter::aliased(Operand name, const Scope& scope) const
{
    if (name.end - name.begin != 1 || !t_[name.begin].isName()) return name;
    for (int i = scope.begin + 1; i < scope.end && !t_[i].is("from"); ++i)
        if (t_[i - 1].is("as") && t_[i].isName() && t_[i].text.compare(t_[name.begin].text, Qt::CaseInsensitive) == 0)
            return leftOf(i - 1, scope);
    return name;
}

bool Rewriter::isText(Operand operand) const
{
    const auto [begin, end] = operand;
    if (end - begin == 1) return t_[begin].kind == Token::Text;
    return end - begin > 1 && t_[begin].is("format") && t_[begin + 1].is("(");
}

void Rewriter::readAsDate(Operand operand)
{
    Token& first = t_[operand.begin];
    if (operand.end - operand.begin > 1) {
        first.sql.prepend(QLatin1String(functions::comparedDate) + u'(');
        t_[operand.end - 1].sql += u')';
        return;
    }
    const auto date = comparedDate(first.text);
    if (!date) throw Error{number::typeMismatch, QStringLiteral("O texto '%1' não é uma data.").arg(first.text)};
    first.sql = textLiteral(*date);
}

void Rewriter::compareBeyondAscii(Operand operand)
{
    Token& literal = t_[operand.begin];
    if (operand.end - operand.begin == 1 && literal.kind == Token::Text && isBeyondAscii(literal.text))
        literal.sql += QLatin1String(" collate ") + QLatin1String(functions::caseBlind);
}

void Rewriter::rewriteComparison(const Scope& scope, int at, bool assigns)
{
    const Operand left = leftOf(at, scope);
    const Operand right = rightOf(at, scope);
    if (isText(right) && typeOf(left, scope) == Type::Date) return readAsDate(right);
    if (isText(left) && typeOf(right, scope) == Type::Date) return readAsDate(left);
    if (assigns) return;
    compareBeyondAscii(left);
    compareBeyondAscii(right);
}

void Rewriter::rewriteBetween(const Scope& scope, int at)
{
    const bool negated = at > scope.begin && t_[at - 1].is("not");
    const Operand low = rightOf(at, scope);
    if (low.end >= scope.end || !t_[low.end].is("and")) return;
    const Operand high = rightOf(low.end, scope);
    const bool date = typeOf(leftOf(negated ? at - 1 : at, scope), scope) == Type::Date;
    for (const Operand& limit : {low, high}) {
        if (date && isText(limit))
            readAsDate(limit);
        else
            compareBeyondAscii(limit);
    }
}

void Rewriter::rewriteIn(const Scope& scope, int at)
{
    if (at + 1 >= scope.end || !t_[at + 1].is("(") || opensSelect(at + 1)) return;
    const bool negated = at > scope.begin && t_[at - 1].is("not");
    const int word = negated ? at - 1 : at;
    const bool date = typeOf(leftOf(word, scope), scope) == Type::Date;
    bool beyondAscii = false;
    for (int i = at + 2; i < t_[at + 1].mate; ++i) {
        if (t_[i].kind != Token::Text) continue;
        if (date) readAsDate({i, i + 1});
        beyondAscii = beyondAscii || isBeyondAscii(t_[i].text);
    }
    if (!date && beyondAscii) // the list takes the collation of what stands before it
        t_[word].sql.prepend(QLatin1String("collate ") + QLatin1String(functions::caseBlind) + u' ');
}

void Rewriter::rewriteOrder(const Scope& scope, int begin, int end)
{
    for (int i = begin; i < end; ++i) {
        int last = i; // the end of this term
        while (last < end && !t_[last].is(","))
            last = t_[last].is("(") ? t_[last].mate + 1 : last + 1;
        const int column = isAny(t_[last - 1], {"asc", "desc"}) ? last - 1 : last;
        if (column > i) t_[column - 1].sql += orderCollation(typeOf(aliased({i, column}, scope), scope));
        i = last;
    }
}

} // namespace jet
