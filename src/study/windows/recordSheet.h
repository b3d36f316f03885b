// A person or a family in a few lines, as a snapshot has them.
#pragma once

#include "study/parish/snapshot.h"

#include <QString>

namespace study {

// "Indivíduo 29 – Manuel de Abreu", for a list.
QString titleOf(const parish::Person& person);
QString titleOf(const parish::Family& family);

// What the card of the record has of dates and places, and who belongs to it; lines end with CR LF.
QString sheetOf(const parish::Person& person, const parish::Catalogue& catalogue);
QString sheetOf(const parish::Family& family, const parish::Catalogue& catalogue);

} // namespace study
