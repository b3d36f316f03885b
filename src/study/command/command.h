// The shell command of the study: orv-estudo.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class QTextStream;

namespace study {

// How a run ended, as the shell sees it.
inline constexpr int done = 0;
inline constexpr int refused = 1; // a damaged file, a BDP that can't be opened or is in work elsewhere, an interruption
inline constexpr int wrongUsage = 2;    // arguments that can't be understood
inline constexpr int nothingStored = 3; // of one of the files, whose acts were all refused

// How a check ended.
inline constexpr int nothingFound = 0;
inline constexpr int somethingFound = 1;
inline constexpr int notChecked = 2; // wrong arguments, a BDP that can't be read, an interruption, nowhere to tell it

// How counting ended, and what is made of the counts.
inline constexpr int counted = 0;
inline constexpr int notCounted =
    2; // as notChecked; also files that can't be joined, or a target that can't be written

// Runs the command with its arguments, without its own name. Reports go to `out`; problems, as "ficheiro:linha: razão",
// to `err`. `goesOn` is asked between two acts, and now and then while a parish is read, checked or counted; false ends
// the work, and nothing of the file at hand is left. Throws nothing.
// Precondition where needsWindows(): an application for windows.
int runCommand(const QStringList& arguments, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn);

// Whether charts are drawn for these arguments.
bool needsWindows(const QStringList& arguments);

} // namespace study
