#include "study/acts/date.h"

#include <gtest/gtest.h>

#include <QRandomGenerator>
#include <QStringList>

using study::PartialDate;
using study::readPartialDate;

TEST(ADateOfARegister, IsReadAsAPersonTypesIt)
{
    const PartialDate whole{.year = 1702, .month = 2, .day = 14};
    for (const QString typed : {"14/2/1702", " 14-02-1702 ", "14.2.1702", "14 / 2 / 1702"})
        EXPECT_EQ(readPartialDate(typed), whole) << qPrintable(typed);
    EXPECT_EQ(readPartialDate("2/1702"), (PartialDate{.year = 1702, .month = 2}));
    EXPECT_EQ(readPartialDate("?/2/1702"), (PartialDate{.year = 1702, .month = 2}));
    EXPECT_EQ(readPartialDate("0/0/1702"), PartialDate{.year = 1702});
    EXPECT_EQ(readPartialDate("14/?/1702"), (PartialDate{.year = 1702, .day = 14}));
    EXPECT_EQ(readPartialDate(""), PartialDate{});
    EXPECT_EQ(readPartialDate(" ? "), PartialDate{});
}

TEST(ADateOfARegister, MayBeARoughOne)
{
    const PartialDate rough{.year = 1702, .about = true};
    for (const QString typed : {"c. 1702", "ca 1702", "Cerca de 1702", "~1702", "por volta de 1702"})
        EXPECT_EQ(readPartialDate(typed), rough) << qPrintable(typed);
    EXPECT_FALSE(rough.isComplete());
    EXPECT_TRUE(rough.isPossible());
}

TEST(ADateOfARegister, MayNameItsMonth)
{
    const PartialDate whole{.year = 1801, .month = 3, .day = 2};
    for (const QString typed : {"2 de Março de 1801", "2 de março 1801", "2 março 1801", "aos 2 de Marco de 1801",
                                "Aos 2 dias do mês de Março de 1801", "2 Mar. 1801", "2-mar-1801", "2 de MARÇO, 1801"})
        EXPECT_EQ(readPartialDate(typed), whole) << qPrintable(typed);
    EXPECT_EQ(readPartialDate("1º de 7bro de 1702"), (PartialDate{.year = 1702, .month = 9, .day = 1}));
    EXPECT_EQ(readPartialDate("3 de Mayo de 1702"), (PartialDate{.year = 1702, .month = 5, .day = 3}));
    EXPECT_EQ(readPartialDate("março de 1801"), (PartialDate{.year = 1801, .month = 3}));
    EXPECT_EQ(readPartialDate("no mês de Dezembro de 1801"), (PartialDate{.year = 1801, .month = 12}));
    EXPECT_EQ(readPartialDate("em março"), PartialDate{.month = 3});
    EXPECT_EQ(readPartialDate("2 de Marte de 1801"), PartialDate{.text = "2 de Marte de 1801"});
    EXPECT_EQ(readPartialDate("vinte de Março de 1801"), PartialDate{.text = "vinte de Março de 1801"});
    EXPECT_EQ(readPartialDate("2 de Março"), (PartialDate{.month = 3, .day = 2}));
}

TEST(ADateOfARegister, KeepsWhatIsNoDate)
{
    EXPECT_EQ(readPartialDate(" dia de Reis "), PartialDate{.text = "dia de Reis"});
    EXPECT_EQ(readPartialDate("6/1/1702 (dia de Reis)"),
              (PartialDate{.year = 1702, .month = 1, .day = 6, .text = "dia de Reis"}));
    EXPECT_EQ(readPartialDate("? (1702)"), PartialDate{.text = "? (1702)"});
}

TEST(ADateOfARegister, IsCompleteOnlyAsADayOfTheCalendar)
{
    EXPECT_TRUE((PartialDate{.year = 1704, .month = 2, .day = 29}).isComplete());
    EXPECT_FALSE((PartialDate{.year = 1702, .month = 2, .day = 29}).isComplete());
    EXPECT_FALSE((PartialDate{.year = 1702, .month = 2}).isComplete());
    EXPECT_FALSE((PartialDate{.year = 1702, .month = 2, .day = 1, .about = true}).isComplete());
}

TEST(ADateOfARegister, IsPossibleWhereWhatIsToldCouldBeADay)
{
    EXPECT_TRUE((PartialDate{.year = 1702, .month = 9}).isPossible());
    EXPECT_FALSE((PartialDate{.year = 1702, .month = 9, .day = 31}).isPossible());
    EXPECT_FALSE((PartialDate{.year = 1702, .month = 13}).isPossible());
    EXPECT_FALSE((PartialDate{.year = 1702, .day = 32}).isPossible());
    EXPECT_TRUE((PartialDate{.month = 2, .day = 29}).isPossible()) << "of a year that isn't told";
    EXPECT_FALSE((PartialDate{.year = 17022}).isPossible());
}

TEST(ADateOfARegister, StandsInAColumnAsTheFirstDayThatItMayBe)
{
    EXPECT_EQ((PartialDate{.year = 1702, .month = 2, .day = 14}).standing(), QDate(1702, 2, 14));
    EXPECT_EQ((PartialDate{.year = 1702, .month = 2}).standing(), QDate(1702, 2, 1));
    EXPECT_EQ(PartialDate{.year = 1702}.standing(), QDate(1702, 1, 1));
    EXPECT_EQ(PartialDate{.year = 100}.standing(), QDate(100, 1, 1));
    EXPECT_FALSE(PartialDate{.year = 99}.standing()) << "a date column doesn't take it";
    EXPECT_EQ((PartialDate{.year = 1702, .day = 14}).standing(), QDate(1702, 1, 1)) << "a day of no month";
    EXPECT_EQ((PartialDate{.year = 1702, .month = 9, .day = 31}).standing(), std::nullopt);
    EXPECT_EQ((PartialDate{.month = 9, .day = 3}).standing(), std::nullopt);
    EXPECT_EQ(study::partialDate(QDate(1702, 2, 14)).standing(), QDate(1702, 2, 14));
    EXPECT_EQ(study::partialDate(QDate()), PartialDate{});
}

TEST(ADateOfARegister, IsShownWithWhatIsTold)
{
    EXPECT_EQ(study::shown({.year = 1702, .month = 2, .day = 4}), "04/02/1702");
    EXPECT_EQ(study::shown({.year = 1702, .month = 2}), "02/1702");
    EXPECT_EQ(study::shown({.year = 1702, .about = true}), "cerca de 1702");
    EXPECT_EQ(study::shown({.year = 1702, .day = 4}), "04/?/1702");
    EXPECT_EQ(study::shown({.year = 1702, .text = "dia de Reis"}), "1702 (dia de Reis)");
    EXPECT_EQ(study::shown({}), "");
}

// What was typed comes back as it was understood, whatever it is: a window shows the date and reads it again.
TEST(ADateOfARegister, IsReadBackAsItIsShown)
{
    QRandomGenerator chance(1702);
    const QStringList pieces{"1",  "14", "31", "0", "2", "1702", "/",  "-",    ".",  "?",
                             "c.", " ",  "(",  ")", "~", "dia",  "de", "Reis", "\n", "cerca de "};
    for (int trial = 0; trial < 20'000; ++trial) {
        QString typed;
        for (int length = chance.bounded(1, 9); length > 0; --length)
            typed += pieces.at(chance.bounded(int(pieces.size())));
        const PartialDate date = readPartialDate(typed);
        ASSERT_EQ(readPartialDate(study::shown(date)), date) << qPrintable(typed);
    }
}
