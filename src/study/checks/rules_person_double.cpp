// People: two records that are almost certainly of one person.
#include "study/checks/doubles.h"
#include "study/checks/facts.h"
#include "study/checks/parts.h"
#include "study/checks/words.h"

#include <algorithm>
#include <map>
#include <utility>

namespace study::checks {

using parish::Family;
using parish::Membership;
using parish::Person;

namespace {

using Pair = std::pair<const Person*, const Person*>;

// Pairs by the numbers of their people, each with all that speaks for it.
class Doubles
{
public:
    explicit Doubles(Check& check) : check_(check) {}

    // Of people who have something in common: those with one name who may be one, as far as there is no choice.
    void look(const std::vector<const Person*>& people, const QString& inCommon, bool fullNames)
    {
        check_.step();
        if (people.size() < 2) return;
        std::map<QString, std::vector<const Person*>> byName;
        for (const Person* one : people)
            if (const QString& name = check_.facts().standardName(*one); !name.isEmpty()) byName[name].push_back(one);
        for (auto& [name, bearers] : byName)
            if (bearers.size() > 1 && (!fullNames || isFullName(name))) pair(bearers, inCommon);
    }

    const std::map<Pair, QStringList>& found() const { return found_; }

private:
    static constexpr size_t mostBearers = 20; // of one name, one day or one couple of parents: beyond, it tells nothing

    void pair(std::vector<const Person*>& bearers, const QString& inCommon)
    {
        std::ranges::sort(bearers, {}, &Person::number);
        bearers.erase(std::unique(bearers.begin(), bearers.end()), bearers.end());
        if (bearers.size() > mostBearers) return;
        std::vector<Pair> pairs;
        std::map<const Person*, int> times;
        for (size_t i = 0; i < bearers.size(); ++i)
            for (size_t j = i + 1; j < bearers.size(); ++j)
                if (mayBeOne(*bearers[i], *bearers[j], check_)) {
                    pairs.emplace_back(bearers[i], bearers[j]);
                    ++times[bearers[i]];
                    ++times[bearers[j]];
                }
        for (const Pair& one : pairs)
            if (times[one.first] == 1 && times[one.second] == 1) found_[one] << inCommon;
    }

    Check& check_;
    std::map<Pair, QStringList> found_;
};

void lookAtTheParents(const parish::Snapshot& parish, Doubles& doubles)
{
    for (const Family& family : parish.families())
        if (!family.members.empty()) doubles.look(family.children, "os mesmos pais", false);
}

// The other one of each union. Somebody who marries again marries somebody else: two marriages on two days are two.
void lookAtTheSpouses(const parish::Snapshot& parish, Doubles& doubles, const Check& check)
{
    static constexpr size_t mostUnions = 20; // beyond, it is one who stands for all unknown spouses
    for (const Person& person : parish.people()) {
        const auto unions = unionsOf(person);
        if (unions.size() < 2 || unions.size() > mostUnions) continue;
        std::vector<const Person*> spouses;
        std::vector<parish::Date> marriages;
        for (const Membership* row : unions) {
            const Person* const spouse = row->family ? spouseOf(person, *row->family) : nullptr;
            const auto fits = [&](const parish::Date& date) { return mayBeEqual(date, row->family->marriage, check); };
            if (!spouse || !std::ranges::all_of(marriages, fits)) continue;
            spouses.push_back(spouse);
            marriages.push_back(row->family->marriage);
        }
        doubles.look(spouses, "o mesmo cônjuge, " + named(person), true);
    }
}

void lookAtTheDeaths(const parish::Snapshot& parish, Doubles& doubles)
{
    std::map<qint32, std::vector<const Person*>> byDay;
    for (const Person& person : parish.people())
        if (person.death.isExact()) byDay[person.death.day].push_back(&person);
    for (const auto& [day, people] : byDay)
        doubles.look(people, "a mesma data de óbito, " + told(people.front()->death), true);
}

void areOnePerson(const parish::Snapshot& parish, Check& check)
{
    Doubles doubles(check);
    lookAtTheParents(parish, doubles);
    lookAtTheSpouses(parish, doubles, check);
    lookAtTheDeaths(parish, doubles);
    for (const auto& [pair, inCommon] : doubles.found())
        check.report({.text = QString("%1 e %2 parecem a mesma pessoa: têm o mesmo nome e %3, e nenhuma data o impede.")
                                  .arg(named(*pair.first), named(*pair.second), together(inCommon)),
                      .people = {pair.first, pair.second},
                      .when = pair.first->birth.isKnown() ? pair.first->birth : pair.first->death});
}

} // namespace

std::vector<Rule> personDoubleRules()
{
    return {
        {"P-26",
         Severity::Unlikely,
         "Duas fichas da mesma pessoa",
         areOnePerson,
         {},
         "A um irmão morto sem óbito conhecido sucedeu outro com o mesmo nome; duas mulheres com o mesmo nome de "
         "devoção foram enterradas no mesmo dia."},
    };
}

} // namespace study::checks
