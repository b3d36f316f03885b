#include "study/people/sought.h"

#include <algorithm>

namespace study {

namespace {

RoleLimits within(limits::Ages ages, std::optional<int> daysDead = 0)
{
    return {.youngest = ages.youngest, .oldest = ages.oldest, .daysDead = daysDead};
}

// A father may have died between the conception and the baptism, a mother in childbirth; who is told of as a spouse or
// as a parent of a grown person may have died long ago.
RoleLimits limitsOf(const Act& act, int person)
{
    static constexpr int whenever = 200; // how old they would be, had they lived on
    const ActPerson& one = act.people.at(person);
    const bool hasOwner = one.of >= 0 && one.of < person;
    const Role owner = hasOwner ? act.people.at(one.of).role : Role::Mentioned;
    switch (one.role) {
    case Role::Child:
        return {.youngest = 0, .oldest = 1, .daysDead = 0, .born = false};
    case Role::Groom:
        return within(limits::groom);
    case Role::Bride:
        return within(limits::bride);
    case Role::Father:
    case Role::Mother: {
        const RoleLimits ofOwner = hasOwner ? limitsOf(act, one.of) : RoleLimits{};
        if (owner == Role::Child && one.role == Role::Father) return within(limits::father, limits::posthumous);
        if (owner == Role::Child) return within(limits::mother, limits::baptisedAfterMother);
        const int younger = one.role == Role::Father ? limits::father.youngest : limits::mother.youngest;
        return within({ofOwner.youngest + younger, whenever}, {});
    }
    case Role::Spouse:
    case Role::EarlierSpouse:
        return within({limits::bride.youngest, whenever}, {});
    case Role::Godfather:
    case Role::Godmother:
        return within(limits::godparent);
    case Role::Proxy:
    case Role::Witness:
        return within(limits::witness);
    case Role::Celebrant:
        return within(limits::priest);
    case Role::Deceased:
    case Role::Mentioned:
        break;
    }
    return {};
}

class Reader
{
public:
    Reader(const Act& act, const Conclusions& conclusions) : act_(act), conclusions_(conclusions) {}

    Sought sought(int person) const
    {
        const ActPerson& one = act_.people.at(person);
        Sought sought{.person = person,
                      .written = nameOf(one),
                      .name = codedName(nameOf(one)),
                      .sex = sexOf(act_, person),
                      .date = act_.date.standing().value_or(QDate()),
                      .days = daysOf(act_.date),
                      .limits = limitsOf(act_, person),
                      .dead = deadBefore(act_, person),
                      .age = {}};
        QString age = toldValue(one.attributes, attribute::age);
        if (age.isEmpty()) age = toldValue(one.attributes, attribute::roughAge);
        if (const auto told = readAge(age)) sought.age = told->years;
        sought.residence = toldValue(one.attributes, attribute::residence);
        if (conclusions_.places.contains(sought.residence) && !conclusions_.places[sought.residence].code.isEmpty())
            sought.residencePlace = conclusions_.places[sought.residence];
        sought.profession = toldValue(one.attributes, attribute::profession);
        if (const int code = conclusions_.professions.value(sought.profession); code > 0) sought.professionCode = code;
        sought.title = toldValue(one.attributes, attribute::title);
        sought.nickname = toldValue(one.attributes, attribute::nickname);
        addRelatives(sought);
        return sought;
    }

private:
    void add(Sought& sought, Relative::Kind kind, int person, bool certain = true) const
    {
        if (person < 0 || person >= act_.people.size()) return;
        Relative relative{
            .kind = kind, .person = person, .name = codedName(nameOf(act_.people[person])), .certain = certain};
        if (person < conclusions_.people.size() && conclusions_.people[person].kind == Identity::Kind::Known)
            relative.nind = conclusions_.people[person].nind;
        sought.relatives.push_back(std::move(relative));
    }

    void addRelatives(Sought& sought) const
    {
        using enum Relative::Kind;
        const int person = sought.person;
        const ActPerson& one = act_.people.at(person);
        add(sought, Father, personWith(act_, Role::Father, person));
        add(sought, Mother, personWith(act_, Role::Mother, person));
        for (const Role role : {Role::Spouse, Role::EarlierSpouse})
            for (const int spouse : peopleWith(act_, role, person))
                add(sought, Spouse, spouse);
        if (one.role == Role::Groom) add(sought, Spouse, personWith(act_, Role::Bride), false);
        if (one.role == Role::Bride) add(sought, Spouse, personWith(act_, Role::Groom), false);
        if (one.of < 0) return;
        if (one.role == Role::Spouse || one.role == Role::EarlierSpouse) add(sought, Spouse, one.of);
        if (one.role != Role::Father && one.role != Role::Mother) return;
        add(sought, Child, one.of);
        add(sought, Spouse, personWith(act_, one.role == Role::Father ? Role::Mother : Role::Father, one.of));
    }

    const Act& act_;
    const Conclusions& conclusions_;
};

} // namespace

BirthYears Sought::birthYears() const
{
    if (!date.isValid()) return {};
    return {days.from.year() - limits.oldest - 1, days.to.year() - limits.youngest};
}

BirthYears Sought::aboutBirthYears() const
{
    const BirthYears exact = birthYears();
    return date.isValid() ? BirthYears{exact.from - aboutYears, exact.to + aboutYears} : exact;
}

const Relative* Sought::relative(Relative::Kind kind) const
{
    const auto found = std::ranges::find(relatives, kind, &Relative::kind);
    return found == relatives.end() ? nullptr : &*found;
}

Sought soughtIn(const Act& act, int person, const Conclusions& conclusions)
{
    return Reader(act, conclusions).sought(person);
}

} // namespace study
