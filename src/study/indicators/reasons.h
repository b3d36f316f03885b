// How what is left out is told, where several subjects leave it out.
#pragma once

namespace study::indicators::reasons {

inline constexpr auto outsidePeriod = "fora do período";
inline constexpr auto outsideBooks = "fora dos livros, ou em anos que lhes faltam";
inline constexpr auto notLocal = "acto de outra paróquia";
inline constexpr auto otherSex = "do outro sexo";
inline constexpr auto unknownSex = "sexo por determinar";
inline constexpr auto otherLegitimacy = "de outra filiação";
inline constexpr auto unknownLegitimacy = "filiação desconhecida";

inline constexpr auto noDate = "sem data";
inline constexpr auto approximateDate = "data aproximada";
inline constexpr auto noBirth = "sem nascimento";
inline constexpr auto noWifeBirth = "sem nascimento da mulher";
inline constexpr auto noHusbandBirth = "sem nascimento do marido";
inline constexpr auto derivedWifeBirth = "idade da mulher só por declaração";
inline constexpr auto noMarriage = "sem data do casamento";
inline constexpr auto approximateMarriage = "data do casamento aproximada";
inline constexpr auto noDeath = "sem óbito";
inline constexpr auto noAge = "sem idade";
inline constexpr auto noState = "sem estado civil";
inline constexpr auto noOrigin = "sem família de origem";
inline constexpr auto noPlace = "sem lugar";

inline constexpr auto noUnion = "família de um só membro";
inline constexpr auto openUnion = "união sem fim conhecido";
inline constexpr auto contradiction = "datas que se contradizem";
inline constexpr auto notFirstMarriage = "não é o primeiro casamento";
inline constexpr auto notObserved = "fora de observação";

} // namespace study::indicators::reasons
