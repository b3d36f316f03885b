#include "common/numeros.h"

#include "jet/testbdp.h"
#include "platform/jet/error.h"

#include <gtest/gtest.h>

#include <utility>

using jet::test::numberOf;

namespace {

TEST(ReadNumber, HasADecimalCommaAndThousandsInGroupsOfThree)
{
    const std::pair<const char*, double> numbers[] = {
        {"0", 0},
        {" 7 ", 7},
        {"-7", -7},
        {"+7", 7},
        {"007", 7},
        {"2,5", 2.5},
        {"2.5", 2.5},
        {"7.50", 7.5},
        {"12.000", 12000},
        {"-12.000", -12000},
        {"1.234.567", 1234567},
        {"1.234.567,25", 1234567.25},
        {"1,234", 1.234},       // a comma is always decimal
        {"0.125", 0.125},       // nothing is grouped behind a nought
        {"1234.567", 1234.567}, // nor behind four digits
        {",5", 0.5},
        {"5,", 5},
    };
    for (const auto& [text, number] : numbers) {
        EXPECT_TRUE(eNumero(text)) << text;
        EXPECT_EQ(numeroDoTexto(text), number) << text;
    }
}

TEST(ReadNumber, IsNoExpressionNoWordAndNoNumberBeyondAll)
{
    const QString endless(400, u'9');
    for (const QString& text : {QString(), QString("  "), QString("nind"), QString("2+3"), QString("123/1850"),
                                QString("1e3"), QString("0x1f"), QString("1.23.4"), QString("1,000,000"),
                                QString("1.000.00"), QString("12 000"), QString("."), QString(","), QString("-"),
                                QString("--1"), QString("inf"), QString("nan"), QString("٣"), endless})
    {
        EXPECT_FALSE(eNumero(text)) << qUtf8Printable(text);
        EXPECT_EQ(numberOf([&] { numeroDoTexto(text); }), jet::number::typeMismatch) << qUtf8Printable(text);
        EXPECT_EQ(numberOf([&] { numeroEmSQL(text); }), jet::number::typeMismatch) << qUtf8Printable(text);
    }
}

TEST(ReadNumber, OfAWholeColumnIsWholeAndWithinItsRange)
{
    EXPECT_EQ(inteiroDoTexto("51,0"), 51);
    EXPECT_EQ(inteiroDoTexto("2.147.483.647"), 2147483647);
    EXPECT_EQ(inteiroDoTexto("-3"), -3);
    EXPECT_TRUE(eInteiro("12.000"));
    for (const char* text : {"1,5", "0.5", "2147483648", "-2147483649", "99999999999999999999", "dez", ""}) {
        EXPECT_FALSE(eInteiro(text)) << text;
        EXPECT_EQ(numberOf([&] { inteiroDoTexto(text); }), jet::number::typeMismatch) << text;
        EXPECT_EQ(numberOf([&] { codigoDoTexto(text); }), jet::number::typeMismatch) << text;
    }
    EXPECT_EQ(codigoDoTexto("007"), 7);
}

TEST(ReadNumber, OfARecordBeginsAtOne)
{
    EXPECT_EQ(registoDoTexto("1.000"), 1000);
    EXPECT_EQ(registoDoTexto("2147483647"), 2147483647);
    for (const char* text : {"0", "-1", "1,5", "2147483648", "nind", ""})
        EXPECT_EQ(numberOf([&] { registoDoTexto(text); }), jet::number::typeMismatch) << text;
}

TEST(ShownNumber, HasACommaInAnAmountAndAPointInAKey)
{
    EXPECT_EQ(textoDaQuantidade(12.5), "12,5");
    EXPECT_EQ(textoDaQuantidade(12000.0), "12000");
    EXPECT_EQ(textoDaQuantidade("Rua 1.5"), "Rua 1.5");
    EXPECT_EQ(textoDaQuantidade(QVariant()), "");
    EXPECT_EQ(textoDoNumero(12.5), "12.5");
    EXPECT_EQ(numeroEmSQL("12,5"), "12.5");
    EXPECT_EQ(numeroEmSQL("12.000"), "12000");
    for (const double amount : {0.125, 1.125, 12.345, 1234.5, 1e12, -3.5})
        EXPECT_EQ(numeroDoTexto(textoDaQuantidade(amount)), amount);
}

} // namespace
