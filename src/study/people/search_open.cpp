// Whether a couple can have had the child of an act, and which one alone can.
#include "study/acts/limits.h"
#include "study/parish/age.h"
#include "study/people/search.h"

#include <algorithm>
#include <cstdlib>

namespace study {

namespace {

constexpr int farOff = 3000; // in days, more than what "about" may have off it

// In years, between the first and the last child.
constexpr int longestSpan = limits::oldestBearing - limits::mother.youngest;

constexpr limits::Ages bearing{limits::mother.youngest, limits::oldestBearing};

bool isTooFar(QDate one, const DaySpan& days)
{
    return std::abs(completedYears(one, days.from)) > longestSpan ||
           std::abs(completedYears(one, days.to)) > longestSpan;
}

} // namespace

// On all the days that the date may mean; what is told "about" a spouse closes nothing within its tolerance.
bool Search::spousesAllowIt(const Family& family, const DaySpan& days)
{
    const auto allows = [&](qint64 nind, int daysDead, limits::Ages ages) {
        const Person* person = nind == 0 ? nullptr : kin_.person(nind);
        if (!person || (!person->is.birth.isValid() && !person->is.death.isValid())) return true;
        const AboutDates about = kin_.aboutDatesOf(*person);
        const DaySpan birth = around(person->is.birth, about.birth), death = around(person->is.death, about.death);
        if (death.isValid() && death.to.daysTo(days.to) > daysDead) return false;
        if (!birth.isValid()) return true;
        return completedYears(birth.from, days.from) >= ages.youngest &&
               completedYears(birth.to, days.to) <= ages.oldest;
    };
    return allows(family.husband, limits::posthumous, limits::father) &&
           allows(family.wife, limits::baptisedAfterMother, bearing);
}

// Twins have other names; a child of the same name may be the very one.
bool Search::childAllowsIt(const Child& child, const DaySpan& days)
{
    if (!child.birth.isValid()) return true;
    if (isTooFar(child.birth, days)) return false;
    const qint64 toFirst = child.birth.daysTo(days.from), toLast = child.birth.daysTo(days.to);
    if (toFirst >= farOff || toLast <= -farOff) return true;
    const Person* person = kin_.person(child.nind);
    const bool isNamed = person && !person->name.empty() && !born_.empty();
    const bool hasOtherName = isNamed && !shareClass(person->name.front(), born_.front());
    if (person && kin_.aboutDatesOf(*person).birth) {
        const DaySpan birth = around(child.birth, true);
        return hasOtherName || birth.to < days.from || birth.from > days.to;
    }
    if (toFirst > limits::nextChild || toLast < -limits::nextChild) return true;
    return hasOtherName && days.isOneDay() && std::abs(toFirst) <= limits::twins;
}

bool Search::isOpen(const Family& family)
{
    const DaySpan days = daysOf(act_.date);
    if (!days.isValid() || !spousesAllowIt(family, days)) return false;
    if (family.marriage.isValid() && isTooFar(family.marriage, days)) return false;
    return std::ranges::all_of(kin_.childrenOf(family), [&](const Child& child) { return childAllowsIt(child, days); });
}

NamesAgree Search::agreementWith(qint64 nind, const Sought& told)
{
    const Person* known = nind == 0 ? nullptr : kin_.person(nind);
    return known ? agreementOf(told.name, known->name) : NamesAgree::Partly;
}

std::optional<CoupleCandidate> Search::onlyCouple(int person)
{
    const int father = personWith(act_, Role::Father, person), mother = personWith(act_, Role::Mother, person);
    if (father < 0 || mother < 0) return {};
    if (act_.people[father].name.doubtful || act_.people[mother].name.doubtful) return {};
    const Sought husband = soughtIn(act_, father, conclusions_), wife = soughtIn(act_, mother, conclusions_);
    if (husband.name.empty() || wife.name.empty()) return {};
    born_ = codedName(nameOf(act_.people.at(person)));
    CoupleSearch search(index_, kin_, judge_);
    std::optional<CoupleFound> only;
    for (const CoupleFound& each : search.couplesOf(husband, 0, wife, 0)) {
        if (agreementWith(each.husband, husband) == NamesAgree::No) continue;
        if (agreementWith(each.wife, wife) == NamesAgree::No) continue;
        const Family* family = kin_.family(each.family);
        if (!family || !isOpen(*family)) continue;
        if (only) return {};
        only = each;
    }
    if (!only || !search.all()) return {};
    const NamesAgree his = agreementWith(only->husband, husband), hers = agreementWith(only->wife, wife);
    if (his == NamesAgree::Partly || hers == NamesAgree::Partly) return {};
    if (his != NamesAgree::Yes && hers != NamesAgree::Yes) return {};
    CoupleCandidate found = couple(*only, husband, wife, person);
    if (!found.against.isEmpty()) return {};
    return found;
}

} // namespace study
