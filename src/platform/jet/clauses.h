// Where the clauses of a select stand among its words.
#pragma once

#include "platform/jet/tokens.h"

#include <algorithm>
#include <initializer_list>

namespace jet {

inline bool isAny(const Token& token, std::initializer_list<const char*> words)
{
    return std::any_of(words.begin(), words.end(), [&](const char* word) { return token.is(word); });
}

// The place of each clause's keyword; -1 where the select has none. What stands between parentheses isn't looked at.
struct Clauses
{
    // The select whose first word is tokens[begin] and whose end is at tokens[last].
    Clauses(const Tokens& tokens, int begin, int last);

    int from = -1;
    int where = -1;
    int group = -1;
    int having = -1;
    int order = -1;
    int other = -1; // "union" or "limit"
    int end;

    bool grouped() const { return group >= 0 || having >= 0 || other >= 0; }
    int endOf(int clause) const; // where the next one begins
};

} // namespace jet
