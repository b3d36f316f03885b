// Lines of GEDCOM: lengths, continued texts, "@".
#include "study/gedcomGrammar.h"

#include "platform/jet/error.h"
#include "study/exchange/gedcomLines.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QRandomGenerator>

using namespace study::exchange;

namespace {

template <typename Write>
QByteArray linesOf(GedcomVersion version, const Write& write)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    GedcomLines lines(buffer, version);
    write(lines);
    lines.flush();
    QByteArray bytes = buffer.data();
    if (bytes.startsWith("\xEF\xBB\xBF")) bytes.remove(0, 3);
    return bytes;
}

QByteArray memo(GedcomVersion version, const QString& text)
{
    return linesOf(version, [&](GedcomLines& lines) { lines.memo(1, "NOTE", text); });
}

// As a reader has it.
QString readBack(GedcomVersion version, const QString& text)
{
    const gedcom::File file = gedcom::read("0 @N1@ NOTE\n" + memo(version, text), version == GedcomVersion::V551);
    EXPECT_TRUE(file.problems.isEmpty()) << qPrintable(file.problems.join('\n')) << memo(version, text).constData();
    return file.records.value(0).text("NOTE");
}

} // namespace

TEST(LinesOfGedcom, ContinueATextLineByLine)
{
    for (const GedcomVersion version : {GedcomVersion::V551, GedcomVersion::V70}) {
        EXPECT_EQ(memo(version, "uma\ndois\r\n\r\ntrês\r"), "1 NOTE uma\n2 CONT dois\n2 CONT\n2 CONT três\n2 CONT\n");
        EXPECT_EQ(memo(version, "\numa"), "1 NOTE\n2 CONT uma\n");
    }
}

TEST(LinesOfGedcom, DoubleEachAtIn551AndTheFirstOneOfALineIn70)
{
    EXPECT_EQ(memo(GedcomVersion::V551, "@a@b\n@"), "1 NOTE @@a@@b\n2 CONT @@\n");
    EXPECT_EQ(memo(GedcomVersion::V70, "@a@b\n@"), "1 NOTE @@a@b\n2 CONT @@\n");
}

TEST(LinesOfGedcom, HaveNoLettersThatGedcomHasNoPlaceFor)
{
    const QString text = QString("a\x01") + QChar(0x7F) + QChar(0x85) + QChar(0xD800) + QChar(0xFFFE) + "\tb";
    EXPECT_EQ(memo(GedcomVersion::V551, text), "1 NOTE a b\n");
    EXPECT_EQ(memo(GedcomVersion::V70, text), "1 NOTE a\tb\n");
}

TEST(LinesOfGedcom, AreOf255BytesAtTheMostIn551AndOfAnyLengthIn70)
{
    const QString text(1000, u'ã');
    const QByteArray old = memo(GedcomVersion::V551, text);
    for (const QByteArray& line : old.split('\n'))
        EXPECT_LE(line.size() + 1, 255);
    EXPECT_GT(old.count('\n'), 8);
    EXPECT_TRUE(old.contains("\n2 CONC "));
    EXPECT_EQ(memo(GedcomVersion::V70, text).count('\n'), 1);
    EXPECT_EQ(memo(GedcomVersion::V551, QString(247, u'x')).count('\n'), 1) << "255 with the end of the line";
    EXPECT_EQ(memo(GedcomVersion::V551, QString(248, u'x')).count('\n'), 2);
}

TEST(LinesOfGedcom, AreCutBetweenTwoLettersOfAWord)
{
    QString text;
    while (text.size() < 600)
        text += "casa de ";
    for (const QByteArray& line : memo(GedcomVersion::V551, text.trimmed()).chopped(1).split('\n')) {
        EXPECT_FALSE(line.endsWith(' ')) << line.constData();
        EXPECT_FALSE(line.startsWith("2 CONC  ")) << line.constData();
    }
}

TEST(LinesOfGedcom, GiveTheTextBackWhateverItIs)
{
    QRandomGenerator dice(1896);
    const QString letters = QString::fromUtf8("aãé@@@ ŁЖ漢🙂x");
    const QList<uint> points = letters.toUcs4();
    for (int round = 0; round < 300; ++round) {
        QString text = "i";
        const int length = dice.bounded(900);
        for (int i = 0; i < length; ++i) {
            const char32_t point = points[dice.bounded(points.size())];
            text += dice.bounded(60) == 0 ? QString("\nn") : QString::fromUcs4(&point, 1);
        }
        text += 'f';
        EXPECT_EQ(readBack(GedcomVersion::V551, text), text);
        EXPECT_EQ(readBack(GedcomVersion::V70, text), text);
    }
}

TEST(LinesOfGedcom, CutAValueThatItsTagHasNoRoomForAndSayIt)
{
    const QByteArray bytes = linesOf(GedcomVersion::V551, [](GedcomLines& lines) {
        EXPECT_FALSE(lines.text(1, "OCCU", QString(91, u'x')));
        EXPECT_TRUE(lines.text(1, "OCCU", QString(90, u'x')));
        EXPECT_TRUE(lines.text(1, "OCCU", "duas\nlinhas"));
    });
    EXPECT_EQ(bytes, "1 OCCU " + QByteArray(90, 'x') + "\n1 OCCU " + QByteArray(90, 'x') + "\n1 OCCU duas linhas\n");
    linesOf(GedcomVersion::V70, [](GedcomLines& lines) { EXPECT_TRUE(lines.text(1, "OCCU", QString(999, u'x'))); });
}

TEST(LinesOfGedcom, SayWhereTheDeviceTakesNoMore)
{
    QByteArray none;
    QBuffer closed(&none);
    closed.open(QIODevice::ReadOnly);
    GedcomLines lines(closed, GedcomVersion::V551);
    lines.bare(0, "HEAD");
    EXPECT_THROW(lines.flush(), jet::Error);
}
