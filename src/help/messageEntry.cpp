#include "help/messageEntry.h"

#include "help/folded.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace help {

namespace {

class Title
{
public:
    explicit Title(const QString& title)
    {
        static const QRegularExpression leading("…[\"\\s]*$");
        leads_ = title.contains(leading);
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

    bool leads() const { return leads_; }

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
    bool leads_ = false;
    QStringList pieces_;
};

struct Part
{
    QString text;
    bool ends; // a sentence or a line: what follows a colon belongs to what stands before it
};

QList<Part> partsOf(const QString& shown)
{
    constexpr int mostParts = 60;
    static const QRegularExpression form("([^\r\n]*?)(?:([.!?:])[\"')\\]]*(?=\\s|$)|[\r\n]+|$)");
    QList<Part> parts;
    for (auto each = form.globalMatch(shown); each.hasNext() && parts.size() < mostParts;) {
        const auto match = each.next();
        const QString text = match.captured(1);
        if (!folded(text).trimmed().isEmpty()) parts << Part{text, match.captured(2) != ":"};
    }
    if (!parts.isEmpty()) parts.last().ends = true;
    return parts;
}

// All runs of whole parts, folded.
QStringList runsOf(const QString& shown)
{
    QStringList runs;
    const QList<Part> parts = partsOf(shown);
    for (qsizetype begin = 0; begin < parts.size(); ++begin) {
        QString run;
        for (qsizetype end = begin; end < parts.size(); ++end) {
            const Part& part = parts[end];
            run += part.text + ' ';
            if (part.ends) runs << foldedLine(run);
        }
    }
    return runs;
}

} // namespace

QString messageEntry(const QString& shown, const QList<MessageEntry>& entries)
{
    const QStringList runs = runsOf(shown);
    const MessageEntry* best = nullptr;
    std::pair<bool, qsizetype> most{false, fewestLetters - 1};
    for (const MessageEntry& entry : entries) {
        const Title title(entry.title);
        const std::pair<bool, qsizetype> weight{!title.leads(), title.letters()};
        if (title.letters() < fewestLetters || weight <= most) continue;
        if (std::none_of(runs.begin(), runs.end(), [&](const QString& run) { return title.says(run); })) continue;
        best = &entry;
        most = weight;
    }
    return best ? best->id : QString();
}

} // namespace help
