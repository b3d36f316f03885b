// How well what is proposed for the same person or couple agrees with what is true.
#pragma once

#include "study/linkage/candidates.h"

#include <QByteArray>

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <vector>

namespace bench {

// The key of a parish with known truth (tools/truth/truth.h).
struct Key
{
    std::map<qint64, int> person, couple; // which one the record is of
    std::map<qint64, int> origin;         // of the person of this record: the true couple of parents; 0: not known
    std::set<qint64> wronglyLinked;       // people on whose cards something of another one stands

    static Key read(const QByteArray& csv);
    bool isTrue(const study::linkage::Link& link) const;
};

struct Score
{
    int proposed = 0, right = 0;
    int wanted = 0, gained = 0; // records too many; of these, how many the right proposals join

    double precision() const { return proposed > 0 ? double(right) / proposed : 1; }
    double recall() const { return wanted > 0 ? double(gained) / wanted : 1; }
    bool operator==(const Score&) const = default;
};

// Whom the tally is about: families, or people. Of people, the same family twice also joins husbands and wives.
struct Tallied
{
    std::map<qint64, int> truth; // of the records that count
    std::vector<const study::linkage::Link*> links;
    std::vector<std::pair<qint64, qint64>> implied; // pairs that come with a pair of families, with their bits beside
    std::vector<const study::linkage::Link*> implying;
};

// The families; the people of whom the key knows, and who are among `some`.
Tallied families(const Key& key, const std::vector<study::linkage::Link>& links);
Tallied people(const Key& key, const std::vector<study::linkage::Link>& links, const study::parish::Snapshot& parish,
               const std::optional<std::set<qint64>>& some = {});

// The people of whom more than a name is told, and more than a name and the days of acts: a family of origin, a union,
// a birth or an age, or, in a note or an act, the names of the parents or of a spouse.
std::set<qint64> withMoreThanAName(const study::parish::Snapshot& parish);
std::set<qint64> withMoreThanANameAndADay(const study::parish::Snapshot& parish,
                                          const study::linkage::Question& question);

// What is proposed of `links` by the test.
using IsProposed = std::function<bool(const study::linkage::Link& link)>;
Score scored(const Tallied& tallied, const IsProposed& isProposed);

// Of the records that have another of the same truth, the share that has a right one among its so many best.
double recallAmong(const Tallied& tallied, int best);

} // namespace bench
