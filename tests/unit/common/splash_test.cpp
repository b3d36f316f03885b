#include "common/splashForm.h"

#include "forms/house.h"

namespace {

class Splash : public House
{
protected:
    Splash()
    {
        Forms::add("SplashForm", [] { return new SplashForm; });
        button = new QPushButton(&window);
        button->show();
        QObject::connect(button, &QPushButton::clicked, button, [this] { ++clicks; });
    }

    QPushButton* button = nullptr;
    int clicks = 0;
};

} // namespace

TEST_F(Splash, ItStandsWithItsVersionAndTheTextOfTheStep)
{
    splashForm().showStep("A criar a BDP.");
    EXPECT_TRUE(splashForm().isShown());
    EXPECT_FALSE(splashForm().ReadyToClose());
    EXPECT_EQ(splashForm().findChild<QLabel*>("lblEst")->text(), "A criar a BDP.");
    EXPECT_EQ(splashForm().findChild<QLabel*>("Label3")->text(), "Versão 1.0.6");
}

TEST_F(Splash, TheWaitIsOverAfterThreeSeconds)
{
    splashForm().showStep("um");
    Clock::pass(std::chrono::seconds(2));
    EXPECT_FALSE(splashForm().ReadyToClose());
    QTimer::singleShot(0, &splashForm(), [] { Clock::pass(std::chrono::seconds(1)); });
    splashForm().waitUntilReady();
    EXPECT_TRUE(splashForm().ReadyToClose());
    EXPECT_TRUE(splashForm().isShown());
}

TEST_F(Splash, EscapeEndsTheWaitAndHidesItWhoeverHasTheKeyboard)
{
    splashForm().showStep("um");
    QTimer::singleShot(0, button, [this] { QTest::keyClick(button, Qt::Key_Escape); });
    splashForm().waitUntilReady();
    EXPECT_TRUE(splashForm().ReadyToClose());
    EXPECT_TRUE(Forms::isLoaded("SplashForm"));
    EXPECT_FALSE(splashForm().isShown());
}

TEST_F(Splash, ClosingItCountsAsEscape)
{
    splashForm().showStep("um");
    QTimer::singleShot(0, &splashForm(), [] { splashForm().close(); });
    splashForm().waitUntilReady();
    EXPECT_TRUE(splashForm().ReadyToClose());
    EXPECT_TRUE(Forms::isLoaded("SplashForm"));
    EXPECT_FALSE(splashForm().isShown());
}

TEST_F(Splash, NothingElseCanBeUsedDuringTheWaitAndEverythingAfterIt)
{
    splashForm().showStep("um");
    QTimer::singleShot(0, button, [this] {
        QTest::mouseClick(button, Qt::LeftButton);
        QTest::keyClick(button, Qt::Key_Space);
        QTest::keyClick(&splashForm(), Qt::Key_Escape);
    });
    splashForm().waitUntilReady();
    EXPECT_EQ(clicks, 0);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}

TEST_F(Splash, ASecondStepUsesTheSplashThatStands)
{
    SplashForm* first = &splashForm();
    first->showStep("um");
    QTest::keyClick(first, Qt::Key_Escape);
    splashForm().showStep("dois");
    EXPECT_EQ(&splashForm(), first);
    EXPECT_TRUE(first->isShown());
    EXPECT_EQ(first->findChild<QLabel*>("lblEst")->text(), "dois");
    splashForm().waitUntilReady(); // the wait is over already
}
