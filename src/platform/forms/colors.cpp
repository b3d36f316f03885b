#include "platform/forms/controls.h"

#include <QApplication>
#include <QHeaderView>
#include <QPalette>
#include <QVariant>

#include <algorithm>
#include <cmath>

namespace {

constexpr auto property = "backColor";

double linear(double part)
{
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

constexpr double readable = 4.5;

// Black or white, whichever can be read better on the colour.
QColor textOn(const QColor& color)
{
    return contrast(Qt::black, color) >= contrast(Qt::white, color) ? Qt::black : Qt::white;
}

// The text colour, paler as far as it can still be read on the background.
QColor pale(const QColor& text, const QColor& back)
{
    for (int share = 60; share < 100; share += 5) {
        const auto mix = [share](int a, int b) { return (share * a + (100 - share) * b) / 100; };
        const QColor paler(mix(text.red(), back.red()), mix(text.green(), back.green()), mix(text.blue(), back.blue()));
        if (contrast(paler, back) >= readable) return paler;
    }
    return text;
}

struct Look
{
    QPalette::ColorRole back, text;
    bool filled; // the control itself paints no background
};

Look lookOf(const QWidget* control)
{
    if (qobject_cast<const QHeaderView*>(control)) return {QPalette::Button, QPalette::ButtonText, false};
    if (qobject_cast<const QLineEdit*>(control) || qobject_cast<const QComboBox*>(control) ||
        qobject_cast<const QAbstractScrollArea*>(control))
        return {QPalette::Base, QPalette::Text, false};
    if (qobject_cast<const QPushButton*>(control)) return {QPalette::Button, QPalette::ButtonText, false};
    return {control->backgroundRole(), QPalette::WindowText, true};
}

// The dot of a radio and the tick of a check box tell a value, too: while they are disabled they keep their colour.
void keepMark(QPalette& palette, const QWidget* control)
{
    if (!qobject_cast<const QRadioButton*>(control) && !qobject_cast<const QCheckBox*>(control)) return;
    const QPalette desktop = QApplication::palette(control);
    const QColor back = desktop.color(QPalette::Disabled, QPalette::Base);
    const QColor own = desktop.color(QPalette::Active, QPalette::Text);
    palette.setColor(QPalette::Disabled, QPalette::Text, contrast(own, back) >= readable ? own : textOn(back));
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
        palette.setColor(QPalette::Disabled, look.text, pale(text, color));
        palette.setColor(QPalette::PlaceholderText, pale(text, color));
        keepMark(palette, control);
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

double contrast(const QColor& a, const QColor& b)
{
    const auto [dark, light] = std::minmax({luminance(a), luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

void keepReadableWhenDisabled(QWidget* control)
{
    if (control->property(property).isValid()) return;
    const Look look = lookOf(control);
    QPalette palette = control->palette();
    const QColor back = palette.color(QPalette::Disabled, look.back);
    if (contrast(palette.color(QPalette::Disabled, look.text), back) >= readable) return;
    const QColor own = palette.color(QPalette::Active, look.text);
    const QColor text = contrast(own, back) >= readable ? own : textOn(back);
    palette = QPalette();
    palette.setResolveMask(0);
    palette.setColor(QPalette::Disabled, look.text, pale(text, back));
    keepMark(palette, control);
    control->setPalette(palette);
}
