#include "study/linkage/candidates.h"

#include "study/linkage/linker.h"

#include <algorithm>
#include <numeric>
#include <tuple>
#include <utility>

namespace study::linkage {

namespace {

// The shape of two records of one person.
LinkKind kindOf(const parish::Person& one, const parish::Person& other)
{
    const auto buriedAlone = [](const parish::Person& a, const parish::Person& b) {
        return a.death.isKnown() && !a.birth.isKnown() && b.birth.isKnown() && !b.death.isKnown();
    };
    const auto marriedAlone = [](const parish::Person& a, const parish::Person& b) {
        return !a.unions.empty() && !a.origin && b.origin && b.birth.isKnown();
    };
    if (buriedAlone(one, other) || buriedAlone(other, one)) return LinkKind::MissingBirth;
    return marriedAlone(one, other) || marriedAlone(other, one) ? LinkKind::MissingOrigin : LinkKind::SamePerson;
}

// A name, and the days of acts: of such records a common name has many, and they shall not crowd out the others.
bool isOnlyNamed(const parish::Person& person)
{
    return !person.birth.isKnown() && !person.origin && !person.ageAtDeath && person.unions.empty();
}

void round(Link& link)
{
    link.bits = std::accumulate(link.evidence.begin(), link.evidence.end(), 0.0,
                                [](double sum, const Evidence& evidence) { return sum + evidence.bits; });
}

} // namespace

Linker::Linker(const parish::Snapshot& parish, const Model& model, const Question& question,
               const parish::Snapshot::GoesOn& goesOn)
    : parish_(parish), model_(model), question_(question), goesOn_(goesOn),
      faces_(parish, question.named, question.spouses), comparer_(faces_, model)
{
}

Record Linker::coupleAt(uint32_t index) const
{
    return recordOf(faces_.couples()[index].family->number);
}

Record Linker::personAt(uint32_t index) const
{
    return recordOf(faces_.people()[index].person->number);
}

Linker::Scores Linker::scores(const Touched& couples, const Touched& people)
{
    static constexpr double shareOfCouples = 0.2; // of the time
    const Scorer scorer(faces_, comparer_, model_.hideBelow, question_.threads);
    const auto part = [this](double from, double share) -> parish::Snapshot::GoesOn {
        if (!goesOn_) return {};
        return [this, from, share](double done) { return goesOn_(begun_ + share_ * (from + share * done)); };
    };
    Scores scores;
    scores.couples = scorer.couples(couples, part(0, shareOfCouples));
    scores.people = scorer.people(people, part(shareOfCouples, 1 - shareOfCouples));
    leaveOutDecided(scores);
    addSpouses(scores);
    return scores;
}

void Linker::leaveOutDecided(Scores& scores) const
{
    if (question_.decided.pairs().empty()) return;
    const auto& couples = faces_.couples();
    const auto& people = faces_.people();
    std::erase_if(scores.couples,
                  [&](const Score& score) { return areToldApart(couples[score.one], couples[score.other]); });
    std::erase_if(scores.people, [&](Score& score) {
        const Face &one = people[score.one], &other = people[score.other];
        if (areToldApart(one, other)) return true;
        if (areSpousesToldApart(one, other)) score.bits = compared(one, other).bits;
        return score.bits < model_.hideBelow;
    });
}

bool Linker::areToldApart(const Face& one, const Face& other) const
{
    return question_.decided.has(recordOf(one.person->number), recordOf(other.person->number));
}

// Two couples are no more one than their husbands and their wives are.
bool Linker::areToldApart(const CoupleFace& one, const CoupleFace& other) const
{
    return question_.decided.has(recordOf(one.family->number), recordOf(other.family->number)) ||
           (one.husband && other.husband && areToldApart(*one.husband, *other.husband)) ||
           (one.wife && other.wife && areToldApart(*one.wife, *other.wife));
}

// Whether no spouse of the one can be a spouse of the other, as somebody has said so.
bool Linker::areSpousesToldApart(const Face& one, const Face& other) const
{
    if (question_.decided.pairs().empty()) return false;
    bool found = false;
    for (const parish::Membership* own : one.person->unions)
        for (const parish::Membership* theirs : other.person->unions) {
            const parish::Person* mine = own->family ? parish::spouseOf(*one.person, *own->family) : nullptr;
            const parish::Person* their = theirs->family ? parish::spouseOf(*other.person, *theirs->family) : nullptr;
            if (!mine || !their) continue;
            if (!question_.decided.has(recordOf(mine->number), recordOf(their->number))) return false;
            found = true;
        }
    return found;
}

Comparison Linker::compared(const Face& one, const Face& other) const
{
    Comparison comparison;
    comparer_.compare(one, other, comparison);
    if (!comparison.vetoed && areSpousesToldApart(one, other))
        std::erase_if(comparison.signs, [&](const Sign& sign) {
            if (sign.field != Field::Spouse && sign.field != Field::SpouseSurnames) return false;
            comparison.bits -= sign.bits;
            return true;
        });
    return comparison;
}

Comparison Linker::compared(const CoupleFace& one, const CoupleFace& other) const
{
    Comparison comparison;
    comparer_.compare(one, other, comparison);
    return comparison;
}

// Where two families are one couple, so are their husbands and their wives: each pair has the bits of the couple.
void Linker::addSpouses(Scores& scores) const
{
    std::vector<Score> added;
    const Face* first = faces_.people().data();
    for (size_t i = 0; i < scores.couples.size(); ++i) {
        const CoupleFace& one = faces_.couples()[scores.couples[i].one];
        const CoupleFace& other = faces_.couples()[scores.couples[i].other];
        const auto addPair = [&](const Face* a, const Face* b) {
            if (!a || !b || a == b) return;
            const auto [less, more] = std::minmax({uint32_t(a - first), uint32_t(b - first)});
            if (!question_.decided.has(personAt(less), personAt(more)))
                added.push_back({less, more, scores.couples[i].bits, int(i)});
        };
        addPair(one.husband, other.husband);
        addPair(one.wife, other.wife);
    }
    std::vector<Score>& people = scores.people;
    people.insert(people.end(), added.begin(), added.end());
    std::ranges::sort(people, [](const Score& a, const Score& b) {
        return std::tuple(a.one, a.other, -a.bits, a.couple) < std::tuple(b.one, b.other, -b.bits, b.couple);
    });
    const auto same = [](const Score& a, const Score& b) { return a.one == b.one && a.other == b.other; };
    people.erase(std::unique(people.begin(), people.end(), same), people.end());
}

// The records that are asked for; a person with their families, a family with its couple.
void Linker::touch(Touched& couples, Touched& people) const
{
    const auto person = [&](const parish::Person* one) {
        if (one) people[size_t(one - parish_.people().data())] = true;
    };
    const auto family = [&](const parish::Family* one) {
        if (one) couples[size_t(one - parish_.families().data())] = true;
    };
    for (const Record& record : question_.only) {
        if (record.isPerson()) {
            const parish::Person* one = parish_.person(parish::PersonNumber(record.number));
            person(one);
            for (const parish::Membership* own : one ? one->unions : std::vector<const parish::Membership*>{})
                family(own->family);
        } else if (const parish::Family* one = parish_.family(parish::FamilyNumber(record.number))) {
            family(one);
            person(one->husband);
            person(one->wife);
        }
    }
}

// For their runners-up all pairs of both are needed.
void Linker::addNeighbours(const Scores& scores, Touched& couples, Touched& people) const
{
    const auto mark = [](const std::vector<Score>& all, Touched& to) {
        for (const Score& score : all)
            to[score.one] = to[score.other] = true;
    };
    mark(scores.couples, couples);
    mark(scores.people, people);
}

bool Linker::isAsked(const Link& link) const
{
    return question_.only.empty() || std::ranges::count(question_.only, link.one) > 0 ||
           std::ranges::count(question_.only, link.other) > 0;
}

void Linker::add(Link link)
{
    if (isAsked(link)) links_.push_back(std::move(link));
}

template <class Face>
std::optional<double> Linker::bitsOf(const Face& one, const Face& other) const
{
    if (areToldApart(one, other)) return {};
    const Comparison comparison = compared(one, other);
    return comparison.vetoed ? std::nullopt : std::optional(comparison.bits);
}

// Now and then, behind the scores.
void Linker::ask(size_t number) const
{
    static constexpr size_t between = 1024;
    if (number % between == 0 && goesOn_ && !goesOn_(begun_ + share_)) throw parish::Snapshot::Interrupted{};
}

void Linker::addCouples(const Scores& scores)
{
    const size_t records = faces_.couples().size();
    const Rivals rivals(scores.couples, records, [this](uint32_t one, uint32_t other) {
        return bitsOf(faces_.couples()[one], faces_.couples()[other]);
    });
    const auto ofOneKind = [](const Score&) { return 0; };
    const auto asking = [this, number = size_t(0)]() mutable { ask(number++); };
    for (const Score& score : rivals.bestOfEach(model_.candidates, ofOneKind, asking)) {
        const CoupleFace &one = faces_.couples()[score.one], &other = faces_.couples()[score.other];
        const Comparison comparison = compared(one, other);
        Link link{.kind = LinkKind::SameFamily, .one = coupleAt(score.one), .other = coupleAt(score.other)};
        link.evidence = comparer_.evidence(comparison, one, other);
        round(link);
        if (const auto rival = rivals.of(score))
            link.runnerUp = RunnerUp{coupleAt(rival->record), rival->ofOne, rival->bits};
        link.takenForOne = rivals.taken(score, score.one);
        link.takenForOther = rivals.taken(score, score.other);
        add(std::move(link));
    }
}

std::vector<Evidence> Linker::evidenceOf(const Score& score, const Scores& scores) const
{
    if (score.couple >= 0) {
        const Score& couple = scores.couples[size_t(score.couple)];
        const CoupleFace &one = faces_.couples()[couple.one], &other = faces_.couples()[couple.other];
        return comparer_.evidence(compared(one, other), one, other);
    }
    const Face &one = faces_.people()[score.one], &other = faces_.people()[score.other];
    return comparer_.evidence(compared(one, other), one, other);
}

void Linker::addPeople(const Scores& scores)
{
    const size_t records = faces_.people().size();
    const Rivals rivals(scores.people, records, [this](uint32_t one, uint32_t other) {
        return bitsOf(faces_.people()[one], faces_.people()[other]);
    });
    const auto kindOfScore = [this](const Score& score) {
        const parish::Person &one = *faces_.people()[score.one].person, &other = *faces_.people()[score.other].person;
        return 2 * int(kindOf(one, other)) + int(isOnlyNamed(one) || isOnlyNamed(other));
    };
    const auto asking = [this, number = size_t(0)]() mutable { ask(number++); };
    for (const Score& score : rivals.bestOfEach(model_.candidates, kindOfScore, asking)) {
        const Face &one = faces_.people()[score.one], &other = faces_.people()[score.other];
        Link link{.kind = kindOf(*one.person, *other.person),
                  .one = personAt(score.one),
                  .other = personAt(score.other),
                  .evidence = evidenceOf(score, scores)};
        round(link);
        if (const auto rival = rivals.of(score))
            link.runnerUp = RunnerUp{personAt(rival->record), rival->ofOne, rival->bits};
        link.takenForOne = rivals.taken(score, score.one);
        link.takenForOther = rivals.taken(score, score.other);
        add(std::move(link));
    }
}

std::vector<Link> Linker::links()
{
    static constexpr double shareOfScores = 0.8; // of the time
    Touched couples, people;
    share_ = shareOfScores;
    if (!question_.only.empty()) {
        share_ = shareOfScores / 2; // for each of the two rounds
        couples.assign(faces_.couples().size(), false);
        people.assign(faces_.people().size(), false);
        touch(couples, people);
        addNeighbours(scores(couples, people), couples, people);
        begun_ = share_;
    }
    {
        const Scores found = scores(couples, people);
        addCouples(found);
        addPeople(found);
    }
    addNamed();
    addDoubtful();
    std::ranges::sort(links_, [](const Link& a, const Link& b) {
        const double ours = a.kind == LinkKind::Doubtful ? a.bits : -a.bits;
        const double theirs = b.kind == LinkKind::Doubtful ? b.bits : -b.bits;
        return std::tie(a.kind, ours, a.one, a.other) < std::tie(b.kind, theirs, b.one, b.other);
    });
    return std::move(links_);
}

std::vector<Link> links(const parish::Snapshot& parish, const Model& model, const Question& question,
                        const parish::Snapshot::GoesOn& goesOn)
{
    return Linker(parish, model, question, goesOn).links();
}

} // namespace study::linkage
