// A scenario file as it stands.
#pragma once

#include "step.h"

// A scenario or a setting.
struct Scenario
{
    QString title;
    int line = 0;
    QList<Step> steps; // in a Text, one without a form is a "with": its operand is the name of the setting

    // The first mistake in its text; such a scenario isn't played.
    int errorLine = 0;
    QString error;
};

struct Include
{
    QString path;
    int line = 0;
};

// A mistake outside of any scenario and setting, or a file that can't be read, is told in `error`.
struct Text
{
    QString path;
    QList<Scenario> scenarios;
    QList<Scenario> settings;
    QList<Include> includes;
    int errorLine = 0;
    QString error;
};

Text readText(const QString& path, const QList<FormOfStep>& forms);
