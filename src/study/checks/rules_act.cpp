// What cannot be at an act: its day, how many assisted, and its priests.
#include "study/checks/told.h"
#include "study/checks/words.h"

#include <QHash>
#include <QSet>

#include <array>
#include <optional>
#include <tuple>

namespace study::checks {

using parish::Assistance;
using parish::Date;
using parish::Family;
using parish::Person;

namespace {

using Rows = std::span<const Assistance>;

// `look` at the assistants of each act of which there is a card.
template <class Look>
void eachAct(const parish::Snapshot& parish, Look look)
{
    for (const Person& person : parish.people())
        if (!person.godparents.empty()) look(person.godparents);
    for (const Family& family : parish.families())
        if (!family.witnesses.empty()) look(family.witnesses);
}

// A case of the act, and of those who are named beside it.
Check::Found foundAt(const Assistance& row, const QString& text)
{
    Check::Found found{.text = text, .people = {}, .families = {}, .when = dayOfAct(row)};
    addOnce(found.people, row.child);
    addOnce(found.families, row.family);
    return found;
}

void haveAnotherDay(const parish::Snapshot& parish, Check& check)
{
    static constexpr qsizetype most = 6; // that are named
    eachAct(parish, [&](Rows rows) {
        const Date onTheCard = dayOfAct(rows.front());
        check.step();
        QStringList others;
        QSet<qint32> days;
        for (const Assistance& row : rows) {
            if (!row.date.isKnown() || !onTheCard.isKnown() || row.date.day == onTheCard.day) continue;
            if (days.contains(row.date.day)) continue;
            days.insert(row.date.day);
            others << told(row.date);
        }
        if (others.isEmpty()) return;
        check.report(
            foundAt(rows.front(), QString("Os assistentes ao %1 têm a data %2, mas a ficha tem %3.")
                                      .arg(actOf(rows.front()), others.size() > most ? few(others) : together(others),
                                           told(onTheCard))));
    });
}

void haveNoDay(const parish::Snapshot& parish, Check& check)
{
    eachAct(parish, [&](Rows rows) {
        const auto undated = std::ranges::count_if(rows, [](const Assistance& row) { return !row.date.isKnown(); });
        const auto all = howMany(static_cast<qint64>(rows.size()), "assistente", "assistentes");
        if (!dayOfAct(rows.front()).isKnown())
            check.report(foundAt(rows.front(),
                                 QString("O %1 não tem data na ficha, mas tem %2.").arg(actOf(rows.front()), all)));
        else if (undated > 0)
            check.report(foundAt(
                rows.front(),
                QString("O %1 tem %2, de que %3 sem data.").arg(actOf(rows.front()), all, QString::number(undated))));
    });
}

auto columns(const Assistance& row)
{
    return std::tuple(row.date.day, row.assistant.number, row.godparent, row.state, row.fatherDead, row.motherDead,
                      row.kinToChild, row.kinToGroom, row.kinToBride, row.hasNotes);
}

void standTwice(const parish::Snapshot& parish, Check& check)
{
    eachAct(parish, [&](Rows rows) {
        std::vector<const Assistance*> sorted;
        sorted.reserve(rows.size());
        for (const Assistance& row : rows)
            sorted.push_back(&row);
        const auto sameColumns = [](const Assistance* one, const Assistance* other) {
            return columns(*one) == columns(*other);
        };
        std::ranges::sort(sorted, {}, [](const Assistance* row) { return columns(*row); });
        for (auto at = sorted.begin(); (at = std::adjacent_find(at, sorted.end(), sameColumns)) != sorted.end();) {
            const Assistance& row = **at;
            const auto end =
                std::find_if(at, sorted.end(), [&](const Assistance* one) { return !sameColumns(one, &row); });
            const QString who = row.assistant.person ? named(*row.assistant.person)
                                                     : "o indivíduo nº " + parish::shown(row.assistant.number);
            Check::Found found = foundAt(row, QString("%1 consta %2 com os mesmos dados no %3.")
                                                  .arg(who, howMany(end - at, "vez", "vezes"), actOf(row)));
            addOnce(found.people, row.assistant.person);
            if (!row.assistant.person) found.about = 'i' + parish::shown(row.assistant.number);
            check.report(found);
            at = end;
        }
    });
}

void haveTooManyGodparents(const Person& person, Check& check)
{
    std::vector<const Person*> godparents;
    QStringList names;
    for (const Assistance& row : person.godparents) {
        if (!row.godparent || !row.assistant.person) continue;
        const auto before = godparents.size();
        addOnce(godparents, row.assistant.person);
        if (godparents.size() > before) names << named(*row.assistant.person);
    }
    const bool many = static_cast<double>(godparents.size()) > check.limit("padrinhos");
    const bool ofOneSex = godparents.size() == 2 && godparents[0]->gender == godparents[1]->gender &&
                          godparents[0]->gender != parish::Gender::Undetermined;
    if (!many && !ofOneSex) return;
    const bool women = ofOneSex && godparents[0]->gender == parish::Gender::Female;
    const QString how = women      ? QString("duas madrinhas e nenhum padrinho")
                        : ofOneSex ? QString("dois padrinhos e nenhuma madrinha")
                                   : howMany(static_cast<qint64>(godparents.size()), "padrinho", "padrinhos");
    Check::Found found{
        .text = QString("O baptismo %1 em %2 tem %3: %4.").arg(of(person), told(person.birth), how, together(names)),
        .people = {&person},
        .families = {},
        .when = person.birth};
    for (const Person* godparent : godparents)
        addOnce(found.people, godparent);
    check.report(found);
}

// What a priest did, of all three kinds of acts.
struct Ministry
{
    struct Act
    {
        Date date = {}; // known
        const Person* person = nullptr;
        const Family* family = nullptr;
    };
    int acts = 0;
    std::optional<Act> first = {}, last = {}; // of the acts that have a date
};

class Ministries
{
public:
    explicit Ministries(const parish::Snapshot& parish)
    {
        for (const Person& person : parish.people()) {
            for (const parish::Priest& priest : person.baptismPriests)
                count(priest, {person.birth, &person});
            count(person.burialPriest, {person.death, &person});
        }
        for (const Family& family : parish.families())
            for (const parish::Priest& priest : family.priests)
                count(priest, {family.marriage, nullptr, &family});
    }

    const Ministry* of(const Person& person) const
    {
        const auto at = byPriest_.constFind(&person);
        return at == byPriest_.cend() ? nullptr : &*at;
    }

private:
    void count(const parish::Priest& priest, const Ministry::Act& act)
    {
        if (!priest.who.person) return;
        Ministry& ministry = byPriest_[priest.who.person];
        ++ministry.acts;
        if (!act.date.isKnown()) return;
        if (!ministry.first || act.date.day < ministry.first->date.day) ministry.first = act;
        if (!ministry.last || act.date.day > ministry.last->date.day) ministry.last = act;
    }

    QHash<const Person*, Ministry> byPriest_;
};

void ministersOddly(const Person& person, const Ministry& ministry, Check& check)
{
    const Date first = ministry.first ? ministry.first->date : Date(),
               last = ministry.last ? ministry.last->date : Date();
    const auto years = static_cast<int>(check.limit("anos"));
    const int beyond = first.isKnown() ? -daysShortOf(years, first, last) : 0;
    const bool tooLong = beyond > 0 && !check.mayBeOfTheDates(beyond, {first, last});
    const bool woman = person.gender == parish::Gender::Female;
    if (!tooLong && !woman) return;
    QString text = QString("%1%2 consta como padre em %3")
                       .arg(named(person), woman ? ", mulher," : "", howMany(ministry.acts, "acto", "actos"));
    if (first.isKnown()) text += QString(", de %1 a %2").arg(told(first), told(last));
    if (tooLong) text += QString(": mais de %1").arg(yearsTold(years));
    Check::Found found{.text = text + '.', .people = {&person}, .families = {}, .when = first};
    for (const auto& act : {ministry.first, ministry.last}) {
        if (!act) continue;
        addOnce(found.people, act->person);
        addOnce(found.families, act->family);
    }
    check.report(found);
}

void ministerOddly(const parish::Snapshot& parish, Check& check)
{
    const Ministries ministries(parish);
    for (const Person& person : parish.people())
        if (const Ministry* ministry = ministries.of(person)) ministersOddly(person, *ministry, check);
}

// The names of those priests who are given.
QStringList priestsIn(std::span<const parish::Priest> priests, std::vector<const Person*>& people)
{
    QStringList names;
    for (const parish::Priest& priest : priests) {
        if (!priest.who.isGiven()) continue;
        names << (priest.who.person ? named(*priest.who.person) : "nº " + parish::shown(priest.who.number));
        addOnce(people, priest.who.person);
    }
    return names;
}

void hasPriestsButNoMarriage(const Family& family, Check& check)
{
    if (family.marriage.isKnown()) return;
    Check::Found found{.text = {}, .people = {}, .families = {&family}, .when = {}};
    const QStringList names = priestsIn(family.priests, found.people);
    if (names.isEmpty()) return;
    found.text =
        QString("%1 não tem data de casamento, mas o padre do casamento é %2.").arg(named(family), together(names));
    check.report(found);
}

void reportPriests(const Person& person, std::span<const parish::Priest> priests, const char* act, Check& check)
{
    Check::Found found{.text = {}, .people = {&person}, .families = {}, .when = {}};
    const QStringList names = priestsIn(priests, found.people);
    if (names.isEmpty()) return;
    found.text = QString("%1 não tem data de %2, mas o padre desse acto é %3.")
                     .arg(named(person), QString::fromUtf8(act), together(names));
    check.report(found);
}

void hasPriestsButNoBirth(const Person& person, Check& check)
{
    if (!person.birth.isKnown()) reportPriests(person, person.baptismPriests, "nascimento", check);
}

void hasAPriestButNoDeath(const Person& person, Check& check)
{
    if (!person.death.isKnown()) reportPriests(person, {&person.burialPriest, 1}, "óbito", check);
}

} // namespace

std::vector<Rule> actRules()
{
    return {
        {"T-01",
         Severity::Unlikely,
         "Assistentes com outra data do que o acto",
         haveAnotherDay,
         {},
         "A data dos assistentes é uma cópia, que não segue a ficha quando esta se corrige."},
        {"T-05",
         Severity::Unlikely,
         "Padrinhos a mais ou do mesmo sexo",
         haveTooManyGodparents,
         {{"padrinhos", 2, "Maior número de padrinhos (n.º)"}},
         "Quem tocou pelo padrinho posto também como padrinho; santos por madrinha; antes de 1563 havia mais."},
        {"T-10",
         Severity::Unlikely,
         "Padre que o não pode ser",
         ministerOddly,
         {{"anos", 60, "Maior tempo entre o primeiro acto e o último (anos)"}},
         "Dois padres do mesmo nome numa só ficha; um acto atribuído a quem assistiu a outro."},
        {"T-11",
         Severity::Information,
         "Acto ou assistentes sem data",
         haveNoDay,
         {},
         "Assistentes escritos antes da data da ficha; acto sem data legível."},
        {"T-12",
         Severity::Unlikely,
         "Assistente repetido",
         standTwice,
         {},
         "Nada impede que se grave duas vezes a mesma pessoa; duas notas diferentes não se distinguem aqui."},
        {"T-13",
         Severity::Unlikely,
         "Padre de um casamento sem data",
         hasPriestsButNoMarriage,
         {},
         "Um casamento que se conhece sem a sua data; mais vezes o padre ficou na família errada."},
        {"T-14",
         Severity::Unlikely,
         "Padre de um baptismo sem data",
         hasPriestsButNoBirth,
         {},
         "Um baptismo de data ilegível; mais vezes o padre ficou na ficha errada."},
        {"T-15",
         Severity::Unlikely,
         "Padre de um enterro sem data",
         hasAPriestButNoDeath,
         {},
         "Um óbito de data ilegível; mais vezes o padre ficou na ficha errada."},
    };
}

} // namespace study::checks
