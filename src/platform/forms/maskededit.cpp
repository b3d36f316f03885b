#include "platform/forms/controls.h"
#include "platform/forms/editkeys.h"

#include <QMouseEvent>
#include <QRegularExpression>

namespace {

// d/m/yyyy and ddmmyyyy, perhaps pasted with blanks around, in the form that every date is shown in; blanks alone are
// nothing. Whether the calendar has the day is not asked here.
QString completed(const QString& text)
{
    const QString typed = text.trimmed();
    static const QRegularExpression separated(QStringLiteral("^([0-9]{1,2})/([0-9]{1,2})/([0-9]{4})$"));
    static const QRegularExpression together(QStringLiteral("^([0-9]{2})([0-9]{2})([0-9]{4})$"));
    auto match = separated.match(typed);
    if (!match.hasMatch()) match = together.match(typed);
    if (!match.hasMatch()) return typed.isEmpty() ? typed : text;
    const auto two = [&](int part) { return match.captured(part).rightJustified(2, u'0'); };
    return two(1) + u'/' + two(2) + u'/' + match.captured(3);
}

} // namespace

MaskedEdit::MaskedEdit(QWidget* parent) : QLineEdit(parent)
{
    setMask(QString::fromLatin1(dateMask));
    keepReadableWhenDisabled(this);
}

void MaskedEdit::setMask(const QString& mask)
{
    const bool selected = hasSelectedText() && selectedText() == displayText();
    const QString before = isBlank() ? QString() : text();
    mask_ = mask;
    QString input = mask;
    input.replace('#', '9');
    setInputMask(input.isEmpty() ? QString() : input + QLatin1String(";_"));
    setPlaceholderText(mask.isEmpty() ? QStringLiteral("dd/mm/aaaa") : QString());
    QLineEdit::setText(before);
    home(false);
    if (selected && !isBlank()) selectAll();
}

QString MaskedEdit::text() const
{
    return displayText();
}

void MaskedEdit::setText(const QString& text)
{
    QLineEdit::setText(mask_.isEmpty() ? text : QString());
}

bool MaskedEdit::isBlank() const
{
    return text().isEmpty() || text() == QLatin1String(emptyMaskedDate);
}

void MaskedEdit::clearMasked()
{
    QLineEdit::clear();
    setMask({});
    setMask(QString::fromLatin1(dateMask));
}

void MaskedEdit::showPlain(const QString& text)
{
    QLineEdit::clear();
    setMask({});
    setText(text);
}

bool MaskedEdit::event(QEvent* event)
{
    if (event->type() == QEvent::FocusOut && mask_.isEmpty()) { // before the field's leave routine reads it
        if (const QString whole = completed(text()); whole != text()) setText(whole);
    }
    return leftToMenus(event) ? false : QLineEdit::event(event);
}

void MaskedEdit::changeEvent(QEvent* event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) keepReadableWhenDisabled(this);
}

void MaskedEdit::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    if (mask_.isEmpty() || event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason)
        return;
    home(false);
    const bool byKey = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (byKey && !isBlank()) selectAll();
}

void MaskedEdit::mousePressEvent(QMouseEvent* event)
{
    QLineEdit::mousePressEvent(event);
    if (!mask_.isEmpty() && isBlank()) home(false);
}

void MaskedEdit::mouseReleaseEvent(QMouseEvent* event)
{
    QLineEdit::mouseReleaseEvent(event);
    if (mask_.isEmpty() || isBlank() || hasSelectedText() || event->button() != Qt::LeftButton) return;
    const int at = cursorPosition();
    const int begin = at < 3 ? 0 : at < 6 ? 3 : 6;
    setSelection(begin, begin == 6 ? 4 : 2);
}
