#include "platform/desktop/codepage.h"

#include <gtest/gtest.h>

TEST(CodePage, EveryCharacterComesBackAsItsByte)
{
    int characters = 0;
    for (int byte = 1; byte < 256; ++byte) {
        const QByteArray bytes(1, char(byte));
        const auto text = fromCodePage(bytes);
        if (!text) continue;
        ++characters;
        EXPECT_EQ(text->size(), 1);
        EXPECT_EQ(toCodePage(*text), bytes) << byte;
    }
    EXPECT_EQ(characters, 255 - 5); // five bytes stand for nothing
}

TEST(CodePage, TheSignsBesideLatinOneHaveTheirOwnBytes)
{
    EXPECT_EQ(toCodePage("€‘’“”–—œŸ"), QByteArray("\x80\x91\x92\x93\x94\x96\x97\x9C\x9F"));
    EXPECT_EQ(fromCodePage("Ang\xFAstia \x80"), QString("Angústia €"));
}

TEST(CodePage, ACharacterBeyondItIsAQuestionMark)
{
    EXPECT_EQ(toCodePage("aΩb"), "a?b");
    EXPECT_EQ(toCodePage(QString(QChar(0x81))), "?");
    EXPECT_EQ(toCodePage("😀"), "?");
}

TEST(CodePage, TextSavedAsUtf8IsTold)
{
    EXPECT_FALSE(fromCodePage("S\xC3\xA3o Mamede"));
    EXPECT_TRUE(fromCodePage("S\xE3o Mamede"));
    EXPECT_TRUE(fromCodePage("Mamede"));
}
