#include "study/transcripts/import.h"

#include "platform/jet/transaction.h"
#include "study/acts/sheet.h"
#include "study/acts/writer.h"
#include "study/people/finder.h"
#include "study/transcripts/importKnown.h"
#include "study/transcripts/importMeanings.h"
#include "study/transcripts/importSources.h"
#include "study/transcripts/sexByName.h"

#include <algorithm>

namespace study {

namespace {

constexpr qsizetype mostExamples = 10;
constexpr auto storedAlone = "A importação guardou só o acto.";

ImportReport nothingOf(const Transcript& transcript)
{
    ImportReport report;
    report.acts = static_cast<int>(transcript.acts.size());
    report.problems = transcript.problems;
    report.unknownParts = transcript.unknownParts;
    report.encoding = transcript.encoding;
    return report;
}

// Stores the acts of one transcript, within a transaction of the caller.
class Import
{
public:
    Import(jet::Connection& bdp, const Transcript& transcript, const ImportOptions& options)
        : bdp_(bdp), transcript_(transcript), options_(options), known_(bdp), meanings_(bdp, options), finder_(bdp),
          report_(nothingOf(transcript))
    {
    }

    // False where it was cancelled.
    bool run(const ImportProgress& progress)
    {
        const auto all = static_cast<int>(transcript_.acts.size());
        for (int done = 0; done < all; ++done) {
            if (progress && !progress(done, all)) return false;
            take(transcript_.acts[done]);
        }
        report_.books = keepSources(bdp_, transcript_.sources);
        return !progress || progress(all, all);
    }

    ImportReport& report() { return report_; }

private:
    void take(const TranscribedAct& one)
    {
        const Act& act = one.act;
        if (known_.has(act)) return leave(one, act);
        Conclusions conclusions;
        ImportReport words; // counted when the act is stored
        meanings_.conclude(act, conclusions, words);
        concludePeople(act, conclusions);
        const int sexes = concludeSexes(act, conclusions);
        if (const QStringList why = store(act, conclusions); !why.isEmpty()) {
            const bool isAlone = cardsRefuse_ && storeAlone(act, conclusions);
            (isAlone ? report_.alone : report_.left) << tellingOf(one, act, why);
            return;
        }
        report_.sexesByName += sexes;
        for (auto place = words.unplaced.constBegin(); place != words.unplaced.constEnd(); ++place)
            report_.unplaced[place.key()] += *place;
        for (auto name = words.unknownProfessions.constBegin(); name != words.unknownProfessions.constEnd(); ++name)
            report_.unknownProfessions[name.key()] += *name;
    }

    // The sex of new people where the name alone tells it. Returns how many.
    static int concludeSexes(const Act& act, Conclusions& conclusions)
    {
        int sexes = 0;
        for (int i = 0; i < act.people.size(); ++i) {
            Identity& identity = conclusions.people[i];
            const ActPerson& one = act.people[i];
            if (identity.kind != Identity::Kind::New || one.toldSex || one.name.doubtful) continue;
            if (sexOf(act, i) != Sex::Unknown) continue;
            const Sex sex = sexByName(one.name.value);
            if (sex == Sex::Unknown) continue;
            identity.sex = sex;
            identity.reason = sexFromName;
            ++sexes;
        }
        return sexes;
    }

    static LeftAct tellingOf(const TranscribedAct& one, const Act& act, const QStringList& reasons)
    {
        const QString names = KnownActs::lineOf(act).subjects;
        return {one.line, names.isEmpty() ? reference(act) : reference(act) + ": " + names, reasons};
    }

    void leave(const TranscribedAct& one, const Act& act)
    {
        report_.left << tellingOf(one, act, {"Já está transcrito na BDP."});
        report_.left.last().there = true;
    }

    void concludePeople(const Act& act, Conclusions& conclusions)
    {
        conclusions.people.reserve(act.people.size());
        const QList<int> about = subjects(act);
        for (int person = 0; person < act.people.size(); ++person) {
            const bool isKept =
                !about.contains(person) &&
                ((act.people[person].role == Role::Celebrant && !options_.newPriests) || isNobody(act, person));
            conclusions.people << Identity{.kind = isKept ? Identity::Kind::Kept : Identity::Kind::New};
        }
        if (options_.rule == LinkRule::CouplesWithOpenSpan && act.kind == ActKind::Baptism)
            linkParents(act, conclusions);
    }

    // Exactly one couple of the BDP can have had the child.
    void linkParents(const Act& act, Conclusions& conclusions)
    {
        for (const int child : peopleWith(act, Role::Child)) {
            const int father = personWith(act, Role::Father, child);
            const int mother = personWith(act, Role::Mother, child);
            if (father < 0 || mother < 0) continue;
            const auto isOpen = [&](int person) { return conclusions.people[person].kind == Identity::Kind::New; };
            if (!isOpen(father) || !isOpen(mother)) continue;
            const auto couple = finder_.onlyCouple(act, child, conclusions);
            if (!couple) continue;
            const QString reason = "Pai e mãe juntos: família " + QString::number(couple->nfamilia);
            conclusions.people[father] = {Identity::Kind::Known, couple->husband, reason};
            conclusions.people[mother] = {Identity::Kind::Known, couple->wife, reason};
        }
    }

    // Nothing where it was stored, or why not.
    QStringList store(const Act& act, Conclusions& conclusions)
    {
        cardsRefuse_ = false;
        try {
            count(act, conclusions, storeAct(bdp_, act, conclusions));
            return {};
        } catch (const Refused& refused) {
            cardsRefuse_ = hasHard(refused.objections);
            if (overrule(refused.objections, conclusions)) return storeOverruled(act, conclusions);
            return textsOf(refused.objections);
        }
    }

    QStringList storeOverruled(const Act& act, const Conclusions& conclusions)
    {
        try {
            count(act, conclusions, storeAct(bdp_, act, conclusions));
            return {};
        } catch (const Refused& refused) {
            return textsOf(refused.objections);
        }
    }

    // What the cards can't take at all is stored without cards: everybody stays in the act. False where even so
    // something speaks against it that only the user may overrule.
    bool storeAlone(const Act& act, Conclusions& conclusions)
    {
        for (Identity& identity : conclusions.people)
            identity = {.kind = Identity::Kind::Kept};
        conclusions.places.removeIf([](const auto& place) { return place->code.isEmpty(); });
        conclusions.professions.removeIf([](const auto& profession) { return *profession == 0; });
        try {
            count(act, conclusions, storeAct(bdp_, act, conclusions));
            return true;
        } catch (const Refused& refused) {
            return overruleAlone(refused.objections, conclusions) && storeOverruled(act, conclusions).isEmpty();
        }
    }

    // Behind the rule stand a mark of what it says and whom it concerns.
    static QString ruleOf(const Objection& objection) { return objection.id.section(':', 0, 0).section('/', 0, 0); }

    bool overruleAlone(const QList<Objection>& objections, Conclusions& conclusions) const
    {
        static const QStringList ofTheCards{"data-impossivel", "sem-data", "sem-sujeito"};
        for (const Objection& objection : objections) {
            const bool isOfTheCards = ofTheCards.contains(ruleOf(objection));
            if (objection.hard || (!isOfTheCards && options_.overruling.trimmed().isEmpty())) return false;
            conclusions.overruled.insert(objection.id, isOfTheCards ? storedAlone : options_.overruling);
        }
        return true;
    }

    static bool hasHard(const QList<Objection>& objections)
    {
        return std::any_of(objections.begin(), objections.end(), [](const Objection& one) { return one.hard; });
    }

    // Whether the user's reason overrules them all.
    bool overrule(const QList<Objection>& objections, Conclusions& conclusions) const
    {
        if (options_.overruling.trimmed().isEmpty()) return false;
        for (const Objection& objection : objections) {
            if (objection.hard) return false;
            conclusions.overruled.insert(objection.id, options_.overruling);
        }
        return true;
    }

    static QStringList textsOf(const QList<Objection>& objections)
    {
        QStringList texts;
        texts.reserve(objections.size());
        for (const Objection& objection : objections)
            texts << objection.text;
        return texts;
    }

    void count(const Act& act, const Conclusions& conclusions, const Stored& stored)
    {
        ++report_.stored[act.kind];
        for (const Identity& identity : conclusions.people) {
            report_.newPeople += identity.kind == Identity::Kind::New ? 1 : 0;
            report_.knownPeople += identity.kind == Identity::Kind::Known ? 1 : 0;
            report_.keptNames += identity.kind == Identity::Kind::Kept ? 1 : 0;
        }
        for (const int child : peopleWith(act, Role::Child)) {
            const int father = personWith(act, Role::Father, child);
            if (father >= 0 && conclusions.people[father].kind == Identity::Kind::Known) ++report_.linkedCouples;
        }
        for (const RowChange& row : stored.plan.rows) {
            ++report_.rows[row.table];
            if (row.table == "familia" && row.before.isEmpty()) ++report_.newFamilies;
        }
        for (const QString& sentence : stored.plan.sentences)
            if (report_.examples.size() < mostExamples) report_.examples << sentence;
        for (const QString& what : stored.plan.leftOut)
            ++report_.leftOut[kindOfWhatIsLeft(what)];
        meanings_.stored(conclusions);
        if (options_.rule != LinkRule::Nothing) finder_.update();
    }

    // "nº 85 Domingos Luís: título «Doutor»." is a title.
    static QString kindOfWhatIsLeft(const QString& text)
    {
        const qsizetype value = text.indexOf(u'«');
        QString kind = (value < 0 ? text : text.left(value)).trimmed();
        const qsizetype colon = kind.lastIndexOf(": ");
        if (kind.startsWith("Lugar da cerimónia")) return "Lugar da cerimónia";
        if (colon >= 0) kind = kind.mid(colon + 2);
        while (kind.endsWith('.') || kind.endsWith(':'))
            kind.chop(1);
        return kind;
    }

    jet::Connection& bdp_;
    const Transcript& transcript_;
    const ImportOptions& options_;
    KnownActs known_;
    Meanings meanings_;
    Finder finder_;
    ImportReport report_;
    bool cardsRefuse_ = false; // the act that was tried last, whatever the user says
};

ImportReport cancelledOf(const Transcript& transcript)
{
    ImportReport report = nothingOf(transcript);
    report.cancelled = true;
    return report;
}

} // namespace

ImportReport importActs(jet::Connection& bdp, const Transcript& transcript, const ImportOptions& options,
                        const ImportProgress& progress)
{
    if (transcript.isDamaged()) return nothingOf(transcript);
    jet::Transaction transaction(bdp);
    Import import(bdp, transcript, options);
    if (!import.run(progress)) return cancelledOf(transcript);
    transaction.commit();
    return import.report();
}

} // namespace study
