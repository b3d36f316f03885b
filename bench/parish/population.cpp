#include "parish/population.h"

#include <algorithm>

namespace bench {

namespace {
constexpr double marriagesPerBirth = 0.22;
constexpr int mostChildren = 9;
constexpr int surnameCount = 28;
} // namespace

bool Population::nextYear()
{
    if (++year_ == firstYear + years) return false;
    couplesOfYear_.clear();
    birthsOfYear_.clear();
    marry();
    bear();
    return true;
}

int Population::take(std::map<int, Numbers>& pool, int year)
{
    const auto found = pool.find(year);
    if (found == pool.end() || found->second.empty()) return 0;
    Numbers& numbers = found->second;
    const auto at = static_cast<std::size_t>(random_.between(0, static_cast<int>(numbers.size()) - 1));
    std::swap(numbers[at], numbers.back());
    const int number = numbers.back();
    numbers.pop_back();
    return number;
}

void Population::marry()
{
    for (marriagesDue_ += marriagesPerBirth * people_ / years; marriagesDue_ >= 1; --marriagesDue_) {
        Couple couple;
        couple.widower = random_.chance(10);
        couple.husband = couple.widower ? take(husbands_, year_ - random_.between(5, 15)) : 0;
        couple.widower = couple.husband != 0;
        if (!couple.widower) couple.husband = take(men_, year_ - random_.between(20, 32));
        couple.wife = take(women_, year_ - random_.between(18, 28));
        if (couple.husband == 0 || couple.wife == 0) continue;
        couple.number = ++lastFamily_;
        couple.marriage = dayOf(year_);
        fathers_.push_back(couple.husband);
        husbands_[year_].push_back(couple.husband);
        plan(couple);
        couplesOfYear_.push_back(couple);
    }
}

void Population::plan(const Couple& couple)
{
    int year = year_ + 1;
    for (int children = random_.between(0, mostChildren); children > 0; --children) {
        expected_[year].push_back(couple.number);
        year += random_.between(1, 3);
    }
}

void Population::bear()
{
    const auto until = [this](int year) {
        return static_cast<int>(static_cast<std::int64_t>(people_) * (year - firstYear + 1) / years);
    };
    const Numbers expected = std::move(expected_[year_]);
    expected_.erase(year_);
    const int births = until(year_) - lastPerson_;
    if (births > 0) bornIn_[year_] = {lastPerson_ + 1, lastPerson_ + births};
    for (int i = 0; i < births; ++i) {
        const bool known = i < static_cast<int>(expected.size());
        birthsOfYear_.push_back(born(known ? expected[static_cast<std::size_t>(i)] : 0));
    }
}

Person Population::born(int family)
{
    Person person;
    person.number = ++lastPerson_;
    person.man = random_.chance(51);
    person.family = family;
    person.father = family > 0 ? fathers_[static_cast<std::size_t>(family) - 1] : 0;
    person.surname = person.father > 0 ? surnames_[static_cast<std::size_t>(person.father) - 1]
                                       : random_.between(0, surnameCount - 1);
    surnames_.push_back(person.surname);
    person.birth = dayOf(year_);
    const bool infant = random_.chance(25);
    if (random_.chance(70))
        person.death = person.birth.addDays(infant ? random_.between(0, 1500) : random_.between(6000, 30000));
    if (!infant) (person.man ? men_ : women_)[year_].push_back(person.number);
    return person;
}

int Population::somebody(int from, int to)
{
    for (int tries = 0; tries < 4; ++tries) {
        const auto found = bornIn_.find(random_.between(from, to));
        if (found != bornIn_.end()) return random_.between(found->second.first, found->second.second);
    }
    return 0;
}

} // namespace bench
