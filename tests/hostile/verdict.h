// What was promised of a hostile file, and whether it was kept.
#pragma once

#include "folderState.h"
#include "prober.h"
#include "site.h"
#include "state.h"

#include <QProcess>

// How a file is to be met.
enum class Wanted
{
    Anything,
    Opened,
    Refused,
};

// What a site was before the look.
class Before
{
public:
    Before(const Site& site, const QString& folder);

    // Rows that have gone or changed; empty where all are as they were.
    QString lostRows(const Site& site) const;

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

// The first promise that was broken; empty where all were kept.
QString verdict(const Site& site, const Before& before, const Look& look, const State& state, const Ending& ending);

// A word of the engine or of the toolkit that stands in a text for people who read Portuguese; what stands in double
// quotes in the text, names of files and tables, doesn't count, nor what follows its Portuguese word in parentheses.
QString foreignWord(const QString& text);
