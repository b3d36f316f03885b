#include "house/statements.h"

#include "house/tokens.h"

#include <QRegularExpression>

#include <algorithm>

namespace house {

namespace {

bool isSql(const QString& text)
{
    static const QRegularExpression words(
        R"re(^\s*(select|insert into|update|delete from|create table|alter table|drop table)\b|)re"
        R"re(\b(where|having|order by|group by)\b|\bvalues\s*\(|)re"
        R"re((^|[\w\])])\s*(=|<>|<=?|>=?)\s*['#(]*$|\b(like|between)\s*['#%(]*$)re",
        QRegularExpression::CaseInsensitiveOption);
    return words.match(text).hasMatch();
}

class StatementReader : TokenReader
{
public:
    StatementReader(QString file, const QString& source, const Rules& rules)
        : TokenReader(source), file_(std::move(file)), rules_(rules), own_(rules.own.value(file_))
    {
    }

    QStringList run()
    {
        for (int i = 0; i < count(); ++i) {
            if (t_[i].kind == Token::Text && isSql(t_[i].text)) readAround(i);
            if (const int begin = argumentOfAStatement(i)) read(begin, endOf(begin));
        }
        found_.removeDuplicates();
        return found_;
    }

private:
    void tell(int at)
    {
        QString text;
        for (int i = at; i < count() && i < at + 6 && !isAny(i, {";", ",", "+"}); ++i)
            text += t_[i].text;
        found_ << QString("%1:%2: %3").arg(file_).arg(t_[at].line).arg(text);
    }

    // A parenthesis that only groups: no call, no condition.
    bool groups(int at) const
    {
        if (!is(at, "(")) return false;
        if (at == 0 || is(at - 1, "return")) return true;
        return t_[at - 1].kind == Token::Symbol && !isAny(at - 1, {")", "]", ">"});
    }

    bool ends(int at) const { return isAny(at, {",", ";"}) || closes(at); }
    bool begins(int at) const
    {
        return isAny(at, {",", ";", "=", "+=", "<<", "return", "&&", "||", "==", "!="}) || opens(at);
    }

    // Where the expression or the argument that begins there ends.
    int endOf(int begin) const
    {
        int end = begin;
        while (end < count() && !ends(end))
            end = opens(end) && t_[end].mate > end ? t_[end].mate + 1 : end + 1;
        return end;
    }

    // The whole expression in which a literal stands, out of the parentheses that only group it.
    void readAround(int literal)
    {
        int begin = literal;
        for (;;) {
            while (begin > 0 && !begins(begin - 1))
                begin = closes(begin - 1) && t_[begin - 1].mate >= 0 ? t_[begin - 1].mate : begin - 1;
            if (!groups(begin - 1)) break;
            --begin;
        }
        read(begin, endOf(begin));
    }

    int find(const char* symbol, int begin, int end) const
    {
        for (int i = begin; i < end; i = opens(i) && t_[i].mate > i ? t_[i].mate + 1 : i + 1)
            if (is(i, symbol)) return i;
        return -1;
    }

    void read(int begin, int end)
    {
        if (const int question = find("?", begin, end); question >= 0) {
            int depth = 0, colon = question + 1;
            for (; colon < end; colon = opens(colon) && t_[colon].mate > colon ? t_[colon].mate + 1 : colon + 1) {
                if (is(colon, "?")) ++depth;
                if (is(colon, ":") && depth-- == 0) break;
            }
            read(question + 1, colon);
            return read(colon + 1, end);
        }
        if (const int colon = find(":", begin, end); colon >= 0) return read(colon + 1, end); // behind a label
        for (int plus = find("+", begin, end); plus >= 0; plus = find("+", begin, end)) {
            readOperand(begin, plus);
            begin = plus + 1;
        }
        readOperand(begin, end);
    }

    void readArguments(int open)
    {
        for (int at = open + 1; at < t_[open].mate;) {
            const int end = endOf(at);
            read(at, end);
            at = end + 1;
        }
    }

    void readOperand(int begin, int end)
    {
        if (begin >= end) return;
        if (t_[begin].kind == Token::Text) {
            for (int at = begin + 1; at < end; at = t_[at + 2].mate + 1) {
                if (!is(at, ".") || !is(at + 1, "arg") || !is(at + 2, "(")) return tell(begin);
                readArguments(at + 2);
            }
            return;
        }
        if (groups(begin) && t_[begin].mate == end - 1) return read(begin + 1, end - 1);
        if (is(begin, "QString") && is(begin + 1, "(") && t_[begin + 1].mate == end - 1)
            return readArguments(begin + 1);
        if (!allowed(spelled(begin, end))) tell(begin);
    }

    // A chain of names, with "()" for each call whatever its arguments.
    QString spelled(int begin, int end) const
    {
        QString chain;
        for (int i = begin; i < end; ++i) {
            chain += t_[i].text;
            if (!opens(i) || t_[i].mate < i) continue;
            i = t_[i].mate;
            chain += t_[i].text;
        }
        return chain;
    }

    bool allowed(const QString& chain)
    {
        static const QRegularExpression lastCall(R"((\w+)(\(\)|\{\})$)");
        if (own_.contains(chain) || chain == "{}") return true;
        const QString function = lastCall.match(chain).captured(1);
        if (rules_.makers.contains(function) || rules_.statements.contains(function)) return true;
        return isConstant(chain);
    }

    // A text of the file whose every value is one that may stand in a statement.
    bool isConstant(const QString& name)
    {
        if (reading_.contains(name)) return false;
        reading_ << name;
        int values = 0;
        bool good = true;
        const QStringList before = found_;
        for (int i = 1; i + 1 < count(); ++i) {
            if (t_[i].kind != Token::Word || t_[i].text != name) continue;
            if (is(i - 1, "&") && is(i - 2, "QString")) good = false; // an argument may be anything
            if (!is(i + 1, "=") && !is(i + 1, "+=")) continue;
            ++values;
            read(i + 2, endOf(i + 2));
        }
        reading_.removeOne(name);
        good = good && values > 0 && found_ == before;
        found_ = before;
        return good;
    }

    // Where the text begins that a call at `at` takes for a statement; 0: it takes none.
    int argumentOfAStatement(int at) const
    {
        static const QStringList takers{"execute",        "setRecordSource", "setFilter", "setSort", "find",
                                        "procuraRegisto", "abreLista",       "existe",    "open"};
        if (opens(at) && is(at + 1, "cnBDP") && is(at + 2, ","))
            return is(at + 3, "[") ? 0 : at + 3; // a routine: read by itself
        if (is(at, "NativeSql")) return is(at + 1, "(") ? at + 2 : is(at + 2, "(") && !is(at + 3, "const") ? at + 3 : 0;
        if (is(at, "filtro") && is(at + 1, ".") && is(at + 2, "junta") && is(at + 3, "(")) return at + 4;
        if (!takers.contains(t_[at].text) || !is(at + 1, "(") || is(at + 2, ")") || is(at + 2, "const")) return 0;
        if (is(at, "open") && (is(at + 2, "QIODevice") || !is(at - 1, "."))) return 0; // a file
        return isAny(at - 1, {"::", "*", "&"}) ? 0 : at + 2;                           // another's, or a declaration
    }

    QString file_;
    const Rules& rules_;
    QStringList own_;
    QStringList found_;
    QStringList reading_;
};

} // namespace

QStringList findings(const QString& file, const QString& source, const Rules& rules)
{
    return StatementReader(file, source, rules).run();
}

} // namespace house
