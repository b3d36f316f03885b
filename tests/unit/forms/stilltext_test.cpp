#include "platform/forms/stilltext.h"

#include "forms/house.h"

#include <QHBoxLayout>
#include <QLabel>

namespace {

class AStillText : public House
{
protected:
    // How often the form was laid out.
    struct Layouts : QObject
    {
        int count = 0;
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == QEvent::LayoutRequest) ++count;
            return false;
        }
    };

    AStillText()
    {
        auto* row = new QHBoxLayout(&form);
        row->addWidget(label);
        row->addWidget(neighbour);
        row->addStretch();
        label->setMinimumWidth(56);
        form.resize(900, 60);
        form.show();
        shown("1");
        form.installEventFilter(&layouts);
    }

    void shown(const QString& text)
    {
        setStillText(label, text);
        QCoreApplication::processEvents();
    }

    QWidget form;
    QLabel* label = new QLabel;
    QLabel* neighbour = new QLabel("de");
    Layouts layouts;
};

TEST_F(AStillText, DoesNotLayTheWindowOut)
{
    const int place = neighbour->x();
    for (const char* text : {"2", "999", "100000", "", "7"}) {
        shown(text);
        EXPECT_EQ(label->text(), text);
    }
    EXPECT_EQ(layouts.count, 0);
    EXPECT_EQ(neighbour->x(), place);
    EXPECT_EQ(label->width(), 56);
}

TEST_F(AStillText, IsNeverCut)
{
    for (const int letters : {20, 5, 70, 20, 1}) {
        shown(QString(letters, u'W'));
        EXPECT_GE(label->width(), label->fontMetrics().horizontalAdvance(label->text())) << letters;
        EXPECT_GE(label->height(), label->fontMetrics().height());
        EXPECT_GE(neighbour->x(), label->geometry().right());
    }
    EXPECT_GT(layouts.count, 0);
}

TEST_F(AStillText, GivesBackTheRoomOfALongOne)
{
    shown(QString(70, u'W'));
    const int most = label->width();
    shown("1");
    EXPECT_LT(label->width(), most);
    EXPECT_LE(label->width(), 250);
}

} // namespace
