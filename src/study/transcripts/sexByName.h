// The sex that a word of a transcription tells, and the one that a given name does, where it is left to the name.
#pragma once

#include "study/acts/act.h"

#include <QString>

#include <optional>

namespace study {

// By a whole word or its usual short form, whatever its case and accents: "f", "Mulher", "masc"; "d" and "i" tell that
// it isn't known. Nothing for any other word.
std::optional<Sex> sexCalled(const QString& word);

// By the first given name, in whatever spelling: a table of names, and for the others the last letter, -a or -o.
// Unknown for no name, for an abbreviation with several readings, and for any other ending.
Sex sexByName(const QString& name);

// The reason that an import keeps with a new person whose sex it took from the name.
inline constexpr auto sexFromName = "Sexo pelo nome";

} // namespace study
