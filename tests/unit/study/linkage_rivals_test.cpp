// Who stands best among the candidates of a record.
#include "study/linkage/candidates.h"
#include "study/linkage/scores.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

using namespace study::linkage;

namespace {

using Pairs = std::vector<std::pair<uint32_t, uint32_t>>;

// Of four records: 0 may be 1 or 2, and 1 is rather 3.
const std::vector<Score> scores{{0, 1, 12}, {0, 2, 11}, {1, 3, 20}};

// Of which no two others are alike.
Rivals rivalsOf(const std::vector<Score>& all)
{
    return Rivals(all, 4, [](uint32_t, uint32_t) { return std::optional<double>(); });
}

int ofOneKind(const Score&)
{
    return 0;
}

Pairs bestOf(const std::vector<Score>& all, int each, const Rivals::KindOf& kindOf = ofOneKind)
{
    Pairs pairs;
    for (const Score& score : rivalsOf(all).bestOfEach(each, kindOf, [] {}))
        pairs.emplace_back(score.one, score.other);
    return pairs;
}

} // namespace

TEST(TheCandidatesOfARecord, AreBestWhereTheyHaveNoBetterPlaceElsewhere)
{
    EXPECT_EQ(bestOf(scores, 1), (Pairs{{0, 2}, {1, 3}}));
}

TEST(TheCandidatesOfARecord, AreTheStrongestWhereNobodyHasABetterPlace)
{
    EXPECT_EQ(bestOf({{0, 1, 12}, {0, 2, 11}}, 1), (Pairs{{0, 1}, {0, 2}})) << "for 0 the first, for 2 the only one";
}

TEST(TheCandidatesOfARecord, AreAllWhereSoManyAreAskedFor)
{
    EXPECT_EQ(bestOf(scores, 3), (Pairs{{0, 1}, {0, 2}, {1, 3}}));
    EXPECT_EQ(bestOf(scores, 0), Pairs());
    EXPECT_EQ(bestOf({}, 5), Pairs());
}

TEST(TheCandidatesOfARecord, AreTheBestOfEachKind)
{
    const auto kindOf = [](const Score& score) { return score.one == 0 && score.other == 1 ? 1 : 0; };
    EXPECT_EQ(bestOf(scores, 1, kindOf), (Pairs{{0, 1}, {0, 2}, {1, 3}}));
}

TEST(ABetterPlace, TakesFromAScoreWhatItHasMore)
{
    const Rivals rivals = rivalsOf(scores);
    EXPECT_DOUBLE_EQ(rivals.taken(scores[0], 0), 8) << "1 is rather 3";
    EXPECT_DOUBLE_EQ(rivals.taken(scores[0], 1), 0) << "0 has nothing better";
    EXPECT_DOUBLE_EQ(rivals.taken(scores[1], 2), 0) << "0 would be 1, if that one weren't 3";
}

TEST(ABetterPlace, TakesNothingWhereAllThreeAreOne)
{
    const std::vector<Score> all{{0, 1, 12}, {0, 3, 15}, {1, 3, 20}};
    EXPECT_DOUBLE_EQ(rivalsOf(all).taken(all[0], 0), 0);
}

TEST(ALink, StandsForEachOfItsRecordsByWhatTheOtherHasElsewhere)
{
    const Link link{.one = recordOf(study::parish::PersonNumber(1)),
                    .other = recordOf(study::parish::PersonNumber(2)),
                    .bits = 12,
                    .takenForOne = 8,
                    .takenForOther = 1};
    EXPECT_DOUBLE_EQ(link.standingFor(link.one), 4);
    EXPECT_DOUBLE_EQ(link.standingFor(link.other), 11);
}
