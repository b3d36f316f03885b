// Whether somebody can be to somebody else what an act says.
#pragma once

#include "study/checks/check.h"

namespace study::checks {

// Why `who` can't be the relation of `whose` that a code of Paren tells, as the end of a sentence ("é mulher"); ""
// where nothing speaks against it, and for codes of the researcher's own. Precondition: the rule that is asked has the
// limit "geracao", the years between one generation and the next.
QString whyNotKin(int code, const parish::Person& who, const parish::Person& whose, const Check& check);

} // namespace study::checks
