#include "house/tokens.h"

#include <QRegularExpression>

#include <algorithm>
#include <iterator>

namespace house {

namespace {

struct Pattern
{
    QRegularExpression form;
    enum Kind
    {
        Skipped,
        Literal,
        RawLiteral,
        Word,
        Symbol,
        Other
    } kind;
};

const std::vector<Pattern>& patterns()
{
    const auto anywhere = [](const char* form) {
        return QRegularExpression(form,
                                  QRegularExpression::DotMatchesEverythingOption | QRegularExpression::MultilineOption);
    };
    static const std::vector<Pattern> all{
        {anywhere(R"(\s+)"), Pattern::Skipped},
        {anywhere(R"(//[^\n]*)"), Pattern::Skipped},
        {anywhere(R"(/\*.*?\*/)"), Pattern::Skipped},
        {anywhere(R"(^[ \t]*#[^\n]*)"), Pattern::Skipped},
        {anywhere(R"re((?:u8|u|U|L)?R"([^(]*)\((.*?)\)\1")re"), Pattern::RawLiteral},
        {anywhere(R"re((?:u8|u|U|L)?"((?:[^"\\\n]|\\.)*)")re"), Pattern::Literal},
        {anywhere(R"re((?:u8|u|U|L)?'(?:[^'\\\n]|\\.)+')re"), Pattern::Other},
        {anywhere(R"([0-9][0-9a-zA-Z_.']*)"), Pattern::Other},
        {anywhere(R"([A-Za-z_]\w*)"), Pattern::Word},
        {anywhere(R"(::|->|\+=|-=|==|!=|<=>|<=|>=|<<|&&|\|\||\+\+|--|.)"), Pattern::Symbol},
    };
    return all;
}

Tokens read(const QString& source)
{
    Tokens tokens;
    int line = 1;
    for (qsizetype at = 0; at < source.size();) {
        for (const Pattern& pattern : patterns()) {
            // To look through the whole source for broken signs at each token would take seconds.
            const auto match = pattern.form.match(source, at, QRegularExpression::NormalMatch,
                                                  QRegularExpression::AnchorAtOffsetMatchOption |
                                                      QRegularExpression::DontCheckSubjectStringMatchOption);
            if (!match.hasMatch()) continue;
            if (pattern.kind == Pattern::Literal) tokens.push_back({Token::Text, match.captured(1), line});
            if (pattern.kind == Pattern::RawLiteral) tokens.push_back({Token::Text, match.captured(2), line});
            if (pattern.kind == Pattern::Word) tokens.push_back({Token::Word, match.captured(), line});
            if (pattern.kind == Pattern::Symbol) tokens.push_back({Token::Symbol, match.captured(), line});
            if (pattern.kind == Pattern::Other) tokens.push_back({Token::Other, match.captured(), line});
            line += int(match.captured().count('\n'));
            at = match.capturedEnd();
            break;
        }
    }
    return tokens;
}

// Literals side by side are one, and so is the QString that holds nothing but one.
Tokens joined(const Tokens& tokens)
{
    static const QStringList wrappers{"QString", "QStringLiteral", "QLatin1String"};
    Tokens result;
    for (const Token& token : tokens) {
        if (token.kind == Token::Text && !result.empty() && result.back().kind == Token::Text) {
            result.back().text += token.text;
            continue;
        }
        const auto size = result.size();
        if (token.is(")") && size >= 3 && result[size - 1].kind == Token::Text && result[size - 2].is("(") &&
            wrappers.contains(result[size - 3].text))
        {
            const Token literal = result.back();
            result.resize(size - 3);
            result.push_back(literal);
            continue;
        }
        result.push_back(token);
    }
    return result;
}

} // namespace

Tokens tokensOf(const QString& source)
{
    Tokens tokens = joined(read(source));
    std::vector<int> open;
    for (int i = 0; i < int(tokens.size()); ++i) {
        Token& token = tokens[i];
        if (token.is("(") || token.is("[") || token.is("{")) open.push_back(i);
        if ((!token.is(")") && !token.is("]") && !token.is("}")) || open.empty()) continue;
        token.mate = open.back();
        tokens[open.back()].mate = i;
        open.pop_back();
    }
    return tokens;
}

bool TokenReader::isAny(int at, std::initializer_list<const char*> words) const
{
    return std::any_of(words.begin(), words.end(), [&](const char* word) { return is(at, word); });
}

} // namespace house
