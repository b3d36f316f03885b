// What follows for a sheet from what is told on it: who is looked for next, and who somebody is taken for.
#include "study/acts/sheet.h"
#include "study/names/names.h"

#include <algorithm>

namespace study {

namespace {

// Of an age that is told, or of a state, that shows a child.
bool isChildByAge(const ActPerson& person)
{
    constexpr int marriageable = 12; // years
    const auto age = readAge(toldValue(person.attributes, attribute::age));
    return age && age->years < marriageable;
}

} // namespace

void addWhatFollows(Sheet& sheet)
{
    for (const int subject : subjects(sheet.act)) {
        const ActPerson& person = sheet.act.people[subject];
        const QString state = toldValue(person.attributes, attribute::civilState).trimmed().toLower();
        const bool widowed = state.startsWith("vi");
        if (sheet.act.kind == ActKind::Marriage && widowed) addMissing(sheet, Role::EarlierSpouse, subject);
        if (sheet.act.kind != ActKind::Burial) continue;
        if (widowed || state.startsWith("cas")) {
            if (personWith(sheet.act, Role::Spouse, subject) >= 0) continue;
            const int spouse = addRow(sheet, Role::Spouse, subject);
            if (widowed) setText(sheet, {.person = spouse, .field = Field::Dead}, "antes");
        } else if (state.startsWith("sol") || isChildByAge(person)) {
            addMissing(sheet, Role::Father, subject);
            addMissing(sheet, Role::Mother, subject);
        }
    }
}

bool isNobody(const Act& act, int person)
{
    const QString& written = act.people.at(person).name.value;
    if (!subjects(act).contains(person)) return partsOf(written).unknown || isSaint(written);
    const bool hasWords = std::ranges::any_of(written, [](QChar letter) { return letter.isLetter(); });
    return !hasWords && nameOf(act.people.at(person)).isEmpty();
}

Identity usualIdentity(const Act& act, int person)
{
    using Kind = Identity::Kind;
    const ActPerson& one = act.people.at(person);
    if (one.role == Role::Mentioned || one.role == Role::Proxy) return {.kind = Kind::Kept};
    return {.kind = isNobody(act, person) ? Kind::Kept : Kind::New};
}

} // namespace study
