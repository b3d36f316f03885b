#include "study/indicators/marriages.h"

#include "study/indicators/scope.h"
#include "study/parish/codes.h"

#include <algorithm>
#include <cstdlib>

namespace study::indicators {

using parish::Family;
using parish::Membership;
using parish::Person;
using parish::Place;

namespace {

constexpr auto portugal = "PT", noCountry = "00"; // codes of countries; those of zones begin with their country's
constexpr int digitsOfDistrict = 2, digitsOfMunicipality = 4;

Spouse spouseIn(const Family& family, const Person* person)
{
    if (!person) return {};
    for (const Membership& row : family.members)
        if (row.member.person == person) return {person, &row};
    return {};
}

enum class Order
{
    Earlier,
    Later,
    Unknown
};

Order orderOf(const Family& other, const Family& family)
{
    if (other.marriage.isKnown() && family.marriage.isKnown()) {
        const QDate one = other.marriage.middle(), two = family.marriage.middle();
        return one < two || (one == two && other.number < family.number) ? Order::Earlier : Order::Later;
    }
    if (other.marriage.isKnown() || !family.marriage.isKnown()) return Order::Unknown;
    if (other.children.empty() || !other.children.front()->birth.isKnown()) return Order::Unknown;
    return other.children.front()->birth.middle() < family.marriage.middle() ? Order::Earlier : Order::Later;
}

Rank rankByHistory(const Person& person, const Family& family)
{
    Rank rank = Rank::First;
    for (const Membership* row : person.unions) {
        if (!row->family || row->family == &family || !isMarriage(*row->family)) continue;
        const Order order = orderOf(*row->family, family);
        if (order == Order::Earlier) return Rank::Later;
        if (order == Order::Unknown) rank = Rank::Unknown;
    }
    return rank;
}

const parish::Residence* nearestTo(const parish::Date& day, std::span<const parish::Residence> rows)
{
    const parish::Residence* nearest = nullptr;
    const auto distance = [&day](const parish::Residence& row) {
        return day.isKnown() && row.date.isKnown() ? std::abs(parish::daysBetween(day, row.date)) : 0;
    };
    for (const parish::Residence& row : rows)
        if (row.place.isKnown() && (!nearest || distance(row) < distance(*nearest))) nearest = &row;
    return nearest;
}

} // namespace

Spouse husbandIn(const Family& family)
{
    return spouseIn(family, family.husband);
}

Spouse wifeIn(const Family& family)
{
    return spouseIn(family, family.wife);
}

MarriageIs marriageIs(const Family& family, const Study& study)
{
    if (!family.marriage.isKnown()) return MarriageIs::Undated;
    const Settings& settings = study.settings;
    if (!isHere(family.place, study)) return MarriageIs::Elsewhere;
    const int year = family.marriage.year();
    if (!settings.period.holds(year)) return MarriageIs::OutOfPeriod;
    return settings.covers(Series::Marriages, year) ? MarriageIs::Counted : MarriageIs::OutOfBooks;
}

bool isTaken(const Family& family, const Study& study, quint16 firstReason, Taker& taker)
{
    const MarriageIs is = marriageIs(family, study);
    if (is == MarriageIs::Counted) return true;
    const int place = static_cast<int>(is) - static_cast<int>(MarriageIs::Undated);
    taker.count({static_cast<quint16>(firstReason + place), {}}, {nullptr, &family});
    return false;
}

bool isMarriage(const Family& family)
{
    return family.husband && family.wife && !isUnmarried(family);
}

Rank rankOf(const Spouse& spouse, const Family& family)
{
    const int order = spouse.row->order.value_or(0);
    if (order > 0) return order == 1 ? Rank::First : Rank::Later;
    const int state = spouse.row->state.value_or(0);
    if (state == parish::civil::single) return Rank::First;
    if (state == parish::civil::widowed || state == parish::civil::divorced) return Rank::Later;
    return rankByHistory(*spouse.person, family);
}

Before stateBefore(const Spouse& spouse, const Family& family, const Study& study)
{
    const int state = spouse.row->state.value_or(0);
    if (state == parish::civil::single) return Before::Single;
    if (state == parish::civil::widowed) return Before::Widowed;
    const int order = spouse.row->order.value_or(0);
    if (order > 0) return order == 1 ? Before::Single : Before::Widowed;
    for (const Membership* row : spouse.person->unions) {
        if (!row->family || row->family == &family || !isMarriage(*row->family)) continue;
        const observation::Union& earlier = study.unionOf(*row->family);
        const bool hadEnded =
            earlier.isClosed() && family.marriage.isKnown() && earlier.end.middle() <= family.marriage.middle();
        if (hadEnded) return Before::Widowed;
    }
    return Before::Unknown;
}

QString told(Origin origin)
{
    static const char* const texts[] = {"a paróquia",          "paróquias vizinhas", "mesmo concelho", "mesmo distrito",
                                        "outra parte do país", "estrangeiro",        "desconhecida"};
    return texts[static_cast<std::size_t>(origin)];
}

Origin originOf(const Place& place, const Study& study)
{
    const parish::Home& home = study.parish.home();
    if (!place.isKnown() || home.code.isEmpty()) return Origin::Unknown;
    if (isIn(place, home)) return Origin::Parish;
    if (place.level == u'P' && place.code == QString(noCountry)) return Origin::Unknown;
    if (place.level == u'P' || place.level == u'Z')
        return place.code.startsWith(QString(portugal)) ? Origin::Country : Origin::Abroad;
    const auto isBelow = [&place](const QString& code) { return !code.isEmpty() && place.code.startsWith(code); };
    if (std::any_of(study.settings.neighbours.begin(), study.settings.neighbours.end(), isBelow))
        return Origin::Neighbour;
    if (place.code.size() >= digitsOfMunicipality && isBelow(home.code.left(digitsOfMunicipality)))
        return Origin::Municipality;
    return isBelow(home.code.left(digitsOfDistrict)) ? Origin::District : Origin::Country;
}

Place originPlaceOf(const Person& person)
{
    if (person.birthPlace.isKnown()) return person.birthPlace;
    if (!person.origin) return {};
    const Person* const parents[] = {person.father(), person.mother()};
    if (const auto* row = nearestTo(person.birth, person.origin->residences)) return row->place;
    for (const Person* parent : parents)
        if (parent)
            if (const auto* row = nearestTo(person.birth, parent->residences)) return row->place;
    return {};
}

} // namespace study::indicators
