#include "study/report/markup.h"

namespace study::report {

QString legible(const QString& text)
{
    QString left;
    left.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            left += c;
            left += text[++i];
        } else if ((c >= ' ' || c == '\n' || c == '\t') && !c.isSurrogate() && c.unicode() < 0xFFFE) {
            left += c;
        }
    }
    return left;
}

QString escaped(const QString& text)
{
    return legible(text).toHtmlEscaped();
}

} // namespace study::report
