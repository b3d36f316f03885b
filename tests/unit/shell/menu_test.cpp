#include "shell/frmORV.h"

#include "attributes/frmPass.h"
#include "attributes/frmResid.h"
#include "control.h"
#include "individuals/frmInd.h"
#include "platform/forms/forms.h"
#include "platform/jet/database.h"
#include "shell/beginSession.h"
#include "shell/startup.h"
#include "store/modBD.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QTemporaryDir>
#include <QWhatsThis>

namespace {

// The main window over a BDP with one person.
class Passports : public testing::Test
{
protected:
    Passports()
    {
        jet::createDatabase(folder.filePath("a.orv"));
        cnBDP.open(folder.filePath("a.orv"));
        CriaTabelas(cnBDP, ORV_DATA_DIR "/CriarTab.dat");
        cnBDP.execute("insert into individuo (nind, nome) values (7, 'Ana')");
        registerForms();
        window.show();
    }
    ~Passports() override
    {
        Forms::clear();
        cnBDP.close();
        beginSession();
    }

    void chooseMenu() { window.findChild<QAction*>("mnuPass")->trigger(); }

    static ComboBox& residence() { return control<ComboBox>(theForm<FrmResid>(), "cmbLoc"); }
    static QStringList destinations()
    {
        QStringList entries;
        const auto& list = control<ComboBox>(theForm<FrmPass>(), "cmbDados_1");
        for (int i = 0; i < list.count(); ++i)
            entries << list.list(i);
        return entries;
    }

    QTemporaryDir folder;
    FrmORV window;
};

} // namespace

TEST(Menus, HaveEachCommandThatCanBeChosenInTheManual)
{
    QString manual;
    for (const char* chapter : {"10-janela-e-menus.md", "40-estudo.md"}) {
        QFile file(QString(ORV_DATA_DIR "/../docs/manual/") + chapter);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << chapter;
        manual += QString::fromUtf8(file.readAll());
    }
    const FrmORV window;
    int commands = 0;
    for (const QMenu* menu : window.findChildren<QMenu*>())
        for (const QAction* item : menu->actions()) {
            if (item->menu() || item->isSeparator() || !item->isVisible()) continue;
            ++commands;
            EXPECT_TRUE(manual.contains("{#" + item->objectName() + " .comando}") ||
                        manual.contains("\n| \"" + item->text().remove('&') + "\" |"))
                << qPrintable(item->objectName());
        }
    EXPECT_GE(commands, 26);
}

TEST(Menus, StandInTheOrderOfTheWork)
{
    const FrmORV window;
    QStringList captions;
    for (const QAction* menu : window.menuBar()->actions())
        if (menu->isVisible()) captions << menu->text();
    EXPECT_EQ(captions.join(' '), "&BDParoquial &Outras Fontes &Manutenção Es&tudo &Ajuda &Sair");
    const auto at = [&](const char* name) {
        return window.menuBar()->actions().indexOf(window.findChild<QMenu*>(name)->menuAction());
    };
    EXPECT_EQ(at("mnuEstudo"), at("mnuManut") + 1);
    EXPECT_EQ(at("mnuEstudo"), at("mnuRel") - 1);
}

TEST(Menus, TheQuestionMarkOfAFrameAsksForHelpAndLeavesThePointerAsItWas)
{
    FrmORV window;
    int asked = 0;
    QObject::connect(window.findChild<QAction*>("mnuAjudaJanela"), &QAction::triggered, [&] { ++asked; });
    window.findChild<QAction*>("mnuAjudaJanela")->disconnect(&window);
    QWhatsThis::enterWhatsThisMode();
    EXPECT_FALSE(QWhatsThis::inWhatsThisMode());
    QCoreApplication::processEvents();
    EXPECT_EQ(asked, 1);
}

TEST_F(Passports, OpenBesideTheCardOfAnIndividual)
{
    Forms::show("frmInd");
    chooseMenu();
    ASSERT_TRUE(Forms::isLoaded("frmPass"));
    EXPECT_EQ(control<QLabel>(theForm<FrmPass>(), "Label2_2").text(), "Ana");
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

TEST_F(Passports, TakeThePlaceOfThePersonsResidence)
{
    Forms::show("frmInd");
    control<CommandButton>(frmInd(), "cmdResid").click();
    residence().add("Agadão -F- 010101");
    residence().setListIndex(residence().count() - 1);
    chooseMenu();
    ASSERT_TRUE(Forms::isLoaded("frmPass"));
    EXPECT_EQ(destinations(), (QStringList{"  ", "Agadão -F- 010101"}));
}

TEST_F(Passports, WithNoPlaceChosenAddNone)
{
    Forms::show("frmInd");
    control<CommandButton>(frmInd(), "cmdResid").click();
    residence().setListIndex(-1);
    chooseMenu();
    ASSERT_TRUE(Forms::isLoaded("frmPass"));
    EXPECT_EQ(destinations(), QStringList{"  "});
}
