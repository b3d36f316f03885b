// The rows of a sheet: which there are, which can be added, which follow.
#include "study/acts/sheet.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <functional>

namespace study {

namespace {

struct NeededRow
{
    Role role;
    Role owner; // itself for a person of the act
};

// A witness comes twice.
const QList<NeededRow>& neededRows(ActKind kind)
{
    static const QList<NeededRow> baptism{{Role::Child, Role::Child},         {Role::Father, Role::Child},
                                          {Role::Mother, Role::Child},        {Role::Godfather, Role::Godfather},
                                          {Role::Godmother, Role::Godmother}, {Role::Celebrant, Role::Celebrant}};
    static const QList<NeededRow> marriage{
        {Role::Groom, Role::Groom},     {Role::Father, Role::Groom},    {Role::Mother, Role::Groom},
        {Role::Bride, Role::Bride},     {Role::Father, Role::Bride},    {Role::Mother, Role::Bride},
        {Role::Witness, Role::Witness}, {Role::Witness, Role::Witness}, {Role::Celebrant, Role::Celebrant}};
    static const QList<NeededRow> burial{{Role::Deceased, Role::Deceased}, {Role::Celebrant, Role::Celebrant}};
    return kind == ActKind::Baptism ? baptism : kind == ActKind::Marriage ? marriage : burial;
}

// Whoever hangs on somebody stands behind them; what a damaged file has otherwise ends the way up.
bool hangsOn(const Act& act, int person, int owner)
{
    int one = person;
    while (act.people.at(one).of >= 0 && act.people.at(one).of < one) {
        one = act.people.at(one).of;
        if (one == owner) return true;
    }
    return false;
}

// Behind the person and all who hang on them.
int behind(const Act& act, int person)
{
    int last = person;
    for (int other = person + 1; other < act.people.size(); ++other)
        if (hangsOn(act, other, person)) last = other;
    return last + 1;
}

int placeFor(const Act& act, Role role, int of)
{
    if (of >= 0) return behind(act, of);
    if (const QList<int> same = peopleWith(act, role); !same.isEmpty()) return behind(act, same.last());
    const int celebrant = celebrantOf(act);
    return role == Role::Celebrant || celebrant < 0 ? int(act.people.size()) : celebrant;
}

// The number that an id ends in: the person whom it concerns.
const QRegularExpression& personOfId()
{
    static const QRegularExpression form(R"(:(\d+)$)");
    return form;
}

QString renumbered(const QString& id, const std::function<int(int)>& now)
{
    const auto match = personOfId().match(id);
    if (!match.hasMatch()) return id;
    return id.left(match.capturedStart(1)) + QString::number(now(match.captured(1).toInt()));
}

// Whatever speaks of a person speaks of the number that they have now; what speaks of one who has gone (-1) goes.
void renumber(Sheet& sheet, const std::function<int(int)>& now)
{
    for (ActPerson& person : sheet.act.people)
        if (person.of >= 0) person.of = now(person.of);
    QList<Relation> relations;
    relations.reserve(sheet.act.relations.size());
    for (Relation relation : std::as_const(sheet.act.relations)) {
        if (relation.person >= 0) relation.person = now(relation.person);
        const bool leads = relation.other >= 0;
        if (leads) relation.other = now(relation.other);
        if (relation.person >= 0 && (!leads || relation.other >= 0)) relations << relation;
    }
    sheet.act.relations = relations;
    QMap<QString, QString> overruled;
    for (auto it = sheet.conclusions.overruled.cbegin(); it != sheet.conclusions.overruled.cend(); ++it)
        if (const QString id = renumbered(it.key(), now); !id.endsWith(":-1")) overruled.insert(id, it.value());
    sheet.conclusions.overruled = overruled;
}

bool tellsNothing(const Act& act, int person)
{
    const ActPerson& one = act.people.at(person);
    const auto concerns = [person](const Relation& relation) {
        return relation.person == person || relation.other == person;
    };
    return one.name.isEmpty() && one.standardName.isEmpty() && !one.toldSex && one.attributes.isEmpty() &&
           one.notes.isEmpty() && one.id.isEmpty() && std::ranges::none_of(act.relations, concerns);
}

bool hasChild(const Act& act, Role role, int of)
{
    return personWith(act, role, of) >= 0;
}

bool canBeMarried(Role role)
{
    return role != Role::Child && role != Role::Groom && role != Role::Bride && role != Role::Celebrant &&
           role != Role::Spouse && role != Role::EarlierSpouse;
}

QList<NewRow> candidatesOf(const Act& act, int person)
{
    QList<NewRow> rows;
    if (person < 0 || person >= act.people.size()) return rows;
    const Role role = act.people[person].role;
    for (const Role parent : {Role::Father, Role::Mother})
        if (!hasChild(act, parent, person)) rows << NewRow{.role = parent, .of = person};
    if (canBeMarried(role) && !hasChild(act, Role::Spouse, person)) rows << NewRow{.role = Role::Spouse, .of = person};
    if (role == Role::Groom || role == Role::Bride) rows << NewRow{.role = Role::EarlierSpouse, .of = person};
    static const QList<Role> represented{Role::Groom, Role::Bride, Role::Godfather, Role::Godmother};
    if (represented.contains(role) && !hasChild(act, Role::Proxy, person))
        rows << NewRow{.role = Role::Proxy, .of = person};
    return rows;
}

} // namespace

int celebrantOf(const Act& act)
{
    return personWith(act, Role::Celebrant);
}

bool isEmptyRow(const Act& act, int person)
{
    if (!tellsNothing(act, person)) return false;
    for (int other = person + 1; other < act.people.size(); ++other)
        if (act.people[other].of == person && !isEmptyRow(act, other)) return false;
    return true;
}

// Somebody may be recognised before their name is typed; they count with whoever they hang on.
static bool isRecognised(const Sheet& sheet, int person)
{
    for (int other = person; other < sheet.act.people.size(); ++other)
        if (sheet.conclusions.people.value(other).kind == Identity::Kind::Known &&
            (other == person || hangsOn(sheet.act, other, person)))
            return true;
    return false;
}

QList<NewRow> addable(const Act& act, int person)
{
    QList<NewRow> rows = candidatesOf(act, person);
    if (act.kind == ActKind::Baptism) rows << NewRow{.role = Role::Godfather} << NewRow{.role = Role::Godmother};
    rows << NewRow{.role = Role::Witness} << NewRow{.role = Role::Celebrant} << NewRow{.role = Role::Mentioned};
    for (NewRow& row : rows) {
        Sheet grown{.act = act};
        const int added = addRow(grown, row.role, row.of);
        row.title = roleTitle(grown.act, added);
    }
    return rows;
}

int addRow(Sheet& sheet, Role role, int of)
{
    const int at = placeFor(sheet.act, role, of);
    renumber(sheet, [at](int person) { return person < at ? person : person + 1; });
    sheet.act.people.insert(at, ActPerson{.role = role, .of = of});
    while (sheet.conclusions.people.size() < at)
        sheet.conclusions.people.append(Identity{});
    sheet.conclusions.people.insert(at, Identity{});
    sheet.conclusions.people.resize(sheet.act.people.size());
    return at;
}

void addMissing(Sheet& sheet, Role role, int of)
{
    if (!hasChild(sheet.act, role, of)) addRow(sheet, role, of);
}

void removeRow(Sheet& sheet, int person)
{
    QList<bool> goes(sheet.act.people.size(), false);
    for (int other = person; other < sheet.act.people.size(); ++other)
        goes[other] = other == person || hangsOn(sheet.act, other, person);
    const auto now = [&goes](int one) {
        if (one >= goes.size() || goes[one]) return -1;
        return one - int(std::count(goes.cbegin(), goes.cbegin() + one, true));
    };
    Act rest = sheet.act;
    QList<Identity> identities;
    rest.people.clear();
    for (int other = 0; other < sheet.act.people.size(); ++other) {
        if (goes[other]) continue;
        rest.people << sheet.act.people[other];
        identities << sheet.conclusions.people.value(other);
    }
    sheet.act = rest;
    sheet.conclusions.people = identities;
    renumber(sheet, now);
}

static void addNeededRows(Sheet& sheet)
{
    int witnesses = int(peopleWith(sheet.act, Role::Witness).size());
    for (const NeededRow& row : neededRows(sheet.act.kind)) {
        if (row.role == row.owner) {
            const bool there = row.role == Role::Witness ? witnesses-- > 0 : hasChild(sheet.act, row.role, -1);
            if (!there) addRow(sheet, row.role, -1);
        } else if (const int owner = personWith(sheet.act, row.owner); owner >= 0) {
            addMissing(sheet, row.role, owner);
        }
    }
}

Sheet sheetOf(const Act& act, const Conclusions& conclusions)
{
    Sheet sheet{.act = act, .conclusions = conclusions};
    sheet.conclusions.people.resize(act.people.size());
    addNeededRows(sheet);
    addWhatFollows(sheet);
    return sheet;
}

Sex sexOf(const Sheet& sheet, int person)
{
    return sexOf(withConcludedSexes(sheet.act, sheet.conclusions), person);
}

QString roleTitle(const Sheet& sheet, int person)
{
    return roleTitle(withConcludedSexes(sheet.act, sheet.conclusions), person);
}

Sheet withKind(const Sheet& sheet, ActKind kind, const std::optional<ActRecord>& before)
{
    if (sheet.act.kind == kind) return sheet;
    const Sheet typed = trimmed(sheet).sheet;
    Sheet other{.act = typed.act, .conclusions = typed.conclusions};
    const Sheet fresh = newSheet(kind, before);
    other.act.kind = kind;
    if (before && before->act.kind == sheet.act.kind) other.act.number = fresh.act.number;
    if (before && before->act.kind == kind) other.act.book = fresh.act.book, other.act.number = fresh.act.number;
    const auto fits = [kind](Role role) {
        const auto hasRole = [role](const NeededRow& row) { return row.role == role && row.owner == role; };
        return std::ranges::any_of(neededRows(kind), hasRole) || role == Role::Witness || role == Role::Mentioned;
    };
    // A row for whom the act was to be about, in which nothing stands yet, is nobody in an act of another kind.
    for (int person = int(other.act.people.size()) - 1; person >= 0; --person)
        if (!fits(other.act.people[person].role) && isEmptyRow(other.act, person) && !isRecognised(other, person))
            removeRow(other, person);
    bool subject = false;
    for (ActPerson& person : other.act.people) {
        if (person.of >= 0 || fits(person.role)) continue;
        const bool mainPerson = person.role == Role::Child || person.role == Role::Deceased;
        const bool takes = mainPerson && !subject && kind != ActKind::Marriage;
        person.role = !takes ? Role::Mentioned : kind == ActKind::Burial ? Role::Deceased : Role::Child;
        subject = subject || takes;
    }
    addNeededRows(other);
    return other;
}

Trimmed trimmed(const Sheet& sheet)
{
    Trimmed result{.sheet = sheet};
    result.sheet.conclusions.people.resize(sheet.act.people.size());
    for (int person = 0; person < sheet.act.people.size(); ++person)
        result.from << person;
    const QList<int> kept = subjects(sheet.act);
    for (int person = int(sheet.act.people.size()) - 1; person >= 0; --person) {
        if (kept.contains(person) || !isEmptyRow(result.sheet.act, person)) continue;
        if (isRecognised(result.sheet, person)) continue;
        const qsizetype before = result.sheet.act.people.size();
        removeRow(result.sheet, person);
        result.from.remove(person, before - result.sheet.act.people.size());
    }
    QSet<QString> places, professions;
    places << result.sheet.act.place.value;
    for (int person = 0; person < result.sheet.act.people.size(); ++person) {
        const ActPerson& one = result.sheet.act.people[person];
        for (const Attribute& told : one.attributes) {
            const bool isProfession = told.type.compare(QLatin1String(attribute::profession), Qt::CaseInsensitive) == 0;
            (isProfession ? professions : places) << told.told.value;
        }
        Identity& identity = result.sheet.conclusions.people[person];
        if (nameOf(one).isEmpty() && identity.kind == Identity::Kind::Open) identity.kind = Identity::Kind::Kept;
    }
    for (const Attribute& fact : std::as_const(result.sheet.act.facts))
        places << fact.told.value;
    result.sheet.conclusions.places.removeIf([&](auto it) { return !places.contains(it.key()); });
    result.sheet.conclusions.professions.removeIf([&](auto it) { return !professions.contains(it.key()); });
    return result;
}

QString onWholeSheet(const QString& objection, const Trimmed& trimmedSheet)
{
    return renumbered(objection, [&](int person) { return trimmedSheet.from.value(person, person); });
}

} // namespace study
