// How a parish comes about, year by year. For world.cpp and its parts alone.
#pragma once

#include "world.h"

#include <map>

namespace truth {

int yearsBetween(QDate from, QDate to); // completed
QDate deathOf(QDate birth, const Rates& rates, demo::Random& random);

class Life
{
public:
    Life(int inhabitants, const Rates& rates, std::uint32_t seed)
        : inhabitants_(inhabitants), rates_(rates), random_(seed)
    {
    }

    World run();

private:
    // life.cpp
    void settle();
    void beginYear();
    void arrive(QDate day); // a couple from elsewhere, with children
    Person& born(bool male, QDate birth);
    PersonId grown(bool male, int age, QDate day); // comes from elsewhere, with parents who stay there
    void appointPriests();
    void teachTrades();
    QDate dayOf(int year) { return QDate(year, 1, 1).addDays(random_.between(0, 364)); }

    // life_couples.cpp
    void marryAll();
    PersonId groomFor(const Person& bride, QDate day);
    void wed(PersonId husband, PersonId wife, QDate day, bool here);
    void planChildren(CoupleId couple, QDate first, QDate leaving);
    QDate planBirth(CoupleId couple, QDate day); // the day until which the mother nurses
    void planWidowhood(const Couple& couple);
    QDate leaving(const Couple& couple);
    void childrenOutOfWedlock();

    // life_names.cpp
    void nameBirthsOfTheYear();
    void chooseGodparents(Person& child);
    PersonId neighbour(bool male, QDate day, int locality);
    void name(Person& person, int year);
    QString givenNameOf(const Person& person, int year);
    QStringList surnamesOf(const Person& person, int year);
    QStringList inherited(PersonId from) const;
    bool isTaken(const Person& person, const QString& given) const;

    Person& person(PersonId id) { return world_.person(id); }
    Couple& couple(CoupleId id) { return world_.couple(id); }
    Couple& newCouple(PersonId husband, PersonId wife, QDate wedding);

    int inhabitants_;
    Rates rates_;
    demo::Random random_;
    World world_;
    int year_ = firstYear;
    std::vector<PersonId> residents_, single_; // at the beginning of the year; of these, who may marry
    std::map<int, std::vector<PersonId>> births_, widowed_;
    std::map<PersonId, CoupleId> alone_; // mothers who aren't married
};

} // namespace truth
