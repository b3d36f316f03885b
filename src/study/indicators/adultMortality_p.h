// What the mortality of married adults is told by: counts that its filling and its figures share.
#pragma once

#include "study/indicators/adultLife.h"
#include "study/indicators/reading.h"

namespace study::indicators::adult_counts {

// Cohort of the marriage, gender; then the estimate and the first age of a group, or the age in days.
enum Count : quint16
{
    Years, // at risk, in half days
    Deaths,
    Enter, // by the last estimate, one day before: who enters is at risk from that day on
    Dies,
    Leaves,
    Lives, // by estimate
    // As Years, Deaths and Lives, of those who are married at an exact age, from that age on: the estimate by
    // startPlace().
    YearsFrom,
    DeathsFrom,
    LivesFrom,
    Sexless, // the first of the reasons
    Elsewhere,
    OutOfBooks,
    NoBirth,
    Contradiction,
    Open
};
inline constexpr std::array<const char*, 15> names = {
    "meios-dias",        "obitos",           "entradas",       "obitos-por-dia", "saidas",
    "pessoas",           "meios-dias-desde", "obitos-desde",   "pessoas-desde",  "sem-sexo",
    "fora-da-freguesia", "fora-dos-livros",  "sem-nascimento", "contradicao",    "uniao-aberta"};
inline constexpr std::array<Reason, 6> reasons = {{{Sexless, "sexo indeterminado"},
                                                   {Elsewhere, "primeiro casamento fora da freguesia"},
                                                   {OutOfBooks, "casamento fora dos livros de casamentos ou de óbitos"},
                                                   {NoBirth, "sem nascimento"},
                                                   {Contradiction, "datas que se contradizem"},
                                                   {Open, "união sem fim conhecido: fica fora da estimativa das uniões "
                                                          "fechadas"}}};
inline constexpr int firstAge = 20, lastAge = 80, endOfAges = 200, groupYears = 5;
inline constexpr std::array<int, 3> starts = {20, 25, 30}; // exact ages at which a table may begin
constexpr qint32 startPlace(Estimate estimate, std::size_t start)
{
    return static_cast<qint32>(estimate) + static_cast<qint32>(estimates.size() * start);
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings);

} // namespace study::indicators::adult_counts
