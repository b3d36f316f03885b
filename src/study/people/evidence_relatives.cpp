// What the relatives, the residence, the profession and the nickname of somebody tell.
#include "common/niveis.h"
#include "platform/jet/rows.h"
#include "study/names/fold.h"
#include "study/people/evidence.h"

#include <algorithm>
#include <cmath>

namespace study {

namespace {

// How much an agreement tells, in bits, where the BDP isn't asked how often it comes by chance.
constexpr double sameLocality = 3.8; // log2(0.7 / 0.05)
constexpr double sameParish = 1;
constexpr double sameProfession = 3.3; // log2(0.5 / 0.05)
constexpr double sameTitle = 2;
constexpr double sameNickname = 6;

constexpr double spouseAgrees = 0.93; // where two records tell of the same person
constexpr double parentAgrees = 0.95;
constexpr double leastOfAKnown = 6; // a small BDP has few whom one may be mistaken for
constexpr double mostOfAKnown = 20;
constexpr double otherParentOfKnown = -8;
constexpr double related = 3; // bits from which a name makes two people relatives

bool sameText(const QString& a, const QString& b)
{
    const QString plain = fold::plain(a).simplified();
    return !plain.isEmpty() && plain == fold::plain(b).simplified();
}

QString wordsFor(Relative::Kind kind, Sex sex)
{
    const bool woman = sex == Sex::Female;
    switch (kind) {
    case Relative::Kind::Spouse:
        return woman ? "casada com " : "casado com ";
    case Relative::Kind::Father:
    case Relative::Kind::Mother:
        return woman ? "filha de " : "filho de ";
    case Relative::Kind::Child:
        return woman ? "mãe de " : "pai de ";
    }
    return {};
}

double agreement(Relative::Kind kind)
{
    return kind == Relative::Kind::Spouse ? spouseAgrees : parentAgrees;
}

} // namespace

std::vector<qint64> Judge::kinOf(const Person& candidate, Relative::Kind kind)
{
    std::vector<qint64> kin;
    const auto add = [&kin](qint64 nind) {
        if (nind != 0) kin.push_back(nind);
    };
    if (kind == Relative::Kind::Father || kind == Relative::Kind::Mother) {
        if (const Family* origin = kin_.family(candidate.is.family))
            add(kind == Relative::Kind::Father ? origin->husband : origin->wife);
        return kin;
    }
    for (const qint64 number : kin_.familiesOf(candidate)) {
        const Family* own = kin_.family(number);
        if (!own) continue;
        if (kind == Relative::Kind::Spouse) {
            add(otherSpouse(*own, candidate.is.nind));
            continue;
        }
        for (const Child& child : kin_.childrenOf(*own))
            add(child.nind);
    }
    return kin;
}

void Judge::judgeRelative(const Relative& relative, const Person& candidate, Evidence& evidence)
{
    const std::vector<qint64> kin = kinOf(candidate, relative.kind);
    const QString words = wordsFor(relative.kind, candidate.is.sex);
    if (relative.nind > 0)
        judgeKnown(relative, candidate, kin, words, evidence);
    else if (!relative.name.empty() && act_.people.at(relative.person).role != Role::Child) // who is born by the act
        judgeNamed(relative, kin, words, evidence);
}

QString Judge::nameOfPerson(qint64 nind)
{
    const Person* person = kin_.person(nind);
    return person ? person->is.name : QString();
}

void Judge::judgeKnown(const Relative& relative, const Person& candidate, const std::vector<qint64>& kin,
                       const QString& words, Evidence& evidence)
{
    if (std::ranges::count(kin, relative.nind) > 0) {
        static constexpr double brothers = 5; // who have the same parents
        const bool isParent = relative.kind == Relative::Kind::Father || relative.kind == Relative::Kind::Mother;
        const double byChance = (isParent ? brothers : 1) / double(index_.people() + 1);
        const double value = std::clamp(std::log2(agreement(relative.kind) / byChance), leastOfAKnown, mostOfAKnown);
        evidence.bits += value;
        evidence.related = true;
        evidence.reasons.push_back(
            {value, words + nameOfPerson(relative.nind) + ", " + roleTitle(act_, relative.person) + " neste acto"});
        return;
    }
    if (relative.kind == Relative::Kind::Child) return judgeOtherParent(relative, candidate, evidence);
    if (kin.empty() || !relative.certain) return;
    evidence.bits += std::log2(1 - agreement(relative.kind));
    evidence.against << words + nameOfPerson(kin.back());
}

// Whose child the person of the act is, is known already.
void Judge::judgeOtherParent(const Relative& relative, const Person& candidate, Evidence& evidence)
{
    const Person* child = kin_.person(relative.nind);
    const Family* origin = child ? kin_.family(child->is.family) : nullptr;
    if (!origin) return;
    const qint64 parent = candidate.is.sex == Sex::Female ? origin->wife : origin->husband;
    if (parent == 0) return;
    evidence.bits += otherParentOfKnown;
    evidence.against << wordsFor(relative.kind, candidate.is.sex).left(3) + " de " + child->is.name + " é " +
                            nameOfPerson(parent);
}

// Of the kin of a candidate, the one whose name is the likeliest to be that of a relative in the act. Who has another
// first name is somebody else, whatever surname they share: a family shares it.
Judge::LikestKin Judge::likestOf(const Relative& relative, const std::vector<qint64>& kin)
{
    LikestKin best;
    for (const qint64 nind : kin) {
        const Person* person = kin_.person(nind);
        if (!person || person->name.empty()) continue;
        const bool agrees = firstNamesAgree(relative.name, person->name);
        const double value = agrees ? nameBits(relative.name, person->name, sexOf(act_, relative.person)) : 0;
        if (best.who && value <= best.bits) continue;
        best = {.who = person, .bits = value};
    }
    return best;
}

void Judge::judgeNamed(const Relative& relative, const std::vector<qint64>& kin, const QString& words,
                       Evidence& evidence)
{
    auto [who, value] = likestOf(relative, kin);
    if (!who) return;
    if (relative.kind == Relative::Kind::Child) // of many, one has that name soon
        value -= std::log2(double(kin.size()));
    if (value > 0) {
        evidence.bits += value;
        evidence.related = evidence.related || value >= related;
        const QString of = sexOf(act_, relative.person) == Sex::Female ? " (nome da " : " (nome do ";
        evidence.reasons.push_back({value, words + who->is.name + of + roleTitle(act_, relative.person) + ")"});
    } else if (relative.certain && relative.kind != Relative::Kind::Child) {
        evidence.bits += std::log2(1 - agreement(relative.kind));
        evidence.against << words + who->is.name;
    }
}

QString Judge::placeName(const QString& code, const QString& level)
{
    const DadosDoNivel* place = nivelDaLetra(level);
    if (!place || code.isEmpty()) return {};
    jet::Rows name(bdp_, place->nomeDe(code));
    return name.next() ? name.text(0) : QString();
}

void Judge::judgeResidence(const Sought& sought, const Person& candidate, Evidence& evidence)
{
    if (sought.residence.isEmpty()) return;
    const QString wanted = placeKey(sought.residence);
    for (const Residence& residence : kin_.residencesOf(candidate)) {
        const QString name = placeName(residence.code, residence.level);
        const bool same = sought.residencePlace ? sought.residencePlace->code == residence.code &&
                                                      QString(sought.residencePlace->level) == residence.level
                                                : placeKey(name) == wanted;
        if (!same) continue;
        const double value = residence.level == "L" || residence.level == "S" ? sameLocality : sameParish;
        evidence.bits += value;
        evidence.reasons.push_back({value, QString("morava em %1 (%2)").arg(name, shown(partialDate(residence.date)))});
        return;
    }
}

void Judge::judgeProfession(const Sought& sought, const Person& candidate, Evidence& evidence)
{
    if (sought.profession.isEmpty()) return;
    for (const int code : kin_.professionsOf(candidate)) {
        jet::Rows name(bdp_, jet::NativeSql("select profissao from profissao where codprof = ?", {code}));
        const QString profession = name.next() ? name.text(0) : QString();
        const bool same =
            sought.professionCode ? *sought.professionCode == code : sameText(profession, sought.profession);
        if (!same) continue;
        evidence.bits += sameProfession;
        evidence.reasons.push_back({sameProfession, "profissão: " + profession});
        return;
    }
}

void Judge::judgeTitleAndNickname(const Sought& sought, const Person& candidate, Evidence& evidence)
{
    if (sought.title.isEmpty() && sought.nickname.isEmpty()) return;
    jet::Rows told(bdp_, jet::NativeSql("select titulo, alcunha from individuo where rowid = ?", {candidate.is.row}));
    if (!told.next()) return;
    const auto add = [&](double value, const QString& what, const QString& ours, const QString& theirs) {
        if (!sameText(ours, theirs)) return;
        evidence.bits += value;
        evidence.reasons.push_back({value, what + theirs.simplified()});
    };
    add(sameTitle, "título: ", sought.title, told.text(0));
    add(sameNickname, "alcunha: ", sought.nickname, told.text(1));
}

} // namespace study
