#include "help/messageEntry.h"

#include "help/folded.h"

#include <QStringList>

#include <algorithm>

namespace help {

namespace {

class Title
{
public:
    explicit Title(const QString& title)
    {
        // What KD makes of "…" is three points: the title is cut before it is folded.
        pieces_ = (' ' + title + ' ').split(QChar(0x2026));
        for (QString& piece : pieces_)
            piece = folded(piece);
    }

    qsizetype letters() const
    {
        qsizetype count = 0;
        for (const QString& piece : pieces_)
            count += piece.size() - piece.count(' ');
        return count;
    }

    bool says(const QString& line) const
    {
        if (pieces_.size() == 1) return line == pieces_.first();
        if (!line.startsWith(pieces_.first()) || !line.endsWith(pieces_.last())) return false;
        qsizetype at = pieces_.first().size();
        for (qsizetype i = 1; i + 1 < pieces_.size(); ++i) {
            const QString& piece = pieces_[i];
            // Two pieces may share the blank between them, where nothing stands for the "…".
            const qsizetype from = piece.startsWith(' ') && line.mid(at - 1, 1) == " " ? at - 1 : at;
            const qsizetype found = line.indexOf(piece, from);
            if (found < 0) return false;
            at = found + piece.size();
        }
        const QString& last = pieces_.last();
        const qsizetype shared = last.startsWith(' ') && line.mid(at - 1, 1) == " " ? 1 : 0;
        return line.size() - last.size() >= at - shared;
    }

private:
    QStringList pieces_;
};

// All runs of whole lines, folded; blank lines count as none.
QStringList runsOfLines(const QString& shown)
{
    QStringList lines, runs;
    for (const QString& line : QString(shown).replace('\r', '\n').split('\n'))
        if (!folded(line).trimmed().isEmpty()) lines << line;
    for (qsizetype begin = 0; begin < lines.size(); ++begin) {
        QString run;
        for (qsizetype end = begin; end < lines.size(); ++end) {
            run += lines[end] + ' ';
            runs << foldedLine(run);
        }
    }
    return runs;
}

} // namespace

QString messageEntry(const QString& shown, const QList<MessageEntry>& entries)
{
    const QStringList runs = runsOfLines(shown);
    const MessageEntry* best = nullptr;
    qsizetype most = 0;
    for (const MessageEntry& entry : entries) {
        const Title title(entry.title);
        const qsizetype letters = title.letters();
        if (letters <= most) continue;
        if (std::none_of(runs.begin(), runs.end(), [&](const QString& run) { return title.says(run); })) continue;
        best = &entry;
        most = letters;
    }
    return best ? best->id : QString();
}

} // namespace help
