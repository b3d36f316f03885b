// The BDPs of one run. They stand beside the program, on a real disk, and go with the run.
#pragma once

#include <QString>

namespace bench {

// A parish of so many people, made at its first use in the run, which nobody may write to.
QString parishOf(int people);

// A copy of it, on the disk already, that belongs to whoever asks.
class OwnParish
{
public:
    explicit OwnParish(int people);
    ~OwnParish(); // removes it and what stands beside it
    OwnParish(const OwnParish&) = delete;
    OwnParish& operator=(const OwnParish&) = delete;

    QString path() const;

private:
    QString folder_;
};

// A folder of the run's for anything else; it goes with the run.
QString newFolder();

} // namespace bench
