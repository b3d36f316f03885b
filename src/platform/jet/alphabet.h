// The order of a Portuguese dictionary.
#pragma once

#include <QString>

#include <string_view>

namespace jet {

// Below, at or above zero, as a stands before, beside or behind b. Case doesn't count; accents count where the letters
// are the same.
int compareAlphabetically(const QString& a, const QString& b);
int compareAlphabetically(std::string_view a, std::string_view b); // in UTF-8

} // namespace jet
