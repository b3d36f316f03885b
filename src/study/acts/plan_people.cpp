// The rows of the people whom an act names.
#include "study/acts/work.h"

#include <algorithm>

namespace study {

namespace {

// What the dates make of a type. An empty one and "T" wait to be settled.
struct TypeOfDates
{
    KnownDates known;
    const char* type;
    const char* others; // what says the same
};
constexpr TypeOfDates typesByDates[] = {
    {{.birth = false, .death = false}, "3", "0"},
    {{.birth = true, .death = false}, "1", ""},
    {{.birth = false, .death = true}, "2", ""},
    {{.birth = true, .death = true}, "4", ""},
};

const TypeOfDates& typeOf(KnownDates dates)
{
    return *std::ranges::find(typesByDates, dates, &TypeOfDates::known);
}

QString letterOf(Sex sex)
{
    return sex == Sex::Male ? "m" : sex == Sex::Female ? "f" : "d";
}

void fillNames(Work& work, int person, PlannedRow& row)
{
    const struct
    {
        const char* type;
        const char* column;
        const char* what;
    } told[] = {{attribute::title, "titulo", "título"}, {attribute::nickname, "alcunha", "alcunha"}};
    for (const auto& [type, column, what] : told) {
        const Attribute* attribute = work.take(person, type);
        if (!attribute) continue;
        const QString& text = attribute->told.value;
        const bool filled = work.fillText(row, column, text, what + QString(" de ") + work.label(person));
        if (filled && !row.isNew()) work.say(QString("%1: %2 «%3».").arg(work.label(person), what, text.trimmed()));
    }
}

void fillSex(Work& work, int person, PlannedRow& row)
{
    const Sex sex = sexOf(work.act, person);
    const QString current = row.now("sexo").toString();
    if (sex == Sex::Unknown || (!current.isEmpty() && current != "d")) return;
    row.set("sexo", letterOf(sex));
    if (!row.isNew())
        work.say(QString("%1: sexo %2.").arg(work.label(person), sex == Sex::Male ? "masculino" : "feminino"));
}

void fillBirthplace(Work& work, int person, PlannedRow& row)
{
    const Attribute* told = work.take(person, attribute::birthplace);
    if (!told) return;
    const PlacePair place = placeTold(work, told->told.value);
    if (place.isEmpty()) return work.untake(told);
    const bool filled =
        fillPlace(work, row, "localnasc", "tipolocalnasc", place, "naturalidade de " + work.label(person));
    if (filled && !row.isNew()) work.say(QString("%1: naturalidade %2.").arg(work.label(person), place.name));
}

void makePerson(Work& work, int person)
{
    const QString name = storedName(work.act.people[person]);
    if (name.isEmpty()) return;
    work.plan.people[person] = work.ledger.newPerson();
    PlannedRow& row = *work.row(person);
    row.set("nome", name);
    row.set("tipo", typeAfter({}, {}, {}));
    row.set("sexo", letterOf(sexOf(work.act, person)));
    row.set("DnascFixa", false);
    row.set("dobitofixa", false);
}

QString introduced(Work& work, int person)
{
    QString title = roleTitle(work.act, person);
    title[0] = title[0].toUpper();
    const QString label = work.label(person);
    if (work.number(person) == 0) return QString("%1: %2, só no acto.").arg(title, label);
    if (!work.isNew(person)) return QString("%1: %2.").arg(title, label);
    return QString("%1: %2, nova ficha.").arg(title, label);
}

KnownDates known(const PlannedRow& row)
{
    return {.birth = !row.now("datanasc").isNull(), .death = !row.now("dataobito").isNull()};
}

void follow(PlannedRow& row, KnownDates before)
{
    row.set("tipo", typeAfter(row.now("tipo").toString(), before, known(row)));
}

// The place told; the own parish where none is, as the card proposes it: for a column that is empty alone, as the act
// doesn't tell it.
PlacePair placeOrParish(Work& work, const Attribute* told, const QVariant& there)
{
    if (!told && !there.toString().trimmed().isEmpty()) return {};
    const PlacePair place = placeOrParish(work, told ? told->told.value : QString());
    if (told && (place.isEmpty() || placeTold(work, told->told.value).isEmpty())) work.untake(told);
    return place;
}

// The first or the last day of an observation follows a date that is given, as on the card.
void observe(Work& work, int person, PlannedRow& row, const char* column)
{
    const QDate kept = row.stored(column).toDate();
    row.set(column, *work.day);
    if (kept.isValid() && kept != *work.day)
        work.say(QString("%1: %2 de observação em %3 (era %4).")
                     .arg(work.label(person), QLatin1String(column) == QLatin1String("fimobs") ? "fim" : "início",
                          work.day->toString("dd/MM/yyyy"), kept.toString("dd/MM/yyyy")));
}

} // namespace

QString typeAfter(const QString& type, KnownDates before, KnownDates after)
{
    const QString current = type.trimmed();
    const TypeOfDates& then = typeOf(before);
    const bool open = current.isEmpty() || current == "T" || current == then.type || current == then.others;
    return open && (before != after || current.isEmpty()) ? QString(typeOf(after).type) : type;
}

void planPeople(Work& work)
{
    for (int person = 0; person < work.count(); ++person) {
        const Identity identity = work.identity(person);
        if (identity.kind == Identity::Kind::New) makePerson(work, person);
        if (identity.kind == Identity::Kind::Known && identity.nind > 0 && work.ledger.person(identity.nind))
            work.plan.people[person] = identity.nind;
        const bool subject = subjects(work.act).contains(person);
        const bool named = !subject || !nameOf(work.act.people[person]).isEmpty(); // else an objection tells it
        const bool told = (identity.kind == Identity::Kind::Kept && named) || work.number(person) != 0;
        if (told && !QList{Role::Child, Role::Deceased}.contains(work.act.people[person].role))
            work.say(introduced(work, person));
        PlannedRow* row = work.row(person);
        if (!row) continue;
        fillNames(work, person, *row);
        fillSex(work, person, *row);
        const Role role = work.act.people[person].role;
        if (role != Role::Child) fillBirthplace(work, person, *row);
    }
}

void planBirth(Work& work, int child)
{
    PlannedRow* row = work.row(child);
    if (!row || !work.day) return;
    const KnownDates before = known(*row);
    if (before.birth) {
        work.fill(*row, {{"datanasc", *work.day}}, "data do baptismo de " + work.label(child));
    } else {
        row->set("datanasc", *work.day);
        row->set("DnascFixa", work.exact);
        observe(work, child, *row, "inicioobs");
        follow(*row, before);
    }
    const PlacePair place = placeOrParish(work, work.take(child, attribute::birthplace), row->now("localnasc"));
    fillPlace(work, *row, "localnasc", "tipolocalnasc", place, "local de nascimento de " + work.label(child));
}

void planDeath(Work& work, int deceased)
{
    PlannedRow* row = work.row(deceased);
    if (!row || !work.day) return;
    const KnownDates before = known(*row);
    if (before.death) {
        work.fill(*row, {{"dataobito", *work.day}}, "data do óbito de " + work.label(deceased));
    } else {
        row->set("dataobito", *work.day);
        row->set("dobitofixa", work.exact);
        observe(work, deceased, *row, "fimobs");
        follow(*row, before);
    }
    const PlacePair place = placeOrParish(work, work.takeFact(attribute::deathPlace), row->now("localobito"));
    fillPlace(work, *row, "localobito", "tipolocalobito", place, "local do óbito de " + work.label(deceased));
}

} // namespace study
