// How the parish comes about.
#pragma once

#include "parish.h"
#include "random.h"

#include <functional>
#include <map>

namespace demo {

inline const QDate firstDay(1650, 1, 1);
inline const QDate lastDay(1800, 12, 31);
inline constexpr int fertileTo = 45;  // years
inline constexpr int pregnancy = 270; // days

// Lives through the years of the registers: an agenda of what happens on which day, each entry adding later ones.
class Chronicle
{
public:
    explicit Chronicle(std::uint32_t seed) : random_(seed) {}

    Parish run();

private:
    using Event = std::function<void()>;

    void at(QDate day, Event event) { agenda_.emplace(day, std::move(event)); }
    void after(int fewest, int most, Event event)
    {
        at(today_.addDays(random_.between(fewest, most)), std::move(event));
    }

    Person& who(Nind number) { return parish_.person(number); }
    int ageToday(const Person& someone) const { return completedYears(someone.birth, today_); }

    // chronicle.cpp: who comes, who is born, what becomes of them
    Local inParish();
    QDate birthAtAge(int youngest, int oldest);
    int lifespan();
    int adultLifespan(int age);

    Person& add(Sex sex, QDate birth, QDate death);
    Person& addNewcomer(Sex sex, QDate birth);
    void appointPriest();
    void settleFounders(bool noble);
    void findFoundling();
    void bear(Nfam number);
    void bearOne(const Family& family, bool twin);
    void dieInChildbed(Nind mother);
    void nameChild(Person& child, const Family& family);
    void planLife(const Person& child);
    void planBirth(Nfam family, int fewest, int most);
    void comeOfAge(Nind number);
    void leave(Nind number, const QString& note);

    // chronicle_acts.cpp: marriages and burials
    void seekBride(Nind groom);
    Nind findBride(const Person& groom);
    void wed(Nind groom, Nind bride);
    Family& addFamily(Nind husband, Nind wife);
    void bearOutOfWedlock(Nind mother);
    void bury(Nind number);
    void recordBurial(Person& dead);
    void leaveWidowed(const Person& dead);

    Random random_;
    Parish parish_;
    std::multimap<QDate, Event> agenda_; // events of one day in the order of their entry
    QDate today_;
    Nind priest_; // the parish priest in office
};

} // namespace demo
