#include "platform/forms/dressing.h"

#include <QAbstractButton>
#include <QFontMetricsF>
#include <QGroupBox>
#include <QLabel>
#include <QTabBar>

#include <algorithm>

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
    }
}

QPoint placeBeside(const QRect& caller, const QSize& size, const QSize& room, int step)
{
    if (caller.isEmpty()) return {0, 0};
    const auto within = [](int wanted, int length, int space) {
        return std::clamp(wanted, 0, std::max(space - length, 0));
    };
    const QPoint aligned(within(caller.x(), size.width(), room.width()),
                         within(caller.y(), size.height(), room.height()));
    if (caller.right() + 1 + size.width() <= room.width()) return {caller.right() + 1, aligned.y()};
    if (caller.left() - size.width() >= 0) return {caller.left() - size.width(), aligned.y()};
    if (caller.bottom() + 1 + size.height() <= room.height()) return {aligned.x(), caller.bottom() + 1};
    return {within(std::max(caller.x() + step, room.width() - size.width()), size.width(), room.width()),
            within(caller.y() + step, size.height(), room.height())};
}
