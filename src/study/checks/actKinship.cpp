#include "study/checks/actKinship.h"

#include "study/checks/told.h"
#include "study/checks/words.h"

#include <array>

namespace study::checks {

using parish::Gender;
using parish::Person;

namespace {

enum class Path : quint8
{
    None, // nothing but the sex and the generations are asked
    Father,
    Mother,
    FathersFather,
    FathersMother,
    MothersFather,
    MothersMother,
    EitherGrandfather,
    EitherGrandmother,
    Sibling,
    FathersSibling,
    MothersSibling,
    ParentsSibling
};

struct Kin
{
    int code; // of Paren
    Gender gender;
    int generations = 0; // above
    Path path = Path::None;
};

constexpr Gender man = Gender::Male, woman = Gender::Female;
constexpr std::array relations{
    Kin{1, man, 1, Path::Father},
    Kin{2, woman, 1, Path::Mother},
    Kin{3, man},
    Kin{4, woman},
    Kin{5, man, 2, Path::FathersFather},
    Kin{6, woman, 2, Path::FathersMother},
    Kin{7, man, 2, Path::MothersFather},
    Kin{8, woman, 2, Path::MothersMother},
    Kin{9, man},
    Kin{10, woman},
    Kin{11, man, 0, Path::Sibling},
    Kin{12, woman, 0, Path::Sibling},
    Kin{13, man, 0, Path::Sibling},
    Kin{14, woman, 0, Path::Sibling},
    Kin{15, man, 3},
    Kin{16, woman, 3},
    Kin{17, man},
    Kin{18, woman},
    Kin{19, man, 0, Path::FathersSibling},
    Kin{20, woman, 0, Path::FathersSibling},
    Kin{21, man, 0, Path::MothersSibling},
    Kin{22, woman, 0, Path::MothersSibling},
    Kin{23, man},
    Kin{24, woman},
    Kin{25, man, 4},
    Kin{26, woman, 4},
    Kin{27, man},
    Kin{28, woman},
    Kin{29, man},
    Kin{30, woman},
    Kin{31, man},
    Kin{32, woman},
    Kin{33, man},
    Kin{34, woman},
    Kin{35, man},
    Kin{36, woman},
    Kin{37, man},
    Kin{38, woman},
    Kin{43, man},
    Kin{44, woman},
    Kin{45, man},
    Kin{46, woman},
    Kin{47, man},
    Kin{48, woman},
    Kin{49, man},
    Kin{50, woman},
    Kin{51, man},
    Kin{52, woman},
    Kin{53, man},
    Kin{54, woman},
    Kin{73, man, 2, Path::EitherGrandfather},
    Kin{74, woman, 2, Path::EitherGrandmother},
    Kin{75, man, 0, Path::ParentsSibling},
    Kin{76, woman, 0, Path::ParentsSibling},
    Kin{77, man},
    Kin{78, woman},
};

const Person* fatherOf(const Person* person)
{
    return person ? person->father() : nullptr;
}

const Person* motherOf(const Person* person)
{
    return person ? person->mother() : nullptr;
}

// Who it must be, or one of whom; a null among them is somebody who isn't known.
std::vector<const Person*> those(Path path, const Person& whose)
{
    const Person* father = whose.father();
    const Person* mother = whose.mother();
    switch (path) {
    case Path::Father:
        return {father};
    case Path::Mother:
        return {mother};
    case Path::FathersFather:
        return {fatherOf(father)};
    case Path::FathersMother:
        return {motherOf(father)};
    case Path::MothersFather:
        return {fatherOf(mother)};
    case Path::MothersMother:
        return {motherOf(mother)};
    case Path::EitherGrandfather:
        return {fatherOf(father), fatherOf(mother)};
    case Path::EitherGrandmother:
        return {motherOf(father), motherOf(mother)};
    default:
        return {};
    }
}

// Of whom it must be a brother or a sister, or of one of whom.
std::vector<const Person*> siblingsOfWhom(Path path, const Person& whose)
{
    switch (path) {
    case Path::Sibling:
        return {&whose};
    case Path::FathersSibling:
        return {whose.father()};
    case Path::MothersSibling:
        return {whose.mother()};
    case Path::ParentsSibling:
        return {whose.father(), whose.mother()};
    default:
        return {};
    }
}

// Only where all four parents are known.
bool haveOtherParents(const Person& one, const Person* other)
{
    if (!other || !one.father() || !one.mother() || !other->father() || !other->mother()) return false;
    return one.father() != other->father() && one.mother() != other->mother();
}

QString whyNotByThePath(const Kin& kin, const Person& who, const Person& whose)
{
    const std::vector<const Person*> wanted = those(kin.path, whose);
    const bool isKnown = !wanted.empty() && std::ranges::all_of(wanted, [](const Person* one) { return one; });
    if (isKnown && std::ranges::find(wanted, &who) == wanted.end()) {
        QStringList names;
        for (const Person* one : wanted)
            names << named(*one);
        return "nas fichas é " + names.join(" ou ");
    }
    const std::vector<const Person*> siblings = siblingsOfWhom(kin.path, whose);
    const bool isNone = !siblings.empty() && std::ranges::all_of(siblings, [&](const Person* one) {
        return haveOtherParents(who, one) && one != &who;
    });
    return isNone ? QString("nas fichas tem outros pais") : QString();
}

} // namespace

QString whyNotKin(int code, const Person& who, const Person& whose, const Check& check)
{
    const auto kin = std::ranges::find(relations, code, &Kin::code);
    if (kin == relations.end()) return {};
    if (who.gender != Gender::Undetermined && who.gender != kin->gender)
        return who.gender == Gender::Male ? "é homem" : "é mulher";
    if (kin->generations > 0 && who.birth.isKnown() && whose.birth.isKnown()) {
        const auto years = static_cast<int>(kin->generations * check.limit("geracao"));
        const int days = daysShortOf(years, who.birth, whose.birth);
        if (days > 0 && !check.mayBeOfTheDates(days, {who.birth, whose.birth}))
            return "nasceu em " + told(who.birth) + ", e " + named(whose) + " em " + told(whose.birth);
    }
    return whyNotByThePath(*kin, who, whose);
}

} // namespace study::checks
