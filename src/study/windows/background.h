// A computation on a thread of its own.
#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <thread>

namespace study {

// Runs from its construction on. What it is given has to work on values alone, or on a copy of the BDP: it knows no
// connection of anybody else, holds no lock and shows nothing. Destroying it ends the work, as soon as that asks
// whether to go on, without any signal, and waits for nothing; the program waits for it when it ends. All of it is of
// one thread, that of the windows.
class Background : public QObject
{
    Q_OBJECT

public:
    using GoesOn = std::function<bool(double done)>; // throws parish::Snapshot::Interrupted in whoever hears false
    explicit Background(std::function<void(const GoesOn&)> compute);
    ~Background() override;
    Background(const Background&) = delete;
    Background& operator=(const Background&) = delete;

    void cancel(); // ended() follows soon

    // Preconditions: ended() was emitted. What was computed may be read by then.
    bool wasCancelled() const;      // also where it was done by then
    const QString& failure() const; // "", or why there is no result

signals: // in the thread of whoever has made it
    void progressed(int percent);
    void ended();

private:
    struct Work;
    std::shared_ptr<Work> work_; // with the thread
    std::thread thread_;
};

// A part of the work that takes the share from `from` to `to` of its time, as if it were the whole.
Background::GoesOn partOf(const Background::GoesOn& goesOn, double from, double to);

// How the work has ended. It goes behind its own signal. Precondition: ended() is being told.
struct Outcome
{
    bool cancelled = false;
    QString failure = {};

    bool isResult() const { return !cancelled && failure.isEmpty(); }
};
Outcome takeOutcome(std::unique_ptr<Background>& work);

} // namespace study
