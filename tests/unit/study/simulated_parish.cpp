#include "study/simulated_parish.h"

#include "study/parish/codes.h"
#include "study/parish/reader.h"

#include <QRandomGenerator>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

namespace simulated {

using study::parish::daysOfAYear;

namespace {

constexpr std::array<double, 12> daysOfMonths = {31, 28.25, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
constexpr int groups = 7, firstAge = 15, lastAge = 50, breadth = 5;
// A. J. Coale and T. J. Trussell, 1978; the first group has the deviation of none.
constexpr std::array<double, groups> natural = {0.411, 0.460, 0.431, 0.395, 0.322, 0.167, 0.024};
constexpr std::array<double, groups> deviations = {0, 0, -0.279, -0.667, -1.042, -1.414, -1.671};

constexpr std::array<double, 4> childhoodAges = {1, 5, 10, 15};
constexpr double daysOfTheEndogenous = 28, daysOfAnInfant = 365;

double scaleOf(double day) // of J. Bourgeois-Pichat
{
    return std::pow(std::log10(day + 1), 3);
}

} // namespace

double MarriageAge::deviation() const
{
    return std::sqrt(shape) * scale;
}

Season season(const Season& weights)
{
    double all = 0;
    for (std::size_t month = 0; month < weights.size(); ++month)
        all += weights[month] * daysOfMonths[month];
    Season made = weights;
    for (double& weight : made)
        weight *= daysOfAYear / all;
    return made;
}

double Mortality::cumulated(double from, double until) const
{
    return constant * (until - from) + level / slope * (std::exp(slope * until) - std::exp(slope * from));
}

double Mortality::survival(double from, double until) const
{
    return std::exp(-cumulated(from, until));
}

double Mortality::expectation(double from) const
{
    static constexpr double step = 0.05, oldest = 120;
    double sum = 0;
    for (double age = from + step / 2; age < oldest; age += step)
        sum += step * survival(from, age);
    return sum;
}

double Parameters::rate(int group) const
{
    const auto place = static_cast<std::size_t>(group);
    return level * natural[place] * std::exp(control * deviations[place]);
}

double Parameters::totalFrom(int group) const
{
    double sum = 0;
    for (; group < groups; ++group)
        sum += breadth * rate(group);
    return sum;
}

double Parameters::diedBefore(double day) const
{
    return endogenous + exogenous * scaleOf(day);
}

double Parameters::infantMortality() const
{
    return diedBefore(daysOfAnInfant);
}

double Parameters::childhoodQuotient(int group) const
{
    const auto place = static_cast<std::size_t>(group);
    return 1 - std::exp(-childhood[place] * (childhoodAges[place + 1] - childhoodAges[place]));
}

namespace {

// Lives

qint32 dayNumber(QDate day)
{
    return static_cast<qint32>(day.toJulianDay());
}

qint32 birthdayOf(qint32 birth, int years)
{
    return dayNumber(study::parish::birthday({birth, study::parish::Precision::Exact}, years));
}

double seasonOn(double day, const Season& season)
{
    const int month = QDate::fromJulianDay(static_cast<qint64>(day)).month();
    return season[static_cast<std::size_t>(month - 1)];
}

double highest(const Season& season)
{
    return *std::max_element(season.begin(), season.end());
}

class Lives
{
public:
    Lives(const Parameters& parameters, quint32 seed) : all_(parameters), dice_(seed) {}

    Couple couple()
    {
        Couple made;
        made.marriage = dayOfMarriage();
        made.heMoved = dice_.generateDouble() < all_.movers;
        made.sheMoved = dice_.generateDouble() < all_.movers;
        made.hisBirth = bornBefore(made.marriage, ageAtMarriage(all_.men, made.heMoved));
        made.herBirth = bornBefore(made.marriage, ageAtMarriage(all_.women, made.sheMoved));
        made.hisDeath = deathOfAnAdult(made.hisBirth, made.marriage);
        made.herDeath = deathOfAnAdult(made.herBirth, made.marriage);
        made.leaves = made.marriage + 1 + wholeDays(exponential(all_.leaving));
        bear(made);
        return made;
    }

private:
    double exponential(double aYear)
    {
        return aYear > 0 ? -std::log(1 - dice_.generateDouble()) / aYear : std::numeric_limits<double>::infinity();
    }

    static qint32 wholeDays(double years)
    {
        static constexpr double never = 300;
        return static_cast<qint32>(std::min(years, never) * daysOfAYear);
    }

    qint32 dayOfMarriage()
    {
        const qint32 first = dayNumber({all_.firstYear, 1, 1}), last = dayNumber({all_.firstYear + all_.years, 1, 1});
        const double most = highest(all_.marriages);
        for (;;) {
            const qint32 day = dice_.bounded(first, last);
            if (dice_.generateDouble() * most < seasonOn(day, all_.marriages)) return day;
        }
    }

    double ageAtMarriage(const MarriageAge& ages, bool moved)
    {
        double age = ages.least + (moved ? all_.moversLater : 0);
        for (int i = 0; i < ages.shape; ++i)
            age += exponential(1 / ages.scale);
        return age;
    }

    static qint32 bornBefore(qint32 marriage, double age)
    {
        return marriage - static_cast<qint32>(std::lround(age * daysOfAYear));
    }

    // The first event behind a day. `next` gives one behind another, as often as in the fullest month; of each the
    // share is taken that its month has of that.
    template <class Next>
    double seasonal(double day, const Season& season, const Next& next)
    {
        const double most = highest(season);
        for (;;) {
            day = next(day, most);
            if (dice_.generateDouble() * most < seasonOn(day, season)) return day;
        }
    }

    qint32 deathOfAnAdult(qint32 birth, qint32 from)
    {
        const Mortality& by = all_.adults;
        const auto next = [&](double day, double times) {
            const double age = (day - birth) / daysOfAYear;
            const double old = std::exp(by.slope * age) + by.slope * exponential(by.level * times);
            const double years = std::min(std::log(old) / by.slope - age, exponential(by.constant * times));
            return day + years * daysOfAYear;
        };
        return static_cast<qint32>(seasonal(from, all_.deaths, next));
    }

    // 0 where the child lives to fifteen.
    qint32 deathOfAChild(qint32 birth)
    {
        const double chance = dice_.generateDouble();
        if (chance < all_.infantMortality()) return birth + ageOfAnInfant(chance);
        for (std::size_t group = 0; group < all_.childhood.size(); ++group)
            if (const qint32 death = deathIn(group, birth); death != 0) return death;
        return 0;
    }

    // In days; of the endogenous deaths most come first.
    qint32 ageOfAnInfant(double chance) const
    {
        const double part = chance / all_.endogenous;
        if (part < 1) return static_cast<qint32>(daysOfTheEndogenous * part * part * part);
        return static_cast<qint32>(std::pow(10, std::cbrt((chance - all_.endogenous) / all_.exogenous)) - 1);
    }

    // 0 where the child outlives the group of ages.
    qint32 deathIn(std::size_t group, qint32 birth)
    {
        const qint32 from = birthdayOf(birth, static_cast<int>(childhoodAges[group]));
        const qint32 until = birthdayOf(birth, static_cast<int>(childhoodAges[group + 1]));
        const auto next = [&](double day, double times) { // behind the group it doesn't matter which day it is
            return day >= until ? day : day + exponential(all_.childhood[group] * times) * daysOfAYear;
        };
        const double death = seasonal(from, all_.deaths, next);
        return death < until ? static_cast<qint32>(death) : 0;
    }

    // Confinements are a renewal of mean 1 in the time that the rates make, so that each couple has its rests, and a
    // marriage begins anywhere between two of them: then the mean of all couples is the rate itself at every age.
    double firstRest() { return dice_.generateDouble() < rest ? rest * dice_.generateDouble() : furtherRest(); }
    double furtherRest() { return rest + (1 - rest) * exponential(1); }
    static constexpr double rest = 0.5;

    // How fruitful a couple is; 1 on the average.
    double fruitfulness()
    {
        static constexpr double spread = 0.5;
        const double among = dice_.generateDouble();
        const double of = 1 + spread * (2 * dice_.generateDouble() - 1);
        return among < all_.sterile ? 0 : of / (1 - all_.sterile);
    }

    void bear(Couple& couple)
    {
        const bool isNew = all_.newLevelFrom != 0 && couple.marriage >= dayNumber({all_.newLevelFrom, 1, 1});
        const double factor =
            fruitfulness() / (1 + all_.twins) * (isNew ? all_.newLevel / all_.level : 1) / daysOfAYear;
        const qint32 end = std::min({couple.end(), couple.leaves, birthdayOf(couple.herBirth, lastAge)});
        double left = firstRest();
        for (qint32 from = couple.marriage; from < end;) {
            const int group = groupOn(from, couple.herBirth);
            const qint32 until =
                std::min({end, birthdayOf(couple.herBirth, firstAge + (group + 1) * breadth), endOfMonth(from)});
            const double speed = factor * all_.rate(group) * seasonOn(from, all_.births);
            double at = from;
            for (; speed > 0 && at + left / speed < until; left = furtherRest()) {
                at += left / speed;
                deliver(couple, static_cast<qint32>(at));
            }
            left -= speed * (until - at);
            from = until;
        }
    }

    static int groupOn(qint32 day, qint32 birth)
    {
        const int age = study::parish::completedYears({birth, study::parish::Precision::Exact},
                                                      {day, study::parish::Precision::Exact});
        return (age - firstAge) / breadth;
    }

    static qint32 endOfMonth(qint32 number) // past its last day
    {
        const QDate day = QDate::fromJulianDay(number);
        return dayNumber(QDate(day.year(), day.month(), 1).addMonths(1));
    }

    void deliver(Couple& couple, qint32 day)
    {
        couple.children.push_back(child(day));
        if (dice_.generateDouble() >= all_.twins) return;
        couple.children.push_back(child(day));
        couple.children.back().twin = true;
    }

    Child child(qint32 day) { return {day, deathOfAChild(day), dice_.bounded(2) == 0}; }

    const Parameters& all_;
    QRandomGenerator dice_;
};

} // namespace

std::vector<Couple> lives(const Parameters& parameters, quint32 seed)
{
    Lives made(parameters, seed);
    std::vector<Couple> couples;
    couples.reserve(static_cast<std::size_t>(std::max(0, parameters.couples)));
    for (int i = 0; i < parameters.couples; ++i)
        couples.push_back(made.couple());
    return couples;
}

namespace {

// Registers

using study::parish::Date;
using study::parish::FamilyNumber;
using study::parish::PersonNumber;
using Rows = study::parish::Reader::Rows;

constexpr auto home = "030899", elsewhere = "030801";

Date dated(qint32 day)
{
    return {day, study::parish::Precision::Exact};
}

class Clerk
{
public:
    explicit Clerk(const Registers& registers) : rules_(registers) { rows_->home = {home, "Santa Maria"}; }

    void write(const Couple& couple)
    {
        children_.clear();
        for (const Child& one : couple.children)
            if (isWritten(one)) children_.push_back(one);
        if (rules_.withChildrenOnly && children_.empty()) return;
        hisDeath_ = couple.leaves <= couple.hisDeath ? 0 : couple.hisDeath;
        herDeath_ = couple.leaves <= couple.herDeath ? 0 : couple.herDeath;
        if (rules_.openToFifty && couple.isOpen())
            hisDeath_ = herDeath_ = std::max(couple.marriage + 1, birthdayOf(couple.herBirth, lastAge));
        writeFamily(couple);
        const PersonNumber husband = writeSpouse(couple, false), wife = writeSpouse(couple, true);
        writeMember(couple, husband, false);
        writeMember(couple, wife, true);
        for (const Child& one : children_)
            writeChild(one, couple);
    }

    study::parish::Snapshot parish() { return study::parish::Reader::linked(std::move(rows_)); }

private:
    bool isWritten(const Child& one)
    {
        if (one.death == 0) return true;
        if (rules_.survivorsLinked && ++dead_ % 2 == 0) return false;
        return one.death - one.birth >= rules_.daysUnbaptised;
    }

    void writeFamily(const Couple& couple)
    {
        auto& family = rows_->families.emplace_back();
        family.number = FamilyNumber(rows_->families.size());
        family.situation = study::parish::situation::legitimate;
        family.marriage = dated(couple.marriage);
        family.place = {home, u'F'};
        if (rules_.marriedByChild && !children_.empty())
            family.marriage = dated(children_.front().birth - static_cast<qint32>(daysOfAnInfant));
        if (rules_.endsAtLastBirth)
            family.observedUntil =
                QDate::fromJulianDay(children_.empty() ? couple.marriage : children_.back().birth + 1);
        if (rules_.followedBeyond) family.observedUntil = QDate::fromJulianDay(birthdayOf(couple.marriage, 60));
    }

    PersonNumber nextNumber() const { return PersonNumber(rows_->people.size() + 1); }

    PersonNumber writeSpouse(const Couple& couple, bool wife)
    {
        const PersonNumber number = nextNumber();
        auto& person = rows_->people.emplace_back();
        person.number = number;
        person.gender = wife ? study::parish::Gender::Female : study::parish::Gender::Male;
        person.birthPlace = {elsewhere, u'F'};
        const qint32 birth = wife ? couple.herBirth : couple.hisBirth, own = wife ? herDeath_ : hisDeath_,
                     other = wife ? hisDeath_ : herDeath_;
        if (isBirthFound(couple, wife)) person.birth = dated(birth);
        if (own != 0) person.death = dated(own);
        // Of two who are buried on one day, each was married.
        const bool widowed = other != 0 && other < own;
        if (own != 0) person.stateAtDeath = widowed ? study::parish::civil::widowed : study::parish::civil::married;
        const bool leaves = couple.leaves <= (wife ? couple.herDeath : couple.hisDeath);
        if (rules_.passports && leaves) rows_->passports.push_back({number, dated(couple.leaves)});
        return number;
    }

    bool isBirthFound(const Couple& couple, bool wife) const
    {
        if (wife && rules_.heapedAges) return false;
        if (rules_.moversUnlinked && (wife ? couple.sheMoved : couple.heMoved)) return false;
        const qint32 birth = wife ? couple.herBirth : couple.hisBirth;
        return rules_.firstBaptisms == 0 || birth >= dayNumber({rules_.firstBaptisms, 1, 1});
    }

    void writeMember(const Couple& couple, PersonNumber number, bool wife)
    {
        study::parish::Membership row;
        row.familyNumber = FamilyNumber(rows_->families.size());
        row.member.number = number;
        row.state = study::parish::civil::single;
        row.order = 1;
        const int age =
            study::parish::completedYears(dated(wife ? couple.herBirth : couple.hisBirth), dated(couple.marriage));
        if (rules_.moversUnlinked) row.age = age;
        if (rules_.heapedAges && wife) row.age = (age + 2) / breadth * breadth;
        rows_->memberships.push_back(row);
    }

    void writeChild(const Child& one, const Couple& couple)
    {
        const PersonNumber number = nextNumber();
        auto& person = rows_->people.emplace_back();
        person.number = number;
        person.gender = one.girl ? study::parish::Gender::Female : study::parish::Gender::Male;
        person.birth = dated(one.birth + (one.twin ? rules_.twinsApart : 0));
        person.originNumber = FamilyNumber(rows_->families.size());
        person.filiation = study::parish::filiation::legitimate;
        if (one.death != 0 && one.death < couple.leaves) person.death = dated(std::max(one.death, person.birth.day));
    }

    const Registers& rules_;
    std::unique_ptr<Rows> rows_ = std::make_unique<Rows>();
    std::vector<Child> children_ = {};   // of the couple that is written, as far as they are found
    qint32 hisDeath_ = 0, herDeath_ = 0; // the same; 0: not told here
    int dead_ = 0;
};

} // namespace

study::parish::Snapshot written(const std::vector<Couple>& couples, const Registers& registers)
{
    Clerk clerk(registers);
    for (const Couple& couple : couples)
        clerk.write(couple);
    return clerk.parish();
}

} // namespace simulated
