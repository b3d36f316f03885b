// A BDP read once into arrays.
#include "study/days.h"
#include "study/people.h"

#include "study/parish/snapshot.h"

#include <algorithm>

namespace study::parish {

TEST(ADateOfAParish, TellsHowSureItIs)
{
    EXPECT_EQ(day(1702, 1, 1).precision, Precision::Exact);
    EXPECT_EQ(dateOf(QDate(1702, 1, 1), false).precision, Precision::Year);
    EXPECT_EQ(dateOf(QDate(1702, 1, 2), false).precision, Precision::About);
    EXPECT_FALSE(dateOf({}, true).isKnown());
    EXPECT_EQ(dateOf(QDate(1702, 1, 1), false).middle(), QDate(1702, 7, 1));
    EXPECT_EQ(day(1702, 1, 1).middle(), QDate(1702, 1, 1));
}

TEST(ADateOfAParish, IsShownWithItsDoubt)
{
    EXPECT_EQ(shown(day(1702, 2, 14)), "14/02/1702");
    EXPECT_EQ(shown(dateOf(QDate(1702, 2, 14), false)), "cerca de 14/02/1702");
    EXPECT_EQ(shown(dateOf(QDate(1702, 1, 1), false)), "cerca de 1702");
    EXPECT_EQ(shown(Date{}), "");
}

TEST(AnAge, IsCompletedByTheCalendar)
{
    EXPECT_EQ(completedYears(day(1700, 3, 10), day(1720, 3, 9)), 19);
    EXPECT_EQ(completedYears(day(1700, 3, 10), day(1720, 3, 10)), 20);
    EXPECT_EQ(completedYears(day(1704, 2, 29), day(1705, 2, 28)), 0);
    EXPECT_EQ(completedYears(day(1704, 2, 29), day(1705, 3, 1)), 1);
    EXPECT_EQ(completedYears(day(1702, 2, 14), day(1702, 2, 13)), -1);
    EXPECT_EQ(completedYears(dateOf(QDate(1700, 1, 1), false), day(1720, 6, 30)), 19);
}

TEST(AnAge, IsNotTheDaysByAMeanYear)
{
    const Date birth = day(1720, 3, 12);
    const auto ages = [](const Date& from, const Date& to) {
        return std::pair(daysBetween(from, to), completedYears(from, to));
    };
    EXPECT_EQ(ages(birth, day(1744, 10, 1)), std::pair(8969, 24));
    EXPECT_EQ(ages(birth, day(1745, 3, 11)), std::pair(9130, 24));
    EXPECT_EQ(ages(birth, day(1745, 3, 12)), std::pair(9131, 25)); // 24.999 by days
    EXPECT_EQ(ages(birth, day(1769, 10, 1)), std::pair(18100, 49));
    EXPECT_EQ(ages(day(1750, 6, 1), day(1750, 12, 15)), std::pair(197, 0));
}

TEST(AnAge, IsReachedOnABirthday)
{
    EXPECT_EQ(birthday(day(1704, 2, 29), 15), QDate(1719, 3, 1));
    EXPECT_EQ(birthday(day(1704, 2, 29), 16), QDate(1720, 2, 29));
    EXPECT_EQ(birthday(day(1720, 3, 12), 0), QDate(1720, 3, 12));
    EXPECT_EQ(birthday(dateOf(QDate(1700, 1, 1), false), 20), QDate(1720, 7, 1));
}

TEST(AnAge, HasThePartOfTheYearThatHasGone)
{
    EXPECT_DOUBLE_EQ(exactAge(day(1701, 1, 1), day(1703, 1, 1)), 2.0);
    EXPECT_DOUBLE_EQ(exactAge(day(1701, 3, 1), day(1702, 9, 1)), 1 + 184 / 365.0);
    EXPECT_DOUBLE_EQ(exactAge(day(1704, 2, 29), day(1705, 2, 28)), 365 / 366.0);
}

TEST(AnAge, LacksTheDaysThatTheCalendarLeftOut)
{
    EXPECT_DOUBLE_EQ(exactAge(day(1560, 6, 1), day(1582, 12, 1)), 22 + 173 / 355.0);
    EXPECT_DOUBLE_EQ(exactAge(day(1560, 6, 1), day(1583, 6, 1)), 23.0);
}

using ASnapshot = People;

TEST_F(ASnapshot, HasThePeopleWithTheirColumns)
{
    const qint64 ana = person({"Ana Lopes", 'f', "1702-02-14", "1760-05-01"});
    run("update individuo set localnasc = '030301', tipolocalnasc = 'F', filiacao = 0, menor = 0, testam = null, "
        "idadeobito = 58, primpadrebapt = 7, funcprimpbapt = 3, dobitofixa = 0 where nind = ?",
        {ana});
    const Snapshot parish = Snapshot::read(bdp);
    ASSERT_EQ(parish.people().size(), 1U);
    const Person& read = *parish.person(PersonNumber(ana));
    EXPECT_EQ(read.name, "Ana Lopes");
    EXPECT_EQ(read.gender, Gender::Female);
    EXPECT_EQ(read.birth, day(1702, 2, 14));
    EXPECT_EQ(read.death, dateOf(QDate(1760, 5, 1), false));
    EXPECT_EQ(read.birthPlace, (Place{"030301", 'F'}));
    EXPECT_EQ(read.filiation, Code(0));
    EXPECT_EQ(read.minor, Flag(false));
    EXPECT_EQ(read.will, Flag());
    EXPECT_EQ(read.ageAtDeath, Code(58));
    EXPECT_EQ(read.fatherAge, Code());
    EXPECT_EQ(read.baptismPriests[0].who.number, PersonNumber(7));
    EXPECT_EQ(read.baptismPriests[0].who.person, nullptr);
    EXPECT_EQ(read.baptismPriests[0].function, Code(3));
    EXPECT_FALSE(read.executor.isGiven());
}

TEST_F(ASnapshot, LeadsFromAPersonToTheFamilies)
{
    const qint64 rui = person({"Rui"});
    const qint64 eva = person({"Eva", 'f'});
    const qint64 family = couple(rui, eva, "1720-01-10");
    const qint64 second = person({"Gil", 'm', "1725-01-01", "", family});
    const qint64 undated = person({"Leonor", 'f', "", "", family});
    const qint64 first = person({"Inês", 'f', "1722-01-01", "", family});
    const Snapshot parish = Snapshot::read(bdp);

    const Family& read = *parish.family(FamilyNumber(family));
    EXPECT_EQ(read.husband, parish.person(PersonNumber(rui)));
    EXPECT_EQ(read.wife, parish.person(PersonNumber(eva)));
    ASSERT_EQ(read.children.size(), 3U);
    EXPECT_EQ(read.children[0], parish.person(PersonNumber(first)));
    EXPECT_EQ(read.children[1], parish.person(PersonNumber(second)));
    EXPECT_EQ(read.children[2], parish.person(PersonNumber(undated)));
    EXPECT_EQ(read.children[0]->father(), read.husband);
    EXPECT_EQ(read.children[0]->mother(), read.wife);
    ASSERT_EQ(read.husband->unions.size(), 1U);
    EXPECT_EQ(read.husband->unions[0]->family, &read);
    EXPECT_EQ(spouseOf(*read.husband, read), read.wife);
}

TEST_F(ASnapshot, KeepsRowsThatLeadNowhere)
{
    const qint64 rui = person({"Rui", 'm', "", "", 77});
    run("insert into familias (nfamilia, nind) values (88, ?)", {rui});
    run("insert into assistente (tipoacto, entidade, nind, tipoassistente) values ('b', 99, 98, 'p')");
    run("insert into residencia (numero, tiporesid, dataref) values (97, 'f', '1702-01-01')");
    const Snapshot parish = Snapshot::read(bdp);
    const Person& read = *parish.person(PersonNumber(rui));
    EXPECT_EQ(read.originNumber, FamilyNumber(77));
    EXPECT_EQ(read.origin, nullptr);
    EXPECT_EQ(read.father(), nullptr);
    ASSERT_EQ(read.unions.size(), 1U);
    EXPECT_EQ(read.unions[0]->family, nullptr);
    ASSERT_EQ(parish.assistances().size(), 1U);
    EXPECT_EQ(parish.assistances()[0].child, nullptr);
    EXPECT_EQ(parish.assistances()[0].assistant.person, nullptr);
    EXPECT_EQ(parish.residences().size(), 1U);
}

TEST_F(ASnapshot, GivesEachTheirOwnRows)
{
    const qint64 rui = person({"Rui"});
    const qint64 eva = person({"Eva", 'f'});
    const qint64 ana = person({"Ana", 'f', "1730-01-01"});
    const qint64 family = couple(rui, eva, "1720-01-10");
    const auto assists = [this](const char* kind, qint64 entity, const char* on, qint64 nind, const char* as) {
        run("insert into assistente (tipoacto, entidade, dataref, nind, tipoassistente) values (?, ?, ?, ?, ?)",
            {kind, entity, on, nind, as});
    };
    assists("b", ana, "1730-01-01", eva, "p");
    assists("b", ana, "1730-01-01", rui, "p");
    assists("c", family, "1720-01-10", ana, "t");
    run("insert into residencia (numero, tiporesid, dataref, datafixa, localresid, tipolocal) values (?, 'i', "
        "'1725-01-01', 1, '03030101', 'L')",
        {rui});
    run("insert into residencia (numero, tiporesid, dataref, datafixa, localresid, tipolocal) values (?, 'f', "
        "'1726-01-01', 0, '03030102', 'L')",
        {family});
    run("insert into rituaismorte (nind, idlegpio, tipolegpio, quantidade, valorunit) values (?, 1, 'missa', 2, 0.5)",
        {rui});
    run("insert into legadosprofanos (nind, idlegprof, nindherd) values (?, 1, ?)", {rui, ana});
    run("insert into profissoes (nind, idprofissao, codprof) values (?, 1, 4)", {rui});

    const Snapshot parish = Snapshot::read(bdp);
    const Person& man = *parish.person(PersonNumber(rui));
    const Person& child = *parish.person(PersonNumber(ana));
    ASSERT_EQ(child.godparents.size(), 2U);
    EXPECT_TRUE(child.godparents[0].godparent);
    EXPECT_EQ(child.godparents[0].assistant.person, &man);
    ASSERT_EQ(child.assisted.size(), 1U);
    EXPECT_EQ(child.assisted[0]->family, parish.family(FamilyNumber(family)));
    EXPECT_EQ(parish.family(FamilyNumber(family))->witnesses.size(), 1U);
    ASSERT_EQ(man.residences.size(), 1U);
    EXPECT_EQ(man.residences[0].place, (Place{"03030101", 'L'}));
    ASSERT_EQ(parish.family(FamilyNumber(family))->residences.size(), 1U);
    EXPECT_EQ(parish.family(FamilyNumber(family))->residences[0].date.precision, Precision::Year);
    ASSERT_EQ(man.suffrages.size(), 1U);
    EXPECT_EQ(man.suffrages[0].kind, SuffrageKind::Mass);
    EXPECT_EQ(man.suffrages[0].unitValue, 0.5);
    ASSERT_EQ(man.bequests.size(), 1U);
    EXPECT_EQ(man.bequests[0].heir.person, &child);
    ASSERT_EQ(man.professions.size(), 1U);
    EXPECT_EQ(man.professions[0].code, Code(4));
}

TEST_F(ASnapshot, TellsOfWhatAPersonDiedAndWhatWasLeftToWhom)
{
    const qint64 rui = person({"Rui"});
    run("update individuo set causa = 'Bexigas' where nind = ?", {rui});
    run("insert into legadosprofanos (nind, idlegprof, bensmoveis) values (?, 1, 'Duas vacas')", {rui});
    run("insert into legadosprofanos (nind, idlegprof, bensraiz, bensmoveis) values (?, 2, 'O campo', '')", {rui});
    run("insert into rituaismorte (nind, idlegpio, tipolegpio, destino) values (?, 1, 'esmola', 'Pobres')", {rui});
    const Snapshot parish = Snapshot::read(bdp);
    const Person& read = *parish.person(PersonNumber(rui));
    EXPECT_EQ(read.cause, "Bexigas");
    ASSERT_EQ(read.bequests.size(), 2U);
    EXPECT_FALSE(read.bequests[0].hasLand);
    EXPECT_TRUE(read.bequests[0].hasMovables);
    EXPECT_TRUE(read.bequests[1].hasLand);
    EXPECT_FALSE(read.bequests[1].hasMovables);
    ASSERT_EQ(read.suffrages.size(), 1U);
    EXPECT_EQ(read.suffrages[0].destination, "Pobres");
}

TEST_F(ASnapshot, TellsWhoWasDispensedOfKinship)
{
    couple(person({"Rui"}), person({"Eva", 'f'}));
    const auto isDispensed = [this](const char* notes) {
        run("update familia set obs = ?", {QString::fromUtf8(notes)});
        const Snapshot parish = Snapshot::read(bdp);
        EXPECT_TRUE(parish.families()[0].hasNotes);
        return parish.families()[0].kinDispensed;
    };
    EXPECT_TRUE(isDispensed("Dispensados no quarto grau de consanguinidade."));
    EXPECT_TRUE(isDispensed("Parentes em 3.º grau, com dispensa"));
    EXPECT_TRUE(isDispensed("DESPENSADOS POR AFINIDADE"));
    EXPECT_TRUE(isDispensed("Foram dispensados no 3.º grau de consanguinidade."));
    EXPECT_TRUE(isDispensed("dispensados no 3.o e 4.o grau"));
    EXPECT_TRUE(isDispensed("dispensados no 3. grau"));
    EXPECT_TRUE(isDispensed("Dispensados por D. João, bispo, no terceiro grau"));
    EXPECT_TRUE(isDispensed("No 2.º grau de afinidade, que o Sr. Bispo dispensou"));
    EXPECT_FALSE(isDispensed("Dispensados dos banhos."));
    EXPECT_FALSE(isDispensed("Dispensados dos banhos a 3.5.1750. Parentes do pároco."));
    EXPECT_FALSE(isDispensed("Casaram com dispensa de proclamas. São parentes do pároco."));
    EXPECT_FALSE(isDispensed("O grau é indispensável"));
    EXPECT_FALSE(isDispensed("Parentes no quarto grau."));
    run("update familia set obs = null");
    const Snapshot parish = Snapshot::read(bdp);
    EXPECT_FALSE(parish.families()[0].hasNotes);
    EXPECT_FALSE(parish.families()[0].kinDispensed);
}

TEST_F(ASnapshot, KnowsTheCodesOfProfessionsWhoseNotesTellThem)
{
    run("delete from profissao");
    run("insert into profissao (codprof, profissao, obs) values (1, 'Abade', 'HISCO 14120'), (2, 'Médico', 'ver "
        "hisco: 6105'), (3, 'Abegão', null), (4, 'Moço', 'HISCO desconhecido')");
    const Catalogue catalogue = Snapshot::read(bdp).catalogue();
    EXPECT_EQ(catalogue.hisco, (QHash<int, QString>{{1, "14120"}, {2, "06105"}}));
    EXPECT_EQ(catalogue.professions.size(), 4);
}

TEST_F(ASnapshot, TellsWhoInAnActIsNobody)
{
    EXPECT_TRUE(Snapshot::read(bdp).lostMentions().empty());
    const qint64 rui = person({"Rui"});
    run("create table estudo_pessoa (acto integer, ordem integer, nome varchar, nind double)");
    const auto mention = [this](int order, const char* name, const QVariant& number) {
        run("insert into estudo_pessoa (acto, ordem, nome, nind) values (5, ?, ?, ?)", {order, name, number});
    };
    mention(0, "Rui", rui);
    mention(1, "Eva", 98);
    mention(2, "Ana", {});
    const Snapshot parish = Snapshot::read(bdp);
    ASSERT_EQ(parish.lostMentions().size(), 1U);
    EXPECT_EQ(parish.lostMentions()[0].name, "Eva");
    EXPECT_EQ(parish.lostMentions()[0].number, PersonNumber(98));
    EXPECT_EQ(parish.lostMentions()[0].act, 5);
}

TEST_F(ASnapshot, AsksNoTableOfAnotherProgram)
{
    run("create table estudo_pessoa (nind double, nota varchar)");
    run("insert into estudo_pessoa (nind) values (98)");
    EXPECT_TRUE(Snapshot::read(bdp).lostMentions().empty());
}

TEST_F(ASnapshot, StaysWholeWhereItIsMoved)
{
    const qint64 rui = person({"Rui"});
    couple(rui, person({"Eva", 'f'}));
    Snapshot first = Snapshot::read(bdp);
    const Snapshot parish = std::move(first);
    EXPECT_EQ(parish.families()[0].husband, parish.person(PersonNumber(rui)));
    EXPECT_EQ(parish.families()[0].husband, &parish.people()[0]);
}

TEST_F(ASnapshot, IsGivenUpWhenAsked)
{
    bdp.beginTrans();
    for (int i = 0; i < 5000; ++i)
        person({"Rui"});
    bdp.commitTrans();
    EXPECT_THROW(Snapshot::read(bdp, [](double) { return false; }), Snapshot::Interrupted);
    EXPECT_EQ(Snapshot::read(bdp, [](double done) { return done > 0 && done <= 1; }).people().size(), 5000U);
}

} // namespace study::parish
