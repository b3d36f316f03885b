// Where the keys lead on a sheet.
#include "study/acts/sheet.h"

#include <algorithm>

namespace study {

namespace {

using Fields = QList<Field>;

// What the registers of the time usually tell of whom an act is about, and of the others.
struct Usual
{
    ActKind kind;
    Role role;
    Role owner; // itself for a person of the act
    Fields fields;
};

const QList<Usual>& usualTable()
{
    using enum Field;
    static const QList<Usual> table{
        {ActKind::Baptism, Role::Child, Role::Child, {Name, Sex}},
        {ActKind::Baptism, Role::Mother, Role::Child, {Name, Residence}},
        {ActKind::Baptism, Role::Godfather, Role::Godfather, {Name, Residence}},
        {ActKind::Baptism, Role::Godmother, Role::Godmother, {Name, Residence}},
        {ActKind::Marriage, Role::Groom, Role::Groom, {Name, CivilState, Birthplace, Residence}},
        {ActKind::Marriage, Role::Bride, Role::Bride, {Name, CivilState, Birthplace, Residence}},
        {ActKind::Marriage, Role::Witness, Role::Witness, {Name, Sex, Residence}},
        {ActKind::Burial, Role::Deceased, Role::Deceased, {Name, Sex, CivilState, Age, Residence}}};
    return table;
}

int indexOf(const QList<Spot>& spots, const Spot& spot)
{
    return int(spots.indexOf(spot));
}

QList<Spot> headSpots(const Act& act)
{
    QList<Spot> spots;
    for (const Field field : headFields())
        spots << Spot{.field = field};
    if (const int celebrant = celebrantOf(act); celebrant >= 0) spots << Spot{celebrant, Field::Name};
    return spots;
}

// Of the celebrant the name stands in the head, and the rest among the others, where he has his row.
QList<Spot> allSpots(const Act& act)
{
    QList<Spot> spots = headSpots(act);
    const int celebrant = celebrantOf(act);
    for (int person = 0; person < act.people.size(); ++person)
        for (const Field field : fieldsOf(act, person))
            if (person != celebrant || field != Field::Name) spots << Spot{person, field};
    for (const Field field : factFields(act.kind))
        spots << Spot{.field = field};
    return spots;
}

bool isInRow(const Spot& spot)
{
    return spot.field == Field::Name || spot.field == Field::Sex || spot.field == Field::Residence;
}

// Of the celebrant, who has no row, the name stands in the head.
bool tabReaches(const Act& act, const Spot& there, const Spot& from)
{
    if (there.person < 0) return true;
    if (isInRow(there)) return there.person != celebrantOf(act) || there.field == Field::Name;
    return there.person == from.person && !isInRow(from);
}

bool leftOutBefore(const Spot& spot, const std::optional<ActRecord>& before)
{
    if (!before || spot.field == Field::Date) return false;
    if (spot.person >= 0) return celebrantOf(before->act) < 0;
    return text({.act = before->act, .conclusions = {}}, spot).isEmpty();
}

QList<Spot> usualSpots(const Act& act, const std::optional<ActRecord>& before)
{
    QList<Spot> spots = headSpots(act);
    spots.removeIf([&](const Spot& spot) { return leftOutBefore(spot, before); });
    const int celebrant = celebrantOf(act);
    for (int person = 0; person < act.people.size(); ++person) {
        if (person == celebrant) continue;
        for (const Field field : usualFields(act, person))
            spots << Spot{person, field};
    }
    for (const Field field : usualFacts(act.kind))
        spots << Spot{.field = field};
    return spots;
}

bool isSettled(const Sheet& sheet, const Spot& spot)
{
    if (spot.field == Field::Sex && spot.person >= 0 && !asksForSex(sheet, spot.person)) return true;
    if (text(sheet, spot).isEmpty()) return false;
    if (spot.person < 0 || spot.field != Field::Name) return true;
    return sheet.conclusions.people.value(spot.person).kind != Identity::Kind::Open;
}

// What a person is in an act: the roles on the way to them, each with its place among those of the same owner.
QList<QPair<Role, int>> pathTo(const Act& act, int person)
{
    QList<QPair<Role, int>> path;
    int below = int(act.people.size());
    for (int one = person; one >= 0 && one < below; one = act.people.at(one).of) {
        const ActPerson& there = act.people.at(one);
        path << qMakePair(there.role, int(peopleWith(act, there.role, there.of).indexOf(one)));
        below = one;
    }
    return path;
}

int counterpart(const Act& act, int person, const Act& before)
{
    const auto path = pathTo(act, person);
    for (int other = 0; other < before.people.size(); ++other)
        if (pathTo(before, other) == path) return other;
    return -1;
}

} // namespace

QList<Field> headFields()
{
    return {Field::Date, Field::Book, Field::Folio, Field::Number, Field::Place};
}

QList<Field> factFields(ActKind kind)
{
    using enum Field;
    if (kind != ActKind::Burial) return {ActNotes};
    return {Sacraments, Will, Offices, Masses, Alms, Church, Grave, Shroud, Cause, DeathPlace, ActNotes};
}

QList<Field> usualFacts(ActKind kind)
{
    using enum Field;
    return kind == ActKind::Burial ? Fields{Sacraments, Will, Offices, Grave} : Fields{};
}

QList<Field> fieldsOf(const Act& act, int person)
{
    using enum Field;
    const Role role = act.people.at(person).role;
    Fields fields{Name, Sex, Residence, StandardName, CivilState, Age, Birthplace, Profession, Title, Nickname};
    if (role == Role::Child || role == Role::Deceased || role == Role::Groom || role == Role::Bride)
        fields << Filiation;
    else if (role == Role::Celebrant)
        fields << Office;
    fields << Kinship << Dead << Notes;
    Act untold = act;
    untold.people[person].toldSex.reset();
    if (sexOf(untold, person) != study::Sex::Unknown) fields.removeOne(Sex);
    return fields;
}

QList<Field> usualFields(const Act& act, int person)
{
    const ActPerson& one = act.people.at(person);
    for (const Usual& usual : usualTable()) {
        if (usual.kind != act.kind || usual.role != one.role) continue;
        const bool ofTheAct = usual.owner == usual.role;
        if (ofTheAct ? one.of < 0 : one.of >= 0 && act.people.at(one.of).role == usual.owner) return usual.fields;
    }
    return {Field::Name};
}

std::optional<Spot> nextSpot(const Sheet& sheet, const Spot& from, const std::optional<ActRecord>& before)
{
    const QList<Spot> all = allSpots(sheet.act);
    const QList<Spot> usual = usualSpots(sheet.act, before);
    for (qsizetype at = indexOf(all, from) + 1; at < all.size(); ++at)
        if (usual.contains(all[at]) && !isSettled(sheet, all[at])) return all[at];
    return {};
}

Spot firstSpot(const Sheet& sheet, const std::optional<ActRecord>& before)
{
    const Spot date{.field = Field::Date};
    if (text(sheet, date).isEmpty()) return date;
    return nextSpot(sheet, date, before).value_or(date);
}

std::optional<Spot> neighbour(const Sheet& sheet, const Spot& from, bool forward)
{
    const QList<Spot> all = allSpots(sheet.act);
    const int at = indexOf(all, from), step = forward ? 1 : -1;
    if (at < 0) return {};
    for (int there = at + step; there >= 0 && there < all.size(); there += step)
        if (tabReaches(sheet.act, all[there], from)) return all[there];
    return {};
}

qint64 lastPerson(const Sheet& sheet, int person, const std::optional<ActRecord>& before)
{
    const int same = before ? counterpart(sheet.act, person, before->act) : -1;
    return same < 0 ? 0 : before->people.value(same);
}

QString lastText(const Sheet& sheet, const Spot& spot, const std::optional<ActRecord>& before)
{
    if (spot.person >= 0 && spot.field != Field::Name && spot.field != Field::StandardName)
        for (int above = spot.person - 1; above >= 0; --above)
            if (const QString held = text(sheet, {above, spot.field}); !held.isEmpty()) return held;
    if (!before) return {};
    const Sheet last{.act = before->act, .conclusions = before->conclusions};
    if (spot.person < 0) return text(last, spot);
    if (const int same = counterpart(sheet.act, spot.person, last.act); same >= 0)
        if (const QString held = text(last, {same, spot.field}); !held.isEmpty()) return held;
    if (spot.field == Field::Name || spot.field == Field::StandardName) return {};
    for (int other = int(last.act.people.size()) - 1; other >= 0; --other)
        if (const QString held = text(last, {other, spot.field}); !held.isEmpty()) return held;
    return {};
}

} // namespace study
