#include "recording.h"

#include <QDataStream>
#include <QFile>

static QDataStream& operator<<(QDataStream& out, const Operation& operation)
{
    return out << quint8(operation.did) << operation.file << operation.path << operation.to << operation.offset
               << operation.bytes;
}

static QDataStream& operator>>(QDataStream& in, Operation& operation)
{
    quint8 did = 0;
    in >> did >> operation.file >> operation.path >> operation.to >> operation.offset >> operation.bytes;
    operation.did = Did(did);
    return in;
}

static QDataStream& operator<<(QDataStream& out, const Mark& mark)
{
    return out << mark.number << mark.step << mark.state << mark.boxes << mark.calls;
}

static QDataStream& operator>>(QDataStream& in, Mark& mark)
{
    return in >> mark.number >> mark.step >> mark.state >> mark.boxes >> mark.calls;
}

void Recording::write(const QString& path) const
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) qFatal("the recording can't be written");
    QDataStream out(&file);
    out << title << failure << files << folders << states << marks << operations;
}

bool Recording::read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    QDataStream in(&file);
    in >> title >> failure >> files >> folders >> states >> marks >> operations;
    return in.status() == QDataStream::Ok;
}

QString told(const Operation& operation)
{
    switch (operation.did) {
    case Did::Create:
        return "create " + operation.path;
    case Did::Write:
        return QStringLiteral("write %1 bytes at %2 of %3")
            .arg(operation.bytes.size())
            .arg(operation.offset)
            .arg(operation.path);
    case Did::Truncate:
        return QStringLiteral("cut %1 to %2 bytes").arg(operation.path).arg(operation.offset);
    case Did::SyncFile:
        return "sync " + operation.path;
    case Did::Unlink:
        return "remove " + operation.path;
    case Did::Rename:
        return "rename " + operation.path + " to " + operation.to;
    case Did::MakeFolder:
        return "make the folder " + operation.path;
    case Did::SyncFolder:
        return "sync the folder " + (operation.path.isEmpty() ? QStringLiteral(".") : operation.path);
    case Did::Mark:
        return QStringLiteral("end of a step");
    }
    return {};
}
