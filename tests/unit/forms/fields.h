// Fields to type in, each on a form of its own.
#pragma once

#include "forms/house.h"

class Fields : public House
{
protected:
    // A shown and focused control on a form.
    template <class Control>
    Control* shown()
    {
        Control* control = nullptr;
        make("frmA", [&](TestForm& form) { control = form.put<Control>("campo"); })->display();
        QCoreApplication::processEvents();
        Focus::setTo(control);
        return control;
    }
};
