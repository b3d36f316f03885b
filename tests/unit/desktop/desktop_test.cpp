#include "platform/desktop/desktop.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

namespace {

class DesktopTest : public testing::Test
{
protected:
    DesktopTest()
    {
        Desktop::setOpener([this](const QString& text) {
            opened << text;
            return Desktop::success;
        });
    }
    ~DesktopTest() override
    {
        Desktop::setOpener({});
        Desktop::setProgramFolder({});
    }

    QStringList opened;
};

} // namespace

TEST_F(DesktopTest, ADocumentThatIsNotThereIsNotOpened)
{
    EXPECT_EQ(Desktop::openDocument("/nada/mnlORV.pdf"), Desktop::fileNotFound);
    EXPECT_EQ(opened, QStringList());
}

TEST_F(DesktopTest, AFolderIsNoDocument)
{
    const QTemporaryDir folder;
    EXPECT_EQ(Desktop::openDocument(folder.path()), Desktop::fileNotFound);
    EXPECT_EQ(opened, QStringList());
}

TEST_F(DesktopTest, ADocumentIsOpenedByItsPath)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("manual com brancos.pdf");
    ASSERT_TRUE(QFile(path).open(QIODevice::WriteOnly));
    EXPECT_EQ(Desktop::openDocument(path), Desktop::success);
    EXPECT_EQ(opened, QStringList(path));
}

TEST_F(DesktopTest, AUrlIsHandedOverToTheLetter)
{
    const QString url = "mailto:a@b.pt?Subject=100% #1 a b&Body=%E7";
    EXPECT_EQ(Desktop::openUrl(url), Desktop::success);
    EXPECT_EQ(opened, QStringList(url));
}

#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
TEST_F(DesktopTest, ADesktopWithoutAnOpenerSaysSo)
{
    Desktop::setOpener({});
    const QByteArray path = qgetenv("PATH");
    const QTemporaryDir folder;
    const QString document = folder.filePath("manual.pdf");
    ASSERT_TRUE(QFile(document).open(QIODevice::WriteOnly));
    qputenv("PATH", folder.path().toLocal8Bit());
    EXPECT_EQ(Desktop::openUrl("mailto:a@b.pt"), Desktop::noProgram);
    EXPECT_EQ(Desktop::openDocument(document), Desktop::noProgram);
    qputenv("PATH", path);
}

namespace {

// A desktop whose opener does what a test says.
class Opener : public DesktopTest
{
protected:
    Opener()
    {
        Desktop::setOpener({});
        QFile(folder.filePath("manual.pdf")).open(QIODevice::WriteOnly);
        qputenv("PATH", folder.path().toLocal8Bit() + ':' + path);
    }
    ~Opener() override { qputenv("PATH", path); }

    int openBy(const QByteArray& script)
    {
        QFile program(folder.filePath("xdg-open"));
        EXPECT_TRUE(program.open(QIODevice::WriteOnly));
        program.write("#!/bin/sh\n" + script + "\n");
        program.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        program.close();
        return Desktop::openDocument(folder.filePath("manual.pdf"));
    }

    QByteArray path = qgetenv("PATH");
    QTemporaryDir folder;
};

} // namespace

TEST_F(Opener, ThatFailsTellsWhy)
{
    EXPECT_EQ(openBy("exit 0"), Desktop::success);
    EXPECT_EQ(openBy("exit 2"), Desktop::fileNotFound);
    EXPECT_EQ(openBy("exit 3"), Desktop::noProgram);
    EXPECT_EQ(openBy("exit 4"), Desktop::noProgram);
    EXPECT_EQ(openBy("exit 1"), Desktop::failure);
    EXPECT_EQ(openBy("kill -9 $$"), Desktop::failure);
}

TEST_F(Opener, ThatBecomesTheDocumentsProgramIsLeftRunning)
{
    const QString done = folder.filePath("done"), closed = folder.filePath("closed");
    EXPECT_EQ(openBy("n=0; while [ ! -e \"" + closed.toLocal8Bit() +
                     "\" -a $n -lt 300 ]; do sleep 0.1; n=$((n + 1)); done; echo x > \"" + done.toLocal8Bit() + "\""),
              Desktop::success);
    EXPECT_FALSE(QFile::exists(done)) << "whoever waits for the end of the document waits for half a minute";
    EXPECT_TRUE(QFile(closed).open(QIODevice::WriteOnly));
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(done); }));
    QTest::qWait(200); // it ends, and what the program kept of it goes
}
#endif

TEST_F(DesktopTest, TheProgramsFolderIsItsOwnWhereTheDataStandBesideItElseTheSharedOne)
{
    const QFileInfo own(QCoreApplication::applicationDirPath());
    QFile data(own.filePath() + "/CriarTab.dat");
    data.remove();
    EXPECT_EQ(Desktop::programFolder(), own.path() + "/share/orv");
    ASSERT_TRUE(data.open(QIODevice::WriteOnly));
    EXPECT_EQ(Desktop::programFolder(), own.filePath());
    data.remove();
}

TEST_F(DesktopTest, ATestNamesTheProgramsFolder)
{
    Desktop::setProgramFolder("/tmp/programa");
    EXPECT_EQ(Desktop::programFolder(), "/tmp/programa");
}
