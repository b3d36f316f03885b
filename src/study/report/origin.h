// Which state of a BDP a figure that is taken along was made of, and by which program.
#pragma once

#include "study/parish/source.h"

#include <QString>

namespace study::report {

QString programName(); // "ORV 1.0.6"

QString momentText(const QDateTime& moment); // "22/11/2026 09:30:00"; "–" where it isn't known
QString sizeText(qint64 bytes);              // "12 345 678 bytes"

// In one line: "Fonte: /casa/moinhos.orv, 12 345 678 bytes, SHA-256 …, lido em 22/11/2026 09:30:00". Of a file whose
// mark isn't known the path and the time alone.
QString originText(const parish::Source& source);

} // namespace study::report
