// GEDCOM files as they are read: levels, texts that go on, and the habits of those who write them.
#include "platform/jet/error.h"
#include "study/exchange/gedcomRecord.h"

#include <gtest/gtest.h>

#include <QBuffer>

using namespace study::exchange;

namespace {

struct File
{
    GedcomHead head = {};
    std::vector<GedcomNode> records = {};
    std::vector<GedcomProblem> problems = {};

    QString told() const
    {
        QStringList all;
        for (const GedcomProblem& each : problems)
            all << QString("%1: %2").arg(each.line).arg(each.text);
        return all.join('\n');
    }
};

File readAll(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    GedcomReader reader(buffer);
    File file;
    file.head = reader.head();
    GedcomNode record;
    while (reader.next(record))
        file.records.push_back(record);
    EXPECT_FALSE(reader.next(record)) << "it is over";
    EXPECT_EQ(reader.done(), 1.0);
    file.problems = reader.problems();
    return file;
}

const QByteArray head551 = "0 HEAD\n1 SOUR TESTE\n1 GEDC\n2 VERS 5.5.1\n1 CHAR UTF-8\n";
const QByteArray head70 = "0 HEAD\n1 GEDC\n2 VERS 7.0\n1 PLAC\n2 FORM Lugar, Freguesia\n";

// The lines behind a head of five lines, and TRLR.
File read551(const QByteArray& lines)
{
    return readAll(head551 + lines + "0 TRLR\n");
}

File read70(const QByteArray& lines)
{
    return readAll(head70 + lines + "0 TRLR\n");
}

QString noteOf(const File& file)
{
    return file.records.empty() ? QString("-") : file.records.front().text("NOTE");
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
        EXPECT_EQ(noteOf(file), "a\n\nb");
        EXPECT_EQ(file.records.at(0).child("SEX")->line, 11);
        EXPECT_EQ(file.told(), "");
    }
}

TEST(GedcomReader, JoinsWhatIsContinued)
{
    EXPECT_EQ(noteOf(read551("0 @I1@ INDI\n1 NOTE Conc\n2 CONC eição\n2 CONT  recuada\n2 CONC  e mais\n2 CONT\n")),
              "Conceição\n recuada e mais\n");
    EXPECT_EQ(noteOf(read551("0 @I1@ INDI\n1 NOTE casa \n2 CONC de Deus\n")), "casa de Deus") << "a blank at the end";
    EXPECT_EQ(noteOf(read551("0 @I1@ INDI\n1 NOTE\n2 CONC só\n")), "só");
    EXPECT_EQ(noteOf(read70("0 @I1@ INDI\n1 NOTE a\n2 CONT  b\n")), "a\n b");
    const File record = read551("0 @N1@ NOTE um\n1 CONC  dois\n1 CONT três\n");
    EXPECT_EQ(record.records.at(0).value, "um dois\ntrês");
}

TEST(GedcomReader, ReadsTwoAtSignsAsOne)
{
    EXPECT_EQ(noteOf(read551("0 @I1@ INDI\n1 NOTE a@@b @@@@\n2 CONT @@c\n")), "a@b @@\n@c");
    EXPECT_EQ(noteOf(read551("0 @I1@ INDI\n1 NOTE a@\n2 CONC @b\n")), "a@b") << "cut between the two";
    EXPECT_EQ(noteOf(read551("0 @I1@ INDI\n1 NOTE ana@vila.pt\n")), "ana@vila.pt") << "as programs write it";
    EXPECT_EQ(noteOf(read70("0 @I1@ INDI\n1 NOTE @@a@@b\n2 CONT @@c\n2 CONT d@@e\n")), "@a@@b\n@c\nd@@e");
    const File text = read70("0 @I1@ INDI\n1 NOTE @@I1@\n");
    EXPECT_EQ(noteOf(text), "@I1@");
    EXPECT_FALSE(text.records.at(0).child("NOTE")->isPointer);
}
