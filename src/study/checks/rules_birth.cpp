// What cannot be, or is strange, about one birth: before its parents' marriage, after its own death, the name given
// again.
#include "study/checks/codes.h"
#include "study/checks/told.h"
#include "study/checks/words.h"
#include "study/names/names.h"

#include <QDate>

#include <iterator>

namespace study::checks {

using parish::Date;
using parish::Family;
using parish::Person;

namespace {

using Births = std::vector<const Person*>;

// Also one born after the father's death; where nothing is said, what the family is.
bool isLegitimate(const Person& child, const Family& family)
{
    if (family.situation == madeLegitimate) return false; // by a later marriage
    if (!child.filiation) return family.situation == legitimateFamily;
    return child.filiation == legitimate || child.filiation == posthumous;
}

QString legitimacy(const Person& child, const Family& family, const parish::Snapshot& parish)
{
    return child.filiation ? "a sua filiação é " + described(parish, "Filia", QString::number(*child.filiation))
                           : "a família é " + described(parish, "SitFa", family.situation);
}

void isBornBeforeTheMarriage(const Family& family, Check& check)
{
    for (const Person* child : family.children) {
        const int days = daysTooEarly(child->birth, family.marriage);
        if (days == 0 || !isLegitimate(*child, family)) continue;
        if (check.mayBeOfTheDates(days, {child->birth, family.marriage})) continue;
        check.report({.text = QString("%1 nasceu em %2, antes do casamento dos pais em %3, e %4.")
                                  .arg(named(*child), told(child->birth), told(family.marriage),
                                       legitimacy(*child, family, check.parish())),
                      .people = {child},
                      .families = {&family},
                      .when = child->birth});
    }
}

void isConceivedBeforeTheMarriage(const Family& family, Check& check)
{
    const Births births = datedChildren(family);
    if (births.empty() || !family.marriage.isExact()) return;
    const Person& child = *births.front();
    const QDate from = family.marriage.date();
    const QDate until = from.addMonths(static_cast<int>(check.limit("meses")));
    if (!child.birth.isExact() || child.birth.date() < from || child.birth.date() >= until) return;
    check.report({.text = QString("%1 nasceu em %2, %3 depois do casamento dos pais em %4.")
                              .arg(named(child), told(child.birth), inDays(daysBetween(family.marriage, child.birth)),
                                   told(family.marriage)),
                  .people = {&child},
                  .families = {&family},
                  .when = child.birth});
}

void isBaptisedAfterTheDeath(const Person& person, Check& check)
{
    if (daysTooEarly(person.death, person.birth) > 0) return; // P-01 tells it
    for (const parish::Assistance& row : person.godparents) {
        const int days = daysTooEarly(person.death, row.date);
        if (days == 0 || check.mayBeOfTheDates(days, {person.death, row.date})) continue;
        Check::Found found{.text = QString("O baptismo %1 tem a data %2, depois do óbito em %3.")
                                       .arg(of(person), told(row.date), told(person.death)),
                           .people = {&person},
                           .families = {},
                           .when = row.date};
        addOnce(found.families, person.origin);
        return check.report(found);
    }
}

// The given names, as classes: of "Maria Josefa Lopes", maria and josefa.
QStringList givenNames(const Person& person)
{
    QStringList names;
    for (const NameParts::Word& word : partsOf(person.name).words) {
        const bool isGiven =
            !word.particle && !word.readings.isEmpty() && word.readings.first().kind == NameKind::Given;
        if (!names.isEmpty() && !isGiven) break;
        names << (word.readings.isEmpty() ? word.key : word.readings.first().klass); // "M.a" is Maria
    }
    return names;
}

// "Maria" may be "Maria Josefa", but not "Maria Josefa" and "Maria Teresa" the same one.
bool bearTheSameName(const Person& one, const Person& other)
{
    if (one.gender != other.gender && one.gender != parish::Gender::Undetermined &&
        other.gender != parish::Gender::Undetermined)
        return false;
    const QStringList first = givenNames(one);
    const QStringList second = givenNames(other);
    const qsizetype both = std::min(first.size(), second.size());
    return both > 0 && first.mid(0, both) == second.mid(0, both);
}

// Whether anything tells of the person as of somebody who grew up, or after that day.
bool isSeenAfter(const Person& person, const Date& day)
{
    const auto isLater = [&](const auto& row) { return row.date.isKnown() && row.date.day > day.day; };
    return !person.unions.empty() || !person.assisted.empty() || !person.professions.empty() ||
           !person.signatures.empty() || std::ranges::any_of(person.residences, isLater) ||
           std::ranges::any_of(person.passports, isLater);
}

// The first of the next births whose child bears the name; twins are of one birth. Null: none.
const Person* namesakeBehind(const Births& births, size_t place, const Check& check)
{
    const Person& child = *births[place];
    const double twins = check.limit("C-07", "gemeos");
    double left = check.limit("irmaos");
    const Person* birth = &child;
    for (size_t next = place + 1; next < births.size(); ++next) {
        const Person& sibling = *births[next];
        if (daysBetween(birth->birth, sibling.birth) > twins) {
            if (--left < 0) break;
            birth = &sibling;
        }
        if (birth != &child && bearTheSameName(child, sibling)) return &sibling;
    }
    return nullptr;
}

void diesUnseen(const Family& family, Check& check)
{
    const Births births = datedChildren(family);
    for (size_t i = 0; i < births.size(); ++i) {
        const Person& child = *births[i];
        if (child.death.isKnown()) continue;
        const Person* const sibling = namesakeBehind(births, i, check);
        if (!sibling || isSeenAfter(child, sibling->birth)) continue;
        check.report({.text = QString("%1 nasceu em %2 e não tem óbito; %3, que nasceu depois em %4, tem o mesmo nome.")
                                  .arg(named(child), told(child.birth), named(*sibling), told(sibling->birth)),
                      .people = {&child, sibling},
                      .families = {&family},
                      .when = child.birth});
    }
}

} // namespace

std::vector<Rule> birthRules()
{
    return {
        {"C-11",
         Severity::Unlikely,
         "Filho legítimo nascido antes do casamento",
         isBornBeforeTheMarriage,
         {},
         "Legitimado pelo casamento, sem que o acto o diga; ou houve outro casamento antes."},
        {"C-12",
         Severity::Information,
         "Concepção antes do casamento",
         isConceivedBeforeTheMarriage,
         {{"meses", 8, "Menor intervalo entre o casamento e o primeiro parto (meses)"}},
         "Frequente em muitas freguesias; é engano só quando a data do casamento o é."},
        {"C-14",
         Severity::Information,
         "Baptismo depois do óbito",
         isBaptisedAfterTheDeath,
         {},
         "Baptizado em casa em perigo de vida, e registado depois; ou a data da ficha foi corrigida."},
        {"C-16",
         Severity::Unlikely,
         "Óbito que falta: irmão seguinte com o mesmo nome",
         diesUnseen,
         {{"irmaos", 1, "Quantos irmãos seguintes se comparam (n.º)"}},
         "O nome voltava a dar-se quando o primeiro morria; mas há irmãos vivos com o mesmo nome."},
    };
}

} // namespace study::checks
