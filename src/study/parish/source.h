// Which file a study was made from, so that its figures can be told from those of another day.
#pragma once

#include <QDateTime>
#include <QString>

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

} // namespace study::parish
