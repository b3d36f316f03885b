#include "study/windows/fileInWork.h"

#include <QFileInfo>

namespace study {

FileInWork::FileInWork(const QString& bdp)
    : file_(new QFile(QFileInfo(bdp).absoluteFilePath()), [](QFile* file) { file->deleteLater(); }),
      written_(lastWritten()), isOpen_(file_->open(QIODevice::ReadOnly))
{
}

QDateTime FileInWork::lastWritten() const
{
    return QFileInfo(file_->fileName()).lastModified();
}

} // namespace study
