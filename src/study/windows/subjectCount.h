// A subject counted piece by piece, by who wants to know how far it is.
#pragma once

#include "study/indicators/subject.h"

#include <functional>
#include <vector>

namespace study {

inline constexpr unsigned countsBetweenQuestions = 4096; // whether a count goes on

// A parish in pieces small enough to ask between them whether to go on; at least one. They add up to the whole.
std::vector<indicators::Share> piecesOf(const parish::Snapshot& parish);

// As indicators::tallyOf(). goesOn is asked now and then with the share that is done, from 0 to 1, also within a piece;
// where it answers false, parish::Snapshot::Interrupted is thrown. Throws what the subject's fill() throws.
indicators::Tally countedInPieces(const indicators::Subject& subject, const indicators::Study& study,
                                  const std::function<bool(double done)>& goesOn);

} // namespace study
