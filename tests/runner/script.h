// The scenarios of a file, with the steps of their settings in place.
#pragma once

#include "text.h"

// A mistake outside of any scenario is told in `error`: in a setting of the file, in a name that two settings bear, in
// a file that can't be read or can't be included.
struct Script
{
    QList<Scenario> scenarios;
    int errorLine = 0;
    QString error;
};

// Reads a file and those that it includes, against the forms of the language.
Script readScript(const QString& path, const QList<FormOfStep>& forms);
