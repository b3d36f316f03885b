// A parish that is simulated from known parameters, so that what an indicator has to find is known by formula.
//
// Two steps: the lives themselves, and what the registers keep of them. Lives and emigration are independent of births
// and of deaths, so that nothing but a rule of observation, when it is broken, can turn an estimate away from the
// truth.
#pragma once

#include "study/parish/snapshot.h"

#include <algorithm>
#include <array>
#include <vector>

namespace simulated {

// Age at first marriage: the least one, and a gamma time of whole shape behind it.
struct MarriageAge
{
    double least = 0;
    int shape = 3;
    double scale = 3; // years

    double mean() const { return least + shape * scale; }
    double deviation() const;
};

// How often an event comes in each month, a mean year having 1 on each day: what is given is made so.
using Season = std::array<double, 12>;
Season season(const Season& weights);

// Deaths a year at exact age x: constant + level·e^(slope·x).
struct Mortality
{
    double constant = 0.006, level = 0.0004, slope = 0.075;

    double cumulated(double from, double until) const; // hazard
    double quotient(double from, double until) const { return 1 - survival(from, until); }
    double survival(double from, double until) const;
    double expectation(double from) const;
};

struct Parameters
{
    int couples = 400;
    int firstYear = 1700, years = 50; // of the marriages
    MarriageAge men = {17, 3, 3.5}, women = {16, 3, 3};
    double movers = 0, moversLater = 0; // share of the spouses who come from elsewhere, and how much older they marry

    // The rate at each age of the wife is level·n(age)·e^(control·v(age)).
    double level = 0.95, control = 0.2;
    int newLevelFrom = 0; // year of marriage from which on the level is another one; 0: never
    double newLevel = 0.95;
    double sterile = 0.05, twins = 0.012; // shares: of couples, of confinements

    // Of thousand births: endogenous deaths, and those of D(x) = exogenous·log³(x + 1).
    double endogenous = 0.060, exogenous = 0.0055;
    std::array<double, 3> childhood = {0.030, 0.010, 0.006}; // deaths a year at 1–4, 5–9, 10–14
    Mortality adults = {};
    double leaving = 0.02; // families a year, from the marriage until the last death of the parents

    Season marriages = season({11, 13, 4, 7, 10, 8, 7, 6, 8, 10, 12, 4});
    Season births = season({11, 12, 12, 10, 9, 8, 8, 9, 10, 10, 9, 10});
    Season deaths = season({11, 11, 10, 9, 8, 7, 8, 11, 12, 11, 9, 10});

    double rate(int group) const;              // births a year at 15–19 (0) to 45–49 (6)
    double totalFrom(int group) const;         // five times their sum to 45–49
    double infantMortality() const;            // of 1
    double diedBefore(double day) const;       // share of births that die before so many days, from 28 to 365
    double childhoodQuotient(int group) const; // at 1–4, 5–9, 10–14
};

// Days are Julian day numbers.
struct Child
{
    qint32 birth = 0;
    qint32 death = 0; // 0: lives to fifteen at least
    bool girl = false;
    bool twin = false; // the second one
};
struct Couple
{
    qint32 marriage = 0, hisBirth = 0, herBirth = 0, hisDeath = 0, herDeath = 0;
    qint32 leaves = 0; // from this day on nothing of the family is told here; may be behind all deaths
    bool heMoved = false, sheMoved = false;
    std::vector<Child> children = {}; // born here, by their births

    qint32 end() const { return std::min(hisDeath, herDeath); }
    bool isOpen() const { return leaves <= end(); }
};
std::vector<Couple> lives(const Parameters& parameters, quint32 seed);

// What is written down, and what a study makes of it. All at rest: each event that happens here, exactly and linked.
struct Registers
{
    bool passports = false;        // who leaves is told on the day
    int firstBaptisms = 0;         // year: who was born before has no birth here
    bool moversUnlinked = false;   // the births of those who moved aren't found; their ages are stated
    int daysUnbaptised = 0;        // who dies younger isn't written down
    int twinsApart = 0;            // days between the baptisms of twins
    bool openToFifty = false;      // open couples are taken to live until the wife's fiftieth birthday
    bool withChildrenOnly = false; // couples without a child are left out
    bool endsAtLastBirth = false;  // the observation of each couple ends with its last child
    bool heapedAges = false;       // wives have no birth, but an age at marriage in round fives
    bool marriedByChild = false;   // a couple marries a year before its first child
    bool followedBeyond = false;   // families are taken to be present for sixty years
    bool survivorsLinked = false;  // of the children who die before fifteen every other one is missed
};
study::parish::Snapshot written(const std::vector<Couple>& couples, const Registers& registers = {});

} // namespace simulated
