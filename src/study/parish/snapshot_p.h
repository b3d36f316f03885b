// The arrays behind a snapshot. For this room alone.
#pragma once

#include "study/parish/snapshot.h"

namespace study::parish {

struct Snapshot::Rows
{
    std::vector<Person> people = {};
    std::vector<Family> families = {};
    std::vector<Membership> memberships = {};
    std::vector<Assistance> assistances = {};
    std::vector<Residence> residences = {};
    std::vector<Profession> professions = {};
    std::vector<Signature> signatures = {};
    std::vector<Bequest> bequests = {};
    std::vector<Suffrage> suffrages = {};
    std::vector<Passport> passports = {};
    std::vector<LostMention> lostMentions = {};
    std::vector<LostFamily> lostFamilies = {};
    std::vector<PersonNumber> namedInActs = {};
    Catalogue catalogue = {};
    Home home = {};
    std::unordered_map<qint64, Person*> personOf = {};
    std::unordered_map<qint64, Family*> familyOf = {};
    QHash<qint64, QString> notes = {};        // by the number of the person
    std::vector<QString> rolesOfSigners = {}; // of each signature, in their order
};

// Null where nobody has the number.
template <class Record>
Record* recordOf(const std::unordered_map<qint64, Record*>& records, qint64 number)
{
    return records.contains(number) ? records.at(number) : nullptr;
}

} // namespace study::parish
