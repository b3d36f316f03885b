// All pairs of a parish that are worth something, with their bits. For this room alone.
#pragma once

#include "study/linkage/blocks.h"
#include "study/linkage/compare.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace study::linkage {

struct Score
{
    uint32_t one = 0, other = 0; // indexes; one < other
    double bits = 0;
    int couple = -1; // of two people: the index of the score of their couples, where that one tells more
};

// Shares the blocks among the threads, and asks now and then whether to go on (goesOn from this thread alone). Of each
// pair the bits, those of `least` and more, by their indexes, each once; the same for any number of threads. `touched`
// (empty: all) tells for each index whether its pairs are wanted; a pair is where one of both is.
class Scorer
{
public:
    Scorer(const Faces& faces, const Comparer& comparer, double least, int threads)
        : faces_(faces), comparer_(comparer), least_(least), threads_(threads)
    {
    }

    std::vector<Score> people(const std::vector<bool>& touched, const parish::Snapshot::GoesOn& goesOn) const;
    std::vector<Score> couples(const std::vector<bool>& touched, const parish::Snapshot::GoesOn& goesOn) const;

private:
    template <class Record>
    std::vector<Score> run(const std::vector<Block>& blocks, const std::vector<Record>& records,
                           const std::vector<bool>& touched, const parish::Snapshot::GoesOn& goesOn) const;

    const Faces& faces_;
    const Comparer& comparer_;
    double least_;
    int threads_;
};

// For each score, the best other one of either record whose third record isn't the same as both.
//
// Below some bits two records are rather two. The third is the same as both where what it has with the one and with the
// other is more than that, even if two of them share no block: a child with a first name alone, and an adult of whom a
// spouse is told and no parents. And a third that has a place of its own, with somebody who isn't the same as these, is
// the less a rival the more it has there.
class Rivals
{
public:
    // The bits of two, whether they share a block or not; none where they are vetoed.
    using Compare = std::function<std::optional<double>(uint32_t one, uint32_t other)>;
    Rivals(const std::vector<Score>& scores, size_t records, Compare compare);
    struct Rival
    {
        uint32_t record = 0;
        bool ofOne = true;
        double bits = 0;
    };
    std::optional<Rival> of(const Score& score) const;

    // What a better place of the other record takes from the score where the candidates of this one are ordered: as
    // many bits as that place has more, none below 0. Looks at the few best places of the other one alone.
    double taken(const Score& score, uint32_t record) const;

    // The best candidates of each record, so many of each kind, in the order of the scores: those that stand best when
    // what a better place of the candidate takes is taken off; of equal ones the strongest. Asks before each record.
    using KindOf = std::function<int(const Score& score)>; // 0 and more
    std::vector<Score> bestOfEach(int each, const KindOf& kindOf, const std::function<void()>& ask) const;

private:
    void markBestOf(uint32_t record, size_t most, const KindOf& kindOf, std::vector<bool>& marked) const;
    std::optional<double> bitsOf(uint32_t one, uint32_t other) const;
    bool goesAlong(uint32_t third, uint32_t partner, double bits) const;
    double elsewhere(uint32_t third, uint32_t mine, uint32_t partner) const;
    void look(const Score& score, bool ofOne, std::optional<Rival>& best) const;

    const std::vector<Score>& scores_; // by their indexes
    Compare compare_;
    std::vector<std::vector<uint32_t>> of_; // of each record, the strongest first
};

} // namespace study::linkage
