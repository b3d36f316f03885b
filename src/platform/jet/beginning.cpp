// The index knows the case of ASCII letters only, like that of every letter. So each letter of the beginning has its
// own ranges: "Kátia%" is found from "ká" and from "kÁ" on, and behind the Kelvin sign, which is a K, too.
#include "platform/jet/beginning.h"

#include "platform/jet/tokens.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

namespace jet {

namespace {

constexpr qsizetype mostRanges = 8; // the engine takes them for one nested expression
constexpr char32_t firstBeyondAscii = 0x80;
constexpr char32_t lastFolded = 0x1ffff; // no letter behind it has two cases
constexpr char16_t byteOrderMark = 0xfeff;

// All letters that count as the folded one, in the order of Unicode.
std::vector<char32_t> casesOf(char32_t foldedLetter)
{
    static const auto others = [] {
        std::vector<std::pair<char32_t, char32_t>> pairs;
        for (char32_t letter = 0; letter <= lastFolded; ++letter)
            if (const char32_t folded = QChar::toCaseFolded(letter); folded != letter)
                pairs.emplace_back(folded, letter);
        std::sort(pairs.begin(), pairs.end());
        return pairs;
    }();
    std::vector<char32_t> cases{foldedLetter};
    for (auto it = std::lower_bound(others.begin(), others.end(), std::pair(foldedLetter, char32_t(0)));
         it != others.end() && it->first == foldedLetter; ++it)
        cases.push_back(it->second);
    std::sort(cases.begin(), cases.end());
    return cases;
}

QString text(char32_t letter)
{
    return QString::fromUcs4(&letter, 1);
}

// The texts that begin so.
QString range(const QString& column, const QString& beginning, char32_t last)
{
    const char32_t next = last == 0xd7ff ? 0xe000 : last + 1; // between them are no letters
    return QStringLiteral("%1 >= %2 collate nocase and %1 < %3 collate nocase")
        .arg(column, textLiteral(beginning + text(last)), textLiteral(beginning + text(next)));
}

// Letters that stand for themselves. Those behind the mark of the byte order belong to no language of the registers.
bool isLiteral(char32_t letter)
{
    return letter != U'%' && letter != U'_' && letter < byteOrderMark;
}

} // namespace

QString beginningCondition(const QString& column, const QString& pattern)
{
    QStringList ranges;
    QString beginning;                                        // the letters before the present one, all ASCII
    std::optional<char32_t> last;                             // the last of them, which isn't in it, where it is ASCII
    const QString read = QString::fromUtf8(pattern.toUtf8()); // as like reads it
    for (const char32_t letter : read.toUcs4()) {
        if (!isLiteral(letter) || ranges.size() > mostRanges) break;
        if (last) beginning += text(*last);
        last.reset();
        const char32_t folded = QChar::toCaseFolded(letter);
        QStringList ofLetter;
        for (const char32_t each : casesOf(folded))
            if (each >= firstBeyondAscii) ofLetter << range(column, beginning, each);
        ranges = ofLetter + ranges; // in the order of the index: they stand before those of the letters to the left
        if (folded >= firstBeyondAscii) break;
        last = folded;
    }
    if (last) ranges.prepend(range(column, beginning, *last)); // of all letters
    if (ranges.isEmpty()) return {};
    // Like doesn't see a mark of the byte order before a text, and takes bytes for a text; they stand last of all.
    ranges << QStringLiteral("%1 between %2 and x'ff'").arg(column, textLiteral(QString(QChar(byteOrderMark))));
    return ranges.join(QLatin1String(" or "));
}

} // namespace jet
