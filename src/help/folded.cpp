#include "help/folded.h"

namespace help {

QString folded(const QString& text)
{
    QString letters;
    for (const QChar letter : text.normalized(QString::NormalizationForm_KD)) {
        if (letter.isMark()) continue;
        if (letter.isLetterOrNumber())
            letters += letter.toLower();
        else if (!letters.endsWith(' '))
            letters += ' ';
    }
    return letters;
}

QString foldedLine(const QString& line)
{
    return folded(' ' + line + ' ');
}

} // namespace help
