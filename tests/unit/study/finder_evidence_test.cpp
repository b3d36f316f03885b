// What speaks for and against those whom the finder names.
#include "study/found.h"

namespace study {

using EvidenceOfTheFinder = Finding;

TEST_F(EvidenceOfTheFinder, PutsWhoCantBeMeantLastAndSaysWhy)
{
    const qint64 right = person({"Ana Gomes", 'f', "1670-01-01"});
    const qint64 dead = person({"Ana Gomes", 'f', "", "1690-02-03"});
    const qint64 unknown = person({"Ana Gomes", 'd'});
    tells(ActKind::Baptism, in1700, {{Role::Child, "Maria"}, {Role::Mother, "Ana Gomes", 0}});
    EXPECT_EQ(numbers(1), (QList{right, unknown, dead}));
    EXPECT_EQ(of(1, dead).against, QStringList("já morta em 03/02/1690"));
    const qint64 man = person({"Ana Gomes", 'm'});
    EXPECT_EQ(of(1, man).against, QStringList("é homem"));
    const qint64 family = couple(person({"Rui"}), right);
    const qint64 child = person({"Ana Gomes", 'f', "1700-01-01", "", family});
    isKnown(0, child);
    EXPECT_FALSE(numbers(1).contains(child)) << "born in no year that comes into question, nor in five of it";
}

TEST_F(EvidenceOfTheFinder, KnowsHowLongTheParentsOfAChildMayHaveBeenDead)
{
    const qint64 father = person({"Manuel Dias", 'm', "", "1699-06-01"});
    const qint64 mother = person({"Ana Gomes", 'f', "", "1700-02-26"});
    tells(ActKind::Baptism, in1700,
          {{Role::Child, "Maria"},
           {Role::Father, "Manuel Dias", 0},
           {Role::Mother, "Ana Gomes", 0},
           {Role::Godfather, "Manuel Dias"},
           {Role::Father, "Manuel Dias", 1}});
    EXPECT_EQ(of(1, father).against, QStringList()) << "278 days";
    EXPECT_EQ(of(2, mother).against, QStringList()) << "7 days";
    EXPECT_EQ(of(3, father).against, QStringList("já morto em 01/06/1699"));
    EXPECT_EQ(of(4, father).against, QStringList()) << "a grandfather may be dead";
    run("update individuo set dataobito = '1699-04-01' where nind = ?", {father});
    EXPECT_EQ(of(1, father).against, QStringList("já morto em 01/04/1699"));
    run("update individuo set dataobito = '1700-02-20' where nind = ?", {mother});
    EXPECT_EQ(of(2, mother).against, QStringList("já morta em 20/02/1700"));
}

TEST_F(EvidenceOfTheFinder, TakesNobodyForARelativeByTheSurnameAlone)
{
    for (int i = 0; i < 200; ++i) // among whom the surname is rare
        person({i % 2 == 0 ? "Ana Lopes" : "Maria Gomes", 'f'});
    const qint64 manuel = person({"Manuel Dias"});
    couple(manuel, person({"Ana Bettencourt", 'f'}));
    const qint64 alone = person({"Manuel Dias"});
    tells(ActKind::Baptism, in1700,
          {{Role::Child, "Rui"}, {Role::Father, "Manuel Dias", 0}, {Role::Mother, "Maria Bettencourt", 0}});
    EXPECT_EQ(numbers(1), (QList{alone, manuel}));
    EXPECT_EQ(of(1, manuel).against, QStringList("casado com Ana Bettencourt"));
    const qint64 pedro = person({"Pedro Lobo"});
    couple(pedro, person({"Ana Bettencourt", 'f'}));
    EXPECT_FALSE(numbers(1).contains(pedro)) << "another first name, and a wife who has another one";
}

TEST_F(EvidenceOfTheFinder, SaysWhereTheSurnamesShareNothing)
{
    const qint64 salgado = person({"Manuel Joaquim Salgado"}), devout = person({"Rui de Jesus"});
    tells(ActKind::Baptism, in1700, {{Role::Child, "Ana"}, {Role::Godfather, "Manuel de Abreu"}});
    EXPECT_EQ(of(1, salgado).against, QStringList("tem outro apelido: Manuel Joaquim Salgado"));
    tells(ActKind::Baptism, in1700, {{Role::Child, "Ana"}, {Role::Godfather, "Manuel Salgado Lopes"}});
    EXPECT_EQ(of(1, salgado).against, QStringList()) << "one is shared";
    tells(ActKind::Baptism, in1700, {{Role::Child, "Ana"}, {Role::Godfather, "Rui Dias"}});
    EXPECT_EQ(of(1, devout).against, QStringList()) << "devotional names tell nothing";
    couple(salgado, person({"Rita Vaz", 'f'}));
    tells(ActKind::Baptism, in1700,
          {{Role::Child, "Ana"}, {Role::Father, "Manuel de Abreu", 0}, {Role::Mother, "Rita Vaz", 0}});
    EXPECT_EQ(finder.couples(act, 0, conclusions)[0].against,
              QStringList("pai: tem outro apelido: Manuel Joaquim Salgado"));
}

TEST_F(EvidenceOfTheFinder, ComparesStatedAgesTheMoreCloselyTheYoungerSomebodyIs)
{
    const auto years = [&](int age, const char* told) {
        const qint64 who = person({"Gil Vaz", 'm', qPrintable(QString("%1-01-01").arg(1700 - age))});
        tells(ActKind::Burial, in1700, {{Role::Deceased, "Gil Vaz"}});
        isTold(0, attribute::age, told);
        const Candidate found = of(0, who);
        run("delete from individuo where nind = ?", {who});
        return found.against.isEmpty() ? 1 : -1;
    };
    EXPECT_EQ(years(6, "4 anos"), 1);
    EXPECT_EQ(years(12, "4 anos"), -1) << "ten years are far off for a child";
    EXPECT_EQ(years(0, "4 meses"), 1);
    EXPECT_EQ(years(8, "4 meses"), -1);
    EXPECT_EQ(years(67, "80 anos"), 1) << "people of that age don't know it";
    EXPECT_EQ(years(60, "80 anos"), -1) << "nothing is said neither for nor against nowhere";
    EXPECT_EQ(years(62, "50 anos"), -1);
}

TEST_F(EvidenceOfTheFinder, GathersWhoWasBornAboutAYearThatComesIntoQuestion)
{
    const qint64 about = person({"Ana Gomes", 'f', "1691-01-01"});
    run("update individuo set DnascFixa = 0");
    tells(ActKind::Baptism, in1700, {{Role::Child, "Maria"}, {Role::Mother, "Ana Gomes", 0}});
    EXPECT_EQ(of(1, about).against, QStringList()) << "she may have been 14";
    run("update individuo set DnascFixa = 1");
    EXPECT_EQ(of(1, about).against, QStringList("tinha 9 anos"));
}

TEST_F(EvidenceOfTheFinder, OffersNoFatherOfOneAndClosesHimInTheOther)
{
    for (const auto& [birth, possible] : {std::pair("1687-01-01", false), std::pair("1680-01-01", true),
                                          std::pair("1620-01-01", true), std::pair("1605-01-01", false)})
    {
        const qint64 father = person({"Rui Dias", 'm', birth}), mother = person({"Ana Gomes", 'f', "1670-01-01"});
        couple(father, mother);
        tells(ActKind::Baptism, in1700,
              {{Role::Child, "Maria"}, {Role::Father, "Rui Dias", 0}, {Role::Mother, "Ana Gomes", 0}});
        EXPECT_EQ(of(1, father).against.isEmpty(), possible) << birth;
        EXPECT_EQ(finder.couples(act, 0, conclusions)[0].open, possible) << birth;
        run("delete from individuo where nind > 0");
        run("delete from familia where nfamilia > 0");
        run("delete from familias where nfamilia > 0");
    }
}

TEST_F(EvidenceOfTheFinder, TellsTheLastActAlsoWhereNoCardHasARowForIt)
{
    const qint64 rui = person({"Rui Dias", 'm', "1650-01-01"});
    run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente) values ('b', 1, '1698-12-24', ?, "
        "'p')",
        {rui});
    const auto stored = [&](QDate date, Role role) {
        Act told{.kind = ActKind::Baptism, .date = partialDate(date)};
        told.people << ActPerson{.role = Role::Child, .name = {"Ana"}} << ActPerson{.role = role, .name = {"Rui Dias"}};
        const Conclusions whom{.people = {{.kind = Identity::Kind::Kept}, {Identity::Kind::Known, rui}}};
        Plan plan;
        plan.people = {0, rui};
        addAct(bdp, told, whom, plan);
    };
    stored(QDate(1698, 12, 24), Role::Godfather);
    stored(QDate(1710, 1, 2), Role::Witness);
    tells(ActKind::Baptism, in1700, {{Role::Child, "Maria"}, {Role::Godfather, "Rui Dias"}});
    EXPECT_EQ(of(1, rui).lastAct, "padrinho em 24/12/1698");
    stored(QDate(1699, 5, 6), Role::Proxy);
    EXPECT_EQ(of(1, rui).lastAct, "procurador em 06/05/1699");
}

TEST_F(EvidenceOfTheFinder, KnowsWhenPeopleWithoutABirthLived)
{
    const qint64 now = person({"Manuel Dias"}), early = person({"Manuel Dias"}), late = person({"Manuel Dias"});
    const qint64 whenever = person({"Manuel Dias"});
    couple(early, person({"Ana Gomes", 'f'}), "1590-01-02");
    person({"Rui", 'm', "1790-01-02", "", couple(late, person({"Ana Gomes", 'f'}))});
    run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente) values ('b', 1, '1695-12-24', ?, "
        "'p')",
        {now});
    EXPECT_EQ(godfathers("Manuel Dias"), (QList{now, whenever, early, late}));
    EXPECT_TRUE(of(1, now).reasons.contains("vivia em 24/12/1695"));
    EXPECT_EQ(of(1, early).against, QStringList("vivia em 02/01/1590"));
    EXPECT_EQ(of(1, late).against, QStringList("vivia em 02/01/1790"));
    run("update assistente set dataref = '1580-12-24'");
    EXPECT_EQ(of(1, now).against, QStringList("vivia em 24/12/1580")) << "seen at once";
}

TEST_F(EvidenceOfTheFinder, KnowsWhoIsToldToBeDead)
{
    const qint64 alive = person({"Manuel Dias", 'm', "", "1705-01-01"});
    const qint64 dead = person({"Manuel Dias", 'm', "", "1690-01-01"});
    tells(ActKind::Burial, in1700, {{Role::Deceased, "Ana"}, {Role::Spouse, "Manuel Dias", 0}});
    isTold(1, attribute::dead, "antes");
    EXPECT_EQ(numbers(1), (QList{dead, alive}));
    EXPECT_EQ(of(1, alive).against, QStringList("só morreu em 01/01/1705"));
}

TEST_F(EvidenceOfTheFinder, FindsTheActThatWasEnteredBefore)
{
    const qint64 again = person({"Maria", 'f', "1700-03-01"});
    const qint64 other = person({"Maria", 'f', "1699-03-01"});
    const qint64 seen = person({"Maria", 'f'});
    tells(ActKind::Baptism, in1700, {{Role::Child, "Maria"}});
    EXPECT_EQ(numbers(0), (QList{again, seen})) << "who has been baptised isn't";
    EXPECT_TRUE(of(0, again).reasons.contains("nascimento em 01/03/1700"));
    const qint64 buried = person({"Maria", 'f', "1650-01-01", "1700-03-05"});
    tells(ActKind::Burial, in1700, {{Role::Deceased, "Maria"}});
    EXPECT_EQ(numbers(0).first(), buried);
    EXPECT_TRUE(numbers(0).contains(other));
}

TEST_F(EvidenceOfTheFinder, TellsWhatSetsHomonymsApart)
{
    const qint64 family = couple(person({"Pedro Dias"}), person({"Rita Lopes", 'f'}));
    const qint64 manuel = person({"Manuel Dias", 'm', "1660-05-06", "1720-07-08", family});
    run("update individuo set DnascFixa = 0 where nind = ?", {manuel});
    const qint64 own = couple(manuel, person({"Ana Gomes", 'f'}), "1685-01-02");
    person({"Rui", 'm', "1686-01-02", "", own});
    run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente) values ('b', 1, '1699-12-24', ?, "
        "'p'), "
        "('c', 1, '1712-12-24', ?, 't')",
        {manuel, manuel});
    godfathers("Manuel Dias");
    const Candidate found = of(1, manuel);
    EXPECT_EQ(found.name, "Manuel Dias");
    EXPECT_EQ(shown(found.birth), "cerca de 06/05/1660");
    EXPECT_EQ(shown(found.death), "08/07/1720");
    EXPECT_EQ(found.father, "Pedro Dias");
    EXPECT_EQ(found.mother, "Rita Lopes");
    EXPECT_EQ(found.spouse, "Ana Gomes");
    EXPECT_EQ(found.lastAct, "padrinho em 24/12/1699") << "before the act";
}

} // namespace study
