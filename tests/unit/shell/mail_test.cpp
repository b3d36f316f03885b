#include "shell/frmMail.h"

#include "control.h"
#include "platform/desktop/desktop.h"
#include "shell/startup.h"
#include "store/parish.h"

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

TEST_F(Parish, AProblemReportThatNoProgramTakesStaysAsItIsWritten)
{
    registerForms();
    int result = Desktop::noProgram;
    Desktop::setOpener([&](const QString&) { return result; });
    Forms::show(FrmMail::Name);
    auto& form = theForm<FrmMail>();
    control<MemoBox>(form, "txtBody").setText("O programa parou.");
    Answer ok("OK");
    control<CommandButton>(form, "cmdSend").click();
    EXPECT_EQ(ok.text, "Não foi possível abrir o programa de correio: a mensagem não foi enviada.");
    ASSERT_TRUE(Forms::isLoaded(FrmMail::Name));
    EXPECT_EQ(control<MemoBox>(form, "txtBody").text(), "O programa parou.");
    result = Desktop::success;
    control<CommandButton>(form, "cmdSend").click();
    EXPECT_FALSE(Forms::isLoaded(FrmMail::Name));
    Desktop::setOpener({});
}
