// How often the windows of the study look up from their work, and at the BDP.
#pragma once

#include <chrono>

namespace study {

inline constexpr std::chrono::milliseconds betweenLooks{50};       // a cancel is felt at once, and looks cost nothing
inline constexpr std::chrono::milliseconds betweenQuestions{1000}; // to the BDP, whether it has changed

} // namespace study
