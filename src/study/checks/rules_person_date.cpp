// People and families: dates that no book can have.
#include "study/checks/check.h"
#include "study/checks/facts.h"
#include "study/checks/parts.h"
#include "study/checks/told.h"
#include "study/checks/words.h"
#include "study/parish/calendar.h"

#include <QSet>

#include <algorithm>
#include <functional>

namespace study::checks {

using parish::Date;
using parish::Family;
using parish::Person;

namespace {

struct Dated
{
    Date date;
    QString what;
};

template <class Owner>
void addObservation(std::vector<Dated>& dates, const Owner& owner)
{
    dates.push_back({exact(owner.observedFrom), "início da observação"});
    dates.push_back({exact(owner.observedUntil), "fim da observação"});
}

// Of an act that has no date of its own; beside one, T-01 tells them. Each day once.
void addAssistants(std::vector<Dated>& dates, std::span<const parish::Assistance> rows)
{
    QSet<qint32> days;
    for (const parish::Assistance& row : rows) {
        if (days.contains(row.date.day)) continue;
        days.insert(row.date.day);
        dates.push_back({row.date, "assistentes"});
    }
}

std::vector<Dated> datesOf(const Person& person)
{
    std::vector<Dated> dates{{person.birth, "nascimento"}, {person.death, "óbito"}};
    for (const auto& row : person.residences)
        dates.push_back({row.date, "residência"});
    for (const auto& row : person.professions)
        dates.push_back({row.date, "profissão"});
    for (const auto& row : person.signatures)
        dates.push_back({row.date, "assinatura"});
    for (const auto& row : person.passports)
        dates.push_back({row.date, "passaporte"});
    addObservation(dates, person);
    if (!person.birth.isKnown()) addAssistants(dates, person.godparents);
    return dates;
}

std::vector<Dated> datesOf(const Family& family)
{
    std::vector<Dated> dates{{family.marriage, "casamento"}};
    for (const auto& row : family.residences)
        dates.push_back({row.date, "residência"});
    addObservation(dates, family);
    if (!family.marriage.isKnown()) addAssistants(dates, family.witnesses);
    return dates;
}

// How many days a date is off; 0: it may be.
using Off = std::function<int(const Date&)>;

// One case for all such dates of a person or a family.
template <class Owner>
void tellDatesOff(const Owner& owner, const Off& off, const QString& how, Check& check, Check::Found found)
{
    static constexpr qsizetype mostNamed = 6;
    QStringList whats;
    Severity worst = Severity::Information;
    const Date exactLimit{.day = 1, .precision = parish::Precision::Exact}; // what it is measured by is a day
    for (const Dated& one : datesOf(owner)) {
        const int days = one.date.isKnown() ? off(one.date) : 0;
        if (days == 0) continue;
        whats << one.what + " em " + told(one.date);
        worst = std::min(worst, check.gravity(days, {one.date, exactLimit}));
        found.when = one.date;
    }
    if (whats.isEmpty()) return;
    found.text = QString(whats.size() == 1 ? "%1 tem uma data %2: %3." : "%1 tem datas %2: %3.")
                     .arg(named(owner), how, whats.size() > mostNamed ? few(whats) : together(whats));
    check.report(found, worst);
}

void tellDatesOff(const parish::Snapshot& parish, const Off& off, const QString& how, Check& check)
{
    for (const Person& person : parish.people()) {
        check.step();
        tellDatesOff(person, off, how, check, {.text = {}, .people = {&person}});
    }
    for (const Family& family : parish.families())
        tellDatesOff(family, off, how, check, {.text = {}, .families = {&family}});
}

void areTooLate(const parish::Snapshot& parish, Check& check)
{
    const auto day = [](QDate date) { return parish::dateOf(date, true); };
    const int year = static_cast<int>(check.limit("fim"));
    if (year > 0)
        return tellDatesOff(
            parish, [end = day(QDate(year, 12, 31))](const Date& date) { return daysTooEarly(end, date); },
            QString("depois do fim dos livros (%1)").arg(year), check);
    tellDatesOff(
        parish, [today = day(check.facts().today)](const Date& date) { return daysTooEarly(today, date); },
        "depois do dia de hoje", check);
}

void areTooEarly(const parish::Snapshot& parish, Check& check)
{
    const int year = static_cast<int>(check.limit("inicio"));
    const QDate books = year > 0 ? QDate(year, 1, 1) : check.facts().booksBegin;
    if (!books.isValid()) return;
    const int years = static_cast<int>(check.limit("anos"));
    const Date least = parish::dateOf(books.addYears(-years), true);
    tellDatesOff(
        parish, [least](const Date& date) { return daysTooEarly(date, least); },
        QString("mais de %1 antes dos primeiros livros (%2)").arg(yearsTold(years), QString::number(books.year())),
        check);
}

void areOnNoDay(const parish::Snapshot& parish, Check& check)
{
    tellDatesOff(
        parish, [](const Date& date) { return date.isExact() && parish::wasLeftOut(date.date()) ? 1 : 0; },
        "de um dia que não houve (de 5 a 14/10/1582)", check);
}

// Years without a day, which were entered as if the day were known.
void areExactNewYears(const parish::Snapshot& parish, Check& check)
{
    static constexpr size_t mostShown = 50;
    double all = 0;
    int newYears = 0;
    std::vector<const Person*> people;
    for (const Person& person : parish.people()) {
        if (!person.birth.isExact()) continue;
        ++all;
        if (const QDate day = person.birth.date(); day.month() != 1 || day.day() != 1) continue;
        ++newYears;
        if (people.size() < mostShown) people.push_back(&person);
    }
    const double mean = all / parish::daysOfAYear;
    if (newYears < check.limit("nascimentos") || newYears <= mean * check.limit("vezes")) return;
    check.report({.text = QString("Há %1 nascimentos com data exacta em 1 de Janeiro, e num dia qualquer do ano há em "
                                  "média %2: alguns serão anos sem dia.")
                              .arg(QString::number(newYears), QString::number(mean, 'f', 1).replace('.', ',')),
                  .people = people});
}

} // namespace

std::vector<Rule> personDateRules()
{
    return {
        {"P-13",
         Severity::Impossible,
         "Data que ainda não chegou",
         areTooLate,
         {{"fim", 0, "Último ano dos livros (0: até hoje)"}},
         "Engano no século."},
        {"P-14",
         Severity::Unlikely,
         "Data muito anterior aos livros",
         areTooEarly,
         {{"anos", 100, "Anos antes do primeiro livro"},
          {"inicio", 0, "Primeiro ano dos livros (0: pelos actos da BDP)"}},
         "Engano no século; um documento mais antigo."},
        {"P-15",
         Severity::Information,
         "Muitos nascimentos exactos em 1 de Janeiro",
         areExactNewYears,
         {{"vezes", 3, "Vezes a média dos outros dias"}, {"nascimentos", 10, "Nascimentos nesse dia, pelo menos"}},
         "Também se nasce em 1 de Janeiro: só a soma é estranha, e não cada um."},
        {"P-32",
         Severity::Unlikely,
         "Dia que o calendário não teve",
         areOnNoDay,
         {},
         "A 4 de Outubro de 1582 seguiu-se o dia 15; quem transcreveu passou a data para o calendário novo."},
    };
}

} // namespace study::checks
