#include "forms/house.h"

#include "platform/forms/msgbox.h"

#include <QLabel>
#include <QTabWidget>

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
            last = made.put<TextBox>("txtFim");
        });
        for (QWidget* field : {static_cast<QWidget*>(first), static_cast<QWidget*>(date), static_cast<QWidget*>(button),
                               static_cast<QWidget*>(check), static_cast<QWidget*>(last)})
            note(field, {});
        QObject::connect(button, &QPushButton::clicked, [this] { log << "click"; });
        form->display();
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
