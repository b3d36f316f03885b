// The beginning of a session: of the program, and of the work on another BDP.
#pragma once

// Nobody is asking for a person or a place, and no search is under way.
void beginSession();
