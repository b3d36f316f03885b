// How a parish lives, how its registers tell of it, and how well somebody reads them. Shares are from 0 to 1.
#pragma once

#include "random.h"

#include <cmath>

namespace truth {

struct Rates
{
    // Life: usual orders of size of north-western parishes before 1820.
    double infantDeaths = 0.19; // in the first year
    double childDeaths = 0.18;  // from the first to the tenth birthday, of those who live to see the first
    double twins = 0.012;       // of births
    double foundlings = 0.02;
    double celibacy = 0.22;
    double outsiders = 0.28; // grooms of another parish
    double emigrants = 0.22; // of men, before they marry
    double leavers = 0.18;   // couples that leave with their children
    double nameGivenAgain = 0.45;
    double remarriedWidowers = 0.5, remarriedWidows = 0.2;

    // The registers. One person varies from act to act: elements are left out, others are taken, the spelling is free.
    double elementLeftOut = 0.22;
    double devotionLeftOut = 0.35; // "de Jesus", "da Conceição": a woman bears it for a time
    double otherSurname = 0.05;    // as if another line of the family had named them
    double nameOfLaterLife = 0.1;  // people who go by other surnames once they are grown
    double actsLost = 0.02;
    double ageTold = 0.6, ageHeaped = 0.4;
    double priestTold = 0.85; // whose name can be read

    // The researcher: what stands on the card.
    double oldSpelling = 0.1; // of words, as the register has them
    double misread = 0.012;
    double unread = 0.005;
    double wrongLink = 0.012; // where a namesake stands in the BDP
};

// Whether it happens, at such a chance.
inline bool happens(demo::Random& random, double chance)
{
    constexpr int steps = 1'000'000;
    return random.between(1, steps) <= static_cast<int>(std::lround(chance * steps));
}

} // namespace truth
