// What cannot be, or is seldom, between the births of one mother.
#include "study/checks/told.h"
#include "study/checks/words.h"

#include <QDate>

#include <array>
#include <iterator>

namespace study::checks {

using parish::Date;
using parish::Family;
using parish::Person;

namespace {

using Births = std::vector<const Person*>;

// The children of the mother, also those of her other families, by birth; none where she stands in an earlier family,
// with which they are told.
Births birthsOfTheMother(const Family& family)
{
    const Person* mother = motherIn(family);
    if (!mother || mother->unions.size() < 2) return datedChildren(family);
    Births births;
    const Family* last = nullptr;
    for (const parish::Membership* row : mother->unions) {
        if (!row->family || motherIn(*row->family) != mother || row->family == last) continue;
        if (!last && row->family != &family) return {};
        last = row->family; // a row that stands twice is one union
        std::ranges::copy(datedChildren(*row->family), std::back_inserter(births));
    }
    std::ranges::sort(births, {}, [](const Person* child) { return std::pair(child->birth.day, child->number); });
    return births;
}

std::vector<const Family*> familiesOf(const Births& children)
{
    std::vector<const Family*> families;
    for (const Person* child : children)
        addOnce(families, child->origin);
    return families;
}

// "da família nº 12 de …", or "de Joana Lopes (nº 3)" where they are of two families.
QString ofTheSameMother(const Births& children)
{
    const std::vector<const Family*> families = familiesOf(children);
    return families.size() == 1 ? of(*families.front()) : of(*motherIn(*families.front()));
}

void reportInterval(const Person& first, const Person& second, Severity severity, Check& check)
{
    const Births both{&first, &second};
    check.report({.text = QString("%1 nasceu em %2 e %3 em %4, %5 depois: ambos são filhos %6.")
                              .arg(named(first), told(first.birth), named(second), told(second.birth),
                                   inDays(daysBetween(first.birth, second.birth)), ofTheSameMother(both)),
                  .people = both,
                  .families = familiesOf(both),
                  .when = second.birth},
                 severity);
}

bool isOfADay(const Person& child)
{
    return child.birth.isExact() || child.birth.precision == parish::Precision::About;
}

bool isExact(const Person& child)
{
    return child.birth.isExact();
}

using Neighbours = std::vector<std::pair<const Person*, const Person*>>;

// Each birth with the next one, of those that are `so`.
Neighbours neighbours(const Births& births, bool (*so)(const Person&))
{
    Neighbours pairs;
    pairs.reserve(births.size());
    const Person* last = nullptr;
    for (const Person* child : births) {
        if (!so(*child)) continue;
        if (last) pairs.emplace_back(last, child);
        last = child;
    }
    return pairs;
}

// The exact births beside each other, and the others beside those next to them: what is known to the day is not
// softened by a doubtful one between.
Neighbours neighboursOfADay(const Births& births)
{
    Neighbours pairs = neighbours(births, isExact);
    std::ranges::copy_if(neighbours(births, isOfADay), std::back_inserter(pairs),
                         [](const auto& pair) { return !isExact(*pair.first) || !isExact(*pair.second); });
    return pairs;
}

void areBornTooSoonAfterEachOther(const Family& family, Check& check)
{
    const double twins = check.limit("gemeos"), most = check.limit("dias");
    for (const auto& [first, second] : neighboursOfADay(birthsOfTheMother(family))) {
        const int days = daysBetween(first->birth, second->birth);
        if (days <= twins || days > most) continue;
        const auto breach = static_cast<int>(std::min(days - twins, most + 1 - days));
        reportInterval(*first, *second, check.gravity(breach, {first->birth, second->birth}), check);
    }
}

void areBornSoonAfterEachOther(const Family& family, Check& check)
{
    for (const auto& [first, second] : neighbours(birthsOfTheMother(family), isExact)) {
        const int days = daysBetween(first->birth, second->birth);
        if (days >= check.limit("minimo") && days <= check.limit("maximo"))
            reportInterval(*first, *second, Severity::Unlikely, check);
    }
}

bool isInObservation(const Family& family, const Date& from, const Date& until)
{
    const auto covers = [&](QDate first, QDate last) {
        return (!first.isValid() || first <= from.date()) && (!last.isValid() || last >= until.date());
    };
    if (!covers(family.observedFrom, family.observedUntil)) return false;
    return std::ranges::all_of(std::array{family.husband, family.wife}, [&](const Person* parent) {
        if (!parent) return true;
        return covers(parent->observedFrom, parent->observedUntil) && daysTooEarly(parent->death, until) == 0;
    });
}

void areBornFarFromEachOther(const Family& family, Check& check)
{
    const Births births = datedChildren(family);
    const auto years = static_cast<int>(check.limit("anos"));
    for (size_t i = 1; i < births.size(); ++i) {
        const Person& first = *births[i - 1];
        const Person& second = *births[i];
        const int beyond = -daysShortOf(years, first.birth, second.birth);
        if (beyond <= 0 || check.mayBeOfTheDates(beyond, {first.birth, second.birth})) continue;
        if (!isInObservation(family, first.birth, second.birth)) continue;
        check.report({.text = QString("Entre %1, que nasceu em %2, e %3, que nasceu em %4, não há outro filho %5: "
                                      "passaram %6.")
                                  .arg(named(first), told(first.birth), named(second), told(second.birth), of(family),
                                       yearsTold(completedYears(first.birth, second.birth))),
                      .people = {&first, &second},
                      .families = {&family},
                      .when = second.birth});
    }
}

void reportManyAtOnce(const Births& children, Check& check)
{
    QStringList list;
    list.reserve(static_cast<qsizetype>(children.size()));
    for (const Person* child : children)
        list << named(*child) + " em " + told(child->birth);
    check.report({.text = QString("%1 nasceram de um só parto, filhos %2: %3.")
                              .arg(howMany(static_cast<qint64>(children.size()), "criança", "crianças"),
                                   ofTheSameMother(children), few(list)),
                  .people = children,
                  .families = familiesOf(children),
                  .when = children.front()->birth});
}

void areManyAtOneBirth(const Family& family, Check& check)
{
    Births births;
    std::ranges::copy_if(birthsOfTheMother(family), std::back_inserter(births),
                         [](const Person* child) { return isExact(*child); });
    for (auto first = births.begin(); first != births.end();) {
        const auto last = std::find_if(first, births.end(), [&](const Person* child) {
            return daysBetween((*first)->birth, child->birth) > check.limit("dias");
        });
        if (last - first >= check.limit("criancas")) reportManyAtOnce(Births(first, last), check);
        first = last;
    }
}

} // namespace

std::vector<Rule> siblingRules()
{
    return {
        {"C-07",
         Severity::Impossible,
         "Dois partos da mesma mãe perto demais",
         areBornTooSoonAfterEachOther,
         {{"gemeos", 10, "Maior intervalo entre os baptismos de gémeos (dias)"},
          {"dias", 240, "Maior intervalo que não chega para dois partos (dias)"}},
         "Um gémeo baptizado mais tarde; duas famílias juntas numa; um filho que é de um homónimo."},
        {"C-08",
         Severity::Unlikely,
         "Intervalo muito curto entre irmãos",
         areBornSoonAfterEachOther,
         {{"minimo", 241, "Menor intervalo que é só estranho (dias)"},
          {"maximo", 270, "Maior intervalo que ainda é estranho (dias)"}},
         "O segundo nasceu antes do tempo; ou o primeiro foi baptizado tarde."},
        {"C-09",
         Severity::Information,
         "Intervalo muito longo entre irmãos",
         areBornFarFromEachOther,
         {{"anos", 8, "Maior intervalo habitual entre irmãos (anos)"}},
         "Falta um baptismo, o marido esteve fora, ou houve partos sem baptismo."},
        {"C-10",
         Severity::Information,
         "Três ou mais de um só parto",
         areManyAtOneBirth,
         {{"criancas", 3, "A partir de quantas crianças (n.º)"}, {"dias", 10, "Maior intervalo num parto (dias)"}},
         "Baptismos de adultos ou de escravos no mesmo dia, postos numa família."},
    };
}

} // namespace study::checks
