#include "platform/forms/tabstops.h"

#include <QRadioButton>
#include <QVariant>

namespace {

bool isOpen(const QWidget* control)
{
    return control->isVisible() && control->isEnabled();
}

// The radio that the Tab key stops at among those of one frame. The toolkit would stop at the one that had the focus
// last, whatever is chosen now.
const QRadioButton* stopOfGroup(const QRadioButton* member)
{
    const QRadioButton* first = nullptr;
    const auto group = member->parentWidget()->findChildren<QRadioButton*>(Qt::FindDirectChildrenOnly);
    for (const QRadioButton* radio : group) {
        if (!isOpen(radio)) continue;
        if (radio->isChecked()) return radio;
        if (!first) first = radio;
    }
    return first;
}

bool isTabStop(const QWidget* control, const QWidget* from)
{
    if (!isOpen(control) || control->focusProxy() || control->property("locked").toBool()) return false;
    if (const auto* radio = qobject_cast<const QRadioButton*>(control)) {
        const bool sameGroup = qobject_cast<const QRadioButton*>(from) && from->parentWidget() == radio->parentWidget();
        return !sameGroup && stopOfGroup(radio) == radio;
    }
    return (control->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
}

} // namespace

QWidget* nextTabStop(QWidget* form, QWidget* from, bool forward)
{
    QWidget* const start = from && form->isAncestorOf(from) ? from : form;
    const auto step = [=](const QWidget* control) {
        return forward ? control->nextInFocusChain() : control->previousInFocusChain();
    };
    for (QWidget* control = step(start); control != start; control = step(control))
        if (form->isAncestorOf(control) && isTabStop(control, start)) return control;
    return nullptr;
}
