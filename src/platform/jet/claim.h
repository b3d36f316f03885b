// That a program has a file in work, for other programs to see.
#pragma once

#include <QString>

#include <memory>

namespace jet {

// One claim on one file. It goes with the process, however that ends, and holds whatever name or link the file is
// reached by; only on systems without locks of open files it is a file of its own beside the claimed one.
//
// Precondition of the end of a claim: the engine of this process has no lock on the file, as the system would drop it.
class Claim
{
public:
    enum class Outcome
    {
        Taken,
        Held,   // by somebody else, in this process or in another
        Unknown // the file isn't there, can't be written, or its disk knows of no such locks
    };

    Claim();
    ~Claim(); // releases
    Claim(const Claim&) = delete;
    Claim& operator=(const Claim&) = delete;

    // Never waits, and opens nothing but a regular file. A claim held before is released first.
    Outcome take(const QString& path);
    void release();

private:
    struct Private;
    std::unique_ptr<Private> d_;
};

} // namespace jet
