// Who could sign, among those of whom it is told.
#include "study/indicators/labels.h"
#include "study/indicators/marriages.h"
#include "study/indicators/other.h"
#include "study/indicators/reading.h"
#include "study/indicators/reasons.h"
#include "study/indicators/scope.h"

#include <algorithm>
#include <cstdlib>
#include <map>

namespace study::indicators {

namespace {

namespace signing {

using parish::Date;
using parish::Gender;
using parish::Person;
using parish::Signature;
using report::Chart;
using report::Figure;

// Of the dimensions: period or cohort, sex, how the person signs; of ByLevel the level. Of roles and professions the
// label alone: each has three counts, one for each way to sign.
enum Count : quint16
{
    AtMarriage,
    Ever, // each person once, by the best level, in the period of the first of their signatures
    EverySignature,
    ByCohort,
    ByLevel,
    RoleUnable, // each person once in each role, by the best level in it
    RoleMark,
    RoleSigns,
    ProfessionUnable, // each person once, by the best level
    ProfessionMark,
    ProfessionSigns,
    NoLevel,
    NoDate,
    OutOfPeriod,
    NoSex,
    NoBirth,
    UnsignedMarriage,
    NoProfession
};

constexpr const char* counts[] = {"ao casamento",
                                  "pessoas",
                                  "assinaturas",
                                  "coorte de nascimento",
                                  "nível",
                                  "não sabe, por função",
                                  "cruz, por função",
                                  "assina, por função",
                                  "não sabe, por profissão",
                                  "cruz, por profissão",
                                  "assina, por profissão",
                                  "sem nível",
                                  "sem data",
                                  "fora do período",
                                  "sexo por determinar",
                                  "sem nascimento",
                                  "casamento sem assinatura",
                                  "sem profissão"};

constexpr Reason leftOut[] = {{NoLevel, "assinatura sem nível"},
                              {NoDate, reasons::noDate},
                              {OutOfPeriod, reasons::outsidePeriod},
                              {NoSex, reasons::unknownSex},
                              {NoBirth, "só por coorte de nascimento: sem nascimento"},
                              {UnsignedMarriage, "cônjuge sem assinatura registada no dia do casamento"},
                              {NoProfession, "só por profissão: sem profissão conhecida"}};

constexpr qint32 any = Reading::any;

enum Signs : qint32
{
    Unable,
    Mark, // a cross, or another sign
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
        std::map<QString, int> bestInRole;
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
            int& inRole = bestInRole.try_emplace(roleOf(row), *row.level).first->second;
            inRole = std::max(inRole, *row.level);
        }
        if (!first) return;
        for (const auto& [role, level] : bestInRole)
            add(waysTo(RoleUnable, level), labelledByName(role));
        countProfession(*first, best);
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
    // As the card has it, else by the acts of that day.
    QString roleOf(const Signature& row) const
    {
        if (const QString& role = study_.parish.roleIn(row); !role.isEmpty()) return role.toLower();
        const auto isThatDay = [&row](const Date& date) { return date.isKnown() && date.day == row.date.day; };
        const bool man = person_.gender == Gender::Male;
        for (const parish::Membership* union_ : person_.unions) {
            if (!union_->family) continue;
            if (isThatDay(union_->family->marriage)) return man ? "noivo" : "noiva";
            for (const Person* child : union_->family->children)
                if (isThatDay(child->birth)) return man ? "pai" : "mãe";
        }
        for (const parish::Assistance* act : person_.assisted)
            if (isThatDay(act->date)) return act->godparent ? (man ? "padrinho" : "madrinha") : "testemunha";
        return {};
    }
    // The one told nearest to the first signature: who can sign at one time could at others.
    void countProfession(const Signature& first, int level) const
    {
        const parish::Profession* nearest = nullptr;
        const auto distance = [&first](const parish::Profession& row) {
            return std::abs(row.date.middle().daysTo(first.date.middle()));
        };
        for (const parish::Profession& row : person_.professions)
            if (row.code && row.date.isKnown() && (!nearest || distance(row) < distance(*nearest))) nearest = &row;
        if (!nearest) return add(NoProfession);
        add(waysTo(ProfessionUnable, level),
            labelled(study_.parish.catalogue().professions.value(*nearest->code), *nearest->code));
    }
    Count waysTo(Count unable, int level) const { return static_cast<Count>(unable + signs(level)); }
    qint32 sex() const { return static_cast<qint32>(person_.gender); }
    qint32 signs(int level) const
    {
        if (level >= settings_.signsFrom) return DoesSign;
        return level >= settings_.marksFrom ? Mark : Unable;
    }
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
    for (const parish::Person& person : peopleOf(study, share))
        Signer(person, study, taker).count();
}

// Figures

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
        table.columns.push_back(countColumn(QString(sex.name) + ", não sabem"));
        table.columns.push_back(countColumn(QString(sex.name) + ", cruz ou sinal"));
        table.columns.push_back(countColumn(QString(sex.name) + ", assinam"));
        table.columns.push_back(decimalColumn(QString(sex.name) + ", assinam em 100", "%"));
    }
    for (const auto& [period, name] : periodsOf(reading, {shown.count}, settings)) {
        std::vector<Cell> row = {report::text(name)};
        for (const Sex& sex : sexes) {
            const qint32 code = sex.code;
            const Reading::Part all = reading.part(shown.count, {period, code, any, any});
            const Reading::Part part = reading.part(shown.count, {period, code, DoesSign, any});
            row.push_back(counted(all));
            row.push_back(counted(reading.part(shown.count, {period, code, Unable, any})));
            row.push_back(counted(reading.part(shown.count, {period, code, Mark, any})));
            row.push_back(counted(part));
            row.push_back(percent(part, all));
        }
        table.rows.push_back(row);
    }
    table.notes << QString("Assina quem tem nível %1 ou mais; faz cruz ou sinal quem tem menos e pelo menos %2. A base "
                           "são as pessoas de quem há assinatura registada: não ter nenhuma não é não saber assinar.")
                       .arg(settings.signsFrom)
                       .arg(settings.marksFrom);
    return table;
}

// Of each label the three ways to sign, which are counts that follow each other; the most frequent first.
Table labelTable(const Reading& reading, quint16 unable, Table table, const QString& labels,
                 QString (*name)(const Reading::At&))
{
    table.columns = {textColumn(labels),           countColumn("Pessoas"), countColumn("Não sabem"),
                     countColumn("Cruz ou sinal"), countColumn("Assinam"), decimalColumn("Assinam em 100", "%")};
    using Ways = std::array<Reading::Part, 3>;
    std::map<Reading::At, Ways> all;
    for (std::size_t way = 0; way < Ways().size(); ++way)
        for (const Reading::Part& part : reading.cellsOf(static_cast<quint16>(unable + way)))
            all[part.keys.front().at][way] = part;
    for (const auto& [at, ways] : all) {
        Reading::Part whole = ways[Unable];
        whole += ways[Mark];
        whole += ways[DoesSign];
        table.rows.push_back({report::text(name(at)), counted(whole), counted(ways[Unable]), counted(ways[Mark]),
                              counted(ways[DoesSign]), percent(ways[DoesSign], whole)});
    }
    const auto isMore = [](const std::vector<Cell>& one, const std::vector<Cell>& other) {
        return std::get<double>(one[1].value) > std::get<double>(other[1].value);
    };
    std::stable_sort(table.rows.begin(), table.rows.end(), isMore);
    return table;
}

Table levelTable(const Reading& reading, const Settings& settings)
{
    Table table{"niveis", "Assinaturas por nível", {textColumn("Nível"), textColumn("Conta como")}, {}, {}};
    for (const Sex& sex : sexes)
        table.columns.push_back(countColumn(sex.name));
    for (const qint32 level : reading.values(ByLevel, 2)) {
        const char* way = level >= settings.signsFrom   ? "assina"
                          : level >= settings.marksFrom ? "cruz ou sinal"
                                                        : "não sabe";
        std::vector<Cell> row = {report::text(QString::number(level)), report::text(way)};
        for (const Sex& sex : sexes)
            row.push_back(counted(reading.part(ByLevel, {any, sex.code, level, any})));
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
        const qint32 code = sex.code;
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
    all.emplace_back(labelTable(reading, RoleUnable,
                                {"funcoes",
                                 "Assinam, pela função no acto",
                                 {},
                                 {},
                                 {"Cada pessoa conta uma vez em cada função, pelo melhor nível nela. Onde a ficha não "
                                  "diz a função, é a que a pessoa tem nos actos desse dia."}},
                                "Função", toldName));
    all.emplace_back(labelTable(reading, ProfessionUnable,
                                {"profissoes",
                                 "Assinam, pela profissão",
                                 {},
                                 {},
                                 {"A profissão dita mais perto da primeira assinatura; cada pessoa conta uma vez, pelo "
                                  "melhor nível."}},
                                "Profissão", labelOf));
    all.emplace_back(levelTable(reading, settings));
    all.emplace_back(leftOutTable(reading, leftOut));
    return all;
}

} // namespace signing

} // namespace

const Subject literacy = {
    "alfabetizacao",
    "Outros",
    "Alfabetização pelas assinaturas",
    "Contam-se as pessoas de quem há assinatura com nível: ao casar, no dia do casamento; e em toda a vida, uma vez, "
    "pelo "
    "melhor nível. O nível a partir do qual se assina, e o da cruz ou sinal, são os do estudo. Quem não tem assinatura "
    "registada não conta como "
    "quem não sabe assinar.",
    signing::counts,
    signing::leftOut,
    signing::fill,
    signing::figures};

} // namespace study::indicators
