#include "study/indicators/annual.h"
#include "study/indicators/givenName.h"
#include "study/indicators/reading.h"
#include "study/indicators/scope.h"
#include "study/parish/codes.h"
#include "study/statistics/mortality.h"

#include <algorithm>

namespace study::indicators {

namespace {

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
    SamePlace,  // 1 where both live in one place, as far as their residences tell
    SharedName, // 1 where the child bears the first name of the godparent
    Reciprocal, // 1 where somebody of the child's family is godparent of a child of the godparent's
    Baptised,   // children, by how many godparents they have
    Held,       // people: how many godchildren
    Witnessed,  // people: at how many marriages they were witnesses
    Saints,     // the first of the reasons
    Unnamed,
    Undated,
    Elsewhere,
    OutOfBooks
};
constexpr std::array<const char*, 15> names = {"padrinhos",
                                               "parentesco",
                                               "mesmo-sexo",
                                               "clerigos",
                                               "mesmo-lugar",
                                               "mesmo-nome",
                                               "reciprocos",
                                               "baptizados",
                                               "afilhados-por-padrinho",
                                               "casamentos-por-testemunha",
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

enum Kin : qint32
{
    UnknownKin,
    NoKin,
    Paternal,
    Maternal,
    OtherKin
};
constexpr std::array<const char*, 5> kinTold = {"parentesco desconhecido", "sem parentesco", "parente do lado paterno",
                                                "parente do lado materno", "outro parente"};

// The codes of kinship: grandparents and uncles of either side; from "compadre" to "sem parentesco" no kin, but for the
// kin of a degree that isn't told.
Kin kinOf(parish::Code code)
{
    static constexpr int lastKin = 62, lastNoKin = 72, unknownDegree = 71, last = 78;
    if (!code || *code <= 0 || *code > last) return UnknownKin;
    switch (*code) {
    case 5:
    case 6:
    case 19:
    case 20:
        return Paternal;
    case 7:
    case 8:
    case 21:
    case 22:
        return Maternal;
    case unknownDegree:
        return OtherKin;
    default:
        return *code > lastKin && *code <= lastNoKin ? NoKin : OtherKin;
    }
}

bool isCleric(const Assistance& act)
{
    const Person& person = *act.assistant.person;
    return act.state == parish::civil::cleric || person.stateAtDeath == parish::civil::cleric;
}

// The last residence up to a day, or the first behind it.
const parish::Residence* residenceOn(std::span<const parish::Residence> residences, QDate day)
{
    const parish::Residence* found = nullptr;
    for (const parish::Residence& each : residences) {
        if (!each.place.isKnown()) continue;
        if (found && (!each.date.isKnown() || each.date.middle() > day)) break;
        found = &each;
    }
    return found;
}

const parish::Residence* homeOf(const Person& person, QDate day)
{
    if (const auto* own = residenceOn(person.residences, day)) return own;
    for (const parish::Membership* row : person.unions)
        if (row->family)
            if (const auto* shared = residenceOn(row->family->residences, day)) return shared;
    return nullptr;
}

const parish::Residence* homeOf(const Family& family, QDate day)
{
    if (const auto* own = residenceOn(family.residences, day)) return own;
    for (const Person* parent : {family.husband, family.wife})
        if (parent)
            if (const auto* theirs = residenceOn(parent->residences, day)) return theirs;
    return nullptr;
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

bool isPerson(const Assistance& act, GivenNames& known)
{
    return act.godparent && act.assistant.person && !known.of(*act.assistant.person).isSaint;
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
    const auto* one = homeOf(godparent, day);
    const auto* other = homeOf(*child.origin, day);
    if (one && other) count(SamePlace, one->place == other->place);
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

bool isCounted(const Person& child, const Study& study)
{
    if (!child.birth.isKnown() || !isHere(child.birthPlace, study)) return false;
    const int year = child.birth.middle().year();
    return study.settings.period.holds(year) && study.settings.covers(Series::Baptisms, year) &&
           isWanted(child.gender, study.settings) && isWanted(legitimacyOf(child, study.settings), study.settings);
}

// How much one person holds: who holds nothing isn't counted.
void countHolder(const Person& person, const Study& study, GivenNames& known, Taker& taker)
{
    if (person.assisted.empty() || known.of(person).isSaint) return;
    qint32 held = 0, witnessed = 0;
    for (const Assistance* act : person.assisted) {
        if (act->kind == parish::ActKind::Baptism && act->godparent && act->child && isCounted(*act->child, study))
            ++held;
        if (act->kind != parish::ActKind::Marriage || act->godparent || !act->family) continue;
        const parish::Date& day = act->family->marriage;
        if (day.isKnown() && study.settings.period.holds(day.middle().year()) && isHere(act->family->place, study))
            ++witnessed;
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
    table.notes = {"Parentes: entre os de parentesco conhecido. Mesmo lugar: entre aqueles de que se conhecem as duas "
                   "residências. Recíprocos: alguém da família da criança é padrinho na família do padrinho."};
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
            concentration(reading),
            distribution(reading, Held, "afilhados", "Afilhados por padrinho ou madrinha", "Padrinhos e madrinhas",
                         "Afilhados"),
            distribution(reading, Witnessed, "casamentos-testemunhados", "Casamentos por testemunha", "Testemunhas",
                         "Casamentos"),
            leftOutTable(reading, reasons)};
}

} // namespace

const Subject godparenthood = {
    "apadrinhamento",
    "Sociedade",
    "Apadrinhamento",
    "Contam os padrinhos e madrinhas dos baptismos da freguesia que têm ficha de pessoa; santos e imagens não são "
    "pessoas. Dá-se quantos afilhados cada um tem, quem são e como se concentram; à parte, as testemunhas dos "
    "casamentos. O parentesco só se conhece onde o acto o diz: a percentagem é entre esses.",
    names,
    reasons,
    fill,
    figures};

} // namespace study::indicators
