// Households told by hand: what real registers hold and no chronicle makes up.
#pragma once

#include "parish.h"

namespace demo {

// Adds them behind the people and families of the parish. Where the acts contradict each other, or leave something
// unread, a note says so, as a researcher would write it down.
void addHouseholds(Parish& parish);

} // namespace demo
