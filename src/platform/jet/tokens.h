// The words of a statement.
#pragma once

#include <QString>

#include <vector>

namespace jet {

struct Token
{
    enum Kind
    {
        Word,
        Name,
        Text,
        Date,
        Number,
        Symbol
    }; // a Name stands between brackets

    Kind kind;
    QString text;     // without quotes, brackets or # signs, with doubled quotes read as one
    QString sql;      // what the engine is to read in its place
    bool blankBefore; // a blank or a line break stood before it
    int mate = -1;    // of a parenthesis: the index of its partner

    // Of a word or a symbol, as small letters: its first one, which tells most words apart. 0 for all else.
    char16_t first = 0;

    // A word or a symbol, case-blind. `word` is in small letters of ASCII.
    bool is(const char* word) const { return first == static_cast<char16_t>(*word) && reads(word); }
    bool isName() const { return kind == Word || kind == Name; }

private:
    bool reads(const char* word) const;
};

using Tokens = std::vector<Token>;

enum class Language
{
    Dialect,
    Native // the engine's own: a name may stand between double quotes, a ? stands for a value, # begins no date
};

// Throws Error (invalidStatement) for an unfinished text, name or date, for a date that is none, for parentheses that
// don't pair, for an empty statement and for text behind the first one.
Tokens tokenize(const QString& statement, Language language = Language::Dialect);

// The engine's SQL of the tokens from begin to end.
QString join(const Tokens& tokens, int begin, int end);

// A text between the engine's quotes.
QString textLiteral(const QString& text);

} // namespace jet
