// The people of an invented parish, as its registers from 1650 to 1800 show them.
#pragma once

#include "codes.h"
#include "names.h"
#include "records.h"

#include <QDate>
#include <QList>
#include <QString>

#include <cstdint>

namespace demo {

// A priest at an act.
struct Officiant
{
    Nind person; // none: nobody is told
    int function = 0;
};

// A person. `birth` and `death` are always valid dates: life's own, whether or not a register tells them.
struct Person
{
    Nind number;
    Sex sex = Sex::unknown;
    QString name, surname, title, nickname, notes;
    Nfam origin; // none: not known

    QDate birth;
    DataRegistada birthTold;
    Local birthPlace;
    int filiation = 0;
    Officiant baptizedBy, baptizedWith;

    QDate death;
    DataRegistada deathTold;
    int ageToldAtDeath = 0; // where the act has another one than the dates; else 0
    Local deathPlace;
    QString cause, shroud, church, grave;
    int sacraments = 0;
    int parishClass = 0;
    bool will = false;
    Nind executor; // of the will
    Officiant buriedBy;

    QDate seenFrom, seenTo; // observation; null where nothing is known
    QDate left;             // when the person left the parish for good; null for one who stayed
    int civilState = single;
    QDate widowedOn;
    int marriages = 0;

    bool emigrant = false;
    QString stature, features; // as a passport describes the bearer
    int height = 0;            // in centimetres

    void note(const QString& text) { notes += notes.isEmpty() ? text : ' ' + text; }
    bool isPresent(QDate day) const { return day < death && (!left.isValid() || day < left); }
};

struct Spouse
{
    Nind person; // none: no such spouse
    int civilState = single;
    int marriage = 1; // number of this marriage for that person
    int ageTold = 0;  // where the act has another one than the dates; else 0
};

struct Family
{
    Nfam number;
    Spouse husband, wife;
    int situation = legitimateFamily;
    DataRegistada wedding;
    Local place;
    Officiant marriedBy, marriedWith;
    QDate seenFrom, seenTo;
    QString notes;
};

// Numbers are positions: person n stands at n - 1. A chronicle's people and families stand in the order of their first
// act.
struct Parish
{
    QList<Person> people;
    QList<Family> families;
    Records records;

    Person& person(Nind number) { return people[position(number.valor())]; }
    const Person& person(Nind number) const { return people[position(number.valor())]; }
    Family& family(Nfam number) { return families[position(number.valor())]; }
    const Family& family(Nfam number) const { return families[position(number.valor())]; }

    Nind nextPerson() const { return Nind(people.size() + 1); }
    Nfam nextFamily() const { return Nfam(families.size() + 1); }

    QList<const Person*> childrenOf(Nfam family) const;

private:
    static qsizetype position(double number) { return static_cast<qsizetype>(number) - 1; }
};

// Whole years between two dates, as a priest counts them.
int completedYears(QDate from, QDate to);

// The same seed gives the same parish on every machine.
Parish simulate(std::uint32_t seed);

inline const QString parishName = QStringLiteral("São Mamede da Ribeira");
inline const QString parishCode = QStringLiteral("030899");
inline const QString municipality = QStringLiteral("0308");

// The localities of the parish, each with its sites, in the order of their codes.
struct Locality
{
    QString name;
    QStringList sites;
};
const QList<Locality>& localities();

// Neighbouring parishes, where those come from who marry into this one.
const QStringList& neighbours();

} // namespace demo
