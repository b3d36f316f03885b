// Marriages: between relatives.
#include "study/checks/check.h"
#include "study/checks/codes.h"
#include "study/checks/kinship.h"
#include "study/checks/parts.h"
#include "study/checks/told.h"
#include "study/checks/words.h"

#include <algorithm>

namespace study::checks {

using parish::Family;
using parish::Person;

namespace {

constexpr int mostGenerations = 8; // that are looked up, whatever the limit is

// "Rui (nº 1) e Ana (nº 2), que casaram em 14/02/1702,"
QString coupleOf(const Family& family)
{
    const QString both = named(*family.husband) + " e " + named(*family.wife);
    return family.marriage.isKnown() ? both + ", que casaram em " + told(family.marriage) + ',' : both + ", cônjuges,";
}

// "de Rui (nº 1) e de Ana (nº 2)"
QString allOf(const std::vector<const Person*>& people)
{
    QStringList names;
    names.reserve(static_cast<qsizetype>(people.size()));
    for (const Person* one : people)
        names << of(*one);
    return together(names);
}

// "no 2.º grau", "no 1.º grau misto com o 2.º".
QString degreeOf(const Kinship& kinship)
{
    const QString nearer = QString::number(std::min(kinship.first, kinship.second));
    const QString farther = QString::number(std::max(kinship.first, kinship.second));
    return kinship.first == kinship.second ? QString("no %1.º grau").arg(farther)
                                           : QString("no %1.º grau misto com o %2.º").arg(nearer, farther);
}

bool isBetweenSiblings(const Kinship& kinship)
{
    return kinship.isKnown() && kinship.first == 1 && kinship.second == 1;
}

bool areOfOneFamily(const Person& one, const Person& other)
{
    return one.origin && one.origin == other.origin;
}

bool haveAncestors(const Family& family)
{
    if (!family.husband || !family.wife || family.husband == family.wife) return false;
    const Family *his = family.husband->origin, *hers = family.wife->origin;
    return (his || hers) && his != &family && hers != &family; // spouse and child of one family: F-04 tells it
}

void areRelated(const Family& family, Check& check)
{
    if (!haveAncestors(family) || family.hasNotes || isUnmarried(family)) return;
    const int degree = std::clamp(static_cast<int>(check.limit("grau")), 1, mostGenerations);
    const Kinship kinship = kinshipOf(*family.husband, *family.wife, degree);
    if (!kinship.isKnown() || kinship.isDirect() || isBetweenSiblings(kinship)) return;
    if (areOfOneFamily(*family.husband, *family.wife)) return;
    std::vector<const Person*> people{family.husband, family.wife};
    people.insert(people.end(), kinship.ancestors.begin(), kinship.ancestors.end());
    check.report({.text = QString("%1 são parentes %2: descendem %3.")
                              .arg(coupleOf(family), degreeOf(kinship), allOf(kinship.ancestors)),
                  .people = people,
                  .families = {&family},
                  .when = family.marriage});
}

bool isOfIncest(const Person* child)
{
    return child->filiation == incestuous;
}

// "é filha", "descende"
QString descendsFrom(const Person& person, int generations)
{
    return generations == 1 ? wordFor(person, "é filho ", "é filha ") : QString("descende ");
}

void areParentAndChildOrSiblings(const Family& family, Check& check)
{
    if (!haveAncestors(family)) return;
    const Person &husband = *family.husband, &wife = *family.wife;
    const Kinship kinship = kinshipOf(husband, wife, mostGenerations / 2);
    QString how;
    if (kinship.isDirect()) {
        const bool down = kinship.second == 0; // the husband's line leads up to the wife
        const Person &child = down ? husband : wife, &ancestor = down ? wife : husband;
        how = named(child) + ' ' + descendsFrom(child, kinship.degree()) + of(ancestor);
    } else if (areOfOneFamily(husband, wife)) {
        how = "são irmãos, filhos " + (kinship.ancestors.empty() ? of(*husband.origin) : allOf(kinship.ancestors));
    } else if (isBetweenSiblings(kinship)) {
        how = "são meios-irmãos, ambos filhos " + allOf(kinship.ancestors);
    } else {
        return;
    }
    const bool unmarried = isUnmarried(family);
    if (unmarried && std::ranges::any_of(family.children, isOfIncest)) return; // their register knew it
    const QString couple = unmarried
                               ? named(husband) + " e " + named(wife) + ", que não casaram (" + named(family) + "),"
                               : coupleOf(family);
    check.report(
        {.text = QString(unmarried ? "%1 são parentes muito próximos: %2." : "%1 são parentes que não podem casar: %2.")
                     .arg(couple, how),
         .people = {&husband, &wife},
         .families = {&family},
         .when = family.marriage},
        unmarried ? Severity::Unlikely : Severity::Impossible);
}

} // namespace

std::vector<Rule> marriageKinRules()
{
    return {
        {"M-12",
         Severity::Information,
         "Casamento de parentes",
         areRelated,
         {{"grau", 4, "Grau canónico até ao qual se procura"}},
         "Casaram com dispensa, que não foi transcrita: uma nota na família faz calar a regra."},
        {"M-13",
         Severity::Impossible,
         "Casamento de pais com filhos, ou de irmãos",
         areParentAndChildOrSiblings,
         {},
         "Uma das ligações aos pais é a um homónimo."},
    };
}

} // namespace study::checks
