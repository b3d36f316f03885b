// Who left with a passport: when, how old, where to; and how tall they were.
#include "study/indicators/labels.h"
#include "study/indicators/marriages.h"
#include "study/indicators/other.h"
#include "study/indicators/reasons.h"
#include "study/indicators/scope.h"

#include <algorithm>

namespace study::indicators {

namespace {

namespace travellers {

using parish::Date;
using parish::Gender;
using parish::Passport;
using parish::Person;
using report::Figure;

enum Count : quint16
{
    Issued,   // period, sex, year
    AgeGroup, // sex, completed years
    State,    // sex, state
    Country,  // label
    Zone,     // label: where the destination is told so far
    CanSign,  // sex, whether
    Returns,  // sex, whether
    Height,   // cohort, cm: men of 21 and more
    NoDate,
    OutOfPeriod,
    NoSex,
    NoBirth,
    NoDestination,
    NoSignature
};

constexpr const char* counts[] = {"passaportes",
                                  "idade",
                                  "estado",
                                  "destino",
                                  "zona",
                                  "assina",
                                  "regressa",
                                  "altura",
                                  "sem data",
                                  "fora do período",
                                  "sexo por determinar",
                                  "sem nascimento",
                                  "sem destino",
                                  "sem assinatura"};

constexpr Reason leftOut[] = {{NoDate, reasons::noDate},
                              {OutOfPeriod, reasons::outsidePeriod},
                              {NoSex, reasons::unknownSex},
                              {NoBirth, "só pela idade e pela altura: sem nascimento"},
                              {NoDestination, "só pelo destino: sem lugar de destino"},
                              {NoSignature, "só pela assinatura: sem assinatura com nível"}};

constexpr qint32 any = Reading::any;
constexpr int fullyGrown = 21;
constexpr int longestPregnancy = 300; // days: a child born sooner may have been left behind

enum CivilState : qint32
{
    NoMarriage, // known by then
    Married,
    Widowed
};

CivilState stateAt(const Person& person, const Date& day, const Study& study)
{
    CivilState state = NoMarriage;
    for (const parish::Membership* row : person.unions) {
        if (!row->family || !row->family->marriage.isKnown()) continue;
        if (row->family->marriage.middle() > day.middle()) continue;
        const observation::Union& marriage = study.unionOf(*row->family);
        const bool hasEnded = marriage.isClosed() && marriage.end.middle() <= day.middle();
        state = hasEnded ? Widowed : Married;
    }
    return state;
}

// By an own marriage, residence, assistance or death in the parish, or a child that was conceived since.
bool isSeenHereAfter(const Person& person, const Date& day, const Study& study)
{
    const parish::Home& home = study.parish.home();
    const auto isLater = [&](const Date& date, const parish::Place& place, bool hasToBeTold) {
        if (!date.isKnown() || date.middle() <= day.middle()) return false;
        return hasToBeTold ? isIn(place, home) : isLocal(place, home);
    };
    if (isLater(person.death, person.deathPlace, false)) return true;
    for (const parish::Residence& row : person.residences)
        if (isLater(row.date, row.place, true)) return true;
    for (const parish::Assistance* act : person.assisted) {
        const parish::Place place = act->child    ? act->child->birthPlace
                                    : act->family ? act->family->place
                                                  : parish::Place();
        if (isLater(act->date, place, false)) return true;
    }
    for (const parish::Membership* row : person.unions) {
        if (!row->family) continue;
        if (isLater(row->family->marriage, row->family->place, false)) return true;
        for (const Person* child : row->family->children)
            if (isLater(child->birth, child->birthPlace, false) &&
                parish::daysBetween(day, child->birth) > longestPregnancy)
                return true;
    }
    return false;
}

void countHeight(const Person& person, const Date& day, const Study& study, Taker& taker)
{
    if (person.gender != Gender::Male || person.height.value_or(0) <= 0) return;
    if (completedYears(person.birth, day) < fullyGrown) return;
    taker.count({Height, {periodOf(person.birth.year(), study.settings), *person.height}}, {&person, nullptr});
}

void count(const Person& person, const Passport& passport, const Study& study, Taker& taker)
{
    const auto add = [&](Count which, const Reading::At& at = {}) { taker.count({which, at}, {&person, nullptr}); };
    const Settings& settings = study.settings;
    if (settings.gender != Gender::Undetermined && settings.gender != person.gender) return;
    const Date& day = passport.date;
    if (!day.isKnown()) return add(NoDate);
    if (!settings.period.holds(day.year())) return add(OutOfPeriod);
    if (person.gender == Gender::Undetermined) return add(NoSex);
    const auto sex = static_cast<qint32>(person.gender);
    add(Issued, {periodOf(day.year(), settings), sex, day.year()});
    add(State, {sex, stateAt(person, day, study)});
    add(Returns, {sex, isSeenHereAfter(person, day, study) ? 1 : 0});
    if (passport.destination.isKnown()) {
        static constexpr int digitsOfCountry = 2;
        const bool isOfCountry = passport.destination.level == u'Z';
        const parish::Place country{passport.destination.code.left(digitsOfCountry), u'P'};
        const parish::Place& shown = isOfCountry ? country : passport.destination;
        add(Country, labelled(study.parish.catalogue().name(shown), shown.code.toInt()));
        if (isOfCountry)
            add(Zone, labelled(study.parish.catalogue().name(passport.destination), passport.destination.code.toInt()));
    } else {
        add(NoDestination);
    }
    std::optional<int> level;
    for (const parish::Signature& row : person.signatures)
        if (row.level) level = std::max(level.value_or(*row.level), *row.level);
    if (level)
        add(CanSign, {sex, *level >= settings.signsFrom ? 1 : 0});
    else
        add(NoSignature);
    if (!person.birth.isKnown() || person.birth.middle() > day.middle()) return add(NoBirth);
    add(AgeGroup, {sex, completedYears(person.birth, day)});
    if (&passport == &person.passports.back()) countHeight(person, day, study, taker);
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (const parish::Person& person : peopleOf(study, share))
        for (const Passport& passport : person.passports)
            count(person, passport, study, taker);
}

// Figures

struct Named
{
    qint32 code;
    const char* name;
};

struct Line
{
    QString name = {};
    Reading::Part men = {}, women = {};
};

// Men, women, and their shares in all men and women.
Table bothSexes(Table table, const QString& title, const std::vector<Line>& lines)
{
    table.columns = {textColumn(title)};
    for (const Sex& sex : sexes) {
        table.columns.push_back(countColumn(sex.name));
        table.columns.push_back(decimalColumn(QString(sex.name) + ", em 100", "%"));
    }
    Reading::Part men, women;
    for (const Line& line : lines) {
        men += line.men;
        women += line.women;
    }
    if (men.n + women.n == 0) return table;
    for (const Line& line : lines)
        table.rows.push_back({report::text(line.name), counted(line.men), percent(line.men, men), counted(line.women),
                              percent(line.women, women)});
    return table;
}

Table byPeriod(const Reading& reading, const Settings& settings)
{
    std::vector<Line> lines;
    for (const qint32 period : reading.values(Issued, 0))
        lines.push_back({periodName(period, settings), reading.part(Issued, {period, sexes[0].code, any, any}),
                         reading.part(Issued, {period, sexes[1].code, any, any})});
    return bothSexes({"periodos", "Passaportes por período", {}, {}, {}}, "Período", lines);
}

Table byYear(const Reading& reading)
{
    std::vector<Line> lines;
    for (const qint32 year : reading.values(Issued, 2))
        lines.push_back({QString::number(year), reading.part(Issued, {any, sexes[0].code, year, any}),
                         reading.part(Issued, {any, sexes[1].code, year, any})});
    return bothSexes({"anos", "Passaportes por ano", {}, {}, {}}, "Ano", lines);
}

Table byAge(const Reading& reading)
{
    static constexpr struct
    {
        const char* name;
        qint32 from, until;
    } groups[] = {{"menos de 15", 0, 15}, {"15–19", 15, 20}, {"20–24", 20, 25},     {"25–29", 25, 30},
                  {"30–39", 30, 40},      {"40–49", 40, 50}, {"50 e mais", 50, 200}};
    std::vector<Line> lines;
    for (const auto& group : groups)
        lines.push_back({group.name,
                         reading.within(AgeGroup, 1, group.from, group.until, {sexes[0].code, any, any, any}),
                         reading.within(AgeGroup, 1, group.from, group.until, {sexes[1].code, any, any, any})});
    return bothSexes({"idades", "Idade no passaporte", {}, {}, {}}, "Anos completos", lines);
}

Table byCode(const Reading& reading, quint16 count, Table table, const QString& title, const std::vector<Named>& codes)
{
    std::vector<Line> lines;
    lines.reserve(codes.size());
    for (const Named& code : codes)
        lines.push_back({code.name, reading.part(count, {sexes[0].code, code.code, any, any}),
                         reading.part(count, {sexes[1].code, code.code, any, any})});
    return bothSexes(std::move(table), title, lines);
}

Table heights(const Reading& reading, const Settings& settings)
{
    Table table{"alturas",
                "Altura dos homens de 21 anos e mais",
                {textColumn("Nascidos em"), countColumn("Nº"), decimalColumn("Média", "cm"),
                 decimalColumn("Mediana", "cm"), decimalColumn("Desvio-padrão", "cm")},
                {},
                {}};
    for (const auto& [cohort, name] : periodsOf(reading, {Height}, settings)) {
        const Reading::Spread spread = reading.spread(Height, 1, {cohort, any, any, any});
        table.rows.push_back({report::text(name), counted({spread.values.n(), spread.keys}), meanCell(spread, 1),
                              medianCell(spread, 1), deviationCell(spread, 1)});
    }
    return table;
}

std::vector<Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    return {byPeriod(reading, settings),
            byYear(reading),
            byAge(reading),
            byCode(reading, State, {"estados", "Estado civil no passaporte", {}, {}, {}}, "Estado",
                   {{NoMarriage, "sem casamento conhecido"}, {Married, "casados"}, {Widowed, "viúvos"}}),
            byLabel(reading, Country, {"destinos", "Passaportes por destino", {}, {}, {}}, "Destino", "Passaportes"),
            byLabel(reading, Zone, {"zonas", "Passaportes por zona de destino, onde é dita", {}, {}, {}}, "Zona",
                    "Passaportes"),
            byCode(reading, CanSign, {"assinam", "Assinam, entre os de assinatura conhecida", {}, {}, {}}, "Assinatura",
                   {{1, "assinam"}, {0, "não assinam"}}),
            byCode(reading, Returns, {"regressos", "Vistos na paróquia depois do passaporte", {}, {}, {}}, "Regresso",
                   {{1, "vistos"}, {0, "não vistos"}}),
            heights(reading, settings),
            leftOutTable(reading, leftOut)};
}

} // namespace travellers

} // namespace

const Subject passports = {
    "passaportes",
    "Outros",
    "Passaportes",
    "Contam-se os passaportes datados, um por um; a altura uma vez, no último passaporte de homens já feitos. O estado "
    "civil é o que a base prova nesse dia. Regressou quem se vê depois na paróquia num acto seu, ou de um filho que "
    "concebeu depois: é um mínimo.",
    travellers::counts,
    travellers::leftOut,
    travellers::fill,
    travellers::figures};

} // namespace study::indicators
