#include "forms/house.h"

#include <QTabBar>
#include <QTabWidget>

namespace {

class PagesTest : public House
{
protected:
    PagesTest()
    {
        form = make("frmA", [this](TestForm& made) {
            head = made.put<TextBox>("txtCabeca");
            pages = made.put<QTabWidget>("SST");
            pages->setMinimumWidth(400);
            for (int i = 0; i < 3; ++i) {
                auto* page = new QWidget;
                auto* layout = new QVBoxLayout(page);
                field[i] = new TextBox;
                field[i]->setObjectName(QStringLiteral("txt%1").arg(i));
                layout->addWidget(field[i]);
                pages->addTab(page, QStringList({"nasci&Mento", "rela&Ções", "ó&Bito"}).at(i));
                Focus::watch(
                    field[i], [this, i] { log << QStringLiteral("+%1").arg(i); },
                    [this, i] {
                        log << QStringLiteral("-%1").arg(i);
                        if (refuse) Focus::setTo(field[i]);
                    });
            }
        });
        form->display();
        QCoreApplication::processEvents();
        Focus::setTo(field[0]);
        log.clear();
    }

    void clickTab(int index)
    {
        QTabBar* bar = pages->tabBar();
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, bar->mapTo(&window, bar->tabRect(index).center()));
    }

    TestForm* form = nullptr;
    TextBox* head = nullptr;
    TextBox* field[3] = {};
    QTabWidget* pages = nullptr;
    bool refuse = false;
    QStringList log;
};

} // namespace

TEST_F(PagesTest, TurningThePageWithTheMouseLeavesTheField)
{
    clickTab(2);
    EXPECT_EQ(log, QStringList("-0"));
    EXPECT_EQ(pages->currentIndex(), 2);
}

TEST_F(PagesTest, TurningThePageWithItsAcceleratorLeavesTheField)
{
    QTest::keyClick(field[0], Qt::Key_B, Qt::AltModifier);
    EXPECT_EQ(log, QStringList("-0"));
    EXPECT_EQ(pages->currentIndex(), 2);
}

TEST_F(PagesTest, ThePageStaysWhereTheFieldKeepsTheFocus)
{
    refuse = true;
    clickTab(2);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_B, Qt::AltModifier);
    EXPECT_EQ(pages->currentIndex(), 0);
    EXPECT_TRUE(field[0]->hasFocus());
    EXPECT_EQ(log, QStringList({"-0", "+0", "-0", "+0"}));
}

TEST_F(PagesTest, SettingTheFocusTurnsToThePageOfTheField)
{
    Focus::setTo(field[2]);
    EXPECT_EQ(pages->currentIndex(), 2);
    EXPECT_TRUE(field[2]->hasFocus());
    EXPECT_EQ(log, QStringList({"-0", "+2"}));
}

TEST_F(PagesTest, TheFocusStaysWhereAPageIsTurnedByTheProgram)
{
    Focus::setTo(head);
    log.clear();
    pages->setCurrentIndex(1);
    EXPECT_TRUE(head->hasFocus());
    EXPECT_EQ(log, QStringList());
}
