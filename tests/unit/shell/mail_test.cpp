#include "shell/frmMail.h"

#include <gtest/gtest.h>

TEST(ProblemMail, WithoutPartsTheUrlIsTheBareAddress)
{
    EXPECT_EQ(mailUrl("a@b", "", "", "", ""), "mailto:a@b");
}

TEST(ProblemMail, TheFirstPartFollowsAQuestionMarkAndTheOthersAnAmpersand)
{
    EXPECT_EQ(mailUrl("a@b", "c", "d", "e", "f"), "mailto:a@b?CC=c&BCC=d&Subject=e&Body=f");
    EXPECT_EQ(mailUrl("a@b", "", "d", "", "f"), "mailto:a@b?BCC=d&Body=f");
    EXPECT_EQ(mailUrl("a@b", "", "", "", "f"), "mailto:a@b?Body=f");
}

TEST(ProblemMail, OnlyTheAmpersandAndWhatIsNoPrintableAsciiIsEncoded)
{
    EXPECT_EQ(mailUrl("a", "", "", "", " 100% #?=+~\"&\x7F"), "mailto:a?Body= 100% #?=+~\"%26%7F");
    EXPECT_EQ(mailUrl("a", "", "", "", "ção\t€Ω"), "mailto:a?Body=%E7%E3o%09%80?");
}

TEST(ProblemMail, EveryLineBreakIsEncodedAsTwoBytes)
{
    EXPECT_EQ(mailUrl("a", "", "", "", "1\n2\r\n3\r4"), "mailto:a?Body=1%0D%0A2%0D%0A3%0D%0A4");
}

TEST(ProblemMail, TheAddressStaysAsItIs)
{
    EXPECT_EQ(mailUrl("João & Cª", "", "", "", ""), "mailto:João & Cª");
}
