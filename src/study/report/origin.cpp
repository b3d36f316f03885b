#include "study/report/origin.h"

#include <QLocale>
#include <QStringList>

namespace study::report {

QString programName()
{
    return QString("ORV %1.%2.%3").arg(ORV_VERSION_MAJOR).arg(ORV_VERSION_MINOR).arg(ORV_VERSION_REVISION);
}

QString momentText(const QDateTime& moment)
{
    return moment.isValid() ? moment.toString("dd/MM/yyyy HH:mm:ss") : QString("–");
}

QString sizeText(qint64 bytes)
{
    QLocale portuguese(QLocale::Portuguese, QLocale::Portugal);
    return portuguese.toString(bytes) + (bytes == 1 ? " byte" : " bytes");
}

QString originText(const parish::Source& source)
{
    QStringList told{source.path};
    if (source.isKnown()) told << sizeText(source.bytes) << "SHA-256 " + source.sha256;
    told << "lido em " + momentText(source.readAt);
    return "Fonte: " + told.join(", ");
}

} // namespace study::report
