#include "platform/forms/controls.h"

#include <QEvent>
#include <QPainter>

CommandButton::CommandButton(QWidget* parent) : QPushButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAutoDefault(true);
}

OptionButton::OptionButton(QWidget* parent) : QRadioButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    keepReadableWhenDisabled(this);
}

void OptionButton::setValue(bool on)
{
    // An exclusive radio can't be switched off.
    const bool exclusive = autoExclusive();
    if (!on) setAutoExclusive(false);
    setChecked(on);
    setAutoExclusive(exclusive);
}

void OptionButton::changeEvent(QEvent* event)
{
    QRadioButton::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) keepReadableWhenDisabled(this);
}

void OptionButton::paintEvent(QPaintEvent* event)
{
    QRadioButton::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::WindowText), 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}
