#include "study/people/search.h"

#include <algorithm>
#include <functional>
#include <unordered_set>

namespace study {

namespace {

// Of those found by their names alone, the best ones are looked at whole: more of them where the act tells something
// beside names that may set one before the other.
constexpr int lookedAtWhole = 150;
constexpr int lookedAtForEachShown = 4;
constexpr double impossibleAtAGlance = 50; // negative bits: behind all who are possible, and so are those who follow

int toBeLookedAt(const Sought& sought, int limit)
{
    const bool tellsMore = sought.age || !sought.residence.isEmpty() || !sought.profession.isEmpty() ||
                           !sought.title.isEmpty() || !sought.nickname.isEmpty();
    return tellsMore ? std::max(lookedAtWhole, limit) : std::min(limit, lookedAtWhole) * lookedAtForEachShown;
}

} // namespace

Sought Search::sought(int person)
{
    Sought one = soughtIn(act_, person, conclusions_);
    Gatherer(index_).complete(one);
    return one;
}

void Search::addPerson(qint64 nind, std::vector<const Person*>& people)
{
    if (nind == 0) return;
    if (const Person* person = kin_.person(nind)) people.push_back(person);
}

std::vector<const Person*> Search::peopleByName(const Sought& sought)
{
    std::vector<const Person*> people;
    for (const qint64 row : Gatherer(index_).gather(sought).rows)
        if (const Person* person = kin_.personAt(row)) people.push_back(person);
    return people;
}

void Search::addKinOf(const Relative& relative, const Sought& sought, std::vector<const Person*>& people)
{
    const Person* known = kin_.person(relative.nind);
    if (!known) return;
    if (relative.kind == Relative::Kind::Child) {
        const Family* origin = kin_.family(known->is.family);
        if (origin) addPerson(sought.sex == Sex::Female ? origin->wife : origin->husband, people);
        return;
    }
    for (const qint64 number : kin_.familiesOf(*known)) {
        const Family* family = kin_.family(number);
        if (!family) continue;
        if (relative.kind == Relative::Kind::Spouse) {
            addPerson(otherSpouse(*family, known->is.nind), people);
            continue;
        }
        for (const Child& child : kin_.childrenOf(*family))
            addPerson(child.nind, people);
    }
}

// The couple is looked for by both names.
void Search::addSpouses(const Sought& one, std::vector<const Person*>& people)
{
    for (const Relative& relative : one.relatives) {
        if (relative.kind != Relative::Kind::Spouse || relative.nind > 0 || relative.name.empty()) continue;
        const Sought other = soughtIn(act_, relative.person, conclusions_);
        const bool isWife = one.sex == Sex::Female || other.sex == Sex::Male;
        CoupleSearch search(index_, kin_, judge_);
        for (const CoupleFound& found :
             isWife ? search.couplesOf(other, 0, one, 0) : search.couplesOf(one, 0, other, 0))
            addPerson(isWife ? found.wife : found.husband, people);
    }
}

// Who has the first name among the children of the couples that the parents may be.
void Search::addChildren(const Sought& one, std::vector<const Person*>& people)
{
    const Relative* father = one.relative(Relative::Kind::Father);
    const Relative* mother = one.relative(Relative::Kind::Mother);
    if (!father || !mother || (father->nind > 0 && mother->nind > 0)) return;
    CoupleSearch search(index_, kin_, judge_);
    static constexpr size_t mostCouples = 50;
    std::vector<CoupleFound> parents = search.couplesOf(soughtIn(act_, father->person, conclusions_), father->nind,
                                                        soughtIn(act_, mother->person, conclusions_), mother->nind);
    parents.resize(std::min(parents.size(), mostCouples));
    for (const CoupleFound& found : parents)
        if (const Family* family = kin_.family(found.family))
            for (const Child& child : kin_.childrenOf(*family))
                addPerson(child.nind, people);
}

std::vector<const Person*> Search::peopleByKin(const Sought& sought)
{
    std::vector<const Person*> people;
    for (const Relative& relative : sought.relatives)
        if (relative.nind > 0) addKinOf(relative, sought, people);
    addSpouses(sought, people);
    addChildren(sought, people);
    // Brothers and sisters have the same parents, and other names.
    std::erase_if(people, [&](const Person* person) {
        const bool named = !sought.name.empty() && !person->name.empty();
        return named && !sought.relative(Relative::Kind::Child) && !judge_.firstNamesAgree(sought.name, person->name);
    });
    return people;
}

// By name, the best ones are looked at whole, and more of them as long as their lives show that they can't be meant;
// those found by their kin all are.
std::vector<Search::Judged> Search::judged(const Sought& sought, int limit)
{
    std::vector<std::pair<double, const Person*>> byName;
    for (const Person* person : peopleByName(sought))
        byName.emplace_back(-judge_.atAGlance(sought, *person), person);
    std::ranges::stable_sort(byName, {}, &std::pair<double, const Person*>::first);
    std::unordered_set<qint64> seen;
    std::vector<Judged> all;
    for (const Person* person : peopleByKin(sought))
        if (seen.insert(person->is.nind).second) all.push_back({person, judge_.whole(sought, *person)});
    const int wanted = toBeLookedAt(sought, limit);
    int possible = 0;
    for (const auto& [bits, person] : byName) {
        if (possible == wanted) break;
        if (!seen.insert(person->is.nind).second) continue;
        all.push_back({person, judge_.whole(sought, *person)});
        if (!all.back().evidence.impossible || bits > impossibleAtAGlance) ++possible;
    }
    return all;
}

// Others of that first name are of use where there are few; the impossible where they bear the very name, or are kin.
bool Search::isWorthShowing(const Sought& sought, const Judged& one)
{
    if (one.evidence.related) return true;
    const CodedName& name = one.person->name;
    if (!sought.name.empty() && !judge_.firstNamesAgree(sought.name, name)) return false;
    return !one.evidence.impossible || (sought.name.size() > 1 && isSameName(sought.name, name));
}

QList<Candidate> Search::candidates(int person, int limit)
{
    const Sought one = sought(person);
    std::vector<Judged> all = judged(one, limit);
    std::erase_if(all, [&](const Judged& each) { return !isWorthShowing(one, each); });
    std::ranges::sort(all, [](const Judged& a, const Judged& b) {
        return std::pair(-a.evidence.bits, a.person->is.nind) < std::pair(-b.evidence.bits, b.person->is.nind);
    });
    QList<Candidate> found;
    for (const Judged& each : all) {
        if (found.size() == limit) break;
        found << candidate(each);
    }
    return found;
}

QList<CoupleCandidate> Search::couples(int person, int limit)
{
    const auto of = [&](Role role) { return personWith(act_, role, person); };
    const int father = of(Role::Father), mother = of(Role::Mother);
    const auto known = [&](int who) {
        return who >= 0 && who < conclusions_.people.size() && conclusions_.people[who].kind == Identity::Kind::Known
                   ? conclusions_.people[who].nind
                   : 0;
    };
    const Sought husband = father >= 0 ? sought(father) : Sought{};
    const Sought wife = mother >= 0 ? sought(mother) : Sought{};
    QList<CoupleCandidate> found;
    for (const CoupleFound& each :
         CoupleSearch(index_, kin_, judge_).couplesOf(husband, known(father), wife, known(mother)))
        found << couple(each, husband, wife, person);
    std::ranges::stable_sort(found, std::greater(), &CoupleCandidate::score);
    return found.mid(0, limit);
}

} // namespace study
