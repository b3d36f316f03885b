// A screen of its own for the program, and somebody at its keyboard.
#pragma once

#include <QProcess>
#include <QProcessEnvironment>

class Screen
{
public:
    // Starts Xvfb. Throws std::runtime_error where that can't be done.
    Screen();
    ~Screen();

    const QProcessEnvironment& environment() const { return environment_; }

    // The window of the process whose title has this text; empty where none has come up in time.
    QByteArray waitForWindow(qint64 process, const QString& title, int milliseconds) const;

    // Does what these lines tell xdotool, and waits for it.
    void play(const QByteArray& lines) const;
    // The same without the wait.
    void start(QProcess& hands, const QByteArray& lines) const;

private:
    QProcess server_;
    QProcessEnvironment environment_;
};
