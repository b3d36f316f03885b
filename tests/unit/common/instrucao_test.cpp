#include "common/instrucao.h"

#include "jet/testbdp.h"
#include "platform/jet/dialect.h"
#include "platform/jet/error.h"

#include <gtest/gtest.h>

#include <QRandomGenerator>

using jet::test::numberOf;

namespace {

TEST(ATextOfTheStore, IsOneTextForTheEngineWhateverItHolds)
{
    EXPECT_EQ(citado(""), "''");
    EXPECT_EQ(citado("Sant'Ana"), "'Sant''Ana'");
    QRandomGenerator chance(11);
    const QStringList pieces{"'", "''", "\"",   "#", "--", "/*", ";",  "[", "]",
                             ")", "(",  " or ", "a", "é",  "%",  "\n", "?"};
    for (int trial = 0; trial < 2000; ++trial) {
        QString text;
        for (int length = int(chance.bounded(8)); length > 0; --length)
            text += pieces[chance.bounded(pieces.size())];
        const QString translated = jet::translate("select " + citado(text) + ", 1", nullptr);
        EXPECT_EQ(translated, "select " + citado(text) + ", 1") << qPrintable(text);
    }
}

TEST(ATypedText, WithAnApostropheIsTheErrorOfTheEngine)
{
    EXPECT_EQ(digitado("lençol"), "'lençol'");
    EXPECT_EQ(digitado("%Ana_"), "'%Ana_'");
    EXPECT_EQ(semPlica("adro"), "adro");
    for (const char* text : {"'", "''", "lençol', nome='OUTRO", "pano' or 'a'='a", "D'Ávila", "adro'", "'adro'"}) {
        EXPECT_EQ(numberOf([&] { digitado(text); }), -2147217900) << text;
        EXPECT_EQ(numberOf([&] { semPlica(text); }), -2147217900) << text;
    }
}

TEST(ATypedDate, IsADateAndNothingBehindIt)
{
    EXPECT_EQ(dataDigitada("09/03/1750"), "#09/03/1750#");
    EXPECT_EQ(dataDigitada("31/12/1750"), "#31/12/1750#"); // where it is none month first
    for (const char* text : {"", "__/__/____", "31/31/1750", "1# or 1=1 or d = #1", "01/02/1750# or #01/02/1750"})
        EXPECT_EQ(numberOf([&] { dataDigitada(text); }), -2147217900) << text;
}

TEST(ATypedNumber, IsDigits)
{
    EXPECT_EQ(registoEmSQL("007"), "7");
    EXPECT_EQ(inteiroEmSQL("51,0"), "51");
    EXPECT_EQ(inteiroEmSQL("  "), "");
    for (const char* text : {"12-3", "1e3", "７", "nind", "1 or 1=1", "(1)", "--1", "0x1"}) {
        EXPECT_EQ(numberOf([&] { registoEmSQL(text); }), jet::number::typeMismatch) << text;
        EXPECT_EQ(numberOf([&] { inteiroEmSQL(text); }), jet::number::typeMismatch) << text;
    }
}

TEST(AKey, StandsInAStatementAsItIsShown)
{
    EXPECT_EQ(chaveEmSQL(12.0), "12");
    EXPECT_EQ(chaveEmSQL(30.5), "30.5");
    EXPECT_EQ(chaveEmSQL(1234.567), "1234.567");
    EXPECT_EQ(chaveEmSQL("1.234"), "1.234"); // a fraction that a field shows: no thousands
    EXPECT_EQ(chaveEmSQL(1e20), "100000000000000000000");
    EXPECT_EQ(chaveEmSQL(7), "7");
    EXPECT_EQ(chaveEmSQL("-1"), "-1");
    EXPECT_EQ(chaveEmSQL(QVariant()), ""); // which the engine refuses
    for (const char* text : {"1 or 1=1", "1) or (1", "nind", "1,5", " 7", "7 ", "1e3", "７", "1\n", "--1", "'1'", "."})
        EXPECT_EQ(numberOf([&] { chaveEmSQL(text); }), jet::number::typeMismatch) << text;
}

// The text is the same for every number, so that it is prepared once.
TEST(AKey, IsBoundAsItWouldStandInTheStatement)
{
    const auto bound = [](const QVariant& key) { return comChave("delete from familia where nfamilia = ?", key); };
    for (const QVariant& key : {QVariant(12.0), QVariant(30.5), QVariant("1.234"), QVariant(1e20), QVariant("-1")}) {
        EXPECT_EQ(bound(key).sql, "delete from familia where nfamilia = ?");
        ASSERT_EQ(bound(key).values.size(), 1);
        EXPECT_EQ(bound(key).values.first(), chaveEmSQL(key).toDouble());
    }
    EXPECT_EQ(bound(QVariant()).sql, "delete from familia where nfamilia = "); // which the engine refuses
    EXPECT_TRUE(bound(QVariant()).values.isEmpty());
    EXPECT_EQ(numberOf([&] { bound("1 or 1=1"); }), jet::number::typeMismatch);
}

} // namespace
