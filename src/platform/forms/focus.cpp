#include "platform/forms/focus.h"

#include "platform/forms/accelerators.h"
#include "platform/forms/form.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHash>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPointer>
#include <QScopeGuard>
#include <QScrollBar>
#include <QShortcutEvent>
#include <QTabBar>
#include <QTabWidget>

namespace {

// The form that a control belongs to; null for controls in boxes, popups, menus and forms that aren't child windows.
Form* formOf(QWidget* widget)
{
    for (; widget; widget = widget->parentWidget()) {
        if (auto* form = qobject_cast<Form*>(widget)) return form->isChild() ? form : nullptr;
        if (widget->isWindow()) return nullptr;
    }
    return nullptr;
}

void bringToFront(QWidget* field)
{
    for (QWidget* widget = field; QWidget* parent = widget->parentWidget(); widget = parent) {
        if (auto* tabs = qobject_cast<QTabWidget*>(parent->parentWidget())) tabs->setCurrentWidget(widget);
        if (auto* child = qobject_cast<QMdiSubWindow*>(parent); child && child->isVisible())
            child->mdiArea()->setActiveSubWindow(child);
    }
}

// Scrolls the document area to a control that is out of sight there.
void scrollTo(const QWidget* control, const Form* form)
{
    const auto* child = qobject_cast<QMdiSubWindow*>(form->parentWidget());
    if (!child || control == form || !control->isVisible()) return;
    const QMdiArea* area = child->mdiArea();
    const QRect there(control->mapTo(area->viewport(), QPoint()), control->size());
    const auto scroll = [](QScrollBar* bar, int begin, int end, int room) {
        const int by = begin < 0 ? begin : end > room ? std::min(end - room, begin) : 0;
        if (by != 0) bar->setValue(bar->value() + by);
    };
    scroll(area->horizontalScrollBar(), there.left(), there.right() + 1, area->viewport()->width());
    scroll(area->verticalScrollBar(), there.top(), there.bottom() + 1, area->viewport()->height());
}

class Tracker : public QObject
{
public:
    explicit Tracker(QObject* parent) : QObject(parent) { qApp->installEventFilter(this); }

    // The child windows of the area listen to the focus too: called after them, a leave routine may move it again.
    void listenLast()
    {
        disconnect(qApp, &QApplication::focusChanged, this, nullptr);
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
            if (!quiet_ && formOf(now)) take(now);
        });
    }

    void watch(QWidget* field, std::function<void()> entered, std::function<void()> left)
    {
        if (!watches_.contains(field))
            connect(field, &QObject::destroyed, this, [this, field] { watches_.remove(field); });
        watches_.insert(field, {std::move(entered), std::move(left)});
    }

    void setTo(QWidget* field)
    {
        if (settling_) {
            asked_ = field;
            return;
        }
        give(field);
        settle();
    }

    void drop(const QWidget* form)
    {
        if (quiet_) return;
        const auto within = [form](const QWidget* widget) { return widget && form->isAncestorOf(widget); };
        if (within(holder_)) holder_ = nullptr;
        if (within(current_)) current_ = nullptr;
    }

    void keepClick() { kept_ = true; }

    QWidget* holder() const { return holder_; }

protected:
    bool eventFilter(QObject* object, QEvent* event) override
    {
        auto* widget = object->isWidgetType() ? static_cast<QWidget*>(object) : nullptr;
        if (!widget) return false;
        switch (event->type()) {
        case QEvent::FocusIn:
            if (formOf(widget)) byMouse_ = static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason;
            return false;
        case QEvent::Show:
            if (widget->isWindow() && widget->isModal()) ++boxes_;
            return false;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            return formOf(widget) && press(widget, static_cast<QMouseEvent*>(event));
        case QEvent::Shortcut:
            return letter(widget, static_cast<QShortcutEvent*>(event));
        case QEvent::Wheel: // a page turned without the focus would hide a field that was never left
            return qobject_cast<QTabBar*>(widget) && formOf(widget);
        default:
            return false;
        }
    }

private:
    struct Watch
    {
        std::function<void()> entered, left;
    };
    enum class Click
    {
        Straight,
        Late,
        Lost
    };

    void take(QWidget* control)
    {
        holder_ = control;
        Form* form = formOf(control);
        form->setLastFocus(control);
        scrollTo(control, form);
        settle();
    }

    // The focus counts as moved even where the window waits for the desktop to make it active again, behind a box.
    void give(QWidget* field)
    {
        quiet_ = true;
        bringToFront(field);
        field->setFocus(Qt::OtherFocusReason);
        quiet_ = false;
        Form* form = formOf(field);
        if (form && field->isEnabled()) form->setLastFocus(field);
        if (!form || !field->isVisible() || field->window()->focusWidget() != field) return;
        holder_ = field;
        scrollTo(field, form);
    }

    // Runs the leave and enter routines until the focus settles.
    void settle()
    {
        if (settling_) return;
        settling_ = true;
        kept_ = false;
        const auto rest = qScopeGuard([this] { settling_ = false; });
        const QPointer<QWidget> target = holder_;
        const int boxes = boxes_;
        const bool byMouse = std::exchange(byMouse_, false);
        while (asked_ || holder_ != current_) {
            const QPointer<QWidget> old = current_;
            if (old && old != holder_ && old->isEnabled() && formOf(old)->isVisible()) run(old, &Watch::left);
            if (asked_) give(std::exchange(asked_, nullptr));
            current_ = holder_;
            if (current_) run(current_, &Watch::entered);
        }
        if (!byMouse) return;
        const bool lost = holder_ != target && !kept_;
        click_ = lost ? Click::Lost : boxes_ != boxes ? Click::Late : Click::Straight;
    }

    void run(QWidget* field, std::function<void()> Watch::*routine)
    {
        const auto found = watches_.constFind(field);
        if (found == watches_.constEnd()) return;
        const std::function<void()> copy = (*found).*routine; // the routine may take the field off the list
        if (copy) copy();
    }

    // Moves the focus to the control. False if the leave routine of another control sent it elsewhere without asking
    // for the click, or shut this one.
    bool keeps(QWidget* control, Qt::FocusReason reason)
    {
        kept_ = false;
        if (holder_ != control) control->setFocus(reason);
        return (holder_ == control || kept_) && control->isEnabled();
    }

    // The focus has moved to where the mouse was pressed. True if nothing is left to be clicked.
    bool press(QWidget* widget, QMouseEvent* event)
    {
        if (auto* bar = qobject_cast<QTabBar*>(widget); bar && bar->tabAt(event->position().toPoint()) >= 0)
            keeps(bar, Qt::MouseFocusReason);
        switch (std::exchange(click_, Click::Straight)) {
        case Click::Straight:
            return false;
        case Click::Lost:
            return true;
        case Click::Late:
            break;
        }
        if (!widget->isEnabled()) return true;
        // The box that came up made the toolkit forget the button that is down: its release gets lost.
        QCoreApplication::postEvent(widget, new QMouseEvent(QEvent::MouseButtonRelease, event->position(),
                                                            event->globalPosition(), event->button(), Qt::NoButton,
                                                            event->modifiers()));
        return false;
    }

    // A letter belongs to the form in use before it belongs to a menu. Where several open controls bear it, it means
    // the next one behind the focus; where only a shut one does, nobody.
    bool letter(QWidget* widget, const QShortcutEvent* event)
    {
        const bool menu = qobject_cast<QMenuBar*>(widget);
        const bool bearer = qobject_cast<QAbstractButton*>(widget) || qobject_cast<QTabBar*>(widget);
        const Form* form = menu ? formOf(holder_) : bearer ? formOf(widget) : nullptr;
        if (!form || event->shortcutId() == 0) return false;
        const LetterBearer next = nextBearer(form, holder_, event->key());
        if (!next.control) return menu && next.shut;
        if (!keeps(next.control, Qt::ShortcutFocusReason)) return true;
        if (auto* button = qobject_cast<QAbstractButton*>(next.control))
            button->click();
        else if (auto* tabs = qobject_cast<QTabWidget*>(next.control->parentWidget()))
            tabs->setCurrentIndex(next.page);
        return true;
    }

    QHash<QObject*, Watch> watches_;
    QPointer<QWidget> holder_;  // has the focus, as the forms count it
    QPointer<QWidget> current_; // was entered last and not left since
    QPointer<QWidget> asked_;   // gets the focus when the routine that runs is over
    bool settling_ = false;
    bool quiet_ = false;
    bool byMouse_ = false;
    bool kept_ = false; // the click goes on although the focus went back
    int boxes_ = 0;
    Click click_ = Click::Straight; // what the press that moved the focus may still do
};

Tracker& tracker()
{
    static QPointer<Tracker> instance;
    if (!instance) instance = new Tracker(qApp);
    return *instance;
}

} // namespace

namespace Focus {

void install()
{
    tracker().listenLast();
}

void watch(QWidget* field, std::function<void()> entered, std::function<void()> left)
{
    tracker().watch(field, std::move(entered), std::move(left));
}

void setTo(QWidget* field)
{
    tracker().setTo(field);
}

void keepClick()
{
    tracker().keepClick();
}

void release()
{
    if (QWidget* holder = tracker().holder()) setTo(formOf(holder));
}

void drop(QWidget* form)
{
    tracker().drop(form);
}

} // namespace Focus
