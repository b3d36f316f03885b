// At which acts people stood, and whom acts and notes name beside them.
#include "study/linkage/faces.h"

#include <algorithm>

namespace study::linkage {

Face* Faces::faceOf(parish::PersonNumber number)
{
    const parish::Person* person = parish_.person(number);
    return person ? &people_[size_t(person - parish_.people().data())] : nullptr;
}

void Faces::addNamed(std::span<const NamedParents> parents, std::span<const NamedSpouse> spouses)
{
    const auto take = [this](const Name*& to, const QString& name) {
        const Name* named = this->name(name);
        if (!to && named && !named->isEmpty()) to = named;
    };
    for (const NamedParents& named : parents)
        if (Face* face = faceOf(named.child)) {
            take(face->father, named.father);
            take(face->mother, named.mother);
        }
    for (const NamedSpouse& named : spouses) {
        Tie tie;
        take(tie.name, named.name);
        if (Face* face = faceOf(named.person); face && tie.name) face->ties.push_back(tie);
    }
}

// The baptised, the parents and the godparents of one act are different people, and so are those who marry and their
// witnesses, and the priests of any act and all others.
void Faces::tellActs()
{
    enum : uint32_t
    {
        baptism,
        marriage,
        burial,
        kinds
    };
    const auto stood = [this](const parish::Person* who, uint32_t act) {
        if (who) people_[size_t(who - parish_.people().data())].acts.push_back(act);
    };
    for (uint32_t i = 0; i < people_.size(); ++i) {
        const parish::Person& person = *people_[i].person;
        const uint32_t baptised = i * kinds + baptism, buried = i * kinds + burial;
        for (const parish::Person* who : {&person, person.father(), person.mother()})
            stood(who, baptised);
        for (const parish::Assistance& godparent : person.godparents)
            stood(godparent.assistant.person, baptised);
        for (const parish::Priest& priest : person.baptismPriests)
            stood(priest.who.person, baptised);
        stood(&person, buried);
        stood(person.burialPriest.who.person, buried);
    }
    for (uint32_t i = 0; i < parish_.families().size(); ++i) {
        const parish::Family& family = parish_.families()[i];
        for (const parish::Membership& member : family.members)
            stood(member.member.person, i * kinds + marriage);
        for (const parish::Assistance& witness : family.witnesses)
            stood(witness.assistant.person, i * kinds + marriage);
        for (const parish::Priest& priest : family.priests)
            stood(priest.who.person, i * kinds + marriage);
    }
    for (Face& face : people_) {
        std::ranges::sort(face.acts);
        face.acts.shrink_to_fit();
    }
}

// Whose child stood at a font or a wedding as the child of somebody dead.
void Faces::tellDead()
{
    const auto dead = [this](const parish::Person* who, const parish::Flag& told, const parish::Date& date) {
        if (!who || !told.value_or(false) || !date.isKnown()) return;
        int& day = people_[size_t(who - parish_.people().data())].deadBy;
        day = std::min(day, spanOf(date).to);
    };
    for (const parish::Assistance& one : parish_.assistances()) {
        if (!one.assistant.person) continue;
        dead(one.assistant.person->father(), one.fatherDead, one.date);
        dead(one.assistant.person->mother(), one.motherDead, one.date);
    }
}

} // namespace study::linkage
