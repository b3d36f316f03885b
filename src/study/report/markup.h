// Text on its way into markup.
#pragma once

#include <QString>

namespace study::report {

// Without the characters that XML doesn't know: controls but tab and line feed, halves of a pair, U+FFFE and U+FFFF.
QString legible(const QString& given);

// The same, with what marks up escaped; also for values between double quotes.
QString escaped(const QString& given);

} // namespace study::report
