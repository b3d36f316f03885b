// Candidates of a parish whose truth is known.
#include "data/datafolder.h"
#include "linkage/tally.h"
#include "study/linkage/candidates.h"
#include "study/parish/snapshot.h"
#include "truth/truth.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace study::linkage;
using study::parish::Snapshot;

namespace {

// A parish of some thousand acts, with the doubles that a hurried researcher has left.
struct Sample
{
    truth::Parish parish = truth::parish(3000, 11, ORV_DATA_DIR);
    bench::Key key = bench::Key::read(truth::key(parish));
    datafolder::MadeBdp made;
    std::unique_ptr<Snapshot> snapshot;
    Model model;
    std::vector<Link> found;

    Sample()
    {
        truth::write(parish.bdp, parish.world, made.connection);
        snapshot = std::make_unique<Snapshot>(Snapshot::read(made.connection));
        model = estimated(*snapshot);
        found = links(*snapshot, model);
    }
};

const Sample& sample()
{
    static const Sample all;
    return all;
}

bench::Score from(const bench::Tallied& tallied, double bits)
{
    return bench::scored(tallied, [bits](const Link& link) { return link.bits >= bits; });
}

} // namespace

TEST(CandidatesOfAKnownParish, AreTheRightCouplesWhereTheEvidenceIsStrong)
{
    const bench::Score couples = from(bench::families(sample().key, sample().found), 14);
    EXPECT_GT(couples.precision(), 0.95) << couples.right << " of " << couples.proposed;
    EXPECT_GT(couples.recall(), 0.7) << couples.gained << " of " << couples.wanted;
}

TEST(CandidatesOfAKnownParish, AreTheRightPeopleWhereTheEvidenceIsStrong)
{
    const bench::Score people = from(
        bench::people(sample().key, sample().found, *sample().snapshot, bench::withMoreThanAName(*sample().snapshot)),
        16);
    EXPECT_GT(people.precision(), 0.9) << people.right << " of " << people.proposed;
    EXPECT_GT(people.recall(), 0.4) << people.gained << " of " << people.wanted;
}

TEST(AKnownParish, HasPriestsTradesAndResidences)
{
    const auto people = sample().snapshot->people();
    const auto share = [&](const auto& has) {
        return double(std::ranges::count_if(people, has)) / double(people.size());
    };
    EXPECT_GT(share([](const auto& person) { return person.baptismPriests[0].who.person != nullptr; }), 0.2);
    EXPECT_GT(share([](const auto& person) { return person.burialPriest.who.person != nullptr; }), 0.1);
    EXPECT_GT(share([](const auto& person) { return !person.professions.empty(); }), 0.01);
    EXPECT_GT(share([](const auto& person) { return !person.residences.empty(); }), 0.05);
}

TEST(CandidatesOfAKnownParish, AreSeldomerWrongTheMoreBitsTheyHave)
{
    const bench::Tallied couples = bench::families(sample().key, sample().found);
    EXPECT_LE(from(couples, 6).precision(), from(couples, 12).precision() + 0.01);
    EXPECT_LE(from(couples, 12).precision(), from(couples, 18).precision() + 0.01);
}

TEST(CandidatesOfAKnownParish, HaveEachTheirEvidenceThatAddsUp)
{
    for (const Link& link : sample().found) {
        double sum = 0;
        for (const Evidence& one : link.evidence)
            sum += one.bits;
        if (link.kind == LinkKind::SameFamily) {
            EXPECT_NEAR(sum, link.bits, 0.1) << link.one.number;
        }
        EXPECT_FALSE(link.evidence.empty());
    }
}

TEST(CandidatesOfAKnownParish, AreTheSameOnAnyNumberOfThreads)
{
    Question one, three;
    one.threads = 1;
    three.threads = 3;
    EXPECT_EQ(links(*sample().snapshot, sample().model, one), links(*sample().snapshot, sample().model, three));
}
