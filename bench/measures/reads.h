// What a hand that knows the file would read to show what the program shows: the lists of codes and of places stay in
// memory, and all the rest comes by one statement for each thing shown.
#pragma once

#include "kit/bare.h"

namespace bench {

void readPerson(Bare& bare, double person);
void readFamily(Bare& bare, double family); // with its couple and its children
void readPlace(Bare& bare, double person);  // the name of the locality of birth
// The parents and the grandparents.
void readTree(Bare& bare, double person);
void readFactsOf(Bare& bare, double person); // the professions

// The lists that a card offers, read when it is loaded.
void readListsOfPerson(Bare& bare);
void readListsOfFamily(Bare& bare);

// The number of the last row of its kind.
double lastPerson(Bare& bare);
double lastFamily(Bare& bare);

} // namespace bench
