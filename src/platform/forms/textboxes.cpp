#include "platform/forms/controls.h"
#include "platform/forms/editkeys.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>

#include <limits>

bool leftToMenus(const QEvent* event)
{
    if (event->type() != QEvent::ShortcutOverride) return false;
    const auto* key = static_cast<const QKeyEvent*>(event);
    static constexpr Qt::Key editing[] = {Qt::Key_C, Qt::Key_V, Qt::Key_X, Qt::Key_Y, Qt::Key_Z};
    return key->modifiers() == Qt::ControlModifier && key->key() >= Qt::Key_A && key->key() <= Qt::Key_Z &&
           std::find(std::begin(editing), std::end(editing), key->key()) == std::end(editing);
}

// The text with plain line breaks, cut to `length` characters, a break counting as two.
static QString asLines(QString text, qsizetype length)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace('\r', '\n');
    qsizetype used = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        used += text.at(i) == '\n' ? 2 : 1;
        if (used > length) return text.left(i);
    }
    return text;
}

TextBox::TextBox(QWidget* parent) : QLineEdit(parent)
{
    // A text set by the program is shown from its beginning if it is longer than the field.
    connect(this, &QLineEdit::textChanged, this, [this] {
        if (!hasFocus()) setCursorPosition(0);
    });
}

bool TextBox::event(QEvent* event)
{
    return leftToMenus(event) ? false : QLineEdit::event(event);
}

MemoBox::MemoBox(QWidget* parent) : QPlainTextEdit(parent)
{
    setTabChangesFocus(true);
    setFocusPolicy(Qt::StrongFocus);
}

QString MemoBox::text() const
{
    return toPlainText().replace('\n', QLatin1String("\r\n"));
}

void MemoBox::setText(const QString& text)
{
    setPlainText(asLines(text, limit()));
}

bool MemoBox::event(QEvent* event)
{
    return leftToMenus(event) ? false : QPlainTextEdit::event(event);
}

void MemoBox::insertFromMimeData(const QMimeData* source)
{
    textCursor().insertText(asLines(source->text(), room()));
    ensureCursorVisible();
}

void MemoBox::inputMethodEvent(QInputMethodEvent* event)
{
    event->setCommitString(asLines(event->commitString(), room()), event->replacementStart(),
                           event->replacementLength());
    QPlainTextEdit::inputMethodEvent(event);
}

void MemoBox::keyPressEvent(QKeyEvent* event)
{
    const bool isBreak = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isText = !event->text().isEmpty() && event->text().front().isPrint();
    const qsizetype length = isBreak ? 2 : isText ? event->text().size() : 0;
    if (!isReadOnly() && length > room())
        QApplication::beep();
    else
        QPlainTextEdit::keyPressEvent(event);
}

qsizetype MemoBox::limit() const
{
    return maxLength_ > 0 ? maxLength_ : std::numeric_limits<qsizetype>::max();
}

qsizetype MemoBox::room() const
{
    if (maxLength_ <= 0) return limit();
    const QString selected = textCursor().selectedText(); // its line breaks are paragraph separators
    const qsizetype freed = selected.size() + selected.count(QChar::ParagraphSeparator);
    return std::max<qsizetype>(0, maxLength_ - text().size() + freed);
}
