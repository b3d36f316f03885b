// What the registers tell around the people: who was at an act, where somebody lived, what was left by will.
#pragma once

#include "common/valores.h"

#include <QDate>
#include <QList>
#include <QString>

namespace demo {

// Of codes and texts below, 0 or "" is what isn't told.

struct Assistance
{
    Nind baptized = {}; // the act is the baptism of this person
    Nfam wedded = {};   // or the marriage of this family
    QDate day;
    bool godparent = true; // else a witness
    Nind person = {};
    int civilState = 0;
    bool fatherDead = false, motherDead = false; // of the assistant
    int kinToBaptized = 0, kinToGroom = 0, kinToBride = 0;
    QString notes = {};
};

// An act that shows a person or a family on a day.
struct Sighting
{
    DataRegistada date;
    QString source = {};

    QDate day() const { return date.data; }
};

struct Residence
{
    Nind person = {}; // who lived there
    Nfam family = {}; // or which family
    Sighting sighting;
    Local place;
    QString notes = {};
};

struct Profession
{
    Nind person = {};
    Sighting sighting;
    int code = 0;
};

struct Signature
{
    Nind person = {};
    Sighting sighting;
    int age = 0;
    int level = 0; // 1 for a cross to 5 for a practised hand
    QString text = {}, function = {};
};

struct Legacy
{
    Nind testator = {};
    Nind heir = {};
    int kinship = 0; // the heir's
    QString movables = {}, lands = {}, notes = {};
};

struct Suffrage
{
    Nind person = {};
    QString kind = {}; // missa, oficio, esmola
    int type = 0;      // a code of the kind
    int quantity = 0, unitValue = 0, total = 0;
    int priests = 0;
    QString destination = {};
};

struct Passport
{
    Nind person = {};
    int number = 0;
    QDate day;
    Local destination;
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
