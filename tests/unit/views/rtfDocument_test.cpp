// Filling in a document: what is found, what stands in its place, and what is written.
#include "views/rtfDocument.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

class Rtf : public testing::Test
{
protected:
    QString path(const char* name) const { return folder.filePath(name); }

    RtfDocument document(const QByteArray& bytes) const
    {
        QFile file(path("a.doc"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        return RtfDocument::open(path("a.doc")).value();
    }

    QByteArray written(const RtfDocument& filled) const
    {
        EXPECT_TRUE(filled.saveAs(path("b.doc")));
        QFile file(path("b.doc"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    // The document with the text in the place of the mark "@m".
    QByteArray filled(const QByteArray& bytes, const QString& text) const
    {
        RtfDocument rtf = document(bytes);
        EXPECT_TRUE(rtf.find("@m")) << bytes.constData();
        rtf.paste(text);
        return written(rtf);
    }

    QTemporaryDir folder;
};

constexpr auto rtfExample = R"({\rtf1\ansi{\fonttbl{\f0 @m;}}{\info{\title @m}}{\*\generator @m}{\header @m\par}
\pard\b Nome:\b0\tab @m\par Fim\'e9 \{x\}\par}
)";

} // namespace

TEST_F(Rtf, TheTextIsThatOfThePagesAlone)
{
    EXPECT_EQ(document(rtfExample).text(), "Nome:\t@m\nFimé {x}\n");
}

TEST_F(Rtf, CharactersAreReadInEveryFormThatTheFormatHas)
{
    EXPECT_EQ(document("{\\rtf1 a\\'e7b\\u960?c\\u-3913?\\~\\_\\endash\\ldblquote d\\line\\\ne\\tab f\\\\}").text(),
              QString("açbπc") + QChar(0xF0B7) + QChar(0xA0) + QChar(0x2011) + "–“d\n\ne\tf\\");
    EXPECT_EQ(document(R"({\rtf1{\uc2\u960 ab c}\u960 d e{\uc0\u960 f}})").text(), "π cπ eπf");
    EXPECT_EQ(document("{\\rtf1 a\\bin3 }{}b{\\pict 00ff}c\r\nd}z").text(), "abcd");
}

TEST_F(Rtf, WhatIsReplacedLeavesTheOtherBytesAsTheyStand)
{
    EXPECT_EQ(filled(rtfExample, "Ana"), QByteArray(rtfExample).replace("tab @m", "tab Ana"));
}

TEST_F(Rtf, SpecialCharactersAreWrittenAsTheFormatHasThem)
{
    EXPECT_EQ(filled("{\\rtf1 @m}", "Conceição {a\\b}"), "{\\rtf1 Concei\\'e7\\'e3o \\{a\\\\b\\}}");
    EXPECT_EQ(filled("{\\rtf1 @m}", "€ “œ” ?"), "{\\rtf1 \\'80 \\'93\\'9c\\'94 ?}");
    EXPECT_EQ(filled("{\\rtf1 @m}", QString("Ł") + QChar(0x85) + QChar(0xF0B7)), "{\\rtf1 \\u321?\\u133?\\u-3913?}");
    EXPECT_EQ(filled("{\\rtf1 @m}", "um\r\ndois\ntrês\tfim"), "{\\rtf1 um\\line dois\\line tr\\'eas\\tab fim}");
    EXPECT_EQ(filled("{\\rtf1 @m}", QString("a") + QChar(1) + QChar(0) + "b"), "{\\rtf1 ab}");
}

TEST_F(Rtf, AMarkIsFoundWhateverItsCaseAndItsFormatting)
{
    EXPECT_EQ(filled("{\\rtf1 x@{\\b M}y}", "Ana"), "{\\rtf1 xAna{\\b }y}");
    EXPECT_EQ(filled("{\\rtf1 x\\'40\\u109?y}", "Ana"), "{\\rtf1 xAnay}");
    EXPECT_EQ(filled("{\\rtf1 @\r\nm}", "Ana"), "{\\rtf1 Ana\r\n}");
}

TEST_F(Rtf, WhatIsPastedDoesntRunIntoTheWordBeforeIt)
{
    EXPECT_EQ(filled("{\\rtf1\\b@m}", "Ana"), "{\\rtf1\\b Ana}");
    EXPECT_EQ(filled("{\\rtf1\\par@m}", " "), "{\\rtf1\\par  }");
    EXPECT_EQ(filled("{\\rtf1 @\\fs24m1}", "Ana"), "{\\rtf1 Ana\\fs24 1}");

    RtfDocument rtf = document("{\\rtf1\\b@m}");
    rtf.paste("1");
    EXPECT_TRUE(rtf.find("@m"));
    rtf.paste("2");
    EXPECT_EQ(written(rtf), "{\\rtf1\\b 12}");

    RtfDocument blank = document("{\\rtf1\\ansi}");
    blank.paste("Ana");
    blank.paste(" e Rui");
    EXPECT_EQ(written(blank), "{\\rtf1\\ansi Ana e Rui}");
}

TEST_F(Rtf, TheSelectionMovesForwardAlone)
{
    RtfDocument rtf = document("{\\rtf1 a1 b1 a2 b2}");
    EXPECT_TRUE(rtf.find("b"));
    rtf.paste("a");
    EXPECT_TRUE(rtf.find("A")); // not the one that was pasted, nor the one before
    rtf.paste("X");
    EXPECT_FALSE(rtf.find("b1"));
    rtf.paste("Y"); // behind what was pasted
    EXPECT_TRUE(rtf.find("2"));
    EXPECT_TRUE(rtf.find("2"));
    EXPECT_FALSE(rtf.find("2"));
    rtf.paste("Z"); // what is selected still
    EXPECT_EQ(written(rtf), "{\\rtf1 a1 a1 XY2 bZ}");
}

TEST_F(Rtf, WhatIsNoDocumentIsntOpened)
{
    EXPECT_FALSE(RtfDocument::open(path("no.doc")));
    EXPECT_FALSE(RtfDocument::open(folder.path()));
    QFile file(path("old.doc"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("\xD0\xCF\x11\xE0 a word processor's own");
    file.close();
    EXPECT_FALSE(RtfDocument::open(path("old.doc")));
}

TEST_F(Rtf, ADocumentThatIsBrokenOffIsReadAsFarAsItGoes)
{
    for (const char* broken : {"{\\rtf", "{\\rtf1 a", "{\\rtf1 a\\", "{\\rtf1 a\\'", "{\\rtf1 a\\'e", "{\\rtf1 a{\\b",
                               "{\\rtf1 a\\bin9999 x", "{\\rtf1 a\\u", "{\\rtf1}}}", "{\\rtf1 a\\bin-5 }"})
    {
        RtfDocument rtf = document(broken);
        EXPECT_TRUE(rtf.text().isEmpty() || rtf.text().startsWith('a')) << broken;
        rtf.paste("x");
        EXPECT_TRUE(written(rtf).contains('x')) << broken;
    }
}

TEST_F(Rtf, AFileThatCantBeWrittenStaysAsItWas)
{
    RtfDocument rtf = document("{\\rtf1 a}");
    EXPECT_EQ(written(rtf), "{\\rtf1 a}");
    rtf.paste("x");
    QFile::setPermissions(path("b.doc"), QFile::ReadOwner | QFile::ReadUser);
    EXPECT_FALSE(rtf.saveAs(path("b.doc")));
    QFile::setPermissions(path("b.doc"), QFile::ReadOwner | QFile::ReadUser | QFile::WriteOwner | QFile::WriteUser);

    const auto before = QFile::permissions(folder.path());
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::ReadUser | QFile::ExeOwner | QFile::ExeUser);
    EXPECT_FALSE(rtf.saveAs(path("b.doc")));
    EXPECT_FALSE(rtf.saveAs(path("c.doc")));
    QFile::setPermissions(folder.path(), before);

    EXPECT_FALSE(rtf.saveAs(path("no/c.doc")));
    EXPECT_FALSE(rtf.saveAs(folder.path()));
    QFile file(path("b.doc"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "{\\rtf1 a}");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), (QStringList{"a.doc", "b.doc"}));
}
