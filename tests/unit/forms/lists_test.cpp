#include "forms/house.h"

#include <QSignalSpy>

namespace {

class ComboBoxTest : public House
{
protected:
    ComboBoxTest()
    {
        make("frmA", [this](TestForm& form) {
            combo = form.put<ComboBox>("cmbEC");
            other = form.put<TextBox>("txtNome");
        })->display();
        QCoreApplication::processEvents();
        combo->add("  ");
        combo->add("Solteiro", 1);
        combo->add("Casado", 5);
        combo->add("Casado", 7);
        Focus::setTo(combo);
        QObject::connect(combo, &ComboBox::clicked, [this] { ++clicks; });
    }

    void wheel(QWidget* target)
    {
        QWheelEvent event(QPointF(5, 5), target->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(target, &event);
    }

    ComboBox* combo = nullptr;
    TextBox* other = nullptr;
    int clicks = 0;
};

} // namespace

TEST_F(ComboBoxTest, NothingIsChosenAfterEntriesWereAdded)
{
    EXPECT_EQ(combo->listIndex(), -1);
    EXPECT_EQ(combo->text(), "");
    EXPECT_EQ(combo->itemData(-1), 0);
    EXPECT_EQ(clicks, 0);
}

// A card has a dozen lists, and most are never opened.
TEST_F(ComboBoxTest, APopupIsMadeWhenTheListIsOpened)
{
    const auto popups = [&] { return combo->findChildren<QAbstractItemView*>().size(); };
    combo->setListIndex(1);
    combo->setLocked(true);
    combo->setLocked(false);
    setBackColor(combo, Qt::white);
    combo->grab();
    EXPECT_EQ(popups(), 0);
    combo->showPopup();
    EXPECT_EQ(popups(), 1);
    combo->hidePopup();
}

TEST_F(ComboBoxTest, ItsSizeFollowsTheFontAndNotTheEntries)
{
    for (const int points : {9, 18}) {
        QFont font = combo->font();
        font.setPointSize(points);
        combo->setFont(font);
        QComboBox twelve;
        twelve.setFont(font);
        twelve.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        twelve.setMinimumContentsLength(12);
        EXPECT_EQ(combo->sizeHint(), twelve.sizeHint()) << points;
        EXPECT_EQ(combo->minimumSizeHint(), twelve.minimumSizeHint()) << points;
        combo->add(QString(200, 'x'));
        EXPECT_EQ(combo->sizeHint(), twelve.sizeHint()) << points;
    }
}

TEST_F(ComboBoxTest, AnEntryHasATextAndANumber)
{
    EXPECT_EQ(combo->add("Viúvo", 9), 4);
    EXPECT_EQ(combo->list(4), "Viúvo");
    EXPECT_EQ(combo->itemData(4), 9);
    EXPECT_EQ(combo->itemData(0), 0);
    combo->setItemData(0, 3);
    EXPECT_EQ(combo->itemData(0), 3);
}

TEST_F(ComboBoxTest, AddingKeepsTheChoice)
{
    combo->setListIndex(2);
    combo->add("Viúvo", 9);
    EXPECT_EQ(combo->listIndex(), 2);
}

TEST_F(ComboBoxTest, TheProgramsChoiceClicksOnceWhereTheIndexChanges)
{
    combo->setListIndex(2);
    EXPECT_EQ(clicks, 1);
    combo->setListIndex(2);
    EXPECT_EQ(clicks, 1);
    combo->setListIndex(-1);
    EXPECT_EQ(clicks, 2);
}

TEST_F(ComboBoxTest, AnIndexBeyondTheEntriesChoosesNone)
{
    combo->setListIndex(2);
    combo->setListIndex(99);
    EXPECT_EQ(combo->listIndex(), -1);
    combo->clear();
    combo->setListIndex(0);
    EXPECT_EQ(combo->listIndex(), -1);
}

TEST_F(ComboBoxTest, SettingTheTextChoosesTheFirstEntryWithIt)
{
    combo->setText("Casado");
    EXPECT_EQ(combo->listIndex(), 2);
    combo->setText("casado");
    EXPECT_EQ(combo->listIndex(), -1);
}

TEST_F(ComboBoxTest, ClearingRaisesNothing)
{
    combo->setListIndex(1);
    clicks = 0;
    combo->clear();
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(combo->count(), 0);
    EXPECT_EQ(combo->listIndex(), -1);
    EXPECT_EQ(combo->text(), "");
}

TEST_F(ComboBoxTest, TheUsersChoiceClicksAlsoOnTheSameEntry)
{
    combo->setListIndex(1);
    clicks = 0;
    for (int again = 0; again < 2; ++again) {
        combo->showPopup();
        QTest::keyClick(combo->view(), Qt::Key_Return);
    }
    EXPECT_EQ(combo->listIndex(), 1);
    EXPECT_EQ(clicks, 2);
}

TEST_F(ComboBoxTest, TheKeysChooseAndClick)
{
    QTest::keyClick(combo, Qt::Key_Down);
    EXPECT_EQ(combo->listIndex(), 0);
    QTest::keyClicks(combo, "C");
    EXPECT_EQ(combo->text(), "Casado");
    EXPECT_EQ(clicks, 2);
}

TEST_F(ComboBoxTest, ALockedListKeepsItsChoiceWhateverTheUserDoes)
{
    combo->setListIndex(1);
    combo->setLocked(true);
    clicks = 0;
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_End, Qt::Key_F4, Qt::Key_Space,
                              Qt::Key_Return, Qt::Key_C})
        QTest::keyClick(combo, key);
    QTest::keyClick(combo, Qt::Key_Down, Qt::AltModifier);
    QTest::mouseClick(combo, Qt::LeftButton);
    wheel(combo);
    combo->showPopup();
    EXPECT_EQ(combo->listIndex(), 1);
    EXPECT_EQ(clicks, 0);
    EXPECT_FALSE(combo->view()->isVisible());
    EXPECT_TRUE(combo->hasFocus());
    EXPECT_TRUE(combo->isEnabled());
    combo->setListIndex(2);
    EXPECT_EQ(combo->listIndex(), 2);
    EXPECT_EQ(clicks, 1);
    combo->setLocked(false);
    QTest::keyClick(combo, Qt::Key_Up);
    EXPECT_EQ(combo->listIndex(), 1);
}

TEST_F(ComboBoxTest, ALockedListLetsTheTabAndTheAcceleratorsPass)
{
    combo->setLocked(true);
    QTest::keyClick(combo, Qt::Key_Tab);
    EXPECT_TRUE(other->hasFocus());
}

TEST_F(ComboBoxTest, TheWheelDoesNotMoveTheFocus)
{
    Focus::setTo(other);
    wheel(combo);
    EXPECT_TRUE(other->hasFocus());
}

TEST_F(ComboBoxTest, TheWheelChangesNoChoiceOfAListThatItMerelyPassesOver)
{
    combo->setListIndex(1);
    Focus::setTo(other);
    wheel(combo);
    EXPECT_EQ(combo->listIndex(), 1);
    Focus::setTo(combo);
    wheel(combo);
    EXPECT_EQ(combo->listIndex(), 2);
}

TEST_F(ComboBoxTest, ALongEntryDoesNotWidenTheForm)
{
    const int before = combo->sizeHint().width();
    combo->add(QString(300, 'm'));
    EXPECT_EQ(combo->sizeHint().width(), before);
}

TEST(ListBoxTest, ItsEntriesAreThoseOfACombo)
{
    ListBox list;
    int clicks = 0;
    QObject::connect(&list, &ListBox::clicked, [&] { ++clicks; });
    EXPECT_EQ(list.add("Sé -F- 030101"), 0);
    EXPECT_EQ(list.add("Braga -C- 0301", 4), 1);
    EXPECT_EQ(list.listCount(), 2);
    EXPECT_EQ(list.listIndex(), -1);
    EXPECT_EQ(list.list(1), "Braga -C- 0301");
    EXPECT_EQ(list.itemData(1), 4);
    EXPECT_EQ(list.itemData(-1), 0);
    EXPECT_EQ(list.list(-1), "");
    list.setListIndex(1);
    EXPECT_EQ(clicks, 1);
    list.removeItem(1);
    EXPECT_EQ(list.listIndex(), -1);
    EXPECT_EQ(list.listCount(), 1);
}

TEST(OptionButtonTest, TheProgramCanSwitchAllOff)
{
    QWidget frame;
    auto* m = new OptionButton(&frame);
    auto* f = new OptionButton(&frame);
    m->setValue(true);
    f->setValue(true);
    EXPECT_FALSE(m->isChecked());
    f->setValue(false);
    EXPECT_FALSE(f->isChecked());
    EXPECT_TRUE(f->autoExclusive());
    m->setValue(false);
    EXPECT_FALSE(m->isChecked());
}
