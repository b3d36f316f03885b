#include "platform/forms/dressing.h"

#include "forms/house.h"

#include <QMdiSubWindow>
#include <QPalette>

namespace {

class Dressed : public House
{
protected:
    ~Dressed() override { QApplication::setPalette(before_); }

private:
    QPalette before_ = QApplication::palette();
};

} // namespace

TEST_F(Dressed, AButtonTellsTheKeysThatItsCaptionDoesNotShow)
{
    CommandButton* points = nullptr;
    CommandButton* lettered = nullptr;
    CommandButton* none = nullptr;
    make("frmA", [&](TestForm& form) {
        points = form.put<CommandButton>("cmdLoc");
        points->setText("...");
        points->setShortcut(QKeySequence("Alt+L"));
        points->setToolTip("Escolher o ficheiro.");
        lettered = form.put<CommandButton>("cmdOk");
        lettered->setText("&Guardar");
        lettered->setToolTip("Guardar já.");
        none = form.put<CommandButton>("cmdC");
        none->setText("Cancelar");
    });
    EXPECT_EQ(points->toolTip(), "Escolher o ficheiro (Alt+L)");
    EXPECT_EQ(points->text(), "...");
    EXPECT_EQ(lettered->toolTip(), "Guardar já.");
    EXPECT_EQ(none->toolTip(), "");
}

TEST_F(Dressed, AFieldThatADialogFillsIsLikeTheWindowOnEveryDesktop)
{
    TextBox* path = nullptr;
    TextBox* name = nullptr;
    make("frmA", [&](TestForm& form) {
        path = form.put<TextBox>("txtLoc");
        path->setProperty("looksLocked", true);
        name = form.put<TextBox>("txtNome");
    })->display();
    const auto expectLocked = [&] {
        EXPECT_LT(contrast(backColor(path), QApplication::palette().color(QPalette::Window)), 1.3);
        EXPECT_NE(backColor(path), backColor(name));
        EXPECT_GE(contrast(path->palette().color(QPalette::Text), backColor(path)), 4.5);
        EXPECT_EQ(backColor(name), QApplication::palette().color(QPalette::Base));
    };
    expectLocked();
    QPalette dark(QColor(49, 54, 59));
    dark.setColor(QPalette::Base, QColor(35, 38, 41));
    QApplication::setPalette(dark);
    QCoreApplication::processEvents();
    expectLocked();
}

TEST_F(Dressed, TheFrameOfAFormHasAQuestionMarkAndItsOtherButtons)
{
    const Qt::WindowFlags frame = qobject_cast<QMdiSubWindow*>(make("frmA")->parentWidget())->windowFlags();
    for (const auto button : {Qt::WindowContextHelpButtonHint, Qt::WindowCloseButtonHint, Qt::WindowMinimizeButtonHint,
                              Qt::WindowMaximizeButtonHint, Qt::WindowSystemMenuHint})
        EXPECT_TRUE(frame.testFlag(button));
}
