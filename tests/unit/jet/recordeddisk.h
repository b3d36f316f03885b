// A disk that tells what was done on it, and fails where it is told to.
#pragma once

#include "platform/jet/disk.h"

#include <QFileInfo>
#include <QMap>
#include <QStringList>

namespace jet::test {

class RecordedDisk : public Disk
{
public:
    RecordedDisk() { setDisk(this); }
    ~RecordedDisk() override { setDisk(nullptr); }

    // One word for each operation, and the names of its files; a draft is called "x".
    const QStringList& done() const { return done_; }
    void forget() { done_.clear(); }
    // From now on the operation does nothing and fails.
    void fail(const char* operation, std::errc reason) { failing_[QString::fromUtf8(operation)] = reason; }

    std::error_code replace(const QString& from, const QString& to) override
    {
        return record("replace", name(from) + u'>' + name(to), [&] { return Disk::replace(from, to); });
    }
    std::error_code place(const QString& from, const QString& to) override
    {
        return record("place", name(from) + u'>' + name(to), [&] { return Disk::place(from, to); });
    }
    std::error_code remove(const QString& path) override
    {
        return record("remove", name(path), [&] { return Disk::remove(path); });
    }
    std::error_code syncFile(const QString& path) override
    {
        return record("sync", name(path), [&] { return Disk::syncFile(path); });
    }
    std::error_code syncFolder(const QString& path) override
    {
        return record("syncfolder", {}, [&] { return Disk::syncFolder(path); });
    }
    std::error_code makeFile(const QString& path) override
    {
        return record("make", name(path), [&] { return Disk::makeFile(path); });
    }
    std::error_code makeFolder(const QString& path) override
    {
        return record("makefolder", name(path), [&] { return Disk::makeFolder(path); });
    }

private:
    static QString name(const QString& path)
    {
        return isTemporaryName(path) ? QStringLiteral("x") : QFileInfo(path).fileName();
    }
    template <typename Do>
    std::error_code record(const char* operation, const QString& names, Do really)
    {
        const QString word = QString::fromUtf8(operation);
        done_ << (names.isEmpty() ? word : word + u' ' + names);
        const auto failure = failing_.constFind(word);
        return failure == failing_.constEnd() ? really() : std::make_error_code(*failure);
    }

    QStringList done_;
    QMap<QString, std::errc> failing_;
};

} // namespace jet::test
