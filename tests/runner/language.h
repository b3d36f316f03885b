// The language of the scenarios: every form of a step, and what it does.
#pragma once

#include "script.h"
#include "stage.h"

// When a step may be played while the program still waits inside the one before, behind a splash that was left alone.
enum class Within
{
    Never,
    Always, // a key for the splash, say
    Seen    // as soon as what it expects is seen
};

// What stands in the operands of a step, at a stage.
class Play
{
public:
    Play(Stage& where, const Step& what) : stage(where), step(what) {}

    Stage& stage;
    const Step& step;

    const QString& word(int i) const { return step.operands[i].text; }
    QString text(int i) const { return stage.filled(word(i)); }
    QString path(int i) const { return stage.path(word(i)); }
    int number(int i) const { return word(i).toInt(); }
    QList<Operand> from(int i) const { return step.operands.mid(i); }
};

struct StepForm
{
    const char* form; // as a FormOfStep has it
    void (*play)(Play& play);
    bool prepares = false;
};

const QList<StepForm>& language();
QList<FormOfStep> forms();

Within within(const Step& step);
bool isRestart(const Step& step);
