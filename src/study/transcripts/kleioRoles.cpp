#include "study/transcripts/kleioRoles.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <utility>

namespace study::kleio {

namespace {

constexpr qsizetype longestName = 60;

// Groups of people who belong to the act itself.
struct OfTheAct
{
    const char* group;
    Role role;
};
constexpr std::array<OfTheAct, 6> ofTheAct{{{"pad", Role::Godfather},
                                            {"mad", Role::Godmother},
                                            {"noivo", Role::Groom},
                                            {"noiva", Role::Bride},
                                            {"test", Role::Witness},
                                            {"celebrante", Role::Celebrant}}};

constexpr std::array<std::pair<const char*, Role>, 14> words{{{"baptizado", Role::Child},
                                                              {"noivo", Role::Groom},
                                                              {"noiva", Role::Bride},
                                                              {"defunto", Role::Deceased},
                                                              {"pai", Role::Father},
                                                              {"mae", Role::Mother},
                                                              {"conjuge", Role::Spouse},
                                                              {"conjuge_anterior", Role::EarlierSpouse},
                                                              {"procurador", Role::Proxy},
                                                              {"padrinho", Role::Godfather},
                                                              {"madrinha", Role::Godmother},
                                                              {"testemunha", Role::Witness},
                                                              {"celebrante", Role::Celebrant},
                                                              {"referido", Role::Mentioned}}};

// The prefixes that make a relative of whom the rest of the name tells.
struct Prefix
{
    const char* letters;
    Role role;
    Sex sex;

    qsizetype length() const { return static_cast<qsizetype>(qstrlen(letters)); }
};
constexpr std::array<Prefix, 3> prefixes{
    {{"mr", Role::Spouse, Sex::Male}, {"p", Role::Father, Sex::Male}, {"m", Role::Mother, Sex::Female}}};

const QRegularExpression& spouses()
{
    static const QRegularExpression form("^(marido|mulher)(\\d{0,3})$");
    return form;
}

// A name that stands for itself, without a prefix.
bool isBase(const QString& group)
{
    static const QStringList others{"n", "pai", "mae", "referido", "referida", "procurador"};
    return others.contains(group) || group.startsWith("procurador-") || spouses().match(group).hasMatch() ||
           std::any_of(ofTheAct.begin(), ofTheAct.end(), [&](const OfTheAct& one) { return group == one.group; });
}

// "mrmad" is the husband of the "mad"; "mad" nobody's mother. Nothing for a name that is no person's.
std::optional<QString> canonicalPerson(const QString& group)
{
    if (group.size() > longestName) return {};
    if (group == "pn") return "pai";
    if (group == "mn") return "mae";
    if (isBase(group)) return group;
    for (const Prefix& prefix : prefixes) {
        if (!group.startsWith(QLatin1String(prefix.letters))) continue;
        if (const auto of = canonicalPerson(group.mid(prefix.length()))) return prefix.letters + *of;
    }
    return {};
}

// Whose relative a canonical name tells of: the prefix, and the canonical name of the rest.
std::optional<std::pair<Prefix, QString>> relative(const QString& name)
{
    for (const Prefix& prefix : prefixes) {
        if (!name.startsWith(QLatin1String(prefix.letters))) continue;
        if (const auto of = canonicalPerson(name.mid(prefix.length()))) return std::pair(prefix, *of);
    }
    return {};
}

// The last one with that group who is less indented, or else the last one of all; -1 for none.
int lastWith(const QList<Standing>& before, const QString& group, int indent)
{
    int last = -1;
    for (int person = static_cast<int>(before.size()) - 1; person >= 0; --person) {
        if (before[person].group != group) continue;
        if (before[person].indent < indent) return person;
        if (last < 0) last = person;
    }
    return last;
}

// Who stands around a group by its indentation alone; -1: the act.
int lessIndented(const QList<Standing>& before, int indent)
{
    for (int person = static_cast<int>(before.size()) - 1; person >= 0; --person)
        if (before[person].indent < indent) return person;
    return -1;
}

// Which of bride and groom stands last before.
int lastOfTheCouple(const QList<Standing>& before)
{
    for (int person = static_cast<int>(before.size()) - 1; person >= 0; --person)
        if (before[person].group == "noivo" || before[person].group == "noiva") return person;
    return -1;
}

Place hangingOn(Place place, int owner)
{
    place.of = owner;
    place.found = owner >= 0;
    return place;
}

Place parent(const QString& group, int indent, const QList<Standing>& before)
{
    const bool isFather = group == "pai";
    int child = lastWith(before, "n", indent);
    if (child < 0) child = lastOfTheCouple(before);
    return hangingOn({.role = isFather ? Role::Father : Role::Mother, .sex = isFather ? Sex::Male : Sex::Female},
                     child);
}

// The spouse of the deceased; in a marriage an earlier one, of who is of the other sex.
Place spouse(const QRegularExpressionMatch& name, int indent, const QList<Standing>& before)
{
    const bool isMan = name.captured(1) == "marido";
    Place place{.role = Role::Spouse, .ordinal = name.captured(2).toInt(), .sex = isMan ? Sex::Male : Sex::Female};
    if (const int deceased = lastWith(before, "n", indent); deceased >= 0) return hangingOn(place, deceased);
    if (const int widowed = lastWith(before, isMan ? "noiva" : "noivo", indent); widowed >= 0) {
        place.role = Role::EarlierSpouse;
        return hangingOn(place, widowed);
    }
    return hangingOn(place, lessIndented(before, indent));
}

Place proxy(const QString& group, int indent, const QList<Standing>& before)
{
    const QString of = canonical(group.section('-', 1));
    if (of.isEmpty()) return hangingOn({.role = Role::Proxy}, lessIndented(before, indent));
    return hangingOn({.role = Role::Proxy}, lastWith(before, of, indent));
}

Role roleOfN(ActKind kind)
{
    switch (kind) {
    case ActKind::Baptism:
        return Role::Child;
    case ActKind::Burial:
        return Role::Deceased;
    case ActKind::Marriage:
        break;
    }
    return Role::Mentioned;
}

} // namespace

QString canonical(const QString& group)
{
    return canonicalPerson(group).value_or(group);
}

std::optional<Place> placeOf(const QString& group, int indent, const Act& act, const QList<Standing>& before)
{
    const std::optional<QString> person = canonicalPerson(group);
    if (!person) return {};
    const QString& name = *person;
    if (name == "n") return Place{.role = roleOfN(act.kind)};
    if (name == "pai" || name == "mae") return parent(name, indent, before);
    if (const auto match = spouses().match(name); match.hasMatch()) return spouse(match, indent, before);
    if (name.startsWith("procurador")) return proxy(name, indent, before);
    if (name == "referido" || name == "referida")
        return Place{.of = lessIndented(before, indent), .sex = name == "referida" ? Sex::Female : Sex::Male};
    for (const OfTheAct& one : ofTheAct)
        if (name == one.group) return Place{.role = one.role};
    const auto found = relative(name);
    if (!found) return {};
    const auto& [prefix, of] = *found;
    return hangingOn({.role = prefix.role, .sex = prefix.sex}, lastWith(before, of, indent));
}

// Names a person after whom it hangs on; placeOf() tells whether it would be found there.
static QString nameAfter(const Act& act, const ActPerson& person, const QString& owner)
{
    switch (person.role) {
    case Role::Father:
        return owner == "n" ? "pai" : "p" + owner;
    case Role::Mother:
        return owner == "n" ? "mae" : "m" + owner;
    case Role::Spouse:
    case Role::EarlierSpouse: {
        const bool ofASubject = owner == "n" || owner == "noivo" || owner == "noiva";
        if (!ofASubject) return "mr" + owner;
        const int self = static_cast<int>(&person - act.people.data());
        const QString base = sexOf(act, self) == Sex::Male ? "marido" : "mulher";
        return person.ordinal > 0 ? base + QString::number(person.ordinal) : base;
    }
    case Role::Proxy:
        return "procurador-" + owner;
    default:
        return {};
    }
}

QString groupFor(const Act& act, int person, const QList<Standing>& before)
{
    const ActPerson& one = act.people.at(person);
    if (one.role == Role::Mentioned) return sexOf(act, person) == Sex::Female ? "referida" : "referido";
    if (one.of >= 0 && one.of < before.size()) return nameAfter(act, one, before[one.of].group);
    if (one.role == roleOfN(act.kind)) return "n";
    for (const OfTheAct& known : ofTheAct)
        if (one.role == known.role) return known.group;
    return {};
}

QString wordOf(Role role)
{
    const auto found =
        std::find_if(words.begin(), words.end(), [role](const auto& word) { return word.second == role; });
    return found == words.end() ? QString() : QString(found->first);
}

std::optional<Role> roleWith(const QString& word)
{
    const auto found = std::find_if(words.begin(), words.end(), [&](const auto& one) { return word == one.first; });
    if (found == words.end()) return {};
    return found->second;
}

} // namespace study::kleio
