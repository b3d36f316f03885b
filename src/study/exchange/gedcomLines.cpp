#include "study/exchange/gedcomLines.h"

#include "platform/jet/error.h"
#include "study/exchange/gedcomTables.h"

#include <algorithm>

namespace study::exchange {

namespace {

constexpr qsizetype bufferSize = 1 << 16;

bool isBanned(char32_t letter)
{
    static constexpr char32_t firstShown = 0x20, deleted = 0x7F, lastOfC1 = 0x9F, noLetter = 0xFFFE,
                              lastOfPlane = 0xFFFF;
    if (letter == U'\t' || letter == U'\n') return false;
    return letter < firstShown || (letter >= deleted && letter <= lastOfC1) ||
           (letter >= noLetter && letter <= lastOfPlane);
}

// Neither a control character nor anything beside the letters in use.
bool isPlain(QChar letter)
{
    static constexpr char16_t firstPlain = 0xA0, firstPair = 0xD800;
    return (letter >= u' ' && letter <= u'~') || (letter >= firstPlain && letter < firstPair);
}

bool startsLetter(const QByteArray& utf8, qsizetype at)
{
    static constexpr unsigned char mask = 0xC0, following = 0x80;
    return (static_cast<unsigned char>(utf8[at]) & mask) != following;
}

// An accent of its own, U+0300 to U+036F, which belongs to the letter before it.
bool isAccent(const QByteArray& utf8, qsizetype at)
{
    const auto first = static_cast<unsigned char>(utf8[at]);
    return first == 0xCC || (first == 0xCD && at + 1 < utf8.size() && static_cast<unsigned char>(utf8[at + 1]) < 0xB0);
}

// Two "@" stand for one and stay together.
bool isInsidePair(const QByteArray& utf8, qsizetype at)
{
    qsizetype before = at;
    while (before > 0 && utf8[before - 1] == '@')
        --before;
    return (at - before) % 2 != 0;
}

bool canBeCut(const QByteArray& utf8, qsizetype at)
{
    return startsLetter(utf8, at) && !isInsidePair(utf8, at);
}

// Blanks at the ends of lines get lost in many programs: a text is cut between two letters of a word.
bool isGoodCut(const QByteArray& utf8, qsizetype at)
{
    return canBeCut(utf8, at) && utf8[at - 1] != ' ' && utf8[at] != ' ' && !isAccent(utf8, at);
}

// How much of the text, from `from` on, goes on a line with so much room.
qsizetype lengthOfPart(const QByteArray& utf8, qsizetype from, qsizetype room)
{
    if (utf8.size() - from <= room) return utf8.size() - from;
    for (qsizetype length = room; length > room / 2; --length)
        if (isGoodCut(utf8, from + length)) return length;
    qsizetype length = room;
    while (length > 1 && !canBeCut(utf8, from + length))
        --length;
    return length;
}

qsizetype roomBehind(const char* tag)
{
    static constexpr int around = 4; // the level, two blanks, \n
    return longestLine551 - around - static_cast<qsizetype>(qstrlen(tag));
}

} // namespace

QString withoutBanned(const QString& text, GedcomVersion version)
{
    if (std::all_of(text.begin(), text.end(), isPlain)) return text;
    QString all;
    all.reserve(text.size());
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QChar letter = text[at];
        if (letter == u'\r') {
            if (at + 1 == text.size() || text[at + 1] != u'\n') all += u'\n';
        } else if (letter.isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate()) {
            all += letter;
            all += text[++at];
        } else if (letter == u'\t' && version == GedcomVersion::V551)
            all += u' ';
        else if (!letter.isSurrogate() && !isBanned(letter.unicode()))
            all += letter;
    }
    return all;
}

GedcomLines::GedcomLines(QIODevice& target, GedcomVersion version) : target_(target), version_(version)
{
    bytes_.reserve(bufferSize + longestLine551);
    if (!is551()) bytes_ += "\xEF\xBB\xBF";
}

void GedcomLines::flush()
{
    if (!bytes_.isEmpty() && target_.write(bytes_) != bytes_.size())
        throw jet::Error(jet::number::diskFull, "O GEDCOM não pode ser escrito: o disco está cheio, ou falhou.");
    bytes_.resize(0);
}

// A level has one digit here.
void GedcomLines::begin(int level)
{
    bytes_.append(static_cast<char>('0' + level)).append(' ');
}

void GedcomLines::end()
{
    bytes_ += '\n';
    if (bytes_.size() >= bufferSize) flush();
}

void GedcomLines::line(int level, const char* tag, const QByteArray& value)
{
    begin(level);
    bytes_ += tag;
    if (!value.isEmpty()) bytes_.append(' ').append(value);
    end();
}

void GedcomLines::record(const QByteArray& xref, const char* tag)
{
    begin(0);
    bytes_.append('@').append(xref).append("@ ").append(tag);
    end();
}

void GedcomLines::bare(int level, const char* tag)
{
    line(level, tag, {});
}

void GedcomLines::pointer(int level, const char* tag, const QByteArray& xref)
{
    begin(level);
    bytes_.append(tag).append(" @").append(xref).append('@');
    end();
}

void GedcomLines::word(int level, const char* tag, const QByteArray& value)
{
    line(level, tag, value);
}

// In 5.5.1 each "@" is two; in 7.0 only the first letter of a line value.
QByteArray GedcomLines::escaped(const QString& text) const
{
    QByteArray utf8 = text.toUtf8();
    if (is551()) {
        if (utf8.contains('@')) utf8.replace("@", "@@");
    } else if (utf8.startsWith('@'))
        utf8.prepend('@');
    return utf8;
}

bool GedcomLines::text(int level, const char* tag, const QString& value)
{
    QString one = withoutBanned(value, version_);
    one.replace(u'\n', u' ');
    one.replace(u'\t', u' ');
    if (!is551()) {
        line(level, tag, escaped(one));
        return true;
    }
    const int longest = longestValue551(tag);
    bool isWhole = longest == 0 || one.size() <= longest;
    if (!isWhole) one.truncate(one[longest].isLowSurrogate() ? longest - 1 : longest);
    QByteArray bytes = escaped(one);
    if (const qsizetype room = roomBehind(tag); bytes.size() > room) {
        bytes.truncate(lengthOfPart(bytes, 0, room));
        isWhole = false;
    }
    line(level, tag, bytes);
    return isWhole;
}

void GedcomLines::memo(int level, const char* tag, const QString& value)
{
    const QStringList lines = withoutBanned(value, version_).split(u'\n');
    continued(level, tag, escaped(lines.first()));
    for (const QString& each : lines.mid(1))
        continued(level + 1, "CONT", escaped(each));
}

// A first line, or a CONT, and what doesn't fit it: CONC of the same level as the CONT lines.
void GedcomLines::continued(int level, const char* tag, const QByteArray& value)
{
    if (!is551()) return line(level, tag, value);
    const int below = qstrcmp(tag, "CONT") == 0 ? level : level + 1;
    qsizetype at = lengthOfPart(value, 0, roomBehind(tag));
    line(level, tag, value.left(at));
    while (at < value.size()) {
        const qsizetype length = lengthOfPart(value, at, roomBehind("CONC"));
        line(below, "CONC", value.mid(at, length));
        at += length;
    }
}

} // namespace study::exchange
