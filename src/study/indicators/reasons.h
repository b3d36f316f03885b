// How what is left out is told, where several subjects leave it out.
#pragma once

namespace study::indicators::reasons {

inline constexpr auto outsidePeriod = "fora do período";
inline constexpr auto outsideBooks = "fora dos livros, ou em anos que lhes faltam";
inline constexpr auto notLocal = "acto de outra paróquia";
inline constexpr auto unknownSex = "sexo por determinar";

inline constexpr auto noDate = "sem data";
inline constexpr auto noMarriage = "sem data do casamento";

inline constexpr auto openUnion = "união sem fim conhecido";
inline constexpr auto notFirstMarriage = "não é o primeiro casamento";

} // namespace study::indicators::reasons
