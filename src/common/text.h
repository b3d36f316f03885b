// Text functions that count from 1 and never fail; the rules of the system are written with them.
#pragma once

#include <QString>

// Position of `part` in `text`, from 1; 0 if it isn't there.
inline int InStr(const QString& text, const QString& part, int from = 1)
{
    return static_cast<int>(text.indexOf(part, from - 1)) + 1;
}

// `length` characters from position `start` on, as far as there are any.
// Precondition: `start` is 1 or more.
inline QString Mid(const QString& text, int start, int length = -1)
{
    return text.mid(start - 1, length);
}

inline QString Trim(const QString& text)
{
    return text.trimmed();
}
