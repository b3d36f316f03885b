#include "folderState.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>

#include <sys/stat.h>

FolderState folderState(const QString& folder)
{
    FolderState state;
    QDirIterator inside(folder, QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot,
                        QDirIterator::Subdirectories);
    while (inside.hasNext()) {
        const QString path = inside.next();
        struct stat found
        {
        };
        if (lstat(QFile::encodeName(path).constData(), &found) != 0) continue;
        QByteArray told = QByteArray::number(found.st_mode, 8);
        if (S_ISLNK(found.st_mode)) told += QFile::symLinkTarget(path).toUtf8();
        if (QFile file(path); S_ISREG(found.st_mode) && file.open(QIODevice::ReadOnly)) {
            QCryptographicHash hash(QCryptographicHash::Sha1);
            hash.addData(&file);
            told += hash.result();
        }
        state[QDir(folder).relativeFilePath(path)] = told;
    }
    return state;
}

QString difference(const FolderState& before, const FolderState& after, const QStringList& apart)
{
    for (auto it = before.begin(); it != before.end(); ++it) {
        if (apart.contains(it.key())) continue;
        if (!after.contains(it.key())) return it.key() + " is gone";
        if (after[it.key()] != it.value()) return it.key() + " has changed";
    }
    for (auto it = after.begin(); it != after.end(); ++it)
        if (!before.contains(it.key()) && !apart.contains(it.key())) return it.key() + " has come";
    return {};
}
