#include "platform/jet/watch.h"

#include <QScopedValueRollback>

#include <sqlite3.h>

#include <utility>

namespace jet {

namespace {

constexpr int stepsBetweenLooks = 4000; // about a tenth of a millisecond
constexpr std::chrono::milliseconds beforeFirstQuestion{300};
constexpr std::chrono::milliseconds betweenQuestions{50};

} // namespace

void Watch::install(sqlite3* database)
{
    sqlite3_progress_handler(database, stepsBetweenLooks, look, this);
}

void Watch::begin()
{
    ++running_;
    timed_ = false;
    stopped_ = false;
}

void Watch::end()
{
    --running_;
    if (std::exchange(told_, false) && over) over();
}

int Watch::look(void* watch)
{
    return static_cast<Watch*>(watch)->mayGoOn() ? 0 : 1;
}

bool Watch::mayGoOn()
{
    if (running_ == 0) return true; // something that the translation asks, which is short
    if (stopped_) return false;
    if (!goesOn || asking_) return true;
    const auto now = Clock::now();
    if (!timed_) {
        timed_ = true;
        since_ = asked_ = now;
        return true;
    }
    if (now - since_ < beforeFirstQuestion || now - asked_ < betweenQuestions) return true;
    told_ = true;
    {
        const QScopedValueRollback inTheMiddle(asking_, true);
        if (!goesOn(std::chrono::duration_cast<std::chrono::milliseconds>(now - since_))) stopped_ = true;
    }
    asked_ = Clock::now();
    return !stopped_;
}

} // namespace jet
