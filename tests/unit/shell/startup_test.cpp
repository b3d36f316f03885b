#include "shell/startup.h"

#include "platform/forms/forms.h"
#include "shell/frmORV.h"

#include <gtest/gtest.h>

#include <QScreen>

#include <memory>
#include <vector>

namespace {

QString textOf(std::vector<QByteArray> words)
{
    std::vector<char*> argv{const_cast<char*>("orv")};
    for (QByteArray& word : words)
        argv.push_back(word.data());
    return commandLineText(int(argv.size()), argv.data());
}

} // namespace

TEST(CommandLine, OneArgumentIsTakenAsItIs)
{
    EXPECT_EQ(textOf({}), "");
    EXPECT_EQ(textOf({" São Mamede.orv "}), " São Mamede.orv ");
    EXPECT_EQ(textOf({"\"a b.orv\""}), "\"a b.orv\"");
}

TEST(CommandLine, SeveralAreJoinedByOneBlank)
{
    EXPECT_EQ(textOf({"São", "Mamede.orv"}), "São Mamede.orv");
    EXPECT_EQ(textOf({"-style", "fusion"}), "-style fusion");
}

TEST(CommandLine, ANameThatIsNotUtf8HasAPlaceHolderByWhichItIsRefused)
{
    EXPECT_EQ(textOf({"caf\xe9.orv"}), QStringLiteral("caf\uFFFD.orv"));
}

TEST(MainWindow, StandsOnTheScreenWithItsFrame)
{
    const std::unique_ptr<FrmORV> window(&startProgram({}));
    const QSize room = window->screen()->availableSize();
    EXPECT_LT(window->width(), room.width());
    EXPECT_LT(window->height(), room.height());
    Forms::clear();
}
