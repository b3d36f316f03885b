// A name as numbers, so that a tally can hold it.
#pragma once

#include <QString>

#include <array>

namespace study::indicators {

using PackedName = std::array<qint32, 3>;
inline constexpr int lettersOfAName = 15;

// Small letters of Portuguese, blanks and hyphens; another letter stands without its accent, and what is none is left
// out. What is longer than lettersOfAName is cut off. Three zeroes for an empty name.
PackedName packed(const QString& name);
// With a capital at the beginning of each word.
QString unpacked(const PackedName& numbers);

} // namespace study::indicators
