// One line of a scenario file, read against the forms of the language.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// A form of a step, a line of words: small ones stand as they are, TEXT, NUMBER, CONTROL, NAME, MENU, KEY, CELL, STATE,
// FORMSTATE and ICON stand for operands; a "+" behind the last one allows several, and "..." tells of a body.
struct FormOfStep
{
    QString text;
    bool prepares = false; // a setting may hold it

    bool hasBody() const { return text.endsWith(" ..."); }
};

struct Operand
{
    QString text;
    bool isText = false; // stood in double quotes
};

// One step: the form of the language that it has (an index into language()), and what stands in the places of the form.
struct Step
{
    int line = 0; // in the scenario's file; of a step out of a setting: the line of the "with" that asked for it
    int form = -1;
    QList<Operand> operands;
    QStringList body; // the lines up to "end", of the forms that have them
    QString origin;   // of a step out of a setting: where it stands there, and by which settings it came here
};

// The step of a line. Throws Failure where no form fits, with those that come nearest.
Step parseStep(const QString& line, const QList<FormOfStep>& forms);

bool opensWith(const QString& line, const QString& word);
// The text of a line that is a word and a text. Throws Failure with `reason` where it is anything else.
QString onlyText(const QString& line, const QString& reason);
