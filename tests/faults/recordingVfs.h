// The disk as the engine and the program see it, with everything that is done to it reported to the recorder, and with
// the failures that the recorder plans.
#pragma once

// Makes it the default of the process, for good. Every connection opened from here on is recorded.
void installRecordingVfs();
// The VFS that was the default before: the real one.
const char* realVfsName();

// The program's own work on files, in the same way.
void installRecordingDisk();

// The engine's memory, which can run out where the recorder plans it.
// Precondition: the engine hasn't been used yet.
void installFailingMemory();
