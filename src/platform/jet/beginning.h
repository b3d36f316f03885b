// What a pattern of like tells about the beginning of the texts that it finds.
#pragma once

#include <QString>

namespace jet {

// A condition in the engine's SQL that every value meets which is like the pattern, and few others: ranges that an
// index of the column in the order "nocase" can look up, in its order. "" where the pattern tells too little.
// Precondition: `column` is a column of texts, its name as a statement has it.
QString beginningCondition(const QString& column, const QString& pattern);

} // namespace jet
