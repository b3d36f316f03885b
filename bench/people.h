// A BDP with many people in families, for the measures of cards and searches.
#pragma once

#include <QByteArray>

struct sqlite3;

// Opens cnBDP on a BDP with so many people; each file is made once a run. Person n is a man where n is odd; the couple
// of family f is 2f - 1 and 2f, its children are 4f to 4f + 3, for every f that gives numbers of people. Where
// `searched` people are asked for, so many have a name with "Assunção" in it; else every thousandth.
class People
{
public:
    explicit People(int people, int searched = 0);
    ~People(); // closes cnBDP
    People(const People&) = delete;
    People& operator=(const People&) = delete;

    // The same file through a connection without any of the program's functions.
    sqlite3* bare() const { return bare_; }

private:
    sqlite3* bare_ = nullptr;
};
