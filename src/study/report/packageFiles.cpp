#include "study/report/packageFiles.h"

#include "study/report/dataPackage.h"

#include <QDir>
#include <QFileInfo>

#include <optional>
#include <system_error>

namespace study::report {

namespace {

constexpr qint64 largestPackage = 64 << 20; // bytes of a description that is read back

std::optional<QByteArray> bytesOf(const QString& path, qint64 most)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > most) return {};
    return file.readAll();
}

// The files of a package of ours that the folder holds, with the hash that each was written with. The description
// stands for itself.
QHash<QString, QString> packagedIn(const QDir& folder)
{
    const auto bytes = bytesOf(folder.filePath(packageFile), largestPackage);
    const PackageJson package =
        bytes ? PackageJson::parse(bytes->begin(), bytes->end(), nullptr, false) : PackageJson();
    if (textAt(package, "profile") != packageProfile || !textAt(package, "name").startsWith(ownPackage)) return {};
    QHash<QString, QString> packaged{{packageFile, hashOf(*bytes)}};
    for (const char* const list : {"resources", besideResources}) {
        const auto files = package.find(list);
        if (files == package.end() || !files->is_array()) continue;
        for (const PackageJson& file : *files)
            packaged.insert(textAt(file, "path"), textAt(file, "hash"));
    }
    return packaged;
}

// Nothing, where the file may be written over or isn't there; otherwise why not.
QString objectionTo(const QDir& folder, const QString& name, const QHash<QString, QString>& packaged)
{
    const QFileInfo there(folder.filePath(name));
    if (!there.exists() && !there.isSymLink()) return {};
    if (!there.isFile()) return "há outra coisa com esse nome";
    if (!packaged.contains(name)) return "não foi escrito por um estudo";
    QFile file(there.filePath());
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file)) return "não se deixa ler";
    const bool same = packaged[name] == "sha256:" + QString::fromLatin1(hash.result().toHex());
    return same ? QString() : QString("foi alterado depois de escrito");
}

} // namespace

QString hashOf(const QByteArray& bytes)
{
    return "sha256:" + QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex());
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
    if (const QString objection = objectionTo(dir, name, packaged_); !objection.isEmpty())
        throw jet::Error(jet::number::fileExists,
                         QString("O ficheiro %1 já existe e %2. Escolha outra pasta, ou tire-o de lá.")
                             .arg(QDir::toNativeSeparators(path), objection));
    files_.push_back({path, std::make_unique<jet::Draft>(path)});
    hash_.reset();
    out_.setFileName(files_.back().draft->path());
    if (!out_.open(QIODevice::WriteOnly))
        throw jet::writeError(std::make_error_code(std::errc::permission_denied), path);
}

void PackageFiles::write(const QByteArray& bytes)
{
    hash_.addData(bytes);
    if (out_.write(bytes) != bytes.size())
        throw jet::writeError(std::make_error_code(std::errc::no_space_on_device), files_.back().path);
}

PackageFiles::Written PackageFiles::end()
{
    if (!out_.flush()) throw jet::writeError(std::make_error_code(std::errc::no_space_on_device), files_.back().path);
    const Written written{out_.pos(), "sha256:" + QString::fromLatin1(hash_.result().toHex())};
    out_.close();
    return written;
}

void PackageFiles::add(const QString& name, const QByteArray& bytes)
{
    begin(name);
    write(bytes);
    end();
}

void PackageFiles::place()
{
    for (const File& file : files_)
        QFileInfo::exists(file.path) ? file.draft->replace() : file.draft->place();
}

} // namespace study::report
