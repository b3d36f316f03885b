// Rates of marital fertility by age: counting.
#include "study/indicators/fertility_rates.h"

#include "study/indicators/fertility.h"

#include <algorithm>

namespace study::indicators {

namespace rates {

quint16 seriesOf(Known known, Order order)
{
    return static_cast<quint16>(2 * static_cast<int>(known) + static_cast<int>(order));
}

std::vector<Key> Base::keys() const
{
    std::vector<Key> all = births.keys;
    all.insert(all.end(), halfDays.keys.begin(), halfDays.keys.end());
    return all;
}

Base& Base::operator+=(const Base& other)
{
    births += other.births;
    halfDays += other.halfDays;
    families += other.families;
    return *this;
}

Base agelessBaseOf(const Reading& reading, const Reading::At& at)
{
    return {reading.part(agelessBirths, at), reading.part(agelessExposure, at),
            reading.part(agelessFamilies, {Reading::any, Reading::any, at[2], Reading::any})};
}

Base baseOf(const Reading& reading, const Chosen& chosen, const Reading::At& at)
{
    Base base;
    for (const Known known : chosen.knowns)
        for (const Order order : chosen.orders) {
            const quint16 one = seriesOf(known, order);
            base.births += reading.part(firstBirths + one, at);
            base.halfDays += reading.part(firstExposure + one, at);
            base.families += reading.part(firstFamilies + one, {Reading::any, at[1], at[2], Reading::any});
        }
    return base;
}

std::array<Base, 7> byAge(const Reading& reading, const Chosen& chosen, Reading::At at)
{
    std::array<Base, 7> groups;
    for (int i = 0; i < 7; ++i) {
        at[0] = 15 + 5 * i;
        groups[static_cast<std::size_t>(i)] = baseOf(reading, chosen, at);
    }
    return groups;
}

double inflationOf(const Settings& settings)
{
    static constexpr double most = 0.2;
    return 1 / (1 - std::clamp(settings.missingBirths, 0.0, most));
}

namespace {

Known knownOf(const observation::Union& of)
{
    if (of.wifeBirthBy != observation::BirthBy::Register) return Known::Stated;
    return of.wifeBirth.isExact() ? Known::Exactly : Known::About;
}

void countLife(const MarriedLife& life, const Settings& settings, Taker& taker)
{
    const parish::Family& family = *life.of->family;
    const Who couple{family.wife, &family};
    const Order order = natality::isFirstMarriage(family.wife, family) ? Order::First : Order::Later;
    const quint16 one = seriesOf(knownOf(*life.of), order);
    const int married = groupAtMarriage(life.ageAtMarriage);
    for (const Stretch& stretch : stretchesOf(life, settings))
        taker.count(
            {static_cast<quint16>(firstExposure + one), {stretch.age, married, stretch.period, stretch.duration}},
            couple, stretch.halfDays);
    for (const Birth& birth : life.within()) {
        const Stretch place = placeOf(birth, life, settings);
        taker.count({static_cast<quint16>(firstBirths + one), {place.age, married, place.period, place.duration}},
                    {birth.child, &family});
    }
    const qint32 cohort = periodOf(life.marriage.year(), settings);
    taker.count({static_cast<quint16>(firstFamilies + one), {0, married, cohort}}, couple);
}

// By the duration of the marriage alone: nothing else is known where the wife's age isn't.
void countAgeless(const MarriedLife& life, const Settings& settings, Taker& taker)
{
    if (!life.isCounted()) return;
    const parish::Family& family = *life.of->family;
    const Who couple{family.wife, &family};
    for (const Stretch& stretch : stretchesOf(life, settings))
        taker.count({agelessExposure, {0, 0, stretch.period, stretch.duration}}, couple, stretch.halfDays);
    for (const Birth& birth : life.within()) {
        const Stretch place = placeOf(birth, life, settings);
        taker.count({agelessBirths, {0, 0, place.period, place.duration}}, {birth.child, &family});
    }
    taker.count({agelessFamilies, {0, 0, periodOf(life.marriage.year(), settings)}}, couple);
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (std::size_t i = share.firstFamily; i < share.lastFamily; ++i) {
        const MarriedLife life = marriedLifeOf(study.unions[i], study);
        countLack(life, firstLack, taker);
        if (life.lack == Lack::WifeBirth || life.lack == Lack::WifeStated)
            countAgeless(closedLifeOf(study.unions[i], study), study.settings, taker);
        if (!life.isCounted()) continue;
        countLife(life, study.settings, taker);
        countPlacings(life, firstPlacing, taker);
    }
}

constexpr std::array<const char*, std::size_t{3} * series> seriesNames{
    "meios-dias-exacta-1.o",         "meios-dias-exacta-depois",  "meios-dias-aproximada-1.o",
    "meios-dias-aproximada-depois",  "meios-dias-declarada-1.o",  "meios-dias-declarada-depois",
    "nascimentos-exacta-1.o",        "nascimentos-exacta-depois", "nascimentos-aproximada-1.o",
    "nascimentos-aproximada-depois", "nascimentos-declarada-1.o", "nascimentos-declarada-depois",
    "familias-exacta-1.o",           "familias-exacta-depois",    "familias-aproximada-1.o",
    "familias-aproximada-depois",    "familias-declarada-1.o",    "familias-declarada-depois"};
constexpr std::array<const char*, 3> agelessNames{"meios-dias-sem-idade", "nascimentos-sem-idade",
                                                  "familias-sem-idade"};
constexpr auto counts =
    natality::joined(natality::joined(natality::joined(seriesNames, lackNames), placingNames), agelessNames);
constexpr auto told = natality::joined(lacksTold, placingsTold);
constexpr auto whyNot = natality::reasonsFrom(firstLack, told);

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    if (reading.isEmpty()) return natality::withoutData(maritalFertility.title);
    std::vector<report::Figure> all = figuresOf(reading, settings);
    all.emplace_back(leftOutTable(reading, whyNot));
    return all;
}

} // namespace

} // namespace rates

const Subject maritalFertility = {
    .id = "fecundidade-legitima",
    .group = "Fecundidade",
    .title = "Fecundidade legítima por idade da mulher",
    .method =
        "Contam as famílias com data de casamento, fim conhecido da união e nascimento da mulher, desde o casamento "
        "até à primeira morte do casal ou aos 50 anos da mulher; as famílias abertas só contam se as definições o "
        "pedem. A taxa é o número de nascimentos legítimos (os gémeos são dois; os póstumos até 300 dias contam sem "
        "alongar o tempo) por mil anos vividos pelas mulheres casadas em cada idade. A célula do grupo em que a mulher "
        "se casou lê-se com cautela: todos os casais começam ao mesmo tempo.",
    .counts = rates::counts,
    .reasons = rates::whyNot,
    .fill = rates::fill,
    .figures = rates::figures,
};

} // namespace study::indicators
