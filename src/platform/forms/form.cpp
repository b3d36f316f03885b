#include "platform/forms/form.h"

#include "platform/forms/focus.h"
#include "platform/forms/forms.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>

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

void Form::dress(QWidget* mainWindow, QMdiArea* area)
{
    if (isChild() && area) {
        child_ = new ChildWindow(this);
        area->addSubWindow(child_);
        Focus::install();
    } else if (!isChild()) {
        setParent(mainWindow, Qt::Dialog | Qt::FramelessWindowHint);
    }
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
    show();
    if (frame()->isMinimized()) frame()->showNormal();
    frame()->raise();
    if (child_)
        child_->mdiArea()->setActiveSubWindow(child_);
    else
        activateWindow();
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

// The control that had the focus last, else the first in the tab order, else the form itself.
QWidget* Form::focusTarget()
{
    if (lastFocus_ && lastFocus_->isVisible() && lastFocus_->isEnabled()) return lastFocus_;
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
