#include "study/checks/facts.h"

#include "study/names/fold.h"
#include "study/names/names.h"

#include <algorithm>

namespace study::checks {

namespace {

void widen(Facts& facts, const parish::Date& act)
{
    if (!act.isExact()) return;
    const QDate day = act.date();
    if (!facts.firstAct.isValid() || day < facts.firstAct) facts.firstAct = day;
    if (!facts.lastAct.isValid() || day > facts.lastAct) facts.lastAct = day;
}

Facts::Names namesIn(const QString& name)
{
    Facts::Names names;
    bool isGiven = true;
    for (const NameParts::Word& word : partsOf(name).words) {
        const Reading& reading = word.particle ? Reading() : word.readings.front();
        const bool mayBeGiven = !word.known || reading.kind == NameKind::Given || reading.devotional;
        isGiven = !word.particle && (names.given.isEmpty() || (isGiven && mayBeGiven));
        if (!word.particle) (isGiven ? names.given : names.surnames) << reading.klass;
    }
    return names;
}

} // namespace

Facts::Facts(const parish::Snapshot& parish) : parish_(parish)
{
    std::vector<qint32> days;
    days.reserve(2 * parish.people().size() + parish.families().size());
    const auto take = [&](const parish::Date& act) {
        widen(*this, act);
        if (act.isExact()) days.push_back(act.day);
    };
    for (const parish::Person& person : parish.people()) {
        take(person.birth);
        take(person.death);
        const QString key = firstNameKey(person);
        if (key.isEmpty() || person.gender == parish::Gender::Undetermined) continue;
        Bearers& bearing = bearers[key];
        ++(person.gender == parish::Gender::Male ? bearing.men : bearing.women);
    }
    for (const parish::Family& family : parish.families())
        take(family.marriage);
    findBooks(std::move(days));
    gatherMentioned();
}

void Facts::findBooks(std::vector<qint32> days)
{
    static constexpr size_t others = 4;
    static constexpr qint32 tenYears = 3652;
    std::ranges::sort(days);
    for (size_t first = 0; first + others < days.size() && !booksBegin.isValid(); ++first)
        if (days[first + others] - days[first] <= tenYears) booksBegin = QDate::fromJulianDay(days[first]);
    for (size_t last = days.size(); last > others && !booksEnd.isValid(); --last)
        if (days[last - 1] - days[last - 1 - others] <= tenYears) booksEnd = QDate::fromJulianDay(days[last - 1]);
}

void Facts::gatherMentioned()
{
    const auto mention = [this](const parish::PersonLink& link) {
        if (link.person) mentioned.insert(link.person);
    };
    for (const parish::Person& person : parish_.people()) {
        for (const parish::Priest& priest : person.baptismPriests)
            mention(priest.who);
        mention(person.burialPriest.who);
        mention(person.executor);
    }
    for (const parish::Family& family : parish_.families())
        for (const parish::Priest& priest : family.priests)
            mention(priest.who);
    for (const parish::Bequest& row : parish_.bequests())
        mention(row.heir);
    for (const parish::PersonNumber number : parish_.namedInActs())
        mention({number, parish_.person(number)});
}

const QString& Facts::standardName(const parish::Person& person) const
{
    const auto people = parish_.people();
    if (standardNames_.empty()) {
        standardNames_.reserve(people.size());
        QHash<QString, QString> known;
        for (const parish::Person& one : people) {
            auto standard = known.constFind(one.name);
            if (standard == known.cend()) standard = known.insert(one.name, study::standardName(one.name));
            standardNames_.push_back(*standard);
        }
    }
    return standardNames_[size_t(&person - people.data())];
}

Facts::Names Facts::names(const parish::Person& person) const
{
    auto known = names_.constFind(person.name);
    if (known == names_.cend()) known = names_.insert(person.name, namesIn(person.name));
    return *known;
}

QString firstNameKey(const parish::Person& person)
{
    return fold::plain(person.name.trimmed().section(' ', 0, 0));
}

} // namespace study::checks
