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

struct Roles
{
    QPalette::ColorRole back, text;
};

QList<Roles> rolesOf(const QWidget* control)
{
    constexpr Roles field{QPalette::Base, QPalette::Text};
    constexpr Roles button{QPalette::Button, QPalette::ButtonText};
    if (qobject_cast<const QComboBox*>(control)) // drawn as a button while closed
        return {field, button};
    if (qobject_cast<const QLineEdit*>(control) || qobject_cast<const QAbstractScrollArea*>(control)) return {field};
    if (qobject_cast<const QPushButton*>(control)) return {button};
    return {{control->backgroundRole(), QPalette::WindowText}}; // a radio fills itself with the colour of buttons
}

// Whether the control has to be filled to show its colour, having no field or face of its own.
bool isPlain(const QWidget* control)
{
    return rolesOf(control).front().text == QPalette::WindowText;
}

} // namespace

void setBackColor(QWidget* control, const QColor& color)
{
    control->setProperty(property, color.isValid() ? QVariant(color) : QVariant());
    const QList<Roles> roles = rolesOf(control);
    if (isPlain(control)) control->setAutoFillBackground(color.isValid());
    QPalette palette;
    palette.setResolveMask(0);
    if (color.isValid()) {
        const QColor text = textOn(color);
        for (const Roles& role : roles) {
            palette.setColor(role.back, color);
            palette.setColor(role.text, text);
            palette.setColor(QPalette::Disabled, role.text, between(text, color));
        }
        if (roles.front().back == QPalette::Base) palette.setColor(QPalette::PlaceholderText, between(text, color));
    }
    control->setPalette(palette);
}

QColor backColor(const QWidget* control)
{
    const QVariant set = control->property(property);
    return set.isValid() ? set.value<QColor>() : control->palette().color(rolesOf(control).front().back);
}
