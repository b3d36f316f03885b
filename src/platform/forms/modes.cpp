#include "platform/forms/modes.h"

#include "platform/forms/controls.h"

#include <QHash>
#include <QMetaProperty>
#include <QVariant>

namespace {

// A line of a table, with the control that it speaks of.
struct Found
{
    QWidget* control;
    QMetaProperty locked; // invalid for a control that can't be locked
};

struct Table
{
    QList<ModeRow> rows; // a copy keeps them where they stand, so that they are known by their place
    QList<Found> controls;
};

Found find(const QWidget* form, const char* name)
{
    auto* control = form->findChild<QWidget*>(QString::fromLatin1(name));
    if (!control) qFatal("%s has no control %s", qPrintable(form->objectName()), name);
    const QMetaObject* kind = control->metaObject();
    return {control, kind->property(kind->indexOfProperty("locked"))};
}

// The controls of a form are looked for once: they live as long as it does. A copy, for what a control does as it is
// shut may apply another table.
Table tableOf(QWidget* form, const QList<ModeRow>& rows)
{
    static QHash<const QObject*, QHash<const ModeRow*, Table>> known;
    if (!known.contains(form))
        QObject::connect(form, &QObject::destroyed, [](const QObject* gone) { known.remove(gone); });
    Table& table = known[form][rows.constData()];
    if (table.rows.isEmpty()) {
        table.rows = rows;
        for (const ModeRow& row : rows)
            table.controls << find(form, row.control);
    }
    return table;
}

// A control that can't be locked is shut by disabling it.
void setShut(const Found& found, bool shut)
{
    if (found.locked.isValid())
        found.locked.write(found.control, shut);
    else
        found.control->setEnabled(!shut);
}

void apply(const Found& found, const ModeCell& cell)
{
    QWidget* const control = found.control;
    switch (cell.effect) {
    case Effect::Keep:
        break;
    case Effect::Open:
    case Effect::Shut:
        setShut(found, cell.effect == Effect::Shut);
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
    const Table found = tableOf(form, table);
    for (qsizetype i = 0; i < table.size(); ++i)
        apply(found.controls[i], table[i].*cell);
}
