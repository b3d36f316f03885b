#include "site.h"

#include <QDir>
#include <QFile>

void Site::furnish(const QString& goodBdp)
{
    QDir().mkpath(folder_);
    QFile::copy(goodBdp, bdp());
    QFile::setPermissions(bdp(), QFile::ReadOwner | QFile::WriteOwner);
    setBytesOf(bystander(), "dois anos de trabalho\n");
}

QByteArray Site::bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void Site::setBytesOf(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate)) file.write(bytes);
}

void Site::breakOff(const char* journalMode)
{
    const QString other = folder_ + "/../a_meio.orv";
    const bool log = qstrcmp(journalMode, "wal") == 0;
    const QString suffix = log ? "-wal" : "-journal";
    QFile::copy(bdp(), other);
    {
        Raw raw(other);
        raw.run(QStringLiteral("pragma journal_mode = %1; pragma cache_size = 1; pragma synchronous = full; begin; "
                               "update individuo set nome = 'Outro nome, muito mais longo do que o antigo', obs = nome;"
                               "update familia set obs = 'outra'")
                    .arg(journalMode));
        if (log) raw.run("commit; pragma wal_checkpoint(passive); update individuo set nome = 'Ainda outro'");
        QFile::remove(bdp());
        QFile::copy(other, bdp());
        QFile::copy(other + suffix, bdp() + suffix);
    }
    QFile::remove(other);
    belongs = true;
}
