#include "platform/forms/modes.h"

#include "forms/house.h"

namespace {

const QColor blue(192, 192, 255), white(Qt::white), peach(255, 192, 128);

const QList<ModeRow> table{
    {"txtNome", {Effect::Open, blue}, {Effect::Shut, white}, {Effect::Open, peach}},
    {"cmbEC", {Effect::Open, blue}, {Effect::Shut, white}, {}},
    {"optSexo_0", {Effect::Open}, {Effect::Shut}, {Effect::Keep, peach}},
    {"mskData", {Effect::Enabled}, {Effect::Disabled}, {Effect::Disabled}},
    {"cmdLocDat", {Effect::Hidden}, {Effect::Hidden}, {Effect::Visible}},
};

class ModesTest : public House
{
protected:
    ModesTest()
    {
        form = make("frmA", [this](TestForm& made) {
            name = made.put<TextBox>("txtNome");
            list = made.put<ComboBox>("cmbEC");
            radio = made.put<OptionButton>("optSexo_0");
            date = made.put<MaskedEdit>("mskData");
            button = made.put<CommandButton>("cmdLocDat");
        });
        form->display();
    }

    TestForm* form = nullptr;
    TextBox* name = nullptr;
    ComboBox* list = nullptr;
    OptionButton* radio = nullptr;
    MaskedEdit* date = nullptr;
    CommandButton* button = nullptr;
};

} // namespace

TEST_F(ModesTest, EachModeAppliesItsColumn)
{
    applyMode(form, table, Modo::Cons);
    EXPECT_TRUE(name->isLocked());
    EXPECT_TRUE(name->isEnabled());
    EXPECT_TRUE(list->isLocked());
    EXPECT_FALSE(radio->isEnabled());
    EXPECT_FALSE(date->isEnabled());
    EXPECT_TRUE(button->isHidden());
    EXPECT_EQ(backColor(name), white);

    applyMode(form, table, Modo::Edi);
    EXPECT_FALSE(name->isLocked());
    EXPECT_FALSE(list->isLocked());
    EXPECT_TRUE(radio->isEnabled());
    EXPECT_TRUE(date->isEnabled());
    EXPECT_EQ(backColor(list), blue);

    applyMode(form, table, Modo::Loc);
    EXPECT_FALSE(date->isEnabled());
    EXPECT_FALSE(button->isHidden());
    EXPECT_EQ(backColor(name), peach);
}

TEST_F(ModesTest, ACellThatKeepsLeavesTheControlAsItWas)
{
    applyMode(form, table, Modo::Cons);
    applyMode(form, table, Modo::Loc);
    EXPECT_TRUE(list->isLocked());
    EXPECT_EQ(backColor(list), white);
    EXPECT_FALSE(radio->isEnabled());
    EXPECT_EQ(backColor(radio), peach);
}

TEST_F(ModesTest, ADateShutUnderTheFocusIsNotLeft)
{
    applyMode(form, table, Modo::Edi);
    Focus::watch(date, {}, [] { ADD_FAILURE() << "left"; });
    Focus::setTo(date);
    applyMode(form, table, Modo::Cons);
    EXPECT_FALSE(date->hasFocus());
    Focus::setTo(name);
}

// Looking for fifty controls by their names costs more than all that is done to them.
TEST_F(ModesTest, TheControlsAreLookedForOnce)
{
    applyMode(form, table, Modo::Cons);
    name->setObjectName("txtOutro");
    applyMode(form, table, Modo::Edi);
    EXPECT_FALSE(name->isLocked());
}

TEST_F(ModesTest, EachFormHasItsOwnControlsAndMayHaveSeveralTables)
{
    const QList<ModeRow> other{{"txtNome", {Effect::Disabled}, {Effect::Enabled}}};
    applyMode(form, table, Modo::Cons);
    applyMode(form, other, Modo::Edi);
    EXPECT_FALSE(name->isEnabled());
    EXPECT_TRUE(name->isLocked());
    for (int again = 0; again < 3; ++again) {
        TestForm second("frmB");
        auto* nome = second.put<TextBox>("txtNome");
        applyMode(&second, other, Modo::Edi);
        EXPECT_FALSE(nome->isEnabled());
    }
    applyMode(form, other, Modo::Cons);
    EXPECT_TRUE(name->isEnabled());
}

TEST_F(ModesTest, AControlThatIsShutMayApplyOtherTables)
{
    QList<QList<ModeRow>> others;
    for (int i = 0; i < 50; ++i)
        others << QList<ModeRow>{{"cmdLocDat", {Effect::Visible}, {Effect::Hidden}}};
    struct Shut : QObject
    {
        std::function<void()> then;
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == QEvent::EnabledChange) then();
            return false;
        }
    } watch;
    watch.then = [&] {
        for (const QList<ModeRow>& other : others)
            applyMode(form, other, Modo::Edi);
    };
    applyMode(form, table, Modo::Edi);
    radio->installEventFilter(&watch);
    applyMode(form, table, Modo::Cons);
    EXPECT_FALSE(date->isEnabled());
    EXPECT_TRUE(button->isHidden()) << "by the table's last line, behind the others";
}

TEST_F(ModesTest, AControlThatTheFormLacksStopsTheProgram)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(applyMode(form, {{"txtNada", {}, {}, {}}}, Modo::Edi), "frmA has no control txtNada");
}
