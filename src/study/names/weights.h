// What another spelling of a word is worth, where the same spelling is worth 1.
#pragma once

namespace study::spelling {

inline constexpr double ofOneClass = 0.9;        // Álvares, Alves
inline constexpr double likened = 0.7;           // by their letters
inline constexpr double likeEnough = 0.92;       // likeness() from which two words are likened
inline constexpr double ofSeveralReadings = 0.5; // times this, where a word may mean several names

} // namespace study::spelling
