#include "recorder.h"
#include "recordingVfs.h"

#include "platform/jet/disk.h"

namespace {

class RecordingDisk : public jet::Disk
{
public:
    std::error_code replace(const QString& from, const QString& to) override
    {
        if (const std::error_code planned = failure()) return planned;
        const std::error_code error = Disk::replace(from, to);
        if (!error) recorder().renamed(from, to);
        return error;
    }

    std::error_code place(const QString& from, const QString& to) override
    {
        if (const std::error_code planned = failure()) return planned;
        const std::error_code error = Disk::place(from, to);
        if (!error) recorder().renamed(from, to);
        return error;
    }

    std::error_code remove(const QString& path) override
    {
        if (const std::error_code planned = failure()) return planned;
        const std::error_code error = Disk::remove(path);
        if (!error) recorder().unlinked(path);
        return error;
    }

    std::error_code syncFile(const QString& path) override
    {
        if (const std::error_code planned = failure()) return planned;
        const std::error_code error = Disk::syncFile(path);
        if (!error) recorder().synced(recorder().opened(path), path);
        return error;
    }

    std::error_code syncFolder(const QString& path) override
    {
        if (const std::error_code planned = failure()) return planned;
        const std::error_code error = Disk::syncFolder(path);
        if (!error) recorder().syncedFolder(path);
        return error;
    }

    std::error_code makeFile(const QString& path) override
    {
        if (const std::error_code planned = failure()) return planned;
        const std::error_code error = Disk::makeFile(path);
        if (!error) recorder().created(path);
        return error;
    }

    std::error_code makeFolder(const QString& path) override
    {
        if (const std::error_code planned = failure()) return planned;
        const std::error_code error = Disk::makeFolder(path);
        if (!error) recorder().madeFolder(path);
        return error;
    }

private:
    static std::error_code failure()
    {
        switch (recorder().fault(Call::Replace)) {
        case Fault::Error:
            return std::make_error_code(std::errc::io_error);
        case Fault::Full:
            return std::make_error_code(std::errc::no_space_on_device);
        default:
            return {};
        }
    }
};

} // namespace

void installRecordingDisk()
{
    static RecordingDisk recording;
    jet::setDisk(&recording);
}
