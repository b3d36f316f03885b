// What the user does while the program is busy.
#include "platform/forms/longwork.h"

#include "forms/house.h"

#include <QStatusBar>

namespace {

class Painted : public QWidget
{
public:
    using QWidget::QWidget;
    int times = 0;

protected:
    void paintEvent(QPaintEvent*) override { ++times; }
};

class ALongWork : public House
{
protected:
    ALongWork()
    {
        form = make("frmA", [this](TestForm& each) {
            text = each.put<TextBox>("txt");
            button = each.put<CommandButton>("cmd");
            button->setText("&Mais");
            painted = new Painted(&each);
            painted->setFixedSize(20, 20);
            each.layout()->addWidget(painted);
        });
        form->display();
        text->setFocus();
        QObject::connect(button, &QPushButton::clicked, [this] { text->setText(text->text() + "!"); });
        window.statusBar()->showMessage("antes");
        QApplication::processEvents();
    }

    // As the desktop sends it: to the window, which knows the field.
    void press(int key, const QString& letters = {}, Qt::KeyboardModifiers modifiers = {})
    {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
            QCoreApplication::postEvent(window.windowHandle(), new QKeyEvent(type, key, modifiers, letters));
    }

    Form* form = nullptr;
    TextBox* text = nullptr;
    CommandButton* button = nullptr;
    Painted* painted = nullptr;
};

} // namespace

TEST_F(ALongWork, IsEndedByEscapeAndKeepsTheOtherKeysForLater)
{
    press(Qt::Key_A, "a");
    press(Qt::Key_Escape);
    press(Qt::Key_B, "b");
    EXPECT_TRUE(LongWork::escapePressed());
    EXPECT_FALSE(LongWork::escapePressed());
    press(Qt::Key_C, "c");
    EXPECT_FALSE(LongWork::escapePressed());
    EXPECT_EQ(text->text(), "");
    LongWork::ended();
    EXPECT_EQ(text->text(), "");
    QApplication::processEvents();
    EXPECT_EQ(text->text(), "abc");
}

TEST_F(ALongWork, LetsNoClickAndNoShortcutActInItsMiddle)
{
    press(Qt::Key_A, "a");
    press(Qt::Key_M, "m", Qt::AltModifier);
    const QPoint place = button->mapTo(&window, button->rect().center());
    const auto post = [&](QEvent::Type type, Qt::MouseButtons buttons) {
        QCoreApplication::postEvent(window.windowHandle(), new QMouseEvent(type, place, window.mapToGlobal(place),
                                                                           Qt::LeftButton, buttons, Qt::NoModifier));
    };
    post(QEvent::MouseButtonPress, Qt::LeftButton);
    post(QEvent::MouseButtonRelease, Qt::NoButton);
    EXPECT_FALSE(LongWork::escapePressed());
    EXPECT_EQ(text->text(), "");
    LongWork::ended();
    QApplication::processEvents();
    EXPECT_EQ(text->text(), "a!!");
}

TEST_F(ALongWork, PaintsNothingThatMightReadTheStore)
{
    auto* inBar = new Painted;
    inBar->setFixedSize(20, 10);
    window.statusBar()->addPermanentWidget(inBar);
    QApplication::processEvents();
    const int before = painted->times;
    const int beforeInBar = inBar->times;
    painted->update();
    EXPECT_FALSE(LongWork::escapePressed());
    LongWork::tell("A operação continua.");
    EXPECT_EQ(painted->times, before);
    EXPECT_GT(inBar->times, beforeInBar);
    LongWork::ended();
    QApplication::processEvents();
    EXPECT_GT(painted->times, before);
}

TEST_F(ALongWork, TellsInTheStatusBarAndBringsBackWhatStoodThere)
{
    LongWork::tell("A operação continua.");
    EXPECT_EQ(window.statusBar()->currentMessage(), "A operação continua.");
    LongWork::tell("A operação continua ainda.");
    LongWork::ended();
    EXPECT_EQ(window.statusBar()->currentMessage(), "antes");
    LongWork::ended();
    EXPECT_EQ(window.statusBar()->currentMessage(), "antes");
}

TEST_F(ALongWork, OutlivesAFormThatAKeyWasTypedFor)
{
    press(Qt::Key_A, "a");
    EXPECT_FALSE(LongWork::escapePressed());
    form->unload();
    LongWork::ended();
    QApplication::processEvents();
    EXPECT_FALSE(LongWork::escapePressed());
    LongWork::ended();
}

namespace {

// Work that shows in the form how far it is, with the button as its cancel.
class AWorkWithItsCancel : public ALongWork
{
protected:
    void post(QEvent::Type type, const QPoint& place, Qt::MouseButtons buttons)
    {
        QCoreApplication::postEvent(window.windowHandle(), new QMouseEvent(type, place, window.mapToGlobal(place),
                                                                           Qt::LeftButton, buttons, Qt::NoModifier));
    }
    void click(const QWidget* control)
    {
        const QPoint place = control->mapTo(&window, control->rect().center());
        post(QEvent::MouseButtonPress, place, Qt::LeftButton);
        post(QEvent::MouseButtonRelease, place, Qt::NoButton);
    }
    bool cancelled() { return LongWork::cancelled(*form, *button); }

    ~AWorkWithItsCancel() override
    {
        LongWork::ended();
        QApplication::processEvents();
    }
};

} // namespace

TEST_F(AWorkWithItsCancel, IsEndedByAClickOnItWhichClicksNothing)
{
    EXPECT_FALSE(cancelled());
    click(button);
    EXPECT_TRUE(cancelled());
    EXPECT_FALSE(cancelled());
    LongWork::ended();
    QApplication::processEvents();
    EXPECT_EQ(text->text(), "");
}

TEST_F(AWorkWithItsCancel, IsEndedByEscapeByItsLetterAndByReturnWhereItHasTheFocus)
{
    press(Qt::Key_Escape);
    EXPECT_TRUE(cancelled());
    press(Qt::Key_M, "m", Qt::AltModifier);
    EXPECT_TRUE(cancelled());
    press(Qt::Key_Return, "\r");
    EXPECT_FALSE(cancelled());
    button->setFocus();
    press(Qt::Key_Return, "\r");
    EXPECT_TRUE(cancelled());
}

TEST_F(AWorkWithItsCancel, GoesOnWhereThePointerIsPressedOrReleasedElsewhere)
{
    const QPoint place = button->mapTo(&window, button->rect().center());
    post(QEvent::MouseButtonRelease, place, Qt::NoButton);
    EXPECT_FALSE(cancelled());
    post(QEvent::MouseButtonPress, place, Qt::LeftButton);
    post(QEvent::MouseButtonRelease, text->mapTo(&window, QPoint(2, 2)), Qt::NoButton);
    EXPECT_FALSE(cancelled());
    click(text);
    EXPECT_FALSE(cancelled());
}

TEST_F(AWorkWithItsCancel, PaintsWhatShowsItAndNothingElse)
{
    auto* outside = new Painted;
    outside->setFixedSize(20, 10);
    window.statusBar()->addPermanentWidget(outside);
    QApplication::processEvents();
    const int before = painted->times;
    const int beforeOutside = outside->times;
    painted->update();
    outside->update();
    EXPECT_FALSE(cancelled());
    EXPECT_GT(painted->times, before);
    EXPECT_EQ(outside->times, beforeOutside);
}

TEST_F(AWorkWithItsCancel, KeepsTheKeysForLaterAndNoClick)
{
    press(Qt::Key_A, "a");
    auto* other = new CommandButton(form);
    other->resize(20, 20);
    other->show();
    int clicked = 0;
    QObject::connect(other, &QPushButton::clicked, [&] { ++clicked; });
    click(other);
    EXPECT_FALSE(cancelled());
    LongWork::ended();
    QApplication::processEvents();
    EXPECT_EQ(clicked, 0);
    EXPECT_EQ(text->text(), "a");
}
