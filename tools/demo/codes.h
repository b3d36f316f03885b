// The codes of dados.dat that the demonstration reckons with.
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
inline constexpr int parishPriest = 1, curate = 6, withLicence = 15;
// Paren; the code of the woman follows that of the man
namespace kin {
inline constexpr int father = 1, son = 3, fathersFather = 5, mothersFather = 7, grandson = 9, brother = 11,
                     halfBrother = 13, fathersBrother = 19, mothersBrother = 21, nephew = 23, cousin = 33, husband = 43;
} // namespace kin

} // namespace demo
