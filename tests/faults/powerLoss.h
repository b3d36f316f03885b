// The power is cut at every point of a recording, and the BDPs that are left are opened by the program.
#pragma once

#include "diskModel.h"

// One cut: before operation `cut` of the recording (its count: after the last).
struct Point
{
    int cut = 0;
    Model model = Model::AllKept;
    quint32 seed = 0;
};

// What a recording promises with less than what was synced: the harness is shown to find what is then lost.
enum class Weakened
{
    No,
    FolderSyncs, // a name is never synced
    AllSyncs     // nothing is
};
Recording weakened(Recording recording, Weakened how);

// `count` points of a recording, drawn by the seed: each cut in each model where the count allows it.
QList<Point> pointsOf(const Recording& recording, qsizetype count, quint32 seed);
qsizetype pointsOfOneRound(const Recording& recording);

struct Tally
{
    qsizetype points = 0;
    qsizetype disks = 0;    // that differ
    qsizetype failures = 0; // points at which something is lost, half or can't be opened
};

// Checks the points and prints what is wrong, with what repeats it; at most `reports` of them. `folder` is where the
// disks are made; the last one stays there.
// Precondition: an application runs.
Tally checkPoints(const Recording& recording, const QList<Point>& points, const QString& folder, int reports);
