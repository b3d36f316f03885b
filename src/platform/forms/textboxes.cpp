#include "platform/forms/controls.h"
#include "platform/forms/cuttext.h"
#include "platform/forms/editkeys.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QSignalBlocker>

namespace {

constexpr int mostCharacters = 32767;

bool isTyped(const QEvent* event)
{
    return event && event->type() == QEvent::KeyPress &&
           !static_cast<const QKeyEvent*>(event)->matches(QKeySequence::Paste);
}

// What a line gets by an event, as one text.
QString incoming(const QEvent* event)
{
    const QClipboard* clipboard = QApplication::clipboard();
    switch (event ? event->type() : QEvent::None) {
    case QEvent::KeyPress:
        if (isTyped(event)) return static_cast<const QKeyEvent*>(event)->text();
        break;
    case QEvent::InputMethod:
        return static_cast<const QInputMethodEvent*>(event)->commitString();
    case QEvent::Drop:
        return static_cast<const QDropEvent*>(event)->mimeData()->text();
    case QEvent::MouseButtonRelease:
        return clipboard->text(QClipboard::Selection);
    default: // the context menu
        break;
    }
    return clipboard->text();
}

} // namespace

bool leftToMenus(const QEvent* event)
{
    if (event->type() != QEvent::ShortcutOverride) return false;
    const auto* key = static_cast<const QKeyEvent*>(event);
    static constexpr Qt::Key editing[] = {Qt::Key_C, Qt::Key_V, Qt::Key_X, Qt::Key_Y, Qt::Key_Z};
    return key->modifiers() == Qt::ControlModifier && key->key() >= Qt::Key_A && key->key() <= Qt::Key_Z &&
           std::find(std::begin(editing), std::end(editing), key->key()) == std::end(editing);
}

TextBox::TextBox(QWidget* parent) : QLineEdit(parent), maxLength_(mostCharacters)
{
    const auto measure = [this] { room_ = QLineEdit::maxLength() - QLineEdit::text().size() + selectedText().size(); };
    connect(this, &QLineEdit::textChanged, this, measure);
    connect(this, &QLineEdit::selectionChanged, this, measure);
    connect(this, &QLineEdit::inputRejected, this, &TextBox::refuse);
    // A text set by the program is shown from its beginning if it is longer than the field.
    connect(this, &QLineEdit::textChanged, this, [this] {
        if (!hasFocus()) setCursorPosition(0);
    });
    measure();
}

QString TextBox::text() const
{
    const QString shown = QLineEdit::text();
    return shown.isEmpty() ? shown : shown + rest_;
}

// The line takes what its limit allows, so that is raised for a stored text beyond the user's.
void TextBox::setText(const QString& text)
{
    const bool fresh = !isModified() && !isUndoAvailable() && !isRedoAvailable() && !hasFocus();
    if (fresh && text.isEmpty() && QLineEdit::text().isEmpty()) return; // most fields of a card are empty all day
    const bool wouldHalve = text.size() > mostCharacters && text.at(mostCharacters - 1).isHighSurrogate();
    const QString shown = text.left(mostCharacters - wouldHalve);
    rest_ = text.mid(shown.size());
    const int needed = std::max(maxLength_, int(shown.size()));
    if (needed > QLineEdit::maxLength()) {
        const QSignalBlocker quiet(this);
        QLineEdit::setMaxLength(needed);
    }
    QLineEdit::setText(shown);
    if (needed < QLineEdit::maxLength()) QLineEdit::setMaxLength(needed);
    room_ = needed - QLineEdit::text().size();
    if (!rest_.isEmpty()) tellUnshown();
}

void TextBox::setMaxLength(int length)
{
    maxLength_ = std::min(length, mostCharacters);
    QLineEdit::setMaxLength(maxLength_);
    room_ = maxLength_ - QLineEdit::text().size();
}

bool TextBox::event(QEvent* event)
{
    const QScopedValueRollback<const QEvent*> underWay(event_, event);
    return leftToMenus(event) ? false : QLineEdit::event(event);
}

void TextBox::refuse()
{
    const QString whole = incoming(event_);
    const int limit = QLineEdit::maxLength();
    isTyped(event_) || whole.size() <= room_ ? tellFull(limit) : tellCut(whole, room_, limit);
    if (room_ > 0 && room_ < whole.size() && whole.at(room_ - 1).isHighSurrogate())
        QMetaObject::invokeMethod(this, &TextBox::removeHalfCharacter, Qt::QueuedConnection);
}

// The cut may have gone through a character of two units.
void TextBox::removeHalfCharacter()
{
    const QString shown = QLineEdit::text();
    const int at = cursorPosition();
    if (at == 0 || !shown.at(at - 1).isHighSurrogate()) return;
    if (at == shown.size() || !shown.at(at).isLowSurrogate()) backspace();
}
