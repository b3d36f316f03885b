// The individual sheet: a document of the program's folder, filled in with a person.
#pragma once

#include "platform/jet/recordset.h"

// Fills the template fichInd.doc in with the current row of `individuo` and leaves the result beside it, as
// resultfichInd.doc, in place of an earlier one.
// Kept: failures are passed over, and the end is announced all the same.
void FichaIndividual(const jet::Recordset& pessoa);
