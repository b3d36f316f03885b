// The kinds of suffrages and their currencies, as `rituaismorte` keeps them.
#pragma once

#include <QString>

#include <array>
#include <optional>

struct Sufragio
{
    const char* tipolegpio; // the column's word
    const char* categoria;  // of the codes of its types
};

// In the order of their options.
inline constexpr std::array<Sufragio, 3> sufragios{{{"missa", "TipMi"}, {"oficio", "TipOf"}, {"esmola", "TipEs"}}};

// Which of them a column tells, whatever its blanks and capitals; none for another word.
std::optional<int> sufragioDaColuna(const QString& tipolegpio);

// Alphabetical, as the lists offer them.
inline constexpr std::array<const char*, 3> moedas{"Escudos", "Euros", "Reis"};

// The column keeps the first two letters.
QString colunaDaMoeda(const QString& moeda);
// Which of them a column tells; none for other letters.
std::optional<int> moedaDaColuna(const QString& tipoMoeda);
