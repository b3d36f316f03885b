// A person who was picked for an act or as an heir, and may have been deleted since.
#pragma once

#include "platform/forms/controls.h"

#include <QString>

// Whether the number in the field can be stored: it is that of a person in the store, or what the field held before the
// edit, which is left alone. Tells the user if it can't.
bool escolhidoExiste(TextBox* campo, const QString& antes);
