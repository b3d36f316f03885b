// Accepted links of a BDP taken apart, to see whether they are found again.
#pragma once

#include <QtGlobal>

#include <map>

namespace jet {
class Connection;
}

namespace bench {

// Of the people with an exact birth and a union, this share: their unions and their burial go to a record made anew
// with the same name, as if nobody had seen that it is the same person. Returns the numbers of both, the old one first.
// The same seed takes the same ones. Writes to the BDP.
std::map<qint64, qint64> hide(jet::Connection& bdp, double share, unsigned seed);

} // namespace bench
