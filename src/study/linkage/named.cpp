// Parents whom an act or a note names, and the couples of the BDP that they may be.
#include "platform/jet/nativesql.h"
#include "platform/jet/rows.h"
#include "study/acts/limits.h"
#include "study/acts/register.h"
#include "study/linkage/linker.h"

#include <QRegularExpression>

#include <algorithm>
#include <functional>
#include <numeric>
#include <unordered_map>
#include <utility>

namespace study::linkage {

namespace {

// Who stands in an act as the father or the mother of somebody of the BDP, and was kept as a name.
constexpr auto parentsInActs =
    "select child.nind, child.acto, parent.papel, parent.nome from estudo_pessoa child, estudo_pessoa parent, "
    "individuo i where parent.acto = child.acto and parent.de = child.ordem and parent.papel in ('pai', 'mae') and "
    "i.nind = child.nind and i.famorig is null and exists (select 1 from estudo_pessoa kept where kept.acto = "
    "child.acto and kept.de = child.ordem and kept.papel in ('pai', 'mae') and kept.identidade = 'so no acto') "
    "order by child.nind, child.acto, parent.ordem";
constexpr auto parentsInNotes =
    "select nind, obs from individuo where famorig is null and obs like '%filh%' order by nind";

std::vector<NamedParents> ofActs(jet::Connection& bdp)
{
    std::vector<NamedParents> all;
    if (!hasActs(bdp)) return all;
    qint64 childBefore = 0, actBefore = 0;
    for (jet::Rows rows(bdp, jet::NativeSql(parentsInActs)); rows.next();) {
        const qint64 child = rows.number(0), act = rows.number(1);
        if (child != childBefore || act != actBefore)
            all.push_back({.child = parish::PersonNumber(child), .source = QString("acto nº %1").arg(act)});
        childBefore = child;
        actBefore = act;
        QString& parent = rows.text(2) == "pai" ? all.back().father : all.back().mother;
        if (parent.isEmpty()) parent = rows.text(3);
    }
    return all;
}

std::vector<NamedParents> ofNotes(jet::Connection& bdp)
{
    static const QRegularExpression filiation(
        QString("\\bfilh[oa]\\s+(?:leg[ií]tim[oa]\\s+|natural\\s+)?(?:que\\s+ficou\\s+)?de\\s+([^,;.()\\n]{2,80}?)"
                "\\s+e\\s+(?:de\\s+)?(?:sua\\s+mulher,?\\s+)?([^,;.()\\n]{2,80})"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    static constexpr qsizetype longestNote = 10000;
    std::vector<NamedParents> all;
    for (jet::Rows rows(bdp, jet::NativeSql(parentsInNotes)); rows.next();) {
        const QRegularExpressionMatch told = filiation.match(rows.text(1).left(longestNote));
        if (told.hasMatch())
            all.push_back({.child = parish::PersonNumber(rows.number(0)),
                           .father = told.captured(1).simplified(),
                           .mother = told.captured(2).simplified(),
                           .source = "observações"});
    }
    return all;
}

// Whether the child can be born in that family.
bool allows(const CoupleFace& couple, const Face& child)
{
    const auto parent = [&](const Face* one, limits::Ages ages) {
        if (!one) return true;
        if (one == &child) return false;
        const double least = ages.youngest * parish::daysOfAYear, most = (ages.oldest + 1) * parish::daysOfAYear;
        return double(child.born.to) >= one->born.from + least && double(child.born.from) <= one->born.to + most;
    };
    if (!parent(couple.husband, limits::father) || !parent(couple.wife, limits::mother)) return false;
    const parish::Date& birth = child.person->birth;
    if (!birth.isExact()) return true;
    if (couple.wife && couple.wife->person->death.isKnown() && birth.day > couple.wife->died.to + limits::twins)
        return false;
    if (couple.husband && couple.husband->person->death.isKnown() &&
        birth.day > couple.husband->died.to + limits::posthumous)
        return false;
    return !birthsCollide(couple.births, {birth.day});
}

// Under which keys a couple is asked for: the first names of both; the first name of one of them with another name of
// that one. A word that the table of names doesn't know stands for those that it is like, too.
std::vector<quint64> keysOf(const Name* father, const Name* mother)
{
    enum : quint64
    {
        both = 1,
        ofFather,
        ofMother
    };
    static constexpr int kindBits = 2;
    const auto key = [](quint64 kind, WordCode one, WordCode other) {
        return ((quint64(one) << bitsOfAWordCode | other) << kindBits) | kind;
    };
    const auto firstOf = [](const Name* name) {
        return name && !name->isEmpty() ? name->words.front().keys : std::vector<WordCode>();
    };
    std::vector<quint64> keys;
    const std::vector<WordCode> ofHim = firstOf(father), ofHer = firstOf(mother);
    for (const WordCode his : ofHim)
        for (const WordCode her : ofHer)
            keys.push_back(key(both, his, her));
    const auto addAlone = [&](quint64 kind, const Name* name, const std::vector<WordCode>& first) {
        for (const WordCode one : first)
            for (size_t i = 1; i < name->words.size(); ++i)
                for (const WordCode other : name->words[i].keys)
                    keys.push_back(key(kind, one, other));
    };
    addAlone(ofFather, father, ofHim);
    addAlone(ofMother, mother, ofHer);
    return keys;
}

const Name* nameOf(const Face* face)
{
    return face ? face->name : nullptr;
}

} // namespace

class Linker::CouplesByName
{
public:
    explicit CouplesByName(const std::vector<CoupleFace>& couples)
    {
        for (const CoupleFace& couple : couples)
            for (const quint64 key : keysOf(nameOf(couple.husband), nameOf(couple.wife)))
                of_[key].push_back(&couple);
    }

    // Each once, in the order of their numbers.
    std::vector<const CoupleFace*> of(const Name* father, const Name* mother) const
    {
        std::vector<const CoupleFace*> found;
        for (const quint64 key : keysOf(father, mother))
            if (const auto known = of_.find(key); known != of_.end())
                found.insert(found.end(), known->second.begin(), known->second.end());
        std::ranges::sort(found);
        found.erase(std::unique(found.begin(), found.end()), found.end());
        return found;
    }

private:
    std::unordered_map<quint64, std::vector<const CoupleFace*>> of_;
};

std::vector<NamedParents> namedParents(jet::Connection& bdp)
{
    std::vector<NamedParents> all = ofActs(bdp);
    const std::vector<NamedParents> notes = ofNotes(bdp);
    all.insert(all.end(), notes.begin(), notes.end());
    return all;
}

void Linker::addNamed()
{
    if (question_.named.empty()) return;
    const CouplesByName couples(faces_.couples());
    for (const NamedParents& named : question_.named) {
        const Face* child = faces_.of(parish_.person(named.child));
        const Name *father = faces_.name(named.father), *mother = faces_.name(named.mother);
        if (child && !child->person->origin) addCouplesOf(named, *child, father, mother, couples.of(father, mother));
    }
}

// Who isn't told, or isn't known, is neutral; another first name is another couple.
void Linker::addCouplesOf(const NamedParents& named, const Face& child, const Name* father, const Name* mother,
                          const std::vector<const CoupleFace*>& couples)
{
    std::vector<Link> found;
    const auto isTold = [](const Name* name) { return name && !name->isEmpty(); };
    for (const CoupleFace* couple : couples) {
        Comparison comparison;
        const Name *husband = nameOf(couple->husband), *wife = nameOf(couple->wife);
        const auto fits = [&](const Name* one, const Name* other, parish::Gender sex, Field first, Field rest) {
            return !isTold(one) || !isTold(other) ||
                   comparer_.compareNames(one, other, sex, first, rest, Of::Person, comparison);
        };
        const bool agree = fits(father, husband, parish::Gender::Male, Field::Father, Field::FatherSurnames) &&
                           fits(mother, wife, parish::Gender::Female, Field::Mother, Field::MotherSurnames);
        const Record family = recordOf(couple->family->number), one = recordOf(child.person->number);
        if (!agree || comparison.bits < model_.hideBelow || !allows(*couple, child)) continue;
        if (question_.decided.has(one, family)) continue;
        Link link{.kind = LinkKind::NamedCouple, .one = one, .other = family, .bits = comparison.bits};
        link.evidence = comparer_.evidence(comparison, child, child);
        link.evidence.push_back({"pais nomeados", named.source, {}, 0});
        found.push_back(std::move(link));
    }
    std::ranges::stable_sort(found, std::greater(), &Link::bits);
    if (found.size() > size_t(std::max(0, model_.candidates))) found.resize(size_t(std::max(0, model_.candidates)));
    for (Link& link : found) {
        const auto rival = std::ranges::find_if(found, [&](const Link& other) { return other.other != link.other; });
        if (rival != found.end()) link.runnerUp = RunnerUp{rival->other, true, rival->bits};
    }
    for (Link& link : found)
        add(std::move(link));
}

} // namespace study::linkage
