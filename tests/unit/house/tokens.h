// The words of a C++ source, for the guards that read it.
#pragma once

#include <QString>

#include <vector>

namespace house {

struct Token
{
    enum Kind
    {
        Text, // a string literal; those that the compiler joins are one, also within QString(), QStringLiteral() ...
        Word,
        Symbol,
        Other // a number or a character
    };
    Kind kind;
    QString text; // a literal without its quotes, as the source spells it
    int line;
    int mate = -1; // of a bracket: the index of its partner

    bool is(const char* word) const { return kind != Text && text == QLatin1String(word); }
};

using Tokens = std::vector<Token>;

Tokens tokensOf(const QString& source); // without comments and directives

} // namespace house
