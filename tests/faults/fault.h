// What can go wrong with a call to the disk or to the memory.
#pragma once

#include <QString>

// The calls that can fail.
enum class Call
{
    Open,
    Read,
    Write,
    Truncate,
    Sync,
    Size,
    Delete,
    Access,
    Lock,
    Replace, // and the others of the program's own work on files
    Memory
};

// What a call does instead of its work.
enum class Fault
{
    None,
    Error,     // the disk fails; nothing is done
    Full,      // no room: of a write, a half is done
    Short,     // of a read, a half is given; of a write, a half is done and the disk fails
    Busy,      // another program has the file
    AfterWork, // it is done, and yet told as failed
    NoMemory
};

inline constexpr Fault faults[]{Fault::None, Fault::Error,     Fault::Full,    Fault::Short,
                                Fault::Busy, Fault::AfterWork, Fault::NoMemory}; // each at its own number

// Which call fails, and how.
struct Plan
{
    int at = 0; // the first that fails, of those that the fault can befall, counted from 1; 0: none does
    Fault fault = Fault::None;
    bool lasting = false; // all that follow fail, too
};

// Whether that fault can befall that call; the plan leaves the others alone.
bool befalls(Fault fault, Call call);
QString told(Fault fault);
