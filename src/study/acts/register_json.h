// Rows of the cards' tables as JSON, and back.
#pragma once

#include "study/acts/plan.h"

#include <QString>

namespace study {

// [["nome","Ana"],["datanasc",{"data":"1702-02-14"}]]: the columns in their order; a value is null, true or false, a
// number, a text, or a date. What the engine has no word for (plan.h) becomes null.
QString textOf(const RowChange::Columns& columns);
RowChange::Columns columnsOf(const QString& text); // what can't be read is left out

} // namespace study
