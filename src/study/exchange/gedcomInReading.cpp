#include "study/exchange/gedcomInReading.h"

#include <algorithm>

namespace study::exchange {

const GedcomNode* Reading::take(const GedcomNode& of, const char* tag)
{
    const auto found = std::ranges::find_if(
        of.children, [&](const GedcomNode& one) { return one.tag == QLatin1String(tag) && !isTaken(one); });
    if (found == of.children.end()) return nullptr;
    take(*found);
    return &*found;
}

QString Reading::takeText(const GedcomNode& of, const char* tag)
{
    const GedcomNode* const node = take(of, tag);
    return node ? node->value : QString();
}

void Reading::takeWhole(const GedcomNode& node)
{
    take(node);
    for (const GedcomNode& one : node.children)
        takeWhole(one);
}

QString Reading::takeNotes(const GedcomNode& of)
{
    QStringList all;
    for (const GedcomNode& one : of.children) {
        if (isTaken(one) || (one.tag != "NOTE" && one.tag != "SNOTE")) continue;
        if (one.isPointer && !index_.notes.contains(one.value)) continue;
        take(one);
        if (one.isPointer) notesRead_ << one.value;
        all << (one.isPointer ? index_.notes.value(one.value) : one.value);
    }
    return all.join('\n');
}

QString Reading::shownValue(const GedcomNode& node) const
{
    if (!node.isPointer) return node.value;
    if (node.isVoid()) return {};
    if (const GedcomPersonSeen* const person = index_.personNamed(node.value))
        return QString("pessoa %1").arg(person->number);
    if (const GedcomFamilySeen* const family = index_.familyNamed(node.value))
        return QString("família %1").arg(family->number);
    if (index_.notes.contains(node.value)) notesRead_ << node.value;
    for (const QHash<QString, QString>* const texts : {&index_.sources, &index_.notes, &index_.objects})
        if (const auto found = texts->constFind(node.value); found != texts->constEnd()) return *found;
    return '@' + node.value + '@';
}

void Reading::tellLeft(const GedcomNode& below, const QString& path, const Tell& tell) const
{
    for (const GedcomNode& one : below.children) {
        const QString own = path.isEmpty() ? one.tag : path + '.' + one.tag;
        const bool isTold = !one.value.isEmpty() || one.children.empty() || isTechnical(one.tag);
        if (!isTaken(one) && isTold) tell(one, own, shownValue(one));
        if (!isTechnical(one.tag)) tellLeft(one, own, tell);
    }
}

Labelled labelled(const QString& text, const std::vector<LabelColumn>& labels, bool areContinued)
{
    Labelled found;
    if (text.isEmpty()) return found;
    QString last;
    bool isOver = false;
    const QStringList lines = text.split('\n');
    for (const QString& line : lines) {
        const qsizetype colon = isOver ? -1 : line.indexOf(": ");
        const QString label = colon < 0 ? QString() : line.left(colon);
        const bool isOne = colon >= 0 && std::ranges::any_of(labels, [&](const LabelColumn& one) {
                               return label == QString::fromUtf8(one.label);
                           });
        if (isOne && !found.values.contains(label)) {
            found.values.insert(label, line.mid(colon + 2));
            last = label;
        } else if (areContinued && !last.isEmpty())
            found.values[last] += '\n' + line;
        else {
            isOver = true;
            found.rest << line;
        }
    }
    return found;
}

} // namespace study::exchange
