// The box that comes up when a date field of this room is left.
#pragma once

#include <QString>

// Kept: it shows day and month of the text, without icon or title, each time the field is left. A text that is no date
// is shown as it is.
void mostraDiaEMes(const QString& data);
