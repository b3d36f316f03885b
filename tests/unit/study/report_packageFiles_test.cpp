// A large file of a package, written while the next piece of it is made.
#include "jet/fulldisk.h"
#include "platform/jet/error.h"
#include "study/report/packageFiles.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace study::report;

namespace {

constexpr int pieces = 40, bytesOfPiece = 1 << 16;

QByteArray piece(int number)
{
    return QByteArray(bytesOfPiece, static_cast<char>('a' + number % 26));
}

TEST(ALargeFileOfAPackage, HasItsPiecesInOrder)
{
    const QTemporaryDir folder;
    QByteArray whole;
    PackageFiles files(folder.path());
    files.begin("grande.csv");
    for (int i = 0; i < pieces; ++i) {
        files.write(piece(i));
        whole += piece(i);
    }
    const PackageFiles::Written written = files.end();
    files.place();
    EXPECT_EQ(written.bytes, whole.size());
    EXPECT_EQ(written.hash, hashOf(whole));
    EXPECT_EQ(hashOfFile(folder.filePath("grande.csv")), hashOf(whole));
}

TEST(ALargeFileOfAPackage, IsRefusedAndGoneWhenTheDiskFillsBehindTheWriter)
{
    const QTemporaryDir folder;
    for (const int room : {1, 2, pieces - 1}) {
        const jet::test::FullDisk full(static_cast<rlim_t>(room) * bytesOfPiece);
        PackageFiles files(folder.path());
        files.begin("grande.csv");
        const auto writeAll = [&] {
            for (int i = 0; i < pieces; ++i)
                files.write(piece(i));
            files.end();
        };
        EXPECT_THROW(writeAll(), jet::Error) << room;
    }
    EXPECT_TRUE(QDir(folder.path()).isEmpty(QDir::Files | QDir::Hidden));
}

} // namespace
