#include "study/indicators/annual.h"
#include "study/indicators/givenName.h"
#include "study/indicators/packedName.h"
#include "study/indicators/quotients.h"
#include "study/indicators/scope.h"

#include <algorithm>

namespace study::indicators {

namespace {

namespace namesGiven {

constexpr PackedName unnamed = {};

using At = Reading::At;
using parish::Person;
constexpr qint32 any = Reading::any;

// Period of the birth; of names, the name; of the others, gender, and 1 where it holds.
enum Count : quint16
{
    Boys,
    Girls,
    Doubled,     // a second given name behind the first
    Devotional,  // of women: a devotional name behind the given ones
    OfGodparent, // the first name of a godparent of the same sex
    OfParent,
    OfGrandparent,
    Nameless, // the first of the reasons
    Sexless,
    Elsewhere
};
constexpr std::array<const char*, 10> names = {"rapazes",     "raparigas",        "nomes-duplos", "devocionais",
                                               "do-padrinho", "dos-pais",         "dos-avos",     "sem-nome",
                                               "sem-sexo",    "fora-da-freguesia"};
constexpr std::array<Reason, 3> reasons = {{{Nameless, "criança sem nome próprio"},
                                            {Sexless, "criança de sexo indeterminado"},
                                            {Elsewhere, "nascimento fora da freguesia"}}};

constexpr int shownNames = 20;

// Somebody of the child's own sex among those who are known; nothing where nobody is.
std::optional<bool> isOneOf(std::initializer_list<const Person*> others, const Person& child, GivenNames& known)
{
    std::optional<bool> found;
    for (const Person* person : others)
        if (person && person->gender == child.gender)
            found = found.value_or(false) || known.of(*person).first == known.of(child).first;
    return found;
}

std::optional<bool> isOfGodparent(const Person& child, GivenNames& known)
{
    std::optional<bool> found;
    for (const parish::Assistance& act : child.godparents)
        if (act.godparent && act.assistant.person)
            if (const auto one = isOneOf({act.assistant.person}, child, known)) found = found.value_or(false) || *one;
    return found;
}

std::optional<bool> isOfGrandparent(const Person& child, GivenNames& known)
{
    const Person* father = child.father();
    const Person* mother = child.mother();
    return isOneOf({father ? father->father() : nullptr, father ? father->mother() : nullptr,
                    mother ? mother->father() : nullptr, mother ? mother->mother() : nullptr},
                   child, known);
}

void countChild(const Person& child, const Study& study, GivenNames& known, Taker& taker)
{
    const Settings& settings = study.settings;
    if (!child.birth.isKnown() || !settings.period.holds(child.birth.middle().year())) return;
    if (!isWanted(child.gender, settings) || !isWanted(legitimacyOf(child, settings), settings)) return;
    const Who who{&child, child.origin};
    if (!isHere(child.birthPlace, study)) return taker.count({Elsewhere}, who);
    if (child.gender == parish::Gender::Undetermined) return taker.count({Sexless}, who);
    const GivenName given = known.of(child);
    const PackedName name = packed(given.first);
    if (name == unnamed) return taker.count({Nameless}, who);
    const qint32 period = periodOf(child.birth.middle().year(), settings);
    const auto count = [&](quint16 which, std::optional<bool> holds) {
        if (holds) taker.count({which, {period, numbered(child.gender), *holds ? 1 : 0}}, who);
    };
    taker.count({child.gender == parish::Gender::Male ? Boys : Girls, {period, name[0], name[1], name[2]}}, who);
    count(Doubled, given.isDouble);
    if (child.gender == parish::Gender::Female) count(Devotional, given.isDevotional);
    count(OfGodparent, isOfGodparent(child, known));
    count(OfParent, isOneOf({child.father(), child.mother()}, child, known));
    count(OfGrandparent, isOfGrandparent(child, known));
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    GivenNames known;
    for (const Person& person : peopleOf(study, share))
        countChild(person, study, known, taker);
}

struct Frequency
{
    PackedName name = {};
    qint64 n = 0;
    std::vector<Key> keys = {};
};

// Of all periods or one, the most frequent first; of the same, in the order of their letters.
std::vector<Frequency> frequencies(const Tally& tally, quint16 count, qint32 period)
{
    std::map<PackedName, Frequency> byName;
    for (const auto& [key, n] : tally.cells()) {
        if (key.count != count || (period != any && key.at[0] != period)) continue;
        const PackedName name = {key.at[1], key.at[2], key.at[3]};
        Frequency& frequency = byName[name];
        frequency.name = name;
        frequency.n += n;
        frequency.keys.push_back(key);
    }
    std::vector<Frequency> all;
    all.reserve(byName.size());
    for (auto& entry : byName)
        all.push_back(std::move(entry.second));
    std::stable_sort(all.begin(), all.end(),
                     [](const Frequency& one, const Frequency& other) { return one.n > other.n; });
    return all;
}

Reading::Part partOf(const Frequency& frequency)
{
    return {frequency.n, frequency.keys};
}

Table namesTable(const Tally& tally, quint16 count, const QString& id, const QString& title)
{
    Table table{id, title, {textColumn("Nome"), countColumn("Crianças"), decimalColumn("De todas", "%")}};
    const auto all = frequencies(tally, count, any);
    Reading::Part whole;
    for (const Frequency& each : all)
        whole += partOf(each);
    for (std::size_t i = 0; i < all.size() && i < shownNames; ++i)
        table.rows.push_back(
            {report::text(unpacked(all[i].name)), counted(partOf(all[i])), percent(partOf(all[i]), whole)});
    if (all.size() > shownNames) table.notes = {QString("Há %1 nomes diferentes.").arg(all.size())};
    return table;
}

Table byPeriod(const Tally& tally, quint16 count, const Settings& settings, const QString& id, const QString& title)
{
    Table table{id,
                title,
                {textColumn("Nascimentos"), countColumn("Crianças"), countColumn("Nomes"),
                 textColumn("Os três mais dados"), decimalColumn("Os 3 primeiros", "%"),
                 decimalColumn("Os 5 primeiros", "%"), decimalColumn("Os 10 primeiros", "%")}};
    for (const qint32 period : tally.valuesOf(count, 0)) {
        const auto all = frequencies(tally, count, period);
        Reading::Part whole, top;
        QStringList first;
        std::vector<Cell> shares;
        for (const Frequency& each : all)
            whole += partOf(each);
        for (std::size_t i = 0; i < 10; ++i) {
            if (i < all.size()) top += partOf(all[i]);
            if (i < 3 && i < all.size()) first << unpacked(all[i].name);
            if (i == 2 || i == 4 || i == 9) shares.push_back(percent(top, whole));
        }
        table.rows.push_back({report::text(periodName(period, settings)), counted(whole),
                              report::number(static_cast<qint64>(all.size()), whole.keys),
                              report::text(first.join(", "))});
        table.rows.back().insert(table.rows.back().end(), shares.begin(), shares.end());
    }
    return table;
}

Table traits(const Reading& reading, const Settings& settings)
{
    Table table{"transmissao",
                "Nomes duplos, devocionais e transmitidos",
                {textColumn("Nascimentos"), decimalColumn("Nomes duplos", "%"),
                 decimalColumn("Nome devocional (mulheres)", "%"), decimalColumn("Nome de um padrinho", "%"),
                 decimalColumn("Nome do pai ou da mãe", "%"), decimalColumn("Nome de um avô ou avó", "%")}};
    for (const Group& group : groupsOf(reading, {Doubled})) {
        table.rows.push_back({report::text(told(group, settings))});
        for (const quint16 count : {Doubled, Devotional, OfGodparent, OfParent, OfGrandparent})
            table.rows.back().push_back(percent(reading.part(count, {group.period, group.gender, 1, any}),
                                                reading.part(count, {group.period, group.gender, any, any})));
    }
    table.notes = {"Compara-se com quem é do mesmo sexo da criança, entre as crianças de que se conhece alguém assim."};
    return table;
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    return {namesTable(tally, Boys, "nomes-m", "Nomes próprios: rapazes"),
            namesTable(tally, Girls, "nomes-f", "Nomes próprios: raparigas"),
            byPeriod(tally, Boys, settings, "concentracao-m", "Concentração dos nomes: rapazes"),
            byPeriod(tally, Girls, settings, "concentracao-f", "Concentração dos nomes: raparigas"),
            traits(reading, settings),
            leftOutTable(reading, reasons)};
}

} // namespace namesGiven

} // namespace

const Subject givenNames = {
    "nomes",
    "Sociedade",
    "Nomes próprios",
    "Contam as crianças nascidas na freguesia, pelo primeiro nome na forma de hoje; o segundo só conta para os nomes "
    "duplos. Um nome transmitido é o de um padrinho, pai ou avô do mesmo sexo. Maria e João são tão frequentes que o "
    "mesmo nome nem sempre quer dizer que foi transmitido.",
    namesGiven::names,
    namesGiven::reasons,
    namesGiven::fill,
    namesGiven::figures};

} // namespace study::indicators
