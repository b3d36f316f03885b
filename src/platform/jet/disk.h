// What is done to files beside the engine's own work: told once, so that a test can record it and make it fail.
#pragma once

#include <QString>

#include <cstdint>
#include <filesystem>
#include <system_error>

namespace jet {

// The path for the file system. What is no character in the text becomes a place holder, which no file has.
std::filesystem::path nativePath(const QString& path);

// Each operation returns the system's error, none where it has succeeded; what failed has changed nothing.
class Disk
{
public:
    Disk() = default;
    virtual ~Disk() = default;
    Disk(const Disk&) = delete;
    Disk& operator=(const Disk&) = delete;

    // Gives `from` the name `to`, in one step, in place of any file of that name. Both are on the same disk.
    virtual std::error_code replace(const QString& from, const QString& to);
    // The same, but std::errc::file_exists where anything has that name, were it a link that leads nowhere.
    virtual std::error_code place(const QString& from, const QString& to);
    // Removes a file or a link, never a folder that isn't empty. A file that isn't there is no error.
    virtual std::error_code remove(const QString& path);
    // Once it returns, a power cut leaves the contents of the file, or the names in the folder. Where the system
    // doesn't know of it for a folder, that does nothing.
    virtual std::error_code syncFile(const QString& path);
    virtual std::error_code syncFolder(const QString& path);
    // A new empty file, with the permissions that a new file has.
    virtual std::error_code makeFile(const QString& path);
    // A folder; one that is there already is no error, anything else is std::errc::not_a_directory.
    virtual std::error_code makeFolder(const QString& path);
    // How many bytes the disk of the folder takes yet; the most that can be told where it doesn't say.
    virtual std::uintmax_t available(const QString& folder);
};

// The disk that the engine works on: the real one, or that of a test. Null puts the real one back.
// Precondition: the disk of a test lives until it is replaced, and no other thread works on files meanwhile.
Disk& disk();
void setDisk(Disk* replacement);

// The folder that a file stands or would stand in: "." for a bare name.
QString folderOf(const QString& path);

// Where a link leads, be there a file or not; any other path as it is.
QString behindLinks(QString path);

// The names under which a file is made that isn't whole yet: beside its target, whose name they begin with.
QString temporaryName(const QString& target); // another one each time
bool isTemporaryName(const QString& name);    // also of what the engine leaves beside such a file
QString targetOf(const QString& path);        // the name that such a file is to have; of another, its own

// Makes an empty file under such a name, on the disk of the target. Null where none can be made; `error` then tells.
QString makeTemporary(const QString& target, std::error_code& error);

} // namespace jet
