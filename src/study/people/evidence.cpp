#include "study/people/evidence.h"

#include "study/names/weights.h"
#include "study/parish/age.h"
#include "study/people/dates.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>

namespace study {

namespace {

// How often each thing agrees where two records tell of the same person.
namespace same {
constexpr double firstName = 0.95;
constexpr double surnameOfMan = 0.80;
constexpr double surnameOfWoman = 0.55;
constexpr double surname = 0.70; // of whom the sex isn't known
constexpr double devotional = 0.40;
} // namespace same

constexpr double ofAnotherPlace = 0.5; // where the first name stands further behind in the other one
constexpr double eachOtherWord = -0.5; // that both have beside one that agrees
constexpr double devotionalDisagrees = -0.3;
constexpr double wholeName = 0.25; // word for word
constexpr double ofAnother = -100; // behind all who are possible

double bits(double forTheSame, double byChance)
{
    return std::log2(forTheSame / byChance);
}

double againstBits(double forTheSame, double byChance)
{
    return std::log2((1 - forTheSame) / (1 - byChance));
}

double surnameOf(Sex sex)
{
    return sex == Sex::Male ? same::surnameOfMan : sex == Sex::Female ? same::surnameOfWoman : same::surname;
}

bool allDevotional(const CodedName& name)
{
    return std::all_of(name.begin() + 1, name.end(), [](const CodedWord& word) { return word.devotional; });
}

} // namespace

double Judge::share(WordCode word)
{
    static constexpr double most = 0.9;
    return std::min(most, double(index_.countOf(word) + 1) / double(index_.people() + 1));
}

std::optional<double> Judge::wordBits(const CodedWord& sought, const CodedWord& candidate, double agreesForTheSame)
{
    const bool several = (sought.classes.size() > 1 && !sought.inPart) || candidate.classes.size() > 1;
    const double weight = several ? spelling::ofSeveralReadings : 1;
    if (sought.exact == candidate.exact || shareClass(sought, candidate)) {
        const double degree = sought.exact == candidate.exact ? 1 : spelling::ofOneClass;
        return weight * bits(agreesForTheSame * degree, share(candidate.classes.front()));
    }
    if ((sought.known && candidate.known) || likeness(sought.key, candidate.key) < spelling::likeEnough) return {};
    return bits(agreesForTheSame * spelling::likened,
                std::max(share(candidate.classes.front()), share(sought.classes.front())));
}

double Judge::firstNameBits(const CodedName& sought, const CodedName& candidate)
{
    if (const auto agree = wordBits(sought.front(), candidate.front(), same::firstName)) return *agree;
    for (const CodedWord& word : candidate)
        if (const auto agree = wordBits(sought.front(), word, same::firstName)) return ofAnotherPlace * *agree;
    return againstBits(same::firstName, share(sought.front().classes.front()));
}

bool Judge::firstNamesAgree(const CodedName& sought, const CodedName& candidate)
{
    return std::ranges::any_of(
        candidate, [&](const CodedWord& word) { return wordBits(sought.front(), word, same::firstName).has_value(); });
}

double Judge::otherNamesBits(const CodedName& sought, const CodedName& candidate, Sex sex)
{
    if (sought.size() < 2 || candidate.size() < 2) return 0;
    std::vector<bool> taken(candidate.size());
    double sum = 0;
    int agreeing = 0;
    for (size_t i = 1; i < sought.size(); ++i) {
        const double forTheSame = sought[i].devotional ? same::devotional : surnameOf(sex);
        for (size_t j = 1; j < candidate.size(); ++j) {
            if (taken[j]) continue;
            const auto agree = wordBits(sought[i], candidate[j], forTheSame);
            if (!agree) continue;
            taken[j] = true;
            ++agreeing;
            sum += sought[i].devotional ? std::max(0.0, *agree) / 2 : *agree;
            break;
        }
    }
    const auto others = int(std::min(sought.size(), candidate.size())) - 1 - agreeing;
    if (agreeing > 0) return sum + others * eachOtherWord;
    if (allDevotional(sought) || allDevotional(candidate)) return devotionalDisagrees;
    return againstBits(surnameOf(sex), share(sought[1].classes.front()));
}

double Judge::nameBits(const CodedName& sought, const CodedName& candidate, Sex sex)
{
    if (sought.empty() || candidate.empty()) return 0;
    const bool allTheSame = sought.size() == candidate.size() &&
                            std::equal(sought.begin(), sought.end(), candidate.begin(),
                                       [](const CodedWord& a, const CodedWord& b) { return a.exact == b.exact; });
    return firstNameBits(sought, candidate) + otherNamesBits(sought, candidate, sex) + (allTheSame ? wholeName : 0);
}

bool Judge::surnamesDisagree(const CodedName& sought, const CodedName& candidate)
{
    if (sought.size() < 2 || candidate.size() < 2 || allDevotional(sought) || allDevotional(candidate)) return false;
    for (size_t i = 1; i < sought.size(); ++i)
        for (size_t j = 1; j < candidate.size(); ++j)
            if (wordBits(sought[i], candidate[j], same::surname)) return false;
    return true;
}

static QString nameReason(const CodedName& sought, const CodedName& candidate)
{
    const auto has = [](const CodedName& all, const CodedWord& one) {
        return std::ranges::any_of(all, [&](const CodedWord& word) { return shareClass(word, one); });
    };
    const bool oursAreTheirs = std::ranges::all_of(sought, [&](const CodedWord& word) { return has(candidate, word); });
    const bool theirsAreOurs = std::ranges::all_of(candidate, [&](const CodedWord& word) { return has(sought, word); });
    if (oursAreTheirs && theirsAreOurs) return "o mesmo nome";
    if (oursAreTheirs) return "o mesmo nome, com mais elementos";
    return theirsAreOurs ? "o mesmo nome, com menos elementos" : "nome parecido";
}

void Judge::judgeName(const Sought& sought, const Person& candidate, Evidence& evidence)
{
    if (sought.name.empty() || candidate.name.empty()) return;
    const double value = nameBits(sought.name, candidate.name, sought.sex);
    evidence.bits += value;
    if (!firstNamesAgree(sought.name, candidate.name))
        evidence.against << "chama-se " + candidate.is.name;
    else if (surnamesDisagree(sought.name, candidate.name))
        evidence.against << "tem outro apelido: " + candidate.is.name;
    else if (value > 0)
        evidence.reasons.push_back({value, nameReason(sought.name, candidate.name)});
}

// Bits of an act that may have been entered before: a baptism of the same child, a burial of the same person.
static constexpr double sameAct = 8;

// Whether a date is exact is asked of the BDP only where it makes a difference.
Dates Judge::datesOf(const Sought& sought, const Person& candidate)
{
    const Role role = act_.people.at(sought.person).role;
    const Dates dates = judgedDates(sought, candidate.is, role);
    if (dates.verdict == Dates::Possible || dates.verdict == Dates::OtherSex) return dates;
    return judgedDates(sought, candidate.is, role, kin_.aboutDatesOf(candidate));
}

double Judge::atAGlance(const Sought& sought, const Person& candidate)
{
    const Dates dates = datesOf(sought, candidate);
    const double name = nameBits(sought.name, candidate.name, sought.sex);
    return name + (dates.isImpossible() ? ofAnother : dates.verdict == Dates::SameAct ? sameAct : 0);
}

void Judge::judgeDates(const Sought& sought, const Person& candidate, Evidence& evidence)
{
    const Role role = act_.people.at(sought.person).role;
    const Dates dates = datesOf(sought, candidate);
    const QString words = inWords(dates, candidate.is, role);
    if (dates.verdict == Dates::SameAct) {
        evidence.bits += sameAct;
        evidence.reasons.push_back({sameAct, words});
    } else if (dates.isImpossible()) {
        evidence.impossible = true;
        evidence.against << words;
    }
}

namespace {

// How far an age told for somebody is from the truth, in years, and how many are no further from it. Stated ages heap
// on tens, and the more so the older people are: the steps are those of somebody of 50, and others' in proportion.
struct AgeStep
{
    double years;
    double forTheSame;
};
constexpr AgeStep ageSteps[]{{1, 0.45}, {3, 0.75}, {5, 0.88}, {10, 0.97}};

double ageScale(int told)
{
    static constexpr double share = 0.1, least = 2, ofFifty = 5; // in years, but for the share of the age
    return std::max(least, share * told) / ofFifty;
}

// The ages that somebody can have had on one of the days of the act.
struct AgesThen
{
    int least, most;

    int yearsFrom(int told) const { return told < least ? least - told : std::max(0, told - most); }
};

} // namespace

void Judge::judgeStatedAge(const Sought& sought, const Person& candidate, Evidence& evidence)
{
    if (!sought.age || !sought.days.isValid() || !candidate.is.birth.isValid()) return;
    static constexpr double born = 60; // years in which people of an act are born
    const DaySpan birth = around(candidate.is.birth, kin_.aboutDatesOf(candidate).birth);
    const AgesThen ages{completedYears(birth.to, sought.days.from), completedYears(birth.from, sought.days.to)};
    const double scale = ageScale(*sought.age);
    const auto byChance = [&](const AgeStep& step) {
        static constexpr double most = 0.9;
        return std::min(most, (2 * step.years * scale + 1 + ages.most - ages.least) / born);
    };
    const QString words = "tinha " + yearsTold(completedYears(candidate.is.birth, sought.date));
    for (const AgeStep& step : ageSteps)
        if (ages.yearsFrom(*sought.age) <= step.years * scale) {
            const double value = bits(step.forTheSame, byChance(step));
            evidence.bits += value;
            if (value > 0) evidence.reasons.push_back({value, words});
            return;
        }
    const AgeStep& last = *std::rbegin(ageSteps);
    evidence.bits += againstBits(last.forTheSame, byChance(last));
    evidence.against << words + QString(", e não %1").arg(*sought.age);
}

Evidence Judge::ofThePerson(const Sought& sought, const Person& candidate)
{
    Evidence evidence;
    judgeName(sought, candidate, evidence);
    judgeDates(sought, candidate, evidence);
    judgeStatedAge(sought, candidate, evidence);
    if (evidence.impossible) evidence.bits += ofAnother;
    return evidence;
}

void Judge::addWhereabouts(const Sought& sought, const Person& candidate, Evidence& evidence)
{
    judgeResidence(sought, candidate, evidence);
    judgeProfession(sought, candidate, evidence);
    judgeTitleAndNickname(sought, candidate, evidence);
}

Evidence Judge::whole(const Sought& sought, const Person& candidate)
{
    Evidence evidence = ofThePerson(sought, candidate);
    judgeLife(sought, candidate, evidence);
    for (const Relative& relative : sought.relatives)
        judgeRelative(relative, candidate, evidence);
    addWhereabouts(sought, candidate, evidence);
    std::ranges::stable_sort(evidence.reasons, std::greater(), &Reason::bits);
    return evidence;
}

} // namespace study
