// The structures of GEDCOM 7.0 and 5.5.1, as their publishers have laid them down: a context or a group begins a line;
// below it stand tags, how often they may stand there, their payload, and the context of what stands below them.
// "+GROUP" takes the lines of a group in. "text/90" is a text of 1 to 90 letters.
#pragma once

namespace gedcom {

extern const char* const structures70;
extern const char* const structures551;

} // namespace gedcom
