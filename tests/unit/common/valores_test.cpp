#include "common/valores.h"

#include "common/locais.h"
#include "common/numeros.h"
#include "jet/testbdp.h"
#include "platform/jet/error.h"
#include "platform/jet/recordset.h"

#include <gtest/gtest.h>
#include <QSet>
#include <QTemporaryDir>

#include <algorithm>
#include <type_traits>

using jet::test::numberOf;

TEST(Numero, OfAPersonIsNeverTakenForThatOfAFamilyNorForAPlainNumber)
{
    EXPECT_FALSE((std::is_convertible_v<Nind, Nfam>));
    EXPECT_FALSE((std::is_constructible_v<Nfam, Nind>));
    EXPECT_FALSE((std::is_convertible_v<double, Nind>));
    EXPECT_FALSE((std::is_convertible_v<Nind, double>));
    EXPECT_FALSE((std::is_convertible_v<Nind, QVariant>));
}

TEST(Numero, IsNoneUntilItIsGivenAndZeroIsANumber)
{
    EXPECT_FALSE(Nind());
    EXPECT_TRUE(Nind(0));
    EXPECT_TRUE(Nind() != Nind(0));
    EXPECT_EQ(numberOf([] { Nind().valor(); }), jet::number::invalidNull);
    EXPECT_EQ(Nind(0).valor(), 0);
}

TEST(Numero, OfAColumnIsKeptToTheLastDigitAndNullIsNone)
{
    EXPECT_EQ(Nind::daColuna(30.5).valor(), 30.5);
    EXPECT_EQ(Nind::daColuna(9007199254740991.0).valor(), 9007199254740991.0);
    EXPECT_EQ(Nind::daColuna(-3.0).valor(), -3);
    EXPECT_EQ(Nind::daColuna(7).valor(), 7);
    EXPECT_EQ(Nind::daColuna("12,5").valor(), 12.5);
    EXPECT_FALSE(Nind::daColuna({}));
    EXPECT_FALSE(Nind::daColuna(QVariant(QMetaType::fromType<double>())));
}

TEST(Numero, OfAColumnThatHoldsNoneIsATypeMismatch)
{
    EXPECT_EQ(numberOf([] { Nind::daColuna("doze"); }), jet::number::typeMismatch);
    EXPECT_EQ(numberOf([] { Nind::daColuna(""); }), jet::number::typeMismatch);
    EXPECT_EQ(numberOf([] { Nind::daColuna(QDate(1700, 1, 1)); }), jet::number::typeMismatch);
}

TEST(Numero, OfAFieldIsReadAsEveryNumberIs)
{
    EXPECT_EQ(Nfam::doCampo(" 30,5 ").valor(), 30.5);
    EXPECT_EQ(Nfam::doCampo("30.5").valor(), 30.5);
    EXPECT_EQ(Nfam::doCampo("12.000").valor(), 12000);
    for (const char* text : {"", "  ", "3a", "1e3", "inf", "nan"})
        EXPECT_EQ(numberOf([&] { Nfam::doCampo(text); }), jet::number::typeMismatch) << text;
}

TEST(Numero, OfABlankFieldIsNoneWhereThatIsAsked)
{
    EXPECT_FALSE(Nfam::doCampoOuNenhum(""));
    EXPECT_FALSE(Nfam::doCampoOuNenhum("  "));
    EXPECT_EQ(Nfam::doCampoOuNenhum("4").valor(), 4);
    EXPECT_EQ(numberOf([] { Nfam::doCampoOuNenhum("quatro"); }), jet::number::typeMismatch);
}

TEST(Numero, IsShownWithoutAPointWhereItIsWholeAndWithoutAnExponentWhereItIsLarge)
{
    EXPECT_EQ(Nind(12).texto(), "12");
    EXPECT_EQ(Nind(30.5).texto(), "30.5");
    EXPECT_EQ(Nind(1e15).texto(), "1000000000000000");
    EXPECT_EQ(Nind().texto(), "");
}

TEST(Numero, StandsInAStatementAndInABoundValueWithNullForNone)
{
    EXPECT_EQ(Nind(30.5).paraSQL(), "30.5");
    EXPECT_EQ(Nind().paraSQL(), "null");
    EXPECT_EQ(Nind(30.5).paraColuna(), QVariant(30.5));
    EXPECT_TRUE(Nind().paraColuna().isNull());
}

TEST(Numero, ComesBackFromTheStoreAsItWasWritten)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("teste.orv");
    jet::createDatabase(file);
    jet::Connection bdp;
    bdp.open(file);
    bdp.execute("create table familias (nind double, nfamilia double)");
    jet::Recordset rows(bdp, "select * from familias");
    const Nind people[]{Nind(0.1), Nind(9007199254740991.0), Nind()};
    for (const Nind person : people) {
        rows.addNew();
        rows.set("nind", person.paraColuna());
        rows.update();
    }
    bdp.execute("update familias set nfamilia = " + Nfam(2).paraSQL());
    bdp.execute("update familias set nfamilia = " + Nfam().paraSQL() + " where nind = " + Nind(0.1).paraSQL());
    rows.requery();
    QList<Nind> read;
    QList<Nfam> families;
    for (; !rows.eof(); rows.moveNext()) {
        read << Nind::daColuna(rows["nind"]);
        families << Nfam::daColuna(rows["nfamilia"]);
    }
    EXPECT_TRUE(std::ranges::equal(read, people));
    EXPECT_TRUE((families == QList<Nfam>{Nfam(), Nfam(2), Nfam(2)}));
}

TEST(Numero, StandsInItsOrderWithNoneFirst)
{
    QList<Nind> people{Nind(10), Nind(9.5), Nind(), Nind(-1)};
    std::ranges::sort(people);
    EXPECT_TRUE((people == QList<Nind>{Nind(), Nind(-1), Nind(9.5), Nind(10)}));
}

TEST(Numero, IsOneKeyOfASetHoweverItWasWritten)
{
    const QSet<Nind> people{Nind(3), Nind::doCampo("3,0"), Nind::daColuna(3.0), Nind(), Nind(3.5)};
    EXPECT_EQ(people.size(), 3);
    EXPECT_TRUE(people.contains(Nind()));
    EXPECT_FALSE(people.contains(Nind(0)));
}

TEST(Numero, IsFollowedByTheNextWholeOneAndTheFirstIsOne)
{
    EXPECT_EQ(Nfam().seguinte().texto(), "1");
    EXPECT_EQ(Nfam(41).seguinte().texto(), "42");
    EXPECT_EQ(Nfam(30.5).seguinte().texto(), "31");
}

TEST(LocalDaLinha, HasTheCodeAndTheLevelOfTheRowAndNothingForNull)
{
    EXPECT_TRUE((Local::daLinha("030302", "F") == Local{"030302", "F"}));
    EXPECT_TRUE((Local::daLinha({}, {}) == Local{}));
    EXPECT_FALSE((Local{"03", "D"} == Local{"03", "C"}));
    EXPECT_FALSE((Local{"03", "D"} == Local{"04", "D"}));
}

TEST(DataRegistada, HasTheDateAndTheFlagOfTheRow)
{
    const DataRegistada exact = DataRegistada::daLinha(QDate(1700, 2, 28), true);
    EXPECT_EQ(exact.data, QDate(1700, 2, 28));
    EXPECT_TRUE(exact.conhecida());
    EXPECT_TRUE(exact.exacta());

    const DataRegistada estimated = DataRegistada::daLinha("28/02/1700", false);
    EXPECT_EQ(estimated.data, QDate(1700, 2, 28));
    EXPECT_TRUE(estimated.conhecida());
    EXPECT_FALSE(estimated.exacta());
    EXPECT_FALSE(exact == estimated);
    EXPECT_TRUE((exact == DataRegistada{{1700, 2, 28}, true}));
}

TEST(DataRegistada, IsNotExactWhereTheFlagIsNullOrStandsWithoutADate)
{
    EXPECT_FALSE(DataRegistada::daLinha(QDate(1700, 2, 28), {}).exacta());
    const DataRegistada unknown = DataRegistada::daLinha({}, true);
    EXPECT_FALSE(unknown.conhecida());
    EXPECT_FALSE(unknown.exacta());
    EXPECT_TRUE(unknown.fixa);
    EXPECT_TRUE((DataRegistada::daLinha({}, {}) == DataRegistada{}));
}

TEST(DataRegistada, OfAColumnThatHoldsNoDateIsATypeMismatch)
{
    EXPECT_EQ(numberOf([] { DataRegistada::daLinha("31/02/1700", true); }), jet::number::typeMismatch);
    EXPECT_EQ(numberOf([] { DataRegistada::daLinha(1700.0, true); }), jet::number::typeMismatch);
}
