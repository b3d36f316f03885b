// Wills, suffrages and legacies of those who died grown up.
#include "study/indicators/labels.h"
#include "study/indicators/marriages.h"
#include "study/indicators/other.h"
#include "study/indicators/reading.h"
#include "study/indicators/reasons.h"
#include "study/indicators/scope.h"
#include "study/parish/codes.h"

#include <algorithm>
#include <cmath>

namespace study::indicators {

namespace {

namespace lastWills {

using parish::Gender;
using parish::Person;
using parish::Suffrage;
using parish::SuffrageKind;
using report::Figure;

enum Count : quint16
{
    Deaths,       // period, sex, will
    Deeds,        // period, sex: wills that are written
    StateAtDeath, // civil state, will
    Ordered,      // period, kind of suffrage, of one testator, how many
    KindOfMass,   // label: masses
    KindOfOffice,
    KindOfAlms, // label: gifts
    AlmsTo,     // name of whom they are for: gifts
    Money,      // period, currency, of one testator, units
    Heirs,      // label of the kinship; code 0 where it isn't told
    HeirSex,
    Left, // land, movables
    Elsewhere,
    OutOfPeriod,
    OutOfBooks,
    NoAge,
    NoSex,
    WillNotTold,
    NoQuantity,
    NoCurrency,
    WrongTotal
};

constexpr const char* counts[] = {"óbitos",
                                  "escritos",
                                  "estado civil",
                                  "sufrágios",
                                  "missas por tipo",
                                  "ofícios por tipo",
                                  "esmolas por tipo",
                                  "esmolas por destino",
                                  "dinheiro",
                                  "herdeiros",
                                  "sexo do herdeiro",
                                  "bens",
                                  "noutra paróquia",
                                  "fora do período",
                                  "fora dos livros",
                                  "sem idade",
                                  "sexo por determinar",
                                  "sem indicação de testamento",
                                  "sem quantidade",
                                  "sem moeda",
                                  "total contraditório"};

constexpr Reason leftOut[] = {
    {Elsewhere, reasons::notLocal},
    {OutOfPeriod, reasons::outsidePeriod},
    {OutOfBooks, reasons::outsideBooks},
    {NoAge, "sem idade nem classe que diga adulto ou menor"},
    {NoSex, reasons::unknownSex},
    {WillNotTold, "não se diz se fez testamento"},
    {NoQuantity, "testador com sufrágios sem quantidade (fora das médias)"},
    {NoCurrency, "dinheiro sem moeda conhecida"},
    {WrongTotal, "valor total que não é a quantidade vezes o valor unitário (conta o total)"}};

constexpr qint32 any = Reading::any;
constexpr int adultMan = 14, adultWoman = 12, firstAdultClass = 4;

// Nothing where neither an age nor the class in the parish tells it.
std::optional<bool> isAdult(const Person& person)
{
    std::optional<int> age = person.ageAtDeath;
    if (person.birth.isKnown() && person.birth.middle() <= person.death.middle())
        age = completedYears(person.birth, person.death);
    if (age) return *age >= (person.gender == Gender::Male ? adultMan : adultWoman);
    if (person.parishClass && *person.parishClass > 0) return *person.parishClass >= firstAdultClass;
    return person.minor.value_or(false) ? std::optional(false) : std::nullopt;
}

enum Currency : qint32
{
    Reais = 1,
    Escudos,
    Euros
};

std::optional<Currency> currencyOf(const Suffrage& row)
{
    if (row.currency.compare("Re", Qt::CaseInsensitive) == 0) return Reais;
    if (row.currency.compare("Es", Qt::CaseInsensitive) == 0) return Escudos;
    if (row.currency.compare("Eu", Qt::CaseInsensitive) == 0) return Euros;
    return {};
}

std::optional<double> totalOf(const Suffrage& row)
{
    if (row.total) return row.total;
    if (row.quantity && row.unitValue) return *row.quantity * *row.unitValue;
    return {};
}

bool isContradictory(const Suffrage& row)
{
    static constexpr double tolerance = 0.005;
    return row.total && row.quantity && row.unitValue &&
           std::abs(*row.total - *row.quantity * *row.unitValue) > tolerance;
}

// Bounded, so that a slip of the pen with many zeros stays a number.
qint32 rounded(double value)
{
    static constexpr double most = 2000000000;
    return static_cast<qint32>(std::lround(std::clamp(value, 0.0, most)));
}

class Dead
{
public:
    Dead(const Person& person, const Study& study, Taker& taker) : person_(person), study_(study), taker_(taker) {}

    void count() const
    {
        const Settings& settings = study_.settings;
        if (!person_.death.isKnown()) return;
        if (settings.gender != Gender::Undetermined && settings.gender != person_.gender) return;
        const std::optional<bool> adult = isAdult(person_);
        if (adult && !*adult) return;
        const int year = person_.death.year();
        if (!isHere(person_.deathPlace, study_)) return add(Elsewhere);
        if (!settings.period.holds(year)) return add(OutOfPeriod);
        if (!settings.covers(Series::Burials, year)) return add(OutOfBooks);
        if (person_.gender == Gender::Undetermined) return add(NoSex);
        if (!adult) return add(NoAge);
        if (!person_.will) return add(WillNotTold);
        const auto sex = static_cast<qint32>(person_.gender);
        const qint32 period = periodOf(year, settings), will = *person_.will ? 1 : 0;
        add(Deaths, {period, sex, will});
        add(StateAtDeath, {person_.stateAtDeath.value_or(parish::civil::unknown), will});
        if (!*person_.will) return;
        if (person_.writtenWill.value_or(false)) add(Deeds, {period, sex});
        countSuffrages(period);
        countHeirs();
    }

private:
    void countSuffrages(qint32 period) const
    {
        for (const SuffrageKind kind : {SuffrageKind::Mass, SuffrageKind::Office})
            countOrdered(period, kind);
        std::map<qint32, double> sums;
        for (const Suffrage& row : person_.suffrages) {
            if (row.kind == SuffrageKind::Alms) {
                add(KindOfAlms, named("TipEs", row.type));
                add(AlmsTo, labelledByName(row.destination));
            }
            if (isContradictory(row)) add(WrongTotal);
            const auto total = totalOf(row);
            if (!total) continue;
            if (const auto currency = currencyOf(row))
                sums[*currency] += *total;
            else
                add(NoCurrency);
        }
        for (const auto& [currency, sum] : sums)
            add(Money, {period, currency, rounded(sum)});
    }
    // How many of a kind; none is a number, too.
    void countOrdered(qint32 period, SuffrageKind kind) const
    {
        const bool isMass = kind == SuffrageKind::Mass;
        const Count types = isMass ? KindOfMass : KindOfOffice;
        const QString category = isMass ? "TipMi" : "TipOf";
        double all = 0;
        bool isCounted = true;
        for (const Suffrage& row : person_.suffrages) {
            if (row.kind != kind) continue;
            if (!row.quantity || *row.quantity < 0) {
                isCounted = false;
                continue;
            }
            all += *row.quantity;
            taker_.count({types, named(category, row.type)}, {&person_, nullptr}, rounded(*row.quantity));
        }
        if (isCounted)
            add(Ordered, {period, static_cast<qint32>(kind), rounded(all)});
        else
            add(NoQuantity);
    }
    void countHeirs() const
    {
        for (const parish::Bequest& row : person_.bequests) {
            add(Heirs, named("Paren", row.kinship));
            const Gender sex = row.heir.person ? row.heir.person->gender : Gender::Undetermined;
            add(HeirSex, {static_cast<qint32>(sex)});
            add(Left, {row.hasLand ? 1 : 0, row.hasMovables ? 1 : 0});
        }
    }
    Reading::At named(const QString& category, parish::Code code) const
    {
        return labelled(study_.parish.catalogue().description(category, code), code.value_or(0));
    }
    void add(Count which, const Reading::At& at = {}) const { taker_.count({which, at}, {&person_, nullptr}); }

    const Person& person_;
    const Study& study_;
    Taker& taker_;
};

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (const parish::Person& person : peopleOf(study, share))
        Dead(person, study, taker).count();
}

// Figures

struct Named
{
    qint32 code;
    const char* name;
};

Table wills(const Reading& reading, const Settings& settings)
{
    Table table{"testamentos",
                "Óbitos de adultos com testamento",
                {textColumn("Falecidos em"), countColumn("Óbitos"), countColumn("Com testamento"),
                 decimalColumn("Com testamento, em 100", "%"), countColumn("Com escrito"),
                 decimalColumn("Com escrito, em 100 óbitos", "%")},
                {},
                {"Adultos: homens de 14 anos e mais, mulheres de 12 e mais; à falta da idade, maiores de confissão e "
                 "comunhão."}};
    for (const Sex& sex : sexes)
        for (const auto& [period, name] : periodsOf(reading, {Deaths}, settings)) {
            const Reading::Part all = reading.part(Deaths, {period, sex.code, any, any});
            if (all.n == 0) continue;
            const Reading::Part with = reading.part(Deaths, {period, sex.code, 1, any});
            const Reading::Part written = reading.part(Deeds, {period, sex.code, any, any});
            table.rows.push_back({report::text(QString("%1, %2").arg(sex.name, name.toLower())), counted(all),
                                  counted(with), percent(with, all), counted(written), percent(written, all)});
        }
    return table;
}

Table byState(const Reading& reading)
{
    static constexpr Named states[] = {{1, "Solteiro"},
                                       {2, "Casado"},
                                       {3, "Viúvo"},
                                       {4, "Separado"},
                                       {5, "Divorciado"},
                                       {6, "Clérigo ou religioso"},
                                       {7, "Em união não matrimonial"}};
    Table table{"por-estado",
                "Testamento e estado civil",
                {textColumn("Estado civil"), countColumn("Óbitos"), countColumn("Com testamento"),
                 decimalColumn("Com testamento, em 100", "%")},
                {},
                {}};
    const auto row = [&](const QString& name, const Reading::Part& all, const Reading::Part& with) {
        if (all.n > 0) table.rows.push_back({report::text(name), counted(all), counted(with), percent(with, all)});
    };
    Reading::Part otherAll, otherWith;
    for (const qint32 code : reading.values(StateAtDeath, 0)) {
        const auto* known = std::find_if(std::begin(states), std::end(states),
                                         [code](const Named& state) { return state.code == code; });
        const Reading::Part all = reading.part(StateAtDeath, {code, any, any, any});
        const Reading::Part with = reading.part(StateAtDeath, {code, 1, any, any});
        if (known != std::end(states)) {
            row(known->name, all, with);
            continue;
        }
        otherAll += all;
        otherWith += with;
    }
    row("Outro ou desconhecido", otherAll, otherWith);
    return table;
}

// Of what a testator has: mean, median, quartiles, and how many have nothing.
std::vector<Cell> measures(const QString& name, const Reading::Spread& spread, const Reading::Part& none)
{
    const Reading::Part all{spread.values.n(), spread.keys};
    return {report::text(name),
            counted(all),
            meanCell(spread, 1),
            medianCell(spread, 1),
            quantileCell(spread, 0.25, 1),
            quantileCell(spread, 0.75, 1),
            percent(none, all)};
}

std::vector<Column> measureColumns(const QString& unit)
{
    return {textColumn("Falecidos em"),     countColumn("Testadores"),          decimalColumn("Média", unit),
            decimalColumn("Mediana", unit), decimalColumn("1.º quartil", unit), decimalColumn("3.º quartil", unit),
            decimalColumn("Sem nada", "%")};
}

Table ordered(const Reading& reading, const Settings& settings, SuffrageKind kind, const char* id, const char* title,
              const char* unit)
{
    Table table{id, title, measureColumns(unit), {}, {"A média depende de poucos com muitas: leia-se a mediana."}};
    const auto code = static_cast<qint32>(kind);
    for (const auto& [period, name] : periodsOf(reading, {Ordered}, settings)) {
        const Reading::Spread spread = reading.spread(Ordered, 2, {period, code, any, any});
        if (spread.values.n() > 0)
            table.rows.push_back(measures(name, spread, reading.part(Ordered, {period, code, 0, any})));
    }
    return table;
}

Table money(const Reading& reading, const Settings& settings)
{
    static constexpr Named currencies[] = {{Reais, "réis"}, {Escudos, "escudos"}, {Euros, "euros"}};
    Table table{"dinheiro",
                "Dinheiro em sufrágios e esmolas, por testador que o deixa",
                measureColumns("na moeda"),
                {},
                {"Cada moeda e cada período por si: não se somam."}};
    for (const Named& currency : currencies)
        for (const qint32 period : reading.values(Money, 0, {any, currency.code, any, any})) {
            const Reading::At at = {period, currency.code, any, any};
            const QString name = QString("%1, %2").arg(periodName(period, settings), currency.name);
            table.rows.push_back(
                measures(name, reading.spread(Money, 2, at), reading.part(Money, {period, currency.code, 0, any})));
        }
    return table;
}

Table heirSexes(const Reading& reading)
{
    Table table{"sexo-dos-herdeiros",
                "Sexo dos herdeiros",
                {textColumn("Sexo"), countColumn("Legados"), decimalColumn("Em 100", "%")},
                {},
                {}};
    const Reading::Part all = reading.part(HeirSex);
    if (all.n == 0) return table;
    const auto row = [&](const char* name, Gender gender) {
        const Reading::Part part = reading.part(HeirSex, {static_cast<qint32>(gender), any, any, any});
        table.rows.push_back({report::text(name), counted(part), percent(part, all)});
    };
    row("homens", Gender::Male);
    row("mulheres", Gender::Female);
    row("desconhecido", Gender::Undetermined);
    return table;
}

Table goods(const Reading& reading)
{
    Table table{
        "bens", "O que se lega", {textColumn("Bens"), countColumn("Legados"), decimalColumn("Em 100", "%")}, {}, {}};
    const Reading::Part all = reading.part(Left);
    if (all.n == 0) return table;
    const auto row = [&](const char* name, qint32 land, qint32 movables) {
        const Reading::Part part = reading.part(Left, {land, movables, any, any});
        table.rows.push_back({report::text(name), counted(part), percent(part, all)});
    };
    row("bens de raiz", 1, 0);
    row("bens móveis", 0, 1);
    row("uns e outros", 1, 1);
    row("por dizer", 0, 0);
    return table;
}

std::vector<Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    return {wills(reading, settings),
            byState(reading),
            ordered(reading, settings, SuffrageKind::Mass, "missas", "Missas por testador", "missas"),
            byLabel(reading, KindOfMass, {"tipos-de-missa", "Missas por tipo", {}, {}, {}}, "Tipo", "Missas"),
            ordered(reading, settings, SuffrageKind::Office, "oficios", "Ofícios por testador", "ofícios"),
            byLabel(reading, KindOfOffice, {"tipos-de-oficio", "Ofícios por tipo", {}, {}, {}}, "Tipo", "Ofícios"),
            byLabel(reading, KindOfAlms, {"tipos-de-esmola", "Esmolas por tipo", {}, {}, {}}, "Tipo", "Esmolas"),
            byLabel(reading, AlmsTo, {"esmolas-por-destino", "Esmolas por destino, como o acto o diz", {}, {}, {}},
                    "Destino", "Esmolas", toldName),
            money(reading, settings),
            byLabel(reading, Heirs, {"herdeiros", "Legados por parentesco do herdeiro", {}, {}, {}}, "Parentesco",
                    "Legados"),
            heirSexes(reading),
            goods(reading),
            leftOutTable(reading, leftOut)};
}

} // namespace lastWills

} // namespace

const Subject bequests = {
    "testamentos",
    "Outros",
    "Legados e sufrágios",
    "Contam-se os óbitos de adultos na paróquia de que se sabe se houve testamento, e o que os testadores deixaram. Um "
    "testador sem missas conta com zero; um de quem falta alguma quantidade fica fora das médias. O dinheiro mede-se "
    "em "
    "cada moeda e em cada período por si.",
    lastWills::counts,
    lastWills::leftOut,
    lastWills::fill,
    lastWills::figures};

} // namespace study::indicators
