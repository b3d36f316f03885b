#include "screen.h"

#include <QElapsedTimer>
#include <QThread>

#include <stdexcept>

Screen::Screen() : environment_(QProcessEnvironment::systemEnvironment())
{
    // It would begin anew when its last client is killed, and turn away who comes meanwhile.
    server_.start("Xvfb", {"-displayfd", "1", "-noreset", "-screen", "0", "1366x768x24", "-nolisten", "tcp"});
    QByteArray display;
    while (!display.endsWith('\n') && server_.waitForReadyRead(20000))
        display += server_.readAllStandardOutput();
    if (display.trimmed().isEmpty()) throw std::runtime_error("Xvfb doesn't start");
    environment_.insert("DISPLAY", ':' + QString::fromLatin1(display.trimmed()));
    environment_.insert("QT_QPA_PLATFORM", "xcb");
}

Screen::~Screen()
{
    server_.terminate();
    server_.waitForFinished(5000);
}

QByteArray Screen::waitForWindow(qint64 process, const QString& title, int milliseconds) const
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < milliseconds) {
        QProcess search;
        search.setProcessEnvironment(environment_);
        search.start("xdotool", {"search", "--onlyvisible", "--pid", QString::number(process), "--name", title});
        search.waitForFinished();
        const QByteArray found = search.readAllStandardOutput().split('\n').first().trimmed();
        if (!found.isEmpty()) return found;
        QThread::msleep(30);
    }
    return {};
}

void Screen::play(const QByteArray& lines) const
{
    QProcess hands;
    start(hands, lines);
    hands.waitForFinished();
}

void Screen::start(QProcess& hands, const QByteArray& lines) const
{
    hands.setProcessEnvironment(environment_);
    hands.start("xdotool", {"-"});
    hands.write(lines);
    hands.closeWriteChannel();
}
