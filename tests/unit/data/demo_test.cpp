// The demonstration BDP: the same on every machine, and free of contradictions but for those that it is to show.
#include "demobdp.h"

#include <set>

using namespace datafolder;
namespace demo {

namespace {

const Parish& parish()
{
    static const Parish made = simulate(seed);
    return made;
}

bool livesOn(const Person& person, QDate day)
{
    return person.birth <= day && day <= person.death;
}

} // namespace

TEST(DemoParish, HasSomeSixHundredPeopleInAHundredAndFiftyYears)
{
    EXPECT_NEAR(parish().people.size(), 600, 50);
    EXPECT_GE(parish().families.size(), 80);
    for (const Person& person : parish().people) {
        EXPECT_GE(person.seenFrom.year(), 1650);
        EXPECT_LE(person.seenFrom.year(), 1800);
    }
}

TEST(DemoParish, ShowsEachKindOfPersonThatRegistersHave)
{
    int onlySeen = 0, estimated = 0, foundlings = 0, fatherless = 0, remarried = 0, clerics = 0, nobles = 0,
        nicknamed = 0;
    for (const Person& person : parish().people) {
        onlySeen += !person.birthTold.conhecida() && !person.deathTold.conhecida();
        estimated += person.birthTold.conhecida() && !person.birthTold.exacta();
        foundlings += person.filiation == foundling;
        fatherless += person.filiation == fatherUnknown;
        remarried += person.marriages > 1;
        clerics += person.title == "Padre";
        nobles += person.title == "Dom" || person.title == "Dona";
        nicknamed += !person.nickname.isEmpty();
    }
    for (const int count : {onlySeen, estimated, foundlings, fatherless, remarried, clerics, nobles, nicknamed})
        EXPECT_GE(count, 5);
}

TEST(DemoParish, LetsNobodyBeBornBeforeTheParentsOrAfterTheirDeaths)
{
    for (const Person& child : parish().people) {
        if (!child.origin) continue;
        const Family& family = parish().family(child.origin);
        const Person& mother = parish().person(family.wife.person);
        EXPECT_TRUE(livesOn(mother, child.birth)) << child.number.valor();
        EXPECT_GE(completedYears(mother.birth, child.birth), 15) << child.number.valor();
        EXPECT_LE(completedYears(mother.birth, child.birth), 45) << child.number.valor();
        if (family.wedding.conhecida()) {
            EXPECT_GE(family.wedding.data.daysTo(child.birth), 270) << child.number.valor();
        }
        if (!family.husband.person) continue;
        const Person& father = parish().person(family.husband.person);
        EXPECT_GE(completedYears(father.birth, child.birth), 18) << child.number.valor();
        EXPECT_LE(father.death.daysTo(child.birth), 280) << child.number.valor();
    }
}

TEST(DemoParish, LeavesNineMonthsBetweenTheBirthsOfAMotherUnlessTheyAreTwins)
{
    std::map<Nind, std::set<QDate>> births;
    for (const Person& child : parish().people)
        if (child.origin) births[parish().family(child.origin).wife.person].insert(child.birth);
    for (const auto& [mother, days] : births)
        for (auto day = days.begin(); std::next(day) != days.end(); ++day)
            EXPECT_GE(day->daysTo(*std::next(day)), 270) << mother.valor();
}

TEST(DemoParish, MarriesOnlyTheLivingAndTheFree)
{
    std::map<Nind, QList<const Family*>> marriages;
    for (const Family& family : parish().families) {
        if (family.situation != legitimateFamily) continue;
        for (const Spouse& spouse : {family.husband, family.wife}) {
            const Person& person = parish().person(spouse.person);
            EXPECT_TRUE(livesOn(person, family.seenFrom)) << family.number.valor();
            EXPECT_GE(completedYears(person.birth, family.seenFrom), 18) << family.number.valor();
            marriages[spouse.person] << &family;
        }
    }
    for (const auto& [number, families] : marriages)
        for (int i = 1; i < families.size(); ++i) {
            const Family& before = *families[i - 1];
            const Nind other = before.husband.person == number ? before.wife.person : before.husband.person;
            EXPECT_LT(parish().person(other).death, families[i]->wedding.data) << number.valor();
        }
}

TEST(DemoParish, MarriesNoBrothersToSisters)
{
    for (const Family& family : parish().families) {
        if (!family.husband.person) continue;
        const Nfam his = parish().person(family.husband.person).origin;
        EXPECT_TRUE(!his || his != parish().person(family.wife.person).origin) << family.number.valor();
    }
}

TEST(DemoParish, ComesOutTheSameFromTheSameSeed)
{
    MadeBdp one, other;
    write(demonstration(), one.connection);
    write(demonstration(), other.connection);
    EXPECT_EQ(dump(one.connection), dump(other.connection));
}

TEST_F(DemoBdp, IsSoundAndKnowsItsParish)
{
    EXPECT_EQ(integrity(bdp_->connection), "ok");
    EXPECT_EQ(bdp_->rows("select cod, nome, Pais from infopar"), QStringList{"030899|São Mamede da Ribeira|PT"});
    EXPECT_EQ(bdp_->rows("select codparoquia from paroquia where prioridade = 2"), QStringList{"030899"});
    EXPECT_FALSE(content("freguesia.dat").column("codparoquia").contains(parishCode));
    EXPECT_FALSE(content("freguesia.dat").column("nomeparoquia").contains(parishName));
}

TEST_F(DemoBdp, HoldsNoDatesThatContradictEachOtherButThoseToldByHand)
{
    expectNone("select nind from individuo where dataobito < datanasc");
    expectNone("select nind from individuo where fimobs < inicioobs or inicioobs < datanasc or fimobs > dataobito");
    expectNone("select nfamilia from familia where fimobs < inicioobs or inicioobs > datacasam");
    expectNone("select filho.nind from individuo as filho, individuo as mae, familias where familias.nfamilia = "
               "filho.famorig and familias.nind = mae.nind and (filho.datanasc < mae.datanasc or (mae.sexo = 'f' and "
               "filho.datanasc > mae.dataobito)) and filho.nind <= " +
               QString::number(parish().people.size()));
    expectNone("select nind from individuo where datanasc is null and DnascFixa = 1");
    expectNone("select nind from individuo where dataobito is null and (dobitofixa = 1 or menor = 1)");
}

TEST_F(DemoBdp, GivesEachPersonTheTypeOfTheKnownDates)
{
    expectNone("select nind from individuo where datanasc is not null and dataobito is not null and tipo <> '4'");
    expectNone("select nind from individuo where datanasc is not null and dataobito is null and tipo <> '1'");
    expectNone("select nind from individuo where datanasc is null and dataobito is not null and tipo <> '2'");
    expectNone("select nind from individuo where datanasc is null and dataobito is null and tipo <> '3'");
}

TEST_F(DemoBdp, GivesEachFamilyTheTypeOfTheKnownDates)
{
    const QString couple = "select familia.nfamilia from familia, familias as dele, familias as dela, individuo as "
                           "pai, individuo as mae where familia.nfamilia = dele.nfamilia and familia.nfamilia = "
                           "dela.nfamilia and dele.nind = pai.nind and dela.nind = mae.nind and pai.sexo = 'm' and "
                           "mae.sexo <> 'm' and ";
    const QString deaths = "pai.dataobito is not null and mae.dataobito is not null";
    const QString noDeaths = "(pai.dataobito is null or mae.dataobito is null)";
    for (const auto& [type, known] :
         {std::pair("1", "datacasam is not null and mae.datanasc is not null and " + deaths),
          {"2", "datacasam is not null and mae.datanasc is null and " + deaths},
          {"3", "datacasam is not null and mae.datanasc is not null and " + noDeaths},
          {"4", "datacasam is not null and mae.datanasc is null and " + noDeaths},
          {"5", "datacasam is null and mae.datanasc is not null and " + deaths},
          {"6", "datacasam is null and mae.datanasc is null and " + deaths},
          {"7", "datacasam is null and " + noDeaths}})
    {
        expectAtLeast(1, couple + known);
        expectNone(couple + known + " and tipocasal <> '" + type + "'");
    }
    expectNone("select familia.nfamilia from familia where tipocasal <> '7' and nfamilia in (select nfamilia from "
               "familias group by nfamilia having count(*) = 1)");
}

TEST_F(DemoBdp, GivesEachFamilyOneOrTwoSpousesOfTheirSexes)
{
    expectNone("select nfamilia from familia where nfamilia not in (select nfamilia from familias)");
    expectNone("select nfamilia from familias group by nfamilia having count(*) > 2");
    expectNone("select familias.nfamilia from familias, individuo where familias.nind = individuo.nind "
               "group by familias.nfamilia, sexo having count(*) > 1");
    expectNone("select nind from familias where nind not in (select nind from individuo)");
    expectNone(
        "select nind from individuo where famorig is not null and famorig not in (select nfamilia from familia)");
}

TEST_F(DemoBdp, HoldsFamiliesOverFourGenerations)
{
    EXPECT_GE(bdp_->rows("select distinct primeira.nfamilia from individuo as filho, individuo as neto, individuo as "
                         "bisneto, familias as primeira, familias as segunda, familias as terceira, familias as quarta "
                         "where filho.famorig = primeira.nfamilia and segunda.nind = filho.nind and neto.famorig = "
                         "segunda.nfamilia and terceira.nind = neto.nind and bisneto.famorig = terceira.nfamilia and "
                         "quarta.nind = bisneto.nind")
                  .size(),
              5);
}

TEST_F(DemoBdp, HoldsSecondMarriagesOfWidowersAndOfWidows)
{
    for (const char* sex : {"m", "f"})
        EXPECT_GE(bdp_->rows(QStringLiteral("select familias.nind from familias, individuo where familias.nind = "
                                            "individuo.nind and numcasam > 1 and estadocivil = 3 and sexo = '%1'")
                                 .arg(sex))
                      .size(),
                  1)
            << sex;
}

TEST_F(DemoBdp, HoldsSingleParentsWithChildren)
{
    const QString alone = "select familias.nfamilia from familias, individuo where familias.nind = individuo.nind and "
                          "sexo = '%1' and familias.nfamilia in (select nfamilia from familias group by nfamilia "
                          "having count(*) = 1) and familias.nfamilia in (select famorig from individuo)";
    EXPECT_GE(bdp_->rows(alone.arg("f")).size(), 5);
    expectOne(alone.arg("m"));
}

// Those that real registers hold, each with the researcher's note.
TEST_F(DemoBdp, HoldsContradictionsAndSaysSo)
{
    // a child born before the marriage of the parents
    expectOne("select nind from individuo, familia where famorig = nfamilia and datanasc < datacasam and "
              "individuo.obs like '%antes do casamento%'");
    // a child baptized years after the mother's burial
    expectOne("select filho.nind from individuo as filho, individuo as mae, familias where filho.famorig = "
              "familias.nfamilia and familias.nind = mae.nind and mae.sexo = 'f' and filho.datanasc > mae.dataobito "
              "and filho.obs like '%sepultada%'");
    // one woman under two names, younger in each act than by her baptism
    expectOne("select individuo.nind from individuo, familias, familia where individuo.nind = familias.nind and "
              "familia.nfamilia = familias.nfamilia and idade = 22 and datanasc = #12/08/1709# and datacasam = "
              "#06/02/1738# and idadeobito = 60 and dataobito = #02/19/1784# and individuo.obs like '%chama-se%'");
    // a child of a family that had ended years before
    expectOne("select nind from individuo, familia where famorig = nfamilia and datanasc > familia.fimobs and "
              "individuo.obs like '%três anos%'");
    // a couple of whom one's sex isn't known
    expectOne("select familia.nfamilia from familia, familias, individuo where familia.nfamilia = familias.nfamilia "
              "and familias.nind = individuo.nind and sexo = 'd' and familia.obs like '%traça%' and individuo.obs "
              "like '%sexo%'");
    // a widower whose first wife is buried after his second marriage
    expectOne("select segunda.nfamilia from familia as segunda, familias as noivo, familias as viuvo, familias as "
              "dela, individuo as mulher where segunda.nfamilia = noivo.nfamilia and noivo.numcasam = 2 and "
              "noivo.nind = viuvo.nind and viuvo.numcasam = 1 and viuvo.nfamilia = dela.nfamilia and dela.nind = "
              "mulher.nind and mulher.nind <> viuvo.nind and mulher.dataobito > segunda.datacasam and segunda.obs "
              "like '%viúvo%'");
    // two children of one mother within five months
    expectOne("select um.nind from individuo as um, individuo as outro where um.famorig = outro.famorig and "
              "outro.datanasc = #07/15/1770# and um.datanasc = #02/03/1770# and outro.obs like '%Cinco meses%'");
}

TEST_F(DemoBdp, PointsOnlyToPlacesAndCodesThatExist)
{
    expectPlaces("individuo", "localnasc", "tipolocalnasc");
    expectPlaces("individuo", "localobito", "tipolocalobito");
    expectPlaces("familia", "localcasam", "tipolocalcasam");
    for (const char* code :
         {"filiacao, individuo, Filia", "estadocivilpai, individuo, EstCi", "estadocivilmae, individuo, EstCi",
          "estadoobito, individuo, EstCi", "sacramentos, individuo, Sacra", "classparoquial, individuo, ClaPa",
          "tipo, individuo, TipIn", "sfamilia, familia, SitFa", "tipocasal, familia, TipFa",
          "estadocivil, familias, EstCi"})
    {
        const QStringList names = QString(code).split(", ");
        expectCodes(names[1], names[0], names[2]);
    }
}

} // namespace demo
