// Codes of a BDP with their names, as a tally holds them: what a code means is told by the parish that was counted.
#pragma once

#include "study/indicators/reading.h"

#include <array>

namespace study::indicators {

// Both sexes as counts hold them, with what their columns and lines are called.
struct Sex
{
    qint32 code;
    const char* name;
};
inline constexpr std::array<Sex, 2> sexes = {
    {{static_cast<qint32>(parish::Gender::Male), "Homens"}, {static_cast<qint32>(parish::Gender::Female), "Mulheres"}}};

// The name, as long as a key can hold it, and the code, which tells names apart that begin alike.
Reading::At labelled(const QString& name, qint32 code);
// "Carpinteiro", "Trabalhador de e… (312)", "(312)" for one without a name; "por dizer" for 0 without a name.
QString labelOf(const Reading::At& at);

// A name of up to twenty letters, where no code is behind it.
Reading::At labelledByName(const QString& name);
QString toldName(const Reading::At& at); // "Confraria das almas…" for a longer one, "por dizer" for none

// A row for each label of a count, the most frequent first, with its share.
Table byLabel(const Reading& reading, quint16 count, Table table, const QString& labels, const QString& amounts,
              QString (*name)(const Reading::At&) = labelOf);

} // namespace study::indicators
