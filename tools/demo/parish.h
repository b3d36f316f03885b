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
    int person = 0; // 0: none is told
    int function = 0;
};

// A person. `birth` and `death` are always valid dates: life's own, whether or not a register holds them.
struct Person
{
    int number = 0;
    Sex sex = Sex::unknown;
    QString name, surname, title, nickname, notes;
    int origin = 0; // number of the family of origin; 0: none known

    QDate birth;
    bool birthKnown = true;
    bool birthExact = true;
    Place birthPlace;
    int filiation = 0;
    Officiant baptizedBy, baptizedWith;

    QDate death;
    bool deathKnown = false;
    bool deathExact = true;
    int ageToldAtDeath = 0; // where the act has another one than the dates; else 0
    Place deathPlace;
    QString cause, shroud, church, grave;
    int sacraments = 0;
    int parishClass = 0;
    bool will = false;
    int executor = 0; // of the will
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
    int person = 0; // 0: no such spouse
    int civilState = single;
    int marriage = 1; // number of this marriage for that person
    int ageTold = 0;  // where the act has another one than the dates; else 0
};

struct Family
{
    int number = 0;
    Spouse husband, wife;
    int situation = legitimateFamily;
    QDate wedding; // null where no register holds it
    Place place;
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

    Person& person(int number) { return people[number - 1]; }
    const Person& person(int number) const { return people[number - 1]; }
    Family& family(int number) { return families[number - 1]; }
    const Family& family(int number) const { return families[number - 1]; }
    QList<const Person*> childrenOf(int family) const;
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
