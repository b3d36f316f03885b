#include "study/indicators/annual.h"
#include "study/indicators/godparents.h"
#include "study/indicators/marriages.h"
#include "study/indicators/reading.h"
#include "study/indicators/scope.h"
#include "study/statistics/mortality.h"

#include <algorithm>

namespace study::indicators {

namespace {

namespace godparentsTold {

using At = Reading::At;
using parish::Assistance;
using parish::Family;
using parish::Person;
constexpr qint32 any = Reading::any;

// Period of the baptism, and what the count tells, of each godparent of a child; of a holder only how many are held.
enum Count : quint16
{
    Edges,      // gender of the child; gender of the godparent
    Kinship,    // by Kin
    SameSex,    // 1 where it is
    Clergy,     // 1 for a cleric
    SamePlace,  // 1 where both live in one locality, as far as their residences tell
    SharedName, // 1 where the child bears the first name of the godparent
    Reciprocal, // 1 where somebody of the child's family is godparent of a child of the godparent's
    Baptised,   // children, by how many godparents they have
    Held,       // people: how many godchildren
    Witnessed,  // people: at how many marriages they were witnesses
    Witnesses,  // of marriages: period of the marriage; gender of the witness
    WitnessKin, // by KinOfCouple
    WitnessClergy,
    WitnessPlace,
    Saints, // the first of the reasons
    Unnamed,
    Undated,
    Elsewhere,
    OutOfBooks
};
constexpr std::array<const char*, 19> names = {"padrinhos",
                                               "parentesco",
                                               "mesmo-sexo",
                                               "clerigos",
                                               "mesmo-lugar",
                                               "mesmo-nome",
                                               "reciprocos",
                                               "baptizados",
                                               "afilhados-por-padrinho",
                                               "casamentos-por-testemunha",
                                               "testemunhas",
                                               "parentesco-das-testemunhas",
                                               "testemunhas-clerigos",
                                               "testemunhas-do-mesmo-lugar",
                                               "santos",
                                               "sem-pessoa",
                                               "sem-data",
                                               "fora-da-freguesia",
                                               "fora-dos-livros"};
constexpr std::array<Reason, 5> reasons = {{{Saints, "padrinho que é um santo, e não uma pessoa"},
                                            {Unnamed, "padrinho sem ficha de pessoa"},
                                            {Undated, "baptismo sem data"},
                                            {Elsewhere, "baptismo fora da freguesia"},
                                            {OutOfBooks, "baptismo fora dos livros ou numa lacuna"}}};

constexpr std::array<const char*, 5> kinTold = {"parentesco desconhecido", "sem parentesco", "parente do lado paterno",
                                                "parente do lado materno", "outro parente"};

enum KinOfCouple : qint32
{
    Unrelated = NoKin,
    OfGroom,
    OfBride,
    OfBoth
};

// UnknownKin where neither kinship is told.
qint32 kinOfCouple(const Assistance& act)
{
    const Kin groom = kinOf(act.kinToGroom), bride = kinOf(act.kinToBride);
    const bool his = groom > NoKin, hers = bride > NoKin;
    if (his && hers) return OfBoth;
    if (his || hers) return his ? OfGroom : OfBride;
    return groom == NoKin || bride == NoKin ? qint32(Unrelated) : qint32(UnknownKin);
}

std::optional<bool> inOneLocality(const parish::Residence* one, const parish::Residence* other)
{
    return one && other ? parish::inOneLocality(one->place, other->place) : std::nullopt;
}

void countWitnesses(const Family& family, const Study& study, GivenNames& known, Taker& taker)
{
    if (marriageIs(family, study) != MarriageIs::Counted) return;
    const qint32 period = periodOf(family.marriage.year(), study.settings);
    const QDate day = family.marriage.middle();
    for (const Assistance& act : family.witnesses) {
        if (act.godparent || !isPerson(act, known)) continue;
        const Person& witness = *act.assistant.person;
        const Who who{&witness, &family};
        taker.count({Witnesses, {period, numbered(witness.gender)}}, who);
        taker.count({WitnessKin, {period, kinOfCouple(act)}}, who);
        taker.count({WitnessClergy, {period, isCleric(act) ? 1 : 0}}, who);
        if (const auto same = inOneLocality(homeOf(witness, day), homeOf(family, day)))
            taker.count({WitnessPlace, {period, *same ? 1 : 0}}, who);
    }
}

bool isOf(const Person* person, const Family& family)
{
    return person == family.husband || person == family.wife ||
           std::find(family.children.begin(), family.children.end(), person) != family.children.end();
}

bool isReciprocal(const Person& godparent, const Family& family)
{
    for (const parish::Membership* row : godparent.unions) {
        if (!row->family) continue;
        for (const Person* child : row->family->children)
            for (const Assistance& act : child->godparents)
                if (act.godparent && act.assistant.person && isOf(act.assistant.person, family)) return true;
    }
    return false;
}

void countEdge(const Person& child, const Assistance& act, qint32 period, GivenNames& known, Taker& taker)
{
    const Person& godparent = *act.assistant.person;
    const Who who{&godparent, child.origin};
    const auto count = [&](quint16 which, bool holds) { taker.count({which, {period, holds ? 1 : 0}}, who); };
    taker.count({Edges, {period, numbered(child.gender), numbered(godparent.gender)}}, who);
    taker.count({Kinship, {period, kinOf(act.kinToChild)}}, who);
    const bool sexed = child.gender != parish::Gender::Undetermined && godparent.gender != parish::Gender::Undetermined;
    if (sexed) count(SameSex, child.gender == godparent.gender);
    count(Clergy, isCleric(act));
    const QString name = known.of(child).first;
    if (!name.isEmpty()) count(SharedName, name == known.of(godparent).first);
    if (!child.origin) return;
    count(Reciprocal, isReciprocal(godparent, *child.origin));
    const QDate day = child.birth.middle();
    if (const auto same = inOneLocality(homeOf(godparent, day), homeOf(*child.origin, day))) count(SamePlace, *same);
}

void countBaptism(const Person& child, const Study& study, GivenNames& known, Taker& taker)
{
    const Settings& settings = study.settings;
    const bool has = std::any_of(child.godparents.begin(), child.godparents.end(),
                                 [](const Assistance& act) { return act.godparent; });
    if (!has || !isWanted(child.gender, settings) || !isWanted(legitimacyOf(child, settings), settings)) return;
    const Who who{&child, child.origin};
    if (!child.birth.isKnown()) return taker.count({Undated}, who);
    const int year = child.birth.middle().year();
    if (!settings.period.holds(year)) return;
    if (!isHere(child.birthPlace, study)) return taker.count({Elsewhere}, who);
    if (!settings.covers(Series::Baptisms, year)) return taker.count({OutOfBooks}, who);
    const qint32 period = periodOf(year, settings);
    qint32 godparents = 0;
    for (const Assistance& act : child.godparents) {
        if (!act.godparent) continue;
        if (!act.assistant.person) {
            taker.count({Unnamed}, who);
            continue;
        }
        if (!isPerson(act, known)) {
            taker.count({Saints}, {act.assistant.person, child.origin});
            continue;
        }
        ++godparents;
        countEdge(child, act, period, known, taker);
    }
    taker.count({Baptised, {period, godparents}}, who);
}

// How much one person holds: who holds nothing isn't counted.
void countHolder(const Person& person, const Study& study, GivenNames& known, Taker& taker)
{
    if (person.assisted.empty() || known.of(person).isSaint) return;
    qint32 held = 0, witnessed = 0;
    for (const Assistance* act : person.assisted) {
        if (act->kind == parish::ActKind::Baptism && act->godparent && act->child &&
            isCountedBaptism(*act->child, study))
            ++held;
        if (act->kind != parish::ActKind::Marriage || act->godparent || !act->family) continue;
        if (marriageIs(*act->family, study) == MarriageIs::Counted) ++witnessed;
    }
    if (held > 0) taker.count({Held, {held}}, {&person, nullptr});
    if (witnessed > 0) taker.count({Witnessed, {witnessed}}, {&person, nullptr});
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    GivenNames known;
    for (const Person& person : peopleOf(study, share)) {
        countBaptism(person, study, known, taker);
        countHolder(person, study, known, taker);
    }
    for (const Family& family : familiesOf(study, share))
        countWitnesses(family, study, known, taker);
}

struct Holdings
{
    std::map<int, qint64> byNumber = {};
    qint64 holders = 0, held = 0;
};

Holdings holdingsOf(const Reading& reading, quint16 count)
{
    Holdings holdings;
    const Reading::Spread spread = reading.spread(count, 0);
    for (const auto& [number, n] : spread.values.counts()) {
        holdings.byNumber[number] = n;
        holdings.holders += n;
        holdings.held += number * n;
    }
    return holdings;
}

// What the holders of most hold together.
qint64 heldByTop(const Holdings& holdings, qint64 top)
{
    qint64 held = 0;
    for (auto it = holdings.byNumber.rbegin(); it != holdings.byNumber.rend() && top > 0; ++it) {
        const qint64 some = std::min(top, it->second);
        held += some * it->first;
        top -= some;
    }
    return held;
}

Table distribution(const Reading& reading, quint16 count, const QString& id, const QString& title,
                   const QString& holders, const QString& what)
{
    Table table{id,
                title,
                {textColumn(what), countColumn(holders), decimalColumn("De todos", "%"),
                 decimalColumn(what + " que têm", "%")}};
    const Holdings holdings = holdingsOf(reading, count);
    const auto all = reading.part(count);
    for (const auto& [number, n] : holdings.byNumber) {
        const auto some = reading.part(count, {number, any, any, any});
        table.rows.push_back({report::text(QString::number(number)), counted(some), percent(some, all),
                              report::share(number * n, holdings.held, 100, some.keys)});
    }
    return table;
}

Table concentration(const Reading& reading)
{
    Table table{"concentracao",
                "Concentração",
                {textColumn("Papel"), countColumn("Pessoas"), countColumn("Afilhados ou casamentos"),
                 decimalColumn("Média", "", 2), countColumn("Máximo"), decimalColumn("Gini", "", 3),
                 decimalColumn("Os 2 primeiros têm", "%"), decimalColumn("Os 20 primeiros têm", "%")}};
    for (const auto& role :
         {std::pair(Held, "Padrinhos e madrinhas"), std::pair(Witnessed, "Testemunhas de casamento")}) {
        const Holdings holdings = holdingsOf(reading, role.first);
        if (holdings.holders == 0) continue;
        const auto part = reading.part(role.first);
        const auto index = statistics::gini(holdings.byNumber);
        const int most = holdings.byNumber.rbegin()->first;
        table.rows.push_back(
            {report::text(role.second), counted(part), report::number(holdings.held, part.keys),
             report::number(static_cast<double>(holdings.held) / static_cast<double>(holdings.holders), part.keys),
             report::number(most, reading.part(role.first, {most, any, any, any}).keys),
             index ? report::number(*index, part.keys) : Cell(),
             report::share(heldByTop(holdings, 2), holdings.held, 100, part.keys),
             report::share(heldByTop(holdings, 20), holdings.held, 100, part.keys)});
    }
    table.notes = {"Gini: 0 se todos têm o mesmo, perto de 1 se um só tem tudo. Quem nunca o foi não conta."};
    return table;
}

Table traits(const Reading& reading, const Settings& settings)
{
    Table table{"caracteristicas",
                "Quem são os padrinhos, por período",
                {textColumn("Baptismos"), countColumn("Padrinhos e madrinhas"), decimalColumn("Parentes", "%"),
                 decimalColumn("Do mesmo sexo", "%"), decimalColumn("Do mesmo lugar", "%"),
                 decimalColumn("Clérigos", "%"), decimalColumn("Recíprocos", "%"), decimalColumn("Dão o nome", "%")}};
    std::vector<qint32> periods = reading.values(Edges, 0);
    if (!periods.empty()) periods.push_back(any);
    for (const qint32 period : periods) {
        const auto holding = [&](quint16 count) {
            return percent(reading.part(count, {period, 1, any, any}), reading.part(count, {period, any, any, any}));
        };
        const At at = {period, any, any, any};
        table.rows.push_back({report::text(period == any ? QString("Todo o período") : periodName(period, settings)),
                              counted(reading.part(Edges, at)),
                              percent(reading.within(Kinship, 1, Paternal, OtherKin + 1, at),
                                      reading.within(Kinship, 1, NoKin, OtherKin + 1, at)),
                              holding(SameSex), holding(SamePlace), holding(Clergy), holding(Reciprocal),
                              holding(SharedName)});
    }
    table.notes = {
        "Parentes: entre os de parentesco conhecido. Mesmo lugar: entre aqueles de que se conhecem as duas "
        "residências, cada sítio pelo seu lugar. Recíprocos: alguém da família da criança é padrinho na família do "
        "padrinho."};
    return table;
}

Table traitsOfWitnesses(const Reading& reading, const Settings& settings)
{
    Table table{"testemunhas",
                "Quem são as testemunhas dos casamentos, por período",
                {textColumn("Casamentos"), countColumn("Testemunhas"), decimalColumn("Mulheres", "%"),
                 decimalColumn("Parentes", "%"), decimalColumn("Só do noivo", "%"), decimalColumn("Só da noiva", "%"),
                 decimalColumn("Do mesmo lugar", "%"), decimalColumn("Clérigos", "%")}};
    for (const auto& [period, name] : periodsOf(reading, {Witnesses}, settings)) {
        const At at = {period, any, any, any};
        const Reading::Part known = reading.within(WitnessKin, 1, Unrelated, OfBoth + 1, at);
        const auto kin = [&](qint32 from, qint32 until) {
            return percent(reading.within(WitnessKin, 1, from, until + 1, at), known);
        };
        const auto holding = [&](quint16 count) {
            return percent(reading.part(count, {at[0], 1, any, any}), reading.part(count, at));
        };
        const auto women = reading.part(Witnesses, {period, numbered(parish::Gender::Female), any, any});
        table.rows.push_back({report::text(name), counted(reading.part(Witnesses, at)),
                              percent(women, reading.part(Witnesses, at)), kin(OfGroom, OfBoth), kin(OfGroom, OfGroom),
                              kin(OfBride, OfBride), holding(WitnessPlace), holding(WitnessClergy)});
    }
    table.notes = {
        "Parentes: entre as de parentesco conhecido com o noivo ou a noiva. Mesmo lugar: entre aquelas de que "
        "se conhece a residência, e a do casal."};
    return table;
}

Table kinship(const Reading& reading)
{
    Table table{"parentesco",
                "Parentesco dos padrinhos",
                {textColumn("Parentesco"), countColumn("Padrinhos e madrinhas"), decimalColumn("De todos", "%")}};
    const auto all = reading.part(Kinship);
    for (const qint32 kin : reading.values(Kinship, 1)) {
        const auto some = reading.part(Kinship, {any, kin, any, any});
        table.rows.push_back({report::text(kinTold[static_cast<std::size_t>(kin)]), counted(some), percent(some, all)});
    }
    return table;
}

Table perChild(const Reading& reading)
{
    Table table{"padrinhos-por-crianca",
                "Padrinhos por criança",
                {textColumn("Padrinhos e madrinhas"), countColumn("Crianças"), decimalColumn("De todas", "%")}};
    const auto all = reading.part(Baptised);
    for (const qint32 number : reading.values(Baptised, 1)) {
        const auto some = reading.part(Baptised, {any, number, any, any});
        table.rows.push_back({report::text(QString::number(number)), counted(some), percent(some, all)});
    }
    return table;
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    return {traits(reading, settings),
            kinship(reading),
            perChild(reading),
            traitsOfWitnesses(reading, settings),
            concentration(reading),
            distribution(reading, Held, "afilhados", "Afilhados por padrinho ou madrinha", "Padrinhos e madrinhas",
                         "Afilhados"),
            distribution(reading, Witnessed, "casamentos-testemunhados", "Casamentos por testemunha", "Testemunhas",
                         "Casamentos"),
            leftOutTable(reading, reasons)};
}

} // namespace godparentsTold

} // namespace

const Subject godparenthood = {
    "apadrinhamento",
    "Sociedade",
    "Apadrinhamento",
    "Contam os padrinhos e madrinhas dos baptismos da freguesia que têm ficha de pessoa; santos e imagens não são "
    "pessoas. Dá-se quantos afilhados cada um tem, quem são e como se concentram; à parte, as testemunhas dos "
    "casamentos. O parentesco só se conhece onde o acto o diz: a percentagem é entre esses.",
    godparentsTold::names,
    godparentsTold::reasons,
    godparentsTold::fill,
    godparentsTold::figures};

} // namespace study::indicators
