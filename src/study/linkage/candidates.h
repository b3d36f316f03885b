// Which records of a BDP may tell of the same person or the same couple, and which links of it are doubtful.
//
// Nothing is written here: these are proposals, each with what speaks for and against it. Values, made from a snapshot;
// the same snapshot and model give the same links in the same order.
#pragma once

#include "study/linkage/model.h"
#include "study/parish/snapshot.h"

#include <QString>

#include <optional>
#include <set>
#include <utility>
#include <vector>

namespace study::linkage {

enum class LinkKind : quint8
{
    SameFamily,    // two families: the same couple
    SamePerson,    // two people: the same one
    MissingBirth,  // two people: the one has a death without a birth, the other the birth
    MissingOrigin, // two people: the one is a spouse without a family of origin, the other was baptised in one
    NamedCouple,   // a person and a family: the parents that an act names are this couple
    Doubtful       // a person and the family of origin, or a person alone: the BDP has it, and much speaks against it
};

// A person or a family of the BDP.
struct Record
{
    enum class Kind : quint8
    {
        None,
        Person,
        Family
    };
    Kind kind = Kind::None;
    qint64 number = 0;

    bool operator==(const Record&) const = default;
    bool operator<(const Record& other) const { return kind == other.kind ? number < other.number : kind < other.kind; }
    bool isGiven() const { return kind != Kind::None; }
    bool isPerson() const { return kind == Kind::Person; }
};

inline Record recordOf(parish::PersonNumber number)
{
    return {Record::Kind::Person, value(number)};
}

inline Record recordOf(parish::FamilyNumber number)
{
    return {Record::Kind::Family, value(number)};
}

// What one thing of two records tells: "nome próprio", "Umbelina", "Ombelina", 8.1. Negative bits speak against.
struct Evidence
{
    QString field = {};
    QString one = {}, other = {}; // "" where it isn't a value of one record
    double bits = 0;

    bool operator==(const Evidence&) const = default;
};

// The best other record that may stand in the place of the one or of the other. Who may be the same as both is none.
struct RunnerUp
{
    Record record = {};
    bool ofOne = true; // it may be the same as `one`; otherwise as `other`
    double bits = 0;

    bool operator==(const RunnerUp&) const = default;
};

struct Link
{
    LinkKind kind = LinkKind::SamePerson;
    Record one = {}, other = {}; // of two of a sort the smaller number first; `other` may be none of a doubtful one
    double bits = 0;             // of a doubtful link: negative
    std::vector<Evidence> evidence = {}; // the strongest first; their sum is `bits`
    std::optional<RunnerUp> runnerUp = {};
    // Bits that it loses among the candidates of `one` as `other` has a better place elsewhere, and the other way
    // round.
    double takenForOne = 0, takenForOther = 0;

    bool operator==(const Link&) const = default;
    // What the candidates of one of the two are ordered by.
    double standingFor(const Record& record) const { return bits - (record == one ? takenForOne : takenForOther); }
    double aboveRunnerUp() const { return runnerUp ? bits - runnerUp->bits : bits; }
    // A doubtful one is always: the list of these is short, and there is no runner-up.
    bool isSuggested(const Model& model) const
    {
        const double least = kind == LinkKind::SameFamily ? model.suggestCouplesFrom : model.suggestFrom;
        return kind == LinkKind::Doubtful || (bits >= least && aboveRunnerUp() >= model.aboveRunnerUp);
    }
};

// Pairs of which the researcher has decided something: they never come again.
class ToldApart
{
public:
    void notTheSame(const Record& one, const Record& other) { pairs_.insert(std::minmax(one, other)); }
    bool has(const Record& one, const Record& other) const { return pairs_.contains(std::minmax(one, other)); }
    const std::set<std::pair<Record, Record>>& pairs() const { return pairs_; } // each in the order of its records
    bool operator==(const ToldApart&) const = default;

private:
    std::set<std::pair<Record, Record>> pairs_ = {};
};

// The parents that an act or a note names of somebody who has no family of origin in the BDP.
struct NamedParents
{
    parish::PersonNumber child = {};
    QString father = {}, mother = {};
    QString source = {}; // "acto nº 12", "observações"

    bool operator==(const NamedParents&) const = default;
};
// Of the acts (who was kept as a name) and of the notes of the people. Throws jet::Error.
std::vector<NamedParents> namedParents(jet::Connection& bdp);

// A husband or a wife whom an act or a note names, and who is nobody in the BDP.
struct NamedSpouse
{
    parish::PersonNumber person = {};
    QString name = {};
    QString source = {}; // "acto nº 12", "observações"

    bool operator==(const NamedSpouse&) const = default;
};
// Of the acts, and of the notes of people without a union. Throws jet::Error.
std::vector<NamedSpouse> namedSpouses(jet::Connection& bdp);

// How an act names somebody whom it was linked to, or their father, mother or spouse. Whom the act is about alone: who
// is baptised, marries or is buried by it.
struct NameInAct
{
    enum class Who : quint8
    {
        Self,
        Father,
        Mother,
        Spouse // of the deceased
    };
    enum class In : quint8
    {
        Baptism,
        Marriage,
        Burial
    };
    parish::PersonNumber person = {};
    Who of = Who::Self;
    In in = In::Baptism;
    QString name = {};
    qint64 act = 0;
    parish::PersonNumber marries = {}; // in a marriage: the other one; 0: nobody of the BDP

    bool operator==(const NameInAct&) const = default;
};
// Of all acts that the BDP keeps, but for names of which the transcriber doubts the reading. Throws jet::Error.
std::vector<NameInAct> namesInActs(jet::Connection& bdp);

struct Question
{
    ToldApart decided = {}; // who isn't the same, and which couple isn't the parents
    ToldApart right = {};   // doubtful links that are right: a person, and the family or none
    std::vector<NamedParents> named = {};
    std::vector<NamedSpouse> spouses = {};
    std::vector<NameInAct> inActs = {}; // by which links are doubted
    std::vector<Record> only = {};      // links with one of these alone, as after a decision; empty: all
    int threads = 2;                    // the links are the same whatever it is

    bool operator==(const Question&) const = default;
};

// All links of model.hideBelow bits and more, of each record and kind the best model.candidates by their standing for
// it, and the doubtful ones below 0; by kind, then the strongest first. Vetoed are other sexes, deaths before, ages out
// of reach, two exact births or deaths, two births of a mother within eight months, members of one family, and who was
// told apart: of two couples also where their husbands or their wives were, who are no evidence for their spouses any
// more. Who was told apart from the one of a pair stays a rival of the other. Throws Snapshot::Interrupted.
std::vector<Link> links(const parish::Snapshot& parish, const Model& model, const Question& question = {},
                        const parish::Snapshot::GoesOn& goesOn = {});

// Links that are one case for who decides: a couple doubled with husband, wife and the children doubled below them, or
// several records of one person, each two of them a link of `from` bits and more. Each holds indexes of `links`, the
// family first; the strongest case first.
struct Group
{
    std::vector<size_t> links = {};
    double bits = 0; // of its strongest link

    bool operator==(const Group&) const = default;
};
std::vector<Group> groups(const parish::Snapshot& parish, const std::vector<Link>& links,
                          double from = startModel().suggestFrom);

} // namespace study::linkage
