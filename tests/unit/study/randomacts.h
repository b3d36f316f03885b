// Acts by chance, as no register would have them: whatever the types allow.
#pragma once

#include "study/acts/plan.h"

#include <random>

class RandomActs
{
public:
    explicit RandomActs(unsigned seed) : random_(seed) {}

    study::Act act();
    study::Conclusions conclusionsOf(const study::Act& act);
    study::Plan planOf(const study::Act& act, const study::Conclusions& conclusions);

    int any(int first, int last) { return std::uniform_int_distribution(first, last)(random_); }
    bool maybe() { return any(0, 1) == 1; }
    QString text(); // often empty; quotes, blanks, line breaks, letters outside the plane of all days, a NUL

private:
    study::Told told();
    study::PartialDate date();
    QList<study::Attribute> attributes(int most);
    study::ActPerson person(int place);
    QVariant value();
    study::RowChange::Columns columns(int least);

    std::mt19937 random_;
};
