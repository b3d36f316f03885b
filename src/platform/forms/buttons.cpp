#include "platform/forms/controls.h"

CommandButton::CommandButton(QWidget* parent) : QPushButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAutoDefault(true);
}

OptionButton::OptionButton(QWidget* parent) : QRadioButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

void OptionButton::setValue(bool on)
{
    // An exclusive radio can't be switched off.
    const bool exclusive = autoExclusive();
    if (!on) setAutoExclusive(false);
    setChecked(on);
    setAutoExclusive(exclusive);
}
