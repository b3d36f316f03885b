#include "platform/forms/showntext.h"

#include <QTextDocument>

namespace {
constexpr int longestWord = 150;
constexpr QChar breakPoint(0x200B);
} // namespace

QString shownText(const QString& text, int longest)
{
    if (text.size() <= longest) return text;
    const int half = text.at(longest - 1).isHighSurrogate() ? 1 : 0;
    return text.left(longest - half) + u'…';
}

QString shownLines(const QString& text)
{
    constexpr int aScreenful = 4000;
    QString lines;
    int word = 0;
    for (const QChar character : shownText(text, aScreenful)) {
        word = character.isSpace() ? 0 : word + 1;
        if (word > longestWord && !character.isLowSurrogate()) {
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
