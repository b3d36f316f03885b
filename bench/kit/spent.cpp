#include "kit/spent.h"

#include <ctime>

#include <sys/resource.h>

namespace bench {

namespace {

double milliseconds(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

double milliseconds(const timeval& time)
{
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
}

Spent now()
{
    rusage children{};
    getrusage(RUSAGE_CHILDREN, &children);
    return {milliseconds(CLOCK_MONOTONIC),
            milliseconds(CLOCK_PROCESS_CPUTIME_ID) + milliseconds(children.ru_utime) + milliseconds(children.ru_stime)};
}

} // namespace

Spent& Spent::operator+=(const Spent& other)
{
    wall += other.wall;
    cpu += other.cpu;
    return *this;
}

Spent operator+(Spent a, const Spent& b)
{
    return a += b;
}

Spent spentBy(const std::function<void()>& work)
{
    const Spent start = now();
    work();
    const Spent end = now();
    return {end.wall - start.wall, end.cpu - start.cpu};
}

} // namespace bench
