#include "platform/forms/dressing.h"

#include "platform/forms/controls.h"

#include <QApplication>
#include <QEvent>
#include <QFontMetricsF>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QTabBar>

#include <algorithm>
#include <limits>

namespace {

constexpr double drawnDigit = 8; // pixels of a digit in the font that the forms were drawn with

QString plain(QString caption)
{
    caption.remove('&');
    while (caption.endsWith(':') || caption.endsWith(' '))
        caption.chop(1);
    return caption.simplified();
}

void addName(QWidget* control, const QString& name)
{
    if (name.isEmpty()) return;
    const QString before = control->accessibleName();
    control->setAccessibleName(before.isEmpty() ? name : before + ' ' + name);
}

// A screen reader takes what a list shows for its name, and looks for a label beside it: one that nobody sees is put
// there where there is none.
void labelList(QComboBox* list)
{
    const auto beside = list->parentWidget()->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
    const auto isOurs = [list](const QLabel* label) { return label->buddy() == list; };
    const auto found = std::ranges::find_if(beside, isOurs);
    QLabel* label = found != beside.end() ? *found : new QLabel(list->parentWidget());
    label->setAccessibleName(list->accessibleName());
    if (found != beside.end()) return;
    label->setBuddy(list);
    label->hide();
}

constexpr auto looksLocked = "looksLocked";

// A little of the text's colour in that of the window: on a dark desktop, too, it is seen where the field is.
void giveColorOfWindow(QWidget* field)
{
    const QPalette desktop = QApplication::palette(field);
    const QColor window = desktop.color(QPalette::Window), text = desktop.color(QPalette::WindowText);
    const auto mix = [](int a, int b) { return (94 * a + 6 * b) / 100; };
    setBackColor(field, QColor(mix(window.red(), text.red()), mix(window.green(), text.green()),
                               mix(window.blue(), text.blue())));
}

class ContrastKeeper : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* control, QEvent* event) override
    {
        if (event->type() != QEvent::PaletteChange) return false;
        auto* field = static_cast<QWidget*>(control);
        if (field->property(looksLocked).toBool()) giveColorOfWindow(field);
        keepReadableWhenDisabled(field);
        return false;
    }
};

} // namespace

void nameControls(QWidget* form)
{
    QList<QWidget*> named; // in the .ui
    const auto controls = form->findChildren<QWidget*>();
    for (QWidget* control : controls)
        if (!control->accessibleName().isEmpty()) named.append(control);

    const auto labels = form->findChildren<QLabel*>();
    for (const QLabel* label : labels)
        if (label->buddy() && !named.contains(label->buddy())) addName(label->buddy(), plain(label->text()));
    const auto frames = form->findChildren<QGroupBox*>();
    for (QGroupBox* frame : frames)
        if (!named.contains(frame)) addName(frame, plain(frame->title()));
    const auto lists = form->findChildren<QComboBox*>();
    for (QComboBox* list : lists)
        if (!list->accessibleName().isEmpty()) labelList(list);
}

void tellShortcuts(QWidget* form)
{
    const auto buttons = form->findChildren<QAbstractButton*>();
    for (QAbstractButton* button : buttons) {
        const QKeySequence keys = button->shortcut();
        if (keys.isEmpty() || keys == QKeySequence::mnemonic(button->text())) continue;
        QString tip = button->toolTip();
        if (tip.endsWith('.')) tip.chop(1);
        button->setToolTip(QStringLiteral("%1 (%2)").arg(tip, keys.toString(QKeySequence::NativeText)));
    }
}

void showLockedFields(QWidget* form)
{
    const auto fields = form->findChildren<TextBox*>();
    for (TextBox* field : fields)
        if (field->property(looksLocked).toBool()) giveColorOfWindow(field);
}

double fontScale(const QWidget* form)
{
    return std::max(1.0, QFontMetricsF(form->font()).horizontalAdvance('0') / drawnDigit);
}

void followFont(QWidget* form)
{
    const double scale = fontScale(form);
    if (scale <= 1) return;
    const auto controls = form->findChildren<QWidget*>();
    for (QWidget* control : controls) {
        const int least = control->minimumWidth();
        const int most = control->maximumWidth();
        if (most < QWIDGETSIZE_MAX) control->setMaximumWidth(qRound(most * scale));
        if (least > 0) control->setMinimumWidth(qRound(least * scale));
        if (qobject_cast<QAbstractItemView*>(control))
            control->setMinimumHeight(qRound(control->minimumHeight() * scale));
    }
}

void keepFieldsReadable(QWidget* form)
{
    auto* keeper = new ContrastKeeper(form);
    const auto controls = form->findChildren<QWidget*>();
    for (QWidget* control : controls) {
        const bool field = qobject_cast<QLineEdit*>(control) || qobject_cast<QComboBox*>(control) ||
                           qobject_cast<QAbstractScrollArea*>(control) || qobject_cast<QCheckBox*>(control) ||
                           qobject_cast<QGroupBox*>(control);
        if (!field) continue;
        keepReadableWhenDisabled(control);
        control->installEventFilter(keeper);
    }
}

QPoint placeBeside(const QRect& caller, const QSize& size, const QSize& room, int step)
{
    if (caller.isEmpty()) return {0, 0};
    const int right = std::max(room.width() - size.width(), 0);
    const int bottom = std::max(room.height() - size.height(), 0);
    const int x = std::clamp(caller.x(), 0, right);
    const int y = std::clamp(caller.y(), 0, bottom);
    const int stepX = std::clamp(caller.x() + step, 0, right);
    const int stepY = std::clamp(caller.y() + step, 0, bottom);
    // The first three may have no room, the others always have.
    const QList<QPoint> spots{{caller.right() + 1, y},
                              {caller.left() - size.width(), y},
                              {x, caller.bottom() + 1},
                              {right, stepY},
                              {0, stepY},
                              {stepX, stepY}};
    QPoint best;
    int least = std::numeric_limits<int>::max();
    for (const QPoint& spot : spots) {
        if (spot.x() < 0 || spot.x() > right || spot.y() > bottom) continue;
        const QRect covered = QRect(spot, size) & caller;
        const int area = covered.width() * covered.height();
        if (area < least) best = spot, least = area;
    }
    return best;
}
