// Where one scenario is played: its folders, what is known of it, and the program while it runs.
#pragma once

#include "state.h"

#include <QPointer>
#include <QString>
#include <QWidget>

class Stage
{
public:
    // `folder` holds the scenario's "dir", "program" and "documents" folders, and its state where it was begun before.
    // Pictures go to the folder `shots`; to "dir" where none is named.
    explicit Stage(const QString& folder, const QString& shots = {});

    State state;
    void save() const { state.write(folder_ + "/state"); }

    QString dir() const { return folder_ + "/dir"; }
    QString program() const { return folder_ + "/program"; }
    QString documents() const { return folder_ + "/documents"; } // of the user
    QString filled(QString text) const;                          // with {dir}, {program} and {documents} replaced
    QString path(const QString& text) const;                     // filled and made absolute
    QString shot(const QString& text) const;                     // filled and made absolute: where this picture goes
    void touched(const QString& path);                           // a step has written, removed or shut this file

    // Makes a BDP as the program does, from the data files of its folder. Throws Failure.
    void makeBdp(const QString& path, bool bare);

    // Starts the program in this process, which must not have one yet.
    void start(const QString& commandLine);
    bool runs() const { return window_ != nullptr; }
    void needsProgram() const; // throws Failure where it doesn't run
    // The program has left its event loop: takes down what is left of it.
    void takeDown();

    // Runs the event loop until nothing is left to do.
    void settle();
    bool isSettling() const { return settling_ > 0; }

private:
    QString folder_;
    QString shots_;
    QPointer<QWidget> window_;
    int settling_ = 0;
};
