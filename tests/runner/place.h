// Where the program is played with: its folder, and the environment of its process.
#pragma once

#include <QLockFile>
#include <QProcessEnvironment>
#include <QString>

#include <memory>

// The folder that scenarios are played in, empty at first, and removed in the end. It bears a name of its own, or, for
// pictures that show a path, the same one each time; whoever else plays under that name is waited for.
class PlayFolder
{
public:
    explicit PlayFolder(bool sameName);
    ~PlayFolder();

    const QString& path() const { return path_; }
    void keep() { kept_ = true; }

private:
    QString path_;
    std::unique_ptr<QLockFile> alone_;
    bool kept_ = false;
};

constexpr int sanitizerExit = 99; // what the sanitizers end a process with

// A copy that may be altered, whatever the file allows.
void copyToAlter(const QString& from, const QString& to);
// The files of the program's folder, each a copy that may be altered.
void copyProgramFolder(const QString& from, const QString& to);

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
