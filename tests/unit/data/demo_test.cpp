// The demonstration BDP: the same on every machine, and free of contradictions.
#include "datafolder.h"
#include "demo.h"

#include <gtest/gtest.h>

#include <set>

using namespace datafolder;
using namespace demo;

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

class DemoBdp : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        bdp_ = new MadeBdp;
        write(parish(), bdp_->connection);
    }
    static void TearDownTestSuite()
    {
        delete bdp_;
        bdp_ = nullptr;
    }

    // The first rows of a select that ought to have none.
    static void expectNone(const QString& select)
    {
        const QStringList rows = bdp_->rows(select);
        EXPECT_TRUE(rows.isEmpty()) << qUtf8Printable(select + "\n" + rows.mid(0, 5).join("\n"));
    }

    static inline MadeBdp* bdp_ = nullptr;
};

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
        onlySeen += !person.birthKnown && !person.deathKnown;
        estimated += person.birthKnown && !person.birthExact;
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
        if (child.origin == 0) continue;
        const Family& family = parish().families[child.origin - 1];
        const Person& mother = parish().person(family.wife.person);
        EXPECT_TRUE(livesOn(mother, child.birth)) << child.number;
        EXPECT_GE(completedYears(mother.birth, child.birth), 15) << child.number;
        EXPECT_LE(completedYears(mother.birth, child.birth), 45) << child.number;
        if (family.wedding.isValid()) {
            EXPECT_GE(family.wedding.daysTo(child.birth), 270) << child.number;
        }
        if (family.husband.person == 0) continue;
        const Person& father = parish().person(family.husband.person);
        EXPECT_GE(completedYears(father.birth, child.birth), 18) << child.number;
        EXPECT_LE(father.death.daysTo(child.birth), 280) << child.number;
    }
}

TEST(DemoParish, LeavesNineMonthsBetweenTheBirthsOfAMotherUnlessTheyAreTwins)
{
    std::map<int, std::set<QDate>> births;
    for (const Person& child : parish().people)
        if (child.origin != 0) births[parish().families[child.origin - 1].wife.person].insert(child.birth);
    for (const auto& [mother, days] : births)
        for (auto day = days.begin(); std::next(day) != days.end(); ++day)
            EXPECT_GE(day->daysTo(*std::next(day)), 270) << mother;
}

TEST(DemoParish, MarriesOnlyTheLivingAndTheFree)
{
    std::map<int, QList<const Family*>> marriages;
    for (const Family& family : parish().families) {
        if (family.situation != legitimateFamily) continue;
        for (const Spouse& spouse : {family.husband, family.wife}) {
            const Person& person = parish().person(spouse.person);
            EXPECT_TRUE(livesOn(person, family.seenFrom)) << family.number;
            EXPECT_GE(completedYears(person.birth, family.seenFrom), 18) << family.number;
            marriages[spouse.person] << &family;
        }
    }
    for (const auto& [number, families] : marriages)
        for (int i = 1; i < families.size(); ++i) {
            const Family& before = *families[i - 1];
            const int other = before.husband.person == number ? before.wife.person : before.husband.person;
            EXPECT_LT(parish().person(other).death, families[i]->wedding) << number;
        }
}

TEST(DemoParish, MarriesNoBrothersToSisters)
{
    for (const Family& family : parish().families) {
        if (family.husband.person == 0) continue;
        const int his = parish().person(family.husband.person).origin;
        EXPECT_TRUE(his == 0 || his != parish().person(family.wife.person).origin) << family.number;
    }
}

TEST(DemoParish, ComesOutTheSameFromTheSameSeed)
{
    MadeBdp one, other;
    write(simulate(seed), one.connection);
    write(simulate(seed), other.connection);
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

TEST_F(DemoBdp, HoldsNoDatesThatContradictEachOther)
{
    expectNone("select nind from individuo where dataobito < datanasc");
    expectNone("select nind from individuo where fimobs < inicioobs or inicioobs < datanasc or fimobs > dataobito");
    expectNone("select nfamilia from familia where fimobs < inicioobs or inicioobs > datacasam");
    expectNone("select filho.nind from individuo as filho, individuo as mae, familias where familias.nfamilia = "
               "filho.famorig and familias.nind = mae.nind and (filho.datanasc < mae.datanasc or (mae.sexo = 'f' and "
               "filho.datanasc > mae.dataobito))");
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

TEST_F(DemoBdp, PointsOnlyToPlacesAndCodesThatExist)
{
    for (const char* pair : {"localnasc, tipolocalnasc, individuo", "localobito, tipolocalobito, individuo",
                             "localcasam, tipolocalcasam, familia"})
    {
        const QStringList names = QString(pair).split(", ");
        const auto stray = [&](const QString& level, const QString& place) {
            const QString column = "cod" + place;
            expectNone("select " + names[0] + " from " + names[2] + " where " + names[1] + " = '" + level + "' and " +
                       names[0] + " not in (select " + column + " from " + place + ")");
        };
        stray("F", "paroquia");
        stray("L", "lugar");
        stray("S", "sitio");
        expectNone("select " + names[0] + " from " + names[2] + " where " + names[0] + " is not null and " + names[1] +
                   " not in ('F', 'L', 'S')");
    }
    for (const char* code :
         {"filiacao, individuo, Filia", "estadocivilpai, individuo, EstCi", "estadocivilmae, individuo, EstCi",
          "estadoobito, individuo, EstCi", "sacramentos, individuo, Sacra", "classparoquial, individuo, ClaPa",
          "funcprimpbapt, individuo, FunPa", "funcprimpobito, individuo, FunPa", "funcprimpcasam, familia, FunPa",
          "tipo, individuo, TipIn", "sfamilia, familia, SitFa", "tipocasal, familia, TipFa",
          "estadocivil, familias, EstCi"})
    {
        const QStringList names = QString(code).split(", ");
        const QStringList codes =
            bdp_->rows("select codigo from infocomplementar where categoria = '" + names[2] + "'");
        for (const QString& used : bdp_->rows("select distinct " + names[0] + " from " + names[1]))
            EXPECT_TRUE(used == "null" || codes.contains(used)) << code << " " << qUtf8Printable(used);
    }
    for (const char* priest : {"primpadrebapt", "primpadreobito"})
        expectNone(QStringLiteral("select %1 from individuo where %1 is not null and %1 not in (select nind from "
                                  "individuo where titulo = 'Padre')")
                       .arg(priest));
}
