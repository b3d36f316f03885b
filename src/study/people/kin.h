// Who is related to whom, read from the BDP as it is asked for and kept as long as it holds.
#pragma once

#include "platform/jet/connection.h"
#include "study/people/index.h"

#include <QDate>
#include <QString>

#include <memory>
#include <vector>

namespace study {

struct Residence
{
    QDate date;
    QString code;
    QString level; // the letter of its kind of place

    bool operator==(const Residence&) const = default;
};

// An act at which somebody was a godparent or a witness.
struct Assistance
{
    QDate date;
    bool godparent = false;

    bool operator==(const Assistance&) const = default;
};

struct Person
{
    PersonRow is;
    CodedName name;
};

// Which of the dates of somebody aren't exact.
struct AboutDates
{
    bool birth = false, death = false;
};

struct Family
{
    qint64 number = 0;
    qint64 husband = 0, wife = 0; // nind; 0: not known
    QDate marriage = {};
};

struct Child
{
    qint64 nind = 0;
    QDate birth;
};

qint64 otherSpouse(const Family& family, qint64 nind); // 0: not known

// Follows what this connection writes, and forgets all where others may have written.
// One thread; the connection and the index outlive it. All throw jet::Error.
class Kin
{
public:
    Kin(jet::Connection& bdp, NameIndex& index);
    ~Kin();
    Kin(const Kin&) = delete;
    Kin& operator=(const Kin&) = delete;

    // Drops what doesn't hold any more. What was given earlier is gone.
    void update();

    // Preconditions of the following: update() was called behind the last change of the BDP. What they give stands
    // until the next update(); null: there is none.
    const Person* personAt(qint64 row); // of the index
    const Person* person(qint64 nind);
    const Family* family(qint64 number);
    const std::vector<Child>& childrenOf(const Family& family); // by birth, those without a date behind the others

    AboutDates aboutDatesOf(const Person& person);
    const std::vector<qint64>& familiesOf(const Person& person);        // as husband or wife, by their numbers
    const std::vector<Residence>& residencesOf(const Person& person);   // the last one first
    const std::vector<int>& professionsOf(const Person& person);        // codprof
    const std::vector<Assistance>& assistancesOf(const Person& person); // those with a date

private:
    struct Private;
    std::unique_ptr<Private> d_;
};

} // namespace study
