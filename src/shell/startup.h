// The start of the program.
#pragma once

#include <QString>

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
