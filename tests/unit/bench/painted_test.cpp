// The bare side of a measure paints what the program has painted, no more and no less.
#include "kit/painted.h"

#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>

#include <gtest/gtest.h>

using namespace bench;

namespace {

struct PaintedWindow : testing::Test
{
    PaintedWindow()
    {
        frame.setGeometry(10, 10, 200, 100);
        frame.setAutoFillBackground(true);
        label.setGeometry(5, 5, 80, 20);
        line.setGeometry(5, 40, 80, 20);
        window.resize(300, 200);
        window.show();
        QCoreApplication::processEvents();
    }

    double areaOf(Painted& painted, const std::function<void()>& change)
    {
        painted.start();
        change();
        QCoreApplication::processEvents();
        painted.stop();
        return painted.area();
    }

    QWidget window;
    QFrame frame{&window};
    QLabel label{&frame};
    QLineEdit line{&frame};
    Painted first, again;
};

} // namespace

TEST_F(PaintedWindow, PaintsTheSameRegionsAgain)
{
    const double area = areaOf(first, [&] {
        label.setText("Maria");
        line.setText("12/03/1750");
    });
    EXPECT_GT(area, 0);
    EXPECT_EQ(areaOf(again, [&] { first.askAgain(); }), area) << "what lies behind isn't painted twice";
}

TEST_F(PaintedWindow, PaintsNothingWhereNothingWasPainted)
{
    EXPECT_EQ(areaOf(first, [] {}), 0);
    EXPECT_EQ(areaOf(again, [&] { first.askAgain(); }), 0);
}

TEST_F(PaintedWindow, PaintsTheWholeWhereTheWholeWasPainted)
{
    const double area = areaOf(first, [&] { window.update(); });
    EXPECT_EQ(areaOf(again, [&] { first.askAgain(); }), area);
}

TEST_F(PaintedWindow, PassesOverWhatHasGoneFromTheScreen)
{
    {
        QLabel gone(&frame);
        gone.setGeometry(100, 5, 80, 20);
        areaOf(first, [&] { gone.show(); });
    }
    line.hide();
    QCoreApplication::processEvents();
    first.askAgain();
    QCoreApplication::processEvents();
}
