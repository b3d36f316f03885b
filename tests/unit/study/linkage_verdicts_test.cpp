// What is said to the links that are proposed, and what follows from it.
#include "study/people.h"

#include "store/lixo.h"
#include "study/linkage/candidates.h"
#include "study/linkage/merge.h"
#include "study/linkage/verdicts.h"
#include "study/parish/snapshot.h"

#include <algorithm>
#include <cmath>

using namespace study::linkage;
using study::parish::FamilyNumber;
using study::parish::PersonNumber;
using study::parish::Snapshot;

namespace {

Record personOf(qint64 number)
{
    return recordOf(PersonNumber(number));
}

Record familyOf(qint64 number)
{
    return recordOf(FamilyNumber(number));
}

class Verdict : public People
{
protected:
    Verdict()
    {
        static constexpr const char* births[]{"1640-01-02", "1644-01-02", "1648-01-02", "1652-01-02"};
        for (const char* name : {"João da Silva", "Pedro Dias", "António Gomes", "Manuel Alves", "Francisco Pires"})
            for (const char* birth : births)
                person({name, 'm', birth});
        for (const char* name : {"Maria da Silva", "Ana Dias", "Isabel Gomes", "Catarina Alves", "Luísa Pires"})
            for (const char* birth : births)
                person({name, 'f', birth});
    }

    void addCoupleTwice()
    {
        husband = person({"Bento de Abreu"});
        wife = person({"Umbelina Lopes", 'f'});
        family = couple(husband, wife);
        person({"José", 'm', "1700-02-03", "", family});
        husbandAgain = person({"Bento de Abreu"});
        wifeAgain = person({"Ombelina Lopes", 'f'});
        familyAgain = couple(husbandAgain, wifeAgain);
        person({"Luís", 'm', "1706-05-02", "", familyAgain});
    }

    std::vector<Link> found()
    {
        const Verdicts said = verdicts(bdp);
        return links(Snapshot::read(bdp), startModel(),
                     {.decided = said.apart, .right = said.right, .named = namedParents(bdp)});
    }
    static const Link* linkOf(const std::vector<Link>& all, const Record& one, const Record& other)
    {
        const auto link =
            std::ranges::find_if(all, [&](const Link& each) { return each.one == one && each.other == other; });
        return link != all.end() ? &*link : nullptr;
    }
    Link linkOf(const Record& one, const Record& other)
    {
        const std::vector<Link> all = found();
        const Link* link = linkOf(all, one, other);
        EXPECT_TRUE(link);
        return link ? *link : Link{};
    }
    QString one(const char* select)
    {
        const jet::Recordset row(bdp, jet::NativeSql(select));
        return row.eof() ? QString("none") : row[0].toString();
    }

    qint64 husband = 0, wife = 0, family = 0, husbandAgain = 0, wifeAgain = 0, familyAgain = 0;
};

TEST_F(Verdict, OfTwoFamiliesIsKeptOnceAndCanBeTakenBack)
{
    addCoupleTwice();
    const Link link = linkOf(familyOf(family), familyOf(familyAgain));
    ASSERT_TRUE(canTellApart(link));
    const qint64 id = tellApart(bdp, link, "d'Ávila \"🐟\"");
    EXPECT_EQ(tellApart(bdp, link), id);
    EXPECT_EQ(decision(bdp, id)->what.title, QString("A família nº 1 não é a família nº 2"));
    EXPECT_EQ(decision(bdp, id)->what.reason, "d'Ávila \"🐟\"");
    EXPECT_EQ(recordsOf(decision(bdp, id)->what), (std::vector{familyOf(family), familyOf(familyAgain)}));
    EXPECT_FALSE(linkOf(found(), familyOf(family), familyOf(familyAgain)));
    EXPECT_EQ(takeBack(bdp, id), "");
    EXPECT_TRUE(linkOf(found(), familyOf(family), familyOf(familyAgain)));
}

TEST_F(Verdict, FamiliesToldApartAreNotJoined)
{
    addCoupleTwice();
    tellApart(bdp, {.one = familyOf(familyAgain), .other = familyOf(family)});
    mergePeople(bdp, husband, husbandAgain);
    const MergePlan wives = planMerge(bdp, wife, wifeAgain);
    ASSERT_EQ(wives.couples.size(), 1);
    EXPECT_FALSE(wives.couples.first().refusals.isEmpty());
    EXPECT_FALSE(planJoin(bdp, family, familyAgain).isPossible());
}

TEST_F(Verdict, FollowsWhoHasBecomeOneWithSomebody)
{
    addCoupleTwice();
    const qint64 third = couple(person({"Rui Vaz"}), person({"Eva Paz", 'f'}));
    tellApart(bdp, {.one = familyOf(familyAgain), .other = familyOf(third)});
    mergePeople(bdp, husband, husbandAgain);
    mergePeople(bdp, wife, wifeAgain, {.join = {{family, familyAgain}}});
    EXPECT_TRUE(verdicts(bdp).apart.has(familyOf(family), familyOf(third))) << "joined with its couple";
}

TEST_F(Verdict, IsNotOfWhoGotTheNumberOfSomebodyDeleted)
{
    addCoupleTwice();
    const auto isApart = [this] { return planMerge(bdp, husband, husbandAgain).isPossible() ? "one" : "apart"; };
    decideNotTheSame(bdp, husband, husbandAgain);
    tellApart(bdp, {.one = familyOf(family), .other = familyOf(familyAgain)});
    confirm(bdp, {.kind = LinkKind::Doubtful, .one = personOf(husbandAgain), .other = familyOf(familyAgain)});
    EXPECT_STREQ(isApart(), "apart");
    const QString number = QString::number(husbandAgain), ofFamily = QString::number(familyAgain);
    lixo::Recolha couple(bdp, lixo::Tipo::Familia, ofFamily);
    run("delete from familias where nfamilia = ?", {familyAgain});
    run("delete from familia where nfamilia = ?", {familyAgain});
    couple.guarda();
    lixo::Recolha person(bdp, lixo::Tipo::Individuo, number);
    run("delete from individuo where nind = ?", {husbandAgain});
    person.guarda();
    EXPECT_EQ(verdicts(bdp), Verdicts());
    run("insert into individuo (nind, nome, sexo) values (?, 'Bento de Abreu', 'm')", {husbandAgain});
    EXPECT_STREQ(isApart(), "one") << "the number is somebody else's";
    run("update estudo_lixo set quando = '1999-01-01 00:00:00'");
    EXPECT_STREQ(isApart(), "apart") << "decided of who has the number since";
    run("update estudo_decisao set quando = '1998-01-01 00:00:00'");
    EXPECT_STREQ(isApart(), "one");
    run("delete from individuo where nind = ?", {husbandAgain});
    for (const char* id : {"2", "1"})
        EXPECT_EQ(lixo::repoe(bdp, QString(id).toLongLong()), "");
    EXPECT_STREQ(isApart(), "apart") << "it is he again";
    EXPECT_TRUE(verdicts(bdp).apart.has(familyOf(family), familyOf(familyAgain)));
    EXPECT_FALSE(verdicts(bdp).right.pairs().empty());
}

TEST_F(Verdict, IsSaidAnewOfWhoGotTheNumberOfSomebodyDeleted)
{
    addCoupleTwice();
    const qint64 before = decideNotTheSame(bdp, husband, husbandAgain);
    run("update estudo_decisao set quando = '1998-01-01 00:00:00'");
    lixo::Recolha person(bdp, lixo::Tipo::Individuo, QString::number(husbandAgain));
    run("delete from individuo where nind = ?", {husbandAgain});
    person.guarda();
    run("update estudo_lixo set quando = '1999-01-01 00:00:00'");
    run("insert into individuo (nind, nome, sexo) values (?, 'Bento de Abreu', 'm')", {husbandAgain});
    const qint64 now = decideNotTheSame(bdp, husband, husbandAgain);
    EXPECT_NE(now, before);
    EXPECT_EQ(decideNotTheSame(bdp, husband, husbandAgain), now);
    EXPECT_EQ(notTheSame(bdp).size(), 1);
}

TEST_F(Verdict, OfANamedCoupleMakesItTheParentsAsOneStep)
{
    addCoupleTwice();
    run("update familia set tipocasal = null");
    const qint64 child = person({"Teresa", 'f', "1712-01-02"});
    run("update individuo set obs = 'Filha legítima de Bento de Abreu e de sua mulher Umbelina Lopes.' where nind = ?",
        {child});
    const Link link = linkOf(personOf(child), familyOf(family));
    EXPECT_EQ(link.kind, LinkKind::NamedCouple);
    const qint64 id = setOrigin(bdp, PersonNumber(child), FamilyNumber(family), "assento");
    EXPECT_EQ(one("select famorig from individuo where nome = 'Teresa'"), "1");
    EXPECT_NE(whyNotOrigin(bdp, PersonNumber(child), FamilyNumber(familyAgain)), "") << "there is one already";
    EXPECT_THROW(setOrigin(bdp, PersonNumber(child), FamilyNumber(family)), MergeRefused);
    EXPECT_THROW(setOrigin(bdp, PersonNumber(child), FamilyNumber(77)), MergeRefused);
    EXPECT_THROW(setOrigin(bdp, PersonNumber(husband), FamilyNumber(family)), MergeRefused) << "a spouse of it";
    EXPECT_FALSE(linkOf(found(), personOf(child), familyOf(familyAgain)));
    EXPECT_EQ(takeBack(bdp, id), "");
    EXPECT_EQ(one("select ifnull(famorig, 'null') from individuo where nome = 'Teresa'"), "null");
    EXPECT_EQ(one("select ifnull(tipocasal, 'null') from familia where nfamilia = 1"), "null");
    const qint64 no = tellApart(bdp, link);
    EXPECT_EQ(word(decision(bdp, no)->what.kind), "outros pais");
    const std::vector<Link> left = found();
    EXPECT_FALSE(linkOf(left, personOf(child), familyOf(family)));
    EXPECT_TRUE(linkOf(left, personOf(child), familyOf(familyAgain)));
}

TEST_F(Verdict, OfADoubtfulLinkIsForGood)
{
    addCoupleTwice();
    run("update individuo set dataobito = '1699-01-01', dobitofixa = 1 where nind = ?", {wife});
    std::vector<Link> all = found();
    const auto doubtful = std::ranges::find(all, LinkKind::Doubtful, &Link::kind);
    ASSERT_NE(doubtful, all.end());
    EXPECT_FALSE(canTellApart(*doubtful));
    EXPECT_TRUE(doubtful->isSuggested(startModel())) << "it is to be looked at";
    const auto alive = std::ranges::find_if(
        all, [&](const Link& link) { return link.kind == LinkKind::Doubtful && link.one == personOf(wife); });
    ASSERT_NE(alive, all.end());
    EXPECT_EQ(alive->evidence.front().other, "nascimento do nº 43, 03/02/1700") << "it names an act that there is";
    const qint64 id = confirm(bdp, *doubtful, "baptizado depois");
    EXPECT_EQ(confirm(bdp, *doubtful), id);
    const std::vector<Link> left = found();
    EXPECT_FALSE(linkOf(left, doubtful->one, doubtful->other));
    EXPECT_EQ(takeBack(bdp, id), "");
    EXPECT_TRUE(linkOf(found(), doubtful->one, doubtful->other));
}

TEST_F(Verdict, LeavesWhoWasToldApartARival)
{
    const qint64 born = person({"Umbelina de Abreu", 'f', "1700-02-03"});
    const qint64 again = person({"Umbelina de Abreu", 'f', "1700-02-03"});
    const qint64 buried = person({"Umbelina de Abreu", 'f', "", "1760-05-06"});
    run("update individuo set idadeobito = 60 where nind = ?", {buried});
    EXPECT_FALSE(linkOf(personOf(born), personOf(buried)).runnerUp) << "all three may be one";
    decideNotTheSame(bdp, buried, again);
    const Link link = linkOf(personOf(born), personOf(buried));
    ASSERT_TRUE(link.runnerUp);
    EXPECT_EQ(link.runnerUp->record, personOf(again));
    EXPECT_FALSE(link.isSuggested(startModel()));
}

TEST_F(Verdict, OfTwoHusbandsGoesForTheirFamiliesAndTheirWives)
{
    addCoupleTwice();
    const double before = linkOf(personOf(wife), personOf(wifeAgain)).bits;
    decideNotTheSame(bdp, husband, husbandAgain);
    const std::vector<Link> all = found();
    EXPECT_FALSE(linkOf(all, familyOf(family), familyOf(familyAgain)));
    const Link* wives = linkOf(all, personOf(wife), personOf(wifeAgain));
    if (!wives) return;
    EXPECT_LT(wives->bits, before);
    for (const Evidence& evidence : wives->evidence)
        EXPECT_FALSE(evidence.field.contains("cônjuge")) << "he is somebody else";
}

TEST_F(Verdict, IsAskedForOnceForThreeRecordsOfOnePerson)
{
    const qint64 born = person({"Umbelina de Abreu", 'f', "1700-02-03"});
    const qint64 buried = person({"Umbelina de Abreu", 'f', "", "1760-05-06"});
    const qint64 married = person({"Umbelina de Abreu", 'f'});
    couple(person({"Rui Vaz", 'm', "1698-01-01"}), married);
    run("update individuo set idadeobito = 60 where nind = ?", {buried});
    const std::vector<Link> all = found();
    const auto holds = [&](const Group& group, qint64 one, qint64 other) {
        return std::ranges::any_of(
            group.links, [&](size_t at) { return all[at].one == personOf(one) && all[at].other == personOf(other); });
    };
    const auto together = groups(Snapshot::read(bdp), all, 0);
    EXPECT_TRUE(std::ranges::any_of(together, [&](const Group& group) {
        return holds(group, born, buried) && holds(group, born, married) && holds(group, buried, married);
    }));
    const auto apart = groups(Snapshot::read(bdp), all, 1000);
    EXPECT_EQ(apart.size(), all.size()) << "weak ones tell of nothing together";
}

TEST_F(Verdict, IsFollowedByASearchThatTellsHowFarItIs)
{
    addCoupleTwice();
    std::vector<double> told;
    links(Snapshot::read(bdp), startModel(), {.only = {personOf(wife)}}, [&](double done) {
        told.push_back(done);
        return true;
    });
    ASSERT_FALSE(told.empty());
    EXPECT_TRUE(std::ranges::is_sorted(told)) << "it goes on and never back";
    EXPECT_LE(told.back(), 1);
    EXPECT_THROW(links(Snapshot::read(bdp), startModel(), {}, [&](double done) { return done < 0.79; }),
                 Snapshot::Interrupted)
        << "a cancel behind the scores";
}

TEST_F(Verdict, HasNoPlaceForADayOnWhichNothingHappened)
{
    const qint64 father = person({"Bento de Abreu", 'm', "", "1700-01-01"});
    const qint64 child = person({"José", 'm', "1701-06-01", "", couple(father, person({"Eva Paz", 'f'}))});
    const Link link = linkOf(personOf(father), {});
    ASSERT_FALSE(link.evidence.empty());
    EXPECT_EQ(link.evidence.front().other, QString("nascimento do nº %1, 01/06/1701").arg(child));
}

} // namespace
