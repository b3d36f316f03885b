// Which acts are of the parish.
#pragma once

#include "study/parish/snapshot.h"

namespace study::parish {

// An act whose place isn't told was written in the parish's own books; all are, where the parish isn't made known to
// itself. A residence isn't an act: its place has to be told.
inline bool isLocal(const Place& place, const Home& home)
{
    return !place.isKnown() || home.code.isEmpty() || isIn(place, home);
}

} // namespace study::parish
