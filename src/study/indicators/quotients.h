// Probabilities of a table, with their intervals and by the size of their base; what the subjects of deaths share.
#pragma once

#include "study/indicators/reading.h"
#include "study/statistics/survival.h"

namespace study::indicators {

// Suppressed below `least`, grey below `sound`.
struct Base
{
    qint64 least = 0, sound = 0;
};

// A share of those at risk, by thousand, with Wilson's interval. Nothing of nobody.
Cell quotient(qint64 events, qint64 atRisk, const Base& base, std::vector<Key> from);
// The same of a probability that was estimated otherwise: 0 to 1.
Cell estimated(std::optional<double> probability, std::optional<statistics::Interval> interval, qint64 atRisk,
               const Base& base, std::vector<Key> from);

// Probability of death before `until` among those who were alive at `from`, by the steps of survival.
struct Died
{
    std::optional<double> probability = {};
    std::optional<statistics::Interval> interval = {};
};
Died diedBetween(const std::vector<statistics::Step>& steps, qint32 from, qint32 until);

// Who dies and who leaves, by age in one dimension: all are at risk from the beginning.
struct Survival
{
    std::vector<statistics::Step> steps = {};
    std::map<qint32, statistics::Exits> exits = {};
    qint64 atStart = 0;
    std::vector<Key> keys = {}; // with Tally::any where all values of a dimension are in it
};
Survival survivalOf(const Reading& reading, quint16 died, quint16 left, const Reading::At& at, int dimension = 3);

std::vector<Key> operator+(std::vector<Key> keys, const std::vector<Key>& more);

// One row of a table by period and gender: the period, or all of them, and the gender, or both.
struct Group
{
    qint32 period = Reading::any, gender = Reading::any;
};
// Each period with both sexes, men, women; at last all periods the same way. Empty where nothing of these was counted.
std::vector<Group> groupsOf(const Reading& reading, std::initializer_list<quint16> counts);
QString told(const Group& group, const Settings& settings); // "1750–1799, mulheres"; "Todo o período"

QString genderTold(qint32 gender); // "ambos os sexos", "homens", "mulheres", "sexo indeterminado"

// A point for each cell, at its place among them; none where there is nothing to be shown.
report::Plot plotOf(const QString& name, const std::vector<Cell>& cells);

} // namespace study::indicators
