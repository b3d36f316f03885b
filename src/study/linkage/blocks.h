// Which pairs are worth comparing: those that share a key. A block that has grown is split, so that the cost stays
// close to linear.
#pragma once

#include "study/linkage/faces.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace study::linkage {

// Indexes of Faces::people() or Faces::couples(), in the order in which they are compared: each with the `reach` that
// follow it.
struct Block
{
    std::vector<uint32_t> members = {};
    size_t reach = 0;
};

inline constexpr size_t largestBlock = 500;

// First name with those of the parents, with a surname (or that of a parent, for who has none), with the first name of
// a spouse, with the place, with the nickname; alsoByTime: with the time of the birth, told or guessed, which brings
// the most pairs and the fewest of one person. A second given name may stand for the first one. A word that the table
// of names doesn't know stands for those that it is like, too.
std::vector<Block> blocksOfPeople(const Faces& faces, bool alsoByTime = true);
// The first names of both.
std::vector<Block> blocksOfCouples(const Faces& faces);

} // namespace study::linkage
