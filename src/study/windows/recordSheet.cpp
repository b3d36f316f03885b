#include "study/windows/recordSheet.h"

#include <QStringList>

namespace study {

using parish::Date;
using parish::Family;
using parish::Person;
using parish::Place;

namespace {

constexpr auto lineEnd = "\r\n";

QString nameOf(const Person& person)
{
    return person.name.trimmed().isEmpty() ? QString("(sem nome)") : person.name;
}

QString numbered(const Person& person)
{
    return nameOf(person) + " (" + parish::shown(person.number) + ')';
}

QString linked(const Person* person)
{
    return person ? numbered(*person) : QString("desconhecido");
}

// "Nascimento: 14/02/1702, Azurém".
QString event(const char* what, const Date& date, const Place& place, const parish::Catalogue& catalogue)
{
    QStringList parts;
    if (date.isKnown()) parts << shown(date);
    if (const QString name = catalogue.name(place); !name.isEmpty()) parts << name;
    return QString(what) + ": " + (parts.isEmpty() ? QString("desconhecido") : parts.join(", "));
}

QString life(const Person& person)
{
    QString text = numbered(person);
    if (person.birth.isKnown()) text += ", n. " + shown(person.birth);
    if (person.death.isKnown()) text += ", m. " + shown(person.death);
    return text;
}

const char* sexOf(const Person& person)
{
    switch (person.gender) {
    case parish::Gender::Male:
        return "homem";
    case parish::Gender::Female:
        return "mulher";
    case parish::Gender::Undetermined:
        break;
    }
    return "sexo por determinar";
}

QString unionOf(const Person& person, const parish::Membership& row)
{
    const QString number = "família " + parish::shown(row.familyNumber);
    if (!row.family) return "Casamento: " + number + ", que não existe";
    QString text = "Casamento: " + number + " com " + linked(spouseOf(person, *row.family));
    if (row.family->marriage.isKnown()) text += ", " + shown(row.family->marriage);
    return text;
}

QString couple(const Family& family)
{
    QStringList names;
    for (const Person* one : {family.husband, family.wife})
        if (one) names << nameOf(*one);
    return names.isEmpty() ? QString("(sem ninguém)") : names.join(" e ");
}

} // namespace

QString titleOf(const Person& person)
{
    return "Indivíduo " + parish::shown(person.number) + " – " + nameOf(person);
}

QString titleOf(const Family& family)
{
    return "Família " + parish::shown(family.number) + " – " + couple(family);
}

QString sheetOf(const Person& person, const parish::Catalogue& catalogue)
{
    QStringList lines{titleOf(person) + ", " + sexOf(person),
                      event("Nascimento", person.birth, person.birthPlace, catalogue),
                      event("Óbito", person.death, person.deathPlace, catalogue)};
    if (person.ageAtDeath) lines.last() += ", com " + QString::number(*person.ageAtDeath) + " anos";
    if (person.origin)
        lines << "Pais: " + linked(person.father()) + " e " + linked(person.mother()) + ", família " +
                     parish::shown(person.originNumber);
    else if (parish::value(person.originNumber) != 0)
        lines << "Pais: família " + parish::shown(person.originNumber) + ", que não existe";
    for (const parish::Membership* row : person.unions)
        lines << unionOf(person, *row);
    for (const parish::Residence& row : person.residences)
        lines << event("Residência", row.date, row.place, catalogue);
    return lines.join(lineEnd);
}

QString sheetOf(const Family& family, const parish::Catalogue& catalogue)
{
    QStringList lines{titleOf(family), event("Casamento", family.marriage, family.place, catalogue)};
    for (const parish::Membership& row : family.members)
        lines << "Cônjuge: " + (row.member.person ? life(*row.member.person)
                                                  : "nº " + parish::shown(row.member.number) + ", que não existe");
    for (const Person* child : family.children)
        lines << "Filho: " + life(*child);
    return lines.join(lineEnd);
}

} // namespace study
