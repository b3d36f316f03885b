// The start of the program.
#pragma once

#include <QString>

#include <chrono>

class FrmORV;

// Runs the program on the command line given, to its end. Returns the exit status.
int runProgram(int argc, char** argv);

// The text after the program's name: one argument as it is, several joined by one blank.
QString commandLineText(int argc, char** argv);

// Makes every form known by its name.
void registerForms();

// Loads and shows the main window, with `commandLine` as the text after the program's name (untrimmed; "" for none).
// Precondition: the application object exists, and prepareApplication() has run.
FrmORV& startProgram(const QString& commandLine);

// What the program sets up on its application object: language, style, focus watch, icons.
// Precondition: the application object exists.
void prepareApplication();

// What prepareApplication() has cnBDP ask about a statement that takes long: false when Escape was pressed. From ten
// seconds on the status bar tells of it.
bool statementGoesOn(std::chrono::milliseconds elapsed);
