// Who may be the same person or the same couple, and which links are doubtful.
#include "study/people.h"

#include "study/linkage/candidates.h"
#include "study/parish/snapshot.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <optional>

using namespace study::linkage;
using study::parish::FamilyNumber;
using study::parish::PersonNumber;
using study::parish::Snapshot;

namespace {

class Candidates : public People
{
protected:
    std::vector<Link> found(const Question& question = {}) const
    {
        return links(Snapshot::read(bdp), startModel(), question);
    }

    static const Link* linkOf(const std::vector<Link>& all, const Record& one, const Record& other)
    {
        const auto link =
            std::ranges::find_if(all, [&](const Link& each) { return each.one == one && each.other == other; });
        return link != all.end() ? &*link : nullptr;
    }

    // A parish has other people, too: a name is worth what is rare of it.
    void addOthers()
    {
        static constexpr const char* births[]{"1640-01-02", "1642-01-02", "1644-01-02", "1646-01-02",
                                              "1648-01-02", "1650-01-02", "1652-01-02", "1654-01-02"};
        for (const char* name : {"João da Silva", "Pedro Dias", "António Gomes", "Manuel Alves", "Francisco Pires"})
            for (const char* birth : births)
                person({name, 'm', birth});
        for (const char* name : {"Maria da Silva", "Ana Dias", "Isabel Gomes", "Catarina Alves", "Luísa Pires"})
            for (const char* birth : births)
                person({name, 'f', birth});
    }

    // Manuel de Abreu and Joana Lopes with two children, and once more with two others.
    void addCoupleTwice(const char* third = "1706-05-02", const char* fourth = "1709-03-04")
    {
        husband = person({"Bento de Abreu"});
        wife = person({"Umbelina Lopes", 'f'});
        family = couple(husband, wife);
        person({"José", 'm', "1700-02-03", "", family});
        person({"Rita", 'f', "1703-04-05", "", family});
        husbandAgain = person({"Bento de Abreu"});
        wifeAgain = person({"Ombelina Lopes", 'f'});
        familyAgain = couple(husbandAgain, wifeAgain);
        person({"Luís", 'm', third, "", familyAgain});
        person({"Clara", 'f', fourth, "", familyAgain});
    }

    qint64 husband = 0, wife = 0, family = 0, husbandAgain = 0, wifeAgain = 0, familyAgain = 0;
};

Record person(qint64 number)
{
    return recordOf(PersonNumber(number));
}

Record family(qint64 number)
{
    return recordOf(FamilyNumber(number));
}

double sumOf(const std::vector<Evidence>& evidence)
{
    double sum = 0;
    for (const Evidence& one : evidence)
        sum += one.bits;
    return sum;
}

} // namespace

TEST_F(Candidates, ACoupleMadeTwiceIsFoundWithItsHusbandAndItsWife)
{
    addOthers();
    addCoupleTwice();
    const std::vector<Link> all = found();
    const Link* couple = linkOf(all, ::family(family), ::family(familyAgain));
    ASSERT_TRUE(couple);
    EXPECT_EQ(couple->kind, LinkKind::SameFamily);
    EXPECT_GE(couple->bits, 12);
    EXPECT_TRUE(couple->isSuggested(startModel()));
    const Link* men = linkOf(all, ::person(husband), ::person(husbandAgain));
    const Link* women = linkOf(all, ::person(wife), ::person(wifeAgain));
    ASSERT_TRUE(men && women);
    EXPECT_GE(men->bits, couple->bits);
    EXPECT_GE(women->bits, couple->bits);
    const std::vector<Group> cases = groups(Snapshot::read(bdp), all);
    ASSERT_FALSE(cases.empty());
    EXPECT_EQ(cases.front().links.size(), 3U);
    EXPECT_EQ(all[cases.front().links.front()].kind, LinkKind::SameFamily);
}

TEST_F(Candidates, TheEvidenceOfALinkAddsUpToItsBits)
{
    addOthers();
    addCoupleTwice();
    for (const Link& link : found()) {
        EXPECT_NEAR(sumOf(link.evidence), link.bits, 1e-9);
        EXPECT_TRUE(std::ranges::is_sorted(link.evidence, std::greater(), &Evidence::bits));
    }
}

TEST_F(Candidates, TwoBirthsWithinEightMonthsMakeTwoCouples)
{
    addOthers();
    addCoupleTwice("1703-09-05");
    EXPECT_FALSE(linkOf(found(), ::family(family), ::family(familyAgain)));
}

TEST_F(Candidates, WhoDiedBeforeIsSomebodyElse)
{
    addOthers();
    addCoupleTwice();
    run("update individuo set dataobito = '1704-01-01', dobitofixa = 1 where nind = ?", {wife});
    const std::vector<Link> all = found();
    EXPECT_FALSE(linkOf(all, ::person(wife), ::person(wifeAgain)));
    EXPECT_FALSE(linkOf(all, ::family(family), ::family(familyAgain)));
}

TEST_F(Candidates, ADeathWithoutABirthFindsTheBirth)
{
    addOthers();
    const qint64 born = person({"Umbelina de Abreu", 'f', "1700-02-03"});
    const qint64 buried = person({"Umbelina de Abreu", 'f', "", "1760-05-06"});
    run("update individuo set idadeobito = 60 where nind = ?", {buried});
    const std::vector<Link> all = found();
    const Link* link = linkOf(all, ::person(born), ::person(buried));
    ASSERT_TRUE(link);
    EXPECT_EQ(link->kind, LinkKind::MissingBirth);
    EXPECT_FALSE(link->runnerUp);
}

TEST_F(Candidates, TwoWhoMayBeTheSameAsAThirdAreEachOthersRunnersUp)
{
    addOthers();
    const qint64 one = person({"Umbelina de Abreu", 'f', "1700-02-03"});
    const qint64 two = person({"Umbelina de Abreu", 'f', "1701-02-03"});
    const qint64 buried = person({"Umbelina de Abreu", 'f', "", "1760-05-06"});
    run("update individuo set idadeobito = 59 where nind = ?", {buried});
    const std::vector<Link> all = found();
    const Link* link = linkOf(all, ::person(one), ::person(buried));
    ASSERT_TRUE(link && link->runnerUp);
    EXPECT_EQ(link->runnerUp->record, ::person(two));
    EXPECT_FALSE(link->isSuggested(startModel()));
}

TEST_F(Candidates, ASlipOfThePenIsFoundByItsLetters)
{
    addOthers();
    const qint64 one = person({"Umbelina Gonçalves", 'f', "1700-02-03"});
    const qint64 other = person({"Umbellinna Gonçalvves", 'f', "", "1760-05-06"});
    const qint64 slip = person({"Umbeilina Gonçaalvres", 'f', "", "1760-05-06"});
    const std::vector<Link> all = found();
    EXPECT_TRUE(linkOf(all, ::person(one), ::person(other)));
    EXPECT_TRUE(linkOf(all, ::person(one), ::person(slip)));
}

TEST_F(Candidates, WhoWasToldApartNeverComesAgain)
{
    addOthers();
    addCoupleTwice();
    Question question;
    question.decided.notTheSame(::family(familyAgain), ::family(family));
    EXPECT_FALSE(linkOf(found(question), ::family(family), ::family(familyAgain)));
}

TEST_F(Candidates, TheLinksOfSomeRecordsAreThoseAmongAll)
{
    addOthers();
    addCoupleTwice();
    const std::vector<Link> all = found();
    Question question;
    question.only = {::person(wife)};
    std::vector<Link> wanted;
    std::ranges::copy_if(all, std::back_inserter(wanted),
                         [&](const Link& link) { return link.one == question.only.front(); });
    ASSERT_FALSE(wanted.empty());
    EXPECT_EQ(found(question), wanted);
}

TEST_F(Candidates, TheNumberOfThreadsChangesNothing)
{
    addOthers();
    addCoupleTwice();
    EXPECT_EQ(found({.threads = 1}), found({.threads = 3}));
}

TEST_F(Candidates, ParentsThatANoteNamesAreAKnownCouple)
{
    addOthers();
    addCoupleTwice();
    const qint64 child = person({"Teresa", 'f', "1712-01-02"});
    run("update individuo set obs = 'Filha legítima de Bento de Abreu e de sua mulher Umbelina Lopes.' where nind = ?",
        {child});
    Question question;
    question.named = namedParents(bdp);
    ASSERT_EQ(question.named.size(), 1U);
    EXPECT_EQ(question.named.front().mother, "Umbelina Lopes");
    const std::vector<Link> all = found(question);
    const Link* link = linkOf(all, ::person(child), ::family(family));
    ASSERT_TRUE(link);
    EXPECT_EQ(link->kind, LinkKind::NamedCouple);
    ASSERT_TRUE(link->runnerUp);
    EXPECT_EQ(link->runnerUp->record, ::family(familyAgain));
}

TEST_F(Candidates, NamedParentsAreFoundByEitherOfThem)
{
    addOthers();
    addCoupleTwice();
    const qint64 alone = person({"Umbelina Quaresma", 'f'});
    run("insert into familia (nfamilia) values (?)", {++lastFamily});
    run("insert into familias (nfamilia, nind) values (?, ?)", {lastFamily, alone});
    const qint64 natural = lastFamily, child = person({"Teresa", 'f', "1712-01-02"});
    const auto linkFor = [&](const char* father, const char* mother, qint64 to) {
        const Question question{.named = {{.child = PersonNumber(child),
                                           .father = QString::fromUtf8(father),
                                           .mother = QString::fromUtf8(mother)}}};
        const std::vector<Link> all = found(question);
        const Link* link = linkOf(all, ::person(child), ::family(to));
        return link ? std::optional(*link) : std::nullopt;
    };
    EXPECT_TRUE(linkFor("", "Umbelina Quaresma", natural)) << "a mother whose child has no father";
    EXPECT_TRUE(linkFor("Bento de Abreu", "", family)) << "the father alone is told";
    EXPECT_TRUE(linkFor("Bentto de Abreu", "Umbelina Lopes", family)) << "a slip of the pen";
    EXPECT_FALSE(linkFor("Pedro de Abreu", "Rita Lopes", family)) << "two others";
    EXPECT_FALSE(linkFor("", "", family));
    EXPECT_FALSE(linkFor("Bento de Abreu", "Rita Lopes", family)) << "another wife";
    const auto both = linkFor("Bento de Abreu", "Umbelina Lopes", family);
    const auto father = linkFor("Bento de Abreu", "", family);
    ASSERT_TRUE(both && father);
    EXPECT_GT(both->bits, father->bits + 5);
}

TEST_F(Candidates, AChildBornAfterItsMothersBurialIsADoubtfulLink)
{
    addCoupleTwice();
    run("update individuo set dataobito = '1701-01-01', dobitofixa = 1 where nind = ?", {wife});
    const std::vector<Link> all = found();
    const auto doubtful = std::ranges::find_if(
        all, [&](const Link& link) { return link.kind == LinkKind::Doubtful && link.other == ::family(family); });
    ASSERT_NE(doubtful, all.end());
    EXPECT_LT(doubtful->bits, 0);
    EXPECT_EQ(doubtful->evidence.front().field, "nascimento depois da morte da mãe");
}

TEST_F(Candidates, AModelIsKeptInTheBdp)
{
    EXPECT_EQ(storedModel(bdp), std::nullopt);
    Model model = startModel();
    model.suggestFrom = 15;
    model.suggestCouplesFrom = 17;
    model.candidates = 7;
    model.weights.front().m = 0.75;
    store(bdp, model);
    EXPECT_EQ(storedModel(bdp), model);
    run("update estudo_peso set m = 7 where campo = 'nome' and nivel = 'igual'");
    EXPECT_EQ(storedModel(bdp)->weights.front().m, startModel().weights.front().m);
}

TEST_F(Candidates, TheEstimateIsTheSameEachTimeAndTrustsTheStartWhereThereIsLittle)
{
    addOthers();
    addCoupleTwice();
    const Snapshot parish = Snapshot::read(bdp);
    const Model model = estimated(parish);
    EXPECT_EQ(model, estimated(parish));
    EXPECT_NEAR(model.weight(Field::Father, Level::Equal).m, 0.95, 0.05);
}
