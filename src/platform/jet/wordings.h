// The engine's messages about statements, in the words of the program.
#pragma once

#include <QString>

namespace jet {

// What `message` of the engine says, in a Portuguese sentence; `file` is the path of the BDP, and `code` the engine's.
// A message that isn't known gives a sentence with the code, and nothing of the message.
QString statementDescription(const QString& message, int code, const QString& file);

// The same for a value that a rule of a table refuses, other than those of a key, a null or a column's type. What a
// trigger says is the file's text, not the program's, and is told as such.
QString constraintDescription(const QString& message, int code);

// How many messages are known, and the pattern of each; for the tests.
int knownMessages();
const char* knownMessage(int index);

} // namespace jet
