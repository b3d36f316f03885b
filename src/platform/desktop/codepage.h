// Code page 1252, the encoding of the data files and of the mail URL.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

// Whether the bytes mean the same in every encoding that the program meets.
bool isAscii(const QByteArray& bytes);

// Nothing if a byte has no character in the code page, or if the bytes beyond ASCII read as UTF-8: then the text was
// saved in another encoding.
std::optional<QString> fromCodePage(const QByteArray& bytes);

// A character that the code page doesn't have gives "?".
QByteArray toCodePage(const QString& text);
