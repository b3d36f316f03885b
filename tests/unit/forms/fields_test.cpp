#include "forms/house.h"

#include <QClipboard>
#include <QSignalSpy>

namespace {

class Fields : public House
{
protected:
    // A shown and focused control on a form.
    template <class Control>
    Control* shown()
    {
        Control* control = nullptr;
        make("frmA", [&](TestForm& form) { control = form.put<Control>("campo"); })->display();
        QCoreApplication::processEvents();
        Focus::setTo(control);
        return control;
    }
};

class MaskedEditTest : public Fields
{
};

class MemoBoxTest : public Fields
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

TEST_F(MemoBoxTest, LineBreaksAreCarriageReturnAndLineFeed)
{
    auto* memo = shown<MemoBox>();
    memo->setText("um\ndois\r\ntrês\rquatro");
    EXPECT_EQ(memo->text(), "um\r\ndois\r\ntrês\r\nquatro");
    QTest::keyClick(memo, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClick(memo, Qt::Key_Return);
    QTest::keyClicks(memo, "5");
    EXPECT_EQ(memo->text(), "um\r\ndois\r\ntrês\r\nquatro\r\n5");
    memo->clear();
    EXPECT_EQ(memo->text(), "");
}

TEST_F(MemoBoxTest, TheLimitHoldsForTypingPastingAndTheProgram)
{
    auto* memo = shown<MemoBox>();
    memo->setMaxLength(5);
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
    memo->setText("123456789");
    EXPECT_EQ(memo->text(), "12345");
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
