// Where the program is played with: its folder, and the environment of its process.
#pragma once

#include <QProcessEnvironment>
#include <QString>

constexpr int sanitizerExit = 99; // what the sanitizers end a process with

// A copy that may be altered, whatever the file allows.
void copyToAlter(const QString& from, const QString& to);
// The files of the program's folder, each a copy that may be altered.
void copyProgramFolder(const QString& from, const QString& to);

// A folder of documents for a process whose XDG_CONFIG_HOME is `folder`.
void makeDocumentsFolder(const QString& folder);

bool isOffscreen();

// The screen of the offscreen platform, in points of 1/96 inch, and how many pixels a point has each way.
struct PlayScreen
{
    int width;
    int height;
    int scale;
};

inline constexpr PlayScreen plainScreen{1280, 800, 1};   // the smallest one that the program has to fit
inline constexpr PlayScreen pictureScreen{1366, 768, 2}; // one that many people have; its pictures are to be printed

// `folder` takes a file that the process reads.
QProcessEnvironment playEnvironment(const QString& folder, const PlayScreen& screen = plainScreen);
