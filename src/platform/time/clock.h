// The time that the program's own waits are measured by. A test lets it pass where it would only wait.
#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>

namespace Clock {

using Time = std::chrono::steady_clock::time_point;

// The machine's time, and what has passed beside it. In any thread.
Time now();

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
