// Who could sign, among those of whom it is told.
#include "study/indicators/marriages.h"
#include "study/indicators/other.h"
#include "study/indicators/reading.h"
#include "study/indicators/reasons.h"

#include <algorithm>

namespace study::indicators {

namespace {

using parish::Date;
using parish::Gender;
using parish::Person;
using parish::Signature;
using report::Chart;
using report::Figure;

// Of the dimensions: period or cohort, sex, whether the person signs; of ByLevel the level.
enum Count : quint16
{
    AtMarriage,
    Ever, // each person once, by the best level, in the period of the first of their signatures
    EverySignature,
    ByCohort,
    ByLevel,
    NoLevel,
    NoDate,
    OutOfPeriod,
    NoSex,
    NoBirth,
    UnsignedMarriage
};

constexpr const char* counts[] = {"ao casamento",
                                  "pessoas",
                                  "assinaturas",
                                  "coorte de nascimento",
                                  "nível",
                                  "sem nível",
                                  "sem data",
                                  "fora do período",
                                  "sexo por determinar",
                                  "sem nascimento",
                                  "casamento sem assinatura"};

constexpr Reason leftOut[] = {{NoLevel, "assinatura sem nível"},
                              {NoDate, reasons::noDate},
                              {OutOfPeriod, reasons::outsidePeriod},
                              {NoSex, reasons::unknownSex},
                              {NoBirth, "só por coorte de nascimento: sem nascimento"},
                              {UnsignedMarriage, "cônjuge sem assinatura registada no dia do casamento"}};

constexpr qint32 any = Reading::any;

enum Signs : qint32
{
    DoesNotSign,
    DoesSign
};

// Told, and within the period of the study; the reason otherwise.
std::optional<Count> whyNot(const Signature& row, const Settings& settings)
{
    if (!row.level) return NoLevel;
    if (!row.date.isKnown()) return NoDate;
    return settings.period.holds(row.date.year()) ? std::nullopt : std::optional(OutOfPeriod);
}

class Signer
{
public:
    Signer(const Person& person, const Study& study, Taker& taker)
        : person_(person), settings_(study.settings), study_(study), taker_(taker)
    {
    }

    void count() const
    {
        const Gender asked = settings_.gender;
        if (asked != Gender::Undetermined && asked != person_.gender) return;
        countMarriages();
        if (person_.signatures.empty()) return;
        if (person_.gender == Gender::Undetermined) return add(NoSex);
        const Signature* first = nullptr;
        int best = 0;
        for (const Signature& row : person_.signatures) {
            if (const auto reason = whyNot(row, settings_)) {
                add(*reason);
                continue;
            }
            const qint32 period = periodOf(row.date.year(), settings_);
            add(EverySignature, {period, sex(), signs(*row.level)});
            add(ByLevel, {period, sex(), *row.level});
            best = first ? std::max(best, *row.level) : *row.level;
            if (!first || row.date.middle() < first->date.middle()) first = &row;
        }
        if (!first) return;
        add(Ever, {periodOf(first->date.year(), settings_), sex(), signs(best)});
        if (!person_.birth.isKnown()) return add(NoBirth);
        add(ByCohort, {periodOf(person_.birth.year(), settings_), sex(), signs(best)});
    }

private:
    // The best of the day; a marriage without a signature of that day tells nothing.
    void countMarriages() const
    {
        if (person_.gender == Gender::Undetermined) return;
        for (const parish::Membership* row : person_.unions) {
            if (!row->family || marriageIs(*row->family, study_) != MarriageIs::Counted) continue;
            std::optional<int> best;
            for (const Signature& signature : person_.signatures)
                if (signature.level && signature.date.isKnown() && signature.date.day == row->family->marriage.day)
                    best = std::max(best.value_or(*signature.level), *signature.level);
            if (best)
                add(AtMarriage, {periodOf(row->family->marriage.year(), settings_), sex(), signs(*best)}, row->family);
            else
                add(UnsignedMarriage, {}, row->family);
        }
    }
    qint32 sex() const { return static_cast<qint32>(person_.gender); }
    qint32 signs(int level) const { return level >= settings_.signsFrom ? DoesSign : DoesNotSign; }
    void add(Count which, const Reading::At& at = {}, const parish::Family* family = nullptr) const
    {
        taker_.count({which, at}, {&person_, family});
    }

    const Person& person_;
    const Settings& settings_;
    const Study& study_;
    Taker& taker_;
};

void fill(const Study& study, const Share& share, Taker& taker)
{
    const auto people = study.parish.people();
    for (std::size_t i = share.firstPerson; i < share.lastPerson; ++i)
        Signer(people[i], study, taker).count();
}

// Figures

struct Sex
{
    Gender gender;
    const char* name;
};
constexpr Sex sexes[] = {{Gender::Male, "Homens"}, {Gender::Female, "Mulheres"}};

struct Shown
{
    Count count;
    const char* id;
    const char* title;
    const char* rows;
};
constexpr Shown tables[] = {
    {AtMarriage, "ao-casamento", "Assinam ao casar, por períodos", "Casados em"},
    {Ever, "pessoas", "Assinam, cada pessoa uma vez, pelo melhor nível", "Primeira assinatura em"},
    {ByCohort, "coortes", "Assinam, por coorte de nascimento", "Nascidos em"},
    {EverySignature, "assinaturas", "Assinaturas, cada uma por si", "Período"}};

Table shareTable(const Reading& reading, const Settings& settings, const Shown& shown)
{
    Table table{shown.id, shown.title, {textColumn(shown.rows)}, {}, {}};
    for (const Sex& sex : sexes) {
        table.columns.push_back(countColumn(QString(sex.name) + ", nº"));
        table.columns.push_back(countColumn(QString(sex.name) + ", assinam"));
        table.columns.push_back(decimalColumn(QString(sex.name) + ", assinam em 100", "%"));
    }
    for (const auto& [period, name] : periodsOf(reading, {shown.count}, settings)) {
        std::vector<Cell> row = {report::text(name)};
        for (const Sex& sex : sexes) {
            const auto code = static_cast<qint32>(sex.gender);
            const Reading::Part all = reading.part(shown.count, {period, code, any, any});
            const Reading::Part part = reading.part(shown.count, {period, code, DoesSign, any});
            row.push_back(counted(all));
            row.push_back(counted(part));
            row.push_back(percent(part, all));
        }
        table.rows.push_back(row);
    }
    table.notes << QString(
                       "Assina quem tem nível %1 ou mais. A base são as pessoas de quem há assinatura registada: não "
                       "ter nenhuma não é não saber assinar.")
                       .arg(settings.signsFrom);
    return table;
}

Table levelTable(const Reading& reading)
{
    Table table{"niveis", "Assinaturas por nível", {textColumn("Nível")}, {}, {}};
    for (const Sex& sex : sexes)
        table.columns.push_back(countColumn(sex.name));
    for (const qint32 level : reading.values(ByLevel, 2)) {
        std::vector<Cell> row = {report::text(QString::number(level))};
        for (const Sex& sex : sexes)
            row.push_back(counted(reading.part(ByLevel, {any, static_cast<qint32>(sex.gender), level, any})));
        table.rows.push_back(row);
    }
    return table;
}

Chart trend(const Reading& reading, const Settings& settings)
{
    Chart chart{
        "tendencia", "Assinam, por coorte de nascimento", report::Drawing::Points, "nascidos em", "assinam (%)", {}, {},
        {}};
    const std::vector<qint32> cohorts = reading.values(ByCohort, 0);
    QStringList words;
    for (const qint32 cohort : cohorts)
        chart.categories << periodName(cohort, settings);
    for (const Sex& sex : sexes) {
        const auto code = static_cast<qint32>(sex.gender);
        report::Plot plot{sex.name, {}};
        for (std::size_t i = 0; i < cohorts.size(); ++i) {
            const Cell cell = percent(reading.part(ByCohort, {cohorts[i], code, DoesSign, any}),
                                      reading.part(ByCohort, {cohorts[i], code, any, any}));
            report::Point point{static_cast<double>(i), {}, {}};
            const double* value = std::get_if<double>(&cell.value);
            if (value && cell.standing != report::Standing::Suppressed) {
                point.y = *value;
                point.interval = cell.interval;
                words
                    << QString("%1, %2: %3 %").arg(sex.name, periodName(cohorts[i], settings), decimalComma(*value, 0));
            }
            plot.points.push_back(point);
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
    for (const Shown& shown : tables)
        all.emplace_back(shareTable(reading, settings, shown));
    if (const Chart chart = trend(reading, settings); !chart.isEmpty()) all.emplace_back(chart);
    all.emplace_back(levelTable(reading));
    all.emplace_back(leftOutTable(reading, leftOut));
    return all;
}

} // namespace

const Subject literacy = {
    "alfabetizacao",
    "Outros",
    "Alfabetização pelas assinaturas",
    "Contam-se as pessoas de quem há assinatura com nível: ao casar, no dia do casamento; e em toda a vida, uma vez, "
    "pelo "
    "melhor nível. O nível a partir do qual se assina é o do estudo. Quem não tem assinatura registada não conta como "
    "quem não sabe assinar.",
    counts,
    leftOut,
    fill,
    figures};

} // namespace study::indicators
