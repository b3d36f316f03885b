// Takes down what is done to the files of one folder, and makes a chosen call fail.
#pragma once

#include "fault.h"
#include "recording.h"

#include <QMutex>

#include <array>
#include <atomic>

// One for the process. The VFS and the disk below it report to it, from any thread.
class Recorder
{
public:
    // From here on what is done below `folder`, which is all synced, goes into the recording. Once.
    void begin(const QString& folder);
    void end();

    // A step is over: what stands in the BDPs is what the user was told.
    void mark(int number, const QString& step, const QStringList& boxes);

    // What each operation reports; a path that isn't below the folder gets the file -1, which nothing is recorded of.
    int opened(const QString& path); // the file of that name, a new one where it has none yet
    void created(const QString& path);
    void wrote(int file, const QString& path, qint64 offset, const QByteArray& bytes);
    void truncated(int file, const QString& path, qint64 size);
    void synced(int file, const QString& path);
    void unlinked(const QString& path);
    void renamed(const QString& from, const QString& to);
    void madeFolder(const QString& path);
    void syncedFolder(const QString& path);

    // Every call that can fail asks here: it is counted, and fails where the plan says so.
    Fault fault(Call call);
    void plan(const Plan& plan); // and counts anew
    bool fired() const { return fired_; }

    const Recording& recording() const { return recording_; }
    Recording& recording() { return recording_; }

private:
    QString relative(const QString& path) const; // null where it isn't below the folder
    int known(const QString& name);
    void add(const Operation& operation);

    QMutex mutex_;
    std::atomic<bool> recording_now_ = false;
    QString folder_;
    QMap<QString, int> names_;
    int files_ = 0;
    Recording recording_;

    Plan plan_;
    std::array<std::atomic<int>, std::size(faults)> calls_{};
    std::atomic<bool> fired_ = false;
};

Recorder& recorder();
