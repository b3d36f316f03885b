// Who is seen in the parish from when to when, and what proves it.
#include "study/days.h"
#include "study/people.h"

#include "study/observation/presence.h"

#include <memory>

namespace study {

using observation::Mark;
using observation::Presence;
using observation::Proof;

namespace {

class ThePresence : public People
{
protected:
    ThePresence() { run("insert into infopar (cod, nome) values ('030301', 'Ribeira')"); }

    qint64 wedding(qint64 husband, qint64 wife, const char* marriage)
    {
        const qint64 family = couple(husband, wife, marriage);
        run("update familia set dcasamfixa = 1 where nfamilia = ?", {family});
        return family;
    }
    void comesFrom(qint64 nind, const char* place)
    {
        run("update individuo set localnasc = ?, tipolocalnasc = 'F' where nind = ?", {place, nind});
    }
    void diesIn(qint64 nind, const char* place)
    {
        run("update individuo set localobito = ?, tipolocalobito = 'F' where nind = ?", {place, nind});
    }
    void livesIn(qint64 nind, const char* place, const char* date, const char* kind = "i")
    {
        run("insert into residencia (numero, tiporesid, dataref, datafixa, localresid, tipolocal) values (?, ?, ?, 1, "
            "?, 'L')",
            {nind, kind, date, place});
    }
    void assists(qint64 nind, const char* date)
    {
        run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente) values ('b', 99, ?, ?, 'p')",
            {date, nind});
    }
    void emigrates(qint64 nind, const char* date)
    {
        run("insert into passaporte (nind, nPass, dataref) values (?, 1, ?)", {nind, date});
    }

    Presence of(qint64 nind) const
    {
        const auto parish = parish::Snapshot::read(bdp);
        return presencesOf(parish, observation::unionsOf(parish, {}))[static_cast<std::size_t>(nind) - 1];
    }
    Mark familyEnd(qint64 nind) const
    {
        const auto parish = parish::Snapshot::read(bdp);
        return familyEndFor(*parish.person(parish::PersonNumber(nind)), parish, observation::unionsOf(parish, {}));
    }

    // 1 and 2, both from elsewhere, and their children Gil (3) and Inês (4), born in 1721 and 1724.
    qint64 settle()
    {
        person({"Rui", 'm'});
        person({"Eva", 'f'});
        const qint64 family = wedding(1, 2, "1720-01-10");
        person({"Gil", 'm', "1721-05-01", "", family});
        person({"Inês", 'f', "1724-05-01", "", family});
        return family;
    }
};

constexpr auto here = "03030101", elsewhere_ = "03030201";

} // namespace

TEST_F(ThePresence, OfWhoIsBornAndDiesHereIsTheirLife)
{
    person({"Rui", 'm', "1700-01-10", "1760-02-03"});
    EXPECT_EQ(
        of(1),
        (Presence{{day(1700, 1, 10), Proof::Birth}, {day(1760, 2, 3), Proof::Death}, {day(1760, 2, 3), Proof::Death}}));
    comesFrom(1, "030301");
    EXPECT_TRUE(of(1).isObserved());
}

TEST_F(ThePresence, OfAPasserByIsNone)
{
    person({"Rui", 'm', "1700-01-10", "1760-02-03"});
    comesFrom(1, "030302");
    assists(1, "1750-01-01");
    EXPECT_FALSE(of(1).isObserved());
    EXPECT_EQ(of(1).from, Mark());
    EXPECT_EQ(of(1).until, Mark());
    EXPECT_EQ(of(1).aliveUntil, (Mark{day(1760, 2, 3), Proof::Death}));
    run("update individuo set dataobito = null");
    EXPECT_EQ(of(1).aliveUntil, (Mark{day(1750, 1, 1), Proof::Assistance}));
}

TEST_F(ThePresence, OfWhoCameByMarriageBeginsThereWhereTheCoupleStayed)
{
    settle();
    EXPECT_EQ(of(1).from, (Mark{day(1720, 1, 10), Proof::Marriage}));
    EXPECT_EQ(of(1).until, (Mark{day(1724, 5, 1), Proof::ChildBorn}));
    EXPECT_EQ(of(2).aliveUntil, (Mark{day(1724, 5, 1), Proof::ChildBorn}));
    run("update individuo set localnasc = '030302', tipolocalnasc = 'F'");
    EXPECT_FALSE(of(1).isObserved());
    livesIn(2, here, "1720-01-10");
    EXPECT_EQ(of(1).from, (Mark{day(1720, 1, 10), Proof::Marriage}));
    run("update familia set localcasam = '030302', tipolocalcasam = 'F'");
    EXPECT_FALSE(of(1).isObserved());
    EXPECT_EQ(of(2).from, (Mark{day(1720, 1, 10), Proof::Residence}));
}

TEST_F(ThePresence, OfParentsMarriedElsewhereBeginsWhereTheyAreSaidToLiveHere)
{
    const qint64 family = settle();
    run("update familia set localcasam = '030302', tipolocalcasam = 'F'");
    EXPECT_FALSE(of(1).isObserved());
    livesIn(family, elsewhere_, "1719-05-01", "f");
    livesIn(family, here, "1722-03-01", "f");
    EXPECT_EQ(of(1).from, (Mark{day(1722, 3, 1), Proof::Residence}));
    EXPECT_EQ(of(1).until, (Mark{day(1724, 5, 1), Proof::ChildBorn}));
}

TEST_F(ThePresence, EndsWithTheLastProofWhereNoDeathHereIsKnown)
{
    const qint64 family = settle();
    person({"Ana", 'f', "1726-05-01", "1727-06-01", family});
    EXPECT_EQ(of(1).until, (Mark{day(1727, 6, 1), Proof::ChildBuried}));
    run("insert into profissoes (nind, idprofissao, dataref, codprof) values (1, 1, '1728-01-02', 4)");
    EXPECT_EQ(of(1).until.by, Proof::Profession);
    run("insert into assinatura (nind, idassinatura, dataref, datafixa) values (1, 1, '1729-01-02', 1)");
    EXPECT_EQ(of(1).until, (Mark{day(1729, 1, 2), Proof::Signature}));
    livesIn(1, here, "1730-01-02");
    EXPECT_EQ(of(1).until, (Mark{day(1730, 1, 2), Proof::Residence}));
    emigrates(1, "1731-01-02");
    EXPECT_EQ(of(1).until, (Mark{day(1731, 1, 2), Proof::Passport}));
    livesIn(1, here, "1732-01-02");
    EXPECT_EQ(of(1).until, (Mark{day(1732, 1, 2), Proof::Residence}));
    run("update individuo set dataobito = '1740-01-01', dobitofixa = 1 where nind = 1");
    EXPECT_EQ(of(1).until, (Mark{day(1740, 1, 1), Proof::Death}));
    diesIn(1, "030302");
    EXPECT_EQ(of(1).until, (Mark{day(1732, 1, 2), Proof::Residence}));
}

TEST_F(ThePresence, IsProvedByAnAssistanceOfAResidentAlone)
{
    settle();
    assists(1, "1735-01-01");
    EXPECT_EQ(of(1).until.by, Proof::ChildBorn);
    EXPECT_EQ(of(1).aliveUntil, (Mark{day(1735, 1, 1), Proof::Assistance}));
    livesIn(1, here, "1730-01-01");
    EXPECT_EQ(of(1).until, (Mark{day(1735, 1, 1), Proof::Assistance}));
    livesIn(1, elsewhere_, "1733-01-01");
    EXPECT_EQ(of(1).until, (Mark{day(1730, 1, 1), Proof::Residence}));
}

TEST_F(ThePresence, OfAGrownChildsBurialProvesNothingOfItsParents)
{
    settle();
    run("update individuo set dataobito = '1790-01-01', dobitofixa = 1 where nind = 3");
    EXPECT_EQ(of(1).until.by, Proof::ChildBorn);
    EXPECT_EQ(of(1).aliveUntil.by, Proof::ChildBorn);
}

TEST_F(ThePresence, OfAChildThatVanishesIsThatOfItsFamily)
{
    settle();
    EXPECT_EQ(of(3).until, (Mark{day(1724, 5, 1), Proof::Parents}));
    EXPECT_EQ(of(4).until, (Mark{day(1724, 5, 1), Proof::Birth}));
    EXPECT_EQ(of(3).aliveUntil, (Mark{day(1721, 5, 1), Proof::Birth}));
    livesIn(3, here, "1728-01-01"); // the child's own act alone doesn't lengthen it
    EXPECT_EQ(of(3).until, (Mark{day(1724, 5, 1), Proof::Parents}));
    livesIn(1, here, "1750-01-01");
    EXPECT_EQ(of(3).until, (Mark{day(1736, 5, 1), Proof::Parents})); // grown up
    livesIn(3, here, "1737-01-01");
    EXPECT_EQ(of(3).until, (Mark{day(1737, 1, 1), Proof::Residence}));
}

TEST_F(ThePresence, OfWhomNobodyKnowsTheParentsIsOfOneDay)
{
    person({"Gil Exposto", 'm', "1721-05-01"});
    EXPECT_EQ(of(1).until, (Mark{day(1721, 5, 1), Proof::Birth}));
}

TEST_F(ThePresence, IsNarrowedByWhatIsTypedAndNeverWidened)
{
    person({"Rui", 'm', "1700-01-10", "1760-02-03"});
    const auto type = [this](const char* from, const char* until) {
        run("update individuo set inicioobs = ?, fimobs = ?", {from, until});
    };
    type("1700-01-10", "1760-02-03");
    EXPECT_EQ(of(1).from.by, Proof::Birth);
    EXPECT_EQ(of(1).until.by, Proof::Death);
    type("1710-01-01", "1750-01-01");
    EXPECT_EQ(of(1).from, (Mark{day(1710, 1, 1), Proof::Researcher}));
    EXPECT_EQ(of(1).until, (Mark{day(1750, 1, 1), Proof::Researcher}));
    EXPECT_EQ(of(1).aliveUntil, (Mark{day(1760, 2, 3), Proof::Death}));
    type("1690-01-01", "1770-01-01");
    EXPECT_EQ(of(1).from.by, Proof::Birth);
    EXPECT_EQ(of(1).until.by, Proof::Death);
    type("1750-01-01", "1740-01-01");
    EXPECT_FALSE(of(1).isObserved());
    comesFrom(1, "030302");
    type("1710-01-01", "1750-01-01");
    EXPECT_FALSE(of(1).isObserved());
}

TEST_F(ThePresence, TakesActsForLocalWhereTheParishIsUnknown)
{
    run("delete from infopar");
    person({"Rui", 'm', "1700-01-10", "1760-02-03"});
    comesFrom(1, "030302");
    EXPECT_TRUE(of(1).isObserved());
}

TEST_F(ThePresence, OfAFatherIsNotProvedByAPosthumousChild)
{
    settle();
    run("update individuo set filiacao = 15 where nind = 4");
    EXPECT_EQ(of(1).aliveUntil, (Mark{day(1721, 5, 1), Proof::ChildBorn}));
    EXPECT_EQ(of(1).until, (Mark{day(1721, 5, 1), Proof::ChildBorn}));
    EXPECT_EQ(of(2).aliveUntil, (Mark{day(1724, 5, 1), Proof::ChildBorn}));
}

TEST_F(ThePresence, OfAFamilyIsNotLengthenedByTheChildItself)
{
    settle();
    EXPECT_EQ(familyEnd(3), (Mark{day(1724, 5, 1), Proof::Sibling}));
    EXPECT_EQ(familyEnd(4), Mark());
    run("update individuo set dataobito = '1726-01-01', dobitofixa = 1 where nind = 4");
    EXPECT_EQ(familyEnd(3), (Mark{day(1726, 1, 1), Proof::Sibling}));
    EXPECT_EQ(familyEnd(4), Mark()); // neither its own death nor what was before it
}

TEST_F(ThePresence, OfAFamilyIsNotLengthenedByWhatTheBurialOfTheChildWroteOfItsParents)
{
    settle();
    run("update individuo set dataobito = '1726-01-01', dobitofixa = 1 where nind = 4");
    livesIn(1, here, "1725-01-01");
    livesIn(1, here, "1726-01-01");
    EXPECT_EQ(familyEnd(4), (Mark{day(1725, 1, 1), Proof::Residence}));
    EXPECT_EQ(familyEnd(3).day, day(1726, 1, 1)) << "to others the burial is no event of their own";
}

TEST_F(ThePresence, OfAFamilyMarriedElsewhereIsThatOfItsChildren)
{
    settle();
    run("update familia set localcasam = '030302', tipolocalcasam = 'F'");
    EXPECT_EQ(familyEnd(3), (Mark{day(1724, 5, 1), Proof::Sibling}));
    EXPECT_EQ(familyEnd(4), Mark());
}

TEST_F(ThePresence, OfAFamilyEndsWithTheFirstDeathWhereTheSurvivorIsntSeen)
{
    settle();
    run("update individuo set dataobito = '1728-01-01', dobitofixa = 1, estadoobito = 2 where nind = 1");
    EXPECT_EQ(familyEnd(3), (Mark{day(1728, 1, 1), Proof::Spouse}));
    EXPECT_EQ(familyEnd(4), (Mark{day(1728, 1, 1), Proof::Spouse}));
    livesIn(2, here, "1731-01-01");
    EXPECT_EQ(familyEnd(4), (Mark{day(1731, 1, 1), Proof::Residence}));
    run("update individuo set dataobito = '1745-01-01', dobitofixa = 1 where nind = 2");
    EXPECT_EQ(familyEnd(4), (Mark{day(1745, 1, 1), Proof::Death}));
    diesIn(2, "030302");
    EXPECT_EQ(familyEnd(4), (Mark{day(1731, 1, 1), Proof::Residence}));
}

TEST_F(ThePresence, OfAFamilyGoesOnWithTheSurvivorsOtherChildren)
{
    settle();
    run("update individuo set dataobito = '1728-01-01', dobitofixa = 1, estadoobito = 2 where nind = 1");
    person({"Ivo"});
    const qint64 second = couple(5, 2);
    person({"Luís", 'm', "1732-01-01", "", second});
    EXPECT_EQ(familyEnd(4), (Mark{day(1732, 1, 1), Proof::Sibling}));
}

TEST_F(ThePresence, OfAFamilyIsProvedByAMarriageOfASiblingWhileTheParentsLiveHere)
{
    settle();
    person({"Luís"});
    wedding(5, 4, "1745-01-01");
    EXPECT_EQ(familyEnd(3), (Mark{day(1724, 5, 1), Proof::Sibling}));
    livesIn(2, here, "1740-01-01");
    EXPECT_EQ(familyEnd(3), (Mark{day(1745, 1, 1), Proof::Sibling}));
    run("update individuo set dataobito = '1770-01-01', dobitofixa = 1 where nind = 4"); // from her own home
    EXPECT_EQ(familyEnd(3), (Mark{day(1745, 1, 1), Proof::Sibling}));
}

TEST_F(ThePresence, OfAFamilyEndsWithItsLastParent)
{
    settle();
    run("update individuo set dataobito = '1730-01-01', dobitofixa = 1 where nind = 1");
    run("update individuo set dataobito = '1731-01-01', dobitofixa = 1 where nind = 2");
    run("update individuo set dataobito = '1790-01-01', dobitofixa = 1 where nind = 4");
    EXPECT_EQ(familyEnd(3), (Mark{day(1731, 1, 1), Proof::Death}));
}

TEST_F(ThePresence, OfAFamilyIsWhatAResearcherTyped)
{
    settle();
    run("update familia set fimobs = '1733-01-01'");
    EXPECT_EQ(familyEnd(4), (Mark{day(1733, 1, 1), Proof::Researcher}));
    run("update individuo set fimobs = '1734-01-01' where nind = 2");
    EXPECT_EQ(familyEnd(4), (Mark{day(1734, 1, 1), Proof::Researcher}));
}

TEST_F(ThePresence, IsToldInPortuguese)
{
    EXPECT_EQ(told(Proof::None), "");
    for (int proof = 1; proof <= int(Proof::Researcher); ++proof)
        EXPECT_FALSE(told(Proof(proof)).isEmpty());
}

} // namespace study
