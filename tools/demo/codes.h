// The codes of dados.dat that the demonstration writes.
#pragma once

namespace demo {

// EstCi
inline constexpr int single = 1, married = 2, widowed = 3, cleric = 6;
// Filia
inline constexpr int legitimate = 1, fatherUnknown = 3, foundling = 6;
// SitFa
inline constexpr int legitimateFamily = 1, fatherUnknownFamily = 3;
// Sacra
inline constexpr int allSacraments = 1, confessionOnly = 3, suddenDeath = 11, tooYoung = 12;
// ClaPa
inline constexpr int innocent = 1, ofConfession = 3, ofCommunion = 4, clergy = 9;
// FunPa
inline constexpr int parishPriest = 1;

} // namespace demo
