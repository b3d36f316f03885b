#include "study/windows/actList.h"

#include <algorithm>

namespace study {

namespace {

QString folded(const QString& text)
{
    QString letters;
    letters.reserve(text.size());
    for (const QChar letter : text.normalized(QString::NormalizationForm_KD))
        if (!letter.isMark()) letters += letter;
    return letters.toCaseFolded();
}

bool hasWords(const QStringList& words, const QStringList& wanted)
{
    return std::ranges::all_of(wanted, [&](const QString& beginning) {
        return std::ranges::any_of(words, [&](const QString& word) { return word.startsWith(beginning); });
    });
}

bool isGap(const ActLine& line)
{
    return line.missing > 0;
}

} // namespace

QStringList searchWords(const QString& text)
{
    QString blanks = folded(text);
    for (QChar& letter : blanks)
        if (!letter.isLetterOrNumber() && !letter.isSurrogate()) letter = ' ';
    return blanks.split(' ', Qt::SkipEmptyParts);
}

QList<ActLine> chosenLines(const QList<ActLine>& lines, const ActFilter& filter,
                           const QHash<qint64, QStringList>& words)
{
    const QStringList wanted = searchWords(filter.name);
    QList<ActLine> chosen;
    chosen.reserve(lines.size());
    for (const ActLine& line : lines) {
        if (filter.kind && line.kind != *filter.kind) continue;
        if (filter.book && line.book != *filter.book) continue;
        if (!wanted.isEmpty() && (isGap(line) || !hasWords(words.value(line.id), wanted))) continue;
        chosen << line;
    }
    return chosen;
}

QStringList booksOf(const QList<ActLine>& lines, std::optional<ActKind> kind)
{
    QStringList books;
    for (const ActLine& line : lines)
        if ((!kind || line.kind == *kind) && !books.contains(line.book)) books << line.book;
    return books;
}

QString gapText(const ActLine& gap)
{
    if (gap.missing == 1) return "falta o n.º " + gap.number;
    const QString last = QString::number(gap.number.toInt() + gap.missing - 1);
    return QString("faltam os n.os %1 %2 %3").arg(gap.number, gap.missing == 2 ? "e" : "a", last);
}

QStringList cellsOf(const ActLine& line)
{
    if (isGap(line)) return {kindTitle(line.kind), line.book, "", "", "", gapText(line)};
    return {kindTitle(line.kind), line.book, line.folio, line.number, shown(line.date), line.subjects};
}

QString countText(const QList<ActLine>& lines)
{
    qsizetype acts = 0, missing = 0;
    for (const ActLine& line : lines) {
        if (isGap(line))
            missing += line.missing;
        else
            ++acts;
    }
    QString text = QString("%1 %2").arg(acts).arg(acts == 1 ? "acto" : "actos");
    if (missing > 0) text += QString(", %1 %2 em falta").arg(missing).arg(missing == 1 ? "número" : "números");
    return text;
}

QString titleOf(const ActLine& line)
{
    QString title = reference({.kind = line.kind, .book = line.book, .folio = line.folio, .number = line.number});
    if (!line.date.isEmpty()) title += ", " + shown(line.date);
    return line.subjects.isEmpty() ? title : title + ": " + line.subjects;
}

QString titleOf(const Act& act)
{
    QStringList names;
    for (const int subject : subjects(act))
        names << nameOf(act.people[subject]);
    names.removeAll(QString());
    return titleOf(ActLine{.kind = act.kind,
                           .book = act.book,
                           .folio = act.folio,
                           .number = act.number,
                           .date = act.date,
                           .subjects = names.join(" e ")});
}

} // namespace study
