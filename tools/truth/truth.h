// A BDP with known truth: who and which couple each of its records really is.
#pragma once

#include "bdp.h"

namespace jet {
class Connection;
}

namespace truth {

struct Parish
{
    World world = {};
    Bdp bdp = {};
};

// About `people` records of people. The same numbers give the same parish. Reads nomes.csv of the folder.
Parish parish(int people, std::uint32_t seed, const QString& dataFolder, const Rates& rates = {});

// Into the tables that the cards write. Precondition: the BDP is empty, but for its reference data.
void write(const Bdp& bdp, const World& world, jet::Connection& connection);

// What is true, as lines of CSV: "registo;numero;verdade;nascimento;obito;origem;nome", one for each person ("pessoa")
// and family ("familia": of the true couple, with the numbers of the true husband and wife instead of dates), and one
// for each wrong link ("errada": the number of the person, whom the act was about, what, the number of the family).
QByteArray key(const Parish& parish);

// Makes both files; throws jet::Error.
void make(const QString& bdp, const QString& csv, int people, std::uint32_t seed, const QString& dataFolder);

} // namespace truth
