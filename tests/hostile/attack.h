// Makes hostile files, lets each be looked at in a process of its own, and tells which promises were broken.
#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <memory>
#include <vector>

struct Attack
{
    quint64 seed = 1;
    int first = 0; // of the mutants
    int count = 100;
    QStringList only; // cases of these titles, and nothing else
    bool withCases = true;
    int seconds = 10; // for one step
    QString keep;     // where files are kept that broke a promise; empty: nowhere
};

class Attacker
{
public:
    explicit Attacker(Attack attack);
    ~Attacker();

    // True where every promise was kept.
    bool run();

private:
    struct Job;

    bool makeGood();
    void collect();
    void startNext();
    void over(Job& job);
    void tell(const Job& job, const QString& reason);
    QString kept(const Job& job);

    Attack attack_;
    QTemporaryDir folder_;
    QString good_;
    std::vector<std::unique_ptr<Job>> jobs_;
    size_t started_ = 0;
    size_t done_ = 0;
    int failed_ = 0;
    int opened_ = 0;
    int slowest_ = 0;
};
