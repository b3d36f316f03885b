// When somebody can have been born, by all that the BDP tells of them.
#include "study/acts/limits.h"
#include "study/linkage/faces.h"
#include "study/people/span.h"

#include <algorithm>
#include <cmath>

namespace study::linkage {

namespace {

double yearOf(double day)
{
    static constexpr double dayOfYear0 = 1721060; // 1 January of the year 0, proleptic
    return (day - dayOfYear0) / parish::daysOfAYear;
}

int inDays(double years)
{
    return int(std::lround(years * parish::daysOfAYear));
}

int middleOf(const parish::Date& date)
{
    return int(date.middle().toJulianDay());
}

// How old people mostly are: a guess for who has no birth.
struct Usual
{
    double marriage, firstChild;
};
constexpr Usual ofMan{26, 29}, ofWoman{23, 26}, ofEither{24.5, 27.5};
constexpr double usualGodparent = 33, usualDeath = 55, usualDeathOfMinor = 3, usualPriest = 45, usualAtWork = 35;
constexpr double ofAnyAge = 0.5; // how far a guess by what is done early and late in life is to be trusted
constexpr double oldestMinor = 25;
constexpr limits::Ages atAnyAge{0, limits::oldestOfAll}, atWork{7, limits::oldestOfAll};

class Life
{
public:
    Life(Face& face, const Offices& offices) : face_(face), person_(*face.person), offices_(offices) {}

    void tell()
    {
        ofBirth();
        ofUnions();
        ofAssistances();
        ofOffices();
        ofDatedRows();
        ofDeath();
        std::ranges::sort(face_.births);
        if (!face_.birthTold && guess_ > 0) face_.birthYear = guess_;
    }

private:
    bool isMan() const { return person_.gender == parish::Gender::Male; }
    bool isWoman() const { return person_.gender == parish::Gender::Female; }
    const Usual& usual() const { return isMan() ? ofMan : isWoman() ? ofWoman : ofEither; }

    // Done at these ages at that date.
    void did(const parish::Date& date, limits::Ages ages)
    {
        if (!date.isKnown()) return;
        const Days when = spanOf(date);
        face_.born.to = std::min(face_.born.to, when.to - inDays(ages.youngest));
        face_.born.from = std::max(face_.born.from, when.from - inDays(ages.oldest + 1));
    }

    void alive(const parish::Date& date, int before = 0)
    {
        if (date.isKnown()) face_.lastAlive = std::max(face_.lastAlive, spanOf(date).from - before);
    }

    // What only the living do: at these ages, and usually at that one.
    void lived(const parish::Date& date, limits::Ages ages, double usually)
    {
        did(date, ages);
        alive(date);
        guess(date, usually, ofAnyAge);
    }

    void guess(const parish::Date& date, double age, double trust = 1)
    {
        if (guess_ != 0 || !date.isKnown()) return;
        guess_ = yearOf(middleOf(date)) - age;
        face_.guessed = trust;
    }

    void stated(const parish::Date& date, const parish::Code& age)
    {
        static constexpr double least = 2, share = 0.1;
        if (face_.birthTold || !age || !date.isKnown() || *age < 0 || *age > limits::oldestOfAll) return;
        face_.birthTold = true;
        face_.birthYear = yearOf(middleOf(date)) - *age - 0.5;
        face_.ageSlack = std::max(least, share * *age);
    }

    void ofBirth()
    {
        if (!person_.birth.isKnown()) return;
        const Days when = spanOf(person_.birth);
        face_.born = when;
        face_.birthTold = true;
        face_.birthYear = yearOf(middleOf(person_.birth));
        face_.ageSlack = person_.birth.isExact() ? 0 : aboutYears;
    }

    void ofUnions()
    {
        const limits::Ages spouse = isMan() ? limits::groom : limits::bride;
        const limits::Ages parent = isMan()     ? limits::father
                                    : isWoman() ? limits::mother
                                                : limits::Ages{limits::mother.youngest, limits::father.oldest};
        for (const parish::Membership* own : person_.unions) {
            if (!own->family) continue;
            did(own->family->marriage, spouse);
            alive(own->family->marriage);
            stated(own->family->marriage, own->age);
            guess(own->family->marriage, usual().marriage);
            for (const parish::Person* child : own->family->children) {
                did(child->birth, parent);
                alive(child->birth, isMan() ? limits::posthumous : limits::baptisedAfterMother);
                stated(child->birth, isMan() ? child->fatherAge : isWoman() ? child->motherAge : parish::Code());
                guess(child->birth, usual().firstChild);
                if (child->birth.isExact()) face_.births.push_back(child->birth.day);
            }
        }
    }

    void ofAssistances()
    {
        for (const parish::Assistance* assistance : person_.assisted)
            lived(assistance->date, assistance->godparent ? limits::godparent : limits::witness, usualGodparent);
    }

    void ofOffices()
    {
        for (const parish::Date* date : offices_.priestAt)
            lived(*date, limits::priest, usualPriest);
        // A will that names them was made before the burial of who made it, nobody knows how long.
        for (const parish::Date* date : offices_.executorBefore)
            bornBefore(*date, limits::witness.youngest);
        for (const parish::Date* date : offices_.heirBefore)
            bornBefore(*date, 0);
    }

    void bornBefore(const parish::Date& date, double age)
    {
        if (date.isKnown()) face_.born.to = std::min(face_.born.to, spanOf(date).to - inDays(age));
    }

    void ofDatedRows()
    {
        for (const parish::Profession& profession : person_.professions)
            lived(profession.date, atWork, usualAtWork);
        for (const parish::Signature& signature : person_.signatures) {
            stated(signature.date, signature.age);
            lived(signature.date, atWork, usualGodparent);
        }
        for (const parish::Passport& passport : person_.passports)
            lived(passport.date, atAnyAge, usual().marriage);
        for (const parish::Residence& residence : person_.residences)
            lived(residence.date, atAnyAge, usualGodparent);
    }

    void ofDeath()
    {
        if (!person_.death.isKnown()) return;
        const Days when = spanOf(person_.death);
        face_.died = when;
        face_.born.to = std::min(face_.born.to, when.to);
        const bool minor = person_.minor.value_or(false);
        const double oldest = minor ? oldestMinor : limits::oldestOfAll + 1;
        face_.born.from = std::max(face_.born.from, when.from - inDays(oldest));
        stated(person_.death, person_.ageAtDeath);
        if (minor || !person_.unions.empty())
            guess(person_.death, minor ? usualDeathOfMinor : usualDeath, minor ? 1 : ofAnyAge);
    }

    Face& face_;
    const parish::Person& person_;
    const Offices& offices_;
    double guess_ = 0;
};

} // namespace

Days spanOf(const parish::Date& date)
{
    const int slack = date.isExact() ? 0 : inDays(aboutYears + (date.precision == parish::Precision::Year ? 0.5 : 0));
    return {middleOf(date) - slack, middleOf(date) + slack};
}

std::vector<Offices> officesOf(const parish::Snapshot& parish)
{
    std::vector<Offices> all(parish.people().size());
    const auto officesFor = [&](const parish::PersonLink& who) {
        return who.person ? &all[size_t(who.person - parish.people().data())] : nullptr;
    };
    for (const parish::Person& person : parish.people()) {
        for (const parish::Priest& priest : person.baptismPriests)
            if (Offices* offices = officesFor(priest.who)) offices->priestAt.push_back(&person.birth);
        if (Offices* offices = officesFor(person.burialPriest.who)) offices->priestAt.push_back(&person.death);
        if (Offices* offices = officesFor(person.executor)) offices->executorBefore.push_back(&person.death);
        for (const parish::Bequest& bequest : person.bequests)
            if (Offices* offices = officesFor(bequest.heir)) offices->heirBefore.push_back(&person.death);
    }
    for (const parish::Family& family : parish.families())
        for (const parish::Priest& priest : family.priests)
            if (Offices* offices = officesFor(priest.who)) offices->priestAt.push_back(&family.marriage);
    return all;
}

void Faces::fillTimes(Face& face, const Offices& offices)
{
    Life(face, offices).tell();
}

} // namespace study::linkage
