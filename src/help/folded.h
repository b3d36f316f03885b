// Texts as they are compared in the manual.
#pragma once

#include <QString>

namespace help {

// Small letters without accents, and one blank for whatever is between them.
QString folded(const QString& text);

// The same with a blank at both ends, so that a word can be told from a part of one.
QString foldedLine(const QString& line);

} // namespace help
