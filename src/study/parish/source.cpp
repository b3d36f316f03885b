#include "study/parish/source.h"

#include "platform/time/clock.h"

#include <QCryptographicHash>
#include <QFile>

namespace study::parish {

namespace {

Source unmarked(const QString& path)
{
    return {.path = path, .readAt = QDateTime::fromSecsSinceEpoch(Clock::moment().toSecsSinceEpoch())};
}

} // namespace

Source sourceOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? sourceOf(file) : unmarked(path);
}

Source sourceOf(QFile& file)
{
    Source source = unmarked(file.fileName());
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!file.isOpen() || !hash.addData(&file)) return source;
    source.bytes = file.pos();
    source.sha256 = QString::fromLatin1(hash.result().toHex());
    return source;
}

} // namespace study::parish
