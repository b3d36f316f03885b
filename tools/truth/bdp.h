// The BDP of a parish as a researcher has made it, and what is true of each of its records.
#pragma once

#include "acts.h"

#include <QStringList>

#include <vector>

namespace truth {

using Number = int; // of a record: nind or nfamilia; 0: none

struct Card // of a person
{
    Number number = 0;
    PersonId who = 0; // whom it was made for
    QString name = {};
    Name plain = {}; // the same, spelled as today
    QString nickname = {};
    bool male = false, foundling = false, minor = false;
    Number origin = 0;
    QDate birth = {}, death = {};
    bool birthIsExact = false;
    bool priest = false;                 // "Padre" stands before the name
    Number baptisedBy = 0, buriedBy = 0; // the priests
    int birthLocality = 0, deathLocality = 0;
    int ageAtDeath = -1, stateAtDeath = 0;
    std::vector<Number> unions = {};
    QStringList notes = {};
    int lastSeen = 0; // the year of the act that was last entered on it

    bool hasOnlyAName() const { return origin == 0 && !birth.isValid() && !death.isValid() && unions.empty(); }
};

struct FamilyCard
{
    Number number = 0;
    CoupleId which = 0;
    Number husband = 0, wife = 0;
    QDate wedding = {};
    Number priest = 0;
    int locality = 0;
    int ages[2] = {-1, -1}, states[2] = {}; // told at the marriage: his, hers
    std::vector<Number> baptized = {};      // children
    int lastSeen = 0;
};

struct AssistantCard
{
    bool atBaptism = true;
    Number entity = 0, person = 0;
    QDate day = {};
    int state = 0;
};

struct ResidenceCard
{
    Number person = 0, family = 0; // one of them
    QDate day = {};
    int locality = 0;
};

struct TradeCard
{
    Number person = 0;
    QDate day = {};
    int trade = 0;
};

// A link that the researcher made and that isn't so.
struct WrongLink
{
    QString what = {}; // "obito", "familia de origem", "uniao", "assistente", "padre"
    Number person = 0, family = 0;
    PersonId truly = 0; // whom the act was about

    bool operator==(const WrongLink&) const = default;
};

struct Bdp
{
    std::vector<Card> people = {Card()}; // by their numbers
    std::vector<FamilyCard> families = {FamilyCard()};
    std::vector<AssistantCard> assistants = {};
    std::vector<ResidenceCard> residences = {};
    std::vector<TradeCard> trades = {};
    std::vector<WrongLink> wrong = {};
    int acts = 0;

    Card& person(Number number) { return people[static_cast<std::size_t>(number)]; }
    const Card& person(Number number) const { return people[static_cast<std::size_t>(number)]; }
    FamilyCard& family(Number number) { return families[static_cast<std::size_t>(number)]; }
    const FamilyCard& family(Number number) const { return families[static_cast<std::size_t>(number)]; }
};

} // namespace truth
