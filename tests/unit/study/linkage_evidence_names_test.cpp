// What speaks for one person and what against it: names and what stands beside them, those of others, places.
#include "study/evidenceOfOne.h"

using namespace study::linkage;

TEST_F(EvidenceOfOne, WhatTellsNamesakesApartIsComparedWhereverItStands)
{
    const qint64 one = person({"Bento de Abreu, o Velho"}), other = person({"Bento de Abreu o Novo"});
    EXPECT_LT(bitsOf(between(one, other), "alcunha"), 0);
    const qint64 again = person({"Bento de Abreu, o velho"});
    EXPECT_GT(bitsOf(between(one, again), "alcunha"), 5);
    const qint64 smith = person({"Bento \"o Ferreiro\""}), named = person({"Bento de Abreu"});
    run("update individuo set alcunha = 'Ferreiro' where nind = ?", {named});
    EXPECT_GT(bitsOf(between(smith, named), "alcunha"), 5);
    EXPECT_EQ(bitsOf(between(one, smith), "alcunha"), 0) << "an old man may be a smith";
    const qint64 foundling = person({"Bento exposto"}), single = person({"Bento, solteiro"});
    EXPECT_EQ(bitsOf(between(foundling, single), "alcunha"), 0) << "no bynames";
}

TEST_F(EvidenceOfOne, ATitleIsOneHoweverItIsSpelledAndWhereverItStands)
{
    const qint64 one = umbelino(), other = umbelino(), third = person({"P.e Umbelino de Abreu"});
    run("update individuo set titulo = 'P.e' where nind = ?", {one});
    run("update individuo set titulo = 'padre' where nind = ?", {other});
    EXPECT_GT(bitsOf(between(one, other), "título"), 0);
    EXPECT_GT(bitsOf(between(one, third), "título"), 0);
    const qint64 lady = person({"D. Umbelina de Abreu", 'f'}), again = person({"Umbelina de Abreu", 'f'});
    run("update individuo set titulo = 'Dona' where nind = ?", {again});
    EXPECT_GT(bitsOf(between(lady, again), "título"), 0);
    run("update individuo set titulo = 'Condessa' where nind = ?", {again});
    EXPECT_LT(bitsOf(between(lady, again), "título"), 0);
}

TEST_F(EvidenceOfOne, TheRarestOfThePlacesThatBothHaveCounts)
{
    const qint64 one = umbelino(), other = umbelino();
    for (int i = 0; i < 30; ++i)
        reside(person({"João", 'm'}), "03089901");
    for (const qint64 who : {one, other})
        reside(who, "03089901");
    const double common = bitsOf(between(one, other), "lugar");
    for (const qint64 who : {one, other})
        reside(who, "03089902", "1711-01-02");
    EXPECT_GT(bitsOf(between(one, other), "lugar"), common + 2);
}

TEST_F(EvidenceOfOne, EachOtherNameMeetsTheOneThatFitsItBest)
{
    const qint64 one = person({"Bento Alves Álvares"}), other = person({"Bento Álvares"});
    const qint64 turned = person({"Bento Álvares Alves"});
    EXPECT_DOUBLE_EQ(bitsOf(between(one, other), "outros nomes"), bitsOf(between(other, turned), "outros nomes"));
}

TEST_F(EvidenceOfOne, ASurnameOfSeveralReadingsIsWorthHalfWhereItIsAParents)
{
    const auto childOf = [this](const char* father) {
        const qint64 family = couple(person({father}), person({"Ana", 'f', "1665-01-01"}));
        return person({"Umbelino", 'm', "1700-02-03", "", family});
    };
    const qint64 grown = person({"Umbelino Cunha"});
    const double whole = bitsOf(between(grown, childOf("Bento Cunha")), "apelido dos pais");
    ASSERT_GT(whole, 1);
    const std::optional<Link> half = between(grown, childOf("Bento Cª"));
    EXPECT_LT(bitsOf(half, "apelido dos pais"), whole);
}

TEST_F(EvidenceOfOne, TwoWordsThatTheTableDoesNotKnowAreFoundByTheirLetters)
{
    const qint64 one = person({"Maria Zarapelho", 'f'}), other = person({"Maria Zarapelhu", 'f'});
    for (int i = 0; i < 300; ++i)
        person({"Maria", 'f'});
    EXPECT_GT(bitsOf(between(one, other), "outros nomes"), 3);
    EXPECT_FALSE(between(one, person({"Maria Zibelho", 'f'})));
}

TEST_F(EvidenceOfOne, GrandparentsIdentifyTheirGrandchildren)
{
    const auto childOf = [this](const char* grandfather, const char* grandmother) {
        const qint64 origin = couple(person({grandfather}), person({grandmother, 'f'}));
        const qint64 family = couple(person({"Bento", 'm', "", "", origin}), person({"Clara", 'f'}));
        return person({"Umbelino", 'm', "", "", family});
    };
    const qint64 one = childOf("Leandro Dias", "Umbelina"), same = childOf("Leandro", "Ombelina Gomes");
    const qint64 cousin = childOf("Vicente", "Eufémia");
    const auto sumBetween = [this](qint64 a, qint64 b) {
        double sum = 0;
        if (const std::optional<Link> link = between(a, b))
            for (const Evidence& each : link->evidence)
                if (each.field == "avós") sum += each.bits;
        return sum;
    };
    EXPECT_GT(sumBetween(one, same), 8);
    EXPECT_LT(sumBetween(one, cousin), -4);
}
