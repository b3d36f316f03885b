// What cannot be in wills, legacies and suffrages.
#include "study/checks/told.h"
#include "study/checks/words.h"

#include <QDate>

#include <cmath>

namespace study::checks {

using parish::Person;
using parish::Suffrage;
using parish::SuffrageKind;

namespace {

void bequeathsWithoutAWill(const Person& person, Check& check)
{
    if (person.will.value_or(false) || person.writtenWill.value_or(false)) return;
    QStringList what;
    if (!person.bequests.empty()) what << howMany(static_cast<qint64>(person.bequests.size()), "legado", "legados");
    if (!person.suffrages.empty())
        what << howMany(static_cast<qint64>(person.suffrages.size()), "sufrágio", "sufrágios");
    if (what.isEmpty()) return;
    check.report(
        {.text = QString("%1 deixou %2, mas não consta testamento nem escritura.").arg(named(person), together(what)),
         .people = {&person},
         .families = {},
         .when = person.death});
}

void bequeathsToTheDead(const Person& person, Check& check)
{
    std::vector<const Person*> heirs;
    for (const parish::Bequest& row : person.bequests)
        addOnce(heirs, row.heir.person);
    for (const Person* heir : heirs) {
        const int days = daysTooEarly(heir->death, person.death);
        if (days == 0 || check.mayBeOfTheDates(days, {heir->death, person.death})) continue;
        check.report({.text = QString("%1 é %2 %3, mas morreu antes: em %4, e não depois de %5.")
                                  .arg(named(*heir), wordFor(*heir, "herdeiro", "herdeira"), of(person),
                                       told(heir->death), told(person.death)),
                      .people = {&person, heir},
                      .families = {},
                      .when = person.death});
    }
}

QString inWords(SuffrageKind kind)
{
    switch (kind) {
    case SuffrageKind::Mass:
        return "missas";
    case SuffrageKind::Office:
        return "ofícios";
    case SuffrageKind::Alms:
        return "esmolas";
    case SuffrageKind::Other:
        break;
    }
    return "sufrágios";
}

// "1200000", "0,5": all its figures, and no more than two behind the comma.
QString amount(double value)
{
    static constexpr double hundredth = 0.005;
    const bool isWhole = std::abs(value - std::round(value)) < hundredth;
    return QString::number(value, 'f', isWhole ? 0 : 2).replace('.', ',');
}

void miscounts(const Person& person, Check& check)
{
    QStringList wrong;
    for (const Suffrage& row : person.suffrages) {
        if (!row.quantity || !row.unitValue || !row.total) continue;
        const double product = *row.quantity * *row.unitValue;
        if (std::abs(*row.total - product) <= check.limit("diferenca")) continue;
        wrong << QString("%1 %2 a %3 são %4, e não %5")
                     .arg(amount(*row.quantity), inWords(row.kind), amount(*row.unitValue), amount(product),
                          amount(*row.total));
    }
    if (!wrong.isEmpty())
        check.report({.text = QString("Nos sufrágios %1, %2.").arg(of(person), few(wrong)),
                      .people = {&person},
                      .families = {},
                      .when = person.death});
}

// Since when a currency was in use, and until when.
struct Currency
{
    const char* code;
    const char* name;
    QDate from, until;
};

std::vector<Currency> currencies(const Check& check)
{
    const QDate escudo(static_cast<int>(check.limit("escudo")), 5, 22); // the day of the decree that made it
    const QDate euro(static_cast<int>(check.limit("euro")), 1, 1);
    return {{"Re", "réis", {}, escudo}, {"Es", "escudos", escudo, {}}, {"Eu", "euros", euro, {}}};
}

// The card puts escudos where nobody chose: only an amount tells a currency.
bool hasAnAmount(const Suffrage& row)
{
    return row.unitValue.value_or(0) != 0 || row.total.value_or(0) != 0;
}

void countsInAnotherAgesMoney(const Person& person, Check& check)
{
    if (!person.death.isKnown() || person.suffrages.empty()) return;
    const QDate day = person.death.date();
    const std::vector<Currency> all = currencies(check);
    QStringList wrong;
    for (const Suffrage& row : person.suffrages) {
        const auto currency = std::ranges::find_if(all, [&](const Currency& one) {
            return row.currency.compare(QLatin1String(one.code), Qt::CaseInsensitive) == 0;
        });
        if (currency == all.end() || !hasAnAmount(row)) continue;
        const QDate last =
            currency->until.isValid() ? currency->until.addYears(static_cast<int>(check.limit("tolerancia"))) : QDate();
        const qint64 days = currency->from.isValid() && day < currency->from ? day.daysTo(currency->from)
                            : last.isValid() && day > last                   ? last.daysTo(day)
                                                                             : 0;
        const parish::Date decree = parish::dateOf(currency->from.isValid() ? currency->from : currency->until, true);
        if (days == 0 || check.mayBeOfTheDates(static_cast<int>(days), {person.death, decree})) continue;
        if (!wrong.contains(currency->name)) wrong << QString::fromUtf8(currency->name);
    }
    if (!wrong.isEmpty())
        check.report({.text = QString("Os sufrágios %1, que morreu em %2, estão em %3.")
                                  .arg(of(person), told(person.death), together(wrong)),
                      .people = {&person},
                      .families = {},
                      .when = person.death});
}

const char* categoryOf(SuffrageKind kind)
{
    switch (kind) {
    case SuffrageKind::Mass:
        return "TipMi";
    case SuffrageKind::Office:
        return "TipOf";
    case SuffrageKind::Alms:
        return "TipEs";
    case SuffrageKind::Other:
        break;
    }
    return "";
}

void hasASuffrageOfNoKind(const Person& person, Check& check)
{
    QStringList wrong;
    for (const Suffrage& row : person.suffrages)
        if (row.type && row.kind != SuffrageKind::Other &&
            !check.parish().catalogue().has(categoryOf(row.kind), row.type))
            wrong << inWords(row.kind) + " de tipo " + QString::number(*row.type);
    wrong.removeDuplicates();
    if (!wrong.isEmpty())
        check.report(
            {.text = QString("Nos sufrágios %1 há tipos que não constam da tabela: %2.").arg(of(person), few(wrong)),
             .people = {&person},
             .families = {},
             .when = person.death});
}

} // namespace

std::vector<Rule> willRules()
{
    return {
        {"W-01",
         Severity::Information,
         "Legados ou sufrágios sem testamento",
         bequeathsWithoutAWill,
         {},
         "Também por quem morria sem testamento se mandavam dizer missas."},
        {"W-02",
         Severity::Unlikely,
         "Herdeiro já falecido",
         bequeathsToTheDead,
         {},
         "O testamento é anterior ao óbito do herdeiro, ou outro tomou o seu lugar."},
        {"W-03",
         Severity::Unlikely,
         "Total que não é quantidade vezes valor",
         miscounts,
         {{"diferenca", 1, "Maior diferença (na moeda do sufrágio)"}},
         "Um desconto, ou um total arredondado no próprio acto."},
        {"W-04",
         Severity::Unlikely,
         "Moeda de outro tempo",
         countsInAnotherAgesMoney,
         {{"tolerancia", 20, "Tempo em que ainda se contou em réis (anos)"},
          {"escudo", 1911, "Ano do decreto que criou o escudo, de 22 de Maio"},
          {"euro", 1999, "Ano em que começou o euro, a 1 de Janeiro"}},
         "A ficha propõe escudos; ou o valor foi convertido pelo investigador."},
        {"W-05",
         Severity::Impossible,
         "Tipo de sufrágio que não é da sua tabela",
         hasASuffrageOfNoKind,
         {},
         "O tipo foi apagado da tabela, ou o sufrágio passou de missa a ofício sem ele."},
    };
}

} // namespace study::checks
