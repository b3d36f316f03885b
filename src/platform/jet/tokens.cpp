#include "platform/jet/tokens.h"

#include "platform/jet/columns.h"
#include "platform/jet/date.h"
#include "platform/jet/errors.h"

#include <algorithm>

namespace jet {

namespace {

char16_t small(QChar letter)
{
    const char16_t code = letter.unicode();
    return code >= u'A' && code <= u'Z' ? char16_t(code + (u'a' - u'A')) : code;
}

bool startsWord(QChar c)
{
    return c.isLetter() || c == u'_';
}
bool continuesWord(QChar c)
{
    return c.isLetterOrNumber() || c == u'_';
}

class Tokenizer
{
public:
    Tokenizer(const QString& statement, Language language) : s_(statement), native_(language == Language::Native) {}

    Tokens run()
    {
        if (s_.contains(QChar(u'\0'))) // the engine would stop reading there
            throw invalidStatement(QStringLiteral("Há um carácter nulo na instrução."));
        for (skipBlanks(); at_ < s_.size(); skipBlanks())
            readOne();
        endStatement();
        if (tokens_.empty()) throw invalidStatement(QStringLiteral("A instrução está vazia."));
        pairParentheses();
        return std::move(tokens_);
    }

private:
    void skipBlanks()
    {
        blank_ = at_ == 0;
        for (; at_ < s_.size() && s_[at_].isSpace(); ++at_)
            blank_ = true;
    }

    void readOne()
    {
        const QChar c = s_[at_];
        if (c == u'\'' || c == u'"')
            readText(c);
        else if (c == u'[')
            readName();
        else if (c == u'#' && !native_)
            readDate();
        else if (startsWord(c))
            add(Token::Word, take(continuesWord));
        else if (c.isDigit() || (c == u'.' && at_ + 1 < s_.size() && s_[at_ + 1].isDigit()))
            readNumber();
        else
            readSymbol();
    }

    template <typename Belongs>
    QString take(Belongs belongs)
    {
        const auto begin = at_;
        while (at_ < s_.size() && belongs(s_[at_]))
            ++at_;
        return s_.mid(begin, at_ - begin);
    }

    void add(Token::Kind kind, const QString& text) { add(kind, text, text); }
    void add(Token::Kind kind, const QString& text, const QString& sql)
    {
        tokens_.push_back({.kind = kind, .text = text, .sql = sql, .blankBefore = blank_, .first = 0});
        if (kind == Token::Word || kind == Token::Symbol) tokens_.back().first = small(text[0]);
    }

    void addQuoted(QChar quote, const QString& text)
    {
        if (native_ && quote == u'"')
            add(Token::Name, text, quoted(text));
        else
            add(Token::Text, text, textLiteral(text));
    }

    // What the user types stands in a statement as it was typed. A quote in it ends the text too early: the letters
    // that were to follow come at once behind it, or the last quote begins a text without end.
    void refuseQuoteWithin(QChar quote, qsizetype beside) const
    {
        if (native_ || quote != u'\'' || beside < 0 || beside >= s_.size() || !continuesWord(s_[beside])) return;
        throw invalidStatement(QStringLiteral("Há uma plica (') dentro de um texto. Escreva o nome sem plica."));
    }

    // A doubled quote stands for one.
    void readText(QChar quote)
    {
        refuseQuoteWithin(quote, at_ - 1);
        QString text;
        for (++at_; at_ < s_.size(); ++at_) {
            if (s_[at_] == quote) {
                ++at_;
                if (at_ < s_.size() && s_[at_] == quote) {
                    text += quote;
                    continue;
                }
                refuseQuoteWithin(quote, at_);
                return addQuoted(quote, text);
            }
            text += s_[at_];
        }
        throw invalidStatement(
            QStringLiteral("Falta a plica que fecha o texto '%1. Escreva o nome sem plica.").arg(text));
    }

    // What stands up to `closing`, which must come.
    QString between(QChar closing)
    {
        const auto end = s_.indexOf(closing, at_ + 1);
        if (end < 0)
            throw invalidStatement(
                QStringLiteral("Falta \"%1\" na instrução, junto de \"%2\".").arg(closing).arg(s_.mid(at_)));
        QString text = s_.mid(at_ + 1, end - at_ - 1);
        at_ = end + 1;
        return text;
    }

    void readName()
    {
        const QString name = between(u']');
        add(Token::Name, name, u'[' + name + u']');
    }

    void readDate()
    {
        const QString text = between(u'#');
        const auto date = readDateLiteral(text);
        if (!date) throw invalidStatement(QStringLiteral("Erro de sintaxe: #%1# não é uma data.").arg(text));
        add(Token::Date, text, textLiteral(storedDate(*date)));
    }

    void readNumber()
    {
        QString text = take([](QChar c) { return continuesWord(c) || c == u'.'; });
        const bool exponent = text.endsWith(u'e', Qt::CaseInsensitive) && at_ + 1 < s_.size() &&
                              (s_[at_] == u'-' || s_[at_] == u'+') && s_[at_ + 1].isDigit();
        if (exponent) {
            text += s_[at_++];
            text += take([](QChar c) { return c.isDigit(); });
        }
        add(Token::Number, text);
    }

    void readSymbol()
    {
        static constexpr const char* pairs[]{"<>", "<=", ">=", "||"};
        static const QString singles = QStringLiteral("(),.;=<>+-*/%");
        const auto isPair = [&](const char* pair) { return QStringView(s_).mid(at_, 2) == QLatin1String(pair); };
        if (std::any_of(std::begin(pairs), std::end(pairs), isPair)) {
            add(Token::Symbol, s_.mid(at_, 2));
            at_ += 2;
            return;
        }
        if (!singles.contains(s_[at_]) && !(native_ && s_[at_] == u'?'))
            throw invalidStatement(QStringLiteral("Erro de sintaxe na instrução, junto de \"%1\".").arg(s_.mid(at_)));
        // "--" and "/*" would open a comment: the dialect has none.
        if (s_[at_] == u'-' || s_[at_] == u'*') blank_ = true;
        add(Token::Symbol, s_[at_++]);
    }

    // One semicolon may close the statement; nothing may come behind it.
    void endStatement()
    {
        for (size_t i = 0; i < tokens_.size(); ++i)
            if (tokens_[i].kind == Token::Symbol && tokens_[i].text == u";" && i + 1 < tokens_.size())
                throw invalidStatement(QStringLiteral("Há caracteres depois do fim da instrução."));
        if (!tokens_.empty() && tokens_.back().kind == Token::Symbol && tokens_.back().text == u";") tokens_.pop_back();
    }

    void pairParentheses()
    {
        std::vector<int> open;
        for (int i = 0; i < int(tokens_.size()); ++i) {
            if (tokens_[i].is("(")) open.push_back(i);
            if (!tokens_[i].is(")")) continue;
            if (open.empty()) throw invalidStatement(QStringLiteral("Há um \")\" a mais na instrução."));
            tokens_[i].mate = open.back();
            tokens_[open.back()].mate = i;
            open.pop_back();
        }
        if (!open.empty()) throw invalidStatement(QStringLiteral("Falta \")\" na instrução."));
    }

    const QString& s_;
    bool native_;
    qsizetype at_ = 0;
    bool blank_ = false;
    Tokens tokens_;
};

} // namespace

bool Token::reads(const char* word) const
{
    for (const QChar letter : text) // none is 0, which ends the word
        if (small(letter) != static_cast<unsigned char>(*word++)) return false;
    return *word == '\0';
}

Tokens tokenize(const QString& statement, Language language)
{
    return Tokenizer(statement, language).run();
}

QString join(const Tokens& tokens, int begin, int end)
{
    QString sql;
    for (int i = begin; i < end; ++i) {
        if (tokens[i].blankBefore && !sql.isEmpty()) sql += u' ';
        sql += tokens[i].sql;
    }
    return sql;
}

QString textLiteral(const QString& text)
{
    QString doubled = text;
    return u'\'' + doubled.replace(u'\'', QLatin1String("''")) + u'\'';
}

} // namespace jet
