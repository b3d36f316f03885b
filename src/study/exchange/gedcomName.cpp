// Where the surname begins.
#include "study/exchange/gedcomValues.h"

#include <algorithm>

namespace study::exchange {

namespace {

using Word = NameParts::Word;

bool canBeGiven(const Word& word)
{
    return word.known && std::any_of(word.readings.begin(), word.readings.end(),
                                     [](const study::Reading& reading) { return reading.kind != NameKind::Surname; });
}

// The index of the first word of the surname; that of the end where there is none.
qsizetype beginningOfSurname(const QList<Word>& words)
{
    for (qsizetype i = 1; i < words.size(); ++i)
        if (words[i].particle || !canBeGiven(words[i])) return i;
    return words.size();
}

// Where each word stands in the name; nothing where one isn't found as it is written.
struct Span
{
    qsizetype from = 0, to = 0;
};
QList<Span> spansOf(const QString& name, const QList<Word>& words)
{
    QList<Span> spans;
    qsizetype at = 0;
    for (const Word& word : words) {
        QString written = word.written;
        qsizetype from = name.indexOf(written, at);
        if (from < 0 && written.endsWith(u'\'')) from = name.indexOf(written.replace(u'\'', u'’'), at);
        if (from < 0) return {};
        at = from + written.size();
        spans << Span{from, at};
    }
    return spans;
}

QString between(const QString& name, qsizetype from, qsizetype to)
{
    return name.mid(from, to - from).simplified();
}

} // namespace

GedcomName gedcomName(const QString& name, const NameTable& table)
{
    QString shown = name;
    shown.replace(u'/', QChar(0x2215));
    for (QChar& letter : shown)
        if (letter.isSpace()) letter = u' ';
    shown = shown.trimmed();
    if (shown.isEmpty()) return {};
    const NameParts parts = partsOf(shown, table);
    const QList<Word>& words = parts.words;
    const QList<Span> spans = spansOf(shown, words);
    GedcomName result{.titles = parts.titles};
    const qsizetype first = parts.unknown || spans.isEmpty() ? words.size() : beginningOfSurname(words);
    if (first >= words.size()) {
        result.payload = shown + " //";
        result.given = parts.unknown || spans.isEmpty() ? shown : between(shown, spans.first().from, shown.size());
        return result;
    }
    const qsizetype from = spans[first].from, to = spans.last().to;
    result.given = between(shown, spans.first().from, from);
    result.payload = shown.left(from) + '/' + shown.mid(from, to - from) + '/' + shown.mid(to);
    qsizetype ofName = first;
    while (ofName + 1 < words.size() && words[ofName].particle)
        ++ofName;
    result.particle = between(shown, from, spans[ofName].from);
    result.surname = between(shown, spans[ofName].from, to);
    return result;
}

} // namespace study::exchange
