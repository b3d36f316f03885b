#include "platform/forms/modes.h"

#include "platform/forms/controls.h"

#include <QMetaObject>
#include <QVariant>

namespace {

// A control that can't be locked is shut by disabling it.
void setShut(QWidget* control, bool shut)
{
    if (control->metaObject()->indexOfProperty("locked") >= 0)
        control->setProperty("locked", shut);
    else
        control->setEnabled(!shut);
}

void apply(QWidget* control, const ModeCell& cell)
{
    switch (cell.effect) {
    case Effect::Keep:
        break;
    case Effect::Open:
    case Effect::Shut:
        setShut(control, cell.effect == Effect::Shut);
        break;
    case Effect::Enabled:
    case Effect::Disabled:
        control->setEnabled(cell.effect == Effect::Enabled);
        break;
    case Effect::Visible:
    case Effect::Hidden:
        control->setVisible(cell.effect == Effect::Visible);
        break;
    }
    if (cell.color.isValid()) setBackColor(control, cell.color);
}

} // namespace

void applyMode(QWidget* form, const QList<ModeRow>& table, Modo mode)
{
    const auto cell = mode == Modo::Edi ? &ModeRow::edi : mode == Modo::Cons ? &ModeRow::cons : &ModeRow::loc;
    for (const ModeRow& row : table) {
        auto* control = form->findChild<QWidget*>(QString::fromLatin1(row.control));
        if (!control) qFatal("%s has no control %s", qPrintable(form->objectName()), row.control);
        apply(control, row.*cell);
    }
}
