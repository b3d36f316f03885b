#include "forms/house.h"

#include <QAccessible>
#include <QMdiSubWindow>
#include <QScrollBar>
#include <QTabWidget>

#include <functional>

namespace {

class FormsTest : public House
{
protected:
    static QMdiSubWindow* frameOf(Form* form) { return qobject_cast<QMdiSubWindow*>(form->parentWidget()); }

    static void oneField(TestForm& form) { form.put<TextBox>("txtNome"); }

    static QStringList names()
    {
        QStringList result;
        for (const QWidget* window : Forms::loaded())
            result << window->objectName();
        return result;
    }

    static void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

} // namespace

TEST_F(FormsTest, FormsStandInTheOrderOfTheirLoadingBehindTheMainWindow)
{
    TestForm* b = make("frmB");
    make("frmA");
    b->display();
    Forms::show("frmB");
    EXPECT_EQ(names(), QStringList({"frmORV", "frmB", "frmA"}));
    b->conceal();
    EXPECT_EQ(names(), QStringList({"frmORV", "frmB", "frmA"}));
    b->unload();
    EXPECT_EQ(names(), QStringList({"frmORV", "frmA"}));
    Forms::load("frmB");
    EXPECT_EQ(names(), QStringList({"frmORV", "frmA", "frmB"}));
}

TEST_F(FormsTest, ANameWithoutAFormDoesNothing)
{
    EXPECT_EQ(Forms::show("frmFam"), nullptr);
    EXPECT_EQ(Forms::load("frmFam"), nullptr);
    EXPECT_FALSE(Forms::exists("frmFam"));
    make("frmA");
    EXPECT_EQ(Forms::find("FRMA"), nullptr);
}

TEST_F(FormsTest, LoadingDoesNotShow)
{
    TestForm* form = make("frmA");
    EXPECT_FALSE(form->isShown());
    form->display();
    EXPECT_TRUE(form->isShown());
    EXPECT_TRUE(form->isActive());
}

TEST_F(FormsTest, AnErrorInTheLoadUndoesItAndGoesOnToTheCaller)
{
    Forms::add("frmA", [] {
        auto* form = new TestForm("frmA");
        form->onLoad = [] { throw std::runtime_error("sem ligação"); };
        return form;
    });
    EXPECT_THROW(Forms::show("frmA"), std::runtime_error);
    EXPECT_FALSE(Forms::isLoaded("frmA"));
    settle();
    EXPECT_TRUE(area->subWindowList().isEmpty());
}

TEST_F(FormsTest, AHiddenFormComesBackWhereItStoodAndAsLargeAsItWas)
{
    TestForm* form = make("frmA", oneField);
    form->display();
    frameOf(form)->setGeometry(120, 90, 400, 300);
    form->conceal();
    EXPECT_FALSE(form->isShown());
    EXPECT_FALSE(frameOf(form)->isVisible());
    form->display();
    EXPECT_EQ(frameOf(form)->geometry(), QRect(120, 90, 400, 300));
}

TEST_F(FormsTest, AFormIsFirstAsLargeAsItsContentsWant)
{
    TestForm* form = make("frmA", [](TestForm& made) { made.put<QLabel>("lbl")->setMinimumSize(340, 210); });
    form->display();
    EXPECT_EQ(form->size(), form->sizeHint());
}

TEST_F(FormsTest, TheAreaScrollsToAFormThatIsLargerThanItself)
{
    TestForm* form = make("frmA", [](TestForm& made) { made.put<QLabel>("lbl")->setMinimumSize(1500, 900); });
    form->display();
    QCoreApplication::processEvents();
    EXPECT_GE(form->width(), 1500);
    EXPECT_TRUE(area->findChild<QScrollBar*>() != nullptr);
    bool scrolls = false;
    for (const QScrollBar* bar : area->findChildren<QScrollBar*>())
        scrolls |= bar->isVisible() && bar->maximum() > 0;
    EXPECT_TRUE(scrolls);
}

TEST_F(FormsTest, TheCloseBoxAsksTheFormAndMayBeRefused)
{
    QList<Form::UnloadMode> asked;
    bool agrees = false;
    TestForm* form = make("frmA");
    form->onQuery = [&](Form::UnloadMode mode) { return asked << mode, agrees; };
    form->display();
    frameOf(form)->close();
    EXPECT_TRUE(Forms::isLoaded("frmA"));
    EXPECT_TRUE(form->isShown());
    agrees = true;
    frameOf(form)->close();
    EXPECT_FALSE(Forms::isLoaded("frmA"));
    EXPECT_EQ(asked, QList({Form::UnloadMode::ControlMenu, Form::UnloadMode::ControlMenu}));
    settle();
    EXPECT_TRUE(area->subWindowList().isEmpty());
}

TEST_F(FormsTest, TheCloseBoxOfADisabledFormDoesNothing)
{
    TestForm* form = make("frmA");
    form->display();
    form->setEnabled(false);
    frameOf(form)->close();
    EXPECT_TRUE(Forms::isLoaded("frmA"));
}

TEST_F(FormsTest, AFormMayUnloadItselfInItsOwnHandler)
{
    CommandButton* button = nullptr;
    TestForm* form = make("frmA", [&](TestForm& made) { button = made.put<CommandButton>("cmdFechar"); });
    QPointer<Form> watched = form;
    QObject::connect(button, &QPushButton::clicked, form, [form] {
        form->unload();
        EXPECT_FALSE(Forms::isLoaded("frmA"));
        EXPECT_FALSE(form->isShown());
        EXPECT_EQ(form->caption(), "");
    });
    form->display();
    QTest::mouseClick(button, Qt::LeftButton);
    settle();
    EXPECT_TRUE(watched.isNull());
}

TEST_F(FormsTest, AFormUnloadedAndTouchedAgainIsANewOne)
{
    Form* form = make("frmA");
    form->unload();
    EXPECT_NE(Forms::load("frmA"), form);
}

TEST_F(FormsTest, UnloadingAllAsksInTheOrderOfLoadingAndTakesWhatTheUnloadsLoad)
{
    QStringList gone;
    const auto leaves = [&](TestForm& form) { form.onUnload = [&gone, &form] { gone << form.name(); }; };
    make("frmA", leaves)->onUnload = [&] {
        gone << "frmA";
        EXPECT_TRUE(Forms::isUnloadingAll());
        Forms::load("frmC");
    };
    make("frmB", leaves);
    make("frmC", leaves);
    Forms::find("frmC")->unload();
    gone.clear();
    Forms::unloadAll();
    EXPECT_EQ(gone, QStringList({"frmA", "frmB", "frmC"}));
    EXPECT_EQ(names(), QStringList("frmORV"));
    EXPECT_FALSE(Forms::isUnloadingAll());
}

TEST_F(FormsTest, UnloadingAllLeavesAFormThatRefuses)
{
    QList<Form::UnloadMode> asked;
    make("frmA")->onQuery = [&](Form::UnloadMode mode) { return asked << mode, false; };
    make("frmB");
    Forms::unloadAll(Form::UnloadMode::Application);
    EXPECT_EQ(names(), QStringList({"frmORV", "frmA"}));
    EXPECT_EQ(asked, QList({Form::UnloadMode::Application}));
}

TEST_F(FormsTest, TheFormBelowBecomesActiveWhenOneIsHiddenOrUnloaded)
{
    for (const bool unloads : {false, true}) {
        TestForm* below = make("frmA", oneField);
        TestForm* above = make("frmB", oneField);
        make("frmC")->conceal();
        below->display();
        above->display();
        unloads ? static_cast<void>(above->unload()) : above->conceal();
        QCoreApplication::processEvents();
        EXPECT_TRUE(below->isActive()) << unloads;
        EXPECT_TRUE(below->isAncestorOf(QApplication::focusWidget())) << unloads;
    }
}

TEST_F(FormsTest, AFormGetsTheFocusBackOnTheControlThatHadIt)
{
    CommandButton* button = nullptr;
    TestForm* caller = make("frmA", [&](TestForm& form) {
        oneField(form);
        button = form.put<CommandButton>("cmdLoc");
    });
    TestForm* called = make("frmB", oneField);
    caller->display();
    Focus::setTo(button);
    caller->setEnabled(false);
    called->display();
    EXPECT_FALSE(button->hasFocus());
    called->unload();
    caller->setEnabled(true);
    caller->setFocusToForm();
    EXPECT_TRUE(caller->isActive());
    EXPECT_TRUE(button->hasFocus());
}

TEST_F(FormsTest, ADisabledFormKeepsItsTitleBar)
{
    TestForm* form = make("frmA", oneField);
    form->display();
    form->setEnabled(false);
    EXPECT_TRUE(frameOf(form)->isEnabled());
    EXPECT_FALSE(form->findChild<QWidget*>("txtNome")->isEnabled());
}

TEST_F(FormsTest, ADisabledFormIsShownAllTheSame)
{
    TestForm* form = make("frmA", oneField);
    form->setEnabled(false);
    form->display();
    EXPECT_TRUE(form->isShown());
    EXPECT_FALSE(form->isEnabled());
}

TEST_F(FormsTest, AClickOnADisabledFormDoesNotBringItToTheFront)
{
    TestForm* caller = make("frmA", oneField);
    TestForm* called = make("frmB", oneField);
    caller->display();
    frameOf(caller)->move(0, 0);
    called->display();
    frameOf(called)->move(300, 300);
    caller->setEnabled(false);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, frameOf(caller)->mapTo(&window, QPoint(40, 8)));
    EXPECT_TRUE(called->isActive());
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, caller->mapTo(&window, caller->rect().center()));
    EXPECT_TRUE(called->isActive());
    caller->setEnabled(true);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, frameOf(caller)->mapTo(&window, QPoint(40, 8)));
    EXPECT_TRUE(caller->isActive());
}

TEST_F(FormsTest, TheCaptionStandsInTheTitleBar)
{
    TestForm* form = make("frmA");
    form->setCaption("Localização");
    EXPECT_EQ(frameOf(form)->windowTitle(), "Localização");
}

TEST_F(FormsTest, AFormOfItsOwnStandsInTheMiddleOfTheScreen)
{
    Forms::add("SplashForm", [] {
        auto* form = new TestForm("SplashForm", Form::Window::Own);
        form->put<QLabel>("lblEst")->setMinimumSize(300, 100);
        return form;
    });
    Form* splash = Forms::show("SplashForm");
    EXPECT_TRUE(splash->isWindow());
    EXPECT_TRUE(splash->isShown());
    const QPoint off = splash->geometry().center() - splash->screen()->availableGeometry().center();
    EXPECT_LE(off.manhattanLength(), 2);
    EXPECT_EQ(names(), QStringList({"frmORV", "SplashForm"}));
    splash->unload();
    EXPECT_EQ(names(), QStringList("frmORV"));
}

TEST_F(FormsTest, AFormStandsBesideItsCallerOrAStepOffWhollyWithinTheArea)
{
    const auto drawn = [](int width, int height) { return [=](TestForm& form) { form.resize(width, height); }; };
    TestForm* card = make("frmA", drawn(500, 400));
    card->display();
    EXPECT_EQ(frameOf(card)->pos(), QPoint(0, 0));
    TestForm* beside = make("frmB", drawn(300, 300));
    beside->display();
    EXPECT_EQ(frameOf(beside)->x(), frameOf(card)->geometry().right() + 1);
    card->display();
    TestForm* large = make("frmC", drawn(700, 500));
    large->display();
    EXPECT_TRUE(area->viewport()->rect().contains(frameOf(large)->geometry()));
    EXPECT_GT(frameOf(large)->x(), 0);
    EXPECT_GT(frameOf(large)->y(), 0);
    TestForm* huge = make("frmD", drawn(3000, 2000));
    huge->display();
    EXPECT_EQ(frameOf(huge)->geometry(), area->viewport()->rect());
}

TEST_F(FormsTest, AFormThatWouldCoverItsCallerStepsAside)
{
    const auto drawn = [](int width, int height) { return [=](TestForm& form) { form.resize(width, height); }; };
    TestForm* picker = make("frmA", drawn(600, 500));
    picker->display();
    picker->conceal();
    TestForm* caller = make("frmB", drawn(400, 300));
    caller->display();
    frameOf(caller)->move(10, 10);
    picker->display();
    EXPECT_FALSE(frameOf(picker)->geometry().contains(frameOf(caller)->geometry()));
    frameOf(picker)->move(0, 0); // and while it stands behind its caller
    caller->display();
    picker->display();
    EXPECT_FALSE(frameOf(picker)->geometry().contains(frameOf(caller)->geometry()));
    const QRect there = frameOf(picker)->geometry();
    frameOf(caller)->move(there.topLeft());
    caller->display();
    caller->onUnload = [picker] { picker->display(); }; // not for a caller that goes
    caller->unload();
    EXPECT_EQ(frameOf(picker)->geometry(), there);
}

TEST_F(FormsTest, AListOpensOnItsRowsAndAnEmptyOneOnItsCommand)
{
    struct List : TestForm
    {
        using TestForm::opensOn;
        using TestForm::TestForm;
    };
    for (const int rows : {0, 3}) {
        Forms::add("frmLista", [=] {
            auto* form = new List("frmLista");
            form->put<TextBox>("txt");
            auto* command = form->put<CommandButton>("cmd");
            auto* grid = form->put<Grid>("dtg");
            grid->setCols(1);
            grid->setRows(rows);
            form->opensOn(grid, command);
            return form;
        });
        Form* form = Forms::show("frmLista");
        EXPECT_EQ(QApplication::focusWidget()->objectName(), rows > 0 ? "dtg" : "cmd");
        form->unload();
        settle();
    }
}

TEST_F(FormsTest, AControlIsNamedByItsLabels)
{
    TestForm* form = make("frmA", [](TestForm& made) {
        auto* field = made.put<TextBox>("txtIdade");
        for (const char* text : {"&Pai:", "Idade"}) {
            auto* label = made.put<QLabel>("lbl");
            label->setText(QLatin1String(text));
            label->setBuddy(field);
        }
        auto* named = made.put<TextBox>("txtNome");
        named->setAccessibleName("Nome completo");
        auto* label = made.put<QLabel>("lblNome");
        label->setText("Nome");
        label->setBuddy(named);
    });
    EXPECT_EQ(form->findChild<TextBox*>("txtIdade")->accessibleName(), "Pai Idade");
    EXPECT_EQ(form->findChild<TextBox*>("txtNome")->accessibleName(), "Nome completo");
}

TEST_F(FormsTest, AListIsToldByALabelBesideItWhichNobodySeesWhereThereIsNone)
{
    TestForm* form = make("frmA", [](TestForm& made) {
        made.put<ComboBox>("cmbMoeda")->setAccessibleName("Moeda do valor total");
        auto* label = made.put<QLabel>("lblEC");
        label->setText("Estado civil");
        auto* named = made.put<ComboBox>("cmbEC");
        named->setAccessibleName("Estado civil da mãe");
        label->setBuddy(named);
    });
    form->display();
    const auto labels = [form](const char* list) {
        QStringList names;
        auto* item = QAccessible::queryAccessibleInterface(form->findChild<ComboBox*>(list));
        for (const auto& label : item->relations(QAccessible::Label))
            names << label.first->text(QAccessible::Name);
        return names;
    };
    EXPECT_EQ(labels("cmbMoeda"), QStringList("Moeda do valor total"));
    EXPECT_EQ(labels("cmbEC"), QStringList("Estado civil da mãe"));
    EXPECT_EQ(form->findChild<QLabel*>("lblEC")->text(), "Estado civil");
    for (const auto* label : form->findChildren<QLabel*>())
        EXPECT_EQ(label->isVisible(), label->objectName() == "lblEC");
}

namespace {

double inALargeFont(const std::function<double()>& measured)
{
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSizeF(2 * before.pointSizeF());
    QApplication::setFont(large);
    const double found = measured();
    QApplication::setFont(before);
    return found;
}

} // namespace

TEST_F(FormsTest, AFieldHoldsAsManyLettersInALargeFont)
{
    const auto digits = [this] {
        TestForm* form = make("frmA", [](TestForm& made) {
            auto* field = made.put<TextBox>("txtNum");
            field->setMinimumWidth(80);
            field->setMaximumWidth(80);
        });
        const auto* field = form->findChild<TextBox*>("txtNum");
        const double fit = field->maximumWidth() / QFontMetricsF(field->font()).horizontalAdvance('0');
        form->unload();
        settle();
        return fit;
    };
    EXPECT_GT(inALargeFont(digits), 0.85 * digits());
}

TEST_F(FormsTest, AListShowsAsManyRowsInALargeFont)
{
    const auto rows = [this] {
        TestForm* form = make("frmA", [](TestForm& made) { made.put<Grid>("dtg")->setMinimumHeight(56); });
        const auto* grid = form->findChild<Grid*>("dtg");
        const double fit = double(grid->minimumHeight()) / grid->fontMetrics().height();
        form->unload();
        settle();
        return fit;
    };
    EXPECT_GT(inALargeFont(rows), 0.85 * rows());
}
