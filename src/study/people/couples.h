// The families of the BDP that two people of an act may be the couple of.
#pragma once

#include "study/people/evidence.h"
#include "study/people/gather.h"

#include <unordered_set>
#include <vector>

namespace study {

struct CoupleFound
{
    qint64 family = 0;
    qint64 husband = 0, wife = 0; // nind
    double bits = 0;              // of both names

    bool operator==(const CoupleFound&) const = default;
};

// How the name of an act and one of the BDP agree, for a link that nobody looks at: more strictly than evidence.h
// weighs them. All elements of the shorter name, but for the first one, are among those of the longer one; what only
// one of the two tells is no disagreement.
enum class NamesAgree
{
    No,     // by the first names, or by others that share nothing
    Partly, // some elements of both are others, or one of the two isn't known
    Alone,  // one of them is a first name alone
    Devout, // by devotional elements alone, which half a parish has
    Yes
};
NamesAgree agreementOf(const CodedName& told, const CodedName& known);

class CoupleSearch
{
public:
    CoupleSearch(NameIndex& index, Kin& kin, Judge& judge) : index_(index), kin_(kin), judge_(judge) {}

    // Those in which each of the two may be the one sought, or is the person told by nind (0: nobody is). Of those
    // whose name isn't told, anybody. Likelier names first. It starts with the one of whom fewer people come into
    // question, and looks at as many as a Gatherer finds.
    std::vector<CoupleFound> couplesOf(const Sought& husband, qint64 husbandIs, const Sought& wife, qint64 wifeIs);

    // Whether the last question was answered whole: false where there are more people of these names than it looks at.
    bool all() const { return all_; }

private:
    Gathered rowsFor(const Sought& sought, qint64 known);
    void look(const Person& one, bool isHusband, const Sought& husband, const Sought& wife);
    bool agrees(const Sought& sought, qint64 known, qint64 nind, double& bits);

    NameIndex& index_;
    Kin& kin_;
    Judge& judge_;
    qint64 husbandIs_ = 0, wifeIs_ = 0;
    bool all_ = true;
    std::vector<CoupleFound> found_;
    std::unordered_set<qint64> seen_; // families
};

} // namespace study
