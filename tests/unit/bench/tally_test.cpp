// What is said of the candidates is counted as it should be.
#include "linkage/tally.h"

#include <gtest/gtest.h>

using namespace bench;
using namespace study::linkage;

namespace {

Link familyLink(qint64 one, qint64 other, double bits)
{
    return {.kind = LinkKind::SameFamily,
            .one = {Record::Kind::Family, one},
            .other = {Record::Kind::Family, other},
            .bits = bits,
            .evidence = {},
            .runnerUp = {}};
}

const QByteArray csv = "registo;numero;verdade;nascimento;obito;origem;nome\n"
                       "pessoa;1;10;1700-01-01;;5;Ana\npessoa;2;10;1700-01-01;;5;Ana\npessoa;3;11;;;;Rui\n"
                       "familia;1;5;10;11;;\nfamilia;2;5;10;11;;\nfamilia;3;5;10;11;;\nfamilia;4;6;10;11;;\n"
                       "errada;3;10;obito;0;;\n";

} // namespace

TEST(Tally, ReadsWhoEachRecordIsAndWhereSomethingWasLinkedWrongly)
{
    const Key key = Key::read(csv);
    EXPECT_EQ(key.person, (std::map<qint64, int>{{1, 10}, {2, 10}, {3, 11}}));
    EXPECT_EQ(key.couple.at(4), 6);
    EXPECT_EQ(key.origin.at(1), 5);
    EXPECT_EQ(key.wronglyLinked, std::set<qint64>{3});
}

TEST(Tally, CountsWhatIsProposedAndHowManyRecordsTooManyItJoins)
{
    const std::vector<Link> links{familyLink(1, 2, 20), familyLink(2, 3, 15), familyLink(1, 3, 14),
                                  familyLink(3, 4, 13), familyLink(1, 4, 5)};
    const Tallied tallied = families(Key::read(csv), links);
    const Score from13 = scored(tallied, [](const Link& link) { return link.bits >= 13; });
    EXPECT_EQ(from13, (Score{.proposed = 4, .right = 3, .wanted = 2, .gained = 2}));
    EXPECT_DOUBLE_EQ(from13.precision(), 0.75);
    EXPECT_DOUBLE_EQ(from13.recall(), 1);
    const Score from16 = scored(tallied, [](const Link& link) { return link.bits >= 16; });
    EXPECT_EQ(from16, (Score{.proposed = 1, .right = 1, .wanted = 2, .gained = 1}));
}

TEST(Tally, TellsForHowManyTheBestOnesHoldARightOne)
{
    const std::vector<Link> links{familyLink(1, 4, 20), familyLink(1, 2, 15)};
    const Tallied tallied = families(Key::read(csv), links);
    EXPECT_DOUBLE_EQ(recallAmong(tallied, 1), 1.0 / 3) << "family 2 alone; nothing is proposed for family 3";
    EXPECT_DOUBLE_EQ(recallAmong(tallied, 5), 2.0 / 3);
}

TEST(Tally, OrdersTheCandidatesByTheirStanding)
{
    std::vector<Link> links{familyLink(1, 4, 20), familyLink(1, 2, 15)};
    links[0].takenForOne = 10; // 4 has a better place elsewhere
    EXPECT_DOUBLE_EQ(recallAmong(families(Key::read(csv), links), 1), 2.0 / 3);
}
