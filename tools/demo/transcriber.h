// How the records around the people come about.
#pragma once

#include "parish.h"
#include "random.h"

#include <QHash>

#include <initializer_list>

namespace demo {

// Goes through the acts of a parish once more, with a chance of its own: the people and families stay the same.
class Transcriber
{
public:
    Transcriber(Parish& parish, std::uint32_t seed);

    void run();

private:
    // transcriber.cpp: the acts and who was at them
    const Person& person(int number) const { return parish_.person(number); }
    const Family& family(int number) const { return parish_.family(number); }
    bool isAround(const Person& person, QDate day) const;
    int spouseOn(int person, QDate day) const;
    int civilStateOn(const Person& person, QDate day) const;
    QList<int> grownOn(QDate day, Sex sex, int age) const;
    int choose(const QList<int>& candidates, std::initializer_list<int> ofWhom);
    int otherPriest(int inOffice, QDate day);
    void share(Officiant& first, Officiant& second, QDate day);
    void transcribeBaptism(Person& child);
    void transcribeWedding(Family& family);
    void transcribeBurial(Person& dead);
    int assist(Assistance row, Sex sex, QList<int>& there);

    // transcriber_lists.cpp: residences, professions, signatures, passports
    QList<Sighting> sightingsOf(const Person& person) const;
    void addHomes(const Family& family);
    void addHomes(const Person& person);
    void addProfessions(const Person& person);
    int trade(const Person& person);
    void sign(int person, const Sighting& sighting, const QString& function);
    void addPassports(Person& emigrant);

    // transcriber_wills.cpp: legacies and suffrages
    QList<int> heirsOf(const Person& testator) const;
    void openWill(Person& testator);
    void bequeath(const Person& testator, int heir);
    void addSuffrages(const Person& dead);
    void addMasses(const Person& dead);
    void addOffice(const Person& dead);
    void addAlms(const Person& dead);

    Parish& parish_;
    Random random_;
    QHash<int, QList<int>> marriages_; // families of each spouse, in the order of their first act
    QList<int> literacy_;              // level of the signature, by person
};

} // namespace demo
