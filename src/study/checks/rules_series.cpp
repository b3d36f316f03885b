// What the acts of a year, or of all years, show together.
#include "study/checks/told.h"
#include "study/checks/words.h"

#include <QMap>

#include <array>

namespace study::checks {

using parish::Date;
using parish::Family;
using parish::Person;

namespace {

// The acts of one kind that have an exact day: an estimate fills no gap in a book.
struct Series
{
    const char* name; // "baptismos"
    std::vector<QDate> days = {};
};

std::array<Series, 3> seriesOf(const parish::Snapshot& parish)
{
    std::array<Series, 3> all{Series{"baptismos"}, Series{"casamentos"}, Series{"óbitos"}};
    const auto add = [](Series& series, const Date& day) {
        if (day.isExact()) series.days.push_back(day.date());
    };
    for (const Person& person : parish.people()) {
        add(all[0], person.birth);
        add(all[2], person.death);
    }
    for (const Family& family : parish.families())
        add(all[1], family.marriage);
    return all;
}

void reportGap(const Series& series, int last, int acts, int next, int nextActs, Check& check)
{
    const QString name = QString::fromUtf8(series.name);
    const QString years = next - last == 2 ? QString::number(last + 1) : QString("%1 a %2").arg(last + 1).arg(next - 1);
    check.report({.text = QString("Não há %1 %2: em %3 há %4 e em %5 há %6.")
                              .arg(name, (next - last == 2 ? "em " : "de ") + years, QString::number(last),
                                   QString::number(acts), QString::number(next), QString::number(nextActs)),
                  .people = {},
                  .families = {},
                  .when = parish::dateOf(QDate(last + 1, 1, 1), true),
                  .about = name + ' ' + years});
}

void skipYears(const parish::Snapshot& parish, Check& check)
{
    for (const Series& series : seriesOf(parish)) {
        QMap<int, int> acts;
        for (const QDate day : series.days)
            ++acts[day.year()];
        const auto enough = static_cast<int>(check.limit("actos"));
        for (auto at = acts.cbegin(); at != acts.cend(); ++at) {
            const auto next = std::next(at);
            if (next == acts.cend() || next.key() == at.key() + 1 || *at < enough || *next < enough) continue;
            reportGap(series, at.key(), *at, next.key(), *next, check);
        }
    }
}

// The births of one family on one day, or nearly so, are one confinement.
void countConfinements(const Family& family, int days, int& confinements, int& twins)
{
    const Person* last = nullptr;
    bool counted = false;
    for (const Person* child : family.children) {
        if (!child->birth.isExact()) continue;
        if (!last || daysBetween(last->birth, child->birth) > days) {
            ++confinements;
            last = child;
            counted = false;
        } else if (!counted) {
            ++twins;
            counted = true;
        }
    }
}

constexpr double thousand = 1000, hundred = 100;

void haveTooFewTwins(const parish::Snapshot& parish, Check& check)
{
    int confinements = 0;
    int twins = 0;
    for (const Family& family : parish.families())
        countConfinements(family, static_cast<int>(check.limit("dias")), confinements, twins);
    if (confinements <= check.limit("partos")) return;
    const double perThousand = thousand * twins / confinements;
    if (perThousand >= check.limit("gemeos")) return;
    check.report({.text = QString("Em %1 partos só %2 são de gémeos: %3 por mil.")
                              .arg(QString::number(confinements), QString::number(twins),
                                   QString::number(perThousand, 'f', 1).replace('.', ',')),
                  .people = {},
                  .families = {},
                  .when = {},
                  .about = "gémeos"});
}

void haveTooManyOfASex(const parish::Snapshot& parish, Check& check)
{
    int boys = 0;
    int girls = 0;
    for (const Person& person : parish.people()) {
        if (!person.birth.isKnown() || person.gender == parish::Gender::Undetermined) continue;
        ++(person.gender == parish::Gender::Male ? boys : girls);
    }
    if (boys + girls <= check.limit("nascimentos")) return;
    const double ratio = girls > 0 ? hundred * boys / girls : check.limit("maximo") + 1;
    if (ratio >= check.limit("minimo") && ratio <= check.limit("maximo")) return;
    check.report({.text = QString("Nasceram %1 rapazes e %2 raparigas: %3 por cem.")
                              .arg(QString::number(boys), QString::number(girls),
                                   QString::number(ratio, 'f', 1).replace('.', ',')),
                  .people = {},
                  .families = {},
                  .when = {},
                  .about = "sexos"});
}

void haveTwinsAndSexesAsElsewhere(const parish::Snapshot& parish, Check& check)
{
    haveTooFewTwins(parish, check);
    haveTooManyOfASex(parish, check);
}

void fallOnRoundDays(const parish::Snapshot& parish, Check& check)
{
    static constexpr double months = 12;
    for (const Series& series : seriesOf(parish)) {
        const auto all = static_cast<double>(series.days.size());
        if (all < check.limit("actos")) continue;
        const double expected = all * months / parish::daysOfAYear;
        for (const int day : {1, 15}) {
            const auto on = std::ranges::count_if(series.days, [day](QDate one) { return one.day() == day; });
            if (static_cast<double>(on) <= check.limit("vezes") * expected) continue;
            const QString name = QString::fromUtf8(series.name);
            check.report({.text = QString("Dos %1 %2 com data exacta, %3 são de um dia %4: esperavam-se %5.")
                                      .arg(QString::number(series.days.size()), name, QString::number(on),
                                           QString::number(day), QString::number(expected, 'f', 1).replace('.', ',')),
                          .people = {},
                          .families = {},
                          .when = {},
                          .about = name + ' ' + QString::number(day)});
        }
    }
}

// Of the Julian calendar: it is told once, for who counts days by himself.
void beginBeforeTheCalendarChanged(const parish::Snapshot& parish, Check& check)
{
    const QDate change(1582, 10, 15);
    qint64 acts = 0;
    QDate first;
    for (const Series& series : seriesOf(parish))
        for (const QDate day : series.days) {
            if (day >= change) continue;
            ++acts;
            if (!first.isValid() || day < first) first = day;
        }
    if (acts == 0) return;
    check.report(
        {.text = QString("Há %1 antes de 15/10/1582, desde %2: os dias são do calendário juliano, e o que passa "
                         "por Outubro de 1582 conta-se com menos dez dias.")
                     .arg(howMany(acts, "acto com data exacta", "actos com data exacta"), told(first)),
         .people = {},
         .families = {},
         .when = parish::dateOf(first, true),
         .about = "calendário"});
}

} // namespace

std::vector<Rule> seriesRules()
{
    return {
        {"S-01",
         Severity::Unlikely,
         "Anos sem actos",
         skipYears,
         {{"actos", 5, "Menor número de actos no ano antes e no ano depois (n.º)"}},
         "O livro tem uma lacuna, ou esses anos ainda não foram transcritos."},
        {"S-02",
         Severity::Information,
         "Gémeos ou sexos fora do habitual",
         haveTwinsAndSexesAsElsewhere,
         {{"partos", 500, "Quantos partos é preciso haver (n.º)"},
          {"gemeos", 5, "Menor parte de partos de gémeos (por mil)"},
          {"dias", 10, "Maior intervalo entre os baptismos de gémeos (dias)"},
          {"nascimentos", 1000, "Quantos nascimentos é preciso haver (n.º)"},
          {"minimo", 95, "Menor número de rapazes por cem raparigas (n.º)"},
          {"maximo", 116, "Maior número de rapazes por cem raparigas (n.º)"}},
         "Crianças mortas sem baptismo; nos sexos também o acaso, em séries curtas."},
        {"S-03",
         Severity::Information,
         "Dias redondos a mais",
         fallOnRoundDays,
         {{"actos", 300, "Quantos actos é preciso haver (n.º)"}, {"vezes", 2, "Quantas vezes o que se espera (n.º)"}},
         "Datas aproximadas gravadas como exactas; festas que caem nesses dias."},
        {"S-04",
         Severity::Information,
         "Datas anteriores ao calendário gregoriano",
         beginBeforeTheCalendarChanged,
         {},
         "As datas estão certas como o livro as tem: é só um aviso a quem conta dias."},
    };
}

} // namespace study::checks
