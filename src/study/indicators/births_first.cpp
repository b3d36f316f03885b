// From the marriage to the first confinement.
#include "study/indicators/births.h"
#include "study/indicators/confinements.h"
#include "study/indicators/natality.h"
#include "study/indicators/scope.h"

#include <algorithm>
#include <limits>
#include <set>
#include <span>

namespace study::indicators {

using natality::Row;
using parish::Date;
using parish::Family;
using parish::Person;

namespace {

namespace firstBorn {

constexpr int conceivedBefore = 8; // completed months under which a child was conceived before the marriage

// Why a family tells nothing of its first interval.
enum class NoFirst : quint8
{
    None,
    Couple,
    Situation,
    Marriage,
    ApproximateMarriage,
    Elsewhere,
    Period,
    Books,
    Children,
    ApproximateChildren,
    BornElsewhere
};
constexpr std::size_t noFirsts = 10;
constexpr std::array<const char*, noFirsts> noFirstNames{
    "falta-casal",   "falta-situacao", "falta-casamento", "falta-casamento-exacto", "fora-da-paroquia",
    "falta-periodo", "falta-livros",   "sem-filhos",      "filhos-sem-data-exacta", "filho-de-fora"};
constexpr std::array<const char*, noFirsts> noFirstTold{"famílias de um só membro, ou sem marido e mulher",
                                                        "situação da família que não é de casamento",
                                                        "sem data de casamento",
                                                        "data do casamento aproximada",
                                                        "casamento noutra paróquia",
                                                        "casamento ou nascimento fora do período do estudo",
                                                        "casamento ou nascimento fora dos livros",
                                                        "sem filhos",
                                                        "com filhos sem data exacta de nascimento",
                                                        "primeiro filho nascido noutra paróquia"};

// The interval: days and completed months (below 0 before the marriage), cohort, and what more is known of the couple.
// Apart from it the interval to a first child of another parish, whose elder ones may stand in other books: it is no
// first interval, but it tells of a conception before the marriage.
constexpr quint16 interval = 0, firstReason = 1, intervalElsewhere = firstReason + noFirsts;
constexpr std::array<const char*, 1> ownNames{"intervalo"}, elsewhereNames{"intervalo-de-fora"};
constexpr auto counts = natality::joined(natality::joined(ownNames, noFirstNames), elsewhereNames);
constexpr auto whyNot = natality::reasonsFrom(firstReason, noFirstTold);
constexpr qint32 firstOfBoth = 1, seenLater = 2;

struct First
{
    NoFirst lack = NoFirst::None;
    Confinement confinement = {};
};

bool isRead(const Date& marriage, const Date& birth, const Settings& settings)
{
    return settings.covers(Series::Marriages, marriage.year()) && settings.covers(Series::Baptisms, birth.year());
}

NoFirst lackOfMarriage(const observation::Union& of, const Study& study)
{
    const Family& family = *of.family;
    if (!of.isUnion()) return NoFirst::Couple;
    if (!natality::isMarital(family)) return NoFirst::Situation;
    if (!family.marriage.isKnown()) return NoFirst::Marriage;
    if (!family.marriage.isExact()) return NoFirst::ApproximateMarriage;
    if (!isHere(family.place, study)) return NoFirst::Elsewhere;
    if (family.children.empty()) return NoFirst::Children;
    return hasExactBirths(family) ? NoFirst::None : NoFirst::ApproximateChildren;
}

First firstOf(const observation::Union& of, const Study& study)
{
    First first{lackOfMarriage(of, study)};
    if (first.lack != NoFirst::None) return first;
    first.confinement = confinementsOf(*of.family).front();
    const Date& marriage = of.family->marriage;
    const Date& birth = first.confinement.day;
    const Date& dated = study.settings.byMarriageCohort ? marriage : birth;
    if (!study.settings.period.holds(dated.year()))
        first.lack = NoFirst::Period;
    else if (!isRead(marriage, birth, study.settings))
        first.lack = NoFirst::Books;
    else if (!isHere(first.confinement.children.front()->birthPlace, study))
        first.lack = NoFirst::BornElsewhere;
    return first;
}

// Something of the couple is told behind their first confinement.
bool isSeenLater(const Family& family, const Date& day)
{
    const auto isLater = [&](const Date& event) { return event.isKnown() && event.middle() > day.middle(); };
    for (const Person* child : family.children)
        if (isLater(child->death) || parish::daysBetween(day, child->birth) > daysOfTwins) return true;
    for (const Person* spouse : {family.husband, family.wife}) {
        if (isLater(spouse->death)) return true;
        for (const parish::Membership* row : spouse->unions)
            if (row->family && isLater(row->family->marriage)) return true;
    }
    return false;
}

void countFirst(quint16 count, const Family& family, const Confinement& first, const Settings& settings, Taker& taker)
{
    const bool both =
        natality::isFirstMarriage(family.husband, family) && natality::isFirstMarriage(family.wife, family);
    const qint32 known = (both ? firstOfBoth : 0) + (isSeenLater(family, first.day) ? seenLater : 0);
    taker.count(
        {count,
         {parish::daysBetween(family.marriage, first.day), natality::completedMonths(family.marriage, first.day),
          natality::cohortOf(family.marriage, first.day, settings), known}},
        {first.children.front(), &family});
}

void fill(const Study& study, const Share& share, Taker& taker)
{
    for (std::size_t i = share.firstFamily; i < share.lastFamily; ++i) {
        const observation::Union& of = study.unions[i];
        const First first = firstOf(of, study);
        if (first.lack == NoFirst::None) countFirst(interval, *of.family, first.confinement, study.settings, taker);
        if (first.lack == NoFirst::BornElsewhere)
            countFirst(intervalElsewhere, *of.family, first.confinement, study.settings, taker);
        if (first.lack != NoFirst::None)
            taker.count({static_cast<quint16>(firstReason + static_cast<int>(first.lack) - 1), {}},
                        {nullptr, of.family});
    }
}

// Which of them a row takes.
struct Taken
{
    QString name = {};
    qint32 known = 0;           // all of these
    int from = conceivedBefore; // completed months
    int behindLast = std::numeric_limits<int>::max();
    qint32 cohort = Reading::any;
};

template <class Take>
void eachTaken(const Reading& reading, quint16 count, const Taken& taken, const Take& take)
{
    for (const qint32 months : reading.values(count, 1))
        if (months >= taken.from && months < taken.behindLast)
            for (qint32 known = 0; known <= (firstOfBoth | seenLater); ++known)
                if ((known & taken.known) == taken.known) take(Reading::At{Reading::any, months, taken.cohort, known});
}

Reading::Part partOf(const Reading& reading, const Taken& taken, quint16 count = interval)
{
    Reading::Part part;
    eachTaken(reading, count, taken, [&](const Reading::At& at) { part += reading.part(count, at); });
    return part;
}

Reading::Spread daysOf(const Reading& reading, const Taken& taken)
{
    std::map<qint32, qint64> often;
    Reading::Spread spread;
    eachTaken(reading, interval, taken, [&](const Reading::At& at) {
        const Reading::Spread some = reading.spread(interval, 0, at);
        for (const auto& [days, n] : some.values.counts())
            often[days] += n;
        spread.keys.insert(spread.keys.end(), some.keys.begin(), some.keys.end());
    });
    spread.values = statistics::Distribution(std::move(often));
    return spread;
}

Taken within(Taken taken, int from, int behindLast)
{
    taken.from = std::max(taken.from, from);
    taken.behindLast = std::min(taken.behindLast, behindLast);
    return taken;
}

constexpr auto noEnd = std::numeric_limits<int>::max();

namespace behindMarriage {

Row rowOf(const Reading& reading, const Taken& taken)
{
    const Reading::Spread days = daysOf(reading, taken);
    const Reading::Part all = partOf(reading, taken);
    Row row{report::text(taken.name), counted(all), meanCell(days, natality::daysOfAMonth),
            medianCell(days, natality::daysOfAMonth)};
    const std::pair<int, int> parts[]{{8, 12}, {12, 24}, {24, 36}, {36, noEnd}};
    for (const auto& [from, behindLast] : parts)
        row.push_back(percent(partOf(reading, within(taken, from, behindLast)), all));
    return row;
}

std::vector<Taken> rowsTaken(const Reading& reading, const Settings& settings)
{
    static constexpr int tooLong = 60;
    constexpr qint32 standard = firstOfBoth | seenLater;
    std::vector<Taken> rows{{"Todos os casamentos, 8 meses e mais"},
                            {"Primeiros casamentos, 8 meses e mais", standard},
                            {"Primeiros casamentos, 0 meses e mais", standard, 0},
                            {"Primeiros casamentos, 8 a 60 meses", standard, conceivedBefore, tooLong + 1}};
    for (const qint32 cohort : reading.values(interval, 2))
        rows.push_back({"Primeiros casamentos, 8 meses e mais, " + periodName(cohort, settings), standard,
                        conceivedBefore, noEnd, cohort});
    return rows;
}

report::Chart chartOf(const Reading& reading)
{
    static constexpr int last = 36;
    std::vector<std::pair<QString, double>> values;
    for (int month = 0; month <= last; ++month) {
        const Taken taken{{}, 0, month, month == last ? noEnd : month + 1};
        values.emplace_back(month == last ? QString("%1 e mais").arg(month) : QString::number(month),
                            static_cast<double>(partOf(reading, taken).n));
    }
    return natality::bars("meses", "Primeiros partos pelos meses completos desde o casamento",
                          "meses completos desde o casamento", "primeiros partos", values);
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    if (reading.isEmpty()) return natality::withoutData(firstInterval.title);
    Table table{"primeiro-intervalo",
                "Do casamento ao primeiro parto",
                {textColumn("Famílias"), countColumn("Número"), decimalColumn("Média", "meses", 2),
                 decimalColumn("Mediana", "meses", 2), decimalColumn("8–11 meses", "%"),
                 decimalColumn("12–23 meses", "%"), decimalColumn("24–35 meses", "%"),
                 decimalColumn("36 meses e mais", "%")},
                {},
                {"Um mês são 30,4375 dias nas médias; os limites de 8, 12, 24 e 36 meses são do calendário.",
                 "Primeiros casamentos: dos dois, e de casais de que se sabe alguma coisa depois do primeiro parto."}};
    for (const Taken& taken : rowsTaken(reading, settings))
        table.rows.push_back(rowOf(reading, taken));
    return {table, chartOf(reading), leftOutTable(reading, whyNot)};
}

} // namespace behindMarriage

namespace premarital {

// Wherever the first child was born.
constexpr std::span<const Reason> notCounted = std::span<const Reason>(whyNot).first<noFirsts - 1>();

Reading::Part everywhere(const Reading& reading, const Taken& taken)
{
    Reading::Part part = partOf(reading, taken);
    part += partOf(reading, taken, intervalElsewhere);
    return part;
}

std::vector<qint32> cohortsOf(const Reading& reading)
{
    std::set<qint32> cohorts;
    for (const quint16 count : {interval, intervalElsewhere})
        for (const qint32 cohort : reading.values(count, 2))
            cohorts.insert(cohort);
    return {cohorts.begin(), cohorts.end()};
}

Row rowOf(const Reading& reading, Taken taken)
{
    taken.from = std::numeric_limits<int>::min();
    const Reading::Part all = everywhere(reading, taken);
    Row row{report::text(taken.name), counted(all)};
    for (const int limit : {7, conceivedBefore, 9}) {
        const Reading::Part part = everywhere(reading, within(taken, 0, limit));
        row.push_back(counted(part));
        row.push_back(percent(part, all));
    }
    const Reading::Part before = everywhere(reading, within(taken, std::numeric_limits<int>::min(), 0));
    row.push_back(counted(before));
    row.push_back(percent(before, all));
    return row;
}

std::vector<report::Figure> figures(const Tally& tally, const Settings& settings)
{
    const Reading reading(tally);
    if (reading.isEmpty()) return natality::withoutData(premaritalConceptions.title);
    Table table{
        "concepcoes-pre-nupciais",
        "Concepções pré-nupciais",
        {textColumn("Famílias"), countColumn("Primeiros partos"), countColumn("Antes dos 7 meses"),
         decimalColumn("Parte antes dos 7 meses", "%"), countColumn("Antes dos 8 meses"),
         decimalColumn("Parte antes dos 8 meses", "%"), countColumn("Antes dos 9 meses"),
         decimalColumn("Parte antes dos 9 meses", "%"), countColumn("Antes do casamento"),
         decimalColumn("Parte antes do casamento", "%")},
        {},
        {"Meses do calendário: de um casamento em 10 de Junho, um parto em 9 de Fevereiro é pré-nupcial, um em 10 "
         "de Fevereiro não.",
         "Se as datas são de baptismos, o intervalo é maior do que foi, e a medida fica abaixo da verdade."}};
    table.rows.push_back(rowOf(reading, {"Todos os casamentos"}));
    table.rows.push_back(rowOf(reading, {"Primeiros casamentos dos dois", firstOfBoth}));
    for (const qint32 cohort : cohortsOf(reading))
        table.rows.push_back(
            rowOf(reading, {"Todos os casamentos, " + periodName(cohort, settings), 0, 0, noEnd, cohort}));
    return {table, leftOutTable(reading, notCounted)};
}

} // namespace premarital

} // namespace firstBorn

} // namespace

const Subject firstInterval = {
    .id = "intervalo-protogenesico",
    .group = "Nascimentos",
    .title = "Intervalo entre o casamento e o primeiro parto",
    .method =
        "Contam os casais com data exacta de casamento e datas exactas de todos os filhos, casados e com o primeiro "
        "filho na paróquia. O intervalo vai do casamento ao primeiro parto; a média usual deixa de fora os partos "
        "antes de 8 meses completos. As datas podem ser de baptismos, o que alonga o intervalo.",
    .counts = firstBorn::counts,
    .reasons = firstBorn::whyNot,
    .fill = firstBorn::fill,
    .figures = firstBorn::behindMarriage::figures,
};

const Subject premaritalConceptions = {
    .id = "concepcoes-pre-nupciais",
    .group = "Nascimentos",
    .title = "Concepções pré-nupciais",
    .method = "Contam os primeiros partos dos casais casados na paróquia, com data exacta de casamento e datas exactas "
              "de todos "
              "os filhos, onde quer que o primeiro tenha nascido. É pré-nupcial o parto que vem antes de 8 meses "
              "completos depois do casamento (a 7 e a 9, ao lado); os partos "
              "antes do casamento são uma parte à parte. As partes são de todos os primeiros partos contados.",
    .counts = firstBorn::counts,
    .reasons = firstBorn::premarital::notCounted,
    .fill = firstBorn::fill,
    .figures = firstBorn::premarital::figures,
};

} // namespace study::indicators
