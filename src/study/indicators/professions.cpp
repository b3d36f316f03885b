// What people did: at their marriage, at their first child, at death, ever; and what the sons of fathers did.
#include "study/indicators/labels.h"
#include "study/indicators/marriages.h"
#include "study/indicators/other.h"
#include "study/indicators/reasons.h"
#include "study/indicators/scope.h"

#include <algorithm>
#include <cstdlib>
#include <set>

namespace study::indicators {

namespace {

namespace trades {

using parish::Date;
using parish::Gender;
using parish::Person;
using parish::Profession;
using report::Figure;

enum Count : quint16
{
    AtMarriage, // label
    AtFirstChild,
    AtDeath,
    Ever,
    Told,      // moment, sex, whether a profession is told
    SameAsSon, // label of the father's: sons who have it too
    OtherThanSon,
    Cohort,    // of the son's birth, whether the profession is the father's
    ByGroup,   // moment, major group of HISCO
    GroupPair, // the father's, the son's
    NoCode,
    NoDate,
    OutOfPeriod,
    NoFather,
    FatherNotTold,
    SonNotTold
};

constexpr const char* counts[] = {
    "ao casamento",    "ao primeiro filho",     "ao óbito",          "em toda a vida",
    "conhecida",       "filho com a do pai",    "filho com outra",   "coorte do filho",
    "grupo HISCO",     "grupos de pai e filho", "sem código",        "sem data",
    "fora do período", "sem pai ligado",        "pai sem profissão", "filho sem profissão"};

constexpr Reason leftOut[] = {{NoCode, "profissão sem código"},
                              {NoDate, "profissão sem data (só conta em toda a vida)"},
                              {OutOfPeriod, "casamento, filho ou óbito fora do período"},
                              {NoFather, "de pai a filho: sem pai ligado"},
                              {FatherNotTold, "de pai a filho: sem profissão do pai antes dos 25 anos do filho"},
                              {SonNotTold, "de pai a filho: sem profissão do filho ao casar ou depois dos 25 anos"}};

constexpr qint32 any = Reading::any;
constexpr int nearDays = 365, grown = 25;

enum Moment : qint32
{
    Marriage,
    FirstChild,
    Death
};

bool isUsable(const Profession& row)
{
    return row.code && row.date.isKnown();
}

// The one told nearest to the day, within a year of it.
const Profession* toldNear(const Person& person, const Date& day)
{
    const auto distance = [&day](const Profession& row) { return std::abs(row.date.middle().daysTo(day.middle())); };
    const Profession* nearest = nullptr;
    for (const Profession& row : person.professions) {
        if (!isUsable(row) || distance(row) > nearDays) continue;
        if (!nearest || distance(row) < distance(*nearest)) nearest = &row;
    }
    return nearest;
}

// The first one from the 25th birthday on, or the last one before it.
const Profession* toldAround(const Person& person, const Date& birth, bool isBefore)
{
    const Profession* found = nullptr;
    for (const Profession& row : person.professions) {
        if (!isUsable(row) || (completedYears(birth, row.date) < grown) != isBefore) continue;
        const bool isBetter = !found || (found->date.middle() < row.date.middle()) == isBefore;
        if (isBetter) found = &row;
    }
    return found;
}

Date firstMarriageOf(const Person& person)
{
    for (const parish::Membership* row : person.unions)
        if (row->family && row->family->marriage.isKnown()) return row->family->marriage;
    return {};
}

Date firstChildOf(const Person& person)
{
    Date first;
    for (const parish::Membership* row : person.unions) {
        if (!row->family) continue;
        for (const Person* child : row->family->children)
            if (child->birth.isKnown() && (!first.isKnown() || child->birth.middle() < first.middle()))
                first = child->birth;
    }
    return first;
}

// The major groups of HISCO, with those that it counts as one joined: 0 where the profession has no code.
constexpr const char* majorGroups[] = {"sem código HISCO",
                                       "0/1 Profissões liberais e técnicas",
                                       "2 Administração e direcção",
                                       "3 Escriturários",
                                       "4 Comércio",
                                       "5 Serviços",
                                       "6 Agricultura, gado, mata e pesca",
                                       "7/8/9 Ofícios, indústria e transportes"};

qint32 majorGroupOf(const QString& hisco)
{
    if (hisco.isEmpty() || !hisco.front().isDigit()) return 0;
    static constexpr int firstOfTheCrafts = 7;
    return std::clamp(hisco.front().digitValue(), 1, firstOfTheCrafts);
}

class Worker
{
public:
    Worker(const Person& person, const Study& study, Taker& taker) : person_(person), study_(study), taker_(taker) {}

    void count() const
    {
        const Gender asked = study_.settings.gender;
        if (asked != Gender::Undetermined && asked != person_.gender) return;
        countEver();
        countAt(Marriage, AtMarriage, firstMarriageOf(person_));
        countAt(FirstChild, AtFirstChild, firstChildOf(person_));
        countAt(Death, AtDeath, person_.death);
        if (person_.gender == Gender::Male && person_.birth.isKnown()) countAgainstFather();
    }

private:
    void countEver() const
    {
        std::set<int> codes;
        for (const Profession& row : person_.professions) {
            if (!row.code)
                add(NoCode);
            else if (codes.insert(*row.code).second)
                add(Ever, label(row));
            if (row.code && !row.date.isKnown()) add(NoDate);
        }
    }
    void countAt(Moment moment, Count which, const Date& day) const
    {
        if (!day.isKnown()) return;
        if (!study_.settings.period.holds(day.year())) return add(OutOfPeriod);
        const Profession* near = toldNear(person_, day);
        add(Told, {moment, static_cast<qint32>(person_.gender), near ? 1 : 0});
        if (!near) return;
        add(which, label(*near));
        add(ByGroup, {moment, group(*near)});
    }
    void countAgainstFather() const
    {
        if (person_.professions.empty()) return;
        const Date marriage = firstMarriageOf(person_);
        const Profession* mine = marriage.isKnown() ? toldNear(person_, marriage) : nullptr;
        if (!mine) mine = toldAround(person_, person_.birth, false);
        if (!mine) return add(SonNotTold);
        if (!study_.settings.period.holds(mine->date.year())) return;
        const Person* const father = person_.father();
        if (!father) return add(NoFather);
        const Profession* his = toldAround(*father, person_.birth, true);
        if (!his) return add(FatherNotTold);
        const bool isSame = *his->code == *mine->code;
        add(isSame ? SameAsSon : OtherThanSon, label(*his));
        add(GroupPair, {group(*his), group(*mine)});
        add(Cohort, {periodOf(person_.birth.year(), study_.settings), isSame ? 1 : 0});
    }
    Reading::At label(const Profession& row) const
    {
        return labelled(study_.parish.catalogue().professions.value(*row.code), *row.code);
    }
    qint32 group(const Profession& row) const { return majorGroupOf(study_.parish.catalogue().hisco.value(*row.code)); }
    void add(Count which, const Reading::At& at = {}) const { taker_.count({which, at}, {&person_, nullptr}); }

    const Person& person_;
    const Study& study_;
    Taker& taker_;
};

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (const parish::Person& person : peopleOf(study, share))
        Worker(person, study, taker).count();
}

// Figures

Table known(const Reading& reading)
{
    static constexpr struct
    {
        Moment moment;
        Gender gender;
        const char* name;
    } rows[] = {{Marriage, Gender::Male, "Homens, ao casar"},
                {Marriage, Gender::Female, "Mulheres, ao casar"},
                {FirstChild, Gender::Male, "Homens, ao primeiro filho"},
                {FirstChild, Gender::Female, "Mulheres, ao primeiro filho"},
                {Death, Gender::Male, "Homens, ao morrer"},
                {Death, Gender::Female, "Mulheres, ao morrer"}};
    Table table{
        "conhecidas",
        "De quantos se conhece a profissão",
        {textColumn("Momento"), countColumn("Pessoas"), countColumn("Com profissão"),
         decimalColumn("Sem profissão conhecida", "%")},
        {},
        {"A profissão dita mais perto do acontecimento, a um ano dele no máximo. Não ser dita não é não a ter."}};
    for (const auto& each : rows) {
        const auto part = [&](qint32 told) {
            return reading.part(Told, {each.moment, static_cast<qint32>(each.gender), told, any});
        };
        if (part(any).n == 0) continue;
        table.rows.push_back(
            {report::text(each.name), counted(part(any)), counted(part(1)), percent(part(0), part(any))});
    }
    return table;
}

Table fathersAndSons(const Reading& reading)
{
    struct Sons
    {
        Reading::Part same = {}, other = {};
    };
    std::map<Reading::At, Sons> fathers;
    for (const Reading::Part& part : reading.cellsOf(SameAsSon))
        fathers[part.keys.front().at].same = part;
    for (const Reading::Part& part : reading.cellsOf(OtherThanSon))
        fathers[part.keys.front().at].other = part;
    Table table{
        "de-pai-a-filho",
        "De pai a filho, pela profissão do pai",
        {textColumn("Profissão do pai"), countColumn("Filhos"), countColumn("Com a mesma"),
         decimalColumn("Com a mesma, em 100", "%")},
        {},
        {"A do pai: a última dita antes dos 25 anos do filho. A do filho: ao casar, ou a primeira dita depois dos "
         "25 anos."}};
    Sons all;
    const auto row = [&table](const QString& name, const Sons& sons) {
        Reading::Part both = sons.same;
        both += sons.other;
        table.rows.push_back({report::text(name), counted(both), counted(sons.same), percent(sons.same, both)});
    };
    for (const auto& [at, sons] : fathers) {
        row(labelOf(at), sons);
        all.same += sons.same;
        all.other += sons.other;
    }
    const auto isMore = [](const std::vector<Cell>& one, const std::vector<Cell>& other) {
        return std::get<double>(one[1].value) > std::get<double>(other[1].value);
    };
    std::stable_sort(table.rows.begin(), table.rows.end(), isMore);
    if (!fathers.empty()) row("Todas", all);
    return table;
}

Table byGroup(const Reading& reading)
{
    Table table{"grupos-hisco", "Profissões por grande grupo HISCO", {textColumn("Grupo")}, {}, {}};
    constexpr const char* moments[] = {"Ao casar", "Ao primeiro filho", "Ao morrer"};
    for (const char* moment : moments) {
        table.columns.push_back(countColumn(moment));
        table.columns.push_back(decimalColumn(QString(moment) + ", em 100", "%"));
    }
    if (reading.sum(ByGroup) == 0) return table;
    for (qint32 group = 0; group < static_cast<qint32>(std::size(majorGroups)); ++group) {
        std::vector<Cell> row = {report::text(majorGroups[group])};
        for (qint32 moment = Marriage; moment <= Death; ++moment) {
            const Reading::Part part = reading.part(ByGroup, {moment, group, any, any});
            row.push_back(counted(part));
            row.push_back(percent(part, reading.part(ByGroup, {moment, any, any, any})));
        }
        table.rows.push_back(row);
    }
    return table;
}

Table groupsOfSons(const Reading& reading)
{
    Table table{"grupos-de-pai-a-filho",
                "Grande grupo HISCO do pai (linhas) e do filho (colunas)",
                {textColumn("Pai")},
                {},
                {}};
    if (reading.sum(GroupPair) == 0) return table;
    for (const char* name : majorGroups)
        table.columns.push_back(countColumn(name));
    for (qint32 his = 0; his < static_cast<qint32>(std::size(majorGroups)); ++his) {
        std::vector<Cell> row = {report::text(majorGroups[his])};
        for (qint32 sons = 0; sons < static_cast<qint32>(std::size(majorGroups)); ++sons)
            row.push_back(counted(reading.part(GroupPair, {his, sons, any, any})));
        table.rows.push_back(row);
    }
    return table;
}

Table cohorts(const Reading& reading, const Settings& settings)
{
    Table table{"coortes-de-filhos",
                "Filhos com a profissão do pai, por coorte de nascimento",
                {textColumn("Nascidos em"), countColumn("Filhos"), countColumn("Com a mesma"),
                 decimalColumn("Com a mesma, em 100", "%")},
                {},
                {}};
    for (const auto& [cohort, name] : periodsOf(reading, {Cohort}, settings)) {
        const Reading::Part all = reading.part(Cohort, {cohort, any, any, any});
        const Reading::Part same = reading.part(Cohort, {cohort, 1, any, any});
        table.rows.push_back({report::text(name), counted(all), counted(same), percent(same, all)});
    }
    return table;
}

std::vector<Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    const auto table = [&reading](Count count, const char* id, const char* title) {
        return byLabel(reading, count, {id, title, {}, {}, {}}, "Profissão", "Pessoas");
    };
    return {known(reading),
            table(AtMarriage, "ao-casar", "Profissões ao primeiro casamento conhecido"),
            table(AtFirstChild, "ao-primeiro-filho", "Profissões ao nascer o primeiro filho"),
            table(AtDeath, "ao-morrer", "Profissões ao morrer"),
            table(Ever, "em-toda-a-vida", "Profissões em toda a vida (uma pessoa pode ter várias)"),
            byGroup(reading),
            fathersAndSons(reading),
            groupsOfSons(reading),
            cohorts(reading, settings),
            leftOutTable(reading, leftOut)};
}

} // namespace trades

} // namespace

const Subject professions = {
    "profissoes",
    "Outros",
    "Profissões",
    "Contam-se as pessoas pela profissão dita mais perto do casamento, do primeiro filho e do óbito, e por cada uma "
    "que "
    "tiveram em toda a vida. De pai a filho compara-se a última do pai antes dos 25 anos do filho com a do filho já "
    "homem. Os livros dizem a profissão de poucos, e de uns ofícios mais do que de outros.",
    trades::counts,
    trades::leftOut,
    trades::fill,
    trades::figures};

} // namespace study::indicators
