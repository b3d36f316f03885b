// Links that the BDP has and that its own dates, ages and acts speak against.
#include "study/acts/limits.h"
#include "study/linkage/linker.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numeric>
#include <optional>

namespace study::linkage {

namespace {

// How rare such a thing is where the link is right, in bits: log2 of about one in so many.
constexpr double never = -10;   // one in a thousand: slips of the pen
constexpr double hardly = -5;   // one in thirty
constexpr double seldom = -2.5; // one in six

void doubt(std::vector<Evidence>& doubts, const QString& what, const QString& one, const QString& other, double bits)
{
    doubts.push_back({what, one, other, bits});
}

bool isExactPair(const parish::Date& a, const parish::Date& b)
{
    return a.isExact() && b.isExact();
}

// Years by which an age is out of its limits.
double beyond(double age, double least, double most)
{
    return age < least ? least - age : std::max(0.0, age - most);
}

void doubtAge(const parish::Person& child, const Face* parent, limits::Ages ages, const QString& what,
              std::vector<Evidence>& doubts)
{
    if (!parent || !child.birth.isKnown() || !parent->person->birth.isKnown()) return;
    const double slack = isExactPair(child.birth, parent->person->birth) ? 0 : 5;
    const double age = double(child.birth.day - parent->person->birth.day) / parish::daysOfAYear;
    const double years = beyond(age, ages.youngest, ages.oldest + 1) - slack;
    if (years > 0) doubt(doubts, what, parish::shown(parent->person->birth), parish::shown(child.birth), never);
}

void doubtDeath(const parish::Person& child, const Face* parent, int days, const QString& what,
                std::vector<Evidence>& doubts)
{
    if (!parent || !isExactPair(child.birth, parent->person->death)) return;
    if (child.birth.day - parent->person->death.day > days)
        doubt(doubts, what, parish::shown(parent->person->death), parish::shown(child.birth), never);
}

// The nearest brother or sister by birth, and how far the child is from all of them.
void doubtSiblings(const parish::Person& child, std::vector<Evidence>& doubts)
{
    static constexpr double longGap = 10; // years
    if (!child.birth.isExact() || !child.origin) return;
    const parish::Person* nearest = nullptr;
    int days = endless;
    for (const parish::Person* sibling : child.origin->children) {
        if (sibling == &child || !sibling->birth.isExact()) continue;
        const int distance = std::abs(sibling->birth.day - child.birth.day);
        if (distance <= limits::twins || distance >= days) continue;
        nearest = sibling;
        days = distance;
    }
    if (!nearest) return;
    const QString one = parish::shown(child.birth), other = parish::shown(nearest->birth);
    if (days < limits::nextChild) doubt(doubts, "menos de oito meses entre irmãos", one, other, never);
    if (days > longGap * parish::daysOfAYear) doubt(doubts, "longe de todos os irmãos", one, other, hardly);
}

void doubtMarriage(const parish::Person& child, std::vector<Evidence>& doubts)
{
    if (!child.origin || !isExactPair(child.birth, child.origin->marriage)) return;
    const double years = double(child.origin->marriage.day - child.birth.day) / parish::daysOfAYear;
    if (years > 2)
        doubt(doubts, "nascimento antes do casamento dos pais", parish::shown(child.birth),
              parish::shown(child.origin->marriage), years > 5 ? hardly : seldom);
}

// The act that only the living do, the latest of those that the person has.
class LastAct
{
public:
    explicit LastAct(const parish::Person& person)
    {
        const bool isMan = person.gender == parish::Gender::Male;
        for (const parish::Membership* own : person.unions) {
            if (!own->family) continue;
            const QString number = QString::number(value(own->familyNumber));
            look(own->family->marriage, 0, "casamento, família nº " + number);
            for (const parish::Person* child : own->family->children)
                look(child->birth, isMan ? limits::posthumous : limits::baptisedAfterMother,
                     "nascimento do nº " + QString::number(value(child->number)));
        }
        for (const parish::Assistance* assisted : person.assisted)
            look(assisted->date, 0,
                 assisted->kind == parish::ActKind::Baptism
                     ? "baptismo do nº " + QString::number(assisted->entity)
                     : "casamento, família nº " + QString::number(assisted->entity));
        lookAt(person.residences, "residência");
        lookAt(person.professions, "profissão");
        lookAt(person.signatures, "assinatura");
        lookAt(person.passports, "passaporte");
    }

    // "nascimento do nº 12, 01/06/1701"; none where nothing is told behind that day.
    std::optional<QString> behind(int day) const
    {
        return what_.isEmpty() || day_ <= day ? std::nullopt : std::optional(what_ + ", " + when_);
    }

private:
    template <class Rows>
    void lookAt(const Rows& rows, const QString& what)
    {
        for (const auto& row : rows)
            look(row.date, 0, what);
    }

    void look(const parish::Date& date, int before, const QString& what)
    {
        if (!date.isKnown() || (!what_.isEmpty() && date.day - before <= day_)) return;
        day_ = date.day - before;
        what_ = what;
        when_ = parish::shown(date);
    }

    int day_ = 0; // on which the person was alive at the latest
    QString what_, when_;
};

} // namespace

std::vector<Evidence> doubtsOfOrigin(const Face& child, const Face* father, const Face* mother)
{
    std::vector<Evidence> doubts;
    const parish::Person& person = *child.person;
    doubtAge(person, mother, limits::mother, "idade da mãe", doubts);
    doubtAge(person, father, limits::father, "idade do pai", doubts);
    doubtDeath(person, mother, limits::baptisedAfterMother, "nascimento depois da morte da mãe", doubts);
    doubtDeath(person, father, limits::posthumous, "nascimento depois da morte do pai", doubts);
    doubtSiblings(person, doubts);
    doubtMarriage(person, doubts);
    return doubts;
}

std::vector<Evidence> doubtsOfDeath(const Face& face)
{
    std::vector<Evidence> doubts;
    const parish::Person& person = *face.person;
    if (!person.death.isKnown()) return doubts;
    if (person.birth.isKnown() && person.ageAtDeath) {
        const double age = double(person.death.day - person.birth.day) / parish::daysOfAYear;
        const double off = beyond(age, *person.ageAtDeath, *person.ageAtDeath + 1);
        const double tolerance = std::max(2.0, 0.1 * *person.ageAtDeath);
        if (off > 3 * tolerance)
            doubt(doubts, "idade ao óbito", QString("%1 pelo nascimento").arg(int(age)),
                  QString("%1 pelo acto").arg(*person.ageAtDeath), off > 5 * tolerance ? never : hardly);
    }
    if (person.death.isExact() && face.lastAlive > person.death.day)
        doubt(doubts, "vivo depois do óbito", parish::shown(person.death),
              LastAct(person).behind(person.death.day).value_or("um acto posterior"), never);
    if (person.minor.value_or(false) && !person.unions.empty())
        doubt(doubts, "óbito de menor, e casado", parish::shown(person.death), {}, never);
    return doubts;
}

std::vector<Evidence> doubtsOfUnion(const Face& face, const parish::Membership& membership)
{
    std::vector<Evidence> doubts;
    const parish::Person& person = *face.person;
    if (!membership.family || !membership.family->marriage.isKnown() || !person.birth.isKnown()) return doubts;
    const parish::Date& marriage = membership.family->marriage;
    const double age = double(marriage.day - person.birth.day) / parish::daysOfAYear;
    const limits::Ages ages = person.gender == parish::Gender::Male ? limits::groom : limits::bride;
    const double slack = isExactPair(person.birth, marriage) ? 0 : 5;
    if (beyond(age, ages.youngest, ages.oldest + 1) > slack)
        doubt(doubts, "idade ao casamento", parish::shown(person.birth), parish::shown(marriage), never);
    if (membership.age && beyond(age, *membership.age, *membership.age + 1) > std::max(6.0, 0.3 * *membership.age))
        doubt(doubts, "idade ao casamento", QString("%1 pelo nascimento").arg(int(age)),
              QString("%1 pelo acto").arg(*membership.age), hardly);
    return doubts;
}

static std::vector<Evidence> both(std::vector<Evidence> doubts, const std::vector<Evidence>& others)
{
    doubts.insert(doubts.end(), others.begin(), others.end());
    return doubts;
}

void Linker::addDoubtful()
{
    const DoubtsOfNames names(question_.inActs);
    const auto tell = [this](const Record& one, const Record& other, std::vector<Evidence> doubts) {
        if (doubts.empty() || question_.right.has(one, other)) return;
        std::ranges::stable_sort(doubts, {}, &Evidence::bits);
        const double bits = std::accumulate(doubts.begin(), doubts.end(), 0.0,
                                            [](double sum, const Evidence& each) { return sum + each.bits; });
        if (bits > -model_.hideBelow) return;
        add({.kind = LinkKind::Doubtful, .one = one, .other = other, .bits = bits, .evidence = std::move(doubts)});
    };
    for (const Face& face : faces_.people()) {
        const parish::Person& person = *face.person;
        const Record one = recordOf(person.number);
        if (person.origin)
            tell(one, recordOf(person.origin->number),
                 both(doubtsOfOrigin(face, faces_.of(person.father()), faces_.of(person.mother())),
                      names.ofOrigin(person)));
        tell(one, {}, both(doubtsOfDeath(face), names.ofDeath(person)));
        for (const parish::Membership* own : person.unions)
            tell(one, recordOf(own->familyNumber), both(doubtsOfUnion(face, *own), names.ofUnion(person, *own)));
    }
}

} // namespace study::linkage
