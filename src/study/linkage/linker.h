// Makes the links of one question. For this room alone.
#pragma once

#include "study/linkage/candidates.h"
#include "study/linkage/compare.h"
#include "study/linkage/scores.h"

#include <functional>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

namespace study::linkage {

class Linker
{
public:
    Linker(const parish::Snapshot& parish, const Model& model, const Question& question,
           const parish::Snapshot::GoesOn& goesOn);

    std::vector<Link> links();

private:
    using Touched = std::vector<bool>; // by index; empty: all
    struct Scores
    {
        std::vector<Score> couples = {}, people = {};
    };

    Scores scores(const Touched& couples, const Touched& people);
    void addSpouses(Scores& scores) const;
    void leaveOutDecided(Scores& scores) const;
    bool areToldApart(const Face& one, const Face& other) const;
    bool areToldApart(const CoupleFace& one, const CoupleFace& other) const;
    bool areSpousesToldApart(const Face& one, const Face& other) const;
    // Who was told apart from a spouse's spouse has no evidence in that name.
    Comparison compared(const Face& one, const Face& other) const;
    Comparison compared(const CoupleFace& one, const CoupleFace& other) const;
    void touch(Touched& couples, Touched& people) const;
    void addNeighbours(const Scores& scores, Touched& couples, Touched& people) const;
    bool isAsked(const Link& link) const;

    void addCouples(const Scores& scores);
    void addPeople(const Scores& scores);
    void addNamed();
    class CouplesByName; // named.cpp
    void addCouplesOf(const NamedParents& named, const Face& child, const Name* father, const Name* mother,
                      const std::vector<const CoupleFace*>& couples);
    void addDoubtful();
    void add(Link link);

    Record coupleAt(uint32_t index) const;
    Record personAt(uint32_t index) const;
    template <class Face>
    std::optional<double> bitsOf(const Face& one, const Face& other) const; // none: vetoed, or told apart
    void ask(size_t number) const;
    std::vector<Evidence> evidenceOf(const Score& person, const Scores& scores) const;

    const parish::Snapshot& parish_;
    const Model& model_;
    const Question& question_;
    parish::Snapshot::GoesOn goesOn_;
    double begun_ = 0, share_ = 1; // of the whole work, before the scores that are made and for them
    Faces faces_;
    Comparer comparer_;
    std::vector<Link> links_;
};

// Why a link that the BDP has is doubted: only what speaks against it, in negative bits.
std::vector<Evidence> doubtsOfOrigin(const Face& child, const Face* father, const Face* mother);
std::vector<Evidence> doubtsOfDeath(const Face& person);
std::vector<Evidence> doubtsOfUnion(const Face& person, const parish::Membership& membership);

// The same of the names: how the acts of a person tell it, beside who was linked. What of a name fits is no doubt: a
// slip of the pen, a second given name in the place of the first, surnames of which one is shared.
class DoubtsOfNames
{
public:
    // The names outlive it.
    explicit DoubtsOfNames(std::span<const NameInAct> names);

    std::vector<Evidence> ofOrigin(const parish::Person& child) const; // by the baptism
    std::vector<Evidence> ofUnion(const parish::Person& spouse, const parish::Membership& membership) const;
    std::vector<Evidence> ofDeath(const parish::Person& deceased) const;

private:
    std::vector<Evidence> of(const parish::Person& person, NameInAct::In in,
                             const std::function<bool(const NameInAct&)>& counts) const;

    std::unordered_map<qint64, std::vector<const NameInAct*>> of_; // by the number of the person
};

} // namespace study::linkage
