// Age at first marriage: by the birth in the register, and apart from it by the age that the act tells.
#include "study/indicators/marriages.h"
#include "study/indicators/natality.h"
#include "study/indicators/nuptiality.h"
#include "study/indicators/reading.h"
#include "study/indicators/reasons.h"

#include <algorithm>

namespace study::indicators {

namespace {

namespace marriageAges {

using parish::Family;
using parish::Gender;
using report::Chart;
using report::Figure;

// Of the dimensions: period or cohort, sex, where both were born, age in hundredths of a year.
enum Count : quint16
{
    ByRegister,
    ByStatement,
    ByBirthCohort,
    ApproximateBirth,
    Undated,
    Elsewhere,
    OutOfPeriod,
    OutOfBooks,
    NotFirst,
    UnknownRank,
    NoSex,
    NoBirth,
    BeforeBirth,
    EarlyInBooks,
    LateInBooks
};

constexpr const char* counts[] = {"idade pelo registo",
                                  "idade declarada",
                                  "idade por coorte de nascimento",
                                  "nascimento aproximado",
                                  "sem data",
                                  "noutra paróquia",
                                  "fora do período",
                                  "fora dos livros",
                                  "não primeiro",
                                  "ordem desconhecida",
                                  "sexo por determinar",
                                  "sem nascimento",
                                  "antes do nascimento",
                                  "início dos livros",
                                  "coorte por completar"};

constexpr Reason leftOut[] = {
    {Undated, reasons::noMarriage},
    {Elsewhere, reasons::notLocal},
    {OutOfPeriod, reasons::outsidePeriod},
    {OutOfBooks, reasons::outsideBooks},
    {NotFirst, reasons::notFirstMarriage},
    {UnknownRank, "não se sabe se é o primeiro casamento"},
    {NoSex, reasons::unknownSex},
    {NoBirth, "sem nascimento no registo"},
    {BeforeBirth, "casamento anterior ao nascimento"},
    {EarlyInBooks, "nos primeiros 35 (mulheres) ou 40 anos (homens) dos livros de baptismos"},
    {LateInBooks, "só na tabela por coorte de nascimento: nascido nos últimos 50 anos dos livros de casamentos"}};

constexpr double hundredths = 100;
constexpr int yearsOfEarlyMen = 40,
              yearsOfEarlyWomen = 35; // from the first baptisms: the late ones can't be linked yet
constexpr int yearsToComplete = 50;

enum Birthplaces : qint32
{
    Unknown,
    BothHere,
    OneHere,
    NoneHere
};

Birthplaces birthplacesOf(const Family& family, const Study& study)
{
    if (!family.husband || !family.wife) return Unknown;
    const parish::Place& his = family.husband->birthPlace;
    const parish::Place& hers = family.wife->birthPlace;
    const parish::Home& home = study.parish.home();
    if (!his.isKnown() || !hers.isKnown() || home.code.isEmpty()) return Unknown;
    if (isIn(his, home) && isIn(hers, home)) return BothHere;
    return isIn(his, home) || isIn(hers, home) ? OneHere : NoneHere;
}

bool isEarly(int year, Gender gender, const Settings& settings)
{
    const int first = settings.books[static_cast<std::size_t>(Series::Baptisms)].first;
    return first != 0 && year < first + (gender == Gender::Male ? yearsOfEarlyMen : yearsOfEarlyWomen);
}

bool isLate(int birthYear, const Settings& settings)
{
    const int last = settings.books[static_cast<std::size_t>(Series::Marriages)].last;
    return last != 0 && birthYear > last - yearsToComplete;
}

class Marriage
{
public:
    Marriage(const Family& family, const Study& study, Taker& taker) : family_(family), study_(study), taker_(taker) {}

    void count(const Spouse& spouse) const
    {
        const Gender gender = spouse.person->gender;
        const Gender asked = study_.settings.gender;
        if (asked != Gender::Undetermined && asked != gender) return;
        if (const auto reason = whyNot(spouse)) return add(*reason, spouse);
        const int year = family_.marriage.year();
        const qint32 period = periodOf(year, study_.settings);
        const auto sex = static_cast<qint32>(gender);
        const qint32 born = birthplacesOf(family_, study_);
        if (const int stated = spouse.row->age.value_or(0); stated > 0)
            add(ByStatement, spouse, {period, sex, born, static_cast<qint32>(stated * hundredths + hundredths / 2)});
        const parish::Date& birth = spouse.person->birth;
        if (!birth.isKnown()) return add(NoBirth, spouse);
        if (birth.middle() > family_.marriage.middle()) return add(BeforeBirth, spouse);
        if (isEarly(year, gender, study_.settings)) return add(EarlyInBooks, spouse);
        const qint32 age = natality::hundredthsOfAge(birth, family_.marriage);
        add(ByRegister, spouse, {period, sex, born, age});
        if (!birth.isExact()) add(ApproximateBirth, spouse, {period, sex});
        if (isLate(birth.year(), study_.settings)) return add(LateInBooks, spouse);
        add(ByBirthCohort, spouse, {periodOf(birth.year(), study_.settings), sex, born, age});
    }

private:
    std::optional<Count> whyNot(const Spouse& spouse) const
    {
        switch (marriageIs(family_, study_)) {
        case MarriageIs::Undated:
            return Undated;
        case MarriageIs::Elsewhere:
            return Elsewhere;
        case MarriageIs::OutOfPeriod:
            return OutOfPeriod;
        case MarriageIs::OutOfBooks:
            return OutOfBooks;
        case MarriageIs::Counted:
            break;
        }
        if (spouse.person->gender == Gender::Undetermined) return NoSex;
        const Rank rank = rankOf(spouse, family_);
        if (rank == Rank::First) return {};
        return rank == Rank::Later ? NotFirst : UnknownRank;
    }
    void add(Count which, const Spouse& spouse, const Reading::At& at = {}) const
    {
        taker_.count({which, at}, {spouse.person, &family_});
    }

    const Family& family_;
    const Study& study_;
    Taker& taker_;
};

void fill(const Study& study, const Share& share, Taker& taker)
{
    const auto families = study.parish.families();
    for (std::size_t i = share.firstFamily; i < share.lastFamily; ++i) {
        const Marriage marriage(families[i], study, taker);
        for (const Spouse& spouse : {husbandIn(families[i]), wifeIn(families[i])})
            if (spouse.isKnown()) marriage.count(spouse);
    }
}

// Figures

constexpr qint32 any = Reading::any;

struct Sex
{
    qint32 code;
    const char* name;
    const char* id;
};
constexpr Sex sexes[] = {{static_cast<qint32>(Gender::Male), "Homens", "homens"},
                         {static_cast<qint32>(Gender::Female), "Mulheres", "mulheres"}};

struct Group
{
    const char* name;
    int from, until; // completed years, until past the end
};
constexpr int forEver = 200;
constexpr Group groups[] = {{"menos de 15", 0, 15}, {"15–19", 15, 20}, {"20–24", 20, 25},
                            {"25–29", 25, 30},      {"30–34", 30, 35}, {"35–39", 35, 40},
                            {"40–44", 40, 45},      {"45–49", 45, 50}, {"50 e mais", 50, forEver}};

Reading::Part between(const Reading& reading, const Reading::At& at, int from, int until)
{
    const auto inHundredths = [](int years) { return static_cast<qint32>(years * hundredths); };
    return reading.within(ByRegister, 3, inHundredths(from), inHundredths(until), at);
}

QString modalGroup(const Reading& reading, const Reading::At& at)
{
    QString name;
    qint64 most = 0;
    for (const Group& group : groups) {
        const qint64 n = between(reading, at, group.from, group.until).n;
        if (n > most) name = group.name;
        most = std::max(most, n);
    }
    return name;
}

std::vector<Cell> rowOf(const Reading& reading, const QString& name, const Reading::At& at)
{
    const Reading::Spread ages = reading.spread(ByRegister, 3, at), stated = reading.spread(ByStatement, 3, at);
    const Reading::Part all{ages.values.n(), ages.keys};
    return {report::text(name),
            counted(all),
            meanCell(ages, hundredths),
            medianCell(ages, hundredths),
            deviationCell(ages, hundredths),
            report::text(modalGroup(reading, at)),
            percent(between(reading, at, 0, 20), all),
            percent(between(reading, at, 25, forEver), all),
            percent(between(reading, at, 30, forEver), all),
            counted(reading.part(ApproximateBirth, {at[0], at[1], any, any})),
            counted({stated.values.n(), stated.keys}),
            meanCell(stated, hundredths)};
}

Table byPeriod(const Reading& reading, const Settings& settings, const Sex& sex)
{
    Table table{QString("idade-") + sex.id,
                QString("Idade ao primeiro casamento, por coorte de casamento: ") + sex.name,
                {textColumn("Casados em"), countColumn("Nº"), decimalColumn("Média", "anos"),
                 decimalColumn("Mediana", "anos"), decimalColumn("Desvio-padrão", "anos"), textColumn("Grupo modal"),
                 decimalColumn("Menos de 20 anos", "%"), decimalColumn("25 e mais", "%"),
                 decimalColumn("30 e mais", "%"), countColumn("Com nascimento aproximado"),
                 countColumn("Nº com idade declarada"), decimalColumn("Média da idade declarada", "anos")},
                {},
                {}};
    std::vector<qint32> periods = reading.values(ByRegister, 0, {any, sex.code, any, any});
    for (const qint32 period : reading.values(ByStatement, 0, {any, sex.code, any, any}))
        if (std::find(periods.begin(), periods.end(), period) == periods.end()) periods.push_back(period);
    std::sort(periods.begin(), periods.end());
    for (const qint32 period : periods)
        table.rows.push_back(rowOf(reading, periodName(period, settings), {period, sex.code, any, any}));
    if (!periods.empty()) table.rows.push_back(rowOf(reading, "Todos", {any, sex.code, any, any}));
    table.notes << "Idade exacta, do nascimento ou baptismo ao casamento; de uma data de que só se sabe o ano, 1 de "
                   "Julho."
                << "A idade declarada conta-se em anos completos: à média soma-se meio ano. Nunca se mistura com a "
                   "outra.";
    const int first = settings.books[static_cast<std::size_t>(Series::Baptisms)].first;
    const int cut = sex.code == static_cast<qint32>(Gender::Male) ? yearsOfEarlyMen : yearsOfEarlyWomen;
    table.notes << (first != 0 ? QString("Casamentos pelo registo a partir de %1.").arg(first + cut)
                               : QString("Sem o princípio dos livros de baptismos, contam também os casamentos dos "
                                         "primeiros %1 anos, em que só os de gente nova se podem ligar: a média sobe "
                                         "então por construção.")
                                     .arg(cut));
    return table;
}

Table byGroup(const Reading& reading)
{
    Table table{"grupos", "Idade ao primeiro casamento, por grupos de idade", {textColumn("Idade")}, {}, {}};
    for (const Sex& sex : sexes) {
        table.columns.push_back(countColumn(sex.name));
        table.columns.push_back(decimalColumn(QString(sex.name) + ", em 100", "%"));
    }
    for (const Group& group : groups) {
        std::vector<Cell> row = {report::text(group.name)};
        for (const Sex& sex : sexes) {
            const Reading::Part part = between(reading, {any, sex.code, any, any}, group.from, group.until);
            row.push_back(counted(part));
            row.push_back(percent(part, reading.part(ByRegister, {any, sex.code, any, any})));
        }
        table.rows.push_back(row);
    }
    return table;
}

// Count, mean and median of both sexes, a row for each of some values of one dimension.
Table bySex(const Reading& reading, quint16 count, Table table, int dimension,
            const std::vector<std::pair<qint32, QString>>& rows)
{
    for (const Sex& sex : sexes) {
        table.columns.push_back(countColumn(sex.name));
        table.columns.push_back(decimalColumn(QString(sex.name) + ", média", "anos"));
        table.columns.push_back(decimalColumn(QString(sex.name) + ", mediana", "anos"));
    }
    for (const auto& [value, name] : rows) {
        std::vector<Cell> row = {report::text(name)};
        for (const Sex& sex : sexes) {
            Reading::At at = {any, sex.code, any, any};
            at[static_cast<std::size_t>(dimension)] = value;
            const Reading::Spread ages = reading.spread(count, 3, at);
            row.push_back(counted({ages.values.n(), ages.keys}));
            row.push_back(meanCell(ages, hundredths));
            row.push_back(medianCell(ages, hundredths));
        }
        table.rows.push_back(row);
    }
    return table;
}

Table byCohort(const Reading& reading, const Settings& settings)
{
    std::vector<std::pair<qint32, QString>> rows;
    for (const qint32 cohort : reading.values(ByBirthCohort, 0))
        rows.emplace_back(cohort, periodName(cohort, settings));
    Table table{
        "coortes", "Idade ao primeiro casamento, por coorte de nascimento", {textColumn("Nascidos em")}, {}, {}};
    const int last = settings.books[static_cast<std::size_t>(Series::Marriages)].last;
    table.notes << (last != 0 ? QString("Nascidos até %1: dos outros, os livros não chegam aos 50 anos de idade.")
                                    .arg(last - yearsToComplete)
                              : QString("Sem o fim dos livros de casamentos, as últimas coortes podem estar "
                                        "incompletas, e parecem então casar mais cedo."));
    return bySex(reading, ByBirthCohort, table, 0, rows);
}

Table byBirthplace(const Reading& reading)
{
    Table table{
        "origem", "Idade ao primeiro casamento, por naturalidade do casal", {textColumn("Naturalidade")}, {}, {}};
    table.notes << "Quem muda de paróquia casa mais tarde: a idade de quem ficou é inferior à de todos.";
    return bySex(reading, ByRegister, table, 2,
                 {{BothHere, "ambos da paróquia"},
                  {OneHere, "um de fora"},
                  {NoneHere, "ambos de fora"},
                  {Unknown, "desconhecida"}});
}

Chart meansChart(const Reading& reading, const Settings& settings)
{
    Chart chart{"medias",
                "Idade média ao primeiro casamento",
                report::Drawing::Points,
                "coorte de casamento",
                "idade média (anos)",
                {},
                {},
                {}};
    const std::vector<qint32> periods = reading.values(ByRegister, 0);
    QStringList words;
    for (const qint32 period : periods)
        chart.categories << periodName(period, settings);
    for (const Sex& sex : sexes) {
        report::Plot plot{sex.name, {}};
        for (std::size_t i = 0; i < periods.size(); ++i) {
            const Cell mean = meanCell(reading.spread(ByRegister, 3, {periods[i], sex.code, any, any}), hundredths);
            const double* value = std::get_if<double>(&mean.value);
            const bool isShown = value && mean.standing != report::Standing::Suppressed;
            plot.points.push_back(isShown ? report::Point{static_cast<double>(i), *value, mean.interval}
                                          : report::Point{static_cast<double>(i), {}, {}});
            if (isShown)
                words << QString("%1, %2: %3 anos")
                             .arg(sex.name, periodName(periods[i], settings), decimalComma(*value, 1));
        }
        chart.plots.push_back(plot);
    }
    chart.described = words.join("; ") + '.';
    return chart;
}

std::vector<Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    std::vector<Figure> all;
    for (const Sex& sex : sexes)
        all.emplace_back(byPeriod(reading, settings, sex));
    if (const Chart chart = meansChart(reading, settings); !chart.isEmpty()) all.emplace_back(chart);
    all.emplace_back(byGroup(reading));
    all.emplace_back(byCohort(reading, settings));
    all.emplace_back(byBirthplace(reading));
    all.emplace_back(leftOutTable(reading, leftOut));
    return all;
}

} // namespace marriageAges

} // namespace

const Subject ageAtMarriage = {
    "idade-ao-casamento",
    "Nupcialidade",
    "Idade ao primeiro casamento",
    "Contam-se as pessoas que casam pela primeira vez, segundo o número do casamento, o estado civil ou a falta de "
    "união "
    "anterior na base. A idade vai do nascimento ou baptismo ligado ao casamento; a que o assento declara mostra-se à "
    "parte. Ligam-se melhor os que casaram onde nasceram: quem mudou de paróquia casa mais tarde, e a média fica "
    "abaixo "
    "da verdadeira.",
    marriageAges::counts,
    marriageAges::leftOut,
    marriageAges::fill,
    marriageAges::figures};

} // namespace study::indicators
