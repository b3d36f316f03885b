// Two people who are one.
#include "platform/jet/transaction.h"
#include "study/acts/register.h"
#include "study/linkage/marriages.h"
#include "study/linkage/merge_p.h"
#include "study/linkage/types.h"
#include "study/linkage/verdicts.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <utility>

namespace study::linkage {

namespace {

// As far as the links lead.
bool isAncestor(const Recording& recording, qint64 elder, qint64 younger)
{
    QSet<qint64> seen;
    QList<qint64> waiting{younger};
    while (!waiting.isEmpty()) {
        const auto row = firstRow(recording, "individuo", {{"nind", waiting.takeLast()}});
        if (!row || row->values["famorig"].isNull()) continue;
        for (const qint64 parent : membersOf(recording, row->values["famorig"].toInteger())) {
            if (parent == elder) return true;
            if (!seen.contains(parent)) waiting << parent;
            seen << parent;
        }
    }
    return false;
}

class PeopleMerge
{
public:
    PeopleMerge(jet::Connection& bdp, qint64 kept, qint64 other, const MergeChoices& choices)
        : moving_(bdp), recording_(moving_.recording), kept_(kept), other_(other), choices_(choices),
          marriages_(moving_, kept, other)
    {
        plan_.kept = moving_.person(kept);
        plan_.other = moving_.person(other);
        plan_.refusals = refusals();
        if (plan_.isPossible()) run();
    }
    PeopleMerge(const PeopleMerge&) = delete;
    PeopleMerge& operator=(const PeopleMerge&) = delete;

    const MergePlan& plan() const { return plan_; }
    qint64 keep()
    {
        return recording_.keep({.kind = DecisionKind::PeopleMerged,
                                .title = plan_.other + " é " + plan_.kept,
                                .reason = choices_.reason,
                                .kept = QString::number(kept_),
                                .other = QString::number(other_)});
    }

private:
    QStringList refusals()
    {
        if (kept_ == other_) return {"É a mesma pessoa."};
        for (const qint64 nind : {kept_, other_})
            if (!firstRow(recording_, "individuo", {{"nind", nind}}))
                return {QString("O indivíduo nº %1 não existe.").arg(nind)};
        QStringList all;
        for (const Row& row : recording_.rows("familias", {{"nind", other_}}))
            if (membersOf(recording_, row.values["nfamilia"].toInteger()).contains(kept_))
                all << "São marido e mulher na família nº " + QString::number(row.values["nfamilia"].toInteger()) + ".";
        if (notTheSame(moving_.bdp).contains(std::pair(std::min(kept_, other_), std::max(kept_, other_))))
            all << "Foi decidido que não são a mesma pessoa: essa decisão tem de ser desfeita primeiro.";
        if (isAncestor(recording_, kept_, other_)) all << plan_.other + " descende de " + plan_.kept + ".";
        if (isAncestor(recording_, other_, kept_)) all << plan_.kept + " descende de " + plan_.other + ".";
        return all;
    }

    void run()
    {
        following_ = familiesAround(recording_, {kept_, other_});
        following_.removeIf([this](qint64 family) { return !followsDates(recording_, family); });
        moving_.sides = choices_.sides;
        followBaptism();
        moving_.moveAll({Target::Person, QJsonValue(other_), {}}, QJsonValue(kept_));
        plan_.sentences = moving_.told(QString("o nº %1").arg(kept_));
        joinRows();
        findCouples();
        joinCouples();
        plan_.sentences += marriages_.ordered();
        for (const qint64 family : std::as_const(following_))
            if (const QString told = settleType(recording_, family); !told.isEmpty()) plan_.sentences << told;
        plan_.refusals += moving_.refusals;
        plan_.doubles = moving_.doubles;
        plan_.sentences += moving_.completed + moving_.twice;
        tellOfDraft();
        plan_.sentences << QString("A ficha do nº %1 deixa de existir.").arg(other_) << copyIsMade;
        plan_.mark = recording_.mark();
    }

    void followBaptism()
    {
        const auto one = firstRow(recording_, "individuo", {{"nind", kept_}});
        const auto two = firstRow(recording_, "individuo", {{"nind", other_}});
        moving_.followDay("b", {one->values["nind"], one->values["datanasc"]},
                          {two->values["nind"], two->values["datanasc"]},
                          valueOf(moving_.bdp, "individuo", "datanasc", one->values, two->values, choices_.sides));
    }

    // The act in work is the window's, which may have another state of it by now: nothing is altered there.
    void tellOfDraft()
    {
        const std::optional<ActDraft> draft = savedDraft(moving_.bdp);
        if (draft && std::ranges::any_of(draft->conclusions.people, [this](const Identity& one) {
                return one.kind == Identity::Kind::Known && one.nind == other_;
            }))
            plan_.sentences
                << QString("O acto em trabalho tem o nº %1: escolha lá o nº %2 em vez dele.").arg(other_).arg(kept_);
    }

    void joinRows()
    {
        const auto one = firstRow(recording_, "individuo", {{"nind", kept_}});
        const auto two = firstRow(recording_, "individuo", {{"nind", other_}});
        Joined row = joined(moving_.bdp, "individuo", one->values, two->values, choices_.sides);
        joinPersonTypes(row, moving_.bdp, one->values, two->values, choices_.sides);
        if (const QString told = getsWhatItLacked(QString("o nº %1").arg(kept_), row); !told.isEmpty())
            plan_.sentences << told;
        if (row.set.contains("tipo"))
            plan_.sentences << QString("O tipo do nº %1 passa de «%2» para «%3».")
                                   .arg(kept_)
                                   .arg(one->values["tipo"].toString(), row.set["tipo"].toString());
        plan_.differences = row.differences + moving_.differences;
        plan_.refusals += whyNotRead(row);
        const Origins origins{.kept = originOfPerson(kept_), .other = originOfPerson(other_)};
        const QString notes = notesOf(one->values, two->values, row, origins);
        if (const QString why = whyNoNotes(one->values, two->values, notes); !why.isEmpty()) plan_.refusals << why;
        if (notes != one->values["obs"].toString()) row.set.insert("obs", notes);
        recording_.set("individuo", one->place, row.set);
        recording_.remove("individuo", two->place);
    }

    // The families of the one couple go with the first of them.
    void findCouples()
    {
        QList<qint64> families;
        for (const Row& row : recording_.rows("familias", {{"nind", kept_}}))
            families << row.values["nfamilia"].toInteger();
        std::ranges::sort(families);
        for (const qint64 family : std::as_const(families)) {
            const QSet<qint64> members = membersOf(recording_, family);
            if (members.size() != 2) continue;
            const qint64 first =
                *std::ranges::find_if(families, [&](qint64 one) { return membersOf(recording_, one) == members; });
            if (first != family) addCouple(first, family);
        }
    }

    void addCouple(qint64 first, qint64 second)
    {
        SameCouple couple{.kept = first, .other = second};
        if (choices_.join.contains(std::pair(second, first))) std::swap(couple.kept, couple.other);
        couple.text = moving_.couple(couple.kept) + " e " + moving_.couple(couple.other);
        couple.refusals = joinRefusals(recording_, couple.kept, couple.other) +
                          toldApartRefusals(moving_.bdp, couple.kept, couple.other);
        if (couple.refusals.isEmpty()) { // as it would be; nothing of it is kept
            Moving trial = moving_;
            QList<qint64> following = following_;
            couple.differences = joinAsOne(trial, couple, couple.kept, couple.other, following);
        }
        plan_.couples << couple;
    }

    QList<Difference> joinAsOne(Moving& moving, const SameCouple& couple, qint64 kept, qint64 other,
                                QList<qint64>& following) const
    {
        const QString name = QString("familia.%1.%2.").arg(couple.kept).arg(couple.other);
        return prefixed(joinInto(moving, kept, other, sidesBelow(choices_.sides, name), following), name);
    }

    void joinCouples()
    {
        for (const auto& pair : choices_.join)
            if (std::ranges::none_of(plan_.couples, [&](const SameCouple& one) { return isOf(pair, one); }))
                plan_.refusals << "As duas famílias não têm o mesmo casal.";
        for (SameCouple& couple : plan_.couples)
            if (std::ranges::any_of(choices_.join, [&](const auto& pair) { return isOf(pair, couple); })) join(couple);
    }

    static bool isOf(const QPair<qint64, qint64>& pair, const SameCouple& couple)
    {
        return pair == std::pair(couple.kept, couple.other);
    }

    // Each of the two may be one with another by now.
    void join(SameCouple& couple)
    {
        const qint64 kept = joined_.value(couple.kept, couple.kept), other = joined_.value(couple.other, couple.other);
        const QStringList reasons = joinRefusals(recording_, kept, other);
        plan_.refusals += reasons;
        if (!reasons.isEmpty()) return;
        couple.differences = joinAsOne(moving_, couple, kept, other, following_);
        for (qint64& family : joined_)
            if (family == other) family = kept;
        joined_.insert(other, kept);
        plan_.sentences << moving_.told(QString("a família nº %1").arg(kept))
                        << QString("A família nº %1 deixa de existir.").arg(other);
    }

    Moving moving_;
    Recording& recording_;
    qint64 kept_, other_;
    MergeChoices choices_;
    MergePlan plan_;
    QList<qint64> following_; // families whose types nobody chose
    Marriages marriages_;
    QHash<qint64, qint64> joined_ = {}; // of families that have gone, those that they have become
};

} // namespace

MergePlan planMerge(jet::Connection& bdp, qint64 kept, qint64 other, const MergeChoices& choices)
{
    return PeopleMerge(bdp, kept, other, choices).plan();
}

qint64 mergePeople(jet::Connection& bdp, qint64 kept, qint64 other, const MergeChoices& choices)
{
    jet::Transaction transaction(bdp);
    PeopleMerge merge(bdp, kept, other, choices);
    checkPlan(merge.plan(), choices);
    const qint64 id = merge.keep();
    transaction.commit();
    return id;
}

} // namespace study::linkage
