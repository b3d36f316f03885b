// Looks at a statement that runs for long.
#pragma once

#include <chrono>
#include <functional>

struct sqlite3;

namespace jet {

// Costs a look at the clock every few thousand steps of the engine. Whoever is asked is asked for the first time after
// 300 milliseconds, and then every 50.
class Watch
{
public:
    std::function<bool(std::chrono::milliseconds elapsed)>
        goesOn; // false: it is to end. Empty: none is ever asked about
    std::function<void()> over;

    void install(sqlite3* database); // this stays where it is as long as the handle is open

    void begin(); // a statement is to give its first row
    void end();   // it has given its last one, or is given up. Called once for each begin()

    // Whether goesOn runs: in the middle of a statement, the engine takes no other one.
    bool asking() const { return asking_; }
    void stop() { stopped_ = true; } // the statement ends as soon as goesOn returns

private:
    using Clock = std::chrono::steady_clock;

    static int look(void* watch);
    bool mayGoOn();

    Clock::time_point since_;
    Clock::time_point asked_;
    int running_ = 0;    // statements between begin() and end()
    bool timed_ = false; // since_ holds
    bool told_ = false;  // somebody was asked: over must follow
    bool asking_ = false;
    bool stopped_ = false;
};

} // namespace jet
