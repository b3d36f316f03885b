#include "platform/forms/controls.h"
#include "platform/forms/palettes.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHeaderView>
#include <QVariant>

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <tuple>

namespace {

constexpr auto colorProperty = "backColor";

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

// The dot of a radio and the tick of a check box tell a value, too: while they are disabled they keep this colour,
// where they have one.
std::optional<QColor> markOf(const QWidget* control)
{
    if (!qobject_cast<const QRadioButton*>(control) && !qobject_cast<const QCheckBox*>(control)) return {};
    const QPalette desktop = QApplication::palette(control);
    const QColor back = desktop.color(QPalette::Disabled, QPalette::Base);
    const QColor own = desktop.color(QPalette::Active, QPalette::Text);
    return contrast(own, back) >= readable ? own : textOn(back);
}

void keepMark(QPalette& palette, const std::optional<QColor>& mark)
{
    if (mark) palette.setColor(QPalette::Disabled, QPalette::Text, *mark);
}

// All is left to the desktop.
QPalette noPalette()
{
    QPalette palette;
    palette.setResolveMask(0);
    return palette;
}

QPalette paletteOf(const QColor& color, const Look& look, const std::optional<QColor>& mark)
{
    QPalette palette = noPalette();
    const QColor text = textOn(color);
    const QColor shut = pale(text, color);
    palette.setColor(look.back, color);
    palette.setColor(look.text, text);
    palette.setColor(QPalette::Disabled, look.text, shut);
    palette.setColor(QPalette::PlaceholderText, shut);
    keepMark(palette, mark);
    return palette;
}

// As it is, where it can be read; else paler than the text of what is enabled, as far as it still can.
QColor textWhenDisabled(const QPalette& palette, QPalette::ColorRole text, QPalette::ColorRole back)
{
    const QColor ground = palette.color(QPalette::Disabled, back);
    const QColor shown = palette.color(QPalette::Disabled, text);
    if (contrast(shown, ground) >= readable) return shown;
    const QColor enabled = palette.color(QPalette::Active, text);
    return pale(contrast(enabled, ground) >= readable ? enabled : textOn(ground), ground);
}

// Worked out once for all controls that look alike, as a change of mode colours dozens of them.
QPalette sharedPalette(const QColor& color, const Look& look, const std::optional<QColor>& mark)
{
    using Kind = std::tuple<QRgb, int, int, QRgb>;
    static std::map<Kind, QPalette> known;
    constexpr size_t most = 100; // the desktop has changed its colours many a time
    const Kind kind{color.rgba(), look.back, look.text, mark ? mark->rgba() : 0};
    if (const auto found = known.find(kind); found != known.end()) return found->second;
    if (known.size() >= most) known.clear();
    return known.emplace(kind, paletteOf(color, look, mark)).first->second;
}

} // namespace

void setBackColor(QWidget* control, const QColor& color)
{
    const Look look = lookOf(control);
    const auto mark = markOf(control);
    const QVariant value = color.isValid() ? QVariant(color) : QVariant();
    const bool sameMark = !mark || control->palette().color(QPalette::Disabled, QPalette::Text) == *mark;
    if (color.isValid() && sameMark && control->property(colorProperty) == value) return;
    control->setProperty(colorProperty, value);
    control->setPalette(color.isValid() ? sharedPalette(color, look, mark) : noPalette());
    if (look.filled) control->setAutoFillBackground(color.isValid());
}

QColor backColor(const QWidget* control)
{
    const QVariant set = control->property(colorProperty);
    return set.isValid() ? set.value<QColor>() : control->palette().color(lookOf(control).back);
}

QPalette firstEqual(const QPalette& palette)
{
    static QList<QPalette> known;
    constexpr qsizetype most = 50;
    const auto found = std::ranges::find(known, palette);
    if (found != known.end()) {
        QPalette first = *found;
        first.setCurrentColorGroup(palette.currentColorGroup());
        return first;
    }
    if (known.size() >= most) known.clear();
    known << palette;
    return palette;
}

double contrast(const QColor& a, const QColor& b)
{
    const auto [dark, light] = std::minmax({luminance(a), luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

void keepReadableWhenDisabled(QWidget* control)
{
    if (control->property(colorProperty).isValid()) return;
    const Look look = lookOf(control);
    QList<std::pair<QPalette::ColorRole, QPalette::ColorRole>> pairs{{look.text, look.back}};
    if (qobject_cast<const QAbstractItemView*>(control))
        pairs.emplaceBack(QPalette::HighlightedText, QPalette::Highlight);
    const QPalette before = control->palette();
    QPalette palette = noPalette();
    bool change = false;
    for (const auto& [text, back] : std::as_const(pairs)) {
        const QColor shown = textWhenDisabled(before, text, back);
        change = change || shown != before.color(QPalette::Disabled, text);
        palette.setColor(QPalette::Disabled, text, shown);
    }
    if (!change) return;
    keepMark(palette, markOf(control));
    control->setPalette(palette);
}
