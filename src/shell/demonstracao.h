// The demonstration parish: a copy of it to work on.
#pragma once

#include <QString>

// The file that comes with the program, in its folder.
QString demoFile();

// Copies it into the folder "ORV" of the user's documents, under a name that nothing has yet, and returns the path of
// the copy. Where nothing can be written there the user is asked for another place. Empty where there is no copy: the
// user gave up, or was told what is missing.
QString copyOfDemo();
