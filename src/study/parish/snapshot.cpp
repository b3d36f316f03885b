#include "study/parish/snapshot.h"

#include "study/parish/snapshot_p.h"

namespace study::parish {

namespace {

QString keyOf(const Place& place)
{
    return place.level + place.code;
}

} // namespace

const Person* spouseOf(const Person& person, const Family& family)
{
    for (const Membership& row : family.members)
        if (row.member.person && row.member.person != &person) return row.member.person;
    return nullptr;
}

bool isIn(const Place& place, const Home& home)
{
    if (home.code.isEmpty()) return false;
    if (place.level == u'F') return place.code == home.code;
    return (place.level == u'L' || place.level == u'S') && place.code.startsWith(home.code);
}

Place localityOf(const Place& place)
{
    return place.level == u'S' ? Place{place.code.left(digitsOfLocality), u'L'} : place;
}

std::optional<bool> inOneLocality(const Place& one, const Place& other)
{
    static const QString ofTheCountry = "DCFL"; // each code begins with that of the place that holds it
    const Place first = localityOf(one), second = localityOf(other);
    if (!ofTheCountry.contains(first.level) || !ofTheCountry.contains(second.level)) return {};
    const auto shared = std::min(first.code.size(), second.code.size());
    if (first.code.left(shared) != second.code.left(shared)) return false;
    return first.level == u'L' && second.level == u'L' ? std::optional(true) : std::nullopt;
}

QString Catalogue::description(const QString& category, const QString& code) const
{
    return codes.value(category).value(code);
}

QString Catalogue::description(const QString& category, Code code) const
{
    return code ? description(category, QString::number(*code)) : QString();
}

bool Catalogue::has(const QString& category, Code code) const
{
    return code && codes.value(category).contains(QString::number(*code));
}

bool Catalogue::has(const Place& place) const
{
    return places.contains(keyOf(place));
}

QString Catalogue::name(const Place& place) const
{
    return places.value(keyOf(place));
}

Snapshot::Snapshot(std::unique_ptr<Rows> rows) : rows_(std::move(rows)) {}
Snapshot::Snapshot(Snapshot&&) noexcept = default;
Snapshot& Snapshot::operator=(Snapshot&&) noexcept = default;
Snapshot::~Snapshot() = default;

std::span<const Person> Snapshot::people() const
{
    return rows_->people;
}

std::span<const Family> Snapshot::families() const
{
    return rows_->families;
}

std::span<const Membership> Snapshot::memberships() const
{
    return rows_->memberships;
}

std::span<const Assistance> Snapshot::assistances() const
{
    return rows_->assistances;
}

std::span<const Residence> Snapshot::residences() const
{
    return rows_->residences;
}

std::span<const Profession> Snapshot::professions() const
{
    return rows_->professions;
}

std::span<const Signature> Snapshot::signatures() const
{
    return rows_->signatures;
}

std::span<const Bequest> Snapshot::bequests() const
{
    return rows_->bequests;
}

std::span<const Suffrage> Snapshot::suffrages() const
{
    return rows_->suffrages;
}

std::span<const Passport> Snapshot::passports() const
{
    return rows_->passports;
}

std::span<const LostMention> Snapshot::lostMentions() const
{
    return rows_->lostMentions;
}

std::span<const LostFamily> Snapshot::lostFamilies() const
{
    return rows_->lostFamilies;
}

std::span<const PersonNumber> Snapshot::namedInActs() const
{
    return rows_->namedInActs;
}

const Catalogue& Snapshot::catalogue() const
{
    return rows_->catalogue;
}

const Home& Snapshot::home() const
{
    return rows_->home;
}

const Person* Snapshot::person(PersonNumber number) const
{
    return recordOf(rows_->personOf, value(number));
}

QString Snapshot::notesOf(PersonNumber number) const
{
    return rows_->notes.value(value(number));
}

const QString& Snapshot::roleIn(const Signature& signature) const
{
    return rows_->rolesOfSigners[static_cast<std::size_t>(&signature - rows_->signatures.data())];
}

const Family* Snapshot::family(FamilyNumber number) const
{
    return recordOf(rows_->familyOf, value(number));
}

} // namespace study::parish
