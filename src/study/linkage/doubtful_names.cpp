// Links of an act to somebody whose name is another one than the act tells.
#include "platform/jet/nativesql.h"
#include "platform/jet/rows.h"
#include "study/acts/register.h"
#include "study/linkage/linker.h"
#include "study/names/names.h"
#include "study/people/keys.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace study::linkage {

namespace {

using In = NameInAct::In;
using Who = NameInAct::Who;

// How rare such a thing is where the link is right, in bits.
constexpr double otherFirstName = -5;     // one in thirty
constexpr double otherSurnames = -2.5;    // one in six,
constexpr double otherNamesOfWoman = -1;  // but of a woman one in two
constexpr double likeEnoughToStand = 0.8; // likeness() of two words, of which the table doesn't know one

constexpr auto inActs =
    "select who.nind, who.papel, who.acto, 'o mesmo' as de_quem, who.nome, who.ordem, (select mate.nind from "
    "estudo_pessoa mate where mate.acto = who.acto and mate.papel in ('noivo', 'noiva') and mate.ordem <> who.ordem) "
    "from estudo_pessoa who where who.papel in ('baptizado', 'noivo', 'noiva', 'defunto') and who.nind is not null and "
    "who.nome_duvida = 0 union all "
    "select who.nind, who.papel, who.acto, told.papel, told.nome, told.ordem, (select mate.nind from estudo_pessoa "
    "mate where mate.acto = who.acto and mate.papel in ('noivo', 'noiva') and mate.ordem <> who.ordem) "
    "from estudo_pessoa who, estudo_pessoa told where who.papel in ('baptizado', 'noivo', 'noiva', 'defunto') and "
    "who.nind is not null and told.acto = who.acto and told.de = who.ordem and told.papel in ('pai', 'mae', 'conjuge') "
    "and told.nome_duvida = 0 order by 1, 3, 6";

In actOf(const QString& role)
{
    return role == "baptizado" ? In::Baptism : role == "defunto" ? In::Burial : In::Marriage;
}

Who relationOf(const QString& word)
{
    return word == "pai" ? Who::Father : word == "mae" ? Who::Mother : word == "conjuge" ? Who::Spouse : Who::Self;
}

// "J[...]", "Ma...": nobody knows what stood there.
bool isUnread(const CodedWord& word)
{
    return word.written.contains("...") || word.written.contains(u'…') || word.written.contains(u'[') ||
           word.written.contains(u'?');
}

bool fit(const CodedWord& one, const CodedWord& other)
{
    if (isUnread(one) || isUnread(other) || agreementOf(one, other).level != Level::Other) return true;
    return !(one.known && other.known) && likeness(one.key, other.key) >= likeEnoughToStand;
}

// A second given name may stand for the first one.
bool doFirstNamesFit(const CodedName& one, const CodedName& other)
{
    if (fit(one[0], other[0])) return true;
    return (one.size() > 1 && fit(one[1], other[0])) || (other.size() > 1 && fit(one[0], other[1]));
}

// A name of fewer elements is no other one, and what is devotional comes and goes.
bool doOthersFit(const CodedName& one, const CodedName& other)
{
    const auto rest = [](const CodedName& name) {
        std::vector<const CodedWord*> words;
        for (size_t i = 1; i < name.size(); ++i)
            if (!name[i].devotional) words.push_back(&name[i]);
        return words;
    };
    const auto ours = rest(one), theirs = rest(other);
    if (ours.empty() || theirs.empty()) return true;
    return std::ranges::any_of(ours, [&](const CodedWord* a) {
        return std::ranges::any_of(theirs, [&](const CodedWord* b) { return fit(*a, *b); });
    });
}

// What speaks against one name being the other; none where nothing does, or one of them is no name.
std::optional<Evidence> doubtOf(const NameInAct& told, const parish::Person* linked)
{
    if (!linked) return {};
    const CodedName one = codedName(told.name), other = codedName(linked->name);
    if (one.empty() || other.empty()) return {};
    static constexpr const char* titles[]{"nome", "pai", "mãe", "cônjuge"};
    static constexpr const char* ofOthers[]{"outros nomes", "apelidos do pai", "apelidos da mãe",
                                            "apelidos do cônjuge"};
    const bool isFirst = !doFirstNamesFit(one, other);
    if (!isFirst && doOthersFit(one, other)) return {};
    const double ofSurnames = linked->gender == parish::Gender::Female ? otherNamesOfWoman : otherSurnames;
    const QString field = isFirst ? titles[size_t(told.of)] : ofOthers[size_t(told.of)];
    return Evidence{QString("%1, no acto nº %2").arg(field).arg(told.act), told.name, linked->name,
                    isFirst ? otherFirstName : ofSurnames};
}

// The spouse whom the name fits best; none where one of them fits, or nobody is known.
std::optional<Evidence> doubtOfSpouses(const NameInAct& told, const parish::Person& deceased)
{
    std::optional<Evidence> least;
    for (const parish::Membership* own : deceased.unions) {
        const parish::Person* spouse = own->family ? parish::spouseOf(deceased, *own->family) : nullptr;
        if (!spouse) return {};
        std::optional<Evidence> doubt = doubtOf(told, spouse);
        if (!doubt) return {};
        if (!least || doubt->bits > least->bits) least = std::move(doubt);
    }
    return least;
}

} // namespace

std::vector<NameInAct> namesInActs(jet::Connection& bdp)
{
    std::vector<NameInAct> all;
    if (!hasActs(bdp)) return all;
    for (jet::Rows rows(bdp, jet::NativeSql(inActs)); rows.next();)
        all.push_back({.person = parish::PersonNumber(rows.number(0)),
                       .of = relationOf(rows.text(3)),
                       .in = actOf(rows.text(1)),
                       .name = rows.text(4),
                       .act = rows.number(2),
                       .marries = parish::PersonNumber(rows.number(6))});
    return all;
}

DoubtsOfNames::DoubtsOfNames(std::span<const NameInAct> names)
{
    for (const NameInAct& one : names)
        of_[value(one.person)].push_back(&one);
}

std::vector<Evidence> DoubtsOfNames::of(const parish::Person& person, In in,
                                        const std::function<bool(const NameInAct&)>& counts) const
{
    std::vector<Evidence> doubts;
    const auto known = of_.find(value(person.number));
    if (known == of_.end()) return doubts;
    for (const NameInAct* told : known->second) {
        if (told->in != in || !counts(*told)) continue;
        const auto doubt = told->of == Who::Self     ? doubtOf(*told, &person)
                           : told->of == Who::Father ? doubtOf(*told, person.father())
                           : told->of == Who::Mother ? doubtOf(*told, person.mother())
                                                     : doubtOfSpouses(*told, person);
        if (doubt) doubts.push_back(*doubt);
    }
    return doubts;
}

std::vector<Evidence> DoubtsOfNames::ofOrigin(const parish::Person& child) const
{
    return of(child, In::Baptism, [](const NameInAct&) { return true; });
}

// The marriage is that with whom the act has beside them; where that one is nobody, the only one.
std::vector<Evidence> DoubtsOfNames::ofUnion(const parish::Person& spouse, const parish::Membership& membership) const
{
    const parish::Person* other = membership.family ? parish::spouseOf(spouse, *membership.family) : nullptr;
    return of(spouse, In::Marriage, [&](const NameInAct& told) {
        return other && value(told.marries) != 0 ? other->number == told.marries : spouse.unions.size() == 1;
    });
}

std::vector<Evidence> DoubtsOfNames::ofDeath(const parish::Person& deceased) const
{
    return of(deceased, In::Burial, [](const NameInAct&) { return true; });
}

} // namespace study::linkage
