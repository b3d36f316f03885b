#include "study/report/packageFiles.h"

#include "study/report/dataPackage.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <functional>
#include <optional>
#include <system_error>

namespace study::report {

namespace {

constexpr qint64 largestPackage = 64 << 20; // bytes of a description that is read back
constexpr auto hashBefore = "hash_before";

std::optional<QByteArray> bytesOf(const QString& path, qint64 most)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > most) return {};
    return file.readAll();
}

// The files of a package of ours that the folder holds, with the hash that each was written with; of one that isn't
// finished, also with the one before. The description stands for itself.
QHash<QString, QStringList> packagedIn(const QDir& folder)
{
    const auto bytes = bytesOf(folder.filePath(packageFile), largestPackage);
    const PackageJson package =
        bytes ? PackageJson::parse(bytes->begin(), bytes->end(), nullptr, false) : PackageJson();
    if (textAt(package, "profile") != packageProfile || !textAt(package, "name").startsWith(ownPackage)) return {};
    QHash<QString, QStringList> packaged{{packageFile, {hashOf(*bytes)}}};
    for (const char* const list : {"resources", besideResources}) {
        const auto files = package.find(list);
        if (files == package.end() || !files->is_array()) continue;
        for (const PackageJson& file : *files)
            packaged.insert(textAt(file, "path"), {textAt(file, "hash"), textAt(file, hashBefore)});
    }
    return packaged;
}

// Whether the file stands there, by its hash, and why it may not be written over then.
struct Occupied
{
    QString hash = {};
    QString objection = {};
};

Occupied standingAt(const QDir& folder, const QString& name, const QHash<QString, QStringList>& packaged)
{
    const QFileInfo there(folder.filePath(name));
    if (!there.exists() && !there.isSymLink()) return {};
    if (!there.isFile()) return {.objection = "há outra coisa com esse nome"};
    if (!packaged.contains(name)) return {.objection = "não foi escrito por um estudo"};
    const QString hash = hashOfFile(there.filePath());
    if (hash.isEmpty()) return {.objection = "não se deixa ler"};
    if (!packaged[name].contains(hash)) return {.objection = "foi alterado depois de escrito"};
    return {.hash = hash};
}

} // namespace

void takeName(jet::Draft& draft, const QString& path)
{
    QFileInfo::exists(path) ? draft.replace() : draft.place();
}

QString hashOf(const QByteArray& bytes)
{
    return "sha256:" + QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex());
}

QString hashOfFile(const QString& path)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file)) return {};
    return "sha256:" + QString::fromLatin1(hash.result().toHex());
}

PackageFiles::PackageFiles(const QString& folder) : folder_(folder)
{
    const QDir dir(folder);
    if (!dir.exists())
        throw jet::Error(jet::number::pathNotFound, "A pasta não existe: " + QDir::toNativeSeparators(folder));
    packaged_ = packagedIn(dir);
}

PackageFiles::~PackageFiles() = default;

void PackageFiles::begin(const QString& name)
{
    const QDir dir(folder_);
    const QString path = dir.filePath(name);
    const Occupied there = standingAt(dir, name, packaged_);
    if (!there.objection.isEmpty())
        throw jet::Error(jet::number::fileExists,
                         QString("O ficheiro %1 já existe e %2. Escolha outra pasta, ou tire-o de lá.")
                             .arg(QDir::toNativeSeparators(path), there.objection));
    files_.push_back({path, std::make_unique<jet::Draft>(path), there.hash});
    hash_.reset();
    out_.setFileName(files_.back().draft->path());
    if (!out_.open(QIODevice::WriteOnly))
        throw jet::writeError(std::make_error_code(std::errc::permission_denied), path);
}

void PackageFiles::settle()
{
    if (writing_.valid()) writing_.get();
}

void PackageFiles::write(const QByteArray& bytes)
{
    settle();
    writing_ = std::async(std::launch::async, [this, bytes] {
        hash_.addData(bytes);
        if (out_.write(bytes) != bytes.size())
            throw jet::writeError(std::make_error_code(std::errc::no_space_on_device), files_.back().path);
    });
}

PackageFiles::Written PackageFiles::end()
{
    settle();
    if (!out_.flush()) throw jet::writeError(std::make_error_code(std::errc::no_space_on_device), files_.back().path);
    const Written written{out_.pos(), "sha256:" + QString::fromLatin1(hash_.result().toHex())};
    out_.close();
    files_.back().hash = written.hash;
    return written;
}

void PackageFiles::add(const QString& name, const QByteArray& bytes)
{
    begin(name);
    write(bytes);
    end();
}

bool PackageFiles::isDescription(const File& file) const
{
    return file.path == QDir(folder_).filePath(packageFile);
}

void PackageFiles::announce() const
{
    PackageJson package = packageOf({}, {}, {}, {}), resources = PackageJson::array();
    package[unfinishedMark] = true;
    for (const File& file : files_) {
        if (isDescription(file)) continue;
        PackageJson resource;
        put(resource, "path", QFileInfo(file.path).fileName());
        put(resource, "hash", file.hash);
        put(resource, hashBefore, file.before);
        resources.push_back(resource);
    }
    package["resources"] = resources;
    const QString path = QDir(folder_).filePath(packageFile);
    jet::Draft draft(path);
    QFile out(draft.path());
    const QByteArray bytes = report::bytesOf(package);
    if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size() || !out.flush())
        throw jet::writeError(std::make_error_code(std::errc::no_space_on_device), path);
    out.close();
    takeName(draft, path);
}

void PackageFiles::place()
{
    for (const File& file : files_)
        file.draft->sync();
    const auto isTheDescription = [this](const File& file) { return isDescription(file); };
    std::stable_partition(files_.begin(), files_.end(), std::not_fn(isTheDescription));
    if (files_.size() > 1 && isTheDescription(files_.back())) announce();
    for (const File& file : files_)
        takeName(*file.draft, file.path);
}

} // namespace study::report
