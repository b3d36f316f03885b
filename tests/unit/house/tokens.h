// The words of a C++ source, for the guards that read it.
#pragma once

#include <QString>

#include <initializer_list>
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

// What every guard asks of the words of a source. An index beside them is none of what is asked for.
class TokenReader
{
protected:
    explicit TokenReader(const QString& source) : t_(tokensOf(source)) {}

    int count() const { return int(t_.size()); }
    bool is(int at, const char* word) const { return at >= 0 && at < count() && t_[at].is(word); }
    bool isAny(int at, std::initializer_list<const char*> words) const;
    bool opens(int at) const { return isAny(at, {"(", "[", "{"}); }
    bool closes(int at) const { return isAny(at, {")", "]", "}"}); }

    Tokens t_;
};

} // namespace house
