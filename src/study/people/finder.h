// Who somebody of an act may be: the people of the BDP, best first, with what speaks for each.
#pragma once

#include "platform/jet/connection.h"
#include "study/acts/act.h"
#include "study/acts/conclusions.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace study {

// A person who may be meant, and what tells them apart from the others of that name.
struct Candidate
{
    qint64 nind = 0;
    QString name = {};
    Sex sex = Sex::Unknown;
    double score = 0; // bits of evidence: the sum of log2 of how much likelier each agreement is for the same person
    QStringList reasons = {}; // in Portuguese, the strongest first: "casado com Ana Lopes, mãe neste acto"
    QStringList against = {}; // what speaks against: "tinha 9 anos"
    PartialDate birth = {}, death = {};
    QString residence = {}; // the last one known before the act
    QString father = {}, mother = {};
    QString spouse = {};  // the last one known
    QString lastAct = {}; // "madrinha em 12/03/1704", by the cards or an act that was stored; "" for none

    bool operator==(const Candidate&) const = default;
};

// A couple of the BDP that the father and the mother of an act may be.
struct CoupleCandidate
{
    qint64 nfamilia = 0;
    qint64 husband = 0, wife = 0; // nind
    QString names = {};           // "Manuel de Abreu e Joana do Espírito Santo"
    double score = 0;
    QStringList reasons = {}, against = {};
    int children = 0;
    PartialDate marriage = {};
    PartialDate firstChild = {}, lastChild = {}; // their dates of birth or baptism
    // By the dates a birth at the date of the act is possible, on each day that it may mean: the father lived 300 days
    // before it or later, the mother 8, he was 14 to 85, she 12 to 50, and no child was born within 240 days of it but
    // for a twin, who has another name and was born within 10 days (study/acts/limits.h). Who was born or died "about"
    // a day may have five years off it.
    bool open = false;

    bool operator==(const CoupleCandidate&) const = default;
};

// Looks people up by their folded names in tables of its own (estudo_nome and those beside it, docs/bdp.md), which it
// brings up to date by itself when the BDP was changed by others. It never links anybody.
//
// Who comes into question: who has the first name and one of the others, in whatever order, or the first name alone;
// where nobody has, who has the first name, or the word as the beginning or the likeness of one of theirs; the spouses,
// children and parents of those of the act who are known; and by the names of two of them, the couples and the children
// of the couples that they may be. Of those found by their names alone not all are looked at where there are many: of
// one pair of names 2,000 born in the years that come into question (or five years from them: a birth may be told
// "about") and 2,000 without a date of birth, of one first name 400, in all 1,200, those of middle age first. Nobody is
// looked for by name outside those years: who was born in others is found only as kin. So a name that thousands have,
// told of without anybody else, finds some of them. Of the 1,200 the residence, the acts of the life and the relatives
// are compared for those with the best names and dates only: four for each one asked for, 150 at the least where the
// act tells an age, a residence, a profession, a title or a nickname, whom the acts of their lives don't exclude; of
// equals those entered first. One thread; the connection outlives it. All throw jet::Error, also where tables of these
// names are others.
class Finder
{
public:
    explicit Finder(jet::Connection& bdp);
    ~Finder();
    Finder(const Finder&) = delete;
    Finder& operator=(const Finder&) = delete;

    // Who the person of the act may be, by the name in it (typed so far, or whole), the sex, the date, and the other
    // people of the act, those already identified by `conclusions` above all. At most `limit`, none twice.
    QList<Candidate> find(const Act& act, int person, const Conclusions& conclusions, int limit = 20);

    // The couples that the father and mother of `person` may be.
    QList<CoupleCandidate> couples(const Act& act, int person, const Conclusions& conclusions, int limit = 10);

    // The one couple that the father and mother of `person` can be, for a link that nobody looks at: rather none than a
    // wrong one. Both have to be told by names that were read without doubt; of all couples that may bear them (a name
    // agrees where the elements of the shorter one are all among those of the longer one, by spelling or class; what
    // only one of the two tells is no disagreement) one alone is open, and of father or mother a surname agrees.
    // None where the BDP has more people of these names than are looked at.
    std::optional<CoupleCandidate> onlyCouple(const Act& act, int person, const Conclusions& conclusions);

    // Brings the index up to date now, and not at the next question: who has been made or changed by this program is
    // found from now on without a look at the whole file. Precondition: what has written them is committed or part of
    // the open transaction.
    void update();

    // Does a piece of what the first question would have to wait for, where the index has to be made: some tens of
    // milliseconds. Returns whether nothing of it is left. Precondition: nothing else is under way.
    bool prepare();
    int prepared() const; // percent

    // Makes the tables, or makes them anew, whatever their state.
    void rebuild();

private:
    struct Private;
    std::unique_ptr<Private> d_;
};

} // namespace study
