// What the program finds when it is started after a power cut.
#pragma once

#include "diskModel.h"
#include "stage.h"
#include "watcher.h"

// Each BDP is as it was when the last step ended, or as it is when the step under way has ended: nothing between.
struct Promise
{
    Snapshot before;
    Snapshot after;
    bool operator==(const Promise& other) const { return before == other.before && after == other.after; }
};

// Precondition: an application runs.
class Reopening
{
public:
    // The disks are made in a folder below `folder`.
    Reopening(const Recording& recording, const QString& folder);

    // What is wrong on this disk, each in a sentence. It stays until the next one is made.
    QStringList problems(const DiskImage& image, const Promise& promise);

private:
    void make(const DiskImage& image);
    QString problemOf(const QString& name, const Promise& promise);
    QString opened(const QString& path); // what came up instead
    QString problemOfCopy(const QString& name) const;
    static QString leftoverBeside(const QString& path);
    static QString problemOfLaterWork(const QString& path);

    const Recording& recording_;
    Stage stage_;
    Watcher watcher_;
    int disks_ = 0;
};
