#include "platform/forms/showntext.h"

#include <QTextDocument>

namespace {

constexpr int longestRun = 150;
constexpr QChar breakPoint(0x200B);

// How many characters of the text, from its beginning or its end, have room where a line break takes a whole line.
template <class Iterator>
qsizetype fitting(Iterator character, Iterator end, int room)
{
    constexpr int line = 70;
    qsizetype count = 0;
    for (; character != end; ++character, ++count) {
        const bool isBreak =
            *character == u'\n' || *character == QChar::LineSeparator || *character == QChar::ParagraphSeparator;
        room -= isBreak ? line : 1;
        if (room < 0) break;
    }
    return count;
}

// A text that a box on a small screen has room for: of a longer one the middle is left out, as a question or a reason
// stands at the end.
QString screenful(const QString& text)
{
    constexpr int most = 1800;
    if (fitting(text.begin(), text.end(), most) == text.size()) return text;
    qsizetype head = fitting(text.begin(), text.end(), most * 2 / 3);
    qsizetype tail = fitting(text.rbegin(), text.rend(), most / 3);
    if (head > 0 && text.at(head - 1).isHighSurrogate()) --head;
    if (tail > 0 && text.at(text.size() - tail).isLowSurrogate()) --tail;
    return text.left(head) + u'…' + text.right(tail);
}

} // namespace

QString shownText(const QString& text, int longest)
{
    if (text.size() <= longest) return text;
    const int half = text.at(longest - 1).isHighSurrogate() ? 1 : 0;
    return text.left(longest - half) + u'…';
}

QString shownLines(const QString& text)
{
    QString lines;
    int word = 0;
    for (const QChar character : screenful(text)) {
        word = character.isSpace() ? 0 : word + 1;
        if (word > longestRun && !character.isLowSurrogate()) {
            lines += breakPoint;
            word = 1;
        }
        lines += character;
    }
    return lines;
}

QString shownTip(const QString& text)
{
    const QString lines = shownLines(shownText(text));
    return Qt::mightBeRichText(lines) ? "<qt>" + lines.toHtmlEscaped() + "</qt>" : lines;
}
