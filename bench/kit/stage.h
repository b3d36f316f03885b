// The program's windows on a BDP, and the bare side's connection to the same rows.
#pragma once

#include "kit/bare.h"
#include "kit/files.h"
#include "kit/measure.h"

#include <QMainWindow>

#include <functional>
#include <optional>

class QMdiArea;

namespace bench {

enum class Files
{
    Shared, // both sides read one file, which nobody writes to
    Own     // each has a copy: the other's writes would make it read all anew
};

// Opens cnBDP as the program does, and shows an empty document area.
class Stage
{
public:
    Stage(int people, Files files);
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    Bare& bare() { return *bare_; }
    QMdiArea& area() { return *area_; }

private:
    std::optional<OwnParish> ours_, bares_;
    std::unique_ptr<Bare> bare_;
    QMainWindow window_;
    QMdiArea* area_;
};

// Sides with a stage.
class StagedSides : public Sides
{
public:
    StagedSides(int people, Files files) : stage_(people, files) {}

    sqlite3* ourHandle() const override;
    sqlite3* bareHandle() const override { return bareHandle_; }

protected:
    Bare& bareSide() { return stage_.bare(); }
    Stage& stage() { return stage_; }

private:
    Stage stage_;
    sqlite3* bareHandle_ = stage_.bare().handle();
};

// Answers the next box with "Sim"; any other box ends the process, as a measure that waits for ever is none.
void answerYes();
// From now on, or no longer, all boxes get their first answer.
void answerBoxes(bool all);

} // namespace bench
