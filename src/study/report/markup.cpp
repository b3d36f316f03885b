#include "study/report/markup.h"

namespace study::report {

QString legible(const QString& given)
{
    QString left;
    left.reserve(given.size());
    for (qsizetype i = 0; i < given.size(); ++i) {
        const QChar c = given[i];
        if (c.isHighSurrogate() && i + 1 < given.size() && given[i + 1].isLowSurrogate()) {
            left += c;
            left += given[++i];
        } else if ((c >= ' ' || c == '\n' || c == '\t') && !c.isSurrogate() && c.unicode() < 0xFFFE) {
            left += c;
        }
    }
    return left;
}

QString escaped(const QString& given)
{
    return legible(given).toHtmlEscaped();
}

} // namespace study::report
