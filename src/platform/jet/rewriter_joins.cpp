#include "platform/jet/rewriter.h"

namespace jet {

// "left join (A right join B on a) on b" is the same as "left join B on b left join A on a", where a compares a column
// of A with one of B, and b doesn't look at A. The engine would fill a temporary table with the whole of the inner join
// at each run, and so take half a second for the children of one family among a million people.
void Rewriter::flattenRightJoins()
{
    for (int i = 0; i + 2 < int(t_.size()); ++i) {
        const int open = i + 2;
        const int close = t_[open].mate;
        if (!t_[i].is("left") || !t_[i + 1].is("join") || !t_[open].is("(") || close != open + 13) continue;
        const Token& inner = t_[open + 1];
        const Token& outer = t_[open + 4];
        if (!t_[open + 2].is("right") || !t_[open + 3].is("join") || !t_[open + 5].is("on")) continue;
        const auto ofInner = comparedTables(open + 6);
        const auto ofOuter =
            close + 1 < int(t_.size()) && t_[close + 1].is("on") ? comparedTables(close + 2) : QStringList();
        const QStringList both{inner.text.toLower(), outer.text.toLower()};
        if (ofInner.isEmpty() || ofOuter.isEmpty() || ofOuter.contains(both[0])) continue;
        if (ofInner != both && ofInner != QStringList{both[1], both[0]}) continue;
        t_[open].sql = QStringLiteral("%1 on %2 left join %3 on %4")
                           .arg(outer.sql, join(t_, close + 2, close + 9), inner.sql, join(t_, open + 6, close));
        for (int k = open + 1; k < close + 9; ++k)
            t_[k].sql.clear();
    }
}

// The tables, in lower case, of the comparison "table.column = table.column" at `at`; none where something else, or
// more than that, stands there.
QStringList Rewriter::comparedTables(int at) const
{
    const int end = at + 7;
    if (end > int(t_.size())) return {};
    for (int i = at; i < end; i += 2)
        if (!t_[i].isName()) return {};
    if (!t_[at + 1].is(".") || !t_[at + 3].is("=") || !t_[at + 5].is(".")) return {};
    if (end < int(t_.size()) && !t_[end].is(")") && !isClause(t_[end])) return {};
    return {t_[at].text.toLower(), t_[at + 4].text.toLower()};
}

} // namespace jet
