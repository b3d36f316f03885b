// What was promised of a hostile file, and whether it was kept.
#pragma once

#include "folderState.h"
#include "prober.h"
#include "site.h"
#include "state.h"

#include <QProcess>

#include <limits>

// How a file is to be met.
enum class Wanted
{
    Anything,
    Opened,
    Calm, // opened, and no error comes up: what it holds are texts like others
    Refused,
};

// What a site was before the look.
class Before
{
public:
    Before(const Site& site, const QString& folder);

    // Rows that have gone or changed; empty where no table has more of them than `mayChange`.
    QString lostRows(const Site& site, int mayChange) const;

    FolderState files;

private:
    QString copy_; // of the file, with what belongs to it
    bool belongs_;
};

struct Ending
{
    QProcess::ExitStatus status = QProcess::NormalExit;
    int code = 0;
    int seconds = 0; // that a step was allowed
};

constexpr int anyNumber = std::numeric_limits<int>::max();

// The first promise that was broken; empty where all were kept. Where nobody has worked in the file no row may change,
// otherwise `mayChange` of each table.
QString verdict(const Site& site, const Before& before, const Look& look, const State& state, const Ending& ending,
                int mayChange = 0);

// Why the file wasn't met as it should be; empty where it was.
QString unmet(Wanted wanted, const Look& look, const State& state);

// A word of the engine or of the toolkit that stands in a text for people who read Portuguese; what stands in double
// quotes in the text, names of files and tables, doesn't count, nor what follows its Portuguese word in parentheses.
QString foreignWord(const QString& text);
