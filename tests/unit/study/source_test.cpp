// Which file a study was made from.
#include "study/fileOfBytes.h"

#include "study/parish/source.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using study::parish::Source;
using study::parish::sourceOf;

TEST(TheSourceOfAStudy, IsToldByWhatIsInTheFile)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.orv");
    writeFile(path, "abc");
    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
    const Source source = sourceOf(path);
    EXPECT_EQ(source.path, path);
    EXPECT_EQ(source.bytes, 3);
    EXPECT_EQ(source.sha256, "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_TRUE(source.isKnown());
    EXPECT_GE(source.readAt, before);
    EXPECT_LE(source.readAt, QDateTime::currentDateTime());
    EXPECT_EQ(source.readAt.time().msec(), 0);
}

TEST(TheSourceOfAStudy, IsUnknownWhereTheFileCantBeRead)
{
    const QTemporaryDir folder;
    const Source source = sourceOf(folder.filePath("b.orv"));
    EXPECT_EQ(source.path, folder.filePath("b.orv"));
    EXPECT_FALSE(source.isKnown());
    EXPECT_EQ(source.bytes, 0);
    EXPECT_FALSE(sourceOf(folder.path()).isKnown());
}
