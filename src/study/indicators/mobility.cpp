// Who moved: residences, deaths elsewhere, and those who vanish.
#include "study/indicators/labels.h"
#include "study/indicators/marriages.h"
#include "study/indicators/other.h"
#include "study/indicators/packedName.h"
#include "study/indicators/reading.h"
#include "study/indicators/reasons.h"
#include "study/indicators/scope.h"

#include <algorithm>
#include <map>
#include <set>

namespace study::indicators {

namespace {

namespace moving {

using parish::Date;
using parish::Gender;
using parish::Person;
using parish::Residence;
using report::Figure;

enum Count : quint16
{
    Owners,     // whose, how many places
    Moves,      // whose, from which class of places, to which
    Days,       // whose: between the first residence and the last
    PlaceMoves, // from which place, to which, by their numbers; a site is taken as of its locality
    PlaceNames, // the number of a place, and the letters of its name: once for each end of a move
    DeathPlace, // cohort, sex, where
    Fate,       // cohort, sex, what became of who was seen to the 15th birthday
    NoPlace,
    NoDate,
    UnknownBirthplace,
    UnknownDeathPlace,
    NoSex,
    GoneAsChild
};

constexpr const char* counts[] = {"com residência",
                                  "mudanças",
                                  "dias",
                                  "mudanças entre lugares",
                                  "nomes dos lugares",
                                  "lugar do óbito",
                                  "destino",
                                  "sem lugar",
                                  "sem data",
                                  "naturalidade desconhecida",
                                  "lugar do óbito desconhecido",
                                  "sexo por determinar",
                                  "perdido em criança"};

constexpr Reason leftOut[] = {{NoPlace, "residência sem lugar"},
                              {NoDate, "residência sem data"},
                              {UnknownBirthplace, "sem lugar de nascimento"},
                              {UnknownDeathPlace, "natural da paróquia, com óbito sem lugar"},
                              {NoSex, reasons::unknownSex},
                              {GoneAsChild, "natural da paróquia que deixa de ser visto antes dos 15 anos"}};

constexpr qint32 any = Reading::any;
constexpr int grown = 15;

enum Whose : qint32
{
    OfAPerson,
    OfAFamily
};
enum Where : qint32
{
    Here,
    Away
};
enum Became : qint32
{
    Died,    // in the parish or elsewhere
    Married, // and no death is known
    Lost
};

constexpr qint32 numbersOfALevel = 8; // of the seven letters, and of no letter

// One for each place whose code has no more digits than a locality's.
qint32 numberOf(const parish::Place& place)
{
    static const QString levels = "PZDCFLS";
    const auto level = static_cast<qint32>(levels.indexOf(place.level)) + 1;
    return place.code.left(parish::digitsOfLocality).toInt() * numbersOfALevel + level;
}

void countMove(const Residence& from, const Residence& to, const Study& study, const Who& who, Taker& taker)
{
    const parish::Place one = parish::localityOf(from.place), other = parish::localityOf(to.place);
    if (one == other) return;
    taker.count({PlaceMoves, {numberOf(one), numberOf(other)}}, who);
    for (const parish::Place& place : {one, other}) {
        const Reading::At name = labelled(study.parish.catalogue().name(place), 0);
        taker.count({PlaceNames, {numberOf(place), name[0], name[1], name[2]}}, who);
    }
}

void countResidences(std::span<const Residence> rows, Whose whose, const Study& study, const Who& who, Taker& taker)
{
    std::vector<const Residence*> dated;
    for (const Residence& row : rows) {
        if (!row.place.isKnown())
            taker.count({NoPlace, {}}, who);
        else if (!row.date.isKnown())
            taker.count({NoDate, {}}, who);
        else
            dated.push_back(&row);
    }
    if (dated.empty()) return;
    std::stable_sort(dated.begin(), dated.end(), [](const Residence* one, const Residence* other) {
        return one->date.middle() < other->date.middle();
    });
    std::set<QString> places;
    for (const Residence* row : dated)
        places.insert(row->place.level + row->place.code);
    taker.count({Owners, {whose, static_cast<qint32>(places.size())}}, who);
    for (std::size_t i = 1; i < dated.size(); ++i) {
        if (dated[i]->place == dated[i - 1]->place) continue;
        taker.count({Moves,
                     {whose, static_cast<qint32>(originOf(dated[i - 1]->place, study)),
                      static_cast<qint32>(originOf(dated[i]->place, study))}},
                    who);
        countMove(*dated[i - 1], *dated[i], study, who, taker);
    }
    const parish::Date first = parish::dateOf(dated.front()->date.middle(), true),
                       last = parish::dateOf(dated.back()->date.middle(), true);
    const qint64 days = parish::daysBetween(first, last);
    if (days > 0) taker.count({Days, {whose}}, who, days);
}

Became fateOf(const Person& person)
{
    if (person.death.isKnown()) return Died;
    const bool marries = std::any_of(person.unions.begin(), person.unions.end(), [](const parish::Membership* row) {
        return row->family && (row->family->marriage.isKnown() || isMarriage(*row->family));
    });
    return marries ? Married : Lost;
}

void countNative(const Person& person, const Study& study, Taker& taker)
{
    const Settings& settings = study.settings;
    if (!person.birth.isKnown() || !settings.period.holds(person.birth.year())) return;
    if (settings.gender != Gender::Undetermined && settings.gender != person.gender) return;
    const auto add = [&](Count which, const Reading::At& at = {}) { taker.count({which, at}, {&person, nullptr}); };
    if (!person.birthPlace.isKnown()) return add(UnknownBirthplace);
    if (!isIn(person.birthPlace, study.parish.home())) return;
    if (person.gender == Gender::Undetermined) return add(NoSex);
    const qint32 cohort = periodOf(person.birth.year(), settings), sex = static_cast<qint32>(person.gender);
    if (person.death.isKnown()) {
        if (person.deathPlace.isKnown())
            add(DeathPlace, {cohort, sex, isIn(person.deathPlace, study.parish.home()) ? Here : Away});
        else
            add(UnknownDeathPlace);
    }
    const bool diedYoung = person.death.isKnown() && completedYears(person.birth, person.death) < grown;
    if (diedYoung) return;
    const observation::Presence& presence = study.presenceOf(person);
    const Date& last = presence.until.day;
    if (!last.isKnown() || completedYears(person.birth, last) < grown) return add(GoneAsChild);
    add(Fate, {cohort, sex, fateOf(person)});
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (const parish::Person& person : peopleOf(study, share)) {
        countResidences(person.residences, OfAPerson, study, {&person, nullptr}, taker);
        countNative(person, study, taker);
    }
    const auto families = study.parish.families();
    for (std::size_t i = share.firstFamily; i < share.lastFamily; ++i)
        countResidences(families[i].residences, OfAFamily, study, {nullptr, &families[i]}, taker);
}

// Figures

Table residences(const Reading& reading)
{
    Table table{"residencias",
                "Mudanças de residência",
                {textColumn("De quem"), countColumn("Nº com residência datada"),
                 decimalColumn("Lugares diferentes", "média"), countColumn("Mudanças"),
                 decimalColumn("Anos entre a primeira e a última", "anos"),
                 decimalColumn("Mudanças por 1000 anos", "‰")},
                {},
                {"Mudança: duas residências seguidas em lugares diferentes. Quem tem uma só residência não dá anos."}};
    for (const auto& [whose, name] : {std::pair{OfAPerson, "pessoas"}, std::pair{OfAFamily, "famílias"}}) {
        const Reading::Spread places = reading.spread(Owners, 1, {whose, any, any, any});
        if (places.values.n() == 0) continue;
        const Reading::Part moved = reading.part(Moves, {whose, any, any, any});
        const Reading::Part days = reading.part(Days, {whose, any, any, any});
        const double years = static_cast<double>(days.n) / parish::daysOfAYear;
        table.rows.push_back({report::text(name), counted({places.values.n(), places.keys}), meanCell(places, 1),
                              counted(moved), report::number(years, days.keys),
                              years > 0 ? report::rate(moved.n, years, 1000, moved.keys) : Cell()});
    }
    return table;
}

Table moves(const Reading& reading)
{
    Table table{"mudancas", "De onde (linhas) para onde (colunas) se mudaram", {textColumn("De")}, {}, {}};
    if (reading.sum(Moves) == 0) return table;
    for (qint32 to = 0; to < origins; ++to)
        table.columns.push_back(countColumn(told(static_cast<Origin>(to))));
    for (qint32 from = 0; from < origins; ++from) {
        std::vector<Cell> row = {report::text(told(static_cast<Origin>(from)))};
        for (qint32 to = 0; to < origins; ++to)
            row.push_back(counted(reading.part(Moves, {any, from, to, any})));
        table.rows.push_back(row);
    }
    table.notes << "Pessoas e famílias. Dentro da paróquia: entre lugares dela.";
    return table;
}

// "03089901" of numberOf(): the codes of all levels have pairs of digits.
QString codeOf(qint32 number)
{
    const QString digits = QString::number(number / numbersOfALevel);
    return digits.size() % 2 == 0 ? digits : '0' + digits;
}

QString nameOfPlace(const Reading::At& at)
{
    QString name = unpacked({at[1], at[2], at[3]});
    if (name.size() >= lettersOfAName) name += u'…';
    return name.isEmpty() ? codeOf(at[0]) : name;
}

// The places with most moves, from or to, by their numbers; with the code where two have one name.
std::vector<std::pair<qint32, QString>> placesOf(const Reading& reading)
{
    static constexpr std::size_t most = 20;
    std::vector<Reading::Part> parts = reading.cellsOf(PlaceNames);
    const auto isMore = [](const Reading::Part& one, const Reading::Part& other) { return one.n > other.n; };
    std::stable_sort(parts.begin(), parts.end(), isMore);
    if (parts.size() > most) parts.resize(most);
    std::map<QString, int> namesakes;
    for (const Reading::Part& part : parts)
        ++namesakes[nameOfPlace(part.keys.front().at)];
    std::vector<std::pair<qint32, QString>> places;
    std::set<qint32> seen; // joined parishes may name a place differently
    for (const Reading::Part& part : parts) {
        const Reading::At& at = part.keys.front().at;
        if (!seen.insert(at[0]).second) continue;
        const QString name = nameOfPlace(at);
        places.emplace_back(at[0], namesakes[name] > 1 ? QString("%1 (%2)").arg(name, codeOf(at[0])) : name);
    }
    return places;
}

Table movesOfPlaces(const Reading& reading)
{
    Table table{"mudancas-entre-lugares",
                "De que lugar (linhas) para que lugar (colunas) se mudaram",
                {textColumn("De")},
                {},
                {"Pessoas e famílias. Um sítio conta como do seu lugar. Os vinte lugares com mais mudanças; os totais "
                 "são de todos."}};
    const auto places = placesOf(reading);
    if (places.empty()) return table;
    for (const auto& place : places)
        table.columns.push_back(countColumn(place.second));
    table.columns.push_back(countColumn("Todos os lugares"));
    const auto row = [&](const QString& name, qint32 from) {
        std::vector<Cell> cells = {report::text(name)};
        for (const auto& to : places)
            cells.push_back(counted(reading.part(PlaceMoves, {from, to.first, any, any})));
        cells.push_back(counted(reading.part(PlaceMoves, {from, any, any, any})));
        table.rows.push_back(cells);
    };
    for (const auto& from : places)
        row(from.second, from.first);
    row("Todos os lugares", any);
    return table;
}

struct Outcome
{
    qint32 code;
    const char* name;
    bool hasShare;
};

// For both sexes, by cohort: how many, and of each outcome how many and what share.
Table byCohort(const Reading& reading, const Settings& settings, quint16 count, Table table,
               const std::vector<Outcome>& outcomes)
{
    table.columns = {textColumn("Nascidos em"), countColumn("Nº")};
    for (const Outcome& outcome : outcomes) {
        table.columns.push_back(countColumn(outcome.name));
        if (outcome.hasShare) table.columns.push_back(decimalColumn(QString(outcome.name) + ", em 100", "%"));
    }
    for (const Sex& sex : sexes)
        for (const auto& [cohort, name] : periodsOf(reading, {count}, settings)) {
            const qint32 first = cohort;
            const auto part = [&reading, &sex, count, first](qint32 code) {
                return reading.part(count, {first, sex.code, code, any});
            };
            if (part(any).n == 0) continue;
            std::vector<Cell> row = {report::text(QString("%1, %2").arg(sex.name, name.toLower())), counted(part(any))};
            for (const Outcome& outcome : outcomes) {
                row.push_back(counted(part(outcome.code)));
                if (outcome.hasShare) row.push_back(percent(part(outcome.code), part(any)));
            }
            table.rows.push_back(row);
        }
    return table;
}

std::vector<Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    const Table deaths{"obitos-fora", "Naturais da paróquia: onde morreram", {}, {}, {"Óbitos de lugar conhecido."}};
    const Table fates{
        "destino",
        "Naturais da paróquia vistos até aos 15 anos: o que foi feito deles",
        {},
        {},
        {"Perdidos: nem casamento nem óbito na base. São um máximo dos que saíram: entre eles há óbitos que "
         "os livros não têm."}};
    return {residences(reading),
            moves(reading),
            movesOfPlaces(reading),
            byCohort(reading, settings, DeathPlace, deaths,
                     {{Here, "Na paróquia", false}, {Away, "Fora da paróquia", true}}),
            byCohort(reading, settings, Fate, fates,
                     {{Died, "Com óbito", false}, {Married, "Casados, sem óbito", false}, {Lost, "Perdidos", true}}),
            leftOutTable(reading, leftOut)};
}

} // namespace moving

} // namespace

const Subject mobility = {
    "mobilidade",
    "Outros",
    "Mobilidade",
    "Contam-se as residências datadas de pessoas e famílias, o lugar do óbito de quem nasceu na paróquia, e quem foi "
    "visto até aos 15 anos sem que a base lhe dê depois casamento ou óbito. A origem dos cônjuges está na endogamia "
    "por "
    "lugar. Um registo diz quem ficou; de quem saiu diz só que deixou de ser visto.",
    moving::counts,
    moving::leftOut,
    moving::fill,
    moving::figures};

} // namespace study::indicators
