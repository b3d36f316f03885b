#include "platform/jet/alphabet.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <algorithm>
#include <random>

namespace jet::test {

namespace {

int sign(int value)
{
    return (value > 0) - (value < 0);
}

int compareUtf8(const QString& a, const QString& b)
{
    return compareAlphabetically(std::string_view(a.toStdString()), std::string_view(b.toStdString()));
}

// A short text of letters of which many texts are made alike.
QString textOf(const QString& letters, std::mt19937& random)
{
    QString text;
    for (auto length = random() % 6; length > 0; --length)
        text += letters[static_cast<qsizetype>(random() % static_cast<size_t>(letters.size()))];
    return text;
}

} // namespace

TEST(Alphabet, PutsAccentsBesideTheirLetters)
{
    QStringList names{"Zulmira", "Ângela",         "ana",   "Águeda",          "Anabela", "Ana Rita", "Úrsula",
                      "Uva",     "Maria d'Aguiar", "Maria", "Maria-da-Cruz",   "Conde",   "Côncio",   "Concio",
                      "Çapata",  "Cabral",         "Ção",   "Łukasz de Sousa", "Luis"};
    std::sort(names.begin(), names.end(), [](const QString& a, const QString& b) { return compareUtf8(a, b) < 0; });
    EXPECT_EQ(names.join(", ").toStdString(), "Águeda, ana, Ana Rita, Anabela, Ângela, Cabral, Ção, Çapata, Concio, "
                                              "Côncio, Conde, Luis, Łukasz de Sousa, Maria, Maria d'Aguiar, "
                                              "Maria-da-Cruz, Úrsula, Uva, Zulmira");
}

// The quick way of the bytes and the slow way of the letters agree, whatever stands in the texts.
TEST(Alphabet, ComparesBytesAsItComparesLetters)
{
    std::mt19937 random(1);
    const QString common = "aAbBcCçÇáÁàÀâÂãÃéêÉiíÍoóôõÖuúüÜnñÑeEëzZ  --'.,*()19";
    const QString foreign = common + QString::fromUtf8("ßæÆøØðþªº÷×ÿŸœłŁ€–\u0301\u0327\u00ad\t\n");
    for (const QString& letters : {common, foreign})
        for (int i = 0; i < 20'000; ++i) {
            const QString a = textOf(letters, random);
            const QString b = textOf(letters, random);
            ASSERT_EQ(sign(compareUtf8(a, b)), sign(compareAlphabetically(a, b))) << qUtf8Printable(a + " | " + b);
        }
}

} // namespace jet::test
