// The modes of a card, as a table.
#pragma once

#include <QColor>
#include <QList>

class QWidget;

// The modes, by the system's words: a record is edited, consulted, or searched for.
enum class Modo
{
    Edi,
    Cons,
    Loc
};

// What one mode does to one control.
enum class Effect
{
    Keep, // leaves the control as it is
    Open, // not locked; a control that can't be locked: enabled
    Shut, // locked; a control that can't be locked: disabled
    Enabled,
    Disabled,
    Visible,
    Hidden,
};

struct ModeCell
{
    Effect effect = Effect::Keep;
    QColor color = {}; // background, set as well; invalid: left as it is
};

// One line of a card's table: the control, and its cell in each mode, in the order of the modes.
struct ModeRow
{
    const char* control; // object name
    ModeCell edi, cons, loc = {};
};

// Applies the column of `mode` to the controls of `form`, in the order of the rows.
// Precondition: the form has every control of the table; the program is stopped otherwise.
void applyMode(QWidget* form, const QList<ModeRow>& table, Modo mode);
