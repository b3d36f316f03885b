// How likely the two genes of a child are to be copies of one gene of an ancestor of both parents.
#pragma once

#include "study/parish/snapshot.h"

namespace study::indicators {

// The canonical degree to which kin is looked for: so many generations up on each side.
inline constexpr int farthestDegree = 4;
// F is counted in these, without rounding: the longest paths halve a gene nine times, and a common ancestor may be
// inbred by as much.
inline constexpr qint32 inbreedingUnits = 1 << 18;

// The parents by blood: those of the family that a person comes from, but where it only took the child in, as a foster
// family or as that of a foundling or of an adopted child. Nothing for one who isn't linked.
const parish::Person* fatherByBlood(const parish::Person& child);
const parish::Person* motherByBlood(const parish::Person& child);

// F of the children of two people, by counting paths: over each common ancestor A, and each two lines of i and j
// generations from the parents up to A that meet nowhere else, (1/2)^(i+j+1)·(1 + F of A). That of A is counted in the
// same way, from ancestors that are taken for not inbred. A least: who isn't linked has no ancestors. In units, 0 to
// all of them; the same for both orders; ends whatever is linked.
qint32 inbreedingOfChildren(const parish::Person& father, const parish::Person& mother);

} // namespace study::indicators
