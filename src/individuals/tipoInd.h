// The type of an individual as the date fields of the card derive it. The card's logic knows the codes "T" (not yet
// told), "0", "1" (birth known), "2" and "4" (birth and death known).
#pragma once

#include <QString>

// The code after the birth or the death field was left, where the field's own date and the other one are known or not.
// The code comes back as it was where the rule says nothing of it.
QString tipoPeloNascimento(const QString& tipo, bool temNascimento, bool temObito);
QString tipoPeloObito(const QString& tipo, bool temNascimento, bool temObito);
