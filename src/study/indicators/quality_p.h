// What the quality of a parish is told by: counts that its filling and its figures share.
#pragma once

#include "study/indicators/reading.h"

namespace study::indicators::quality_counts {

// First dimension: the decade of the event, where nothing else is told.
enum Count : quint16
{
    Births,       // gender; precision: 0 exact, 1 about, 2 the year alone
    NewYears,     // births on a 1 January, exact or not
    Deaths,       // 1 where the birth is known
    Spouses,      // of marriages with a date; 1 where the birth is known
    Confinements, // children of a family within three days are one; exact births alone
    Twins,        // confinements of more than one
    FirstBirths,  // behind an exact marriage; 1 where it came before eight months
    Families,     // place of the class in `classes`; 1 where the stored type isn't the computed one; decade of the
                  // marriage, 0 where its date isn't known
    People,       // no decade: 1 for who has neither a family of origin nor one of the own; gender
    AgesAtDeath,  // no decade: the age, as told
    AgesAtMarriage,
    InfantBirths,  // no decade: exact
    InfantDeaths,  // no decade: age in days, both dates exact
    BornElsewhere, // the first of the reasons
    DiedElsewhere,
    MarriedElsewhere,
    Undated
};
inline constexpr std::array<const char*, 17> names = {
    "nascimentos",      "um-de-janeiro",       "obitos",           "conjuges",      "partos",
    "partos-de-gemeos", "primeiros-filhos",    "familias",         "pessoas",       "idades-ao-obito",
    "idades-ao-casar",  "nascimentos-exactos", "obitos-ate-1-ano", "nascidos-fora", "falecidos-fora",
    "casados-fora",     "casamentos-sem-data"};
inline constexpr std::array<Reason, 4> reasons = {{{BornElsewhere, "nascimento fora da freguesia"},
                                                   {DiedElsewhere, "óbito fora da freguesia"},
                                                   {MarriedElsewhere, "casamento fora da freguesia"},
                                                   {Undated, "família sem data de casamento"}}};

inline constexpr std::array<const char*, 15> classes = {
    "MF I",  "MF I′", "MF II",        "MO I",        "MO I′",
    "MO II", "EF I",  "EF I′",        "EF II",       "EO I",
    "EO I′", "EO II", "um só membro", "contradição", "marido e mulher por distinguir"};

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings);

} // namespace study::indicators::quality_counts
