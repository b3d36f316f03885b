// Families: the children beside each other.
#include "study/checks/check.h"
#include "study/checks/facts.h"
#include "study/checks/parts.h"
#include "study/checks/signs.h"
#include "study/checks/told.h"
#include "study/checks/words.h"

#include <algorithm>
#include <iterator>
#include <map>

namespace study::checks {

using parish::Family;
using parish::Gender;
using parish::Membership;
using parish::Person;

namespace {

// Alive for certain when the younger one was born: died later, or did something later.
bool livesWhenBorn(const Person& older, const Person& younger, const Check& check)
{
    const auto isBehind = [&](const parish::Date& day) {
        const int days = daysTooEarly(younger.birth, day);
        return days > 0 && !check.mayBeOfTheDates(days, {younger.birth, day});
    };
    if (isBehind(older.death)) return true;
    const auto signs = signsOfLife(older);
    return !signs.empty() && isBehind(signs.back().date);
}

QString birthOf(const Person& person)
{
    return wordFor(person, ", nascido em ", ", nascida em ") + told(person.birth);
}

QString bornOn(const Person& person)
{
    return named(person) + birthOf(person);
}

void tellNamesakes(const Person& older, const Person& younger, const Family& family, Check& check)
{
    const int later = daysTooEarly(older.birth, younger.birth); // of two on one day another rule speaks
    if (later == 0 || check.mayBeOfTheDates(later, {older.birth, younger.birth})) return;
    if (!livesWhenBorn(older, younger, check)) return;
    check.report(
        {.text = QString("%1, e %2, %3 da família nº %4, têm o mesmo nome, e %5 mais %6 ainda vivia.")
                     .arg(bornOn(older), bornOn(younger),
                          older.gender == Gender::Female && younger.gender == Gender::Female ? "filhas" : "filhos",
                          parish::shown(family.number), wordFor(older, "o", "a"), wordFor(older, "velho", "velha")),
         .people = {&older, &younger},
         .families = {&family},
         .when = younger.birth});
}

// Each child beside the last one before of the same name: a name was given again when its bearer had died.
void haveOneName(const Family& family, Check& check)
{
    if (family.children.size() < 2) return;
    std::map<QStringList, const Person*> lastOf;
    for (const Person* child : family.children) {
        if (!child->birth.isKnown()) break;
        const QStringList given = check.facts().names(*child).given;
        if (given.isEmpty()) continue;
        const Person*& last = lastOf[given];
        if (last && last->gender == child->gender) tellNamesakes(*last, *child, family, check);
        last = child;
    }
}

// All who are known of the parents and their parents.
std::vector<const Person*> parentsAndGrandparents(const Family& family)
{
    std::vector<const Person*> kin;
    const auto add = [&kin](const Family* origin) {
        if (!origin) return;
        for (const Membership& row : origin->members)
            if (row.member.person) kin.push_back(row.member.person);
    };
    add(&family);
    const std::vector<const Person*> parents = kin;
    for (const Person* parent : parents)
        add(parent->origin);
    return kin;
}

void bearsAForeignSurname(const Person& person, Check& check)
{
    const QStringList own = check.facts().names(person).surnames;
    if (!person.origin || own.isEmpty()) return;
    const auto kin = parentsAndGrandparents(*person.origin);
    QStringList names;
    bool haveSurnames = false;
    for (const Person* one : kin) {
        const QStringList theirs = check.facts().names(*one).surnames;
        haveSurnames = haveSurnames || !theirs.isEmpty();
        if (std::ranges::any_of(own, [&](const QString& name) { return theirs.contains(name); })) return;
        names << named(*one);
    }
    if (!haveSurnames) return;
    check.report(
        {.text = QString("%1 não tem nenhum apelido dos pais nem dos avós: %2.").arg(named(person), together(names)),
         .people = {&person},
         .families = {person.origin},
         .when = person.birth});
}

// With all spouses, by their births; those without a date aren't here.
std::vector<const Person*> childrenOf(const Person& person)
{
    std::vector<const Person*> children;
    for (const Membership* row : unionsOf(person))
        if (row->family)
            std::ranges::copy_if(row->family->children, std::back_inserter(children),
                                 [](const Person* child) { return child->birth.isKnown(); });
    std::ranges::stable_sort(children, {}, [](const Person* child) { return child->birth.day; });
    return children;
}

std::vector<const Family*> familiesOf(const Person& person)
{
    std::vector<const Family*> families;
    for (const Membership* row : unionsOf(person))
        if (row->family && !row->family->children.empty()) families.push_back(row->family);
    return families;
}

void hasChildrenTooLong(const Person& person, Check& check)
{
    const auto children = childrenOf(person);
    if (children.size() < 2) return;
    const Person &first = *children.front(), &last = *children.back();
    const auto isTooLong = [&](const char* parent) {
        const int days = daysBeyond(first.birth, last.birth, check.limit(parent));
        return days > 0 && !check.mayBeOfTheDates(days, {first.birth, last.birth});
    };
    const bool isWoman = person.gender == Gender::Female;
    if (!isTooLong(isWoman ? "mae" : "pai")) return;
    if (!isWoman && first.origin == last.origin && motherIn(*first.origin) && isTooLong("mae")) return; // told of her
    check.report({.text = QString("%1 tem filhos durante %2: desde %3, até %4.")
                              .arg(named(person), yearsTold(completedYears(first.birth, last.birth)), bornOn(first),
                                   bornOn(last)),
                  .people = {&person, &first, &last},
                  .families = familiesOf(person),
                  .when = last.birth});
}

// Of a woman with all husbands, and with one; of a man only where the mother isn't known, as hers are told already.
void hasTooManyChildren(const Person& person, Check& check)
{
    const bool isWoman = person.gender == Gender::Female;
    size_t all = 0, ofOne = 0;
    Check::Found found{.text = {}, .people = {&person}};
    for (const Membership* row : unionsOf(person)) {
        if (!row->family || row->family->children.empty() || (!isWoman && motherIn(*row->family))) continue;
        all += row->family->children.size();
        ofOne = std::max(ofOne, row->family->children.size());
        found.families.push_back(row->family);
        for (const Person* child : row->family->children)
            if (child->birth.isKnown()) found.when = child->birth; // the last one
    }
    const bool areTooMany = isWoman && static_cast<double>(all) > check.limit("mulher");
    if (!areTooMany && static_cast<double>(ofOne) <= check.limit("casal")) return;
    found.text = QString("%1 tem %2 filhos.").arg(named(person), QString::number(isWoman ? all : ofOne));
    check.report(found);
}

// The one that has a smaller number than a child born before it.
void areNumberedOutOfOrder(const Family& family, Check& check)
{
    for (size_t i = 1; i < family.children.size(); ++i) {
        const Person &before = *family.children[i - 1], &child = *family.children[i];
        if (!child.birth.isKnown()) return;
        if (before.number < child.number || daysTooEarly(before.birth, child.birth) == 0) continue;
        check.report({.text = QString("Na família nº %1 os números dos filhos não seguem os nascimentos: %2, antes %3.")
                                  .arg(parish::shown(family.number), bornOn(before), of(child) + birthOf(child)),
                      .people = {&before, &child},
                      .families = {&family},
                      .when = child.birth});
        return;
    }
}

// Numbers between those of two children that nobody has: of a child that was deleted, or of another record.
void lackNumbers(const Family& family, Check& check)
{
    const auto most = static_cast<qint64>(check.limit("lacuna"));
    if (most < 1 || family.children.size() < 2) return;
    std::vector<const Person*> children = family.children;
    std::ranges::sort(children, {}, &Person::number);
    const auto isNobodys = [&](qint64 number) { return !check.parish().person(parish::PersonNumber(number)); };
    for (size_t i = 1; i < children.size(); ++i) {
        const qint64 first = value(children[i - 1]->number) + 1, last = value(children[i]->number) - 1;
        if (first > last || last - first >= most) continue;
        bool areNobodys = true;
        for (qint64 number = first; areNobodys && number <= last; ++number)
            areNobodys = isNobodys(number);
        if (!areNobodys) continue;
        const QString which = first == last ? QString("falta o número %1").arg(first)
                                            : QString("faltam os números %1 a %2").arg(first).arg(last);
        check.report({.text = QString("Na família nº %1 %2 entre %3 e %4: ninguém %5 tem.")
                                  .arg(parish::shown(family.number), which, bornOn(*children[i - 1]) + ',',
                                       bornOn(*children[i]), first == last ? "o" : "os"),
                      .people = {children[i - 1], children[i]},
                      .families = {&family},
                      .when = children[i]->birth});
    }
}

void areNumberedOddly(const Family& family, Check& check)
{
    areNumberedOutOfOrder(family, check);
    lackNumbers(family, check);
}

} // namespace

std::vector<Rule> familyChildRules()
{
    return {
        {"F-12",
         Severity::Unlikely,
         "Irmãos vivos com o mesmo nome",
         haveOneName,
         {},
         "O mais velho e o mais novo, quando o livro só dá o primeiro nome de cada um."},
        {"F-13",
         Severity::Information,
         "Apelido que não é dos pais nem dos avós",
         bearsAForeignSurname,
         {},
         "É normal: tomava-se o apelido de um padrinho, de um bisavô ou de uma devoção.",
         false},
        {"F-14",
         Severity::Unlikely,
         "Filhos durante anos de mais",
         hasChildrenTooLong,
         {{"mae", 25, "Anos entre o primeiro e o último filho da mãe"}, {"pai", 50, "E do pai"}},
         "Dois casais homónimos; uma segunda mulher que a família não tem."},
        {"F-15",
         Severity::Unlikely,
         "Filhos de mais",
         hasTooManyChildren,
         {{"mulher", 15, "Filhos de uma mulher"}, {"casal", 20, "Filhos de um casal"}},
         "Dois casais homónimos; mas houve famílias assim."},
        {"F-17",
         Severity::Information,
         "Números dos filhos fora da ordem dos nascimentos, ou com falhas",
         areNumberedOddly,
         {{"lacuna", 1, "Números seguidos em falta entre dois filhos, até (n.º; 0: não se procuram)"}},
         "Os números são da ordem em que se inseriu, e nada dizem do nascimento; um que falta pode ser de quem se "
         "juntou a outra ficha."},
    };
}

} // namespace study::checks
