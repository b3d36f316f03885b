#include "study/exchange/gedcomEncoding.h"

#include <array>
#include <cstring>

namespace study::exchange {

namespace {

using Byte = unsigned char;

constexpr Byte firstForeign = 0x80, firstAccent = 0xE0;
constexpr int longestOfUtf8 = 4;
constexpr qsizetype mostAccents = 6, lookedAhead = 8; // no letter has more

Byte byteAt(const QByteArray& bytes, qsizetype at)
{
    return at < bytes.size() ? static_cast<Byte>(bytes[at]) : Byte(0);
}

bool isLatin(Byte byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

// Bytes 0x80 to 0x9F of code page 1252; 0: no letter.
constexpr std::array<char16_t, 32> upper1252 = {u'€', 0,    u'‚', u'ƒ', u'„', u'…', u'†', u'‡', u'ˆ', u'‰', u'Š',
                                                u'‹', u'Œ', 0,    u'Ž', 0,    0,    u'‘', u'’', u'“', u'”', u'•',
                                                u'–', u'—', u'˜', u'™', u'š', u'›', u'œ', 0,    u'ž', u'Ÿ'};

QChar letter1252(Byte byte)
{
    if (byte < firstForeign || byte >= firstForeign + upper1252.size()) return QLatin1Char(static_cast<char>(byte));
    const char16_t letter = upper1252[byte - firstForeign];
    return letter ? QChar(letter) : QChar(QChar::ReplacementCharacter);
}

bool has1252(Byte byte)
{
    return letter1252(byte) != QChar(QChar::ReplacementCharacter);
}

// ANSI Z39.47 with what GEDCOM adds. Bytes 0xA0 to 0xCF stand for themselves; 0: no letter.
constexpr char16_t anselLetters[] = {
    0,      u'Ł',   u'Ø',   u'Đ', u'Þ',   u'Æ', u'Œ', 0x02B9, u'·', 0x266D, u'®', u'±', u'Ơ', u'Ư', 0x02BC, 0,
    0x02BB, u'ł',   u'ø',   u'đ', u'þ',   u'æ', u'œ', 0x02BA, u'ı', u'£',   u'ð', 0,    u'ơ', u'ư', 0x25A1, 0x25A0,
    u'°',   0x2113, 0x2117, u'©', 0x266F, u'¿', u'¡', u'ß',   u'€', 0,      0,    0,    0,    u'e', u'o',   u'ß'};
constexpr Byte firstAnsel = 0xA0;
static_assert(std::size(anselLetters) == 0x30);

// Bytes 0xE0 to 0xFF are accents, and stand before their letter.
constexpr char16_t accents[] = {0x0309, 0x0300, 0x0301, 0x0302, 0x0303, 0x0304, 0x0306, 0x0307, 0x0308, 0x030C, 0x030A,
                                0xFE20, 0xFE21, 0x0315, 0x030B, 0x0310, 0x0327, 0x0328, 0x0323, 0x0324, 0x0325, 0x0333,
                                0x0332, 0x0326, 0x031C, 0x032E, 0xFE22, 0xFE23, 0x0338, 0,      0x0313, 0};
static_assert(std::size(accents) == 0x20);

char16_t accentOf(Byte byte)
{
    return byte >= firstAccent ? accents[byte - firstAccent] : char16_t(0);
}

// 0 where the byte alone is no letter.
char16_t letterOfAnsel(Byte byte)
{
    if (byte < firstForeign) return byte;
    if (byte == 0x8D) return 0x200D;
    if (byte == 0x8E) return 0x200C;
    return byte >= firstAnsel && byte < firstAnsel + std::size(anselLetters) ? anselLetters[byte - firstAnsel]
                                                                             : char16_t(0);
}

// How many bytes the letter of UTF-8 has that begins there; 0 where there is none.
int lengthOfUtf8(const QByteArray& bytes, qsizetype at)
{
    for (int length = 2; length <= longestOfUtf8 && at + length <= bytes.size(); ++length)
        if (QUtf8StringView(bytes.constData() + at, length).isValidUtf8()) return length;
    return 0;
}

// How many accents of ANSEL stand there.
qsizetype accentsAt(const QByteArray& bytes, qsizetype at)
{
    qsizetype count = 0;
    while (count < mostAccents && accentOf(byteAt(bytes, at + count)))
        ++count;
    return count;
}

// The accents stand on a letter that Unicode has with them.
bool isComposed(const QByteArray& bytes, qsizetype at, qsizetype count)
{
    if (!isLatin(byteAt(bytes, at + count))) return false;
    QString letter(QChar(byteAt(bytes, at + count)));
    for (qsizetype i = 0; i < count; ++i)
        letter += QChar(accentOf(byteAt(bytes, at + i)));
    return letter.normalized(QString::NormalizationForm_C).size() == 1;
}

// "ão" at the end of a word in code page 1252; hardly any word ends in "ô" as this would be in ANSEL, "avô" but for
// one.
bool isTildeOf1252(const QByteArray& bytes, qsizetype at)
{
    return byteAt(bytes, at) == 0xE3 && (byteAt(bytes, at + 1) | 0x20) == 'o' && !isLatin(byteAt(bytes, at + 2)) &&
           at > 0 && (byteAt(bytes, at - 1) | 0x20) != 'v';
}

// "ãa", "ée", "çc" as ANSEL has them: in code page 1252 "äa", "âe", "ðc".
bool isOnlyAnsel(const QByteArray& bytes, qsizetype at)
{
    const Byte accent = byteAt(bytes, at), on = byteAt(bytes, at + 1) | 0x20;
    if (accent == 0xF0) return on == 'c';
    return (accent == 0xE2 && std::strchr("aeiou", on)) || (accent == 0xE4 && std::strchr("aon", on));
}

// Letters of the claim, without what programs put between them.
QString lettersOf(const QString& claimed)
{
    QString all;
    for (const QChar letter : claimed)
        if (letter.isLetterOrNumber()) all += letter.toUpper();
    return all;
}

// "Ã£" and the like, which are no letters of a word in code page 1252: "ã" of UTF-8.
bool isSurelyUtf8(const QByteArray& bytes, qsizetype at)
{
    const Byte second = byteAt(bytes, at + 1);
    return byteAt(bytes, at) == 0xC3 && second > 0xA0 && second <= 0xBF && second != 0xBB;
}

// Letters of both encodings that are taken for each other. What isn't of the one that the file is in is a guess.
GedcomText decodedMixed(const QByteArray& bytes, bool isUtf8)
{
    if (isUtf8 && QUtf8StringView(bytes).isValidUtf8()) return {QString::fromUtf8(bytes), {}};
    GedcomText read;
    read.text.reserve(bytes.size());
    for (qsizetype at = 0; at < bytes.size();) {
        const Byte byte = byteAt(bytes, at);
        const int length = byte < firstForeign || !(isUtf8 || isSurelyUtf8(bytes, at)) ? 0 : lengthOfUtf8(bytes, at);
        const bool isSure = byte < firstForeign || (isUtf8 ? length > 0 : length == 0 && has1252(byte));
        if (!isSure) read.guessed << at;
        if (length > 0)
            read.text += QString::fromUtf8(bytes.constData() + at, length);
        else
            read.text += letter1252(byte);
        at += qMax(1, length);
    }
    return read;
}

GedcomText decodedAnsel(const QByteArray& bytes)
{
    GedcomText read;
    read.text.reserve(bytes.size());
    for (qsizetype at = 0; at < bytes.size(); ++at) {
        const qsizetype count = accentsAt(bytes, at);
        const char16_t on = at + count < bytes.size() ? letterOfAnsel(byteAt(bytes, at + count)) : char16_t(0);
        if (on && (count == 0 || QChar(on).isLetter())) {
            read.text += QChar(on);
            for (qsizetype i = 0; i < count; ++i)
                read.text += QChar(accentOf(byteAt(bytes, at + i)));
            at += count;
        } else {
            read.guessed << at;
            read.text += letter1252(byteAt(bytes, at));
        }
    }
    read.text = read.text.normalized(QString::NormalizationForm_C);
    return read;
}

} // namespace

GedcomStart startOf(const QByteArray& firstBytes)
{
    if (firstBytes.startsWith("\xEF\xBB\xBF")) return {GedcomUnits::Bytes, 3};
    if (firstBytes.startsWith("\xFF\xFE")) return {GedcomUnits::LittleEndian, 2};
    if (firstBytes.startsWith("\xFE\xFF")) return {GedcomUnits::BigEndian, 2};
    if (firstBytes.size() >= 2 && firstBytes[0] != 0 && firstBytes[1] == 0) return {GedcomUnits::LittleEndian, 0};
    if (firstBytes.size() >= 2 && firstBytes[0] == 0 && firstBytes[1] != 0) return {GedcomUnits::BigEndian, 0};
    return {};
}

void ForeignBytes::count(const QByteArray& piece)
{
    text_ += piece;
    countTo(text_.size() - lookedAhead);
}

void ForeignBytes::countRest()
{
    countTo(text_.size());
}

void ForeignBytes::countTo(qsizetype end)
{
    if (end <= from_) return;
    for (qsizetype at = from_; at < end; ++at) {
        if (byteAt(text_, at) < firstForeign) continue;
        ++all;
        if (at >= utf8End_) {
            const int length = lengthOfUtf8(text_, at);
            ++(length > 0 ? utf8Letters : notUtf8);
            utf8End_ = at + qMax(1, length);
        }
        if (at > 0 && accentOf(byteAt(text_, at - 1))) continue; // counted with the first one
        const qsizetype accentsThere = accentsAt(text_, at);
        const bool isLetter = accentsThere > 0 ? isComposed(text_, at, accentsThere) && !isTildeOf1252(text_, at)
                                               : letterOfAnsel(byteAt(text_, at)) != 0;
        ++(isLetter ? ansel : notAnsel);
        if (isOnlyAnsel(text_, at)) ++onlyAnsel;
    }
    text_.remove(0, end - 1);
    utf8End_ = qMax<qsizetype>(0, utf8End_ - (end - 1));
    from_ = 1;
}

GedcomEncodingFound encodingOf(const QString& claimed, const ForeignBytes& bytes)
{
    static constexpr int fewBad = 4, sureAnsel = 3;
    const QString name = lettersOf(claimed);
    const bool saysAnsel = name == "ANSEL", saysUtf8 = name.startsWith("UTF8") || name == "UNICODE" || name.isEmpty();
    const bool says1252 = name.startsWith("ANSI") || name.endsWith("1252") || name == "WINDOWS" ||
                          name == "IBMWINDOWS" || name.startsWith("LATIN1") || name.endsWith("88591");
    if (bytes.all == 0)
        return {saysAnsel ? GedcomEncoding::Ansel : says1252 ? GedcomEncoding::Windows1252 : GedcomEncoding::Utf8};
    const auto found = [&](GedcomEncoding encoding, bool isAsSaid, const char* shown) -> GedcomEncodingFound {
        if (isAsSaid) return {encoding};
        const QString said =
            claimed.isEmpty() ? "não diz em que codificação está" : QString("diz que está em %1").arg(claimed.left(40));
        return {encoding, QString("O ficheiro %1 e foi lido em %2: veja se os acentos estão certos.").arg(said, shown)};
    };
    if (bytes.utf8Letters >= bytes.notUtf8) return found(GedcomEncoding::Utf8, saysUtf8, "UTF-8");
    const bool canBeAnsel = bytes.ansel >= fewBad * bytes.notAnsel;
    if ((saysAnsel && canBeAnsel) ||
        (bytes.onlyAnsel >= sureAnsel && bytes.onlyAnsel >= fewBad * fewBad * bytes.notAnsel))
        return found(GedcomEncoding::Ansel, saysAnsel, "ANSEL");
    return found(GedcomEncoding::Windows1252, says1252, "página de código 1252");
}

GedcomText decoded(const QByteArray& bytes, GedcomEncoding encoding)
{
    if (encoding == GedcomEncoding::Ansel) return decodedAnsel(bytes);
    return decodedMixed(bytes, encoding != GedcomEncoding::Windows1252);
}

} // namespace study::exchange
