// The time that the program's own waits are measured by, which a test lets pass where it would only wait; and the date
// and the hour that the program writes and shows.
#pragma once

#include <QDateTime>
#include <QObject>
#include <QTimer>

#include <chrono>

namespace Clock {

using Time = std::chrono::steady_clock::time_point;

// The machine's time, and what has passed beside it. In any thread.
Time now();

// The machine's date and hour, local. In any thread.
QDateTime moment();

// For tests and for pictures that are to be the same another day: moment() stands still at this one, until it is given
// an invalid one. Before any other thread asks.
void stopAt(const QDateTime& moment);

// For tests. It is later by that much at once: every alarm that is due by then rings before this returns. In the thread
// of the alarms.
void pass(std::chrono::milliseconds time);

// For tests. From here on it is later by that much after each look at the clock, 0 as on the machine; alarms take no
// notice of it.
void passAtEachLook(std::chrono::milliseconds time);

} // namespace Clock

// Rings once when a time has passed.
class Alarm : public QObject
{
    Q_OBJECT

public:
    Alarm();
    ~Alarm() override;

    // Rings after that time, and no more at the time set before.
    void set(std::chrono::milliseconds wait);
    void off();

signals:
    void rings();

private:
    friend void Clock::pass(std::chrono::milliseconds time);

    void ring();

    QTimer timer_;
    Clock::Time due_;
};
