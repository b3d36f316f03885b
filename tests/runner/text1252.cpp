#include "text1252.h"

#include "failure.h"

#include <array>

// Bytes 0x80 to 0x9F; the rest is Latin 1. The five bytes without a character stand for themselves.
static constexpr std::array<char16_t, 32> upper{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

QByteArray to1252(const QString& text)
{
    QByteArray bytes;
    for (const QChar c : text) {
        const auto found = std::find(upper.begin(), upper.end(), c.unicode());
        if (found != upper.end())
            bytes += char(0x80 + (found - upper.begin()));
        else if (c.unicode() < 0x80 || (c.unicode() >= 0xA0 && c.unicode() <= 0xFF))
            bytes += char(c.unicode());
        else
            fail("no place in code page 1252 for the character " + quoted(c));
    }
    return bytes;
}

QString from1252(const QByteArray& bytes)
{
    QString text;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        text += QChar(code >= 0x80 && code < 0xA0 ? upper[code - 0x80] : char16_t(code));
    }
    return text;
}
