// Names by the customs of Portuguese parishes of the 17th and 18th centuries.
//
// Few first names serve most people. Who bears whose surname follows no rule: the father's, the mother's, a
// grandparent's or a godparent's, or one that nobody of the family had, so that brothers differ (N. G. Monteiro, "Os
// nomes de família em Portugal", Etnográfica 12 (1), 2008). Women have their mother's, a devotion's, or none.
#pragma once

#include "random.h"

#include <QHash>
#include <QString>
#include <QStringList>

namespace truth {

struct Name
{
    QString given;
    QString second;       // a second given name, mostly from 1700 on
    QStringList surnames; // with their particles: "da Costa"

    bool operator==(const Name&) const = default;
    QString full() const;
};

QString givenName(demo::Random& random, bool male, int year);
QString secondName(demo::Random& random, bool male, const QString& given, int year);
QString familyName(demo::Random& random);
QString devotion(demo::Random& random);
bool isDevotion(const QString& surname);
QString patronymic(const QString& given); // "" where the given name has none

// "João" → "Joana", for who bears a godparent's name of the other sex; as it is where there is no such form.
QString forSex(const QString& given, bool male);

// How a word may stand in a register: the other way round of the table of forms, and slips of the pen and of the eye.
class Spellings
{
public:
    explicit Spellings(const QString& table); // the path of nomes.csv

    QString old(const QString& word, demo::Random& random) const; // as it is where the table has no other form
    static QString misread(const QString& word, demo::Random& random);

private:
    QHash<QString, QStringList> forms_; // by the standard
};

} // namespace truth
