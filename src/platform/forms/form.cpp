#include "platform/forms/form.h"

#include "platform/forms/dressing.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"
#include "platform/forms/showntext.h"
#include "platform/forms/tabstops.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>
#include <QStyle>

#include <algorithm>

namespace {

// The window of a form in the document area. It is closed through its form only.
class ChildWindow : public QMdiSubWindow
{
public:
    explicit ChildWindow(Form* form) : form_(form)
    {
        setAttribute(Qt::WA_DeleteOnClose, false);
        setWidget(form);
    }

protected:
    void closeEvent(QCloseEvent* event) override
    {
        event->ignore();
        if (form_->isEnabled()) form_->unload(Form::UnloadMode::ControlMenu);
    }

    // The window is hidden along with its form; one that is only rolled up into its title bar stays.
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (object == form_ && event->type() == QEvent::HideToParent && !isMinimized() && !isShaded()) {
            const bool active = mdiArea()->currentSubWindow() == this;
            hide();
            if (active && !Forms::isUnloadingAll()) activateNext();
        }
        return QMdiSubWindow::eventFilter(object, event);
    }

private:
    // The form that was active before comes to the front again.
    void activateNext()
    {
        const QList<QMdiSubWindow*> history = mdiArea()->subWindowList(QMdiArea::ActivationHistoryOrder);
        for (auto next = history.crbegin(); next != history.crend(); ++next)
            if (auto* form = qobject_cast<Form*>((*next)->widget()); form && form->isVisible()) return form->display();
    }

    Form* form_;
};

bool canTakeFocus(const QWidget* control)
{
    return control->isVisible() && control->isEnabled() && (control->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
}

} // namespace

Form::Form(const QString& name, Window window) : window_(window)
{
    setObjectName(name);
}

Form::~Form()
{
    Forms::forget(this);
}

void Form::setCaption(const QString& caption)
{
    setWindowTitle(shownText(caption, 500));
}

void Form::dress(QWidget* mainWindow, QMdiArea* area)
{
    nameControls(this);
    tellShortcuts(this);
    showLockedFields(this);
    followFont(this);
    keepFieldsReadable(this);
    if (isChild() && area) {
        const QSize drawn = testAttribute(Qt::WA_Resized) ? size() * fontScale(this) : QSize();
        child_ = new ChildWindow(this);
        area->addSubWindow(child_);
        child_->setWindowFlags(child_->windowFlags() | Qt::WindowContextHelpButtonHint);
        fitIn(area, drawn.isValid() ? drawn : sizeHint());
        child_->move(0, 0);
        stepAside(true);
        Focus::install();
    } else if (!isChild()) {
        setParent(mainWindow, Qt::Dialog | Qt::FramelessWindowHint);
    }
}

// What finds no room in the area is scrolled to; see Focus.
void Form::fitIn(QMdiArea* area, const QSize& drawn)
{
    const QSize wanted = drawn.grownBy(child_->contentsMargins());
    child_->resize(wanted.boundedTo(area->viewport()->size()).expandedTo(child_->minimumSizeHint()));
}

void Form::stepAside(bool first)
{
    const QSize room = child_->mdiArea()->viewport()->size();
    const QRect here = child_->geometry();
    const QMdiSubWindow* front = child_->mdiArea()->currentSubWindow();
    const auto* caller = front && front != child_ ? qobject_cast<Form*>(front->widget()) : nullptr;
    const bool called = caller && caller->isVisible() && !caller->unloading_;
    QPoint spot = here.topLeft();
    if (called && (first || here.contains(front->geometry()))) {
        const int step = style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, child_);
        spot = placeBeside(front->geometry(), here.size(), room, step);
    } else if (isVisible()) {
        return; // where the user has left it
    }
    spot = {std::clamp(spot.x(), 0, std::max(room.width() - here.width(), 0)),
            std::clamp(spot.y(), 0, std::max(room.height() - here.height(), 0))};
    if (spot != here.topLeft()) child_->move(spot);
}

QWidget* Form::frame()
{
    return child_ ? static_cast<QWidget*>(child_) : this;
}

void Form::display()
{
    if (!isChild() && !isVisible()) {
        adjustSize();
        move(QApplication::primaryScreen()->availableGeometry().center() - rect().center());
    }
    if (child_ && !child_->isMaximized()) stepAside(false);
    const bool opens = !lastFocus_;
    show();
    if (frame()->isMinimized()) frame()->showNormal();
    frame()->raise();
    if (child_)
        child_->mdiArea()->setActiveSubWindow(child_);
    else
        activateWindow();
    if (opens) lastFocus_ = nullptr; // the area gives the focus to whatever comes first
    setFocusToForm();
}

bool Form::isActive() const
{
    return isVisible() && (child_ ? child_->mdiArea()->currentSubWindow() == child_ : isActiveWindow());
}

void Form::setFocusToForm()
{
    if (!isVisible() || !isEnabled()) return;
    if (isChild())
        Focus::setTo(focusTarget());
    else
        setFocus();
}

void Form::opensOn(QAbstractItemView* list, QWidget* command)
{
    list_ = list;
    listCommand_ = command;
}

// The control that had the focus last, else the list or its command, else the first in the tab order, else the form
// itself.
QWidget* Form::focusTarget()
{
    QWidget* first = list_ && list_->model()->rowCount(list_->rootIndex()) > 0 ? list_.data() : listCommand_.data();
    for (QWidget* target : {lastFocus_.data(), first})
        if (target && target->isVisible() && target->isEnabled()) return target;
    for (QWidget* next = nextInFocusChain(); next != this; next = next->nextInFocusChain())
        if (isAncestorOf(next) && canTakeFocus(next)) return next;
    return this;
}

bool Form::unload(UnloadMode mode)
{
    if (unloading_) return true;
    if (!Form_QueryUnload(mode)) return false;
    unloading_ = true;
    Form_Unload();
    Forms::forget(this);
    hide();
    emit unloaded();
    frame()->deleteLater();
    return true;
}

bool Form::focusNextPrevChild(bool next)
{
    const QWidget* focused = window()->focusWidget();
    if (focused && focused != this && isAncestorOf(focused) && !(focused->isEnabled() && focused->isVisible())) {
        Focus::drop(this);
        setFocus(Qt::OtherFocusReason);
        return true;
    }
    if (QWidget* stop = isChild() ? nextTabStop(this, window()->focusWidget(), next) : nullptr) {
        stop->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        return true;
    }
    return QWidget::focusNextPrevChild(next);
}

void Form::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::EnabledChange) return;
    // A disabled form doesn't come to the front by a click, as it would cover the form that works for it.
    if (child_) child_->setFocusPolicy(isEnabled() ? Qt::StrongFocus : Qt::NoFocus);
    if (!isEnabled())
        Focus::drop(this);
    else if (isActive())
        setFocusToForm();
}

void Form::closeEvent(QCloseEvent* event)
{
    event->ignore();
    unload(event->spontaneous() ? UnloadMode::ControlMenu : UnloadMode::Code);
}
