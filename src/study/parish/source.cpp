#include "study/parish/source.h"

#include <QCryptographicHash>
#include <QFile>

namespace study::parish {

Source sourceOf(const QString& path)
{
    Source source{.path = path};
    source.readAt = QDateTime::fromSecsSinceEpoch(QDateTime::currentSecsSinceEpoch());
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file)) return source;
    source.bytes = file.pos();
    source.sha256 = QString::fromLatin1(hash.result().toHex());
    return source;
}

} // namespace study::parish
