// The command: plays scenarios side by side, each in processes of its own, and tells what came of them in the order of
// the files.
#pragma once

#include "script.h"
#include "state.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <memory>

struct Options
{
    QStringList files;
    QStringList only; // titles; empty: all
    bool keep = false;
    QString programFolder;
    int seconds = 120; // for one scenario
};

class Runner
{
public:
    explicit Runner(Options options);
    ~Runner();

    // True where nothing failed.
    bool run();

private:
    struct Job;

    void collect();
    void startNext();
    void report();
    void print(const Job& job);
    bool chosen(const QString& title) const;

    Options options_;
    QTemporaryDir folder_;
    QProcessEnvironment environment_;
    std::vector<std::unique_ptr<Job>> jobs_;
    size_t started_ = 0;
    size_t reported_ = 0;
    int passed_ = 0;
    int failed_ = 0;
};

// The whole of orv-scenario: the command, and with hidden arguments the process of one scenario.
int runScenarios(int argc, char** argv);
