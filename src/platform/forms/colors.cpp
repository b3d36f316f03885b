#include "platform/forms/controls.h"

#include <QApplication>
#include <QPalette>
#include <QVariant>

namespace {

constexpr auto property = "backColor";

// Black or white, whichever can be read on the colour.
QColor textOn(const QColor& color)
{
    const double light = 0.299 * color.red() + 0.587 * color.green() + 0.114 * color.blue();
    return light > 140 ? Qt::black : Qt::white;
}

QColor between(const QColor& a, const QColor& b)
{
    return QColor((2 * a.red() + b.red()) / 3, (2 * a.green() + b.green()) / 3, (2 * a.blue() + b.blue()) / 3);
}

struct Look
{
    QPalette::ColorRole back, text;
    bool filled; // the control itself paints no background
};

Look lookOf(const QWidget* control)
{
    if (qobject_cast<const QLineEdit*>(control) || qobject_cast<const QComboBox*>(control) ||
        qobject_cast<const QAbstractScrollArea*>(control))
        return {QPalette::Base, QPalette::Text, false};
    if (qobject_cast<const QPushButton*>(control)) return {QPalette::Button, QPalette::ButtonText, false};
    return {control->backgroundRole(), QPalette::WindowText, true};
}

} // namespace

void setBackColor(QWidget* control, const QColor& color)
{
    const Look look = lookOf(control);
    QPalette palette;
    palette.setResolveMask(0);
    if (color.isValid()) {
        const QColor text = textOn(color);
        palette.setColor(look.back, color);
        palette.setColor(look.text, text);
        palette.setColor(QPalette::Disabled, look.text, between(text, color));
    }
    control->setProperty(property, color.isValid() ? QVariant(color) : QVariant());
    control->setPalette(palette);
    if (look.filled) control->setAutoFillBackground(color.isValid());
}

QColor backColor(const QWidget* control)
{
    const QVariant set = control->property(property);
    return set.isValid() ? set.value<QColor>() : control->palette().color(lookOf(control).back);
}
