#include "hands.h"

#include "failure.h"
#include "sight.h"

#include "platform/forms/controls.h"
#include "platform/forms/focus.h"
#include "platform/forms/form.h"
#include "platform/forms/forms.h"

#include <QApplication>
#include <QClipboard>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QStyleOptionButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

namespace {

void activate(Stage& stage, QWidget* window)
{
    if (QApplication::activeWindow() == window) return;
    window->activateWindow();
    if (!QTest::qWaitForWindowActive(window, 10000)) fail(window->objectName() + " can't be made the active window");
    stage.settle();
}

void needsForm(Stage& stage, const QWidget* form)
{
    stage.needsProgram();
    if (const QWidget* modal = QApplication::activeModalWidget())
        fail("a dialog stands in front: " + quoted(modal->windowTitle()));
    if (!form->isVisible()) fail(form->objectName() + " isn't shown");
    if (!form->isEnabled()) fail(form->objectName() + " is disabled");
}

// Clicks the tab of the page. Once more where the first click went to a field that was refused, and is empty now.
void turnTo(Stage& stage, QTabWidget* tabs, int index)
{
    for (int time = 0; time < 2 && index != tabs->currentIndex(); ++time) {
        QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->tabBar()->tabRect(index).center());
        stage.settle();
    }
}

// Brings the pages that the control stands on to the front, the outermost first.
void bringToFront(Stage& stage, const Target& target)
{
    QList<QWidget*> pages;
    for (QWidget* widget = target.widget; widget && widget != target.form; widget = widget->parentWidget())
        if (Lookup::tabsOf(widget)) pages.prepend(widget);
    for (QWidget* page : pages) {
        QTabWidget* tabs = Lookup::tabsOf(page);
        const int index = tabs->indexOf(page);
        if (tabs->isTabVisible(index)) turnTo(stage, tabs, index);
        if (index != tabs->currentIndex()) fail(target.name + " is on a page that can't be brought to the front");
    }
}

// Finds the control and sees to it that a person could use it.
Target reach(Stage& stage, const QString& name)
{
    stage.needsProgram();
    const Target target = Lookup::target(name);
    if (!target.widget) fail(name + " is a menu item: choose it with menu");
    needsForm(stage, target.form);
    activate(stage, target.form->window());
    bringToFront(stage, target);
    if (Sight::isHidden(target.widget, target.form)) fail(name + " is hidden");
    if (!target.widget->isEnabled()) fail(name + " is disabled");
    if (!target.widget->isVisible()) fail(name + " isn't in sight");
    return target;
}

bool hasFocus(const Target& target)
{
    return Sight::holds(target, "focused");
}

// Moves the focus to the control, and finds it again after what leaving another field has brought.
Target takeFocus(Stage& stage, const QString& name)
{
    const Target target = reach(stage, name);
    if (target.widget->focusPolicy() == Qt::NoFocus && !target.widget->focusProxy()) return target;
    if (!hasFocus(target)) target.widget->setFocus(Qt::OtherFocusReason);
    stage.settle();
    return reach(stage, name);
}

Target takeFocusForGood(Stage& stage, const QString& name)
{
    Target target = takeFocus(stage, name);
    if (!hasFocus(target)) target = takeFocus(stage, name); // left a field that was refused once and is empty now
    if (!hasFocus(target)) fail(name + " doesn't get the focus");
    return target;
}

void needsOpen(const Target& target)
{
    if (Sight::isLocked(target.widget)) fail(target.name + " is locked");
}

// Where a person clicks it.
void press(QWidget* widget)
{
    QPoint spot = widget->rect().center();
    if (auto* view = qobject_cast<QAbstractItemView*>(widget)) {
        const QModelIndex first = view->model()->index(0, 0, view->rootIndex());
        const QModelIndex index = view->currentIndex().isValid() ? view->currentIndex() : first;
        const QRect row = view->visualRect(index) & view->viewport()->rect();
        widget = view->viewport();
        spot = row.isEmpty() ? widget->rect().center() : row.center();
    } else if (qobject_cast<QCheckBox*>(widget) || qobject_cast<QRadioButton*>(widget)) {
        QStyleOptionButton option;
        option.initFrom(widget);
        const auto part =
            qobject_cast<QCheckBox*>(widget) ? QStyle::SE_CheckBoxIndicator : QStyle::SE_RadioButtonIndicator;
        spot = widget->style()->subElementRect(part, &option, widget).center();
    }
    QTest::mouseClick(widget, Qt::LeftButton, {}, spot);
}

QPoint showItem(QAbstractItemView* view, QModelIndex index)
{
    const auto* table = qobject_cast<QTableView*>(view);
    while (table && table->isColumnHidden(index.column()) && index.siblingAtColumn(index.column() + 1).isValid())
        index = index.siblingAtColumn(index.column() + 1);
    view->scrollTo(index);
    return (view->visualRect(index) & view->viewport()->rect()).center();
}

void typeCharacter(QWidget* field, char32_t character)
{
    if (character == '\n') return QTest::keyClick(field, Qt::Key_Return);
    const QString text = QString::fromUcs4(&character, 1);
    QTest::sendKeyEvent(QTest::Click, field, Qt::Key(text.toUpper().toUcs4().value(0)), text, Qt::NoModifier);
}

void selectAll(const Target& target)
{
    if (auto* memo = qobject_cast<QPlainTextEdit*>(target.widget))
        memo->selectAll();
    else if (auto* line = qobject_cast<QLineEdit*>(target.widget))
        line->selectAll();
    else
        fail(target.name + " is no field to type in");
}

// Replaces what the field holds. Under a mask only the digits are typed: what stands between them is there already.
void replaceText(const Target& target, QString text)
{
    text.replace("\r\n", "\n");
    QWidget* field = target.widget;
    auto* masked = qobject_cast<MaskedEdit*>(field);
    selectAll(target);
    const bool underMask = masked && !masked->mask().isEmpty();
    if (text.isEmpty() || underMask) QTest::keyClick(field, Qt::Key_Delete);
    if (underMask) {
        QTest::keyClick(field, Qt::Key_Home);
        text.remove('/');
    }
    for (const char32_t character : text.toUcs4()) {
        if (underMask && character == '_')
            QTest::keyClick(field, Qt::Key_Right);
        else
            typeCharacter(field, character);
    }
}

bool isWithinReach(const QAction* item)
{
    if (!item->isEnabled() || !item->isVisible()) return false;
    const auto places = item->associatedObjects();
    for (const QObject* place : places) {
        if (qobject_cast<const QMenuBar*>(place)) return true;
        if (const auto* menu = qobject_cast<const QMenu*>(place); menu && isWithinReach(menu->menuAction()))
            return true;
    }
    return false;
}

} // namespace

void Hands::menu(Stage& stage, const QString& name)
{
    stage.needsProgram();
    const Target target = Lookup::item(name);
    needsForm(stage, target.form);
    if (!target.item->isEnabled()) fail(name + " is disabled");
    if (!target.item->isVisible()) fail(name + " is hidden");
    if (!isWithinReach(target.item)) fail(name + " is in a menu that is disabled or hidden");
    target.item->trigger();
    stage.settle();
}

void Hands::runSwitchedOff(Stage& stage, const QString& name)
{
    stage.needsProgram();
    emit Lookup::item(name).item->triggered();
    stage.settle();
}

void Hands::click(Stage& stage, const QString& name)
{
    press(takeFocus(stage, name).widget);
    stage.settle();
}

void Hands::setChecked(Stage& stage, const QString& name, bool on)
{
    stage.needsProgram();
    if (Sight::holds(Lookup::target(name), on ? "unchecked" : "checked")) click(stage, name);
}

void Hands::focus(Stage& stage, const QString& name)
{
    if (takeFocus(stage, name).widget->focusPolicy() == Qt::NoFocus) fail(name + " can't have the focus");
}

void Hands::type(Stage& stage, const QString& name, const QString& text)
{
    needsOpen(reach(stage, name));
    const Target target = takeFocusForGood(stage, name);
    needsOpen(target);
    replaceText(target, text);
    stage.settle();
}

void Hands::paste(Stage& stage, const QString& name, const QString& text)
{
    needsOpen(reach(stage, name));
    const Target target = takeFocusForGood(stage, name);
    needsOpen(target);
    QApplication::clipboard()->setText(text);
    selectAll(target);
    QTest::keyClick(target.widget, Qt::Key_V, Qt::ControlModifier);
    stage.settle();
}

void Hands::enter(Stage& stage, const QString& name, const QString& text)
{
    type(stage, name, text);
    Focus::release();
    stage.settle();
}

void Hands::key(Stage& stage, const QString& keys)
{
    stage.needsProgram();
    const auto sequence = QKeySequence::fromString(keys, QKeySequence::PortableText);
    if (sequence.count() != 1 || sequence[0].key() == Qt::Key_unknown) fail("unknown key " + quoted(keys));
    QWidget* receiver = QApplication::activePopupWidget();
    // Where no desktop hands the focus on, the list of a combo stays in use when it has closed.
    const QWidget* inUse = QApplication::activeWindow();
    if (!receiver && (!inUse || !inUse->isVisible())) activate(stage, Forms::mainWindow());
    if (!receiver) receiver = QApplication::focusWidget();
    if (!receiver) receiver = QApplication::activeWindow();
    const bool backwards = sequence[0].key() == Qt::Key_Tab && sequence[0].keyboardModifiers() == Qt::ShiftModifier;
    QTest::keyClick(receiver, backwards ? Qt::Key_Backtab : sequence[0].key(), sequence[0].keyboardModifiers());
    stage.settle();
}

void Hands::chooseText(Stage& stage, const QString& name, const QString& text)
{
    const Target target = reach(stage, name);
    for (int index = 0; index < Sight::entries(target); ++index)
        if (Sight::entry(target, index) == text) return chooseIndex(stage, name, index);
    fail(QStringLiteral("%1 has no entry %2").arg(name, quoted(text)));
}

void Hands::chooseIndex(Stage& stage, const QString& name, int index)
{
    needsOpen(reach(stage, name));
    const Target target = takeFocus(stage, name);
    needsOpen(target);
    Sight::entry(target, index);
    if (auto* combo = qobject_cast<QComboBox*>(target.widget)) {
        combo->showPopup();
        if (!combo->view()->isVisible()) fail(name + " doesn't show its list");
        combo->view()->setCurrentIndex(combo->model()->index(index, combo->modelColumn(), combo->rootModelIndex()));
        QTest::keyClick(combo->view(), Qt::Key_Return);
    } else {
        QAbstractItemView* view = Sight::view(target);
        const QPoint spot = showItem(view, view->model()->index(index, 0, view->rootIndex()));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, spot);
    }
    stage.settle();
}

void Hands::row(Stage& stage, const QString& name, int row)
{
    const Target target = takeFocus(stage, name);
    const QPoint spot = showItem(Sight::view(target), Sight::rowIndex(target, row));
    QTest::mouseClick(Sight::view(target)->viewport(), Qt::LeftButton, {}, spot);
    stage.settle();
}

void Hands::doubleClick(Stage& stage, const QString& name, int row)
{
    const Target target = takeFocus(stage, name);
    const QPoint spot = showItem(Sight::view(target), Sight::rowIndex(target, row));
    const QPointer<QWidget> surface = Sight::view(target)->viewport();
    QTest::mouseClick(surface, Qt::LeftButton, {}, spot);
    if (surface) QTest::mouseDClick(surface, Qt::LeftButton, {}, spot);
    stage.settle();
}

void Hands::close(Stage& stage, const QString& formName)
{
    stage.needsProgram();
    QWidget* form = Lookup::form(formName);
    if (!form) fail(formName + (Forms::exists(formName) ? " isn't loaded" : " is no form of the program"));
    needsForm(stage, form);
    auto* child = qobject_cast<QMdiSubWindow*>(form->parentWidget());
    if (!child && qobject_cast<Form*>(form)) fail(formName + " has no close box");
    (child ? child : form)->close();
    stage.settle();
}
