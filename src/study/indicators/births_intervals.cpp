// Between the confinements of one couple.
#include "study/indicators/births.h"
#include "study/indicators/confinements.h"
#include "study/indicators/natality.h"

#include <algorithm>

namespace study::indicators {

using natality::Row;
using parish::Date;
using parish::Family;
using parish::Person;

namespace {

namespace betweenBirths {

using Confinements = std::vector<Confinement>;

// Days, rank of the confinement before, period. In large families: days, place. By fate, to the first birthday or to
// the next conception: days, fate, period.
constexpr quint16 interval = 0, placed = 1, byFate = 2, noCouple = 3, notExact = 4, single = 5, outside = 6, unread = 7,
                  byFateToConception = 8;
constexpr std::array<const char*, 9> counts{"intervalo",   "grandes-familias",  "por-destino",
                                            "falta-casal", "sem-datas-exactas", "um-so-parto",
                                            "fora",        "fora-dos-livros",   "por-destino-ate-a-concepcao"};
constexpr std::array<Reason, 5> whyNot{Reason{noCouple, "famílias de um só membro, ou sem marido e mulher"},
                                       Reason{notExact, "famílias com filhos sem data exacta de nascimento"},
                                       Reason{single, "casais com um só parto, ou nenhum"},
                                       Reason{outside, "intervalos fora do período do estudo"},
                                       Reason{unread, "intervalos em que faltam livros de baptismos"}};

constexpr std::size_t largeFamily = 6;
constexpr int gap = 2922; // days: over eight years a birth may be missing

enum class Place : qint32
{
    First,
    Second,
    Third,
    Antepenultimate,
    Penultimate,
    Last
};
constexpr std::array<const char*, 6> places{"primeiro", "segundo", "terceiro", "antepenúltimo", "penúltimo", "último"};

enum class Fate : qint32
{
    Died, // in its first year, or before the next conception
    Survived,
    Unknown
};
using FateNames = std::array<const char*, 3>;
constexpr FateNames fates{"morreu antes de um ano", "sobreviveu a um ano", "desconhecido"};
constexpr FateNames fatesToConception{"morreu antes da concepção", "vivia na concepção", "desconhecido"};

// The last day on which something of the family other than this child is told: while it is there, a death would be,
// too.
qint32 lastDayOf(const Family& family, const Confinement& without)
{
    qint32 last = 0;
    const auto take = [&last](const Date& date) {
        if (date.isExact()) last = std::max(last, date.day);
    };
    for (const Person* child : family.children) {
        if (std::find(without.children.begin(), without.children.end(), child) != without.children.end()) continue;
        take(child->birth);
        take(child->death);
    }
    for (const Person* parent : {family.husband, family.wife})
        if (parent) take(parent->death);
    return last;
}

Fate fateOf(const Person& child, qint32 familySeenUntil)
{
    const Date year = natality::anniversary(child.birth, 1);
    if (child.death.isKnown()) {
        if (child.death.isExact()) return child.death.day < year.day ? Fate::Died : Fate::Survived;
        return child.death.date().year() > year.year() ? Fate::Survived : Fate::Unknown;
    }
    const auto isOf = [&](const parish::Membership* row) { return row->family && row->family->marriage.isKnown(); };
    const bool married = std::any_of(child.unions.begin(), child.unions.end(), isOf);
    return married || familySeenUntil >= year.day ? Fate::Survived : Fate::Unknown;
}

// Of twins the one that lived longest, as far as that is known.
template <class FateOf>
Fate longestOf(const Confinement& confinement, const FateOf& fateOfOne)
{
    Fate fate = Fate::Died;
    for (const Person* child : confinement.children) {
        const Fate one = fateOfOne(*child);
        if (one == Fate::Survived) return one;
        if (one == Fate::Unknown) fate = one;
    }
    return fate;
}

Fate fateOf(const Confinement& confinement, const Family& family)
{
    const qint32 seen = lastDayOf(family, confinement);
    return longestOf(confinement, [&](const Person& child) { return fateOf(child, seen); });
}

// Whether the child still lived when the next one was conceived, nine months before its birth. The couple is there at
// that birth: a death that isn't told hasn't happened.
Fate fateToConception(const Confinement& confinement, const Confinement& next)
{
    static constexpr int monthsOfGestation = 9;
    const QDate conception = next.day.date().addMonths(-monthsOfGestation);
    return longestOf(confinement, [&](const Person& child) {
        if (!child.death.isKnown()) return Fate::Survived;
        if (child.death.isExact()) return child.death.date() < conception ? Fate::Died : Fate::Survived;
        return child.death.date().year() > conception.year() ? Fate::Survived : Fate::Unknown;
    });
}

bool isRead(const Date& from, const Date& until, const Settings& settings)
{
    for (int year = from.year(); year <= until.year(); ++year)
        if (!settings.covers(Series::Baptisms, year)) return false;
    return true;
}

struct Interval
{
    const Confinement& before;
    const Confinement& after;
    const Family& family;

    int days() const { return parish::daysBetween(before.day, after.day); }
    Who who() const { return {after.children.front(), &family}; }
    // By the marriage where that is known and asked for, else by the later confinement.
    Date dated(const Settings& settings) const
    {
        return settings.byMarriageCohort && family.marriage.isKnown() ? family.marriage : after.day;
    }
};

// Outside of what is studied, or in years that nobody has read: it tells so.
bool isToCount(const Interval& one, const Settings& settings, Taker& taker)
{
    if (!settings.period.holds(one.dated(settings).year())) {
        taker.count({outside, {}}, one.who());
        return false;
    }
    if (isRead(one.before.day, one.after.day, settings)) return true;
    taker.count({unread, {}}, one.who());
    return false;
}

void countPlace(const Interval& one, std::size_t rank, std::size_t intervals, Taker& taker)
{
    const auto tell = [&](Place place) { taker.count({placed, {one.days(), static_cast<qint32>(place)}}, one.who()); };
    if (rank <= 3) tell(static_cast<Place>(rank - 1));
    if (intervals - rank < 3) tell(static_cast<Place>(static_cast<std::size_t>(Place::Last) - (intervals - rank)));
}

void countFamily(const observation::Union& of, const Settings& settings, Taker& taker)
{
    const Family& family = *of.family;
    const Confinements confinements = confinementsOf(family);
    const bool large = of.isClosed() && family.children.size() >= largeFamily;
    for (std::size_t rank = 1; rank < confinements.size(); ++rank) {
        const Interval one{confinements[rank - 1], confinements[rank], family};
        if (!isToCount(one, settings, taker)) continue;
        const qint32 period = periodOf(one.dated(settings).year(), settings);
        taker.count({interval, {one.days(), static_cast<qint32>(rank), period}}, one.who());
        taker.count({byFate, {one.days(), static_cast<qint32>(fateOf(one.before, family)), period}}, one.who());
        taker.count(
            {byFateToConception, {one.days(), static_cast<qint32>(fateToConception(one.before, one.after)), period}},
            one.who());
        if (large) countPlace(one, rank, confinements.size() - 1, taker);
    }
    if (confinements.size() < 2) taker.count({single, {}}, {nullptr, &family});
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (std::size_t i = share.firstFamily; i < share.lastFamily; ++i) {
        const observation::Union& of = study.unions[i];
        if (!of.isUnion())
            taker.count({noCouple, {}}, {nullptr, of.family});
        else if (!hasExactBirths(*of.family))
            taker.count({notExact, {}}, {nullptr, of.family});
        else
            countFamily(of, study.settings, taker);
    }
}

Row rowOf(const Reading& reading, const QString& name, quint16 count, const Reading::At& at)
{
    const Reading::Spread days = reading.spread(count, 0, at);
    Reading::Part tooLong;
    for (const auto& [value, n] : days.values.counts())
        if (value > gap) tooLong += reading.part(count, {value, at[1], at[2], at[3]});
    return {report::text(name),
            report::number(days.values.n(), days.keys),
            meanCell(days, natality::daysOfAMonth),
            deviationCell(days, natality::daysOfAMonth),
            medianCell(days, natality::daysOfAMonth),
            counted(tooLong)};
}

Table emptyTable(const QString& id, const QString& title, const QString& head)
{
    return {id,
            title,
            {textColumn(head), countColumn("Intervalos"), decimalColumn("Média", "meses", 2),
             decimalColumn("Desvio-padrão", "meses", 2), decimalColumn("Mediana", "meses", 2),
             countColumn("Acima de 8 anos")},
            {},
            {"Um mês são 30,4375 dias. Um intervalo acima de 8 anos pode esconder um nascimento que falta."}};
}

Table rankTable(const Reading& reading, const Settings& settings)
{
    Table table = emptyTable("por-ordem", "Intervalos entre partos, por ordem", "Partos");
    table.rows.push_back(rowOf(reading, "Todos", interval, Reading::everywhere));
    for (const qint32 rank : reading.values(interval, 1))
        table.rows.push_back(rowOf(reading, QString("%1–%2").arg(rank).arg(rank + 1), interval,
                                   {Reading::any, rank, Reading::any, Reading::any}));
    for (const natality::Named& period : natality::periodsOf(reading, interval, 2, settings))
        table.rows.push_back(rowOf(reading, "Todos, " + period.name, interval, period.at));
    return table;
}

Table placeTable(const Reading& reading)
{
    Table table =
        emptyTable("grandes-familias", "Intervalos entre partos, famílias fechadas com 6 filhos e mais", "Intervalo");
    for (std::size_t place = 0; place < places.size(); ++place)
        table.rows.push_back(rowOf(reading, QString::fromUtf8(places[place]), placed,
                                   {Reading::any, static_cast<qint32>(place), Reading::any, Reading::any}));
    table.notes << "Com 6 ou 7 filhos, um mesmo intervalo pode ser contado do princípio e do fim.";
    return table;
}

Reading::At atFate(Fate fate)
{
    return {Reading::any, static_cast<qint32>(fate), Reading::any, Reading::any};
}

// What the life of a child adds to the interval that follows it.
Row differenceRow(const Reading& reading, quint16 count, const QString& name)
{
    const Reading::Spread died = reading.spread(count, 0, atFate(Fate::Died)),
                          lived = reading.spread(count, 0, atFate(Fate::Survived));
    Row row{report::text(name), {}, {}, {}, {}, {}};
    const std::optional<double> shorter = died.values.mean(), longer = lived.values.mean();
    if (!shorter || !longer) return row;
    std::vector<Key> keys = died.keys;
    keys.insert(keys.end(), lived.keys.begin(), lived.keys.end());
    row[2] = report::number((*longer - *shorter) / natality::daysOfAMonth, keys);
    row[2].standing = std::max(meanCell(died, 1).standing, meanCell(lived, 1).standing);
    return row;
}

void appendFates(Table& table, const Reading& reading, quint16 count, const FateNames& names, const QString& difference)
{
    for (const Fate fate : {Fate::Died, Fate::Survived, Fate::Unknown})
        table.rows.push_back(
            rowOf(reading, QString::fromUtf8(names[static_cast<std::size_t>(fate)]), count, atFate(fate)));
    table.rows.push_back(differenceRow(reading, count, difference));
}

Table fateTable(const Reading& reading)
{
    Table table =
        emptyTable("por-destino", "Intervalos entre partos, pelo destino do filho anterior", "Filho anterior");
    appendFates(table, reading, byFate, fates, "Diferença: sobreviveu menos morreu");
    table.notes
        << "Sobreviveu: morreu depois, casou, ou a família ainda é vista ao fim de um ano sem que haja óbito. Dos "
           "gémeos conta o que viveu mais."
        << "A diferença estima o efeito da amamentação, de ordinário entre 6 e 10 meses.";
    return table;
}

Table conceptionTable(const Reading& reading)
{
    Table table =
        emptyTable("por-destino-ate-a-concepcao",
                   "Intervalos entre partos, pelo filho anterior quando se concebeu o seguinte", "Filho anterior");
    appendFates(table, reading, byFateToConception, fatesToConception, "Diferença: vivia menos morreu");
    table.notes << "A concepção: nove meses antes do parto que fecha o intervalo. Quem morreu depois dela já não a "
                   "podia apressar. Dos gémeos conta o que viveu mais.";
    return table;
}

report::Chart chartOf(const Reading& reading)
{
    std::vector<std::pair<QString, double>> values;
    for (const qint32 rank : reading.values(interval, 1)) {
        const Cell cell = meanCell(reading.spread(interval, 0, {Reading::any, rank, Reading::any, Reading::any}),
                                   natality::daysOfAMonth);
        if (const double* mean = std::get_if<double>(&cell.value);
            mean && cell.standing != report::Standing::Suppressed)
            values.emplace_back(QString("%1–%2").arg(rank).arg(rank + 1), *mean);
    }
    return natality::bars("medias", "Intervalo médio entre partos, por ordem", "partos", "meses", values);
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    if (reading.isEmpty()) return natality::withoutData(birthIntervals.title);
    return {rankTable(reading, settings), chartOf(reading),         placeTable(reading),
            fateTable(reading),           conceptionTable(reading), leftOutTable(reading, whyNot)};
}

} // namespace betweenBirths

} // namespace

const Subject birthIntervals = {
    .id = "intervalos-intergenesicos",
    .group = "Nascimentos",
    .title = "Intervalos entre partos",
    .method =
        "Contam os casais cujos filhos têm todos data exacta de nascimento; os gémeos, até 3 dias um do outro, são um "
        "parto. O intervalo vai de um parto ao seguinte, por ordem; nas famílias fechadas com 6 filhos e mais "
        "também contado do fim; e pelo destino do filho anterior. Nascimentos que faltam nos livros alongam-no.",
    .counts = betweenBirths::counts,
    .reasons = betweenBirths::whyNot,
    .fill = betweenBirths::fill,
    .figures = betweenBirths::figures,
};

} // namespace study::indicators
