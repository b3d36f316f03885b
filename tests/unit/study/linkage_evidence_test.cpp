// What speaks for one person and what against it: lives, acts at which both stood, days, places, spouses, and rivals.
#include "study/evidenceOfOne.h"

#include "study/acts/register_tables.h"

using namespace study::linkage;

TEST_F(EvidenceOfOne, TwoBurialsOfDifferentDaysAreOfTwo)
{
    const qint64 one = person({"Manuel", 'm', "", "1742-08-03"}), other = person({"Manuel", 'm', "", "1742-08-10"});
    run("update individuo set menor = 1 where nind in (?, ?)", {one, other});
    EXPECT_FALSE(between(one, other));
    run("update individuo set dataobito = '1742-08-03' where nind = ?", {other});
    EXPECT_TRUE(areProposed(one, other));
}

TEST_F(EvidenceOfOne, TwoWeddingsOfNamesakesInOneMonthAreNotOneWedding)
{
    const auto wedding = [this](const char* date) { return couple(person({"José"}), person({"Maria", 'f'}), date); };
    const qint64 one = wedding("1742-05-03"), other = wedding("1742-05-28");
    run("update familia set dcasamfixa = 1");
    const std::optional<Link> link = betweenCouples(one, other);
    EXPECT_TRUE(!link || link->bits < startModel().suggestFrom);
    EXPECT_EQ(bitsOf(link, "casamento"), 0);
    run("update familia set datacasam = '1742-05-12' where nfamilia = ?", {other});
    EXPECT_NEAR(bitsOf(betweenCouples(one, other), "casamento"), 3.3, 0.1);
    run("update familia set datacasam = '1742-05-03' where nfamilia = ?", {other});
    EXPECT_GT(bitsOf(betweenCouples(one, other), "casamento"), 12);
}

TEST_F(EvidenceOfOne, TwoBaptismsOfDifferentDaysAreOfTwo)
{
    const qint64 one = umbelino("1700-02-03"), other = umbelino("1700-02-06");
    EXPECT_FALSE(between(one, other));
    run("update individuo set dnascfixa = 0 where nind = ?", {other});
    EXPECT_TRUE(between(one, other));
}

TEST_F(EvidenceOfOne, TwoPriestsMoreThanALifeApartAreTwo)
{
    const qint64 one = umbelino(), other = umbelino();
    EXPECT_TRUE(between(one, other));
    const qint64 early = person({"Rita", 'f', "1650-02-03"}), late = person({"Rita", 'f', "1768-02-03"});
    run("update individuo set primpadrebapt = ? where nind = ?", {one, early});
    EXPECT_TRUE(between(one, other));
    run("update individuo set segpadrebapt = ? where nind = ?", {other, late});
    EXPECT_FALSE(between(one, other));
}

TEST_F(EvidenceOfOne, ThePriestOfABurialOrAMarriageLivedThen)
{
    const qint64 buried = umbelino("", "1700-02-03"), priest = umbelino();
    const qint64 deceased = person({"Rita", 'f', "", "1699-02-03"});
    run("update individuo set primpadreobito = ? where nind = ?", {priest, deceased});
    EXPECT_TRUE(between(buried, priest));
    run("update individuo set dataobito = '1720-02-03' where nind = ?", {deceased});
    EXPECT_FALSE(between(buried, priest));
    run("update individuo set primpadreobito = null where nind = ?", {deceased});
    EXPECT_TRUE(between(buried, priest));
    const qint64 family = couple(person({"Bento"}), person({"Clara", 'f'}), "1720-02-03");
    run("update familia set primpadrecasam = ? where nfamilia = ?", {priest, family});
    EXPECT_FALSE(between(buried, priest));
}

TEST_F(EvidenceOfOne, WhoeverWorkedSignedLivedOrLeftAfterABurialIsSomebodyElse)
{
    const qint64 buried = umbelino("", "1700-02-03");
    const auto other = [&](const char* statement) {
        const qint64 made = umbelino();
        run(statement, {made, QString("1699-02-03")});
        const bool before = between(buried, made).has_value();
        run("delete from profissoes");
        run("delete from assinatura");
        run("delete from passaporte");
        run("delete from residencia");
        run(statement, {made, QString("1730-02-03")});
        const bool after = between(buried, made).has_value();
        run("delete from individuo where nind = ?", {made});
        return before && !after;
    };
    EXPECT_TRUE(other("insert into profissoes (nind, idprofissao, dataref, datafixa) values (?, 1, ?, 1)"));
    EXPECT_TRUE(other("insert into assinatura (nind, idassinatura, dataref, datafixa) values (?, 1, ?, 1)"));
    EXPECT_TRUE(other("insert into passaporte (nind, npass, dataref) values (?, 1, ?)"));
    EXPECT_TRUE(other("insert into residencia (numero, tiporesid, dataref, datafixa) values (?, 'i', ?, 1)"));
}

TEST_F(EvidenceOfOne, WhomAnActOfTheirChildCallsDeadDoesNothingLater)
{
    const qint64 one = umbelino(), wife = person({"Clara Lopes", 'f'}), family = couple(one, wife);
    const qint64 godfather = person({"Bento", 'm', "1690-02-03", "", family});
    const qint64 child = person({"Rita", 'f', "1720-02-03"});
    const qint64 buried = umbelino("", "1730-02-03"), living = umbelino(), early = umbelino("", "1715-02-03");
    run("insert into profissoes (nind, idprofissao, dataref, datafixa) values (?, 1, '1725-02-03', 1)", {living});
    assist('b', child, godfather, "1720-02-03");
    EXPECT_TRUE(between(one, buried) && between(one, living) && between(one, early));
    run("update assistente set falecidomae = 1");
    EXPECT_TRUE(between(one, buried)) << "the mother was dead";
    run("update assistente set falecidopai = 1");
    EXPECT_FALSE(between(one, buried));
    EXPECT_FALSE(between(one, living));
    EXPECT_TRUE(between(one, early));
}

TEST_F(EvidenceOfOne, AnHeirIsBornBeforeTheBurialOfWhoNamedThem)
{
    const qint64 born = umbelino("1750-02-03"), heir = umbelino();
    const qint64 testator = person({"Rita", 'f', "", "1760-02-03"});
    run("insert into legadosprofanos (nind, idlegprof, nindherd) values (?, 1, ?)", {testator, heir});
    EXPECT_TRUE(between(born, heir));
    run("update individuo set testamenteiro = ? where nind = ?", {heir, testator});
    EXPECT_FALSE(between(born, heir)) << "an executor is grown";
}

TEST_F(EvidenceOfOne, WhoMarriedAboutADayLongAfterABurialIsSomebodyElse)
{
    const qint64 buried = umbelino("", "1700-02-01"), groom = umbelino();
    const qint64 family = couple(groom, person({"Clara", 'f'}), "1704-06-15");
    run("update familia set dcasamfixa = 0 where nfamilia = ?", {family});
    EXPECT_TRUE(between(buried, groom)) << "the marriage may be of 1699";
    run("update familia set datacasam = '1750-06-15' where nfamilia = ?", {family});
    EXPECT_FALSE(between(buried, groom));
}

TEST_F(EvidenceOfOne, WhoStandBesideEachOtherAtOneActAreTwo)
{
    const qint64 one = umbelino(), other = umbelino(), child = person({"Rita", 'f', "1720-02-03"});
    const qint64 family = couple(person({"Bento"}), person({"Clara", 'f'}), "1720-02-03");
    assist('b', child, one, "1720-02-03");
    assist('c', family, one, "1720-02-03");
    EXPECT_TRUE(between(one, other));
    const auto beside = [&] {
        const bool two = !between(one, other);
        run("delete from assistente where nind = ?", {other});
        return two;
    };
    assist('b', child, other, "1720-02-03");
    EXPECT_TRUE(beside());
    assist('c', family, other, "1720-02-03");
    EXPECT_TRUE(beside());
    EXPECT_TRUE(between(one, other));
    run("update individuo set primpadrebapt = ? where nind = ?", {other, child});
    EXPECT_FALSE(between(one, other));
}

TEST_F(EvidenceOfOne, BrothersAndSistersOfOneNameAreNotProposedByTheirFamilyAlone)
{
    const qint64 family = couple(person({"Bento de Abreu"}), person({"Clara Lopes", 'f'}));
    const qint64 one = person({"Maria", 'f', "1700-02-03", "", family});
    const qint64 other = person({"Maria", 'f', "1704-02-03", "", family});
    run("update individuo set dnascfixa = 0 where nind = ?", {other});
    EXPECT_TRUE(between(one, other));
    EXPECT_FALSE(areProposed(one, other));
}

TEST_F(EvidenceOfOne, TwoWivesOfTheSameTimeSpeakAgainstOneHusband)
{
    const auto family = [this](const char* wife, const char* first, const char* last) {
        const qint64 husband = umbelino(), made = couple(husband, person({wife, 'f'}));
        person({"Rita", 'f', first, "", made});
        person({"Luís", 'm', last, "", made});
        return husband;
    };
    const qint64 one = family("Clara Lopes", "1700-02-03", "1710-02-03");
    const qint64 meanwhile = family("Joana Dias", "1705-02-03", "1707-02-03");
    const qint64 later = family("Joana Dias", "1712-02-03", "1714-02-03");
    EXPECT_LT(bitsOf(between(one, meanwhile), "uniões ao mesmo tempo"), -3);
    EXPECT_EQ(bitsOf(between(one, later), "uniões ao mesmo tempo"), 0);
}

TEST_F(EvidenceOfOne, AMarriageAboutADayMayComeSomeYearsAfterTheBirths)
{
    const auto pair = [this](const char* marriage) {
        return couple(person({"Bento de Abreu"}), person({"Umbelina Lopes", 'f'}), marriage);
    };
    const qint64 one = pair(""), other = pair("1700-06-15");
    person({"Rita", 'f', "1694-02-03", "", one});
    run("update familia set dcasamfixa = 1 where nfamilia = ?", {other});
    EXPECT_FALSE(betweenCouples(one, other));
    run("update familia set dcasamfixa = 0 where nfamilia = ?", {other});
    EXPECT_TRUE(betweenCouples(one, other));
}

TEST_F(EvidenceOfOne, ASecondGivenNameMayStandForTheFirst)
{
    const qint64 family = couple(person({"Bento de Abreu"}), person({"Clara Lopes", 'f'}));
    const qint64 child = person({"Maria Umbelina", 'f', "1700-02-03", "", family});
    const qint64 again = couple(person({"Bento de Abreu"}), person({"Clara Lopes", 'f'}));
    const qint64 grown = person({"Umbelina", 'f', "", "", again});
    const std::optional<Link> link = between(child, grown);
    ASSERT_TRUE(link);
    EXPECT_LT(bitsOf(link, "nome próprio"), 8);
}

TEST_F(EvidenceOfOne, NamesakesOfOneTimeAreComparedWhateverElseIsTold)
{
    const qint64 one = umbelino("1700-02-03"), other = person({"Umbelino Moniz", 'm', "1701-02-03"});
    run("update individuo set dnascfixa = 0 where nind = ?", {other});
    EXPECT_TRUE(between(one, other));
}

TEST_F(EvidenceOfOne, TwoLocalitiesOfOneParishAreNearerThanTwoParishes)
{
    const qint64 one = umbelino("1700-02-03"), near = umbelino(), far = umbelino(), same = umbelino();
    reside(one, "03089901");
    reside(near, "03089902");
    reside(far, "03080101");
    reside(same, "03089901");
    const double ofSame = bitsOf(between(one, same), "lugar"), ofNear = bitsOf(between(one, near), "lugar"),
                 ofFar = bitsOf(between(one, far), "lugar");
    EXPECT_GT(ofSame, ofNear);
    EXPECT_GT(ofNear, ofFar);
    EXPECT_LT(ofNear, 0);
}

TEST_F(EvidenceOfOne, AParishAloneIsWorthWhatIsRareOfIt)
{
    const qint64 one = person({"Rita", 'f', "1700-02-03"}), other = person({"Rita", 'f', "1701-02-03"});
    run("update individuo set dnascfixa = 0 where nind = ?", {other});
    run("update individuo set localnasc = '030801', tipolocalnasc = 'F' where nind in (?, ?)", {one, other});
    EXPECT_GT(bitsOf(between(one, other), "freguesia"), 2);
}

TEST_F(EvidenceOfOne, AYearAloneIsItsMiddle)
{
    const qint64 one = umbelino("1699-06-15"), other = umbelino("1700-01-01");
    run("update individuo set dnascfixa = 0 where nind = ?", {other});
    const qint64 day = umbelino("1700-01-02");
    run("update individuo set dnascfixa = 0 where nind = ?", {day});
    EXPECT_GT(bitsOf(between(one, day), "nascimento"), bitsOf(between(one, other), "nascimento"));
}

TEST_F(EvidenceOfOne, AHusbandWhomANoteNamesIsEvidence)
{
    const qint64 married = person({"Umbelina", 'f'});
    couple(person({"Bento de Abreu"}), married, "1720-02-03");
    const qint64 buried = person({"Umbelina", 'f', "", "1760-02-03"});
    for (const char* note : {"Casada com Bento de Abreu.", "Viúva que ficou de Bento de Abreu, sem testamento",
                             "VIUVA DE BENTO DE ABREU", "mulher de Bento de Abreu"})
    {
        run("update individuo set obs = ? where nind = ?", {QString::fromUtf8(note), buried});
        EXPECT_GT(bitsOf(between(married, buried), "apelidos do cônjuge"), 3) << note;
    }
    run("update individuo set obs = 'Casada com O''Neill ''; -- \U0001F600' where nind = ?", {buried});
    EXPECT_EQ(bitsOf(between(married, buried), "apelidos do cônjuge"), 0);
    ASSERT_EQ(namedSpouses(bdp).size(), 1U);
    run("update individuo set obs = ? where nind = ?", {QString(20'000, 'x') + " casada com Bento", buried});
    EXPECT_TRUE(namedSpouses(bdp).empty());
}

TEST_F(EvidenceOfOne, AWifeWhomAnActAloneNamesIsEvidence)
{
    const qint64 married = umbelino();
    couple(married, person({"Clara Lopes", 'f'}), "1720-02-03");
    const qint64 buried = umbelino("", "1760-02-03");
    study::tables::make(bdp, study::tables::ofActs());
    run("insert into estudo_pessoa (acto, ordem, papel, ordinal, nome, nome_duvida, nind, identidade) values (5, 0, "
        "'defunto', 0, 'Umbelino', 0, ?, 'criada')",
        {buried});
    run("insert into estudo_pessoa (acto, ordem, papel, de, ordinal, nome, nome_duvida, identidade) values (5, 1, "
        "'conjuge', 0, 0, 'Clara Lopes', 0, 'so no acto')");
    ASSERT_EQ(namedSpouses(bdp).size(), 1U);
    EXPECT_EQ(namedSpouses(bdp).front().source, "acto nº 5");
    EXPECT_GT(bitsOf(between(married, buried), "apelidos do cônjuge"), 3);
}

TEST_F(EvidenceOfOne, ParentsWhomANoteNamesAreEvidenceOfTheirChild)
{
    const qint64 family = couple(person({"Bento de Abreu"}), person({"Clara Lopes", 'f'}));
    const qint64 born = person({"Rita", 'f', "1700-02-03", "", family});
    const qint64 bride = person({"Rita", 'f'});
    run("update individuo set obs = 'Filha de Bento de Abreu e de Clara Lopes.' where nind = ?", {bride});
    EXPECT_GT(bitsOf(between(born, bride), "apelidos do pai"), 3);
}

// Three records of one woman: no two of them are rivals, though one pair has little in common.
TEST_F(EvidenceOfOne, WhoIsTheSameAsBothIsNoRival)
{
    const qint64 origin = couple(person({"Bento de Abreu"}), person({"Clara Lopes", 'f'}));
    const qint64 bride = person({"Umbelina Dias", 'f', "", "", origin});
    const qint64 born = person({"Umbelina", 'f', "1700-02-03", "", origin});
    couple(person({"Luís Pires"}), bride, "1722-02-03");
    const qint64 buried = person({"Umbelina Moniz", 'f', "", "1760-02-03"});
    run("update individuo set obs = 'Casada com Luís Pires.' where nind = ?", {buried});
    const std::optional<Link> first = between(bride, born), second = between(bride, buried);
    ASSERT_TRUE(first && second);
    EXPECT_FALSE(first->runnerUp) << first->runnerUp->record.number;
    EXPECT_FALSE(second->runnerUp) << second->runnerUp->record.number;
}

// Two sisters of one name, and two burials by age: each burial has its own birth.
TEST_F(EvidenceOfOne, WhoHasABetterPlaceOfTheirOwnIsLessARival)
{
    const qint64 family = couple(person({"Bento de Abreu"}), person({"Clara Lopes", 'f'}));
    const qint64 elder = person({"Rita", 'f', "1700-02-03", "", family});
    const qint64 younger = person({"Rita", 'f', "1703-02-03", "", family});
    const auto buried = [&](const char* date, int age) {
        const qint64 made = person({"Rita", 'f', "", date, family});
        run("update individuo set idadeobito = ? where nind = ?", {age, made});
        return made;
    };
    const qint64 first = buried("1702-02-03", 2), second = buried("1713-06-03", 10);
    const std::optional<Link> ofElder = between(elder, first), ofYounger = between(younger, second);
    ASSERT_TRUE(ofElder && ofYounger);
    EXPECT_FALSE(between(younger, first)) << "who was born after the burial";
    const std::optional<Link> wrong = between(elder, second);
    ASSERT_TRUE(wrong);
    EXPECT_GE(ofYounger->aboveRunnerUp(), ofYounger->bits - wrong->bits + 2);
    EXPECT_TRUE(ofElder->isSuggested(startModel()));
}
