#include "study/parish/reader.h"

#include <algorithm>
#include <tuple>

namespace study::parish {

namespace {

// Gives each owner the rows that stand behind one another in `rows`: `ownerOf` a row, `give` them to the owner.
template <class Row, class OwnerOf, class Give>
void deal(const std::vector<Row>& rows, OwnerOf ownerOf, Give give)
{
    for (auto first = rows.begin(); first != rows.end();) {
        const auto owner = ownerOf(*first);
        const auto last = std::find_if(first, rows.end(), [&](const Row& row) { return ownerOf(row) != owner; });
        give(owner, std::span<const Row>(first, last));
        first = last;
    }
}

// Those without a date behind the others.
auto orderOfBirth(const Person& person)
{
    return std::tuple(!person.birth.isKnown(), person.birth.day, person.number);
}

auto orderOfMarriage(const Membership& row)
{
    return std::tuple(row.family ? row.family->marriage.day : 0, row.familyNumber);
}

} // namespace

Person* Reader::personAt(PersonNumber number) const
{
    return recordOf(rows_->personOf, value(number));
}

Family* Reader::familyAt(FamilyNumber number) const
{
    return recordOf(rows_->familyOf, value(number));
}

void Reader::linkPeople()
{
    rows_->personOf.reserve(rows_->people.size());
    for (Person& person : rows_->people)
        rows_->personOf.emplace(value(person.number), &person);
    rows_->familyOf.reserve(rows_->families.size());
    for (Family& family : rows_->families)
        rows_->familyOf.emplace(value(family.number), &family);
    for (Person& person : rows_->people) {
        person.origin = familyAt(person.originNumber);
        for (PersonLink* const column :
             {&person.executor, &person.baptismPriests[0].who, &person.baptismPriests[1].who, &person.burialPriest.who})
            column->person = personAt(column->number);
    }
    for (Family& family : rows_->families)
        for (Priest& one : family.priests)
            one.who.person = personAt(one.who.number);
}

void Reader::linkMemberships()
{
    for (Membership& row : rows_->memberships) {
        row.family = familyAt(row.familyNumber);
        row.member.person = personAt(row.member.number);
    }
    deal(
        rows_->memberships, [](const Membership& row) { return row.family; },
        [](Family* family, std::span<const Membership> members) {
            if (family) family->members = members;
        });
    for (Family& family : rows_->families)
        linkCouple(family);
    for (const Membership& row : rows_->memberships)
        if (Person* const member = personAt(row.member.number)) member->unions.push_back(&row);
    for (Person& person : rows_->people)
        std::ranges::sort(person.unions, {}, [](const Membership* row) { return orderOfMarriage(*row); });
}

void Reader::linkCouple(Family& family) const
{
    for (const Membership& row : family.members) {
        const Person* const member = row.member.person;
        if (!member) continue;
        const Person*& side = member->gender == Gender::Male ? family.husband : family.wife;
        if (!side) side = member;
    }
}

void Reader::linkChildren()
{
    for (const Person& person : rows_->people)
        if (Family* const family = familyAt(person.originNumber)) family->children.push_back(&person);
    for (Family& family : rows_->families)
        std::ranges::sort(family.children, {}, [](const Person* child) { return orderOfBirth(*child); });
}

void Reader::linkAssistances()
{
    for (Assistance& row : rows_->assistances) {
        row.assistant.person = personAt(row.assistant.number);
        if (row.kind == ActKind::Marriage)
            row.family = familyAt(FamilyNumber(row.entity));
        else
            row.child = personAt(PersonNumber(row.entity));
    }
    deal(
        rows_->assistances, [](const Assistance& row) { return std::pair(row.kind, row.entity); },
        [this](std::pair<ActKind, qint64> act, std::span<const Assistance> rows) {
            if (act.first == ActKind::Marriage) {
                if (Family* const family = familyAt(FamilyNumber(act.second))) family->witnesses = rows;
            } else if (Person* const child = personAt(PersonNumber(act.second))) {
                child->godparents = rows;
            }
        });
    for (const Assistance& row : rows_->assistances)
        if (Person* const assistant = personAt(row.assistant.number)) assistant->assisted.push_back(&row);
    for (Person& person : rows_->people)
        std::ranges::stable_sort(person.assisted, {}, [](const Assistance* row) { return row->date.day; });
}

void Reader::linkDatedRows()
{
    for (Bequest& row : rows_->bequests)
        row.heir.person = personAt(row.heir.number);

    const auto dealToPeople = [this](const auto& rows, auto owner, auto list) {
        deal(
            rows, [owner](const auto& row) { return row.*owner; },
            [this, list](PersonNumber number, auto own) {
                if (Person* const person = personAt(number)) person->*list = own;
            });
    };
    dealToPeople(rows_->professions, &Profession::person, &Person::professions);
    dealToPeople(rows_->signatures, &Signature::person, &Person::signatures);
    dealToPeople(rows_->bequests, &Bequest::testator, &Person::bequests);
    dealToPeople(rows_->suffrages, &Suffrage::deceased, &Person::suffrages);
    dealToPeople(rows_->passports, &Passport::person, &Person::passports);
    deal(
        rows_->residences, [](const Residence& row) { return std::pair(row.person, row.family); },
        [this](std::pair<PersonNumber, FamilyNumber> owner, std::span<const Residence> rows) {
            if (Person* const person = personAt(owner.first))
                person->residences = rows;
            else if (Family* const family = familyAt(owner.second))
                family->residences = rows;
        });
}

} // namespace study::parish
