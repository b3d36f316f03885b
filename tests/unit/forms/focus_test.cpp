#include "forms/house.h"

#include "platform/forms/msgbox.h"

#include <QMenuBar>

namespace {

class FocusTest : public House
{
protected:
    FocusTest()
    {
        form = make("frmA", [this](TestForm& made) {
            first = made.put<TextBox>("txtPrimeiro");
            date = made.put<MaskedEdit>("mskData");
            button = made.put<CommandButton>("cmdIns");
            button->setText(QStringLiteral("&Inserir"));
            check = made.put<QCheckBox>("chk");
            check->setText(QStringLiteral("Data Fixa?"));
            last = made.put<TextBox>("txtFim");
        });
        for (QWidget* field : {static_cast<QWidget*>(first), static_cast<QWidget*>(date), static_cast<QWidget*>(button),
                               static_cast<QWidget*>(check), static_cast<QWidget*>(last)})
            note(field, {});
        QObject::connect(button, &QPushButton::clicked, [this] { log << "click"; });
        form->display();
        QCoreApplication::processEvents();
        log.clear();
    }

    void note(QWidget* field, const std::function<void()>& onLeave)
    {
        const QString name = field->objectName();
        Focus::watch(
            field, [this, name] { log << "+" + name; },
            [this, name, onLeave] {
                log << "-" + name;
                if (onLeave) onLeave();
            });
    }

    static void click(QWidget* control) { QTest::mouseClick(control, Qt::LeftButton); }
    // By way of the window system, as a hand on the mouse does it.
    void clickThroughWindow(QWidget* control)
    {
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, control->mapTo(&window, control->rect().center()));
        QCoreApplication::processEvents();
    }

    TestForm* form = nullptr;
    TextBox* first = nullptr;
    MaskedEdit* date = nullptr;
    CommandButton* button = nullptr;
    QCheckBox* check = nullptr;
    TextBox* last = nullptr;
    QStringList log;
};

} // namespace

TEST_F(FocusTest, ShowingAFormPutsTheFocusOnItsFirstField)
{
    EXPECT_EQ(QApplication::focusWidget(), first);
}

TEST_F(FocusTest, LeavingComesBeforeEntering)
{
    click(date);
    QTest::keyClick(date, Qt::Key_Tab);
    EXPECT_EQ(log, QStringList({"-txtPrimeiro", "+mskData", "-mskData", "+cmdIns"}));
}

TEST_F(FocusTest, AFieldIsLeftBeforeTheClickOfTheButton)
{
    click(date);
    log.clear();
    click(button);
    EXPECT_EQ(log, QStringList({"-mskData", "+cmdIns", "click"}));
}

TEST_F(FocusTest, AClickArrivesAlthoughABoxCameUpOnTheWay)
{
    note(date, [] { showMessage("03 ----09", Icon::None, ""); });
    for (const bool throughWindow : {false, true}) {
        click(date);
        log.clear();
        Answer answer("OK");
        throughWindow ? clickThroughWindow(button) : click(button);
        QCoreApplication::processEvents();
        EXPECT_EQ(answer.given, 1);
        EXPECT_EQ(log, QStringList({"-mskData", "+cmdIns", "click"})) << throughWindow;
        EXPECT_FALSE(button->isDown());
    }
}

TEST_F(FocusTest, AClickIsLostWhereTheLeaveRoutineTakesTheFocusBack)
{
    note(date, [this] {
        showMessage("Deve inserir uma data!");
        Focus::setTo(date);
    });
    for (const bool throughWindow : {false, true}) {
        click(date);
        log.clear();
        Answer answer("OK");
        throughWindow ? clickThroughWindow(button) : click(button);
        QCoreApplication::processEvents();
        EXPECT_EQ(answer.given, 1);
        EXPECT_EQ(log, QStringList({"-mskData", "+mskData"})) << throughWindow;
        EXPECT_TRUE(date->hasFocus());
        EXPECT_FALSE(button->isDown());
    }
}

TEST_F(FocusTest, AClickArrivesWhereTheLeaveRoutineAsksForItThoughItTakesTheFocusBack)
{
    note(date, [this] {
        showMessage("Deve inserir uma data!");
        Focus::setTo(date);
        Focus::keepClick();
    });
    for (const bool byKey : {false, true}) {
        click(date);
        log.clear();
        Answer answer("OK");
        if (byKey)
            QTest::keyClick(date, Qt::Key_I, Qt::AltModifier);
        else
            clickThroughWindow(button);
        QCoreApplication::processEvents();
        EXPECT_EQ(answer.given, 1);
        EXPECT_EQ(log, QStringList({"-mskData", "+mskData", "click"})) << byKey;
        EXPECT_TRUE(date->hasFocus());
        EXPECT_FALSE(button->isDown());
    }
}

TEST_F(FocusTest, AClickIsLostWhereTheLeaveRoutineShutsTheButton)
{
    note(date, [this] {
        showMessage("03 ----09");
        button->setEnabled(false);
    });
    click(date);
    log.clear();
    Answer answer("OK");
    clickThroughWindow(button);
    EXPECT_EQ(log.filter("click"), QStringList());
    EXPECT_FALSE(button->isDown());
}

TEST_F(FocusTest, ACheckBoxIsTickedAlthoughABoxCameUpOnTheWay)
{
    note(date, [] { showMessage("03 ----09"); });
    click(date);
    Answer answer("OK");
    clickThroughWindow(check);
    EXPECT_TRUE(check->isChecked());
}

TEST_F(FocusTest, TheKeyboardLeavesAFieldAsTheMouseDoes)
{
    note(date, [this] {
        showMessage("Deve inserir uma data!");
        Focus::setTo(date);
    });
    click(date);
    log.clear();
    Answer answer("OK");
    QTest::keyClick(date, Qt::Key_Tab);
    EXPECT_EQ(log, QStringList({"-mskData", "+mskData"}));
    QCoreApplication::processEvents();
    EXPECT_TRUE(date->hasFocus());
    QTest::keyClicks(QApplication::focusWidget(), "09");
    EXPECT_EQ(date->text(), "09/__/____");
}

TEST_F(FocusTest, ABoxOfTheProgramLeavesNothing)
{
    click(date);
    log.clear();
    Answer answer("OK");
    showMessage("Deve inserir o nome!");
    QCoreApplication::processEvents();
    EXPECT_EQ(log, QStringList());
    EXPECT_TRUE(date->hasFocus());
    Focus::setTo(first);
    EXPECT_EQ(log, QStringList({"-mskData", "+txtPrimeiro"}));
}

TEST_F(FocusTest, TheFocusMovesAtOnceBehindABox)
{
    click(date);
    log.clear();
    Answer answer("OK");
    showMessage("Deve inserir o nome!");
    Focus::setTo(first); // the window isn't active again yet
    EXPECT_EQ(log, QStringList({"-mskData", "+txtPrimeiro"}));
    QCoreApplication::processEvents();
    EXPECT_EQ(log, QStringList({"-mskData", "+txtPrimeiro"}));
    EXPECT_TRUE(first->hasFocus());
}

TEST_F(FocusTest, AnotherWindowOfTheDesktopLeavesNothing)
{
    click(date);
    log.clear();
    QWidget other;
    other.show();
    other.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_EQ(log, QStringList());
    EXPECT_TRUE(date->hasFocus());
}

TEST_F(FocusTest, APopupLeavesNothing)
{
    auto* combo = form->put<ComboBox>("cmbLoc");
    combo->add("Sé -F- 030101");
    note(combo, {});
    Focus::setTo(combo);
    log.clear();
    combo->showPopup();
    QCoreApplication::processEvents();
    combo->hidePopup();
    QCoreApplication::processEvents();
    EXPECT_EQ(log, QStringList());
}

TEST_F(FocusTest, AFieldDisabledUnderTheFocusIsNotLeftNorIsAnyOther)
{
    note(date, [] { ADD_FAILURE() << "a date field was left"; });
    Focus::setTo(date);
    log.clear();
    date->setEnabled(false);
    EXPECT_EQ(log, QStringList());
    EXPECT_EQ(QApplication::focusWidget(), form);
    date->setEnabled(true);
    Focus::setTo(last);
    EXPECT_EQ(log, QStringList("+txtFim"));
}

TEST_F(FocusTest, TheFocusPassesByADateFieldWhenTheFieldBeforeItIsDisabled)
{
    Focus::setTo(first);
    log.clear();
    first->setEnabled(false);
    EXPECT_EQ(log, QStringList());
    QTest::keyClick(form, Qt::Key_Tab);
    EXPECT_EQ(log, QStringList("+mskData"));
}

TEST_F(FocusTest, AHiddenFieldIsNotLeft)
{
    Focus::setTo(date);
    log.clear();
    date->hide();
    EXPECT_EQ(log, QStringList());
    EXPECT_EQ(QApplication::focusWidget(), form);
}

TEST_F(FocusTest, ReleasingTheFocusLeavesTheField)
{
    Focus::setTo(date);
    log.clear();
    Focus::release();
    EXPECT_EQ(log, QStringList("-mskData"));
    EXPECT_EQ(QApplication::focusWidget(), form);
}

TEST_F(FocusTest, AnAcceleratorMovesTheFocusAndThenClicks)
{
    click(date);
    log.clear();
    QTest::keyClick(date, Qt::Key_I, Qt::AltModifier);
    EXPECT_EQ(log, QStringList({"-mskData", "+cmdIns", "click"}));
}

TEST_F(FocusTest, AnAcceleratorDoesNotClickWhereTheFocusWasTakenBack)
{
    note(date, [this] {
        showMessage("Deve inserir uma data!");
        Focus::setTo(date);
    });
    click(date);
    log.clear();
    Answer answer("OK");
    QTest::keyClick(date, Qt::Key_I, Qt::AltModifier);
    QTest::qWait(150);
    EXPECT_EQ(log, QStringList({"-mskData", "+mskData"}));
}

TEST_F(FocusTest, ReturnClicksTheButtonThatHasTheFocus)
{
    Focus::setTo(button);
    log.clear();
    QTest::keyClick(button, Qt::Key_Return);
    QTest::keyClick(button, Qt::Key_Space);
    EXPECT_EQ(log, QStringList({"click", "click"}));
}

TEST_F(FocusTest, AClickBesideTheFieldsMovesNothing)
{
    auto* label = form->put<QLabel>("lbl");
    QCoreApplication::processEvents();
    Focus::setTo(date);
    log.clear();
    clickThroughWindow(label);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, form->mapTo(&window, QPoint(2, 2)));
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, form->parentWidget()->mapTo(&window, QPoint(60, 8)));
    QCoreApplication::processEvents();
    EXPECT_EQ(log, QStringList());
    EXPECT_TRUE(date->hasFocus());
}

TEST_F(FocusTest, MovingToAnotherFormLeavesTheField)
{
    TestForm* other = make("frmB", [](TestForm& made) { made.put<TextBox>("txtOutro"); });
    Focus::setTo(date);
    log.clear();
    other->display();
    EXPECT_EQ(log, QStringList("-mskData"));
    form->display();
    EXPECT_EQ(log, QStringList({"-mskData", "+mskData"}));
}

TEST_F(FocusTest, AFieldOfAFormThatIsDisabledIsNotLeft)
{
    TestForm* other = make("frmB", [](TestForm& made) { made.put<TextBox>("txtOutro"); });
    Focus::setTo(date);
    log.clear();
    form->setEnabled(false);
    other->display();
    EXPECT_EQ(log, QStringList());
    other->unload();
    form->setEnabled(true);
    form->setFocusToForm();
    EXPECT_TRUE(date->hasFocus());
    EXPECT_EQ(log, QStringList("+mskData"));
}

TEST_F(FocusTest, AClickInAnotherFormIsLostWhereTheFieldKeepsTheFocus)
{
    CommandButton* there = nullptr;
    TestForm* other = make("frmB", [&](TestForm& made) { there = made.put<CommandButton>("cmdOutro"); });
    other->display();
    other->parentWidget()->move(500, 300);
    form->display();
    note(date, [this] {
        showMessage("Deve inserir uma data!");
        Focus::setTo(date);
    });
    QObject::connect(there, &QPushButton::clicked, [] { ADD_FAILURE() << "clicked"; });
    Focus::setTo(date);
    Answer answer("OK");
    clickThroughWindow(there);
    EXPECT_EQ(answer.given, 1);
    EXPECT_TRUE(form->isActive());
    EXPECT_TRUE(date->hasFocus());
}

TEST_F(FocusTest, ASplashLeavesNothing)
{
    Forms::add("SplashForm", [] { return new TestForm("SplashForm", Form::Window::Own); });
    Focus::setTo(date);
    log.clear();
    Form* splash = Forms::show("SplashForm");
    EXPECT_TRUE(QTest::qWaitForWindowActive(splash));
    splash->unload();
    QCoreApplication::processEvents();
    EXPECT_EQ(log, QStringList());
}

TEST_F(FocusTest, ALetterThatSeveralButtonsBearMeansTheNextOpenOneBehindTheFocus)
{
    auto* confirm = form->put<CommandButton>("cmdConfirmar");
    confirm->setText(QStringLiteral("conf&Irmar"));
    auto* end = form->put<TextBox>("txtUltimo");
    QObject::connect(confirm, &QPushButton::clicked, [this] { log << "confirm"; });
    QCoreApplication::processEvents();
    Focus::setTo(last);
    log.clear();
    QTest::keyClick(last, Qt::Key_I, Qt::AltModifier);
    EXPECT_EQ(log.last(), "confirm");
    Focus::setTo(end);
    QTest::keyClick(end, Qt::Key_I, Qt::AltModifier);
    EXPECT_EQ(log.last(), "click");
    confirm->setEnabled(false);
    Focus::setTo(last);
    QTest::keyClick(last, Qt::Key_I, Qt::AltModifier);
    EXPECT_EQ(log.last(), "click");
    EXPECT_TRUE(button->hasFocus());
}

TEST_F(FocusTest, ALetterOfAShutButtonOpensNoMenu)
{
    bool opened = false;
    auto* menu = window.menuBar()->addAction(QStringLiteral("&Inverno"));
    QObject::connect(menu, &QAction::triggered, [&] { opened = true; });
    QCoreApplication::processEvents();
    button->setEnabled(false);
    Focus::setTo(first);
    QTest::keyClick(first, Qt::Key_I, Qt::AltModifier);
    EXPECT_FALSE(opened);
    button->hide();
    QTest::keyClick(first, Qt::Key_I, Qt::AltModifier);
    EXPECT_TRUE(opened);
}

TEST_F(FocusTest, TheTabKeyPassesOverWhatIsLocked)
{
    last->setLocked(true);
    Focus::setTo(check);
    QTest::keyClick(check, Qt::Key_Tab);
    EXPECT_TRUE(first->hasFocus());
    QTest::keyClick(first, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(check->hasFocus());
}

TEST_F(FocusTest, TheTabKeyStopsAtTheFirstRadioOfAGroupWithNothingChosenAndElseAtTheOneChosen)
{
    auto* group = form->put<QWidget>("fra");
    auto* row = new QVBoxLayout(group);
    OptionButton* radio[3] = {};
    for (OptionButton*& each : radio)
        row->addWidget(each = new OptionButton(group));
    auto* behind = form->put<TextBox>("txtDepois");
    QCoreApplication::processEvents();
    radio[1]->setFocus();
    radio[1]->setValue(true);
    Focus::setTo(last);
    QTest::keyClick(last, Qt::Key_Tab);
    EXPECT_TRUE(radio[1]->hasFocus());
    radio[1]->setValue(false);
    Focus::setTo(last);
    QTest::keyClick(last, Qt::Key_Tab);
    EXPECT_TRUE(radio[0]->hasFocus());
    QTest::keyClick(radio[0], Qt::Key_Tab);
    EXPECT_TRUE(behind->hasFocus());
    QTest::keyClick(behind, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(radio[0]->hasFocus());
    radio[0]->setEnabled(false);
    Focus::setTo(last);
    QTest::keyClick(last, Qt::Key_Tab);
    EXPECT_TRUE(radio[1]->hasFocus());
}

TEST_F(FocusTest, WhatHasTheFocusIsScrolledIntoSight)
{
    TestForm* tall = make("frmAlto", [](TestForm& made) {
        made.put<TextBox>("txtCima");
        made.put<QLabel>("lbl")->setMinimumSize(1500, 1200);
        made.put<TextBox>("txtBaixo");
    });
    tall->display();
    QCoreApplication::processEvents();
    auto* low = tall->findChild<TextBox*>("txtBaixo");
    auto* high = tall->findChild<TextBox*>("txtCima");
    const auto top = [this](const QWidget* field) { return field->mapTo(area->viewport(), QPoint()).y(); };
    EXPECT_GT(top(low), area->viewport()->height());
    QTest::keyClick(high, Qt::Key_Tab);
    EXPECT_TRUE(low->hasFocus());
    EXPECT_LE(top(low) + low->height(), area->viewport()->height());
    Focus::setTo(high);
    EXPECT_GE(top(high), 0);
}

TEST_F(FocusTest, AMaskedDateEnteredByTheTabKeyIsReplacedByWhatIsTyped)
{
    QTest::keyClicks(date, "09031750");
    Focus::setTo(first);
    QTest::keyClick(first, Qt::Key_Tab);
    EXPECT_TRUE(date->hasFocus());
    QTest::keyClicks(date, "1");
    EXPECT_EQ(date->text(), "1_/__/____");
}

TEST_F(FocusTest, AClickOnAMaskedDateSelectsItsPart)
{
    QTest::keyClicks(date, "09031750");
    const auto clickAt = [this](const char* before) {
        const int x = date->fontMetrics().horizontalAdvance(QLatin1String(before)) + 6;
        QTest::mouseClick(date, Qt::LeftButton, {}, QPoint(x, date->height() / 2));
        return date->selectedText();
    };
    EXPECT_EQ(clickAt("0"), "09");
    EXPECT_EQ(clickAt("09/0"), "03");
    EXPECT_EQ(clickAt("09/03/17"), "1750");
    QTest::keyClicks(date, "1812");
    EXPECT_EQ(date->text(), "09/03/1812");
}

TEST_F(FocusTest, ATextEnteredByTheTabKeyIsSelected)
{
    last->setText(QStringLiteral("Maria"));
    Focus::setTo(check);
    QTest::keyClick(check, Qt::Key_Tab);
    EXPECT_TRUE(last->hasFocus());
    EXPECT_EQ(last->selectedText(), "Maria");
}
