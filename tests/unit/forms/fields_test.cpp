#include "forms/fields.h"

#include <QClipboard>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QStatusBar>

namespace {

class MaskedEditTest : public Fields
{
};

class TextBoxTest : public Fields
{
};

} // namespace

TEST_F(TextBoxTest, ALockedFieldTakesTheFocusAndRefusesTheUser)
{
    auto* field = shown<TextBox>();
    field->setText("Ana");
    field->setLocked(true);
    QTest::keyClicks(field, "x");
    EXPECT_TRUE(field->hasFocus());
    EXPECT_EQ(field->text(), "Ana");
    field->setText("Rita");
    EXPECT_EQ(field->text(), "Rita");
}

TEST_F(TextBoxTest, TheProgramsOwnChangesAreChanges)
{
    auto* field = shown<TextBox>();
    QSignalSpy changes(field, &TextBox::textChanged);
    field->setText("Ana");
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(TextBoxTest, WhatTheUserTookBackIsForgottenWhenTheFieldIsEmptied)
{
    auto* field = shown<TextBox>();
    QTest::keyClicks(field, "x");
    QTest::keyClick(field, Qt::Key_Backspace);
    ASSERT_TRUE(field->isUndoAvailable());
    Focus::release();
    field->clear();
    EXPECT_FALSE(field->isUndoAvailable());
    EXPECT_FALSE(field->isModified());
}

TEST_F(TextBoxTest, ALongTextOfTheProgramIsShownFromItsBeginning)
{
    auto* field = shown<TextBox>();
    Focus::release();
    field->setText("Maria Joaquina da Conceição Rodrigues  -  DN: 04/03/1730  -  DO: ????");
    EXPECT_EQ(field->cursorPosition(), 0);
    Focus::setTo(field);
    field->setText("Ana");
    EXPECT_EQ(field->cursorPosition(), 3);
}

TEST_F(TextBoxTest, TheMenusGetTheirShortcutsInEveryField)
{
    QAction open;
    open.setShortcut(QKeySequence("Ctrl+A"));
    window.addAction(&open);
    QSignalSpy opened(&open, &QAction::triggered);
    QWidget* fields[] = {shown<TextBox>(), nullptr, nullptr};
    TestForm* form = static_cast<TestForm*>(Forms::find("frmA"));
    fields[1] = form->put<MemoBox>("txtObs");
    fields[2] = form->put<MaskedEdit>("mskData");
    QCoreApplication::processEvents();
    for (QWidget* field : fields) {
        Focus::setTo(field);
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    }
    EXPECT_EQ(opened.count(), 3);
}

TEST_F(TextBoxTest, TheClipboardKeysStayWithTheField)
{
    auto* field = shown<TextBox>();
    QApplication::clipboard()->setText("Maria");
    QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(field->text(), "Maria");
}

TEST_F(MaskedEditTest, AnEmptyFieldShowsItsMask)
{
    auto* field = shown<MaskedEdit>();
    EXPECT_EQ(field->text(), "__/__/____");
    EXPECT_EQ(field->displayText(), "__/__/____");
    EXPECT_TRUE(field->isBlank());
    EXPECT_EQ(field->mask(), "##/##/####");
}

TEST_F(MaskedEditTest, DigitsFillTheMaskAndNothingElseDoes)
{
    auto* field = shown<MaskedEdit>();
    QTest::keyClicks(field, "a0x9");
    EXPECT_EQ(field->text(), "09/__/____");
    QTest::keyClicks(field, "031750");
    EXPECT_EQ(field->text(), "09/03/1750");
    QTest::keyClicks(field, "8");
    EXPECT_EQ(field->text(), "09/03/1750");
    EXPECT_FALSE(field->isBlank());
}

TEST_F(MaskedEditTest, ATypedSlashGoesOnToTheNextGroup)
{
    auto* field = shown<MaskedEdit>();
    QTest::keyClicks(field, "09/03/1750");
    EXPECT_EQ(field->text(), "09/03/1750");
}

TEST_F(MaskedEditTest, TypingGoesOverWhatStandsThere)
{
    auto* field = shown<MaskedEdit>();
    QTest::keyClicks(field, "09031750");
    QTest::keyClick(field, Qt::Key_Home);
    QTest::keyClicks(field, "18");
    EXPECT_EQ(field->text(), "18/03/1750");
}

TEST_F(MaskedEditTest, BackspaceAndDeleteLeaveBlanks)
{
    auto* field = shown<MaskedEdit>();
    QTest::keyClicks(field, "09031750");
    QTest::keyClick(field, Qt::Key_Backspace);
    EXPECT_EQ(field->text(), "09/03/175_");
    QTest::keyClick(field, Qt::Key_Home);
    QTest::keyClick(field, Qt::Key_Delete);
    EXPECT_EQ(field->text(), "_9/03/175_");
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    EXPECT_EQ(field->text(), "__/__/____");
}

TEST_F(MaskedEditTest, ADateIsPastedWithItsSlashesOrWithout)
{
    auto* field = shown<MaskedEdit>();
    for (const char* text : {"09/03/1750", "09031750"}) {
        for (const bool filled : {false, true}) {
            field->clearMasked();
            if (filled) QTest::keyClicks(field, "11111111");
            QTest::keyClick(field, Qt::Key_Home);
            QApplication::clipboard()->setText(QString::fromLatin1(text));
            field->paste();
            EXPECT_EQ(field->text(), "09/03/1750") << text << filled;
        }
        field->selectAll();
        field->paste();
        EXPECT_EQ(field->text(), "09/03/1750") << text;
    }
}

TEST_F(MaskedEditTest, AnImpossibleDateStaysAsItWasTyped)
{
    auto* field = shown<MaskedEdit>();
    QTest::keyClicks(field, "99991");
    QTest::keyClick(field, Qt::Key_Tab);
    EXPECT_EQ(field->text(), "99/99/1___");
}

TEST_F(MaskedEditTest, TheCursorStandsAtTheBeginningWhenTheFieldIsEntered)
{
    auto* field = shown<MaskedEdit>();
    QTest::keyClicks(field, "09031750");
    Focus::release();
    Focus::setTo(field);
    EXPECT_EQ(field->cursorPosition(), 0);
    EXPECT_FALSE(field->hasSelectedText());
    field->clearMasked();
    Focus::release();
    QTest::mouseClick(field, Qt::LeftButton, {}, QPoint(60, field->height() / 2));
    EXPECT_EQ(field->cursorPosition(), 0);
}

TEST_F(MaskedEditTest, WithoutItsMaskItIsAPlainField)
{
    auto* field = shown<MaskedEdit>();
    field->setMask({});
    EXPECT_EQ(field->text(), "");
    EXPECT_TRUE(field->isBlank());
    field->showPlain("09/03/1750");
    EXPECT_EQ(field->text(), "09/03/1750");
    QTest::keyClick(field, Qt::Key_End);
    QTest::keyClicks(field, " ?");
    EXPECT_EQ(field->text(), "09/03/1750 ?");
}

TEST_F(MaskedEditTest, WithoutItsMaskAnEmptyFieldTellsTheFormOfADate)
{
    auto* field = shown<MaskedEdit>();
    EXPECT_EQ(field->placeholderText(), "");
    field->showPlain({});
    EXPECT_EQ(field->placeholderText(), "dd/mm/aaaa");
    field->clearMasked();
    EXPECT_EQ(field->placeholderText(), "");
}

TEST_F(MaskedEditTest, WithoutItsMaskADateIsCompletedWhenTheFieldIsLeft)
{
    auto* field = shown<MaskedEdit>();
    const std::pair<const char*, const char*> typed[] = {
        {"9/3/1750", "09/03/1750"}, {"09031750", "09/03/1750"}, {"31/2/1750", "31/02/1750"}, {"9/3/50", "9/3/50"},
        {"9-3-1750", "9-3-1750"},   {"amanhã", "amanhã"},       {"19/3/1750", "19/03/1750"}, {"", ""},
    };
    for (const auto& [text, left] : typed) {
        QString seen;
        Focus::watch(field, {}, [&] { seen = field->text(); });
        field->showPlain({});
        Focus::setTo(field);
        field->setText(QString::fromUtf8(text));
        EXPECT_EQ(field->text(), QString::fromUtf8(text));
        Focus::release();
        EXPECT_EQ(field->text(), QString::fromUtf8(left));
        EXPECT_EQ(seen, QString::fromUtf8(left)); // the leave routine meets it complete
    }
    Focus::watch(field, {}, {});
}

TEST_F(MaskedEditTest, ChangingTheMaskKeepsTheTextThatFits)
{
    auto* field = shown<MaskedEdit>();
    field->showPlain("09/03/1750");
    field->setMask(QString::fromLatin1(dateMask));
    EXPECT_EQ(field->text(), "09/03/1750");
    field->showPlain("amanhã");
    field->setMask(QString::fromLatin1(dateMask));
    EXPECT_EQ(field->text(), "__/__/____");
    QTest::keyClicks(field, "09031750");
    field->setMask({});
    EXPECT_EQ(field->text(), "09/03/1750");
    field->clearMasked();
    EXPECT_EQ(field->text(), "__/__/____");
}

TEST_F(TextBoxTest, APastedTextThatDoesNotFitIsToldAndTheClipboardHasTheWhole)
{
    auto* field = shown<TextBox>();
    field->setMaxLength(255);
    const QString text(300, 'x');
    QApplication::clipboard()->setText(text);
    field->setText("abc");
    Answer answer("OK");
    QTest::keyClick(field, Qt::Key_End);
    QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
    QCoreApplication::processEvents();
    EXPECT_EQ(field->text(), "abc" + QString(252, 'x'));
    EXPECT_EQ(answer.given, 1);
    EXPECT_EQ(answer.text, "O texto tem 300 caracteres, mas só couberam 252: o campo leva no máximo 255.\n"
                           "O texto inteiro está na área de transferência.");
    EXPECT_EQ(QApplication::clipboard()->text(), text);
}

TEST_F(TextBoxTest, APastedTextThatFitsIsNotTold)
{
    auto* field = shown<TextBox>();
    field->setMaxLength(5);
    QApplication::clipboard()->setText("12345");
    const Answer answer("OK");
    field->setText("abc");
    field->selectAll();
    field->paste();
    QCoreApplication::processEvents();
    EXPECT_EQ(field->text(), "12345");
    EXPECT_EQ(answer.given, 0);
}

TEST_F(TextBoxTest, ATextPastedOverASelectionCountsWhatGoes)
{
    auto* field = shown<TextBox>();
    field->setMaxLength(5);
    QApplication::clipboard()->setText("123456");
    Answer answer("OK");
    field->setText("abcde");
    field->setSelection(1, 3);
    field->paste(); // as the context menu does
    QCoreApplication::processEvents();
    EXPECT_EQ(field->text(), "a123e");
    EXPECT_TRUE(answer.text.contains("só couberam 3")) << answer.text.toStdString();
}

TEST_F(TextBoxTest, ADroppedTextThatDoesNotFitIsToldAndTheClipboardHasTheWhole)
{
    auto* field = shown<TextBox>();
    field->setMaxLength(5);
    QApplication::clipboard()->setText("outro");
    Answer answer("OK");
    QMimeData dragged;
    dragged.setText("12345678");
    QDropEvent drop(QPointF(2, 2), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    static_cast<QObject*>(field)->event(&drop); // without the drag that comes before
    QCoreApplication::processEvents();
    EXPECT_EQ(field->text(), "12345");
    EXPECT_EQ(answer.given, 1);
    EXPECT_EQ(QApplication::clipboard()->text(), "12345678");
}

TEST_F(TextBoxTest, AComposedTextThatDoesNotFitIsTold)
{
    auto* field = shown<TextBox>();
    field->setMaxLength(5);
    Answer answer("OK");
    QInputMethodEvent composed;
    composed.setCommitString("abcdefg");
    QApplication::sendEvent(field, &composed);
    QCoreApplication::processEvents();
    EXPECT_EQ(field->text(), "abcde");
    EXPECT_EQ(answer.given, 1);
}

TEST_F(TextBoxTest, AKeyTooManyBringsNoBox)
{
    auto* field = shown<TextBox>();
    field->setMaxLength(3);
    const Answer answer("OK");
    QTest::keyClicks(field, "abcde");
    QCoreApplication::processEvents();
    EXPECT_EQ(field->text(), "abc");
    EXPECT_EQ(answer.given, 0);
}

TEST_F(TextBoxTest, NoCharacterOfTwoUnitsIsCutInHalf)
{
    auto* field = shown<TextBox>();
    field->setMaxLength(4);
    Answer answer("OK");
    QApplication::clipboard()->setText(QString::fromUtf8("abc🙂"));
    field->paste();
    QCoreApplication::processEvents();
    EXPECT_EQ(field->text(), "abc");
}

TEST_F(TextBoxTest, AKeyTooManyLeavesHalfACharacterThatWasStored)
{
    auto* field = shown<TextBox>();
    field->setMaxLength(3);
    const QString text = QString("ab") + QChar(0xD83D);
    field->setText(text);
    QTest::keyClick(field, Qt::Key_End);
    QTest::keyClicks(field, "x");
    QCoreApplication::processEvents();
    EXPECT_TRUE(field->text() == text);
}

TEST_F(TextBoxTest, ATextOfTheProgramIsGivenBackWholeWhateverItsLength)
{
    auto* field = shown<TextBox>();
    field->setMaxLength(255);
    for (const int length : {300, 32767, 32768, 1000000}) {
        const QString text = QString(length - 1, 'x') + QChar(0xA0);
        field->setText(text);
        field->repaint();
        EXPECT_LE(field->displayText().size(), 32767) << "more takes too long to lay out";
        EXPECT_TRUE(field->text() == text) << length;
    }
    field->setText("Ana");
    EXPECT_EQ(field->text(), "Ana");
    field->setText(QString(400, 'x'));
    field->clear();
    EXPECT_EQ(field->text(), "");
}

TEST_F(TextBoxTest, WhatIsNotShownOfALongLineStaysBehindWhateverIsDeletedOrTyped)
{
    auto* field = shown<TextBox>();
    window.statusBar();
    field->setMaxLength(255);
    const QString text = QString(32767, 'x') + "fim";
    field->setText(text);
    EXPECT_EQ(window.statusBar()->currentMessage().toStdString(),
              "O texto é demasiado longo para ser mostrado todo: o resto mantém-se.");
    QTest::keyClick(field, Qt::Key_End);
    QTest::keyClick(field, Qt::Key_Backspace);
    EXPECT_TRUE(field->text() == QString(32766, 'x') + "fim");
    QTest::keyClicks(field, "y");
    EXPECT_TRUE(field->text() == QString(32766, 'x') + "yfim");
    field->selectAll();
    QTest::keyClicks(field, "Ana");
    EXPECT_EQ(field->text(), "Anafim");
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    EXPECT_EQ(field->text(), "");
    field->undo();
    EXPECT_EQ(field->text(), "Anafim");
    field->clear();
    QTest::keyClicks(field, "Rita");
    EXPECT_EQ(field->text(), "Rita");
    const QString pairs = "a" + QString::fromUtf8("🙂").repeated(20000); // one of them across the end of the line
    field->setText(pairs);
    QTest::keyClick(field, Qt::Key_End);
    EXPECT_FALSE(field->displayText().back().isHighSurrogate());
    EXPECT_TRUE(field->text() == pairs);
}
