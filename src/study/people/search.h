// One question to the finder.
#pragma once

#include "study/people/couples.h"
#include "study/people/evidence.h"
#include "study/people/finder.h"

#include <QList>

#include <optional>
#include <unordered_map>
#include <vector>

namespace study {

// Precondition: the index and the kin are up to date, and nothing is written while it lives.
class Search
{
public:
    Search(jet::Connection& bdp, NameIndex& index, Kin& kin, const Act& act, const Conclusions& conclusions)
        : bdp_(bdp), index_(index), kin_(kin), act_(act), conclusions_(conclusions), judge_(bdp, index, kin, act)
    {
    }

    QList<Candidate> candidates(int person, int limit);
    QList<CoupleCandidate> couples(int person, int limit);
    std::optional<CoupleCandidate> onlyCouple(int person);

private:
    struct Judged
    {
        const Person* person = nullptr;
        Evidence evidence = {};
    };

    Sought sought(int person);

    // Who comes into question by the name, and by those of the act who are kin.
    std::vector<const Person*> peopleByName(const Sought& sought);
    std::vector<const Person*> peopleByKin(const Sought& sought);
    void addKinOf(const Relative& relative, const Sought& sought, std::vector<const Person*>& people);
    void addSpouses(const Sought& sought, std::vector<const Person*>& people);
    void addChildren(const Sought& sought, std::vector<const Person*>& people);
    void addPerson(qint64 nind, std::vector<const Person*>& people);

    std::vector<Judged> judged(const Sought& sought, int limit);
    bool isWorthShowing(const Sought& sought, const Judged& one);
    Candidate candidate(const Judged& found);
    void tellKin(const Person& person, Candidate& told);

    CoupleCandidate couple(const CoupleFound& found, const Sought& husband, const Sought& wife, int of);
    bool isOpen(const Family& family);
    NamesAgree agreementWith(qint64 nind, const Sought& told);
    bool spousesAllowIt(const Family& family, const DaySpan& days);
    bool childAllowsIt(const Child& child, const DaySpan& days);

    QString nameOfPerson(qint64 nind);
    QString residenceOf(const Person& person);
    QString lastActOf(const Person& person);

    jet::Connection& bdp_;
    NameIndex& index_;
    Kin& kin_;
    const Act& act_;
    const Conclusions& conclusions_;
    Judge judge_;
    CodedName born_ = {}; // the name of the child whose parents are sought
};

} // namespace study
