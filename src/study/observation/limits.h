// Limits of the observation of a person that a researcher typed.
#pragma once

#include "study/parish/snapshot.h"

namespace study::observation {

// Unknown where none was typed: the card fills both by itself, with birth and death, and these say nothing.
inline parish::Date typedFrom(const parish::Person& person)
{
    const parish::Date typed = parish::dateOf(person.observedFrom, true);
    return typed.day == person.birth.day ? parish::Date() : typed;
}
inline parish::Date typedUntil(const parish::Person& person)
{
    const parish::Date typed = parish::dateOf(person.observedUntil, true);
    return typed.day == person.death.day ? parish::Date() : typed;
}

} // namespace study::observation
