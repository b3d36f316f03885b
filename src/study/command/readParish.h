// A BDP as the command reads it for a study, and what its work is told by.
#pragma once

#include "study/indicators/settings.h"
#include "study/parish/source.h"

#include <QString>

namespace study {

// The rows of a BDP, what is set in it, and which state of the file they are of.
struct ReadParish
{
    parish::Snapshot parish;
    indicators::Settings settings;
    parish::Source source;
};

// All of one state, however often somebody writes meanwhile. Throws jet::Error, in Portuguese; Interrupted where goesOn
// answered false.
ReadParish readParish(const QString& path, const parish::Snapshot::GoesOn& goesOn);

// Makes the folder where it isn't there. Throws jet::Error, in Portuguese.
void makeFolder(const QString& path);

} // namespace study
