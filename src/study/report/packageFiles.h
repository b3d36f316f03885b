// The files of a data package, written one after the other, which take their names together.
#pragma once

#include "platform/jet/draft.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <QFile>
#include <QHash>
#include <QString>

#include <future>
#include <memory>
#include <vector>

namespace study::report {

QString hashOf(const QByteArray& bytes); // "sha256:" and its digits
QString hashOfFile(const QString& path); // the same; "" where it can't be read

void takeName(jet::Draft& draft, const QString& path); // which nobody may have, or an older file of ours

// A file that stands in the folder already is written over where it is of a package of ours and as it was written; of
// a file of anybody else, and of one that was changed since, Error fileExists tells the name. Files of an older
// package that no longer belong to it stay. Without place() nothing of it is left. All throw jet::Error.
class PackageFiles
{
public:
    explicit PackageFiles(const QString& folder); // Error pathNotFound where it isn't there
    ~PackageFiles();
    PackageFiles(const PackageFiles&) = delete;
    PackageFiles& operator=(const PackageFiles&) = delete;

    struct Written
    {
        qint64 bytes = 0;
        QString hash = {};
    };
    void begin(const QString& name);
    // To the file that was begun last. It may return before the bytes are there: what then fails is thrown by the next
    // call.
    void write(const QByteArray& bytes);
    Written end();
    void add(const QString& name, const QByteArray& bytes); // a whole one

    // All are on the disk before the first one takes its name: what fails before has changed nothing. The description
    // takes its name last; before the first file one stands in its place that isn't finished (dataPackage.h) and has
    // the hashes of what stood there and of what comes. So a kill in between leaves no package that could be taken for
    // a whole one, and the next writer knows the files for ours.
    void place();

private:
    struct File
    {
        QString path;
        std::unique_ptr<jet::Draft> draft;
        QString before = {}; // the hash of what stands there; "" for nothing
        QString hash = {};
    };
    bool isDescription(const File& file) const;
    void announce() const;
    void settle(); // what was given to write() is written

    QString folder_;
    QHash<QString, QStringList> packaged_; // of the package that the folder holds: each file with the hash it may have
    std::vector<File> files_ = {};
    QFile out_;
    QCryptographicHash hash_{QCryptographicHash::Sha256};
    // Hashes and writes the bytes given last, while the caller makes the next: hashing costs a large file a fifth of
    // its time. Last of all, since its end is waited for before the members that it uses go.
    std::future<void> writing_ = {};
};

} // namespace study::report
