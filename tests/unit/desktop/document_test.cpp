#include "platform/desktop/document.h"
#include "workingFolder.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using Desktop::Document;

namespace {

class ADocument : public testing::Test
{
protected:
    QString make(const QString& name, const QByteArray& contents = "Aos nove dias", bool executable = false)
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents);
        if (executable) file.setPermissions(file.permissions() | QFile::ExeOwner | QFile::ExeUser);
        return file.fileName();
    }

    QTemporaryDir folder;
};

} // namespace

TEST_F(ADocument, IsHarmlessAsAPictureAPdfATextOrAnOfficeDocument)
{
    for (const char* name : {"b.png", "B.JPG", "fólio 3.tif", "m.pdf", "a.txt", "a.rtf", "f.doc", "f.docx", "f.odt",
                             "f.xls", "x.tar.pdf", "registo.djvu"})
        EXPECT_EQ(Desktop::documentAt(make(QString::fromUtf8(name))), Document::Harmless) << name;
}

TEST_F(ADocument, OfADiskWhereAllMayRunIsStillAPicture)
{
    EXPECT_EQ(Desktop::documentAt(make("b.png", "\x89PNG", true)), Document::Harmless);
}

TEST_F(ADocument, OfAnotherTypeIsUnknown)
{
    for (const char* name : {"a.html", "a.svg", "a.docm", "a.xlsm", "a.zip", "a.ps", "a", "a.iso", "ponto.", "a.jpg.",
                             "a.pdf ", "a.jpg. ."})
        EXPECT_EQ(Desktop::documentAt(make(QString::fromUtf8(name))), Document::Unknown) << name;
}

TEST_F(ADocument, IsAProgramByItsName)
{
    for (const char* name :
         {"a.sh", "a.desktop", "A.EXE", "a.bat", "a.lnk", "a.url", "a.scf", "a.msi", "a.deb", "a.jar", "a.py", "a.ps1",
          "a.vbs", "a.AppImage", "a.pdf.desktop", "a.exe.", "a.exe ", "a.js"})
        EXPECT_EQ(Desktop::documentAt(make(QString::fromUtf8(name))), Document::Program) << name;
}

TEST_F(ADocument, IsAProgramByWhatItBeginsWith)
{
    const QByteArray beginnings[]{"\177ELF\2\1\1",
                                  "MZ\x90",
                                  "#!/bin/sh\nrm -r ~\n",
                                  "[Desktop Entry]\nExec=x",
                                  "\n# a\n[Desktop Entry]\n",
                                  "\xEF\xBB\xBF[Desktop Entry]\n",
                                  "[InternetShortcut]\r\nURL=file://x",
                                  QByteArray("L\0\0\0\1\x14\2\0\0\0", 10)};
    for (const QByteArray& begin : beginnings)
        for (const char* name : {"x.jpg", "x.pdf", "x.txt", "x"})
            EXPECT_EQ(Desktop::documentAt(make(name, begin)), Document::Program) << name << begin.toStdString();
    EXPECT_EQ(Desktop::documentAt(make("comando", "echo olá\n", true)), Document::Program);
}

#ifdef Q_OS_UNIX
TEST_F(ADocument, BehindALinkIsWhatTheLinkPointsTo)
{
    const auto link = [&](const QString& target, const QString& name) {
        EXPECT_TRUE(QFile::link(target, folder.filePath(name)));
        return folder.filePath(name);
    };
    EXPECT_EQ(Desktop::documentAt(link(make("a.png"), "b.png")), Document::Harmless);
    EXPECT_EQ(Desktop::documentAt(link(make("a.sh"), "c.png")), Document::Program);
    EXPECT_EQ(Desktop::documentAt(link(make("a.html"), "d.png")), Document::Unknown);
    EXPECT_EQ(Desktop::documentAt(link(make("e.png"), "e.desktop")), Document::Program);
    EXPECT_EQ(Desktop::documentAt(link(folder.filePath("nada"), "f.png")), Document::Missing);
}
#endif

TEST_F(ADocument, ThatIsAFolderOrIsNotThereIsMissing)
{
    EXPECT_EQ(Desktop::documentAt(folder.path()), Document::Missing);
    EXPECT_EQ(Desktop::documentAt(folder.filePath("nada.png")), Document::Missing);
}

#ifdef Q_OS_UNIX
TEST_F(ADocument, ThatIsAPipeOrADeviceIsMissingAndNotWaitedFor)
{
    const QString pipe = folder.filePath("b.png");
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe), 0600), 0);
    EXPECT_EQ(Desktop::documentAt(pipe), Document::Missing);
    ASSERT_TRUE(QFile::link(pipe, folder.filePath("c.png")));
    EXPECT_EQ(Desktop::documentAt(folder.filePath("c.png")), Document::Missing);
    EXPECT_EQ(Desktop::documentAt("/dev/zero"), Document::Missing);
}

TEST_F(ADocument, BehindLinksThatLeadInACircleIsMissing)
{
    ASSERT_TRUE(QFile::link(folder.filePath("b.png"), folder.filePath("a.png")));
    ASSERT_TRUE(QFile::link(folder.filePath("a.png"), folder.filePath("b.png")));
    EXPECT_EQ(Desktop::documentAt(folder.filePath("a.png")), Document::Missing);
}
#endif

TEST_F(ADocument, WithANullInItsPathIsMissing)
{
    const QString path = make("b.png");
    EXPECT_EQ(Desktop::documentAt(path + QChar::Null + ".sh"), Document::Missing);
    EXPECT_EQ(Desktop::documentAt(path + QChar::Null), Document::Missing);
}

TEST_F(ADocument, OnAServerIsElsewhere)
{
    for (const char* path :
         {"\\\\servidor\\rp\\b.png", "//servidor/rp/b.png", "\\/servidor\\b.png", "smb://servidor/b.png",
          "http://x/b.png", "file:///etc/passwd", "FILE:b.png", " //servidor/b.png"})
        EXPECT_EQ(Desktop::documentAt(QString::fromUtf8(path)), Document::Elsewhere) << path;
}

TEST_F(ADocument, MayHaveAColonInItsName)
{
    const QString path = make("livro:3.png");
    {
        const WorkingFolder there(folder.path());
        EXPECT_EQ(Desktop::documentAt("livro:3.png"), Document::Harmless);
    }
    EXPECT_EQ(Desktop::documentAt(path), Document::Harmless);
}
