// Which state of which file something was read from.
#pragma once

#include <QDateTime>
#include <QString>

namespace study::parish {

struct Source
{
    QString path = {};
    qint64 bytes = 0;
    QString sha256 = {}; // 64 digits of base 16, in small letters
    QDateTime readAt = {};

    bool operator==(const Source&) const = default;
};

} // namespace study::parish
