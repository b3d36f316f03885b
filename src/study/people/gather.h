// Those among the people of the BDP who may have a name.
#pragma once

#include "study/people/evidence.h"
#include "study/people/sought.h"

#include <vector>

namespace study {

struct Gathered
{
    std::vector<qint64> rows; // of the index, those with the likelier names first, none twice
    bool all = true;          // false: there are more, who weren't looked at
};

// Looks up whole and half names: the first name with each other one; who has the first name alone; and where nobody has
// any of the others, who has the first name with whatever others. The last word may be typed in part.
class Gatherer
{
public:
    explicit Gatherer(NameIndex& index) : index_(index) {}

    // The words that the last word of the name may become, as long as the BDP has none that is written so.
    void complete(Sought& sought);

    Gathered gather(const Sought& sought);

private:
    void take(WordCode code, const Sought& sought, int limit, double bits);
    void takeNearest(WordCode code, const Sought& sought, int limit, std::vector<qint64>& rows);
    void takePairs(const Sought& sought);

    NameIndex& index_;
    std::vector<std::pair<qint64, double>> found_; // row, bits
    bool all_ = true;
};

} // namespace study
