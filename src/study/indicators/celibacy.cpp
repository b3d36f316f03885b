// Who dies at fifty or later without having married.
#include "study/indicators/marriages.h"
#include "study/indicators/nuptiality.h"
#include "study/indicators/reading.h"
#include "study/indicators/reasons.h"
#include "study/indicators/scope.h"
#include "study/parish/codes.h"

#include <algorithm>

namespace study::indicators {

namespace {

namespace neverMarried {

using parish::Gender;
using parish::Person;
using report::Figure;

// Of the dimensions: period of the death, sex, state.
enum Count : quint16
{
    Deaths,
    Elsewhere,
    OutOfPeriod,
    OutOfBooks,
    NoSex,
    UnknownAge,
    UnknownState,
    Contradiction
};

constexpr const char* counts[] = {"óbitos",
                                  "noutra paróquia",
                                  "fora do período",
                                  "fora dos livros",
                                  "sexo por determinar",
                                  "idade desconhecida",
                                  "estado desconhecido",
                                  "contradição"};

constexpr Reason leftOut[] = {{Elsewhere, reasons::notLocal},
                              {OutOfPeriod, reasons::outsidePeriod},
                              {OutOfBooks, reasons::outsideBooks},
                              {NoSex, reasons::unknownSex},
                              {UnknownAge, "idade ao óbito desconhecida"},
                              {UnknownState, "estado civil desconhecido e sem casamento na base"},
                              {Contradiction, "solteiro no óbito, mas casado na base"}};

constexpr qint32 any = Reading::any;
constexpr int definitive = 50;

enum State : qint32
{
    NeverMarried,
    Cleric,
    OtherState
};

std::optional<int> ageAtDeath(const Person& person)
{
    if (person.birth.isKnown() && person.birth.middle() <= person.death.middle())
        return completedYears(person.birth, person.death);
    return person.ageAtDeath;
}

bool hasMarried(const Person& person)
{
    return std::any_of(person.unions.begin(), person.unions.end(), [](const parish::Membership* row) {
        return row->family && (row->family->marriage.isKnown() || isMarriage(*row->family));
    });
}

// Why the death of this person doesn't count; none where it does.
std::optional<Count> whyNot(const Person& person, const Study& study)
{
    const Settings& settings = study.settings;
    if (!isHere(person.deathPlace, study)) return Elsewhere;
    if (!settings.period.holds(person.death.year())) return OutOfPeriod;
    if (!settings.covers(Series::Burials, person.death.year())) return OutOfBooks;
    return person.gender == Gender::Undetermined ? std::optional(NoSex) : std::nullopt;
}

std::optional<State> stateOf(const Person& person)
{
    const int state = person.stateAtDeath.value_or(parish::civil::unknown);
    if (state == parish::civil::cleric) return Cleric;
    if (state == parish::civil::single) return NeverMarried;
    if (state >= parish::civil::married && state < parish::civil::unknown) return OtherState;
    return hasMarried(person) ? std::optional(OtherState) : std::nullopt;
}

void count(const Person& person, const Study& study, Taker& taker)
{
    if (!person.death.isKnown()) return; // nobody of whom it could be told
    const Gender asked = study.settings.gender;
    if (asked != Gender::Undetermined && asked != person.gender) return;
    const auto add = [&](Count which, const Reading::At& at = {}) { taker.count({which, at}, {&person, nullptr}); };
    const std::optional<int> age = ageAtDeath(person);
    if (age && *age < definitive) return;
    if (const auto reason = whyNot(person, study)) return add(*reason);
    const bool isMinor =
        person.minor.value_or(false) || (person.parishClass && *person.parishClass > 0 &&
                                         *person.parishClass <= parish::parishClass::minorWithConfession);
    if (!age && isMinor) return;
    if (!age) return add(UnknownAge);
    const auto state = stateOf(person);
    if (!state) return add(UnknownState);
    if (*state == NeverMarried && hasMarried(person)) return add(Contradiction);
    add(Deaths, {periodOf(person.death.year(), study.settings), static_cast<qint32>(person.gender), *state});
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (const parish::Person& person : peopleOf(study, share))
        count(person, study, taker);
}

Table tableFor(const Reading& reading, const Settings& settings, Gender gender, const char* id, const char* name)
{
    Table table{QString("celibato-") + id,
                QString("Celibato definitivo: ") + name,
                {textColumn("Falecidos em"), countColumn("Óbitos de 50 anos e mais"), countColumn("Solteiros"),
                 countColumn("Clérigos e religiosos"), decimalColumn("Celibato, com os clérigos", "%"),
                 decimalColumn("Celibato, sem os clérigos", "%")},
                {},
                {"Mede-se à morte: diz dos casamentos que se faziam umas décadas antes."}};
    const auto sex = static_cast<qint32>(gender);
    for (const auto& [group, title] : periodsOf(reading, {Deaths}, settings)) {
        const auto part = [&, period = group](qint32 state) { return reading.part(Deaths, {period, sex, state, any}); };
        if (part(any).n == 0) continue;
        const Reading::Part single = part(NeverMarried), clerics = part(Cleric);
        Reading::Part lay = single, unmarried = single;
        lay += part(OtherState);
        unmarried += clerics;
        table.rows.push_back({report::text(title), counted(part(any)), counted(single), counted(clerics),
                              percent(unmarried, part(any)), percent(single, lay)});
    }
    return table;
}

std::vector<Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    return {tableFor(reading, settings, Gender::Male, "homens", "homens"),
            tableFor(reading, settings, Gender::Female, "mulheres", "mulheres"), leftOutTable(reading, leftOut)};
}

} // namespace neverMarried

} // namespace

const Subject celibacy = {"celibato",
                          "Nupcialidade",
                          "Celibato definitivo",
                          "Contam-se os que morreram na paróquia com 50 anos ou mais e de estado civil conhecido; a "
                          "idade é a do registo ou, à "
                          "falta dela, a que o assento declara. Solteiro é quem o assento diz solteiro; quem tem "
                          "casamento na base não o é. Os "
                          "clérigos mostram-se à parte.",
                          neverMarried::counts,
                          neverMarried::leftOut,
                          neverMarried::fill,
                          neverMarried::figures};

} // namespace study::indicators
