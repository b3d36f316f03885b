#include "shell/frmORV.h"

#include "forms/house.h"

namespace {

// The main window, with forms that stand for those of the passports and the residences.
class Passports : public testing::Test
{
protected:
    Passports()
    {
        window.show();
        add("frmPass", "Passaportes", "cmbDados_1");
        add("frmInd", "Indivíduo", "cmbLoc");
        add("frmResid", "Residências do indivíduo", "cmbLoc");
        add("frmFam", "Família", "cmbLoc");
    }
    ~Passports() override { Forms::clear(); }

    void add(const QString& name, const QString& caption, const char* combo)
    {
        Forms::add(name, [=] {
            auto* form = new TestForm(name);
            form->setCaption(caption);
            form->put<ComboBox>(combo);
            return form;
        });
    }

    void chooseMenu() { window.findChild<QAction*>("mnuPass")->trigger(); }

    static ComboBox& combo(const QString& form, const QString& name)
    {
        return *Forms::find(form)->findChild<ComboBox*>(name);
    }

    FrmORV window;
};

} // namespace

TEST_F(Passports, OpenBesideTheCardOfAnIndividual)
{
    Forms::show("frmInd");
    chooseMenu();
    EXPECT_TRUE(Forms::isLoaded("frmPass"));
}

TEST_F(Passports, DoNothingWhileTheCardIsHiddenOrWaits)
{
    Forms::show("frmInd")->conceal();
    chooseMenu();
    Forms::show("frmInd")->setEnabled(false);
    chooseMenu();
    EXPECT_FALSE(Forms::isLoaded("frmPass"));
}

TEST_F(Passports, GoByTheFormLoadedLastAndNotByTheActiveOne)
{
    Forms::show("frmInd");
    Forms::show("frmFam");
    Forms::show("frmInd");
    chooseMenu();
    EXPECT_FALSE(Forms::isLoaded("frmPass"));
}

TEST_F(Passports, TakeThePlaceOfTheResidence)
{
    Forms::show("frmResid");
    combo("frmResid", "cmbLoc").add("Agadão -F- 010101");
    combo("frmResid", "cmbLoc").setListIndex(0);
    chooseMenu();
    ASSERT_TRUE(Forms::isLoaded("frmPass"));
    EXPECT_EQ(combo("frmPass", "cmbDados_1").count(), 1);
    EXPECT_EQ(combo("frmPass", "cmbDados_1").list(0), "Agadão -F- 010101");
}

TEST_F(Passports, WithNoPlaceChosenAddNone)
{
    Forms::show("frmResid");
    chooseMenu();
    ASSERT_TRUE(Forms::isLoaded("frmPass"));
    EXPECT_EQ(combo("frmPass", "cmbDados_1").count(), 0);
}
