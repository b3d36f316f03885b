// GEDCOM files as they are read: levels, texts that go on, and the habits of those who write them.
#include "study/gedcomRead.h"

#include "platform/jet/error.h"

namespace gedcomRead {

namespace {

// A text, cut for CONC where `length` says, from a place on and with so much room; the blank at a cut is left out if
// told.
template <typename Length>
QByteArray cutText(const QString& text, const Length& length, bool withoutBlanks)
{
    QByteArray lines = "0 @I1@ INDI\n1 NOTE ";
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype end = at + length(at);
        lines += text.sliced(at, end - at).toUtf8() + (end < text.size() ? "\n2 CONC " : "\n");
        at = end + (withoutBlanks ? 1 : 0);
    }
    return lines;
}

QString longText()
{
    QString text;
    for (int i = 1; text.size() < 4000; ++i)
        text += QString::fromUtf8(i % 7 == 0   ? "da Conceição "
                                  : i % 3 == 0 ? "e "
                                               : "Guimarães ") +
                QString::number(i * i) + ' ';
    return text.trimmed();
}

QString refusal(const QByteArray& bytes)
{
    try {
        readAll(bytes);
    } catch (const jet::Error& error) {
        return error.description;
    }
    return {};
}

} // namespace

TEST(GedcomReader, GivesRecordsWithWhatStandsBelowThem)
{
    const File file = read551("0 @I1@ INDI\n1 NAME Ana /Dias/\n1 BIRT\n2 DATE 3 MAY 1702\n2 PLAC Vila\n1 FAMS @F1@\n"
                              "0 @F1@ FAM\n1 WIFE @I1@\n");
    EXPECT_EQ(file.told(), "");
    EXPECT_EQ(file.head.version, "5.5.1");
    EXPECT_EQ(file.head.source, "TESTE");
    ASSERT_EQ(file.records.size(), 2U);
    const GedcomNode& person = file.records[0];
    EXPECT_EQ(person.xref, "I1");
    EXPECT_EQ(person.tag, "INDI");
    EXPECT_EQ(person.line, 6);
    EXPECT_EQ(person.text("NAME"), "Ana /Dias/");
    ASSERT_TRUE(person.child("BIRT"));
    EXPECT_EQ(person.child("BIRT")->text("DATE"), "3 MAY 1702");
    EXPECT_EQ(person.child("BIRT")->child("PLAC")->line, 10);
    EXPECT_TRUE(person.child("FAMS")->isPointer);
    EXPECT_EQ(person.text("FAMS"), "F1");
    EXPECT_EQ(person.child("DEAT"), nullptr);
    EXPECT_EQ(file.records[1].text("WIFE"), "I1");
}

TEST(GedcomReader, TellsHeadOf70)
{
    const File file = read70("0 @I1@ INDI\n1 ASSO @VOID@\n");
    EXPECT_EQ(file.head.version, "7.0");
    EXPECT_EQ(file.head.form, "Lugar, Freguesia");
    EXPECT_TRUE(file.records.at(0).child("ASSO")->isVoid());
    EXPECT_EQ(file.told(), "");
}

TEST(GedcomReader, TakesLineEndsOfEveryKind)
{
    for (const char* end : {"\n", "\r", "\r\n", "\n\r"}) {
        QByteArray bytes = head551 + "0 @I1@ INDI\n1 NOTE a\n2 CONT\n2 CONT b\n\n1 SEX M\n0 TRLR\n";
        bytes.replace("\n", end);
        const File file = readAll(bytes);
        EXPECT_EQ(file.note(), "a\n\nb");
        EXPECT_EQ(file.records.at(0).child("SEX")->line, 11);
        EXPECT_EQ(file.told(), "");
    }
}

TEST(GedcomReader, JoinsWhatIsContinued)
{
    EXPECT_EQ(read551("0 @I1@ INDI\n1 NOTE Conc\n2 CONC eição\n2 CONT  recuada\n2 CONC  e mais\n2 CONT\n").note(),
              "Conceição\n recuada e mais\n");
    EXPECT_EQ(read551("0 @I1@ INDI\n1 NOTE casa \n2 CONC de Deus\n").note(), "casa de Deus") << "a blank at the end";
    EXPECT_EQ(read551("0 @I1@ INDI\n1 NOTE\n2 CONC só\n").note(), "só");
    EXPECT_EQ(read70("0 @I1@ INDI\n1 NOTE a\n2 CONT  b\n").note(), "a\n b");
    const File record = read551("0 @N1@ NOTE um\n1 CONC  dois\n1 CONT três\n");
    EXPECT_EQ(record.records.at(0).value, "um dois\ntrês");
}

TEST(GedcomReader, ReadsTwoAtSignsAsOne)
{
    EXPECT_EQ(read551("0 @I1@ INDI\n1 NOTE a@@b @@@@\n2 CONT @@c\n").note(), "a@b @@\n@c");
    EXPECT_EQ(read551("0 @I1@ INDI\n1 NOTE a@\n2 CONC @b\n").note(), "a@b") << "cut between the two";
    EXPECT_EQ(read551("0 @I1@ INDI\n1 NOTE ana@vila.pt\n").note(), "ana@vila.pt") << "as programs write it";
    EXPECT_EQ(read70("0 @I1@ INDI\n1 NOTE @@a@@b\n2 CONT @@c\n2 CONT d@@e\n").note(), "@a@@b\n@c\nd@@e");
    const File text = read70("0 @I1@ INDI\n1 NOTE @@I1@\n");
    EXPECT_EQ(text.note(), "@I1@");
    EXPECT_FALSE(text.records.at(0).child("NOTE")->isPointer);
}

TEST(GedcomReader, KeepsEscapesInTheValue)
{
    const File file = read551("0 @I1@ INDI\n1 DATE @#DJULIAN@ 11 FEB 1731\n1 NOTE @#DJULIAN@\n1 FAMS @I1@ \n");
    EXPECT_EQ(file.records.at(0).text("DATE"), "@#DJULIAN@ 11 FEB 1731");
    EXPECT_EQ(file.note(), "@#DJULIAN@");
    EXPECT_FALSE(file.records.at(0).child("NOTE")->isPointer);
    EXPECT_EQ(file.records.at(0).text("FAMS"), "I1") << "a blank behind the pointer";
}

TEST(GedcomReader, TakesAPointerThatGoesOnForAText)
{
    const File file = read551("0 @I1@ INDI\n1 NOTE @N1@\n2 CONT mais\n");
    EXPECT_FALSE(file.records.at(0).child("NOTE")->isPointer);
    EXPECT_EQ(file.note(), "@N1@\nmais");
}

TEST(GedcomReader, TakesABrokenLineForTheRestOfTheOneBefore)
{
    const File file = read551("0 @I1@ INDI\n1 NOTE casou\ncom Ana\n\n12 de Maio\n1702 foi o ano\n@sem nível\n"
                              "2 CONT e mais\n1 SEX F\n");
    EXPECT_EQ(file.note(), "casou\ncom Ana\n\n12 de Maio\n1702 foi o ano\n@sem nível\ne mais");
    EXPECT_EQ(file.records.at(0).text("SEX"), "F");
    ASSERT_EQ(file.problems.size(), 4U) << qPrintable(file.told());
    EXPECT_EQ(file.problems[0].line, 8);
    EXPECT_EQ(file.problems[1].line, 10);
    EXPECT_EQ(file.problems[3].line, 12);
}

TEST(GedcomReader, TakesLevelsThatSkip)
{
    const File file = read551("0 @I1@ INDI\n2 DATE 1702\n2 PLAC Vila\n1 BIRT\n4 DATE 1703\n2 PLAC Aldeia\n");
    const GedcomNode& person = file.records.at(0);
    EXPECT_EQ(person.text("DATE"), "1702");
    EXPECT_EQ(person.text("PLAC"), "Vila");
    EXPECT_EQ(person.child("BIRT")->text("DATE"), "1703");
    EXPECT_EQ(person.child("BIRT")->text("PLAC"), "Aldeia");
    ASSERT_EQ(file.problems.size(), 3U) << qPrintable(file.told());
    EXPECT_EQ(file.problems[0].line, 7);
    EXPECT_EQ(file.problems[2].line, 10);
    EXPECT_TRUE(file.problems[2].text.contains("nível 4")) << qPrintable(file.told());
}

TEST(GedcomReader, TakesIndentsTabsAndTagsInSmallLetters)
{
    const File file = read551("0\t@I1@\tindi\n  1 name\tAna /Dias/\n\t1  birt \n   02 date 1702\n");
    EXPECT_EQ(file.told(), "");
    EXPECT_EQ(file.records.at(0).tag, "INDI");
    EXPECT_EQ(file.records.at(0).xref, "I1");
    EXPECT_EQ(file.records.at(0).text("NAME"), "Ana /Dias/");
    EXPECT_EQ(file.records.at(0).child("BIRT")->text("DATE"), "1702");
}

TEST(GedcomReader, TakesTagsAndXrefsOfOthersAsTheyAre)
{
    const File file = read551("0 @I 1:ção!/#@ INDI\n1 _UID 12\n1 _x_2 @I 1:ção!/#@\n0 @@ _LOC\n0 @I2@INDI\n");
    ASSERT_EQ(file.records.size(), 3U);
    EXPECT_EQ(file.records[0].xref, "I 1:ção!/#");
    EXPECT_EQ(file.records[0].text("_UID"), "12");
    EXPECT_TRUE(file.records[0].child("_X_2")->isPointer);
    EXPECT_EQ(file.records[0].text("_X_2"), file.records[0].xref);
    EXPECT_EQ(file.records[1].xref, "");
    EXPECT_EQ(file.records[1].tag, "_LOC");
    EXPECT_EQ(file.records[2].xref, "I2");
}

TEST(GedcomReader, TakesAContinuationThatStandsElsewhere)
{
    const File beside = read551("0 @I1@ INDI\n1 NOTE a\n1 CONT b\n");
    EXPECT_EQ(beside.note(), "a\nb");
    EXPECT_EQ(beside.problems.size(), 1U) << qPrintable(beside.told());
    const File behind = read551("0 @I1@ INDI\n1 NOTE a\n2 SOUR @S1@\n2 CONT b\n");
    EXPECT_EQ(behind.note(), "a\nb");
    EXPECT_EQ(behind.records.at(0).child("NOTE")->text("SOUR"), "S1");
    EXPECT_EQ(behind.problems.size(), 1U) << qPrintable(behind.told());
    const File deep = read551("0 @I1@ INDI\n1 NOTE a\n3 CONT b\n0 CONC c\n");
    EXPECT_EQ(deep.note(), "a\nbc");
    EXPECT_EQ(deep.problems.size(), 2U) << qPrintable(deep.told());
}

TEST(GedcomReader, TellsWhereTheFileIsCutOff)
{
    const File cut = readAll(head551 + "0 @I1@ INDI\n1 NAME An");
    EXPECT_EQ(cut.records.at(0).text("NAME"), "An");
    ASSERT_EQ(cut.problems.size(), 1U);
    EXPECT_EQ(cut.problems[0].line, 7);
    EXPECT_TRUE(cut.problems[0].text.contains("a meio")) << qPrintable(cut.told());
    const File whole = readAll(head551 + "0 @I1@ INDI\n1 NAME Ana\n");
    ASSERT_EQ(whole.problems.size(), 1U);
    EXPECT_TRUE(whole.problems[0].text.contains("Falta TRLR")) << qPrintable(whole.told());
    EXPECT_EQ(readAll(head551 + "0 TRLR").told(), "") << "the last line without its end";
    EXPECT_EQ(readAll(head551 + "0 trlr\r\n\r\n\x1A").told(), "");
    EXPECT_EQ(readAll(head551 + "0 TRLR\n" + QByteArray(100, '\0')).told(), "") << "filled up by the disk";
}

TEST(GedcomReader, ReadsNothingBehindTheEndAndNoSecondHead)
{
    const File behind = readAll(head551 + "0 TRLR\n0 @I1@ INDI\n");
    EXPECT_TRUE(behind.records.empty());
    ASSERT_EQ(behind.problems.size(), 1U);
    EXPECT_EQ(behind.problems[0].line, 7);
    const File twice = read551("0 HEAD\n1 SOUR OUTRO\n0 @I1@ INDI\n");
    EXPECT_EQ(twice.head.source, "TESTE");
    EXPECT_EQ(twice.records.size(), 1U);
    EXPECT_EQ(twice.problems.at(0).line, 6);
}

TEST(GedcomReader, LeavesNulLettersOutAndTellsIt)
{
    const File file = read551(QByteArray("0 @I1@ INDI\n1 NOTE a\0b\n", 23));
    EXPECT_EQ(file.note(), "ab");
    ASSERT_EQ(file.problems.size(), 1U);
    EXPECT_EQ(file.problems[0].line, 7);
}

TEST(GedcomReader, RefusesWhatIsNoGedcom)
{
    EXPECT_TRUE(refusal("").startsWith("Linha 1: "));
    EXPECT_TRUE(refusal("\n\nisto não é\n").startsWith("Linha 3: "));
    EXPECT_TRUE(refusal("0 @I1@ INDI\n").startsWith("Linha 1: "));
    EXPECT_TRUE(refusal("1 HEAD\n").startsWith("Linha 1: "));
    EXPECT_TRUE(refusal(QByteArray(1000, '\0')).startsWith("Linha 1: "));
    EXPECT_TRUE(refusal("PK\x03\x04zip").startsWith("Linha 1: "));
    EXPECT_EQ(readAll("\n\n  0 head\n0 trlr\n").told(), "");
}

TEST(GedcomReader, RefusesALineOrARecordWithoutEnd)
{
    EXPECT_TRUE(refusal(head551 + "0 @I1@ INDI\n1 NOTE " + QByteArray((1 << 24) + 1, 'x')).startsWith("Linha 7: "));
    EXPECT_EQ(readAll(head551 + "0 @I1@ INDI\n1 NOTE " + QByteArray(1 << 20, 'x')).note().size(), 1 << 20);
    const QByteArray many = head551 + "0 @I1@ INDI\n" + QByteArray("1 A\n").repeated(250000);
    EXPECT_TRUE(refusal(many).startsWith("Linha 250006: "));
    const QByteArray blank = head551 + "0 @I1@ INDI\n1 NOTE a\n" + QByteArray(250000, '\n') + "b\n";
    EXPECT_TRUE(refusal(blank).startsWith("Linha ")) << "lines with nothing count, too";
    QByteArray large = head551 + "0 @I1@ INDI\n";
    for (int i = 0; i < 3; ++i)
        large += "1 NOTE " + QByteArray(12000000, 'x') + '\n';
    EXPECT_TRUE(refusal(large).startsWith("Linha 9: "));
}

TEST(GedcomReader, EndsBehindWhatItHasRefused)
{
    QByteArray bytes = head551 + "0 @I1@ INDI\n" + QByteArray("1 A\n").repeated(250000) + "0 @I2@ INDI\n";
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    GedcomReader reader(buffer);
    GedcomNode record;
    EXPECT_THROW(reader.next(record), jet::Error);
    EXPECT_FALSE(reader.next(record));
}

TEST(GedcomReader, GoesAsDeepAsLevelsDo)
{
    QByteArray lines = "0 @I1@ INDI\n";
    for (int level = 1; level <= 99; ++level)
        lines += QByteArray::number(level) + " A\n";
    const File file = read551(lines + "100 A\n99 B\n");
    int depth = 0;
    const GedcomNode* deepest = &file.records.at(0);
    for (; !deepest->children.empty(); deepest = &deepest->children.front())
        ++depth;
    EXPECT_EQ(depth, 99);
    EXPECT_EQ(deepest->value, "\n100 A") << "no level";
    EXPECT_EQ(file.problems.size(), 1U);
}

TEST(GedcomReader, TellsTheFirstOnesOfAKindAndHowManyMore)
{
    QByteArray lines = "0 @I1@ INDI\n";
    for (int i = 0; i < 1000; ++i)
        lines += "2 A\n";
    const File file = read551(lines + "texto\n");
    ASSERT_EQ(file.problems.size(), 52U);
    EXPECT_EQ(file.problems[49].line, 56);
    EXPECT_EQ(file.problems[50].line, 57);
    EXPECT_TRUE(file.problems[50].text.contains("mais 950")) << qPrintable(file.problems[50].text);
    EXPECT_EQ(file.problems[51].line, 1007) << "of another kind";
}

TEST(GedcomReader, TellsHowMuchIsDone)
{
    QByteArray bytes = head551;
    for (int i = 0; i < 30000; ++i)
        bytes += "0 @I1@ INDI\n";
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    GedcomReader reader(buffer);
    GedcomNode record;
    for (int i = 0; i < 15000; ++i)
        reader.next(record);
    EXPECT_NEAR(reader.done(), 0.5, 0.01);
}

TEST(GedcomReader, PutsTheBlanksBackThatACutBetweenWordsHasTaken)
{
    static constexpr qsizetype room = 70;
    const QString text = longText();
    const auto betweenWords = [&](qsizetype at) {
        return text.size() - at <= room ? text.size() - at : text.lastIndexOf(u' ', at + room) - at;
    };
    const File file = read551(cutText(text, betweenWords, true));
    EXPECT_EQ(file.note(), text);
    ASSERT_EQ(file.problems.size(), 1U) << qPrintable(file.told());
    EXPECT_EQ(file.problems[0].line, 8);
    EXPECT_TRUE(file.problems[0].text.contains("CONC"));
    const File kept = read551(cutText(text, betweenWords, false));
    EXPECT_EQ(kept.note(), text) << "the blank begins the next line";
    EXPECT_EQ(kept.told(), "");
    EXPECT_EQ(read551("0 @I1@ INDI\n1 NOTE casa\n2 CONC de\n").note(), "casade") << "one cut shows nothing";
}

TEST(GedcomReader, PutsNoBlanksWhereTextsAreCutInsideAWord)
{
    static constexpr qsizetype room = 70;
    const QString text = longText();
    const auto inAWord = [&](qsizetype at) {
        qsizetype end = qMin(text.size(), at + room);
        while (end < text.size() && (text[end] == u' ' || text[end - 1] == u' '))
            --end;
        return end - at;
    };
    const auto byBytes = [&](qsizetype at) {
        qsizetype length = 1;
        while (at + length < text.size() && text.sliced(at, length + 1).toUtf8().size() <= room)
            ++length;
        while (at + length < text.size() && (text[at + length] == u' ' || text[at + length - 1] == u' '))
            --length;
        return length;
    };
    const auto anywhere = [&](qsizetype at) {
        qsizetype end = qMin(text.size(), at + 20 + at * 7 % 31);
        while (end < text.size() && (text[end] == u' ' || text[end - 1] == u' '))
            --end;
        return end - at;
    };
    for (const File& file : {read551(cutText(text, inAWord, false)), read551(cutText(text, byBytes, false)),
                             read551(cutText(text, anywhere, false))})
    {
        EXPECT_EQ(file.note(), text);
        EXPECT_EQ(file.told(), "");
    }
}

} // namespace gedcomRead
