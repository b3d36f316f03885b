#include "platform/forms/longwork.h"

#include "platform/forms/forms.h"
#include "platform/forms/statusline.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMouseEvent>
#include <QPointer>
#include <QStatusBar>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <deque>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

QT_BEGIN_NAMESPACE
// As the toolkit's own test library sends keys: a shortcut of where the focus is now.
Q_GUI_EXPORT bool qt_sendShortcutOverrideEvent(QObject* object, ulong timestamp, int key,
                                               Qt::KeyboardModifiers modifiers, const QString& text, bool repeated,
                                               ushort count);
QT_END_NAMESPACE

namespace {

// What is delivered at once: the toolkit's own bookkeeping, which can't be put off.
bool isBookkeeping(QEvent::Type type)
{
    switch (type) {
    case QEvent::MetaCall:
    case QEvent::SockAct:
    case QEvent::SockClose:
    case QEvent::DeferredDelete:
    case QEvent::ThreadChange:
    case QEvent::ChildAdded:
    case QEvent::ChildPolished:
    case QEvent::ChildRemoved:
    case QEvent::PlatformSurface:
    case QEvent::WinIdChange:
        return true;
    default:
        return false;
    }
}

struct Kept
{
    QPointer<QObject> receiver;
    QPointer<QWidget> modal; // the box that stood when it came
    std::unique_ptr<QEvent> event;
};

// Gives back what was kept. What the user did goes one by one, and not into a box that has come up since: it waits
// until that is closed.
class Returner : public QObject
{
public:
    void give(std::vector<Kept> kept)
    {
        for (Kept& each : kept) {
            if (!each.receiver) continue;
            if (each.event->isInputEvent())
                inputs_.push_back(std::move(each));
            else
                QCoreApplication::postEvent(each.receiver, each.event.release());
        }
        callAgain();
    }

protected:
    // All at once: nothing typed later comes between.
    void customEvent(QEvent*) override
    {
        while (!inputs_.empty()) {
            const QWidget* modal = QApplication::activeModalWidget();
            if (modal && modal != inputs_.front().modal) {
                QTimer::singleShot(50, this, [this] { callAgain(); });
                return;
            }
            const Kept next = std::move(inputs_.front());
            inputs_.pop_front();
            callAgain(); // before, as a box may come up with it
            if (next.receiver && !actsAsShortcut(*next.event))
                QCoreApplication::sendEvent(next.receiver, next.event.get());
        }
    }

private:
    void callAgain()
    {
        if (!inputs_.empty()) QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }

    // A key may be a shortcut by now, or the field that it was typed for has the focus only now.
    static bool actsAsShortcut(const QEvent& event)
    {
        QObject* focus = QGuiApplication::focusObject();
        if (event.type() != QEvent::KeyPress || !focus) return false;
        const auto& key = static_cast<const QKeyEvent&>(event);
        return qt_sendShortcutOverrideEvent(focus, ulong(key.timestamp()), key.key(), key.modifiers(), key.text(),
                                            key.isAutoRepeat(), ushort(key.count()));
    }

    std::deque<Kept> inputs_;
};

Returner& returner()
{
    static auto* only = new Returner; // outlives what was posted to it
    return *only;
}

class Keeper : public QObject
{
public:
    // Takes what has come meanwhile.
    void look()
    {
        qApp->installEventFilter(this);
        QCoreApplication::processEvents();
        qApp->removeEventFilter(this);
    }

    void paint(QWidget& only)
    {
        painted_ = &only;
        qApp->installEventFilter(this);
        only.repaint();
        QCoreApplication::processEvents(); // which shows it
        qApp->removeEventFilter(this);
        painted_ = nullptr;
    }

    // Both, for work with a button that ends it.
    void attend(QWidget& shown, QAbstractButton& cancel)
    {
        cancel_ = &cancel;
        paint(shown);
        cancel_ = nullptr;
    }

    bool escaped = false;
    std::vector<Kept> kept;

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        const bool foreign = event->type() >= QEvent::User && receiver != &returner(); // it can't be copied
        if (foreign || isBookkeeping(event->type())) return false;
        if (painted_ && event->type() == QEvent::UpdateRequest) return false; // which brings the paint events
        if (painted_ && event->type() == QEvent::Paint && isPainted(receiver)) return false;
        // A timer comes again by itself, and everything is painted afterwards.
        const bool painting = event->type() == QEvent::Paint || event->type() == QEvent::UpdateLater;
        if (event->type() == QEvent::Timer || painting) return true;
        if (ends(*event)) {
            escaped = escaped || event->type() == QEvent::KeyPress;
        } else if (cancel_ && isMouse(*event)) {
            escaped = escaped || clicksCancel(static_cast<const QMouseEvent&>(*event));
        } else if (cancel_ && isRepeated(*event)) {
            return true;                                        // of the key that has begun the work
        } else if (event->type() != QEvent::ShortcutOverride) { // the key itself follows
            kept.push_back({receiver, QApplication::activeModalWidget(), std::unique_ptr<QEvent>(event->clone())});
        }
        event->setAccepted(event->type() != QEvent::Close);
        return true;
    }

private:
    static bool isKey(const QEvent& event)
    {
        const auto type = event.type();
        return type == QEvent::KeyPress || type == QEvent::KeyRelease || type == QEvent::ShortcutOverride;
    }

    static bool isRepeated(const QEvent& event)
    {
        return isKey(event) && static_cast<const QKeyEvent&>(event).isAutoRepeat();
    }

    bool ends(const QEvent& event) const
    {
        if (!isKey(event)) return false;
        const auto& key = static_cast<const QKeyEvent&>(event);
        return key.key() == Qt::Key_Escape || (cancel_ && !key.isAutoRepeat() && pressesCancel(key));
    }

    static bool isMouse(const QEvent& event)
    {
        const auto type = event.type();
        return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease ||
               type == QEvent::MouseButtonDblClick || type == QEvent::MouseMove;
    }

    // Pressed and released over the button, whichever of the window and its widgets gets the event.
    bool clicksCancel(const QMouseEvent& event)
    {
        if (event.type() == QEvent::MouseMove) return false;
        const bool over = cancel_->isVisible() && cancel_->isEnabled() && event.button() == Qt::LeftButton &&
                          cancel_->rect().contains(cancel_->mapFromGlobal(event.globalPosition()).toPoint());
        const bool clicked = over && held_ && event.type() == QEvent::MouseButtonRelease;
        held_ = over && event.type() != QEvent::MouseButtonRelease;
        return clicked;
    }

    // Its letter, or the key that presses the button that has the focus.
    bool pressesCancel(const QKeyEvent& event) const
    {
        const bool presses =
            event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter || event.key() == Qt::Key_Space;
        const QKeySequence letter(event.keyCombination());
        return (presses && cancel_->hasFocus()) || letter == QKeySequence::mnemonic(cancel_->text());
    }

    bool isPainted(QObject* receiver) const
    {
        const auto* widget = qobject_cast<const QWidget*>(receiver);
        return widget && (widget == painted_ || painted_->isAncestorOf(widget));
    }

    QWidget* painted_ = nullptr;
    QAbstractButton* cancel_ = nullptr;
    bool held_ = false; // pressed over the button, and not released yet
};

// One run of work.
struct Work
{
    Keeper keeper;
    std::optional<QString> before; // what stood in the status bar
};

std::unique_ptr<Work> work;

// In the middle of painting nothing else can be painted.
bool isPainting()
{
    const QWidgetList widgets = QApplication::allWidgets();
    return std::any_of(widgets.begin(), widgets.end(),
                       [](const QWidget* widget) { return widget->testAttribute(Qt::WA_WState_InPaintEvent); });
}

Work& theWork()
{
    if (!work) work = std::make_unique<Work>();
    return *work;
}

} // namespace

bool LongWork::escapePressed()
{
    if (!qApp || QThread::currentThread() != qApp->thread()) return false;
    Keeper& keeper = theWork().keeper;
    keeper.look();
    return std::exchange(keeper.escaped, false);
}

bool LongWork::cancelled(QWidget& shown, QAbstractButton& cancel)
{
    Keeper& keeper = theWork().keeper;
    keeper.attend(shown, cancel);
    return std::exchange(keeper.escaped, false);
}

void LongWork::tell(const QString& text)
{
    QStatusBar* bar = mainStatusBar();
    if (!bar || bar->currentMessage() == text || isPainting()) return;
    Work& current = theWork();
    if (!current.before) current.before = bar->currentMessage();
    showStatus(text);
    current.keeper.paint(*bar);
}

void LongWork::ended()
{
    if (!work) return;
    const std::unique_ptr<Work> over = std::move(work);
    if (over->before) showStatus(*over->before);
    returner().give(std::move(over->keeper.kept));
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible())
            for (QWidget* widget : window->findChildren<QWidget*>())
                widget->update();
}
