#include "house/messages.h"

#include "house/tokens.h"

#include <QRegularExpression>

#include <algorithm>
#include <set>

namespace house {

namespace {

const QChar changing(0x2026);

// What the compiler makes of the signs of a literal, on one line.
QString spoken(QString literal)
{
    static const QRegularExpression place("%(L?\\d+|n)");
    literal.replace("\\r", " ").replace("\\n", " ").replace("\\t", " ").replace("\\\"", "\"").replace("\\\\", "\\");
    return literal.replace(place, changing);
}

constexpr qsizetype wholePage = 600; // as the help of a command

bool hasWords(const QString& text)
{
    static const QRegularExpression word("\\p{L}{2,}");
    return text.contains(word);
}

bool isKey(const QString& text)
{
    static const QRegularExpression form("^[a-z0-9./…-]+$");
    return form.match(text).hasMatch();
}

// A capital, and three words or more up to the sign that ends a sentence; or what leads to the piece that ends it.
bool isSentence(const QString& text)
{
    static const QRegularExpression capital("^[^\\p{L}…]*(\\p{Lu}|…)");
    static const QRegularExpression end("\\S[.!?][\")]*( ?…)?$|\\S[.!?] \\p{Lu}|^[^:]{15,}: …$");
    return hasWords(text) && text.size() < wholePage && text.count(' ') >= 2 && capital.match(text).hasMatch() &&
           end.match(text).hasMatch();
}

class MessageReader : TokenReader
{
public:
    MessageReader(QString file, const QString& source, const Takers& takers)
        : TokenReader(source), file_(std::move(file)), takers_(takers)
    {
    }

    QList<Message> run(Read what)
    {
        for (int i = 0; i < count(); ++i) {
            if (t_[i].kind == Token::Text && what == Read::Sentences) readAround(i);
            if (t_[i].kind == Token::Word && takers_.contains(t_[i].text) && (is(i + 1, "(") || is(i + 1, "{")))
                readTaken(i + 1, takers_.value(t_[i].text));
        }
        return found_;
    }

private:
    int behind(int at) const { return opens(at) && t_[at].mate > at ? t_[at].mate + 1 : at + 1; }

    bool begins(int at) const
    {
        return at < 0 || opens(at) ||
               isAny(at, {",", ";", "=", "+=", "<<", "return", "&&", "||", "==", "!=", "?", ":", "}"});
    }
    bool ends(int at) const
    {
        return at >= count() || closes(at) || isAny(at, {",", ";", "?", ":", "<<", "&&", "||", "==", "!="});
    }

    // A parenthesis that only groups: no call, no condition.
    bool groups(int at) const
    {
        if (!is(at, "(")) return false;
        if (at == 0 || is(at - 1, "return")) return true;
        return t_[at - 1].kind == Token::Symbol && !isAny(at - 1, {")", "]", ">"});
    }

    int beginOf(int at) const
    {
        while (!begins(at - 1))
            at = closes(at - 1) && t_[at - 1].mate >= 0 ? t_[at - 1].mate : at - 1;
        return at;
    }
    int endOf(int at) const
    {
        while (!ends(at))
            at = behind(at);
        return at;
    }

    // The whole text to which a literal belongs, out of the parentheses that only group it.
    void readAround(int literal)
    {
        int begin = beginOf(literal);
        for (int open = outside(begin); groups(open) && isJoined(open); open = outside(begin))
            begin = beginOf(open);
        const QString text = read(begin, endOf(begin));
        if (isSentence(text)) tell(begin, text);
    }

    int outside(int at) const
    {
        for (int i = at - 1; i >= 0; i = closes(i) && t_[i].mate >= 0 ? t_[i].mate - 1 : i - 1)
            if (opens(i)) return i;
        return -1;
    }

    bool isJoined(int open) const { return is(open - 1, "+") || is(t_[open].mate + 1, "+"); }

    void readTaken(int open, const QString& before)
    {
        for (int at = open + 1; at < t_[open].mate; ++at) {
            if (opens(at)) at = t_[at].mate;
            if (t_[at].kind != Token::Text) continue;
            const int begin = beginOf(at), end = endOf(begin);
            const QString text = read(begin, end);
            if (hasWords(text) && !isKey(text)) tell(begin, text.front().isLower() ? before + text : text);
            at = std::max(at, end - 1);
        }
    }

    void tell(int at, const QString& text)
    {
        if (told_.insert({at, text}).second) found_ << Message{file_, t_[at].line, text};
    }

    QString read(int begin, int end) const
    {
        QString text;
        for (int at = begin; at < end;) {
            int plus = at;
            while (plus < end && !is(plus, "+"))
                plus = behind(plus);
            text += operand(at, plus);
            at = plus + 1;
        }
        static const QRegularExpression twice("…(\\s*…)+");
        return text.simplified().replace(twice, "…");
    }

    QString operand(int begin, int end) const
    {
        if (begin >= end) return {};
        if (t_[begin].kind == Token::Other && t_[begin].text.startsWith('\'') && end == begin + 1)
            return spoken(t_[begin].text.mid(1, t_[begin].text.size() - 2));
        if (t_[begin].kind == Token::Text) return spoken(t_[begin].text);
        if (is(begin, "QString") && is(begin + 1, "(") && t_[begin + 2].kind == Token::Text)
            return spoken(t_[begin + 2].text);
        return QString(changing);
    }

    QString file_;
    const Takers& takers_;
    QList<Message> found_;
    std::set<std::pair<int, QString>> told_;
};

} // namespace

QList<Message> messagesOf(const QString& file, const QString& source, const Takers& takers, Read what)
{
    return MessageReader(file, source, takers).run(what);
}

QString wordsOf(const QString& message)
{
    static const QRegularExpression signs("[^\\p{L}\\p{M}\\p{N}…]+"), place(" *…[… ]*"), ends("^[… ]+|[… ]+$");
    return message.toLower().replace(signs, " ").replace(place, "…").remove(ends);
}

QList<Entry> entriesOf(const QString& chapter)
{
    static const QRegularExpression heading("^### \"(.*)\" \\{#(msg-[a-z0-9-]+) \\.mensagem\\}$");
    QList<Entry> entries;
    bool isBelow = false; // an entry, and above the next heading
    for (const QString& line : chapter.split('\n')) {
        if (const auto match = heading.match(line); match.hasMatch()) {
            entries << Entry{match.captured(2), match.captured(1), {}};
            isBelow = true;
        } else if (line.startsWith('#')) {
            isBelow = false;
        } else if (isBelow) {
            entries.last().explanation += line.trimmed();
        }
    }
    return entries;
}

QStringList disagreements(const QList<Message>& messages, const QList<Entry>& entries, const QStringList& aside)
{
    std::set<QString> explained, put, told;
    QStringList found;
    for (const Entry& entry : entries)
        explained.insert(wordsOf(entry.text));
    for (const QString& text : aside)
        put.insert(wordsOf(text));
    for (const Message& one : messages) {
        const QString words = wordsOf(one.text);
        told.insert(words);
        if (explained.count(words) == 0 && put.count(words) == 0)
            found << QString("%1:%2: the chapter lacks \"%3\"").arg(one.file).arg(one.line).arg(one.text);
    }
    for (const Entry& entry : entries)
        if (told.count(wordsOf(entry.text)) == 0) found << QString("no source tells \"%1\"").arg(entry.text);
    for (const QString& text : aside) {
        if (told.count(wordsOf(text)) == 0) found << QString("no source tells \"%1\", put aside").arg(text);
        if (explained.count(wordsOf(text)) > 0) found << QString("explained, and put aside: \"%1\"").arg(text);
    }
    return found;
}

} // namespace house
