// Families: two of one couple.
#include "study/checks/doubles.h"
#include "study/checks/facts.h"
#include "study/checks/parts.h"
#include "study/checks/words.h"

#include <algorithm>
#include <map>
#include <utility>

namespace study::checks {

using parish::Date;
using parish::Family;
using parish::Person;

namespace {

bool isACouple(const Family& family)
{
    return family.husband && family.wife && family.husband != family.wife;
}

using Families = std::vector<const Family*>;

void areOfOneCouple(const parish::Snapshot& parish, Check& check)
{
    std::map<std::pair<const Person*, const Person*>, Families> byCouple;
    for (const Family& family : parish.families())
        if (isACouple(family)) byCouple[{family.husband, family.wife}].push_back(&family);
    for (const auto& [couple, families] : byCouple) {
        if (families.size() < 2) continue;
        QStringList numbers;
        Check::Found found{.text = {}, .people = {couple.first, couple.second}, .families = families};
        for (const Family* family : families) {
            const QString when = family->marriage.isKnown() ? ", casamento em " + told(family->marriage) : QString();
            numbers << "a nº " + parish::shown(family->number) + when;
            if (family->marriage.isKnown()) found.when = family->marriage;
        }
        found.text =
            QString("%1 e %2 são o casal de %3 famílias: %4.")
                .arg(named(*couple.first), named(*couple.second), QString::number(families.size()), numbers.join("; "));
        check.report(found);
    }
}

// From the marriage, or the first child that has a date; unknown where there is neither.
Date beginOf(const Family& family)
{
    if (family.marriage.isKnown() || family.children.empty()) return family.marriage;
    return family.children.front()->birth;
}

// In their order.
std::vector<qint32> exactBirths(const Family& family)
{
    std::vector<qint32> days;
    for (const Person* child : family.children)
        if (child->birth.isExact()) days.push_back(child->birth.day);
    return days;
}

// Behind the first of these days and before the last one.
bool hasAnyBetween(const std::vector<qint32>& days, qint32 first, qint32 last)
{
    const auto next = std::ranges::upper_bound(days, first);
    return next != days.end() && *next < last;
}

// Births of the one too near to those of the other, or too far from them, for one mother.
bool mayBeOfOneMother(const Family& one, const Family& other, const Check& check)
{
    std::vector<Date> births;
    for (const Family* family : {&one, &other}) {
        if (family->marriage.isKnown()) births.push_back(family->marriage);
        for (const Person* child : family->children)
            if (child->birth.isKnown()) births.push_back(child->birth);
    }
    std::ranges::sort(births, {}, &Date::day);
    if (births.empty() || daysBeyond(births.front(), births.back(), check.limit("anos")) > 0) return false;
    const auto theirs = exactBirths(other);
    const auto twins = static_cast<qint32>(check.limit("gemeos")), apart = static_cast<qint32>(check.limit("dias"));
    for (const qint32 day : exactBirths(one))
        if (hasAnyBetween(theirs, day + twins, day + apart) || hasAnyBetween(theirs, day - apart, day - twins))
            return false;
    return true;
}

bool mayBeOneCouple(const Family& one, const Family& other, const Check& check)
{
    return one.husband != other.husband && one.wife != other.wife && mayBeEqual(one.marriage, other.marriage, check) &&
           mayBeOne(*one.husband, *other.husband, check) && mayBeOne(*one.wife, *other.wife, check) &&
           mayBeOfOneMother(one, other, check);
}

// Couples of one pair of full names, in the order in which they begin: each is laid beside the next few alone.
void layBesideEachOther(Families& families, Check& check)
{
    static constexpr size_t next = 3;
    std::ranges::stable_sort(families, {}, [](const Family* family) { return beginOf(*family).day; });
    for (size_t i = 0; i < families.size(); ++i)
        for (size_t j = i + 1; j < families.size() && j <= i + next; ++j) {
            const bool turned = families[j]->number < families[i]->number;
            const Family &one = *families[turned ? j : i], &other = *families[turned ? i : j];
            if (!mayBeOneCouple(one, other, check)) continue;
            check.report({.text = QString("%1 e %2 parecem a mesma: os nomes são iguais, e nenhuma data o impede.")
                                      .arg(named(one), named(other)),
                          .people = {one.husband, one.wife, other.husband, other.wife},
                          .families = {&one, &other},
                          .when = beginOf(one)});
        }
}

void areOfOnePairOfNames(const parish::Snapshot& parish, Check& check)
{
    std::map<std::pair<QString, QString>, Families> byNames;
    for (const Family& family : parish.families()) {
        check.step();
        if (isACouple(family) && beginOf(family).isKnown())
            byNames[{check.facts().standardName(*family.husband), check.facts().standardName(*family.wife)}].push_back(
                &family);
    }
    for (auto& [names, families] : byNames)
        if (families.size() > 1 && isFullName(names.first) && isFullName(names.second))
            layBesideEachOther(families, check);
}

} // namespace

std::vector<Rule> familyDoubleRules()
{
    return {
        {"F-10",
         Severity::Unlikely,
         "Duas famílias do mesmo casal",
         areOfOneCouple,
         {},
         "Ninguém casa duas vezes com a mesma pessoa: uma das famílias está a mais."},
        {"F-11",
         Severity::Unlikely,
         "Dois casais com os mesmos nomes",
         areOfOnePairOfNames,
         {{"anos", 30, "Anos desde o casamento até ao último filho"},
          {"gemeos", 10, "Dias entre os baptismos de gémeos"},
          {"dias", 240, "Dias entre dois partos, pelo menos"}},
         "Na mesma freguesia viveram dois casais com nomes vulgares."},
    };
}

} // namespace study::checks
