// What the registers tell around the people: who was at an act, where somebody lived, what was left by will.
#pragma once

#include <QDate>
#include <QList>
#include <QString>

namespace demo {

struct Place
{
    QString code;
    QString level; // P, Z, F, L or S; "" for no place
};

// Of codes, numbers of people and texts below, 0 or "" is what isn't told.

enum class Act
{
    baptism,
    marriage
};

struct Assistance
{
    Act act = Act::baptism;
    int entity = 0; // the person baptized or the family
    QDate day;
    bool godparent = true; // else a witness
    int person = 0;
    int civilState = 0;
    bool fatherDead = false, motherDead = false; // of the assistant
    int kinToBaptized = 0, kinToGroom = 0, kinToBride = 0;
    QString notes = {};
};

// An act that shows a person or a family on a day.
struct Sighting
{
    QDate day;
    bool exact = true;
    QString source = {};
};

struct Residence
{
    bool ofFamily = false; // else of a person
    int owner = 0;
    Sighting sighting;
    Place place;
    QString notes = {};
};

struct Profession
{
    int person = 0;
    Sighting sighting;
    int code = 0;
};

struct Signature
{
    int person = 0;
    Sighting sighting;
    int age = 0;
    int level = 0; // 1 for a cross to 5 for a practised hand
    QString text = {}, function = {};
};

struct Legacy
{
    int testator = 0;
    int heir = 0;
    int kinship = 0; // the heir's
    QString movables = {}, lands = {}, notes = {};
};

struct Suffrage
{
    int person = 0;
    QString kind = {}; // missa, oficio, esmola
    int type = 0;      // a code of the kind
    int quantity = 0, unitValue = 0, total = 0;
    int priests = 0;
    QString destination = {};
};

struct Passport
{
    int person = 0;
    int number = 0;
    QDate day;
    Place destination;
    QString notes = {};
};

struct Records
{
    QList<Assistance> assistances;
    QList<Residence> residences;
    QList<Profession> professions;
    QList<Signature> signatures;
    QList<Legacy> legacies;
    QList<Suffrage> suffrages;
    QList<Passport> passports;
};

} // namespace demo
