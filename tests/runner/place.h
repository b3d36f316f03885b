// Where the program is played with: its folder, and the environment of its process.
#pragma once

#include <QProcessEnvironment>
#include <QString>

constexpr int sanitizerExit = 99; // what the sanitizers end a process with

// The files of the program's folder, each a copy that may be altered.
void copyProgramFolder(const QString& from, const QString& to);

// A folder of documents for a process whose XDG_CONFIG_HOME is `folder`.
void makeDocumentsFolder(const QString& folder);

bool isOffscreen();

// `folder` takes a file that the process reads.
QProcessEnvironment playEnvironment(const QString& folder);
