#include "study/transcripts/kleioText.h"

#include <QRegularExpression>

#include <algorithm>

namespace study::kleio {

QString folded(const QString& text)
{
    const auto isSmallAscii = [](QChar c) { return c.unicode() < 0x80 && !c.isUpper(); };
    if (std::all_of(text.begin(), text.end(), isSmallAscii)) return text;
    QString plain;
    plain.reserve(text.size());
    for (const QChar c : text.normalized(QString::NormalizationForm_D))
        if (c.category() != QChar::Mark_NonSpacing) plain += c.toLower();
    return plain;
}

QString Element::joined() const
{
    QStringList texts;
    texts.reserve(values.size());
    for (const Value& value : values)
        texts << (value.told.doubtful ? value.told.value + '?' : value.told.value);
    return texts.join("; ");
}

QString Element::written() const
{
    QStringList texts;
    texts.reserve(values.size());
    for (const Value& value : values)
        texts << kleio::written(value.told);
    return name.isEmpty() ? texts.join(';') : name + '=' + texts.join(';');
}

QList<Element> Group::placed() const
{
    QList<Element> found;
    for (const Element& element : elements)
        if (element.name.isEmpty()) found << element;
    return found;
}

const Element* Group::named(const QString& elementName) const
{
    const auto found = std::find_if(elements.begin(), elements.end(),
                                    [&](const Element& element) { return element.name == elementName; });
    return found == elements.end() ? nullptr : &*found;
}

namespace {

constexpr qsizetype threeQuotesLength = 3;

// Reads what stands behind the $ of one group.
class Body
{
public:
    Body(const QString& text, int line, QList<Problem>& problems) : text_(text), line_(line), problems_(problems) {}

    QList<Element> elements()
    {
        QList<Element> found;
        do {
            found << element();
        } while (takes('/'));
        if (found.last().values.isEmpty() && found.last().name.isEmpty()) found.removeLast();
        return found;
    }

private:
    struct Piece
    {
        QString text;
        bool quoted = false;
        bool doubtful = false;
    };

    static bool isSign(QChar c) { return c == '/' || c == ';' || c == '%' || c == '#'; }

    bool takes(QChar sign)
    {
        if (at_ >= text_.size() || text_[at_] != sign) return false;
        ++at_;
        return true;
    }

    QString name()
    {
        static const QRegularExpression form(R"(\s*(\p{L}[\p{L}\p{N}_\-]*?)(?:__|\s*=))");
        const auto match =
            form.match(text_, at_, QRegularExpression::NormalMatch, QRegularExpression::AnchorAtOffsetMatchOption);
        if (!match.hasMatch()) return {};
        at_ = match.capturedEnd();
        return folded(match.captured(1));
    }

    Element element()
    {
        Element element{name(), {}};
        do {
            const Value read = value();
            if (read.quoted || !read.told.isEmpty()) element.values << read;
        } while (takes(';'));
        return element;
    }

    Value value()
    {
        const Piece plain = piece(true);
        Value value{{.value = plain.text, .doubtful = plain.doubtful}, plain.quoted};
        while (at_ < text_.size() && (text_[at_] == '%' || text_[at_] == '#')) {
            QString& aspect = text_[at_++] == '%' ? value.told.source : value.told.comment;
            const QString told = piece(false).text;
            aspect = aspect.isEmpty() ? told : aspect + "; " + told;
        }
        return value;
    }

    Piece piece(bool mayBeDoubted)
    {
        while (at_ < text_.size() && text_[at_].isSpace())
            ++at_;
        Piece read;
        if (!escaped(read) && !quoted(read)) takePlain(read);
        if (read.quoted)
            takeDoubtBehindQuotes(read, mayBeDoubted);
        else if (mayBeDoubted)
            takeDoubt(read);
        return read;
    }

    // Where a quoted text may end: nothing but a doubt stands between it and the next sign.
    bool endsAt(qsizetype position) const
    {
        while (position < text_.size() && text_[position].isSpace())
            ++position;
        return position == text_.size() || isSign(text_[position]) || text_[position] == '?';
    }

    bool escaped(Piece& read)
    {
        static const QRegularExpression form(R"re(\\"((?:[^"\\]++|\\["\\]|\\u[0-9a-f]{4})*+)")re");
        const auto match =
            form.match(text_, at_, QRegularExpression::NormalMatch, QRegularExpression::AnchorAtOffsetMatchOption);
        if (!match.hasMatch() || !endsAt(match.capturedEnd())) return false;
        read = {unescaped(match.captured(1)), true};
        at_ = match.capturedEnd();
        return true;
    }

    // The next quote after one that could have closed the text; those of other elements are no part of it.
    qsizetype nextInElement(qsizetype quote) const
    {
        const qsizetype next = text_.indexOf('"', quote + 1);
        return next >= 0 && QStringView(text_).mid(quote, next - quote).contains('/') ? -1 : next;
    }

    bool quoted(Piece& read)
    {
        if (at_ >= text_.size() || text_[at_] != '"') return false;
        const QString quotes = QStringView(text_).mid(at_).startsWith(QLatin1String(threeQuotes)) ? threeQuotes : "\"";
        const qsizetype begin = at_ + quotes.size();
        qsizetype end = text_.indexOf(quotes, begin);
        const bool closes = end >= 0;
        while (end >= 0 && !endsAt(end + quotes.size()))
            end = quotes.size() == 1 ? nextInElement(end) : -1;
        if (end < 0) {
            if (quotes.size() == 1)
                problems_ << Problem{line_, closes ? "Há texto a seguir às aspas; fica tudo como está."
                                                   : "Há aspas que não fecham; ficam como estão."};
            return false;
        }
        read = {text_.mid(begin, end - begin), true};
        at_ = end + quotes.size();
        return true;
    }

    // Up to the next sign; three quotes protect signs within it, too.
    void takePlain(Piece& read)
    {
        while (at_ < text_.size() && !isSign(text_[at_])) {
            if (!QStringView(text_).mid(at_).startsWith(QLatin1String(threeQuotes))) {
                read.text += text_[at_++];
                continue;
            }
            const qsizetype begin = at_ + threeQuotesLength;
            const qsizetype end = text_.indexOf(threeQuotes, begin);
            read.text += text_.mid(begin, end < 0 ? -1 : end - begin);
            at_ = end < 0 ? text_.size() : end + threeQuotesLength;
        }
        read.text = read.text.trimmed();
    }

    static QString unescaped(const QString& text)
    {
        static constexpr int hexadecimal = 16;
        static constexpr int digits = 4;
        QString plain;
        plain.reserve(text.size());
        for (qsizetype at = 0; at < text.size(); ++at) {
            if (text[at] == '\\' && text[++at] == 'u') {
                plain += QChar(QStringView(text).mid(at + 1, digits).toUShort(nullptr, hexadecimal));
                at += digits;
            } else {
                plain += text[at];
            }
        }
        return plain;
    }

    // What stands there beside the doubt is no less text.
    void takeDoubtBehindQuotes(Piece& read, bool mayBeDoubted)
    {
        Piece behind;
        takePlain(behind);
        if (behind.text.isEmpty()) return;
        read.doubtful = mayBeDoubted && behind.text.startsWith('?');
        const QString rest = behind.text.mid(read.doubtful ? 1 : 0).trimmed();
        if (!rest.isEmpty()) read.text += ' ' + rest;
    }

    static void takeDoubt(Piece& read)
    {
        if (!read.text.endsWith('?')) return;
        while (read.text.endsWith('?'))
            read.text.chop(1);
        read.text = read.text.trimmed();
        read.doubtful = !read.text.isEmpty(); // a lone ? tells that nothing was filled in
    }

    const QString& text_;
    qsizetype at_ = 0;
    int line_;
    QList<Problem>& problems_;
};

} // namespace

QList<Element> elementsOf(const QString& body, int line, QList<Problem>& problems)
{
    return Body(body, line, problems).elements();
}

} // namespace study::kleio
