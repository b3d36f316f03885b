#include "recorder.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

namespace {

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

Recorder& recorder()
{
    static Recorder one;
    return one;
}

void Recorder::begin(const QString& folder)
{
    const QMutexLocker lock(&mutex_);
    if (recording_now_) return;
    folder_ = QFileInfo(folder).canonicalFilePath();
    recording_.states << snapshotOf(folder_);
    QDirIterator found(folder_, QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDirIterator::Subdirectories);
    while (found.hasNext()) {
        const QString path = found.next();
        const QString name = relative(path);
        if (found.fileInfo().isDir()) {
            recording_.folders << name;
        } else {
            recording_.files.insert(name, bytesOf(path));
        }
    }
    for (const QString& name : recording_.files.keys()) // in the order in which the model of the disk has them
        names_.insert(name, files_++);
    recording_now_ = true;
}

void Recorder::end()
{
    const QMutexLocker lock(&mutex_);
    recording_now_ = false;
}

void Recorder::mark(int number, const QString& step, const QStringList& boxes)
{
    const QMutexLocker lock(&mutex_);
    if (!recording_now_) return;
    const Snapshot& last = recording_.states.last();
    const bool untouched = recording_.operations.isEmpty() || recording_.operations.last().did == Did::Mark;
    if (const Snapshot now = untouched ? last : snapshotOf(folder_, last); now != last) recording_.states << now;
    add({Did::Mark, -1, step, {}, recording_.marks.size(), {}});
    QList<int> calls;
    for (std::atomic<int>& counted : calls_)
        calls << counted.exchange(0);
    recording_.marks << Mark{number, step, int(recording_.states.size()) - 1, boxes, calls};
}

QString Recorder::relative(const QString& path) const
{
    const QFileInfo info(path);
    const QString whole = QDir::cleanPath(info.absoluteFilePath());
    if (whole == folder_) return QLatin1String("");
    return whole.startsWith(folder_ + '/') ? whole.mid(folder_.size() + 1) : QString();
}

int Recorder::known(const QString& name)
{
    const auto found = names_.constFind(name);
    if (found != names_.constEnd()) return *found;
    names_.insert(name, files_);
    add({Did::Create, files_, name, {}, 0, {}});
    return files_++;
}

void Recorder::add(const Operation& operation)
{
    recording_.operations << operation;
}

int Recorder::opened(const QString& path)
{
    const QMutexLocker lock(&mutex_);
    const QString name = recording_now_ ? relative(path) : QString();
    return name.isEmpty() ? -1 : known(name);
}

void Recorder::created(const QString& path)
{
    opened(path);
}

void Recorder::wrote(int file, const QString& path, qint64 offset, const QByteArray& bytes)
{
    const QMutexLocker lock(&mutex_);
    if (recording_now_ && file >= 0) add({Did::Write, file, relative(path), {}, offset, bytes});
}

void Recorder::truncated(int file, const QString& path, qint64 size)
{
    const QMutexLocker lock(&mutex_);
    if (recording_now_ && file >= 0) add({Did::Truncate, file, relative(path), {}, size, {}});
}

void Recorder::synced(int file, const QString& path)
{
    const QMutexLocker lock(&mutex_);
    if (recording_now_ && file >= 0) add({Did::SyncFile, file, relative(path), {}, 0, {}});
}

void Recorder::unlinked(const QString& path)
{
    const QMutexLocker lock(&mutex_);
    const QString name = recording_now_ ? relative(path) : QString();
    if (names_.remove(name) > 0) add({Did::Unlink, -1, name, {}, 0, {}});
}

void Recorder::renamed(const QString& from, const QString& to)
{
    const QMutexLocker lock(&mutex_);
    const QString source = recording_now_ ? relative(from) : QString();
    const QString target = recording_now_ ? relative(to) : QString();
    if (source.isEmpty() || target.isEmpty()) return;
    const int file = known(source);
    names_.remove(source);
    names_.insert(target, file);
    add({Did::Rename, file, source, target, 0, {}});
}

void Recorder::madeFolder(const QString& path)
{
    const QMutexLocker lock(&mutex_);
    const QString name = recording_now_ ? relative(path) : QString();
    if (!name.isEmpty()) add({Did::MakeFolder, -1, name, {}, 0, {}});
}

void Recorder::syncedFolder(const QString& path)
{
    const QMutexLocker lock(&mutex_);
    const QString name = recording_now_ ? relative(path) : QString();
    if (!name.isNull()) add({Did::SyncFolder, -1, name, {}, 0, {}});
}

Fault Recorder::fault(Call call)
{
    if (!recording_now_) return Fault::None;
    int reached = 0; // by the calls that the fault of the plan can befall
    for (const Fault fault : faults)
        if (befalls(fault, call)) {
            const int now = ++calls_[size_t(fault)];
            if (fault == plan_.fault) reached = now;
        }
    if (plan_.at == 0 || reached < plan_.at || (reached > plan_.at && !plan_.lasting)) return Fault::None;
    fired_ = true;
    return plan_.fault;
}

void Recorder::plan(const Plan& plan)
{
    plan_ = plan;
    for (std::atomic<int>& counted : calls_)
        counted = 0;
    fired_ = false;
}
