#include "platform/desktop/codepage.h"

#include <QList>

#include <QUtf8StringView>

#include <algorithm>
#include <array>

namespace {

// Bytes 0x80 to 0x9F; the others have the code of their character. 0: no character.
constexpr std::array<char16_t, 32> upper{
    u'€', 0,    u'‚', u'ƒ', u'„', u'…', u'†', u'‡', u'ˆ', u'‰', u'Š', u'‹', u'Œ', 0, u'Ž', 0,
    0,    u'‘', u'’', u'“', u'”', u'•', u'–', u'—', u'˜', u'™', u'š', u'›', u'œ', 0, u'ž', u'Ÿ',
};

bool isUpper(char16_t code)
{
    return code >= 0x80 && code <= 0x9F;
}

bool readsAsUtf8(const QByteArray& bytes)
{
    return !isAscii(bytes) && QUtf8StringView(bytes).isValidUtf8();
}

} // namespace

bool isAscii(const QByteArray& bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](uchar byte) { return byte != 0 && byte < 0x80; });
}

std::optional<QString> fromCodePage(const QByteArray& bytes)
{
    if (bytes.contains('\0') || readsAsUtf8(bytes)) return std::nullopt;
    QString text = QString::fromLatin1(bytes);
    for (QChar& character : text) {
        if (!isUpper(character.unicode())) continue;
        character = upper[character.unicode() - 0x80];
        if (character.isNull()) return std::nullopt;
    }
    return text;
}

QByteArray toCodePage(const QString& text)
{
    QByteArray bytes;
    for (const char32_t code : text.toUcs4()) {
        const auto found = std::find(upper.begin(), upper.end(), code);
        if (code != 0 && found != upper.end())
            bytes += char(0x80 + (found - upper.begin()));
        else
            bytes += code <= 0xFF && !isUpper(char16_t(code)) ? char(code) : '?';
    }
    return bytes;
}
