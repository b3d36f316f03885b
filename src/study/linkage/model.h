// What each agreement and each disagreement of two records is worth.
//
// After I. P. Fellegi and A. B. Sunter, "A theory for record linkage", JASA 64 (1969): a level of agreement that comes
// with probability m where two records tell of the same person, and with u where they tell of two, is worth log2(m/u)
// bits. What is missing tells nothing: 0 bits.
#pragma once

#include "platform/jet/connection.h"
#include "study/parish/snapshot.h"

#include <QString>

#include <optional>
#include <vector>

namespace study::linkage {

enum class Field
{
    FirstName,
    OtherNames, // surnames and further given names, as sets
    OtherNamesOfWoman,
    ParentsSurname, // of a child baptised with a first name alone: the surnames of the parents
    Father,         // by the first name
    FatherSurnames,
    Mother,
    MotherSurnames,
    Spouse,
    SpouseSurnames,
    Grandparents, // each by the first name
    Birth,        // between the births, told or counted back from a stated age
    Times,        // between the lives, where no birth is told
    Death,
    Marriage,
    Unions,   // of two spouses who aren't one: at the same time
    Interval, // between the time of the one couple, from marriage to last child, and that of the other
    Place,    // the locality
    Parish,   // where one of both has no locality
    Profession,
    Nickname,
    Title,
    Godparents, // of the children of both couples: the same one
    SameOrigin, // both are children of one family, as two of one name may be
    Same        // the same record on both sides: the husband of both families
};

enum class Level
{
    Missing,
    Equal,
    OfOneClass, // Álvares, Alves; of places: the same parish
    Likened,    // by their letters
    Devotional, // the one thing shared is devotional
    Within1,    // years
    Within3,
    Within5,
    Within10,
    Within20,
    SameDay,  // both known exactly
    SomeDays, // of marriages: both known exactly, and at the most ten days apart
    Other
};

inline constexpr int fieldCount = int(Field::Same) + 1;
inline constexpr int levelCount = int(Level::Other) + 1;

struct Weight
{
    Field field = Field::FirstName;
    Level level = Level::Equal;
    double m = 0.5;
    double u = 0.5;       // on the average of the BDP
    bool byValue = false; // u is the share of the value: an agreement on Umbelina is worth more than on Maria

    bool operator==(const Weight&) const = default;
    double bits() const;                // by the average
    double bits(double byChance) const; // by the share of the value, for byValue
};

struct Model
{
    std::vector<Weight> weights = {};
    double suggestFrom = 12;        // bits from which a link is proposed,
    double suggestCouplesFrom = 14; // that of two families,
    double aboveRunnerUp = 4;       // and so many above the next one
    double hideBelow = 4;           // what has less is no candidate
    int candidates = 4;             // of each record and kind at the most

    bool operator==(const Model&) const = default;
    const Weight& weight(Field field, Level level) const; // 0 bits where there is none
};

Model startModel(); // without a BDP: m as published, u of a parish of the usual names

// The model of a BDP: u by its own frequencies, m by the EM algorithm over its candidate pairs, from the start values.
// The same snapshot gives the same model. Throws Snapshot::Interrupted.
Model estimated(const parish::Snapshot& parish, const Model& start = startModel(),
                const parish::Snapshot::GoesOn& goesOn = {});

// As the user has kept it: `estudo_peso`, made by the first store(); none without it. What a row lacks, or can't be
// meant, is that of the start model. store() is a transaction of its own. They throw jet::Error.
std::optional<Model> storedModel(jet::Connection& bdp);
void store(jet::Connection& bdp, const Model& model);

QString title(Field field); // "nome próprio"
QString title(Level level); // "igual"

} // namespace study::linkage
