// What cannot be in the dated lists of a person: residences, professions, signatures, passports.
#include "study/checks/told.h"
#include "study/checks/words.h"

#include <QHash>
#include <QSet>

namespace study::checks {

using parish::Date;
using parish::Family;
using parish::Person;

namespace {

QString placeName(const parish::Place& place, const Check& check)
{
    const QString name = check.parish().catalogue().name(place);
    if (!place.isKnown()) return "local desconhecido";
    return name.isEmpty() ? place.code : name;
}

QString professionName(const parish::Profession& row, const Check& check)
{
    const QString name = row.code ? check.parish().catalogue().professions.value(*row.code) : QString();
    return name.isEmpty() ? QString("sem nome") : QString::fromUtf8("«") + name + QString::fromUtf8("»");
}

// What stands before the birth, or behind the death, of one person.
struct OutOfLife
{
    QStringList rows = {};
    Severity worst = Severity::Information;
    Date first = {};
};

void add(OutOfLife& out, const QString& what, const Date& day, int days, std::initializer_list<Date> dates,
         const Check& check)
{
    if (days == 0) return;
    out.rows << what + " em " + told(day);
    out.worst = std::min(out.worst, check.gravity(days, dates));
    if (!out.first.isKnown()) out.first = day;
}

void addOutOfLife(OutOfLife& out, const Person& person, const QString& what, const Date& day, const Check& check)
{
    const int early = daysTooEarly(day, person.birth);
    const int late = daysTooEarly(person.death, day);
    if (early > 0)
        add(out, what, day, early, {day, person.birth}, check);
    else
        add(out, what, day, late, {day, person.death}, check);
}

int daysTooYoung(const Person& person, const Date& day, double years)
{
    if (!person.birth.isKnown() || !day.isKnown()) return 0;
    return std::max(0, daysShortOf(static_cast<int>(years), person.birth, day));
}

void isListedOutOfLife(const Person& person, Check& check)
{
    OutOfLife out;
    for (const parish::Residence& row : person.residences)
        addOutOfLife(out, person, "a residência em " + placeName(row.place, check), row.date, check);
    for (const parish::Profession& row : person.professions) {
        const QString what = "a profissão " + professionName(row, check);
        const int young = daysTooYoung(person, row.date, check.limit("profissao"));
        if (young > 0)
            add(out, what, row.date, young, {row.date, person.birth}, check);
        else
            addOutOfLife(out, person, what, row.date, check);
    }
    for (const parish::Signature& row : person.signatures)
        addOutOfLife(out, person, "a assinatura", row.date, check);
    for (const parish::Passport& row : person.passports) // after the death: L-06
        add(out, "o passaporte", row.date, daysTooEarly(row.date, person.birth), {row.date, person.birth}, check);
    if (out.rows.isEmpty()) return;
    QStringList life;
    if (person.birth.isKnown()) life << "nasceu em " + told(person.birth);
    if (person.death.isKnown()) life << "morreu em " + told(person.death);
    check.report(
        {.text = QString("%1 %2; não %3 na sua vida %4.")
                     .arg(named(person), life.join(" e "), out.rows.size() == 1 ? "cabe" : "cabem", few(out.rows)),
         .people = {&person},
         .families = {},
         .when = out.first},
        out.worst);
}

QString ends(QDate from, QDate until)
{
    QStringList ends;
    if (from.isValid()) ends << "desde " + told(from);
    if (until.isValid()) ends << "até " + told(until);
    return ends.join(' ');
}

struct Outside
{
    QStringList rows = {};
    Date first = {};
};

Outside residencesOutside(std::span<const parish::Residence> rows, QDate from, QDate until, const Check& check)
{
    const Date begin = parish::dateOf(from, true), end = parish::dateOf(until, true);
    Outside outside;
    for (const parish::Residence& row : rows) {
        const int early = daysTooEarly(row.date, begin), days = std::max(early, daysTooEarly(end, row.date));
        if (days == 0 || check.mayBeOfTheDates(days, {row.date, early > 0 ? begin : end})) continue;
        if (outside.rows.isEmpty()) outside.first = row.date;
        outside.rows << placeName(row.place, check) + " em " + told(row.date);
    }
    return outside;
}

// What is out of the life altogether, is told by L-01.
std::span<const parish::Residence> withinLife(const Person& person)
{
    const auto isWithin = [&](const parish::Residence& row) {
        return daysTooEarly(row.date, person.birth) == 0 && daysTooEarly(person.death, row.date) == 0;
    };
    const auto first = std::ranges::find_if(person.residences, isWithin);
    const auto last = std::find_if_not(first, person.residences.end(), isWithin);
    return {first, last};
}

void resideOutsideObservation(const parish::Snapshot& parish, Check& check)
{
    const auto sentence = QStringLiteral("%1 está em observação %2, e fora dela reside em %3.");
    for (const Person& person : parish.people()) {
        const Outside outside = residencesOutside(withinLife(person), person.observedFrom, person.observedUntil, check);
        if (!outside.rows.isEmpty())
            check.report({.text = sentence.arg(named(person), ends(person.observedFrom, person.observedUntil),
                                               few(outside.rows)),
                          .people = {&person},
                          .families = {},
                          .when = outside.first});
    }
    for (const Family& family : parish.families()) {
        const Outside outside = residencesOutside(family.residences, family.observedFrom, family.observedUntil, check);
        if (!outside.rows.isEmpty())
            check.report({.text = sentence.arg(named(family), ends(family.observedFrom, family.observedUntil),
                                               few(outside.rows)),
                          .people = {},
                          .families = {&family},
                          .when = outside.first});
    }
}

// A site lies in its locality, and that in its parish: their codes begin with those.
bool isPartOf(const parish::Place& one, const parish::Place& other)
{
    return one.code.startsWith(other.code) || other.code.startsWith(one.code);
}

void resideAtTwoPlaces(const Person& person, Check& check)
{
    for (size_t i = 1; i < person.residences.size(); ++i) {
        const parish::Residence& first = person.residences[i - 1];
        const parish::Residence& second = person.residences[i];
        if (!first.date.isExact() || !second.date.isExact() || isPartOf(first.place, second.place)) continue;
        if (daysBetween(first.date, second.date) >= check.limit("dias")) continue;
        check.report({.text = QString("%1 reside em %2 em %3 e em %4 em %5, %6 depois.")
                                  .arg(named(person), placeName(first.place, check), told(first.date),
                                       placeName(second.place, check), told(second.date),
                                       inDays(daysBetween(first.date, second.date))),
                      .people = {&person},
                      .families = {},
                      .when = second.date,
                      .about = told(second.date)});
    }
}

void forgetsToWrite(const Person& person, Check& check)
{
    const auto level = [&](const parish::Signature& row) { return row.level ? *row.level : -1; };
    const auto isWritten = [&](const parish::Signature& row) {
        return row.date.isKnown() && level(row) >= check.limit("assina");
    };
    const auto first = std::ranges::find_if(person.signatures, isWritten);
    if (first == person.signatures.end()) return;
    const auto mark = std::find_if(first, person.signatures.end(), [&](const parish::Signature& row) {
        const int days = daysTooEarly(first->date, row.date);
        return row.level && level(row) < check.limit("assina") && days > 0 &&
               !check.mayBeOfTheDates(days, {first->date, row.date});
    });
    if (mark == person.signatures.end()) return;
    check.report({.text = QString("%1 assinou em %2 (nível %3), mas em %4 não (nível %5).")
                              .arg(named(person), told(first->date), QString::number(level(*first)), told(mark->date),
                                   QString::number(level(*mark))),
                  .people = {&person},
                  .families = {},
                  .when = mark->date});
}

// How many men and women have a profession, each person once.
struct Bearers
{
    int men = 0, women = 0;
};

QHash<int, Bearers> bearersOf(const parish::Snapshot& parish)
{
    QHash<int, Bearers> bearers;
    for (const Person& person : parish.people()) {
        if (person.gender == parish::Gender::Undetermined) continue;
        QSet<int> own;
        for (const parish::Profession& row : person.professions)
            if (row.code) own.insert(*row.code);
        for (const int code : own) {
            Bearers& both = bearers[code];
            ++(person.gender == parish::Gender::Male ? both.men : both.women);
        }
    }
    return bearers;
}

bool isOfTheOtherSex(const Person& person, const Bearers& bearers, const Check& check)
{
    if (person.gender == parish::Gender::Undetermined) return false;
    const int all = bearers.men + bearers.women;
    const int own = person.gender == parish::Gender::Male ? bearers.men : bearers.women;
    static constexpr double wholePerCent = 100;
    return all >= check.limit("pessoas") && (all - own) * wholePerCent >= check.limit("parte") * all;
}

void hasAnOddProfession(const Person& person, const QHash<int, Bearers>& bearers, Check& check)
{
    QStringList odd;
    Date first;
    for (const parish::Profession& row : person.professions) {
        const int young = daysTooYoung(person, row.date, check.limit("idade"));
        const bool tooYoung = young > 0 && completedYears(person.birth, row.date) >= check.limit("L-01", "profissao") &&
                              !check.mayBeOfTheDates(young, {person.birth, row.date});
        const QString what = professionName(row, check);
        const qsizetype before = odd.size();
        if (tooYoung)
            odd << QString("aos %1 já é %2").arg(yearsTold(completedYears(person.birth, row.date)), what);
        else if (row.code && isOfTheOtherSex(person, bearers.value(*row.code), check))
            odd << QString("%1 é quase sempre de %2")
                       .arg(what, person.gender == parish::Gender::Male ? "mulheres" : "homens");
        if (odd.size() > before && !first.isKnown()) first = row.date;
    }
    odd.removeDuplicates();
    if (!odd.isEmpty())
        check.report({.text = QString("%1 tem uma profissão estranha: %2.").arg(named(person), few(odd)),
                      .people = {&person},
                      .families = {},
                      .when = first});
}

void haveOddProfessions(const parish::Snapshot& parish, Check& check)
{
    const QHash<int, Bearers> bearers = bearersOf(parish);
    for (const Person& person : parish.people())
        hasAnOddProfession(person, bearers, check);
}

void travelsOddly(const Person& person, Check& check)
{
    for (const parish::Passport& row : person.passports) {
        const int dead = daysTooEarly(person.death, row.date);
        const int young = daysTooYoung(person, row.date, check.limit("idade"));
        const bool isChild = young > 0 && !row.hasNotes && completedYears(person.birth, row.date) >= 0;
        QString how;
        if (dead > 0 && !check.mayBeOfTheDates(dead, {person.death, row.date}))
            how = "depois de morrer em " + told(person.death);
        else if (isChild && !check.mayBeOfTheDates(young, {person.birth, row.date}))
            how = "com " + yearsTold(completedYears(person.birth, row.date)) + " e sem nota de quem o leva";
        if (!how.isEmpty())
            check.report({.text = QString("%1 tem passaporte de %2, %3.").arg(named(person), told(row.date), how),
                          .people = {&person},
                          .families = {},
                          .when = row.date,
                          .about = told(row.date)});
    }
}

} // namespace

std::vector<Rule> listRules()
{
    return {
        {"L-01",
         Severity::Impossible,
         "Residência, profissão ou assinatura fora da vida",
         isListedOutOfLife,
         {{"profissao", 7, "Idade mínima de quem tem profissão (anos)"}},
         "Uma assinatura depois do óbito pode ser a de uma cópia; um criado pode ter seis anos."},
        {"L-02",
         Severity::Unlikely,
         "Residência fora da observação",
         resideOutsideObservation,
         {},
         "A observação foi posta estreita de mais; ou a residência é de quem já saiu da freguesia."},
        {"L-03",
         Severity::Information,
         "Duas residências ao mesmo tempo",
         resideAtTwoPlaces,
         {{"dias", 30, "Menor tempo entre duas residências (dias)"}},
         "Mudança de casa; dois nomes do mesmo sítio."},
        {"L-04",
         Severity::Information,
         "Quem assinava deixou de assinar",
         forgetsToWrite,
         {{"assina", 2, "Nível a partir do qual se sabe assinar (n.º)"}},
         "Doença ou velhice; ou dois homónimos numa ficha. Os níveis são os do investigador."},
        {"L-05",
         Severity::Information,
         "Profissão estranha para o sexo ou a idade",
         haveOddProfessions,
         {{"pessoas", 10, "De quantas pessoas se conhece a profissão (n.º)"},
          {"parte", 95, "Que parte é do outro sexo (%)"},
          {"idade", 10, "Idade mínima habitual (anos)"}},
         "Viúvas que seguem o ofício do marido; criados muito novos."},
        {"L-06",
         Severity::Unlikely,
         "Passaporte depois do óbito ou de uma criança só",
         travelsOddly,
         {{"idade", 14, "Idade de quem pode ir só (anos)"}},
         "O óbito é de um homónimo; a criança ia com alguém que a nota do passaporte não diz."},
    };
}

} // namespace study::checks
