#include "platform/desktop/lastchoices.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

// A user of their own, with documents.
class LastChoices : public testing::Test
{
protected:
    LastChoices() : config_(qgetenv("XDG_CONFIG_HOME"))
    {
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.path()));
        QDir(folder.path()).mkdir("documentos");
        QFile told(folder.filePath("user-dirs.dirs"));
        EXPECT_TRUE(told.open(QIODevice::WriteOnly));
        told.write("XDG_DOCUMENTS_DIR=\"" + documents().toUtf8() + "\"\n");
    }
    ~LastChoices() override { config_.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", config_); }

    QString documents() const { return folder.filePath("documentos"); }

    QTemporaryDir folder;

private:
    QByteArray config_;
};

} // namespace

TEST_F(LastChoices, AreKeptForTheNextTime)
{
    EXPECT_EQ(Desktop::lastChoice("janela/escolha", 7), 7);
    Desktop::keepChoice("janela/escolha", 8);
    EXPECT_EQ(Desktop::lastChoice("janela/escolha", 7).toInt(), 8);
}

TEST_F(LastChoices, BeginInTheUsersDocumentsAndNotInTheWorkingFolder)
{
    EXPECT_EQ(Desktop::lastFolder(), documents());
    Desktop::keepFolder(folder.path());
    EXPECT_EQ(Desktop::lastFolder(), folder.path());
}

TEST_F(LastChoices, AFolderThatHasGoneIsTheDocumentsAgain)
{
    QDir(folder.path()).mkdir("fora");
    Desktop::keepFolder(folder.filePath("fora"));
    QDir(folder.path()).rmdir("fora");
    EXPECT_EQ(Desktop::lastFolder(), documents());
    QDir(folder.path()).rmdir("documentos");
    EXPECT_EQ(Desktop::lastFolder(), QDir::homePath());
}
