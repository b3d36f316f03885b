// Two records beside each other in a grid.
#pragma once

#include "platform/forms/controls.h"
#include "study/parish/record.h"

#include <QString>

namespace study {

// Fills the grid with the lines: title, the one, "=" or "≠", the other. Lines that differ are bold. Without lines it is
// empty. The grid keeps the row chosen where there is still one.
void showSideBySide(Grid& grid, const parish::ComparedLines& lines, const QString& one, const QString& other);

} // namespace study
