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

Person* personAt(const Reader::Rows& rows, PersonNumber number)
{
    return recordOf(rows.personOf, value(number));
}

Family* familyAt(const Reader::Rows& rows, FamilyNumber number)
{
    return recordOf(rows.familyOf, value(number));
}

void linkCouple(Family& family)
{
    for (const Membership& row : family.members) {
        const Person* const member = row.member.person;
        if (!member) continue;
        const Person*& side = member->gender == Gender::Male ? family.husband : family.wife;
        if (!side) side = member;
    }
}

} // namespace

Snapshot Reader::linked(std::unique_ptr<Rows> rows)
{
    linkPeople(*rows);
    linkMemberships(*rows);
    linkChildren(*rows);
    linkAssistances(*rows);
    linkDatedRows(*rows);
    return Snapshot(std::move(rows));
}

void Reader::linkPeople(Rows& all)
{
    all.personOf.reserve(all.people.size());
    for (Person& person : all.people)
        all.personOf.emplace(value(person.number), &person);
    all.familyOf.reserve(all.families.size());
    for (Family& family : all.families)
        all.familyOf.emplace(value(family.number), &family);
    for (Person& person : all.people) {
        person.origin = familyAt(all, person.originNumber);
        for (PersonLink* const column :
             {&person.executor, &person.baptismPriests[0].who, &person.baptismPriests[1].who, &person.burialPriest.who})
            column->person = personAt(all, column->number);
    }
    for (Family& family : all.families)
        for (Priest& one : family.priests)
            one.who.person = personAt(all, one.who.number);
}

void Reader::linkMemberships(Rows& all)
{
    for (Membership& row : all.memberships) {
        row.family = familyAt(all, row.familyNumber);
        row.member.person = personAt(all, row.member.number);
    }
    deal(
        all.memberships, [](const Membership& row) { return row.family; },
        [](Family* family, std::span<const Membership> members) {
            if (family) family->members = members;
        });
    std::ranges::for_each(all.families, linkCouple);
    for (const Membership& row : all.memberships)
        if (Person* const member = personAt(all, row.member.number)) member->unions.push_back(&row);
    for (Person& person : all.people)
        std::ranges::sort(person.unions, {}, [](const Membership* row) { return orderOfMarriage(*row); });
}

void Reader::linkChildren(Rows& all)
{
    for (const Person& person : all.people)
        if (Family* const family = familyAt(all, person.originNumber)) family->children.push_back(&person);
    for (Family& family : all.families)
        std::ranges::sort(family.children, {}, [](const Person* child) { return orderOfBirth(*child); });
}

void Reader::linkAssistances(Rows& all)
{
    for (Assistance& row : all.assistances) {
        row.assistant.person = personAt(all, row.assistant.number);
        if (row.kind == ActKind::Marriage)
            row.family = familyAt(all, FamilyNumber(row.entity));
        else
            row.child = personAt(all, PersonNumber(row.entity));
    }
    deal(
        all.assistances, [](const Assistance& row) { return std::pair(row.kind, row.entity); },
        [&all](std::pair<ActKind, qint64> act, std::span<const Assistance> rows) {
            if (act.first == ActKind::Marriage) {
                if (Family* const family = familyAt(all, FamilyNumber(act.second))) family->witnesses = rows;
            } else if (Person* const child = personAt(all, PersonNumber(act.second))) {
                child->godparents = rows;
            }
        });
    for (const Assistance& row : all.assistances)
        if (Person* const assistant = personAt(all, row.assistant.number)) assistant->assisted.push_back(&row);
    for (Person& person : all.people)
        std::ranges::stable_sort(person.assisted, {}, [](const Assistance* row) { return row->date.day; });
}

void Reader::linkDatedRows(Rows& all)
{
    for (Bequest& row : all.bequests)
        row.heir.person = personAt(all, row.heir.number);

    const auto dealToPeople = [&all](const auto& rows, auto owner, auto list) {
        deal(
            rows, [owner](const auto& row) { return row.*owner; },
            [&all, list](PersonNumber number, auto own) {
                if (Person* const person = personAt(all, number)) person->*list = own;
            });
    };
    dealToPeople(all.professions, &Profession::person, &Person::professions);
    dealToPeople(all.signatures, &Signature::person, &Person::signatures);
    dealToPeople(all.bequests, &Bequest::testator, &Person::bequests);
    dealToPeople(all.suffrages, &Suffrage::deceased, &Person::suffrages);
    dealToPeople(all.passports, &Passport::person, &Person::passports);
    deal(
        all.residences, [](const Residence& row) { return std::pair(row.person, row.family); },
        [&all](std::pair<PersonNumber, FamilyNumber> owner, std::span<const Residence> rows) {
            if (Person* const person = personAt(all, owner.first))
                person->residences = rows;
            else if (Family* const family = familyAt(all, owner.second))
                family->residences = rows;
        });
}

} // namespace study::parish
