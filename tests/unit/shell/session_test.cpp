// What the main window tells of the session, and what becomes of errors that nobody has handled.
#include "shell/frmORV.h"

#include "control.h"
#include "forms/house.h"
#include "platform/jet/database.h"
#include "shell/beginSession.h"
#include "shell/startup.h"
#include "store/frmBack.h"
#include "store/modBD.h"
#include "store/session.h"
#include "store/sessionChange.h"

#include <QTemporaryDir>

#include <stdexcept>

namespace {

// The main window over a BDP with its parish.
class Session : public testing::Test
{
protected:
    Session()
    {
        jet::createDatabase(path);
        jet::Connection bdp;
        bdp.open(path);
        CriaTabelas(bdp, ORV_DATA_DIR "/CriarTab.dat");
        bdp.execute("insert into infopar (cod, nome, pais) values ('030101', 'São Mamede', 'PT')");
        bdp.close();
        registerForms();
        window.show();
        window.Form_Load(path);
    }
    ~Session() override
    {
        Forms::clear();
        cnBDP.close();
        beginSession();
    }

    QTemporaryDir folder;
    QString path = folder.filePath("a.orv");
    FrmORV window;
};

const QString titulo = QString::fromUtf8(longTitle) + "São Mamede";

} // namespace

TEST_F(Session, AMaximizedCardLeavesTheCaptionAlone)
{
    Forms::find("frmFam")->parentWidget()->showMaximized();
    ASSERT_NE(window.windowTitle(), titulo);
    EXPECT_EQ(sessionCaption(), titulo);
    window.findChild<QAction*>("mnuBack")->trigger();
    EXPECT_TRUE(control<QLabel>(frmBack(), "Label1").text().endsWith(" BDP: São Mamede"));
}

TEST_F(Session, TheCaptionThatChangesBehindAMaximizedCardIsThatOfTheWindowAfterIt)
{
    Forms::find("frmFam")->parentWidget()->showMaximized();
    setSessionCaption("ORV / BDP: Arga");
    Forms::find("frmFam")->unload();
    EXPECT_EQ(window.windowTitle(), "ORV / BDP: Arga");
}

TEST_F(Session, AnErrorThatIsNotTheStoresIsToldAndTheProgramGoesOn)
{
    struct Broken : QObject
    {
        bool event(QEvent*) override { throw std::runtime_error("avaria"); }
    } broken;
    Answer answer("OK");
    QEvent event(QEvent::User);
    QCoreApplication::sendEvent(&broken, &event);
    EXPECT_EQ(answer.text,
              "Ocorreu o erro 51\nErro interno do programa: o que estava a ser feito não foi levado até ao fim.");
    EXPECT_FALSE(programEnding());
}
