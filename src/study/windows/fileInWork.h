// The file of the BDP in work, to be marked on a thread.
#pragma once

#include "study/parish/source.h"

#include <QDateTime>
#include <QFile>

#include <memory>

namespace study {

// Opened by the thread of the windows, and closed by it, between two events: who closes a file gives up the locks that
// the engine has on it. In between any one thread may read it.
class FileInWork
{
public:
    explicit FileInWork(const QString& bdp);

    // Reads the whole file, once.
    parish::Source source() const { return parish::sourceOf(*file_); }
    // Whether nobody has written to it since.
    bool isAsItWas() const { return isOpen_ && lastWritten() == written_; }

private:
    QDateTime lastWritten() const;

    std::shared_ptr<QFile> file_;
    QDateTime written_;
    bool isOpen_;
};

} // namespace study
