// Starting to a usable window, as a process of its own: this program started again with one argument.
#pragma once

bool isStartedOnly(int argc, char** argv);

// Starts the program, or a bare one, up to its window on the screen. Returns the exit status.
int startOnly(int argc, char** argv);
