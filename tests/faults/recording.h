// What was done to a disk while a workload was played, and what the user had been told at each point of it.
#pragma once

#include "snapshot.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

enum class Did : quint8
{
    Create,     // a name for a new, empty file
    Write,      // bytes at an offset
    Truncate,   // the size is the offset
    SyncFile,   // all that was done to the file's contents
    Unlink,     // a name
    Rename,     // path to `to`, in place of what had that name
    MakeFolder, // a name for a folder
    SyncFolder, // all that was done to the names in the folder
    Mark        // no operation: a step of the workload is over; `offset` is an index into the marks
};

// Paths are relative to the folder of the workload.
struct Operation
{
    Did did = Did::Mark;
    int file = -1; // the file itself, whatever its name is by now
    QString path;
    QString to;
    qint64 offset = 0;
    QByteArray bytes;
};

// The user has been told that a step is over: what stood in the BDPs then stands for good.
struct Mark
{
    int number = 0; // of the step
    QString step;
    int state = 0;     // index into the states
    QStringList boxes; // what came up in it
    QList<int> calls;  // how many of them each fault could befall, by the fault
};

struct Recording
{
    QString title;
    QString failure;                 // why the workload couldn't be played; empty where it could
    QMap<QString, QByteArray> files; // the disk before the first operation, all of it synced
    QStringList folders;
    QList<Snapshot> states; // 0: before the first operation
    QList<Mark> marks;
    QList<Operation> operations;

    void write(const QString& file) const;
    bool read(const QString& file);
};

// An operation as a report tells it.
QString told(const Operation& operation);
