// How much a way in or out takes at a time.
#pragma once

#include <QtGlobal>

namespace study::exchange {

inline constexpr qint64 bytesAtOnce = 1 << 16;       // read or written
inline constexpr qint64 rowsBetweenQuestions = 4096; // whether it goes on

} // namespace study::exchange
