// Two people or two couples beside each other: how each thing of them agrees, and what that is worth.
#pragma once

#include "study/linkage/candidates.h"
#include "study/linkage/faces.h"
#include "study/linkage/model.h"

#include <array>
#include <span>
#include <vector>

namespace study::linkage {

// The weights of a model where they are found at once.
class Scale
{
public:
    explicit Scale(const Model& model);
    const Weight& weight(Field field, Level level) const { return weights_[size_t(field)][size_t(level)]; }

private:
    std::array<std::array<Weight, levelCount>, fieldCount> weights_ = {};
};

enum class Of : quint8 // whose it is
{
    Person,
    Husband,
    Wife,
    Couple
};

// One thing of two records.
struct Sign
{
    Field field = Field::FirstName;
    Level level = Level::Missing;
    Of of = Of::Person;
    double bits = 0;
    const Name *one = nullptr, *other = nullptr; // where it is a name
    int thing = -1;                              // the place or the profession that both have
};

struct Comparison
{
    bool vetoed = false;
    double bits = 0;
    std::vector<Sign> signs = {}; // nothing of what is missing

    void clear();
    void veto();
    void add(const Sign& sign);
};

struct WordAgreement
{
    Level level = Level::Other;
    double weight = 1; // of its bits
};
WordAgreement agreementOf(const CodedWord& one, const CodedWord& other);

class Comparer
{
public:
    Comparer(const Faces& faces, const Model& model) : faces_(faces), scale_(model) {}

    // Precondition: `to` is empty. Where it is vetoed, nothing else of it counts.
    void compare(const Face& one, const Face& other, Comparison& to) const;
    void compare(const CoupleFace& one, const CoupleFace& other, Comparison& to) const;

    // The dates, the places and the professions alone, also of two that are vetoed.
    void compareTimesAndThings(const Face& one, const Face& other, Comparison& to) const;
    void compareTimesAndThings(const CoupleFace& one, const CoupleFace& other, Comparison& to) const;

    // What speaks for itself in words and numbers, the strongest first.
    std::vector<Evidence> evidence(const Comparison& of, const Face& one, const Face& other) const;
    std::vector<Evidence> evidence(const Comparison& of, const CoupleFace& one, const CoupleFace& other) const;

    // Of the names alone; the first names agree where it gives true.
    bool compareNames(const Name* one, const Name* other, parish::Gender sex, Field first, Field rest, Of of,
                      Comparison& to) const;

private:
    void addLevel(Field field, Level level, Of of, Comparison& to) const;
    void compareFirst(const Name& one, const Name& other, parish::Gender sex, Field field, Of of, Comparison& to) const;
    bool compareSecondGiven(const Name& one, const Name& other, parish::Gender sex, Of of, Comparison& to) const;
    void compareRest(const Name& one, const Name& other, parish::Gender sex, Field field, Of of, Comparison& to) const;
    void compareSelf(const Face& one, const Face& other, Of of, Comparison& to) const;
    void compareParents(const Face& one, const Face& other, Of of, Comparison& to) const;
    void compareGrandparents(const Face& one, const Face& other, Of of, Comparison& to) const;
    bool compareParentsSurname(const Face& child, const Face& other, Of of, Comparison& to) const;
    void compareTimes(const Face& one, const Face& other, Of of, Comparison& to) const;
    void compareBynames(const Face& one, const Face& other, Of of, Comparison& to) const;
    void compareTitles(const Face& one, const Face& other, Of of, Comparison& to) const;
    void compareSpouses(const Face& one, const Face& other, Comparison& to) const;
    void compareUnions(const Face& one, const Face& other, Comparison& to) const;
    void compareSpouse(const CoupleFace& one, const CoupleFace& other, bool husband, Comparison& to) const;
    void compareIntervals(const CoupleFace& one, const CoupleFace& other, Comparison& to) const;
    void compareDays(const parish::Date& one, const parish::Date& other, Field field, Of of, Comparison& to) const;
    void compareBirths(const Face& one, const Face& other, Of of, Comparison& to) const;
    template <class Record>
    void comparePlaces(const Record& one, const Record& other, Of of, Comparison& to) const;
    void compareThings(std::span<const Whereabouts> one, std::span<const Whereabouts> other, Field field, Of of,
                       Comparison& to) const;
    QString thingText(const Sign& sign, std::span<const Whereabouts> of) const;
    void compareGodparents(const CoupleFace& one, const CoupleFace& other, Comparison& to) const;

    const Faces& faces_;
    Scale scale_;
};

// Whether both can't be one, by sex, births, deaths, ages and what each did while the other was dead or unborn.
bool isVetoed(const Face& one, const Face& other);
bool isVetoed(const CoupleFace& one, const CoupleFace& other);
// Whether a birth of the one is less than eight months from one of the other, and no twin of it.
bool birthsCollide(const std::vector<int>& one, const std::vector<int>& other);

} // namespace study::linkage
