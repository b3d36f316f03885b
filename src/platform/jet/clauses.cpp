#include "platform/jet/clauses.h"

#include <algorithm>

namespace jet {

Clauses::Clauses(const Tokens& tokens, int begin, int last) : end(last)
{
    const auto note = [&](int i, const char* word, int& clause) {
        if (tokens[i].is(word)) clause = i;
    };
    for (int i = begin + 1; i < end; i = tokens[i].is("(") ? tokens[i].mate + 1 : i + 1) {
        note(i, "from", from);
        note(i, "where", where);
        note(i, "group", group);
        note(i, "having", having);
        note(i, "order", order);
        note(i, "union", other);
        note(i, "limit", other);
    }
}

int Clauses::endOf(int clause) const
{
    int result = end;
    for (const int next : {from, where, group, having, order, other})
        if (next > clause) result = std::min(result, next);
    return result;
}

} // namespace jet
