// orv-estudo smam: the mean age at marriage that a list of singles by age tells of, such as one of a census.
#pragma once

#include "study/command/usage.h"

#include <functional>

class QTextStream;

namespace study {

// Each file is a table: the group of five years ("15–19" to "50–54", all eight), the singles in it in percent; with a
// third column of all people, both in counts. What is wrong is told as "ficheiro:linha: razão", and then no age is.
// As runCommand(); ends with counted or notCounted. Writes nothing.
int runSmam(const Order& order, QTextStream& out, QTextStream& err, const std::function<bool()>& goesOn);

} // namespace study
