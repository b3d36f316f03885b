// The type of an individual as the date fields of the card derive it. The card's logic knows the codes "T" (not yet
// determined), "0", "1" (birth known), "2" and "4" (birth and death known).
#pragma once

#include <QString>

// The code after the birth or the death field was left; the flags tell whether birth and death are known. A code that
// the rule doesn't cover comes back unchanged.
QString tipoPeloNascimento(const QString& tipo, bool temNascimento, bool temObito);
QString tipoPeloObito(const QString& tipo, bool temNascimento, bool temObito);
