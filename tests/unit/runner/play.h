// Playing a text with the scenario runner, in a program that has a form of one control of each kind.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

struct Outcome
{
    int status = -1;
    QStringList lines;
    QStringList told; // on the standard error
};

struct Beside
{
    const char* path;
    const char* text;
};

inline void write(const QString& path, const QString& text)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text.toUtf8());
}

// Plays a text as "prova.txt", with other files beside it.
inline Outcome play(const QString& text, const QStringList& options = {}, const QList<Beside>& others = {})
{
    const QTemporaryDir folder;
    write(folder.filePath("prova.txt"), text);
    for (const Beside& other : others)
        write(folder.filePath(other.path), other.text);
    QProcess runner;
    runner.setWorkingDirectory(folder.path());
    runner.start(ORV_PLAYGROUND, options + QStringList{"prova.txt"});
    EXPECT_TRUE(runner.waitForFinished(120000));
    return {runner.exitCode(), QString::fromUtf8(runner.readAllStandardOutput()).trimmed().split('\n'),
            QString::fromUtf8(runner.readAllStandardError()).trimmed().split('\n')};
}
