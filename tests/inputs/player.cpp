#include "inputs/player.h"

#include "failure.h"
#include "language.h"

#include <algorithm>
#include <ctime>

namespace {

constexpr double longest = 10; // seconds of the processor

// What the engine says, and the program should have said in other words.
constexpr const char* english[] = {"near \"",          "syntax error",      "no such ",    "constraint failed",
                                   "unrecognized",     "incomplete input",  "malformed",   "datatype mismatch",
                                   "database is",      "LIKE or GLOB",      "too big",     "out of memory",
                                   "not an error",     "no query solution", "attempt to",  "misuse",
                                   "ambiguous column", "disk I/O",          "parser stack"};

QString wordOf(Answer answer)
{
    return answer == Answer::Yes ? "answer yes" : "answer no";
}

} // namespace

bool Outcome::error() const
{
    return std::ranges::any_of(boxes, [](const QString& box) { return box.startsWith("Ocorreu o erro "); });
}

void Outcome::add(const Outcome& later)
{
    boxes += later.boxes;
    refusedByUser |= later.refusedByUser;
}

// More than any step asks for.
QStringList StepPlayer::plan()
{
    QStringList lines;
    stage_.state.answers.clear();
    stage_.state.picks.clear();
    for (int i = 0; i < 6; ++i) {
        stage_.state.answers.append(dice_.oneIn(4) ? Answer::No : Answer::Yes);
        lines << wordOf(stage_.state.answers.last());
    }
    for (int i = 0; i < 2; ++i) {
        stage_.state.picks.append(QString());
        lines << "pick cancel";
    }
    return lines;
}

QStringList StepPlayer::used(const QStringList& planned) const
{
    const qsizetype answers = 6 - stage_.state.answers.size(), picks = 2 - stage_.state.picks.size();
    return planned.mid(0, answers) + planned.mid(6, picks);
}

QStringList StepPlayer::seen(Outcome& outcome)
{
    QStringList lines;
    for (const Box& box : std::as_const(stage_.state.boxes)) {
        if (box.question) continue;
        outcome.boxes << box.text;
        lines
            << QStringLiteral("expect message %1 icon %2 title %3").arg(quoted(box.text), box.icon, quoted(box.title));
    }
    for (const QString& opened : std::as_const(stage_.state.opened))
        lines << "expect opened " + quoted(opened);
    stage_.state.boxes.clear();
    stage_.state.opened.clear();
    return lines;
}

Outcome StepPlayer::play(const QString& line)
{
    const QStringList planned = plan();
    journal_.begin(planned, line);
    const QList<Answer> answers = stage_.state.answers;
    Outcome outcome;
    QString told = line;
    const std::clock_t begun = std::clock();
    try {
        const Step step = parseStep(line, forms());
        Play play(stage_, step);
        language()[step.form].play(play);
        outcome.done = true;
    } catch (const Failure& failure) {
        // What couldn't be typed or chosen has moved the focus there all the same.
        const QStringList words = line.split(' ');
        const bool moved = QStringList{"type", "paste", "choose"}.contains(words.first());
        told = moved ? "focus " + words.value(1) : "# " + line.left(300) + ": " + failure.reason;
    }
    const double seconds = double(std::clock() - begun) / CLOCKS_PER_SEC;
    const QStringList taken = used(planned);
    outcome.refusedByUser = answers.mid(0, answers.size() - stage_.state.answers.size()).contains(Answer::No);
    journal_.end(taken, told, seen(outcome));
    stage_.state.answers.clear();
    stage_.state.picks.clear();

    if (seconds > longest) fail(QStringLiteral("a step took %1 seconds: %2").arg(seconds).arg(line.left(300)));
    for (const QString& box : std::as_const(outcome.boxes))
        for (const char* words : english)
            if (box.contains(words)) fail("a box speaks English: " + quoted(box));
    return outcome;
}

Outcome StepPlayer::prepare(const QString& line)
{
    const Step step = parseStep(line, forms());
    Play play(stage_, step);
    language()[step.form].play(play);
    return {};
}
