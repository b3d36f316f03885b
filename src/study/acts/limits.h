// How old people are when they marry, have children and stand at a font, and how far acts lie from what they tell of.
// One table for whatever judges by ages and dates, so that the finder offers nobody whom the objections refuse for
// good.
#pragma once

namespace study::limits {

// In completed years, both included.
struct Ages
{
    int youngest = 0;
    int oldest = 0;
};

inline constexpr int oldestOfAll = 115;

// Beyond these nobody is taken for the one meant. Girls married from 12 and boys from 14 by the law of the church,
// which also wants godparents of 7 years and witnesses of 14.
inline constexpr Ages mother{12, 55};
inline constexpr Ages father{14, 85};
inline constexpr Ages bride{12, 90};
inline constexpr Ages groom{14, 90};
inline constexpr Ages godparent{7, 95};
inline constexpr Ages witness{14, 95};
inline constexpr Ages priest{20, 95};

// Beyond this an act is asked about.
inline constexpr int oldestLikelyFather = 75;

// To the age of which a couple of the BDP is taken for one that may still have a child.
inline constexpr int oldestBearing = 50;

// In days.
inline constexpr int posthumous = 300;        // from the death of a father to the birth, or the baptism
inline constexpr int baptisedAfterMother = 8; // from the burial of a mother who died in childbed
inline constexpr int twins = 10;         // between the births, or baptisms, of two children of one birth at the most
inline constexpr int nextChild = 240;    // between two births at the least: 8 months
inline constexpr int deathToBurial = 10; // or a slip
inline constexpr int birthToBaptism = 60;

} // namespace study::limits
