// The rows of a parish, written year by year.
#pragma once

#include "parish/population.h"
#include "parish/writer.h"
#include "random.h"

namespace bench {

class Registers
{
public:
    Registers(sqlite3* database, demo::Random& random);

    void write(Population& population); // the year that it is in

private:
    void writePerson(Population& population, const Person& person);
    void writeCouple(Population& population, const Couple& couple);
    void writeLife(const Person& person);
    QByteArray nameOf(const Person& person);
    Cell placeOfBirth();

    demo::Random& random_;
    Writer people_, couples_, members_, assistants_, residences_, professions_, signatures_, legacies_, rites_,
        passports_;
};

} // namespace bench
