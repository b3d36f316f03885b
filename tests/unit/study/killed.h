// A process that works and is killed.
#pragma once

#include <csignal>
#include <functional>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace killed {

// Tells the parent of something that is on the disk.
using Confirm = std::function<void(int what)>;

// Lets a process of its own do the work and kills it, so many milliseconds behind its first word, or behind the one
// that is waited for. Returns the last one that it said; -1 for none.
inline int workAndKill(const std::function<void(const Confirm&)>& work, int milliseconds, int words = 1)
{
    int ends[2];
    if (pipe(ends) != 0) return -1;
    const pid_t child = fork();
    if (child == 0) {
        work([&](int what) {
            if (write(ends[1], &what, sizeof what) != sizeof what) _exit(1);
        });
        for (;;)
            pause();
    }
    close(ends[1]);
    int last = -1;
    pollfd word{ends[0], POLLIN, 0};
    for (; words > 0 && poll(&word, 1, 60'000) > 0; --words)
        if (read(ends[0], &last, sizeof last) != sizeof last) break;
    usleep(useconds_t(milliseconds) * 1000);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    while (read(ends[0], &last, sizeof last) == sizeof last) {
    }
    close(ends[0]);
    return last;
}

} // namespace killed
