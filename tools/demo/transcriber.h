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
    const Person& who(Nind number) const { return parish_.person(number); }
    const Family& which(Nfam number) const { return parish_.family(number); }
    bool isAround(const Person& person, QDate day) const;
    Nind spouseOn(Nind person, QDate day) const;
    int civilStateOn(const Person& person, QDate day) const;
    QList<Nind> grownOn(QDate day, Sex sex, int age) const;
    Nind choose(const QList<Nind>& candidates, std::initializer_list<Nind> ofWhom);
    Nind otherPriest(Nind inOffice, QDate day);
    void share(Officiant& first, Officiant& second, QDate day);
    void transcribeBaptism(Person& child);
    void transcribeWedding(Family& family);
    void transcribeBurial(Person& dead);
    Nind assist(Assistance row, Sex sex, QList<Nind>& there);

    // transcriber_lists.cpp: residences, professions, signatures, passports
    QList<Sighting> sightingsOf(const Person& person) const;
    void addHomes(const Family& family);
    void addHomes(const Person& person);
    void addProfessions(const Person& person);
    int trade(const Person& person);
    void sign(Nind person, const Sighting& sighting, const QString& function);
    void addPassports(Person& emigrant);

    // transcriber_wills.cpp: legacies and suffrages
    QList<Nind> heirsOf(const Person& testator) const;
    void openWill(Person& testator);
    void bequeath(const Person& testator, Nind number);
    void addSuffrages(const Person& dead);
    void addMasses(const Person& dead);
    void addOffice(const Person& dead);
    void addAlms(const Person& dead);

    Parish& parish_;
    Random random_;
    QHash<Nind, QList<Nfam>> marriages_; // families of each spouse, in the order of their first act
    QHash<Nind, int> literacy_;          // level of the signature
};

} // namespace demo
