// Reading scenario files.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

struct Operand
{
    QString text;
    bool isText = false; // stood in double quotes
};

// One step: the form of the language that it has (an index into language()), and what stands in the places of the form.
struct Step
{
    int line = 0;
    int form = -1;
    QList<Operand> operands;
    QStringList body; // the lines up to "end", of the forms that have them
};

struct Scenario
{
    QString title;
    int line = 0;
    QList<Step> steps;

    // The first mistake in its text; such a scenario isn't played.
    int errorLine = 0;
    QString error;
};

// A scenario file. A mistake outside of any scenario, or a file that can't be read, is told in `error`.
struct Script
{
    QList<Scenario> scenarios;
    int errorLine = 0;
    QString error;
};

// Reads a file against the forms of the language. A form is a line of words: small ones stand as they are, TEXT,
// NUMBER, CONTROL, NAME, MENU, KEY, CELL, STATE, FORMSTATE and ICON stand for operands; a "+" behind the last one
// allows several, and "..." tells of a body.
Script readScript(const QString& path, const QStringList& forms);
