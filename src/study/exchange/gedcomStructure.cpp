#include "study/exchange/gedcomStructure.h"

namespace study::exchange {

namespace {

constexpr qsizetype longestTag = 64;

bool isBlankLetter(QChar letter)
{
    return letter == u' ' || letter == u'\t';
}

bool isDigit(QChar letter)
{
    return letter >= u'0' && letter <= u'9';
}

bool isOfTag(QChar letter)
{
    return (letter >= u'A' && letter <= u'Z') || (letter >= u'a' && letter <= u'z') || letter == u'_' ||
           isDigit(letter);
}

qsizetype passBlanks(const QString& letters, qsizetype at)
{
    while (at < letters.size() && isBlankLetter(letters[at]))
        ++at;
    return at;
}

// Reads the parts of a line one after the other; each is false where the line hasn't it.
struct Scanner
{
    const QString& letters;
    qsizetype at = 0;

    bool isAt(char16_t letter) const { return at < letters.size() && letters[at] == letter; }

    bool takeLevel(int& level)
    {
        at = passBlanks(letters, at);
        const qsizetype from = at;
        while (at < letters.size() && isDigit(letters[at]) && at - from < 3)
            ++at;
        if (at == from || at == letters.size() || !isBlankLetter(letters[at])) return false;
        level = QStringView(letters).sliced(from, at - from).toInt();
        at = passBlanks(letters, at);
        return level <= deepestLevel;
    }

    // "@I1@", also without anything between its signs.
    bool takeXref(QString& xref)
    {
        if (!isAt(u'@')) return true;
        const qsizetype end = letters.indexOf(u'@', at + 1);
        if (end < 0) return false;
        xref = letters.sliced(at + 1, end - at - 1);
        at = passBlanks(letters, end + 1);
        return true;
    }

    bool takeTag(QString& tag)
    {
        const qsizetype from = at;
        while (at < letters.size() && isOfTag(letters[at]))
            ++at;
        if (at == from || at - from > longestTag || isDigit(letters[from])) return false;
        if (at < letters.size() && !isBlankLetter(letters[at])) return false;
        tag = letters.sliced(from, at - from);
        return true;
    }
};

// One pointer and nothing else; "@#DJULIAN@" is an escape, "@@a@" a text.
bool isPointer(const QString& value)
{
    const QStringView inner = QStringView(value).trimmed();
    if (inner.size() < 3 || inner.front() != u'@' || inner.back() != u'@' || inner[1] == u'#') return false;
    return inner.sliced(1, inner.size() - 2).indexOf(u'@') < 0;
}

} // namespace

bool GedcomStructureLine::isBlank() const
{
    return level < 0 && passBlanks(value, 0) == value.size();
}

bool GedcomStructureLine::isTextBelow(int lastLevel) const
{
    return level < 0 || (!tagInCapitals && level > lastLevel + 1);
}

GedcomStructureLine GedcomStructureLine::asText(int blankLines) const
{
    GedcomStructureLine text = *this;
    text.value = QString(blankLines, u'\n') + whole;
    return text;
}

GedcomStructureLine structureLine(const GedcomLine& line)
{
    GedcomStructureLine read;
    read.number = line.number;
    Scanner scanner{line.letters};
    int level = -1;
    QString tag;
    if (!scanner.takeLevel(level) || !scanner.takeXref(read.xref) || !scanner.takeTag(tag)) {
        read.xref.clear();
        read.value = read.whole = line.letters;
        return read;
    }
    read.level = level;
    read.tag = tag.toUpper();
    read.tagInCapitals = read.tag == tag;
    read.value = line.letters.sliced(qMin(scanner.at + 1, line.letters.size()));
    if (!read.tagInCapitals) read.whole = line.letters;
    return read;
}

QString withoutFirstAt(const QString& value)
{
    return value.startsWith("@@") ? value.sliced(1) : value;
}

GedcomNode nodeOf(const GedcomStructureLine& line, bool in70)
{
    GedcomNode node;
    node.xref = line.xref;
    node.tag = line.tag;
    node.isPointer = isPointer(line.value);
    node.value = in70 ? withoutFirstAt(line.value) : line.value;
    node.line = line.number;
    return node;
}

} // namespace study::exchange
