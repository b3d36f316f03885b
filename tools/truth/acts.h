// What the registers say of a parish: its acts, as priests of different habits wrote them.
#pragma once

#include "world.h"

#include <map>

namespace truth {

// Somebody as an act names them. Nobody where `who` is 0.
struct Mention
{
    PersonId who = 0;
    Name name = {};     // what was written of it, spelled as today
    QString shown = {}; // as it will stand on a card
    int locality = 0;
    int age = -1;  // not told
    int state = 0; // a code of EstCi; 0: not told
    int trade = 0; // 0: not told
    bool dead = false;

    explicit operator bool() const { return who != 0; }
};

struct Parents
{
    CoupleId couple = 0; // 0: not told
    Mention father = {}, mother = {};
};

enum class ActKind : quint8
{
    Baptism,
    Marriage,
    Burial
};

struct Act
{
    ActKind kind = ActKind::Baptism;
    QDate date = {};
    Mention subject = {};                       // the child, the groom, the deceased
    Parents parents = {}, grandparents[2] = {}; // of the child: the father's, the mother's
    Mention bride = {};
    Parents parentsOfBride = {};
    CoupleId couple = 0;              // that marries, or of which the deceased was one
    Mention spouse = {};              // of the deceased
    std::vector<Mention> others = {}; // godparents, witnesses
    int ageAtDeath = -1;
    Mention priest = {};
};

// Of all books, in the order in which a researcher goes through them: a quarter of a century after the other, and in
// each the baptisms, the marriages, the burials.
std::vector<Act> acts(const World& world, const Rates& rates, const Spellings& spellings, std::uint32_t seed);

} // namespace truth
