#include "help/helpKey.h"

#include "forms/house.h"
#include "help/frmManual.h"
#include "help/manualFolder.h"
#include "platform/forms/msgbox.h"

#include <QTextBrowser>

namespace {

class HelpOverABox : public ManualFolder
{
protected:
    HelpOverABox()
    {
        help::installKey();
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    // Brings up a message, looks at it, and closes it.
    static void during(const QString& message, const std::function<void(QMessageBox&)>& look)
    {
        bool looked = false;
        QTimer::singleShot(0, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_TRUE(box);
            look(*box);
            looked = true;
            box->accept();
        });
        showMessage(message);
        EXPECT_TRUE(looked);
    }

    static FrmManual* over(const QMessageBox& box) { return box.findChild<FrmManual*>(); }

    QMainWindow window;
};

} // namespace

TEST_F(HelpOverABox, ShowsWhatTheManualSaysOfTheMessageAndGoesBackToTheBox)
{
    writeAll();
    during("Já existe o código 12.", [](QMessageBox& box) {
        QTest::keyClick(&box, Qt::Key_F1, Qt::ShiftModifier);
        ASSERT_TRUE(over(box));
        EXPECT_TRUE(over(box)->isVisible());
        EXPECT_EQ(QApplication::activeModalWidget(), over(box));
        EXPECT_EQ(over(box)->findChild<QTextBrowser*>()->source().fragment(), "msg-codigo");
        QTest::keyClick(over(box), Qt::Key_F1, Qt::ShiftModifier); // there already
        QTest::keyClick(over(box), Qt::Key_Escape);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_FALSE(over(box));
        EXPECT_TRUE(box.isVisible());
        EXPECT_EQ(QApplication::activeModalWidget(), &box);
    });
}

TEST_F(HelpOverABox, IsGoneWithTheBox)
{
    writeAll();
    QPointer<FrmManual> shown;
    during("O dia não existe.", [&](QMessageBox& box) {
        QTest::keyClick(&box, Qt::Key_F1, Qt::ShiftModifier);
        shown = over(box);
        ASSERT_TRUE(shown);
    });
    EXPECT_TRUE(shown.isNull());
}

TEST_F(HelpOverABox, SaysThatTheManualIsMissingAsF1Does)
{
    during("O dia não existe.", [](QMessageBox& box) {
        Answer answer("OK");
        QTest::keyClick(&box, Qt::Key_F1, Qt::ShiftModifier);
        EXPECT_EQ(answer.text, "Não foi possível encontrar o ficheiro!");
        EXPECT_EQ(answer.icon, QMessageBox::NoIcon);
        EXPECT_FALSE(over(box));
    });
}
