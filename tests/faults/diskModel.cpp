#include "diskModel.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

#include <algorithm>

namespace {

constexpr qint64 sector = 512;
constexpr int folderOnly = -1;

QString folderOf(const QString& name)
{
    const auto at = name.lastIndexOf('/');
    return at < 0 ? QString("") : name.left(at);
}

// One of `n`, even where that is 1.
bool oneOf(QRandomGenerator& draw, int n)
{
    return draw.bounded(n) == 0;
}

} // namespace

bool isDrawn(Model model)
{
    return model == Model::TornSectors || model == Model::NamesPartly || model == Model::TornAndPartly;
}

QString told(Model model)
{
    switch (model) {
    case Model::AllKept:
        return "all-kept";
    case Model::UnsyncedDropped:
        return "unsynced-dropped";
    case Model::TornSectors:
        return "torn-sectors";
    case Model::NamesLost:
        return "names-lost";
    case Model::NamesPartly:
        return "names-partly";
    case Model::AllDropped:
        return "all-dropped";
    case Model::TornAndPartly:
        return "torn-and-partly";
    }
    return {};
}

QByteArray DiskImage::digest() const
{
    QCryptographicHash hash(QCryptographicHash::Md5);
    for (auto file = files.begin(); file != files.end(); ++file) {
        hash.addData(file.key().toUtf8() + ':' + QByteArray::number(file.value().size()) + ':');
        hash.addData(file.value());
    }
    return hash.result();
}

void DiskImage::write(const QString& folder) const
{
    for (const QString& name : folders)
        QDir(folder).mkpath(name);
    for (auto file = files.begin(); file != files.end(); ++file) {
        QFile out(folder + '/' + file.key());
        if (!out.open(QIODevice::WriteOnly) || out.write(file.value()) != file.value().size())
            qFatal("the disk %s can't be made", qPrintable(out.fileName()));
    }
}

DiskModel::DiskModel(const Recording& recording)
{
    for (auto file = recording.files.begin(); file != recording.files.end(); ++file)
        files_ << File{file.value(), file.value(), {}};
    int number = 0;
    for (const QString& name : recording.files.keys())
        synced_.insert(name, number++);
    for (const QString& name : recording.folders)
        synced_.insert(name, folderOnly);
    current_ = synced_;
}

void DiskModel::applyData(QByteArray& bytes, const Operation& operation)
{
    if (operation.did == Did::Truncate) {
        bytes.resize(operation.offset, '\0');
        return;
    }
    const qint64 end = operation.offset + operation.bytes.size();
    if (bytes.size() < end) bytes.resize(end, '\0');
    std::copy(operation.bytes.begin(), operation.bytes.end(), bytes.begin() + operation.offset);
}

// Each sector of a write by itself; now and then one of which only the front has reached the disk.
void DiskModel::applyTorn(QByteArray& bytes, const Operation& operation, QRandomGenerator& draw)
{
    if (operation.did == Did::Truncate) {
        if (oneOf(draw, 2)) applyData(bytes, operation);
        return;
    }
    const qint64 end = operation.offset + operation.bytes.size();
    for (qint64 at = operation.offset; at < end;) {
        const qint64 next = std::min(end, (at / sector + 1) * sector);
        qint64 amount = oneOf(draw, 2) ? next - at : 0;
        if (oneOf(draw, 16)) amount = draw.bounded(int(next - at) + 1);
        Operation part = operation;
        part.offset = at;
        part.bytes = operation.bytes.mid(at - operation.offset, amount);
        if (amount > 0) applyData(bytes, part);
        at = next;
    }
}

void DiskModel::applyName(Names& names, const Operation& operation) const
{
    switch (operation.did) {
    case Did::Create:
        names.insert(operation.path, operation.file);
        break;
    case Did::MakeFolder:
        names.insert(operation.path, folderOnly);
        break;
    case Did::Unlink:
        names.remove(operation.path);
        break;
    case Did::Rename:
        names.remove(operation.path);
        names.insert(operation.to, operation.file);
        break;
    default:
        break;
    }
}

void DiskModel::apply(const Operation& operation)
{
    switch (operation.did) {
    case Did::Create:
    case Did::MakeFolder:
    case Did::Unlink:
    case Did::Rename:
        while (files_.size() <= operation.file)
            files_ << File{};
        applyName(current_, operation);
        pending_ << operation;
        break;
    case Did::Write:
    case Did::Truncate:
        applyData(files_[operation.file].current, operation);
        files_[operation.file].pending << operation;
        break;
    case Did::SyncFile:
        files_[operation.file].synced = files_[operation.file].current;
        files_[operation.file].pending.clear();
        break;
    case Did::SyncFolder:
        for (qsizetype i = 0; i < pending_.size();) {
            if (folderOf(pending_[i].path) == operation.path)
                applyName(synced_, pending_.takeAt(i));
            else
                ++i;
        }
        break;
    case Did::Mark:
        break;
    }
}

DiskModel::Names DiskModel::namesAfter(Model model, QRandomGenerator& draw) const
{
    if (model == Model::NamesLost || model == Model::AllDropped) return synced_;
    if (model != Model::NamesPartly && model != Model::TornAndPartly) return current_;
    Names names = synced_;
    const bool inOrder = oneOf(draw, 2); // as on a disk that keeps a journal of its names
    const int first = inOrder ? draw.bounded(int(pending_.size()) + 1) : int(pending_.size());
    for (int i = 0; i < first; ++i) {
        if (!inOrder && oneOf(draw, 2)) continue;
        Operation operation = pending_[i];
        if (!inOrder && operation.did == Did::Rename && oneOf(draw, 4)) {
            operation.did = Did::Create; // the new name stands beside the old one
            operation.path = operation.to;
        }
        applyName(names, operation);
    }
    return names;
}

QByteArray DiskModel::contents(const File& file, Model model, QRandomGenerator& draw) const
{
    if (model == Model::UnsyncedDropped || model == Model::AllDropped) return file.synced;
    if (model != Model::TornSectors && model != Model::TornAndPartly) return file.current;
    QByteArray bytes = file.synced;
    for (const Operation& operation : file.pending)
        applyTorn(bytes, operation, draw);
    return bytes;
}

DiskImage DiskModel::cut(Model model, quint32 seed) const
{
    QRandomGenerator draw(seed);
    const Names names = namesAfter(model, draw);
    DiskImage image;
    for (auto name = names.begin(); name != names.end(); ++name)
        if (name.value() == folderOnly) image.folders << name.key();
    for (auto name = names.begin(); name != names.end(); ++name) {
        if (name.value() == folderOnly) continue;
        const QString folder = folderOf(name.key()); // one that is lost takes its files along
        if (!folder.isEmpty() && !image.folders.contains(folder)) continue;
        image.files.insert(name.key(), contents(files_[name.value()], model, draw));
    }
    return image;
}
