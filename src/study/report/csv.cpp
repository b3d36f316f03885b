#include "study/report/csv.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <utility>

namespace study::report {

namespace {

constexpr qsizetype leastOfBuffer = 4096;
constexpr char16_t firstOfTwoBytes = 0x80, firstOfThreeBytes = 0x800, firstOfSurrogates = 0xD800;

// No shortcut out of the loop: the compiler takes several letters at a time.
bool needsQuotes(QByteArrayView cell, char separator)
{
    bool is = !cell.isEmpty() && (cell.front() == ' ' || cell.back() == ' ');
    for (const char c : cell)
        is |= (c == separator) | (c == '"') | (c == '\n') | (c == '\r');
    return is;
}

// Precondition: no letter is half of a pair, and there is place for three bytes each. Returns their end.
char* writeUtf8(char* out, QStringView text)
{
    for (const QChar letter : text) {
        const char16_t c = letter.unicode();
        if (c < firstOfTwoBytes) {
            *out++ = static_cast<char>(c);
        } else if (c < firstOfThreeBytes) {
            *out++ = static_cast<char>(0xC0 | (c >> 6));
            *out++ = static_cast<char>(0x80 | (c & 0x3F));
        } else {
            *out++ = static_cast<char>(0xE0 | (c >> 12));
            *out++ = static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            *out++ = static_cast<char>(0x80 | (c & 0x3F));
        }
    }
    return out;
}

} // namespace

char* CsvRows::more(qsizetype size)
{
    const qsizetype before = bytes_.size(), after = before + size;
    if (after > bytes_.capacity()) bytes_.reserve(std::max({leastOfBuffer, 2 * before, after}));
    bytes_.resize(after);
    return bytes_.data() + before;
}

void CsvRows::separate()
{
    if (isFirst_)
        rowAt_ = bytes_.size();
    else
        *more(1) = form_.separator;
    isFirst_ = false;
}

void CsvRows::add(QByteArrayView cell)
{
    needsQuotes(cell, form_.separator) ? addQuoted(cell) : addWritten(cell);
}

void CsvRows::add(const QString& cell)
{
    const QStringView letters(cell);
    char16_t all = 0;
    bool isSpecial = !letters.isEmpty() && (letters.front() == u' ' || letters.back() == u' ');
    for (const QChar letter : letters) {
        const char16_t c = letter.unicode();
        isSpecial |= (c == QLatin1Char(form_.separator).unicode()) | (c == u'"') | (c == u'\n') | (c == u'\r');
        all |= c;
    }
    if (isSpecial || all >= firstOfSurrogates) return add(QByteArrayView(cell.toUtf8()));
    separate();
    shorten(writeUtf8(more(3 * letters.size()), letters));
}

void CsvRows::addNumber(qint64 cell)
{
    static constexpr qsizetype longest = std::numeric_limits<qint64>::digits10 + 2; // a sign, and the first digit
    separate();
    char* const at = more(longest);
    shorten(std::to_chars(at, at + longest, cell).ptr);
}

void CsvRows::addQuoted(QByteArrayView cell)
{
    separate();
    char* out = more(2 * cell.size() + 2);
    *out++ = '"';
    for (const char c : cell) {
        if (c == '"') *out++ = c;
        *out++ = c;
    }
    *out++ = '"';
    shorten(out);
}

void CsvRows::addWritten(QByteArrayView cells)
{
    separate();
    std::copy(cells.begin(), cells.end(), more(cells.size()));
}

void CsvRows::endRow()
{
    if (isFirst_ || bytes_.size() == rowAt_) bytes_ += "\"\"";
    std::copy(form_.lineEnd.begin(), form_.lineEnd.end(), more(form_.lineEnd.size()));
    isFirst_ = true;
}

QByteArray CsvRows::take()
{
    QByteArray taken = std::exchange(bytes_, {});
    bytes_.reserve(taken.size());
    return taken;
}

} // namespace study::report
