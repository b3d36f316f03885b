// Which file a study was made from, so that its figures can be told from those of another day.
#pragma once

#include <QDateTime>
#include <QString>

class QFile;

namespace study::parish {

struct Source
{
    QString path = {};
    qint64 bytes = 0;
    QString sha256 = {};   // in small hexadecimal digits
    QDateTime readAt = {}; // local time, to the second

    bool operator==(const Source&) const = default;
    bool isKnown() const { return !sha256.isEmpty(); }
};

// Reads the whole file: seconds for a large one. Where it can't be read, its path and the time alone are known.
Source sourceOf(const QString& path);
// The same of a file that stands open at its beginning, and stays open: for who may not close it, as that gives up the
// locks that the process has on it.
Source sourceOf(QFile& file);

} // namespace study::parish
