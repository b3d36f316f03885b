// The box that comes up when a date field of this room is left.
#pragma once

#include <QString>

// Kept: day and month of the text, without icon or title, at each leaving. A text that is no date stands there as it
// is.
void mostraDiaEMes(const QString& data);
