// Who is born when to whom, who marries whom, and who dies: numbers only, made year by year.
#pragma once

#include "random.h"

#include <QDate>

#include <cstdint>
#include <map>
#include <vector>

namespace bench {

struct Person
{
    int number = 0;
    bool man = false;
    int family = 0; // of origin; 0: unknown
    int father = 0;
    QDate birth;
    QDate death; // invalid: not known
    int surname = 0;
};

struct Couple
{
    int number = 0;
    int husband = 0, wife = 0;
    bool widower = false;
    QDate marriage;
};

inline constexpr int firstYear = 1580;
inline constexpr int years = 300;

class Population
{
public:
    Population(int people, demo::Random& random) : people_(people), random_(random) {}

    // The next year: its couples, then its births. False once all years are over.
    bool nextYear();

    const std::vector<Couple>& couples() const { return couplesOfYear_; }
    const std::vector<Person>& births() const { return birthsOfYear_; }

    // Somebody born in one of those years, or 0.
    int somebody(int from, int to);

private:
    using Numbers = std::vector<int>;

    QDate dayOf(int year) { return QDate(year, 1, 1).addDays(random_.between(0, 364)); }
    int take(std::map<int, Numbers>& pool, int year);
    void marry();
    void plan(const Couple& couple);
    void bear();
    Person born(int couple);

    int people_;
    demo::Random& random_;
    int year_ = firstYear - 1;
    int lastPerson_ = 0, lastFamily_ = 0;
    double marriagesDue_ = 0;
    std::map<int, Numbers> men_, women_;        // who hasn't married, by the year of birth
    std::map<int, Numbers> husbands_;           // by the year of the marriage
    std::map<int, Numbers> expected_;           // families that have a child, by the year
    std::map<int, std::pair<int, int>> bornIn_; // the first and the last number, by the year
    std::vector<int> fathers_;                  // by the family
    std::vector<int> surnames_;                 // by the person
    std::vector<Couple> couplesOfYear_;
    std::vector<Person> birthsOfYear_;
};

} // namespace bench
