// The controls of a form, for the tests and the benchmarks alone: to everybody else a form keeps them to itself.
#pragma once

#include <QWidget>

// The control with that object name. One that the form hasn't got is a mistake of the test and ends it.
template <class Control>
Control& control(const QWidget& form, const char* name)
{
    auto* found = form.findChild<Control*>(QString::fromLatin1(name));
    if (!found) qFatal("%s has no control %s", qPrintable(form.objectName()), name);
    return *found;
}
