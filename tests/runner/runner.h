// The command: plays scenarios side by side, each in processes of its own, and tells what came of them in the order of
// the files.
#pragma once

#include "script.h"
#include "state.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <chrono>
#include <memory>

struct Options
{
    QStringList files;
    QStringList only; // titles; empty: all
    bool keep = false;
    QString programFolder;
    int seconds = 120;                      // for one scenario
    std::chrono::milliseconds second{1000}; // how long the runner's own clock takes for one of them
    int jobs = 1;                           // how many are played at once, where no desktop has its one focus
    int slowest = 0;                        // of how many the times are told
    bool cost = false;                      // tells what each scenario costs
    QString shots;                          // the folder that pictures go to; empty: that of their scenario
    QString folder;                         // where they are played, emptied before; empty: a temporary one
    QStringList bring;                      // files of which each scenario's folder gets a copy
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
    void printSlowest() const;
    bool chosen(const QString& title) const;

    Options options_;
    std::unique_ptr<QTemporaryDir> temporary_; // nothing where a folder is named
    QString folder_;
    QProcessEnvironment environment_;
    std::vector<std::unique_ptr<Job>> jobs_;
    size_t started_ = 0;
    size_t reported_ = 0;
    int passed_ = 0;
    int failed_ = 0;
};

// The whole of orv-scenario: the command, and with hidden arguments the process of one scenario. The limit is counted
// in seconds of that length.
int runScenarios(int argc, char** argv, std::chrono::milliseconds second = std::chrono::seconds(1));
