#include "forms/fields.h"

#include <QClipboard>
#include <QInputMethodEvent>
#include <QStatusBar>
#include <QTextBlock>

namespace {

class MemoBoxTest : public Fields
{
};

} // namespace

TEST_F(MemoBoxTest, LineBreaksAreCarriageReturnAndLineFeed)
{
    auto* memo = shown<MemoBox>();
    QTest::keyClicks(memo, "um");
    QTest::keyClick(memo, Qt::Key_Return);
    QTest::keyClicks(memo, "dois");
    QTest::keyClick(memo, Qt::Key_Return, Qt::ShiftModifier);
    QApplication::clipboard()->setText("três\nquatro\rcinco");
    memo->paste();
    EXPECT_EQ(memo->text(), "um\r\ndois\r\ntrês\r\nquatro\r\ncinco");
    memo->clear();
    EXPECT_EQ(memo->text(), "");
}

TEST_F(MemoBoxTest, WhatTheUserTookBackIsForgottenWhenTheFieldIsEmptied)
{
    auto* memo = shown<MemoBox>();
    QTest::keyClicks(memo, "x");
    QTest::keyClick(memo, Qt::Key_Backspace);
    ASSERT_TRUE(memo->document()->isUndoAvailable());
    Focus::release();
    memo->clear();
    EXPECT_FALSE(memo->document()->isUndoAvailable());
    EXPECT_FALSE(memo->document()->isModified());
}

TEST_F(MemoBoxTest, TheLimitHoldsForTypingAndPasting)
{
    auto* memo = shown<MemoBox>();
    memo->setMaxLength(5);
    Answer first("OK"), second("OK");
    QTest::keyClicks(memo, "abcdefg");
    EXPECT_EQ(memo->text(), "abcde");
    QTest::keyClick(memo, Qt::Key_Backspace);
    QTest::keyClick(memo, Qt::Key_Return); // two characters, one place
    EXPECT_EQ(memo->text(), "abcd");
    QTest::keyClick(memo, Qt::Key_Backspace);
    QApplication::clipboard()->setText("x\ny");
    memo->paste();
    EXPECT_EQ(memo->text(), "abcx");
    memo->selectAll();
    QApplication::clipboard()->setText("1\n2345");
    memo->paste();
    EXPECT_EQ(memo->text(), "1\r\n23");
    memo->selectAll();
    QTest::keyClicks(memo, "z");
    EXPECT_EQ(memo->text(), "z");
    QCoreApplication::processEvents();
    EXPECT_EQ(first.given + second.given, 2);
}

TEST_F(MemoBoxTest, WhatTheProgramShowsIsNotCut)
{
    auto* memo = shown<MemoBox>();
    memo->setMaxLength(5);
    memo->setText("123456789");
    EXPECT_EQ(memo->text(), "123456789");
    QTest::keyClicks(memo, "x");
    EXPECT_EQ(memo->text(), "123456789");
}

namespace {

// Texts that a BDP may hold, each with something that a field of lines could change.
QStringList oddTexts()
{
    QStringList texts{QString::fromUtf8("um\ndois\r\ntrês\rquatro\n\r\r\n"),
                      QString::fromLatin1("a\0b\0", 4),
                      "\ta\t\tb ",
                      " ",
                      QString(100000, 'x'),
                      QString::fromUtf8("🙂").repeated(30000),
                      QString(5000, ' ') + "fim",
                      QString("uma palavra ").repeated(6000),
                      QString(3000, QChar(0x0301)),
                      QString(2000, '\n')};
    for (const char16_t character : {0x00A0, 0x2028, 0x2029, 0x200B, 0xFDD0, 0xFDD1, 0xFFFC, 0xFFFE, 0xD800, 0xDC00,
                                     0x000B, 0x000C, 0x0085, 0x001C, 0xFEFF})
        texts << QString(QChar(character)) << "a" + QString(QChar(character)) + "b" + QString(QChar(character));
    return texts;
}

} // namespace

TEST_F(MemoBoxTest, ATextIsGivenBackToTheCharacter)
{
    auto* memo = shown<MemoBox>();
    for (const QString& text : oddTexts()) {
        memo->setText(text);
        QCoreApplication::processEvents();
        EXPECT_TRUE(memo->text() == text) << text.left(20).toStdString() << " of " << text.size();
        EXPECT_FALSE(memo->document()->isUndoAvailable());
    }
}

TEST_F(MemoBoxTest, WhatTheUserTypesLeavesTheRestToTheCharacter)
{
    auto* memo = shown<MemoBox>();
    for (const QString& text : oddTexts()) {
        if (text.front().isSurrogate() || text.front().isMark()) continue; // a key beside it would join it
        memo->setText(text);
        QTest::keyClick(memo, Qt::Key_Home, Qt::ControlModifier);
        memo->setMaxLength(2000000);
        QTest::keyClicks(memo, "ab");
        QTest::keyClick(memo, Qt::Key_Return);
        EXPECT_TRUE(memo->text() == "ab\r\n" + text) << text.left(20).toStdString() << " of " << text.size();
        for (int i = 0; i < 3; ++i)
            QTest::keyClick(memo, Qt::Key_Backspace);
        EXPECT_TRUE(memo->text() == text);
        while (memo->document()->isUndoAvailable())
            memo->undo();
        EXPECT_TRUE(memo->text() == text);
        memo->selectAll();
        QTest::keyClick(memo, Qt::Key_Delete);
        EXPECT_EQ(memo->text(), "");
        memo->undo();
        EXPECT_TRUE(memo->text() == text) << text.left(20).toStdString() << " of " << text.size();
    }
}

TEST_F(MemoBoxTest, AKeyWhereALongWordIsBrokenIsForTheCharacterBehind)
{
    auto* memo = shown<MemoBox>();
    QString word;
    for (int i = 0; i < 3000; ++i)
        word += QChar('a' + i % 26);
    memo->setText(word);
    ASSERT_GT(memo->document()->blockCount(), 1);
    const int border = memo->document()->begin().length() - 1;
    const auto standAt = [&](int place) {
        QTextCursor cursor = memo->textCursor();
        cursor.setPosition(place);
        memo->setTextCursor(cursor);
    };
    standAt(border + 1); // the first of the second line
    QTest::keyClick(memo, Qt::Key_Backspace);
    EXPECT_EQ(memo->text(), QString(word).remove(border - 1, 1));
    memo->setText(word);
    standAt(border);
    QTest::keyClick(memo, Qt::Key_Delete);
    EXPECT_EQ(memo->text(), QString(word).remove(border, 1));
    memo->setText(word);
    standAt(border + 1);
    QTest::keyClick(memo, Qt::Key_Return); // the user's own break, though the one before is none
    QTest::keyClick(memo, Qt::Key_X);
    EXPECT_EQ(memo->text(), QString(word).insert(border, "\r\nx"));
    standAt(border + 1);
    memo->selectAll();
    memo->copy();
    EXPECT_EQ(QApplication::clipboard()->text(), memo->text().replace("\r\n", "\n"));
}

TEST_F(MemoBoxTest, WhatIsCutAndPastedKeepsItsNoBreakBlanks)
{
    auto* memo = shown<MemoBox>();
    const QString text = QString("a") + QChar(0xA0) + "b" + QChar(0x2028) + "c";
    memo->setText(text);
    memo->selectAll();
    memo->cut();
    EXPECT_EQ(memo->text(), "");
    memo->paste();
    EXPECT_EQ(memo->text(), text);
}

TEST_F(MemoBoxTest, TheWholeOfAPastedTextThatDoesNotFitIsInTheClipboardAndTold)
{
    auto* memo = shown<MemoBox>();
    const QString text(100000, 'x');
    QApplication::clipboard()->setText(text);
    Answer answer("OK");
    memo->paste();
    QCoreApplication::processEvents();
    EXPECT_EQ(memo->text().size(), 65535);
    EXPECT_EQ(answer.given, 1);
    EXPECT_EQ(answer.text, "O texto tem 100000 caracteres, mas só couberam 65535: o campo leva no máximo 65535.\n"
                           "O texto inteiro está na área de transferência.");
    EXPECT_EQ(QApplication::clipboard()->text(), text);
}

TEST_F(MemoBoxTest, AComposedTextThatDoesNotFitIsTold)
{
    auto* memo = shown<MemoBox>();
    memo->setMaxLength(5);
    Answer answer("OK");
    QInputMethodEvent composed;
    composed.setCommitString("abcdefg");
    QApplication::sendEvent(memo, &composed);
    QCoreApplication::processEvents();
    EXPECT_EQ(memo->text(), "abcde");
    EXPECT_EQ(answer.given, 1);
    EXPECT_EQ(QApplication::clipboard()->text(), "abcdefg");
}

TEST_F(MemoBoxTest, NoCharacterOfTwoUnitsIsCutInHalf)
{
    auto* memo = shown<MemoBox>();
    memo->setMaxLength(4);
    Answer answer("OK");
    QApplication::clipboard()->setText(QString::fromUtf8("abc🙂"));
    memo->paste();
    QCoreApplication::processEvents();
    EXPECT_EQ(memo->text(), "abc");
}

// In one piece it took over two minutes, and four times as long for twice as many.
TEST_F(MemoBoxTest, AMillionCharactersWithoutABlankAreLaidOutInShortPieces)
{
    auto* memo = shown<MemoBox>();
    const auto longest = [&] {
        int length = 0;
        for (QTextBlock block = memo->document()->firstBlock(); block.isValid(); block = block.next())
            length = std::max(length, block.length() - 1);
        return length;
    };
    memo->setText(QString(1000000, 'x'));
    memo->repaint();
    EXPECT_LE(longest(), 1000);
    memo->moveCursor(QTextCursor::End);
    QTest::keyClick(memo, Qt::Key_Backspace);
    memo->repaint();
    EXPECT_LE(longest(), 1000);
    EXPECT_EQ(memo->text().size(), 999999);
}

TEST_F(MemoBoxTest, OfAMillionLinesItTakesTheFirstAndGivesAllBack)
{
    auto* memo = shown<MemoBox>();
    const QString text = QString("\n").repeated(999999) + "fim";
    memo->setText(text);
    memo->repaint();
    EXPECT_LE(memo->document()->blockCount(), 40001) << "more takes too long to lay out";
    EXPECT_TRUE(memo->text() == text);
    memo->setMaxLength(2000000);
    QTest::keyClicks(memo, "ab");
    EXPECT_TRUE(memo->text() == "ab" + text);
    memo->selectAll();
    QTest::keyClick(memo, Qt::Key_Delete);
    EXPECT_EQ(memo->text(), "");
    memo->undo();
    EXPECT_TRUE(memo->text() == "ab" + text);
}

TEST_F(MemoBoxTest, WhatIsNotShownOfManyLinesStaysBehindWhateverIsDeletedOrTyped)
{
    auto* memo = shown<MemoBox>();
    window.statusBar();
    memo->setMaxLength(2000000);
    const QString shownLines = QString("x\n").repeated(40000), text = shownLines + "fim\n" + shownLines + "z";
    const auto expectAtTheEnd = [&](const QString& shown) {
        EXPECT_TRUE(memo->text() == shown + "fim\n" + shownLines + "z") << memo->text().size();
    };
    const auto show = [&](QTextCursor::MoveOperation place) {
        memo->setText(text);
        memo->moveCursor(place);
    };
    show(QTextCursor::End);
    expectAtTheEnd(shownLines);
    EXPECT_EQ(window.statusBar()->currentMessage().toStdString(),
              "O texto é demasiado longo para ser mostrado todo: o resto mantém-se.");
    QTest::keyClick(memo, Qt::Key_Delete);
    QTest::keyClick(memo, Qt::Key_Delete, Qt::ControlModifier);
    expectAtTheEnd(shownLines);
    QTest::keyClicks(memo, "ab");
    expectAtTheEnd(shownLines + "ab");
    show(QTextCursor::End);
    QTest::keyClick(memo, Qt::Key_Up, Qt::ShiftModifier);
    QTest::keyClick(memo, Qt::Key_Delete);
    expectAtTheEnd(shownLines.chopped(2));
    show(QTextCursor::End);
    QTest::keyClick(memo, Qt::Key_Home, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClicks(memo, "a");
    expectAtTheEnd("a");
    memo->setText("curto");
    EXPECT_EQ(memo->text(), "curto");
}

TEST_F(MemoBoxTest, ACharacterOfTwoUnitsIsNotTypedBeyondTheLimit)
{
    auto* memo = shown<MemoBox>();
    memo->setMaxLength(3);
    memo->setText("abc");
    QKeyEvent key(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString::fromUtf8("🙂"));
    QApplication::sendEvent(memo, &key);
    EXPECT_EQ(memo->text(), "abc");
    memo->setText("a");
    QApplication::sendEvent(memo, &key);
    EXPECT_EQ(memo->text().size(), 3);
}

TEST_F(MemoBoxTest, TabGoesOnToTheNextField)
{
    auto* memo = shown<MemoBox>();
    auto* next = static_cast<TestForm*>(Forms::find("frmA"))->put<TextBox>("txtNome");
    QCoreApplication::processEvents();
    Focus::setTo(memo);
    QTest::keyClick(memo, Qt::Key_Tab);
    EXPECT_TRUE(next->hasFocus());
    EXPECT_EQ(memo->text(), "");
}

TEST_F(MemoBoxTest, ALockedOneRefusesTheUser)
{
    auto* memo = shown<MemoBox>();
    memo->setText("obs");
    memo->setLocked(true);
    QTest::keyClicks(memo, "x");
    QTest::keyClick(memo, Qt::Key_Return);
    EXPECT_EQ(memo->text(), "obs");
}
