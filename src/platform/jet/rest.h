// What is still to be read of a long list.
#pragma once

#include "platform/time/clock.h"

#include <functional>

namespace jet {

struct Database;

// While it lives, the database knows of it, and a little of it is read whenever the program is idle.
class Rest
{
public:
    struct Reader
    {
        std::function<void()> next; // a piece. Throws Error; ends the Rest with the last piece
        std::function<void()> all;  // ends the Rest, or throws Error
    };

    // `count`: the rows of the whole list. Precondition: the database outlives it.
    Rest(Database& database, int count, Reader reader);
    ~Rest();
    Rest(const Rest&) = delete;
    Rest& operator=(const Rest&) = delete;

    int count() const { return count_; }
    void readAll();

private:
    void readAhead();

    Database& database_;
    int count_;
    Reader reader_;
    Alarm idle_;
};

} // namespace jet
