// The letters of GEDCOM files: what they say, and what their bytes are.
#include "study/gedcomRead.h"

#include "platform/desktop/codepage.h"
#include "study/exchange/gedcomEncoding.h"

#include <QStringEncoder>

namespace gedcomRead {

namespace {

QByteArray headOf(const char* encoding)
{
    return QByteArray("0 HEAD\n1 GEDC\n2 VERS 5.5.1\n1 CHAR ") + encoding + '\n';
}

// Of four lines, and what is read on the sixth.
File readIn(const char* claimed, const QByteArray& note)
{
    return readAll(headOf(claimed) + "0 @I1@ INDI\n1 NOTE " + note + "\n0 TRLR\n");
}

QByteArray utf16(const QString& text, QStringConverter::Encoding order)
{
    return QStringEncoder(order)(text);
}

const QString phrase = QString::fromUtf8("João, Inês e a sua irmã da Conceição à Sé: avó, avô, ônus");
const QByteArray phraseInAnsel = "Jo\xE4"
                                 "ao, In\xE3"
                                 "es e a sua irm\xE4"
                                 "a da Concei\xF0"
                                 "c\xE4"
                                 "ao \xE1"
                                 "a S\xE2"
                                 "e: av\xE2"
                                 "o, av\xE3"
                                 "o, \xE3"
                                 "onus";

} // namespace

TEST(GedcomLetters, AreThoseOfUtf8WithAndWithoutItsMark)
{
    EXPECT_EQ(readIn("UTF-8", phrase.toUtf8()).note(), phrase);
    const File marked =
        readAll("\xEF\xBB\xBF" + headOf("UTF-8") + "0 @I1@ INDI\n1 NOTE " + phrase.toUtf8() + "\n0 TRLR\n");
    EXPECT_EQ(marked.note(), phrase);
    EXPECT_EQ(marked.head.encoding, GedcomEncoding::Utf8);
    EXPECT_EQ(marked.told(), "");
    EXPECT_EQ(readIn("UTF8", QByteArray("漢🙂")).note(), QString::fromUtf8("漢🙂"));
}

TEST(GedcomLetters, AreThoseOfUtf16ByItsMarkAndByItsZeros)
{
    const QString text =
        QString(headOf("UNICODE")) + "0 @I1@ INDI\n1 NOTE " + phrase + QString::fromUtf8("🙂Ċ਍\n0 TRLR\n");
    for (const auto order : {QStringConverter::Utf16LE, QStringConverter::Utf16BE}) {
        for (const char* mark : {"", "\xEF\xBB\xBF"}) {
            const File file = readAll(utf16(QString::fromUtf8(mark) + text, order));
            EXPECT_EQ(file.note(), phrase + QString::fromUtf8("🙂Ċ਍")) << "halves of letters are no line ends";
            EXPECT_EQ(file.head.encoding, GedcomEncoding::Utf16);
            EXPECT_EQ(file.told(), "");
        }
    }
}

TEST(GedcomLetters, OfUtf16WithoutTheirHalfAreTold)
{
    QString text = QString(headOf("UNICODE")) + "0 @I1@ INDI\n1 NOTE a?b\n1 NAME x";
    text[text.indexOf('?')] = QChar(0xD800);
    QByteArray bytes = utf16({}, QStringConverter::Utf16LE);
    for (const QChar letter : text)
        bytes += QByteArray(1, char(letter.unicode() & 0xFF)) + char(letter.unicode() >> 8);
    const File file = readAll(bytes + 'y');
    EXPECT_EQ(file.note(), QString("a") + QChar(QChar::ReplacementCharacter) + 'b');
    EXPECT_EQ(file.records.at(0).text("NAME"), QString("x") + QChar(QChar::ReplacementCharacter));
    ASSERT_EQ(file.problems.size(), 3U) << qPrintable(file.told());
    EXPECT_EQ(file.problems[0].line, 6);
    EXPECT_EQ(file.problems[1].line, 7);
}

TEST(GedcomLetters, OfAnselHaveTheirAccentsBeforeThem)
{
    const File file = readIn("ANSEL", phraseInAnsel);
    EXPECT_EQ(file.head.encoding, GedcomEncoding::Ansel);
    EXPECT_EQ(file.note(), phrase) << qPrintable(file.note());
    EXPECT_EQ(file.told(), "");
    EXPECT_EQ(readIn("ANSEL", "\xA1\xB1\xA5\xB5\xA2\xB2\xC7\xCF\xC5\xC6\xC3\xC0\xB9 \xE8u\xEA"
                              "A\xE9s\xE3\xE2"
                              "a\xF0\xE2"
                              "c")
                  .note(),
              QString::fromUtf8("ŁłÆæØøßß¿¡©°£ üÅšấḉ"));
    EXPECT_EQ(decoded("\xF3n", GedcomEncoding::Ansel).text, QString("n") + QChar(0x0324))
        << "of two letters in Unicode";
}

TEST(GedcomLetters, OfAnselWithoutOneBehindTheAccentAreReadByAGuess)
{
    const GedcomText end = decoded("Jos\xE9", GedcomEncoding::Ansel);
    EXPECT_EQ(end.text, QString::fromUtf8("José")) << "of code page 1252";
    EXPECT_EQ(end.guessed, QList<qsizetype>{3});
    EXPECT_EQ(decoded("Jos\xE9 m", GedcomEncoding::Ansel).text, QString::fromUtf8("José m"));
    const File file = readIn("ANSEL", phraseInAnsel + phraseInAnsel + "\n2 CONT Jos\xE9\n2 CONT \x84");
    EXPECT_EQ(file.note(), phrase + phrase + QString::fromUtf8("\nJosé\n„"));
    ASSERT_EQ(file.problems.size(), 2U) << qPrintable(file.told());
    EXPECT_EQ(file.problems[0].line, 7);
    EXPECT_TRUE(file.problems[0].text.contains("0xE9"));
    EXPECT_EQ(file.problems[1].line, 8);
}

TEST(GedcomLetters, CutFromTheirAccentOrInTheirMiddleAreOneAgain)
{
    const File ansel = readIn("ANSEL", phraseInAnsel + " irm\xE4\n2 CONC a da Concei\xF0"
                                                       "c\xE4\n2 CONC ao");
    EXPECT_EQ(ansel.note(), phrase + QString::fromUtf8(" irmã da Conceição"));
    EXPECT_EQ(ansel.told(), "");
    const File file = readIn("UTF-8", phrase.toUtf8() + " Concei\xC3\n2 CONC \xA7\xC3\xA3o");
    EXPECT_EQ(file.note(), phrase + QString::fromUtf8(" Conceição"));
    EXPECT_EQ(file.told(), "");
    const QString head = QString(headOf("UNICODE")) + "0 @I1@ INDI\n1 NOTE ";
    const QString halves = head + QChar(0xD83D) + "\n2 CONC " + QChar(0xDE42) + "\n0 TRLR\n";
    QByteArray bytes;
    for (const QChar letter : halves)
        bytes += QByteArray(1, char(letter.unicode() & 0xFF)) + char(letter.unicode() >> 8);
    EXPECT_EQ(readAll(bytes).note(), QString::fromUtf8("🙂"));
}

TEST(GedcomLetters, OfCodePage1252AreReadWhateverTheFileSays)
{
    const QByteArray note = toCodePage(phrase);
    for (const char* claimed : {"ANSI", "WINDOWS-1252", "CP1252", "ISO-8859-1"}) {
        const File file = readIn(claimed, note);
        EXPECT_EQ(file.note(), phrase);
        EXPECT_EQ(file.head.encoding, GedcomEncoding::Windows1252);
        EXPECT_EQ(file.told(), "");
    }
    for (const char* claimed : {"UTF-8", "ANSEL", "UNICODE", "ASCII", "", "IBMPC"}) {
        const File file = readIn(claimed, note);
        EXPECT_EQ(file.note(), phrase) << claimed;
        ASSERT_EQ(file.problems.size(), 1U) << claimed << qPrintable(file.told());
        EXPECT_EQ(file.problems[0].line, 1);
        EXPECT_TRUE(file.problems[0].text.contains("1252")) << qPrintable(file.told());
    }
    EXPECT_EQ(readIn("ANSEL", toCodePage(QString::fromUtf8("João Simão"))).note(), QString::fromUtf8("João Simão"))
        << "only letters that ANSEL could have";
    EXPECT_EQ(readIn("ANSI", "\x93Ol\xE1\x94 \x96 \x80").note(), QString::fromUtf8("“Olá” – €"));
}

TEST(GedcomLetters, OfUtf8AreReadWhateverTheFileSays)
{
    for (const char* claimed : {"ANSI", "ANSEL", "ASCII", "IBMPC"}) {
        const File file = readIn(claimed, phrase.toUtf8());
        EXPECT_EQ(file.note(), phrase) << claimed;
        ASSERT_EQ(file.problems.size(), 1U) << claimed;
        EXPECT_TRUE(file.problems[0].text.contains("UTF-8")) << qPrintable(file.told());
    }
    EXPECT_EQ(readIn("", phrase.toUtf8()).told(), "") << "7.0 says nothing of it";
}

TEST(GedcomLetters, OfAnselAreReadWhereTheFileSaysAnsi)
{
    const File file = readIn("ANSI", phraseInAnsel);
    EXPECT_EQ(file.note(), phrase) << qPrintable(file.note());
    EXPECT_EQ(file.problems.size(), 1U) << qPrintable(file.told());
    const QString german = QString::fromUtf8("Häuser, Bäume, Müller, Größe, Straße, säen");
    EXPECT_EQ(readIn("ANSI", toCodePage(german)).note(), german) << "not taken for it";
}

TEST(GedcomLetters, ThatAreWrongAreReadByAGuessAndToldWithTheirLine)
{
    const File few = readIn("UTF-8", phrase.toUtf8() + "\n2 CONT Jos\xE9 e In\xEAs\n2 CONT m");
    EXPECT_EQ(few.note(), phrase + QString::fromUtf8("\nJosé e Inês\nm"));
    ASSERT_EQ(few.problems.size(), 1U) << qPrintable(few.told());
    EXPECT_EQ(few.problems[0].line, 7);
    EXPECT_TRUE(few.problems[0].text.contains("0xE9")) << qPrintable(few.told());
    const File mixed = readIn("ANSI", toCodePage(phrase) + "\n2 CONT Jos\xC3\xA9\n2 CONT \x81");
    EXPECT_EQ(mixed.note(), phrase + QString::fromUtf8("\nJosé\n") + QChar(QChar::ReplacementCharacter));
    ASSERT_EQ(mixed.problems.size(), 2U) << qPrintable(mixed.told());
    EXPECT_EQ(mixed.problems[0].line, 7);
    EXPECT_EQ(mixed.problems[1].line, 8);
    EXPECT_TRUE(mixed.problems[1].text.contains("0x81"));
}

TEST(GedcomLetters, AreCountedTheSameInPiecesOfTheFile)
{
    for (const QByteArray& note : {phrase.toUtf8(), toCodePage(phrase), phraseInAnsel}) {
        const QByteArray bytes = headOf("ANSEL") + "0 @I1@ INDI\n1 NOTE " + note + "\n0 TRLR\n";
        const File whole = readAll(bytes);
        EXPECT_EQ(whole.note(), phrase);
        for (const qint64 atOnce : {1, 2, 3, 9}) {
            const File pieces = readAll(bytes, atOnce);
            EXPECT_EQ(pieces.head, whole.head) << atOnce;
            EXPECT_EQ(pieces.records, whole.records) << atOnce;
            EXPECT_EQ(pieces.problems, whole.problems) << atOnce;
        }
    }
}

} // namespace gedcomRead
