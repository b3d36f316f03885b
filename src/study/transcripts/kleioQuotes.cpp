#include "study/transcripts/kleioText.h"

#include <QRegularExpression>

#include <algorithm>

namespace study::kleio {

namespace {

// A pair of surrogates is a letter like any other; a single one has no encoding.
bool hasLoneSurrogate(const QString& text)
{
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (!text[at].isSurrogate()) continue;
        if (!text[at].isHighSurrogate() || at + 1 == text.size() || !text[at + 1].isLowSurrogate()) return true;
        ++at;
    }
    return false;
}

bool isEscaped(QChar c)
{
    return c == QChar::ByteOrderMark || (c.category() == QChar::Other_Control && c != '\n' && c != '\t');
}

// Signs that part elements are plain between quotes, and blanks at the ends are kept.
bool needsQuotes(const QString& text)
{
    static const QRegularExpression signs("[/;%#=\n]|__|\\?$|^[\"\\\\]");
    return text.isEmpty() || text != text.trimmed() || text.contains(signs);
}

// Behind a backslash a quoted text has escapes: \" \\ and \uXXXX.
QString escapedText(const QString& text)
{
    static constexpr int hexadecimal = 16;
    static constexpr int digits = 4;
    QString escaped = "\\\"";
    for (const QChar c : text) {
        if (c == '"' || c == '\\')
            escaped += QString('\\') + c;
        else if (c == '\n' || c.isSurrogate() || isEscaped(c))
            escaped += "\\u" + QString::number(c.unicode(), hexadecimal).rightJustified(digits, '0');
        else
            escaped += c;
    }
    return escaped + '"';
}

} // namespace

QString written(const QString& text)
{
    if (text.contains(threeQuotes) || hasLoneSurrogate(text) || std::any_of(text.begin(), text.end(), isEscaped))
        return escapedText(text);
    if (!needsQuotes(text)) return text;
    if (!text.contains('\n') && !text.contains('"')) return '"' + text + '"';
    return text.endsWith('"') ? escapedText(text) : threeQuotes + text + threeQuotes;
}

QString written(const Told& told)
{
    QString text = told.value.isEmpty() && !told.doubtful ? QString() : written(told.value);
    if (told.doubtful) text += '?';
    if (!told.source.isEmpty()) text += '%' + written(told.source);
    if (!told.comment.isEmpty()) text += '#' + written(told.comment);
    return text;
}

} // namespace study::kleio
